// SPDX-License-Identifier: MIT
#pragma once

#include "platform/message_box.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace kelvarin
{

enum class antoine_log
{
    log10,
    ln
};

enum class antoine_pressure
{
    mmHg,
    atm,
    psi,
    kPa,
    bar,
    Pa
};

enum class antoine_temperature
{
    deg_C,
    deg_F,
    K,
    R
};

/// The displayed choices, in the order of their enumerations.
inline constexpr std::array<std::string_view, 2> antoine_log_items = {"log", "ln"};
inline constexpr std::array<std::string_view, 6> antoine_pressure_items = {"mmHg", "atm", "psi", "kPa", "bar", "Pa"};
inline constexpr std::array<std::string_view, 4> antoine_temperature_items = {"deg C", "deg F", "K", "R"};

/// The form of an Antoine equation: log(P) = A + B/(C + t) with P and t in these units.
struct antoine_form
{
    antoine_log log = antoine_log::log10;
    antoine_pressure pressure = antoine_pressure::mmHg;
    antoine_temperature temperature = antoine_temperature::deg_C;

    friend bool operator==(const antoine_form&, const antoine_form&) = default;
};

/// B is negative for a vapour pressure that rises; most tables print the equation with - B and B positive.
struct antoine_constants
{
    double A = 0.0;
    double B = 0.0;
    double C = 0.0;
};

/// Shown beside the fields of new constants.
inline constexpr std::string_view antoine_sign_note =
    "The equation is written with + B. Tables that write A - B/(C+t) print B without its sign: enter it negative.";

/// The constants that give the same vapour pressures in another form.
antoine_constants convert_antoine(const antoine_constants& constants, const antoine_form& from, const antoine_form& to);

/// The vapour pressure at temperature t, in the form's units.
double vapour_pressure(const antoine_constants& constants, const antoine_form& form, double t);

/// "mmHg ; deg C".
std::string antoine_units_text(const antoine_form& form);
/// "log(P)=A+B/(C+t)" or "ln(P)=A+B/(C+t)".
std::string antoine_equation_text(const antoine_form& form);

/// The constants of the window in full precision, with their form; fields and line format them by masks.
class antoine_tool
{
public:
    const antoine_form& form() const { return form_; }
    /// nullopt until constants were entered.
    const std::optional<antoine_constants>& constants() const { return constants_; }

    /// Takes constants as typed, in the present form. Returns a box if one is not a number as a whole.
    std::optional<message_box> enter(std::string_view A, std::string_view B, std::string_view C);
    /// Converts the constants to another form; without constants only the form changes. Returns a box if one of them
    /// would overflow.
    std::optional<message_box> choose(const antoine_form& form);

    /// A, B and C as their fields show them, by the masks "#0.00000" and "#0.0000"; empty if there are no constants.
    std::array<std::string, 3> field_texts() const;
    /// "log(P)=8.07131+-1730.6300/(233.4260+t)"; empty if there are no constants.
    std::string displayed_line() const;

private:
    antoine_form form_;
    std::optional<antoine_constants> constants_;
};

} // namespace kelvarin

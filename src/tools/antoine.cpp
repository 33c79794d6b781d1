// SPDX-License-Identifier: MIT
#include "tools/antoine.h"

#include "platform/format_mask.h"
#include "platform/run_time_text.h"

#include <cmath>

namespace kelvarin
{

namespace
{

/// log10(e) to twelve digits, as the conversion is defined.
constexpr double log10_of_e = 0.434294481903;

double per_atmosphere(antoine_pressure unit)
{
    static constexpr std::array<double, antoine_pressure_items.size()> sizes = {760.0,   1.0,     14.696,
                                                                                101.325, 1.01325, 101325.0};
    return sizes[static_cast<std::size_t>(unit)];
}

antoine_constants with_log(antoine_constants constants, antoine_log from, antoine_log to)
{
    if (from == to) return constants;
    for (double* constant : {&constants.A, &constants.B})
        *constant = to == antoine_log::log10 ? *constant * log10_of_e : *constant / log10_of_e;
    return constants;
}

antoine_constants with_pressure(antoine_constants constants, antoine_log log, antoine_pressure from,
                                antoine_pressure to)
{
    const double ratio = per_atmosphere(to) / per_atmosphere(from);
    constants.A += log == antoine_log::log10 ? std::log10(ratio) : std::log(ratio);
    return constants;
}

/// A temperature scale in terms of degrees Celsius: t = ratio * (t_C + from_zero) + shift.
struct temperature_scale
{
    double ratio;
    double from_zero;
    double shift;
};

temperature_scale scale_of(antoine_temperature unit)
{
    static constexpr double ratio = 1.8;
    static constexpr double freezing = 32.0;
    static constexpr double absolute_zero = 273.15;
    switch (unit) {
    case antoine_temperature::deg_C:
        return {1.0, 0.0, 0.0};
    case antoine_temperature::deg_F:
        return {ratio, 0.0, freezing};
    case antoine_temperature::K:
        return {1.0, absolute_zero, 0.0};
    case antoine_temperature::R:
        break;
    }
    return {ratio, absolute_zero, 0.0};
}

antoine_constants with_temperature(antoine_constants constants, antoine_temperature from, antoine_temperature to)
{
    if (from == to) return constants;
    const temperature_scale old_scale = scale_of(from);
    const temperature_scale new_scale = scale_of(to);
    // B/(C + t) must not change: C + t is proportional to the size of a degree, and so is B.
    constants.B = constants.B / old_scale.ratio * new_scale.ratio;
    const double in_celsius = (constants.C + old_scale.shift) / old_scale.ratio + old_scale.from_zero;
    constants.C = (in_celsius - new_scale.from_zero) * new_scale.ratio - new_scale.shift;
    return constants;
}

std::string_view log_text(const antoine_form& form)
{
    return antoine_log_items[static_cast<std::size_t>(form.log)];
}

} // namespace

antoine_constants convert_antoine(const antoine_constants& constants, const antoine_form& from, const antoine_form& to)
{
    const antoine_constants based = with_log(constants, from.log, to.log);
    return with_temperature(with_pressure(based, to.log, from.pressure, to.pressure), from.temperature, to.temperature);
}

double vapour_pressure(const antoine_constants& constants, const antoine_form& form, double t)
{
    const double log_of_pressure = constants.A + constants.B / (constants.C + t);
    return form.log == antoine_log::ln ? std::exp(log_of_pressure) : std::pow(10.0, log_of_pressure);
}

std::string antoine_units_text(const antoine_form& form)
{
    std::string text(antoine_pressure_items[static_cast<std::size_t>(form.pressure)]);
    return text.append(" ; ").append(antoine_temperature_items[static_cast<std::size_t>(form.temperature)]);
}

std::string antoine_equation_text(const antoine_form& form)
{
    return std::string(log_text(form)) + "(P)=A+B/(C+t)";
}

std::optional<message_box> antoine_tool::enter(std::string_view A, std::string_view B, std::string_view C)
{
    const std::array values = {numeric_value(A), numeric_value(B), numeric_value(C)};
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (values[i]) continue;
        return message_box{std::string("Enter a numeric value for ") + "ABC"[i] + ".", box_icon::exclamation};
    }
    constants_ = antoine_constants{*values[0], *values[1], *values[2]};
    return std::nullopt;
}

std::optional<message_box> antoine_tool::choose(const antoine_form& form)
{
    if (constants_) {
        const antoine_constants converted = convert_antoine(*constants_, form_, form);
        if (!std::isfinite(converted.A) || !std::isfinite(converted.B) || !std::isfinite(converted.C))
            return message_box{"A constant would be too large a number.", box_icon::exclamation};
        constants_ = converted;
    }
    form_ = form;
    return std::nullopt;
}

std::array<std::string, 3> antoine_tool::field_texts() const
{
    if (!constants_) return {};
    return {format_masked(constants_->A, "#0.00000"), format_masked(constants_->B, "#0.0000"),
            format_masked(constants_->C, "#0.0000")};
}

std::string antoine_tool::displayed_line() const
{
    if (!constants_) return {};
    std::string line(log_text(form_));
    line.append("(P)=").append(format_masked(constants_->A, "0.00000"));
    line.append("+").append(format_masked(constants_->B, "0.0000"));
    line.append("/(").append(format_masked(constants_->C, "0.0000")).append("+t)");
    return line;
}

} // namespace kelvarin

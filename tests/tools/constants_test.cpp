// SPDX-License-Identifier: MIT
#include "platform/data_files.h"
#include "platform/run_time_text.h"
#include "platform/text_file.h"
#include "support/digits.h"
#include "support/table.h"
#include "tools/constants.h"
#include "tools/units.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <numbers>
#include <string>
#include <vector>

namespace kelvarin
{
namespace
{

/// The program's own constants, which lie beside the tests as beside the programs.
constant_list own_constants()
{
    const auto file = find_data_file(constants_file_name);
    EXPECT_TRUE(file) << "no " << constants_file_name << " beside the tests";
    return file ? read_constants(read_text_file(*file).text) : constant_list();
}

/// The value of one of the program's own constants.
double own(std::string_view name)
{
    static const constant_list list = own_constants();
    for (const constant_group& group : list.groups)
        for (const physical_constant& each : group.constants)
            if (each.name == name) return numeric_value(each.value).value_or(NAN);
    ADD_FAILURE() << "there is no " << name;
    return NAN;
}

/// A published value: its digits without blanks and uncertainty, "6.67430(15)e-11" as 6.67430e-11, and the size of
/// one unit in its last digits times the number in parentheses.
struct published_value
{
    double value = NAN;
    double uncertainty = 0.0;
};

published_value read_published(std::string_view text)
{
    std::string digits;
    std::string doubtful;
    bool inside = false;
    for (const char c : text) {
        if (c == '(' || c == ')') {
            inside = c == '(';
        } else if (c != ' ') {
            (inside ? doubtful : digits) += c;
        }
    }
    published_value published;
    published.value = std::stod(digits);
    if (doubtful.empty()) return published;
    const std::size_t exponent = std::min(digits.find('e'), digits.size());
    const int decimals = static_cast<int>(exponent - digits.find('.')) - 1;
    published.uncertainty = std::stod(doubtful + "e" + std::to_string(-decimals)) *
                            (exponent == digits.size() ? 1.0 : std::stod("1" + digits.substr(exponent)));
    return published;
}

TEST(OwnConstants, HaveTheValuesOfTheirPublicationAndAreNumbers)
{
    const constant_list list = own_constants();
    EXPECT_TRUE(list.faults.empty());
    std::vector<std::string> names;
    for (const constant_group& group : list.groups) {
        EXPECT_FALSE(group.name.empty());
        for (const physical_constant& each : group.constants) {
            EXPECT_TRUE(is_numeric(each.value)) << each.name;
            names.push_back(each.name);
        }
    }
    std::ranges::sort(names);
    EXPECT_EQ(std::ranges::adjacent_find(names), names.end());

    int compared = 0;
    const text_file table = read_text_file(KELVARIN_TEST_DATA "/tools/codata_2022.txt");
    for (const std::string_view line : split_lines(table.text)) {
        if (line.starts_with('#')) continue;
        const std::size_t first = line.find(';');
        const std::size_t last = line.rfind(';');
        const std::string name(trimmed(line.substr(0, first)));
        EXPECT_EQ(own(name), read_published(line.substr(first + 1, last - first - 1)).value) << name;
        ++compared;
    }
    EXPECT_GE(compared, 50);
}

// The adjustment ties its measured constants together by these equations of physics, so that a digit that is wrong in
// one of them shows in another. Each holds within the relative uncertainty given, that of its least certain part, or
// the 15 digits printed.
TEST(OwnConstants, FitTogether)
{
    using std::numbers::pi;
    const double c = own("speed of light in vacuum"), h = own("Planck constant"), e = own("elementary charge");
    const double k = own("Boltzmann constant"), NA = own("Avogadro constant"), hbar = h / (2 * pi);
    const double alpha = own("fine-structure constant"), rydberg = own("Rydberg constant");
    const double me = own("electron mass"), mp = own("proton mass"), mn = own("neutron mass");
    const double a0 = own("Bohr radius"), re = own("classical electron radius"),
                 G = own("Newtonian constant of gravitation");
    const double mega = 1e6 * e / (c * c);
    constexpr double printed = 5e-15;
    const test::table<std::string, double, double> cases = {
        {"reduced Planck constant", hbar, printed},
        {"Planck constant in eV", h / e, printed},
        {"Boltzmann constant in eV", k / e, printed},
        {"molar gas constant", NA * k, printed},
        {"Faraday constant", NA * e, printed},
        {"magnetic flux quantum", h / (2 * e), printed},
        {"Josephson constant", 2 * e / h, printed},
        {"von Klitzing constant", h / (e * e), printed},
        {"conductance quantum", 2 * e * e / h, printed},
        {"Stefan-Boltzmann constant", 2 * std::pow(pi, 5) * std::pow(k, 4) / (15 * h * h * h * c * c), printed},
        {"first radiation constant", 2 * pi * h * c * c, printed},
        {"second radiation constant", h * c / k, printed},
        // The roots of x = 5 (1 - exp(-x)) and x = 3 (1 - exp(-x)).
        {"Wien wavelength displacement constant", h * c / (k * 4.965114231744276), printed},
        {"Wien frequency displacement constant", 2.821439372122079 * k / h, printed},
        {"molar volume of ideal gas (273.15 K, 101.325 kPa)", NA * k * 273.15 / 101325, printed},
        {"molar volume of ideal gas (273.15 K, 100 kPa)", NA * k * 273.15 / 100000, printed},
        {"Loschmidt constant (273.15 K, 101.325 kPa)", 101325 / (k * 273.15), printed},
        {"inverse fine-structure constant", 1 / alpha, 1.6e-10},
        {"electron mass", 2 * h * rydberg / (alpha * alpha * c), 3.1e-10},
        {"Bohr radius", alpha / (4 * pi * rydberg), 1.6e-10},
        {"Rydberg energy", h * c * rydberg / e, 1.1e-12},
        {"Hartree energy", 2 * h * c * rydberg, 1.1e-12},
        {"Hartree energy in eV", 2 * h * c * rydberg / e, 1.1e-12},
        {"vacuum magnetic permeability", 2 * alpha * h / (e * e * c), 1.6e-10},
        {"vacuum electric permittivity", e * e / (2 * alpha * h * c), 1.6e-10},
        {"impedance of vacuum", 2 * alpha * h / (e * e), 1.6e-10},
        {"classical electron radius", alpha * alpha * a0, 4.7e-10},
        {"Thomson cross section", 8 * pi / 3 * re * re, 9.3e-10},
        {"Compton wavelength", h / (me * c), 3.1e-10},
        {"Bohr magneton", e * hbar / (2 * me), 3.1e-10},
        {"nuclear magneton", e * hbar / (2 * mp), 3.1e-10},
        {"electron magnetic moment", own("electron g factor") / 2 * own("Bohr magneton"), 3.1e-10},
        {"proton gyromagnetic ratio", 2 * own("proton magnetic moment") / hbar, 4.3e-10},
        {"proton mass", me * own("proton-electron mass ratio"), 3.1e-10},
        {"neutron mass", mp * own("neutron-proton mass ratio"), 5.1e-10},
        {"electron mass in MeV", me / mega, 3.1e-10},
        {"proton mass in MeV", mp / mega, 3.1e-10},
        {"neutron mass in MeV", mn / mega, 5.1e-10},
        {"unified atomic mass unit in MeV", own("unified atomic mass unit") / mega, 3.1e-10},
        {"molar mass constant", own("unified atomic mass unit") * NA, 3.1e-10},
        {"molar mass of carbon 12", 12 * own("unified atomic mass unit") * NA, 3.1e-10},
        {"Planck mass", std::sqrt(hbar * c / G), 1.1e-5},
        {"Planck length", std::sqrt(hbar * G / (c * c * c)), 1.1e-5},
        {"Planck time", std::sqrt(hbar * G / std::pow(c, 5)), 1.1e-5},
        {"Planck temperature", std::sqrt(hbar * std::pow(c, 5) / G) / k, 1.1e-5},
        {"pi", pi, printed},
        {"2 pi", 2 * pi, printed},
        {"base of natural logarithms (e)", std::numbers::e, printed},
        {"Euler-Mascheroni constant", std::numbers::egamma, printed},
        {"golden ratio", std::numbers::phi, printed},
        {"square root of 2", std::numbers::sqrt2, printed},
        {"square root of 3", std::numbers::sqrt3, printed},
        {"square root of pi", 1 / std::numbers::inv_sqrtpi, printed},
        {"natural logarithm of 2", std::numbers::ln2, printed},
        {"natural logarithm of 10", std::numbers::ln10, printed},
        {"common logarithm of e", std::numbers::log10e, printed},
        {"degrees per radian", 180 / pi, printed},
        // Abramowitz and Stegun, tables 1.1 and 23.3.
        {"Catalan constant", 0.91596559417721902, printed},
        {"Apery constant", 1.20205690315959429, printed},
    };
    for (const auto& [name, from_others, uncertainty] : cases)
        EXPECT_NEAR(own(name) / from_others, 1.0, uncertainty) << name;
}

/// How many of the first unit make one of the second.
double in_units(std::string_view from, std::string_view to)
{
    static const unit_list list = read_units(read_text_file(find_data_file(units_file_name).value()).text);
    const auto pair = find_unit_pair(list.units, from, to);
    EXPECT_TRUE(pair) << from << " " << to;
    return pair ? convert_units(1.0, pair->first, pair->second).value.value_or(NAN) : NAN;
}

TEST(OwnConstants, TheGasConstantIsTheSameInAllUnits)
{
    const double R = own("molar gas constant");
    const double per_lbmol_R = 5.0 / 9.0 / in_units("mol", "lbmol");
    const test::table<std::string, double> cases = {
        {"J/(mol K)", R},
        {"kJ/(kmol K)", R},
        {"m3 Pa/(mol K)", R},
        {"L kPa/(mol K)", R * in_units("m3", "L") * in_units("Pa", "kPa")},
        {"L bar/(mol K)", R * in_units("m3", "L") * in_units("Pa", "bar")},
        {"L atm/(mol K)", R * in_units("m3", "L") * in_units("Pa", "atm")},
        {"L mmHg/(mol K)", R * in_units("m3", "L") * in_units("Pa", "mmHg")},
        {"cal/(mol K)", R * in_units("J", "cal")},
        {"Btu/(lbmol R)", R * in_units("J", "Btu") * per_lbmol_R},
        {"ft lbf/(lbmol R)", R * in_units("J", "ft lbf") * per_lbmol_R},
        {"ft3 psi/(lbmol R)", R * in_units("m3", "ft3") * in_units("Pa", "psi") * per_lbmol_R},
        {"ft3 atm/(lbmol R)", R * in_units("m3", "ft3") * in_units("Pa", "atm") * per_lbmol_R},
    };
    for (const auto& [units, expected] : cases)
        EXPECT_GE(test::digits_shown(own("gas constant in " + units), expected), 14.0) << units;
    EXPECT_GE(test::digits_shown(own("standard atmosphere in psi"), in_units("atm", "psi")), 14.0);
    EXPECT_GE(test::digits_shown(own("standard acceleration of gravity in ft"), in_units("g", "ft/s2")), 14.0);
}

TEST(Constants, LinesBecomeGroupsAndFaultsKeepTheirNumbers)
{
    const constant_list list = read_constants("' a comment\r\n"
                                              "alone = 1 | m\r\n"
                                              "  : First  \r\n"
                                              "a=b = = 2 | x | y\n"
                                              "no units = 3\n"
                                              "\n"
                                              "nothing\n"
                                              " = 4\n"
                                              "empty = | m\n"
                                              ":Second\n"
                                              "late|bar = 5|m\n"
                                              ":First\n"
                                              "again = 6 |\n"
                                              "  ' comment = 1\n");
    std::string read;
    for (const constant_group& group : list.groups) {
        read += "[" + group.name + "]";
        for (const physical_constant& each : group.constants)
            read += " " + each.name + "/" + each.value + "/" + each.units;
        read += "\n";
    }
    EXPECT_EQ(read, "[] alone/1/m\n"
                    "[First] a/b = = 2/x | y no units/3/ again/6/\n"
                    "[Second] late|bar/5/m\n");
    const std::vector<data_fault> faults = {
        {7, "there is no \"=\""}, {8, "name or value is missing"}, {9, "name or value is missing"}};
    EXPECT_EQ(list.faults, faults);
}

TEST(Constants, AreShownInColumnsCopiedAndFound)
{
    const std::vector<constant_group> groups = {
        {"One", {{"short", "1", "m"}, {"l\xC3\xA4nger name", "12.5", ""}}},
        {"Two", {{"speed", "3", "m/s"}}},
    };
    EXPECT_EQ(constant_lines(groups[0]),
              (std::vector<std::string>{"short        1     m", "l\xC3\xA4nger name  12.5"}));
    EXPECT_EQ(copied_line(groups[0].constants[0]), "short = 1 m");
    EXPECT_EQ(copied_line(groups[0].constants[1]), "l\xC3\xA4nger name = 12.5");
    const auto count = [&](std::string_view words) {
        std::string found;
        for (const constant_group& group : search_constants(groups, words))
            found += group.name + std::to_string(group.constants.size()) + " ";
        return found;
    };
    EXPECT_EQ(count(""), "One2 Two1 ");
    EXPECT_EQ(count("SPEED m/s"), "Two1 ");
    EXPECT_EQ(count("one m"), "One2 ");
    EXPECT_EQ(count("one speed"), "");
}

TEST(Constants, ManyGroupsAreReadAtOnce)
{
    std::string text;
    constexpr int count = 100000;
    for (int i = 0; i < count; ++i)
        text += ":g" + std::to_string(i) + "\nc = 1 | m\n";
    // Each group is named again far behind.
    for (int i = 0; i < count; ++i)
        text += ":g" + std::to_string(i) + "\nd = 2 | m\n";
    const auto start = std::chrono::steady_clock::now();
    const constant_list list = read_constants(text);
    // Looked for one by one they took minutes.
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
    ASSERT_EQ(list.groups.size(), std::size_t{count});
    EXPECT_EQ(list.groups.back().constants.size(), 2u);
}

} // namespace
} // namespace kelvarin

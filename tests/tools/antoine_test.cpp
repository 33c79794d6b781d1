// SPDX-License-Identifier: MIT
#include "support/digits.h"
#include "support/table.h"
#include "tools/antoine.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kelvarin
{
namespace
{

using enum antoine_log;
using enum antoine_pressure;
using enum antoine_temperature;

/// Water from 1 to 100 deg C, with P in mmHg (Gmehling and Onken, Vapor-Liquid Equilibrium Data Collection).
constexpr antoine_constants water = {8.07131, -1730.63, 233.426};
constexpr antoine_form tabled = {};

std::vector<antoine_form> all_forms()
{
    std::vector<antoine_form> forms;
    for (const antoine_log log : {log10, ln})
        for (const antoine_pressure pressure : {mmHg, atm, psi, kPa, bar, Pa})
            for (const antoine_temperature temperature : {deg_C, deg_F, K, R})
                forms.push_back({log, pressure, temperature});
    return forms;
}

// 760 mmHg at 100 deg C in the units of each form: pressures per atmosphere and the definitions of the scales.
TEST(Antoine, WaterBoilsUnderOneAtmosphereInEveryForm)
{
    EXPECT_NEAR(vapour_pressure(water, tabled, 100.0), 760.0, 0.1);
    const double atmospheres = vapour_pressure(water, tabled, 100.0) / 760.0;
    const std::vector<double> per_atmosphere = {760.0, 1.0, 14.696, 101.325, 1.01325, 101325.0};
    const std::vector<double> boiling = {100.0, 212.0, 373.15, 671.67};
    for (const antoine_form& form : all_forms()) {
        SCOPED_TRACE(antoine_equation_text(form) + " " + antoine_units_text(form));
        const antoine_constants converted = convert_antoine(water, tabled, form);
        const double expected = atmospheres * per_atmosphere[static_cast<std::size_t>(form.pressure)];
        const double found = vapour_pressure(converted, form, boiling[static_cast<std::size_t>(form.temperature)]);
        EXPECT_GE(test::digits_shown(found, expected), 11.0) << found;
    }
}

TEST(Antoine, GoingToAnyFormAndBackGivesTheFirstConstants)
{
    for (const antoine_form& form : all_forms()) {
        SCOPED_TRACE(antoine_equation_text(form) + " " + antoine_units_text(form));
        const antoine_constants back = convert_antoine(convert_antoine(water, tabled, form), form, tabled);
        EXPECT_NEAR(back.A, water.A, 1e-10);
        EXPECT_NEAR(back.B, water.B, 1e-10);
        EXPECT_NEAR(back.C, water.C, 1e-10);
    }
}

// By hand: 8.07131 / 0.434294481903 = 18.5848781; -1730.63 / 0.434294481903 = -3984.92284; -1730.63 * 1.8 = -3115.134;
// 233.426 * 1.8 - 32 = 388.1668; 233.426 - 273.15 = -39.724, times 1.8 = -71.5032; 8.07131 + log10(101.325 / 760)
// = 7.1962130.
TEST(Antoine, ChoicesRewriteTheConstantsInFullBehindTheirMasks)
{
    antoine_tool tool;
    EXPECT_EQ(tool.displayed_line(), "");
    tool.choose({ln, bar, K});
    EXPECT_EQ(antoine_equation_text(tool.form()), "ln(P)=A+B/(C+t)");
    EXPECT_EQ(antoine_units_text(tool.form()), "bar ; K");
    EXPECT_FALSE(tool.constants());
    tool.choose(tabled);
    ASSERT_FALSE(tool.enter("8.07131", " -1730.63 ", "2.33426e2"));
    const test::table<antoine_form, std::string> cases = {
        {tabled, "log(P)=8.07131+-1730.6300/(233.4260+t)"},
        {{log10, mmHg, deg_F}, "log(P)=8.07131+-3115.1340/(388.1668+t)"},
        {{log10, mmHg, R}, "log(P)=8.07131+-3115.1340/(-71.5032+t)"},
        {{log10, mmHg, K}, "log(P)=8.07131+-1730.6300/(-39.7240+t)"},
        {{log10, kPa, deg_C}, "log(P)=7.19621+-1730.6300/(233.4260+t)"},
        {{ln, mmHg, deg_C}, "ln(P)=18.58488+-3984.9228/(233.4260+t)"},
    };
    // Many rounds: a mask that fed back into the constants would lose digits.
    for (int round = 0; round < 50; ++round) {
        for (const auto& [form, line] : cases) {
            tool.choose(form);
            EXPECT_EQ(tool.displayed_line(), line);
        }
    }
    tool.choose(tabled);
    EXPECT_EQ(tool.field_texts(), (std::array<std::string, 3>{"8.07131", "-1730.6300", "233.4260"}));
    EXPECT_NEAR(tool.constants()->A, water.A, 1e-10);
}

TEST(Antoine, TypedTextsThatAreNoNumbersAreRefusedAndChangeNothing)
{
    antoine_tool tool;
    const test::table<std::string, std::string, std::string, std::string> cases = {
        {"", "1", "2", "Enter a numeric value for A."},
        {"8", "12abc", "2", "Enter a numeric value for B."},
        {"8", "1", "1,5", "Enter a numeric value for C."},
    };
    for (const auto& [A, B, C, box] : cases) {
        const auto refused = tool.enter(A, B, C);
        ASSERT_TRUE(refused);
        EXPECT_EQ(refused->text, box);
        EXPECT_FALSE(tool.constants());
    }
}

} // namespace
TEST(Antoine, RefusesAFormInWhichAConstantIsTooLargeANumber)
{
    antoine_tool tool;
    ASSERT_FALSE(tool.enter("1e308", "1", "1"));
    EXPECT_TRUE(tool.choose({.log = antoine_log::ln}));
    EXPECT_EQ(tool.form(), antoine_form{});
    EXPECT_EQ(tool.constants()->A, 1e308);
}

} // namespace kelvarin

// SPDX-License-Identifier: MIT
#include "platform/data_files.h"
#include "platform/text_file.h"
#include "support/digits.h"
#include "support/table.h"
#include "tools/units.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <map>
#include <string>
#include <vector>

namespace kelvarin
{
namespace
{

/// The program's own units, which lie beside the tests as beside the programs.
unit_list own_units()
{
    const auto file = find_data_file(units_file_name);
    EXPECT_TRUE(file) << "no " << units_file_name << " beside the tests";
    return file ? read_units(read_text_file(*file).text) : unit_list();
}

measurement_unit unit_named(const std::vector<measurement_unit>& units, std::string_view type, std::string_view name)
{
    const auto found = std::ranges::find_if(
        units, [&](const measurement_unit& each) { return each.unit_type == type && each.unit_name == name; });
    EXPECT_NE(found, units.end()) << type << " " << name;
    return found == units.end() ? measurement_unit() : *found;
}

std::string text_of(const unit_conversion& converted)
{
    return converted.refusal ? converted.refusal->title + ": " + converted.refusal->text : converted.text;
}

/// The size of each unit in base units, as tests/data/tools/expected_units.py has computed it from definitions.
std::map<std::pair<std::string, std::string>, double> expected_sizes()
{
    std::map<std::pair<std::string, std::string>, double> sizes;
    const text_file table = read_text_file(KELVARIN_TEST_DATA "/tools/expected_units.txt");
    for (const std::string_view line : split_lines(table.text)) {
        const std::size_t first = line.find('|');
        const std::size_t last = line.rfind('|');
        sizes[{std::string(line.substr(0, first)), std::string(line.substr(first + 1, last - first - 1))}] =
            std::stod(std::string(line.substr(last + 1)));
    }
    return sizes;
}

TEST(OwnUnits, AgreeWithTheirDefinitionsInBothDirections)
{
    const unit_list list = own_units();
    EXPECT_TRUE(list.faults.empty());
    auto sizes = expected_sizes();
    ASSERT_GT(sizes.size(), 300u);
    for (const measurement_unit& each : list.units) {
        SCOPED_TRACE(each.unit_type + " / " + each.unit_name);
        EXPECT_FALSE(each.unit_note.empty());
        if (each.unit_type == "Temperature") continue;
        const auto size = sizes.find({each.unit_type, each.unit_name});
        ASSERT_NE(size, sizes.end());
        const measurement_unit base = units_of_type(list.units, each.unit_type).front();
        EXPECT_EQ(base.factor, 1.0);
        EXPECT_EQ(each.offset, 0.0);
        EXPECT_GE(test::digits_shown(convert_units(1.0, each, base).value.value_or(0.0), size->second), 15.0);
        EXPECT_GE(test::digits_shown(convert_units(size->second, base, each).value.value_or(0.0), 1.0), 15.0);
        EXPECT_EQ(convert_units(size->second, base, each).text, "1");
        sizes.erase(size);
    }
    EXPECT_TRUE(sizes.empty()) << "given twice, or not in the file: " << sizes.begin()->first.second;
}

// Fixed points, from the definitions of the scales: absolute zero, where the Celsius and Fahrenheit scales meet, 0 deg
// F, the freezing and the boiling point of water.
TEST(OwnUnits, TheFourTemperatureScalesAgreeAtTheirFixedPointsBothWays)
{
    const std::vector<std::string> scales = {"deg C", "deg F", "K", "R"};
    const std::vector<std::vector<std::string>> points = {
        {"-273.15", "-459.67", "0", "0"},
        {"-40", "-40", "233.15", "419.67"},
        {"-17.7777777777778", "0", "255.372222222222", "459.67"},
        {"0", "32", "273.15", "491.67"},
        {"37", "98.6", "310.15", "558.27"},
        {"100", "212", "373.15", "671.67"},
    };
    const std::vector<measurement_unit> units = own_units().units;
    for (const auto& point : points) {
        for (std::size_t from = 0; from < scales.size(); ++from) {
            for (std::size_t to = 0; to < scales.size(); ++to) {
                // A point that is given rounded comes out as exact only where it is not converted.
                if (from != to && point[from].size() > 10) continue;
                SCOPED_TRACE(point[from] + " " + scales[from] + " -> " + scales[to]);
                const measurement_unit source = unit_named(units, "Temperature", scales[from]);
                const measurement_unit target = unit_named(units, "Temperature", scales[to]);
                const std::string line = text_of(convert_typed(point[from], source, target));
                std::string expected = point[from] + " " + scales[from] + " = " + point[to] + " " + scales[to];
                EXPECT_NEAR(std::stod(line.substr(line.find('=') + 1)), std::stod(point[to]), 1e-11);
                if (point[to].size() <= 10) {
                    EXPECT_EQ(line, expected);
                }
            }
        }
    }
}

TEST(Units, FileLinesBecomeUnitsOrFaultsWithTheirNumbers)
{
    const std::string text = "' a comment | x | 1 | 0 | note\r\n"
                             "\r\n"
                             "  Length|m|1|0|metre\r\n"
                             "Mass | kg | 1 | 0\r\n"
                             "   'another comment\n"
                             "Length | cm | 100 cm | 0 | note | more | and more\n"
                             "Length | broken\n"
                             "Length | zero | 0 | 0 | no factor\n"
                             "Length | words | many | 0 |\n"
                             "Length | huge | 1e999 | 0 |\n"
                             "Length | far | 1 | 1e999 |\n"
                             "Length | | 1 | 0 |\n"
                             "Time | s | 1d0 | -.5 |";
    const unit_list list = read_units(text);
    std::string read;
    for (const measurement_unit& each : list.units)
        read += each.unit_type + "/" + each.unit_name + "/" + std::to_string(each.factor) + "/" +
                std::to_string(each.offset) + "/" + each.unit_note + "\n";
    EXPECT_EQ(read, "Length/m/1.000000/0.000000/metre\n"
                    "Mass/kg/1.000000/0.000000/\n"
                    "Length/cm/100.000000/0.000000/note\n"
                    "Time/s/1.000000/-0.500000/\n");
    const std::vector<data_fault> faults = {{7, "fields are missing"},
                                            {8, "the factor is no number other than 0"},
                                            {9, "the factor is no number other than 0"},
                                            {10, "the factor is no number other than 0"},
                                            {11, "the offset is too large"},
                                            {12, "type or name is missing"}};
    EXPECT_EQ(list.faults, faults);
    EXPECT_EQ(unit_types(list.units), (std::vector<std::string>{"Length", "Mass", "Time"}));
    EXPECT_EQ(units_of_type(list.units, "Length").size(), 2u);
}

TEST(Units, TheFormulaTakesOffsetsInBaseUnitsAndRefusesWhatHasNoResult)
{
    const measurement_unit celsius = {"T", "deg C", "", 1.0, 0.0};
    // -32 as an offset of Fahrenheit is another scale: (100 + 0) * 1.8 + 32 * 1.8.
    const measurement_unit shifted = {"T", "deg X", "", 1.8, -32.0};
    const measurement_unit nothing = {"T", "nothing", "", 0.0, 0.0};
    const measurement_unit other = {"L", "m", "", 1.0, 0.0};
    const measurement_unit small = {"T", "tiny", "", 1e-300, 0.0};
    const test::table<std::string, measurement_unit, measurement_unit, std::string> cases = {
        {" 100 ", celsius, shifted, "100 deg C = 237.6 deg X"},
        {"1e3", celsius, celsius, "1000 deg C = 1000 deg C"},
        {"-0", celsius, celsius, "0 deg C = 0 deg C"},
        {"", celsius, shifted, "Kelvarin Guide: Must be numeric value !"},
        {"12abc", celsius, shifted, "Kelvarin Guide: Must be numeric value !"},
        {"1,5", celsius, shifted, "Kelvarin Guide: Must be numeric value !"},
        {"1e999", celsius, shifted, "Kelvarin Guide: Must be numeric value !"},
        {"1", celsius, nothing, "Kelvarin Guide: nothing has no factor."},
        {"1", nothing, celsius, "Kelvarin Guide: nothing has no factor."},
        {"1", celsius, other, "Kelvarin Guide: deg C and m are of different types."},
        {"1e300", small, celsius, "Kelvarin Guide: The result is too large."},
    };
    for (const auto& [number, from, to, text] : cases)
        EXPECT_EQ(text_of(convert_typed(number, from, to)), text) << number + " " + from.unit_name + " " + to.unit_name;
}

TEST(Units, ANameInTwoTypesStaysInsideTheTypeThatHasBoth)
{
    const std::vector<measurement_unit> units = own_units().units;
    const test::table<std::string, std::string, std::string> cases = {
        {"deg C", "deg F", "Temperature"}, {"g", "ft/s2", "Acceleration"}, {"g", "oz", "Mass"},
        {"kgf m", "lbf ft", "Torque"},     {"kgf m", "kWh", "Energy"},     {"m", "kg", ""},
        {"m", "no such unit", ""},
    };
    for (const auto& [from, to, type] : cases) {
        SCOPED_TRACE(from + " " + to);
        const auto pair = find_unit_pair(units, from, to);
        EXPECT_EQ(pair ? pair->first.unit_type : "", type);
        EXPECT_EQ(pair ? pair->second.unit_type : "", type);
    }
}

TEST(Units, SearchFindsAllWordsInTypeNameOrNote)
{
    const std::vector<measurement_unit> units = {
        {"Pressure", "psi", "pound-force per square inch", 1, 0},
        {"Pressure", "inHg", "conventional inch of mercury", 1, 0},
        {"Length", "in", "inch, 25.4 mm exactly", 1, 0},
    };
    const auto names = [&](std::string_view words) {
        std::string text;
        for (const measurement_unit& each : search_units(units, words))
            text += each.unit_name + " ";
        return text;
    };
    EXPECT_EQ(names("INCH"), "psi inHg in ");
    EXPECT_EQ(names(" pressure  inch"), "psi inHg ");
    EXPECT_EQ(names("psi square"), "psi ");
    EXPECT_EQ(names("psi mercury"), "");
    EXPECT_EQ(names(" "), "psi inHg in ");
}

TEST(Units, ManyTypesAreReadAndSearchedAtOnce)
{
    std::string text;
    constexpr int count = 100000;
    for (int i = 0; i < count; ++i) {
        const std::string type = "t" + std::to_string(i);
        text += type + " | a | 1 | 0\n" + type + " | b" + std::to_string(i) + " | 2 | 0\n";
    }
    const auto start = std::chrono::steady_clock::now();
    const unit_list list = read_units(text);
    EXPECT_EQ(unit_types(list.units).size(), std::size_t{count});
    const auto pair = find_unit_pair(list.units, "a", "b99999");
    // Looked for one by one they took minutes.
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
    ASSERT_TRUE(pair);
    EXPECT_EQ(pair->first.unit_type, "t99999");
}

} // namespace
} // namespace kelvarin

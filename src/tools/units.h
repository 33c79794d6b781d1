// SPDX-License-Identifier: MIT
#pragma once

#include "platform/message_box.h"
#include "tools/data_lines.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kelvarin
{

/// The file of units, for find_data_file.
inline constexpr std::string_view units_file_name = "cnvrtcfg.txt";

struct measurement_unit
{
    std::string unit_type;
    std::string unit_name;
    std::string unit_note;
    /// Number of these units in one base unit of the type.
    double factor = 1.0;
    /// Position of the unit's zero, in base units.
    double offset = 0.0;
};

struct unit_list
{
    /// In file order.
    std::vector<measurement_unit> units;
    std::vector<data_fault> faults;
};

/// Reads lines "type | name | factor | offset | note"; the note is optional, and text after a fifth "|" is ignored.
/// Blank lines and those that begin with an apostrophe are skipped. A line with fewer fields, or with a factor that is
/// 0 or not a number, is a fault and gives no unit.
unit_list read_units(std::string_view text);

/// The types, in order of first appearance.
std::vector<std::string> unit_types(const std::vector<measurement_unit>& units);
std::vector<measurement_unit> units_of_type(const std::vector<measurement_unit>& units, std::string_view type);

/// The units for which each word occurs in type, name or note, ignoring case; all units if there are no words.
std::vector<measurement_unit> search_units(const std::vector<measurement_unit>& units, std::string_view words);

/// The two units of these names in the first type that has both, or in `type` if it is not empty. Returns nullopt if
/// there are none.
std::optional<std::pair<measurement_unit, measurement_unit>> find_unit_pair(const std::vector<measurement_unit>& units,
                                                                            std::string_view from, std::string_view to,
                                                                            std::string_view type = {});

/// A converted number, or the box that says why there is none.
struct unit_conversion
{
    std::optional<double> value;
    /// The value without digits that are rounding errors of the conversion: 100 deg C are 212 deg F.
    std::string text;
    std::optional<message_box> refusal;
};

/// (x / from.factor + from.offset) * to.factor - to.offset * to.factor. Refused if a factor is 0, the types differ, or
/// the result is not finite.
unit_conversion convert_units(double x, const measurement_unit& from, const measurement_unit& to);

/// The same for a typed number; the text is the line to show, "100 deg C = 212 deg F". Refused if `number` is not a
/// number as a whole.
unit_conversion convert_typed(std::string_view number, const measurement_unit& from, const measurement_unit& to);

} // namespace kelvarin

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

/// The file that holds the units, as find_data_file finds it.
inline constexpr std::string_view units_file_name = "cnvrtcfg.txt";

struct unit
{
    std::string unit_type;
    std::string unit_name;
    std::string unit_note;
    /// How many of this unit make one base unit of its type.
    double factor = 1.0;
    /// Where the unit's zero lies, in base units.
    double offset = 0.0;
};

struct unit_list
{
    /// In file order.
    std::vector<unit> units;
    std::vector<data_fault> faults;
};

/// Reads lines "type | name | factor | offset | note"; the note may be missing, what stands behind a fifth "|" is
/// passed over, and so are blank lines and those that begin with an apostrophe. A line with fewer fields, or
/// with a factor that is 0 or no number, is a fault and gives no unit.
unit_list read_units(std::string_view text);

/// The types, in order of first appearance.
std::vector<std::string> unit_types(const std::vector<unit>& units);
std::vector<unit> units_of_type(const std::vector<unit>& units, std::string_view type);

/// The units whose type, name or note hold each of the words, in any case; all of them where there is no word.
std::vector<unit> search_units(const std::vector<unit>& units, std::string_view words);

/// The two units of these names in the first type that has both, or in `type` where one is given.
std::optional<std::pair<unit, unit>> find_unit_pair(const std::vector<unit>& units, std::string_view from,
                                                    std::string_view to, std::string_view type = {});

/// A converted number, or why there is none.
struct conversion
{
    std::optional<double> value;
    /// The value without the digits that the conversion's own rounding has spoiled: 100 deg C are 212 deg F.
    std::string text;
    std::optional<message_box> refusal;
};

/// (x / from.factor + from.offset) * to.factor - to.offset * to.factor. Refused where a factor is 0, the types
/// differ, or the result is no finite number.
conversion convert_units(double x, const unit& from, const unit& to);

/// The same for a typed number, with the line to be shown, "100 deg C = 212 deg F", as its text. A text that is
/// no number as a whole is refused.
conversion convert_typed(std::string_view number, const unit& from, const unit& to);

} // namespace kelvarin

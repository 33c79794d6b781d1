// SPDX-License-Identifier: MIT
#include "opt/opt_analysis.h"

#include "expr/basParse.h"
#include "nle/equations/set_texts.h"
#include "platform/run_time_text.h"
#include "platform/text_file.h"
#include "shell/report/rich_text.h"

#include <algorithm>
#include <span>
#include <string_view>
#include <utility>

namespace kelvarin
{

namespace
{

bool holds(std::span<const std::string> names, std::string_view name)
{
    return std::ranges::find(names, name) != names.end();
}

/// `add_name_once`
void add_name_once(std::vector<std::string>& names, std::string_view name)
{
    if (!holds(names, name)) names.emplace_back(name);
}

/// An expression that was checked, and its place.
struct read_expression
{
    int row = 0;
    std::size_t offset = 0;
    check_result checked;

    message_box refusal(std::string_view head) const
    {
        message_box box = {std::string(head) + checked.message, box_icon::exclamation};
        if (checked.place) box.place = text_place{row, offset + checked.place->offset, checked.place->length};
        return box;
    }
};

/// Reads a problem and fills an analysis with what it finds.
class reader
{
public:
    explicit reader(opt_analysis& found) : found_(found) {}

    void read_rows(std::span<const equation_row> rows)
    {
        int number = 0;
        for (const equation_row& row : rows) {
            ++number;
            if (row.equation.empty()) continue;
            if (!read_row(number, row.equation)) return;
        }
    }

    void read_target(std::string_view target)
    {
        const std::string_view text = trimmed(target);
        const std::size_t offset = text.empty() ? 0 : static_cast<std::size_t>(text.data() - target.data());
        read_expression read = {0, offset, check_expression(text)};
        if (!read.checked.ok) {
            found_.failures.push_back(read.refusal("Target Function Error.\r"));
            return;
        }
        for (const std::string_view name : read.checked.names)
            add_name_once(found_.target_names, name);
        expressions_.push_back(std::move(read));
    }

    void find_undefined()
    {
        for (const read_expression& read : expressions_) {
            for (const std::string_view name : read.checked.names)
                if (!holds(found_.initialized, name) && !holds(found_.explicit_names, name))
                    add_name_once(found_.undefined, name);
            for (const token& word : read.checked.tokens)
                if (word.is_variable() && holds(found_.undefined, word.text))
                    found_.undefined_places.push_back({read.row, read.offset + word.offset, word.length});
        }
    }

private:
    /// Returns false if the row is refused.
    bool read_row(int number, std::string_view equation)
    {
        const equation_parts parts = parts_of(equation, opt_row_form);
        if (parts.implicit) {
            add_name_once(found_.initialized, parts.name);
            if (!is_numeric(parts.right_side)) found_.rows_without_start.push_back(number);
            return true;
        }
        read_expression read = {number, parts.right_side_offset, check_expression(parts.right_side)};
        if (!read.checked.ok) {
            found_.failures.push_back(read.refusal("Error in Equation " + std::to_string(number) + ": "));
            return false;
        }
        expressions_.push_back(std::move(read));
        add_name_once(found_.explicit_names, parts.name);
        return true;
    }

    opt_analysis& found_;
    std::vector<read_expression> expressions_;
};

/// A panel "head: count".
std::string counted(std::string_view head, std::size_t count)
{
    return std::string(head) + ": " + std::to_string(count);
}

std::array<std::string, 3> panels_of(const opt_analysis& analysis, bool has_rows)
{
    return {has_rows ? counted("Initialized Target Variables", analysis.initialized.size()) : "No Variables entered.",
            counted("Auxiliary Equations", analysis.explicit_names.size()),
            std::string(trimmed(undefined_panel(analysis.undefined)))};
}

void add_block(std::string& listing, std::string_view head, std::span<const std::string> names)
{
    listing.append(R"({\b\cf1 )").append(head).append(R"(}\par )");
    if (!names.empty()) listing.append(escape_rich_text(joined_names(names))).append(R"(\par )");
    listing += R"(\par )";
}

/// The warnings in their order, without the leading "Warning: ".
std::vector<std::string> warnings_of(const opt_analysis& analysis)
{
    std::vector<std::string> warnings;
    if (!analysis.undefined.empty()) warnings.emplace_back("Undefined variables exist.");
    if (!analysis.duplicates.empty()) warnings.emplace_back(trimmed(duplicates_panel(analysis.duplicates)));
    return warnings;
}

} // namespace

opt_analysis analyse_opt(const opt_content& content)
{
    opt_analysis analysis;
    reader read(analysis);
    read.read_rows(content.rows);
    read.read_target(content.target);
    read.find_undefined();
    equation_set set = analyse_rows(content.rows, opt_row_form);
    analysis.duplicates = std::move(set.duplicates);
    analysis.duplicate_places = std::move(set.duplicate_places);
    analysis.panels = panels_of(analysis, set.equation_count() > 0);
    analysis.green = analysis.failures.empty() && !analysis.initialized.empty() && analysis.undefined.empty();
    return analysis;
}

std::string show_all_vars(const opt_content& content)
{
    const opt_analysis analysis = analyse_opt(content);
    std::string listing;
    add_block(listing, "Initialized variables:", analysis.initialized);
    add_block(listing, "Explicit variables:", analysis.explicit_names);
    add_block(listing, "Target Function variables:", analysis.target_names);
    add_block(listing, "Not Initialized variables:", analysis.undefined);
    add_warnings(listing, warnings_of(analysis));
    if (analysis.undefined.empty()) listing += R"(All the variables have been properly initialized.\par )";
    return listing;
}

std::vector<std::string> listing_warnings(const opt_analysis& analysis)
{
    return plain_warnings(warnings_of(analysis));
}

std::vector<message_box> red_light_boxes(const opt_analysis& analysis)
{
    if (!analysis.failures.empty()) return analysis.failures;
    message_box box = {analysis.panels[2].empty() ? analysis.panels[0] : analysis.panels[2], box_icon::exclamation};
    if (!analysis.undefined_places.empty()) box.place = analysis.undefined_places.front();
    return {std::move(box)};
}

} // namespace kelvarin

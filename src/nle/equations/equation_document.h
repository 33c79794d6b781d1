// SPDX-License-Identifier: MIT
#pragma once

#include "nle/equations/equation_table.h"
#include "nle/equations/row_edits.h"
#include "nle/equations/row_lines.h"
#include "platform/text_file.h"
#include "shell/document/value_document.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace kelvarin
{

/// A document whose content holds equation rows (`Content::rows`): the edits of rows as named steps of undo, the same
/// for every kind of problem. A kind derives from it and adds its own fields, the checks of its entry dialogs and the
/// form of its rows.
template <class Content> class equation_document : public value_document<Content>, public equation_table
{
public:
    using refusal = problem_document::refusal;
    using value_document<Content>::content;

    using value_document<Content>::value_document;

    int equation_count() const { return static_cast<int>(content().rows.size()); }
    std::span<const equation_row> rows() const final { return content().rows; }
    refusal may_add() const final { return check_room(content().rows.size()); }

    refusal remove(std::span<const int> numbers) final
    {
        return take_rows(numbers.size() > 1 ? "Remove equations" : "Remove equation",
                         remove_rows(content().rows, numbers));
    }
    bool move(std::span<const int> numbers, bool up) final
    {
        std::optional<std::vector<equation_row>> moved = move_rows(content().rows, numbers, up);
        if (!moved) return false;
        take_rows(numbers.size() > 1 ? "Move equations" : "Move equation", std::move(*moved));
        return true;
    }
    void set_comment(int row, std::string_view comment) final
    {
        std::vector<equation_row> rows = content().rows;
        rows.at(static_cast<std::size_t>(row - 1)).comment = one_line(comment);
        take_rows("Edit comment", std::move(rows));
    }

    refusal check_text(std::string_view text, int row, std::optional<std::string_view> value = std::nullopt) const final
    {
        const std::optional<typed_row> typed = typed_for(text, row, value);
        if (!typed) return no_equation_box();
        return check_typed(content(), *typed, row);
    }
    refusal put_text(std::string_view text, int row, std::optional<std::string_view> value = std::nullopt) final
    {
        if (refusal refused = check_text(text, row, value)) return refused;
        const typed_row typed = *typed_for(text, row, value);
        Content next = prepared(content(), typed);
        edited_rows edited = put_row(next.rows, make_row(next, typed), row);
        return take_rows(put_step(row), std::move(edited), std::move(next));
    }
    refusal set_value(int row, std::string_view value) final
    {
        std::vector<equation_row> rows = content().rows;
        equation_row& changed = rows.at(static_cast<std::size_t>(row - 1));
        std::optional<typed_row> typed = read_row(changed.equation);
        if (!typed || !typed->implicit || !has_values()) return std::nullopt;
        typed->value = value;
        if (refusal refused = check_value(*typed->value)) return refused;
        changed.guess = make_row(content(), *typed).guess;
        return take_rows("Edit equation", std::move(rows));
    }
    pasted_rows paste(std::string_view text, int behind) final
    {
        Content next = content();
        pasted_rows outcome = paste_into(next, text, behind);
        this->change(outcome.rows.size() == 1 ? "Paste equation" : "Paste equations", after_row_edit(std::move(next)));
        return outcome;
    }
    std::vector<left_out_line> check_paste(std::string_view text) const final
    {
        Content next = content();
        return paste_into(next, text, equation_count()).left_out;
    }

protected:
    /// The form of the rows of this kind.
    virtual const row_form& form() const = 0;
    /// The refusal of a text that is no equation; it tells how one is typed.
    virtual message_box no_equation_box() const = 0;
    /// Reads one equation; a kind may understand more than row_of_text.
    virtual std::optional<typed_row> read_row(std::string_view text) const { return row_of_text(text, form()); }
    /// What the entry dialogs would refuse of an equation that becomes row `row` (0: a new one) of `in`, with
    /// places in the expression and the field that each box is about. `typed` has a value if it is implicit.
    virtual refusal check_row(const Content& in, const typed_row& typed, int row) const = 0;
    /// What they would refuse of an initial guess or value.
    virtual refusal check_value(std::string_view value) const = 0;
    /// The row that they would write into `in`. A missing value stays empty.
    virtual equation_row make_row(const Content& in, const typed_row& typed) const = 0;
    /// The content in which a row is made: a kind may take over what the row tells about the whole problem.
    virtual Content prepared(Content next, const typed_row&) const { return next; }
    /// Takes over a pasted line that is no equation. Returns false if it means nothing to this kind.
    virtual bool take_line(Content&, std::string_view) const { return false; }

    /// Appends (row 0) or replaces a row that has passed the checks.
    refusal put(equation_row next, int row)
    {
        return take_rows(put_step(row), put_row(content().rows, std::move(next), row));
    }
    /// Replaces the rows as a step of undo, or returns the box if the edit was refused.
    refusal take_rows(std::string_view step, edited_rows edited)
    {
        return take_rows(step, std::move(edited), content());
    }
    /// The same in `next`, a content that has changed otherwise as well.
    refusal take_rows(std::string_view step, edited_rows edited, Content next)
    {
        if (message_box* refused = std::get_if<message_box>(&edited)) return std::move(*refused);
        next.rows = std::get<std::vector<equation_row>>(std::move(edited));
        this->change(step, after_row_edit(std::move(next)));
        return std::nullopt;
    }

private:
    /// Whether values stand beside the rows; else they are parts of their texts.
    bool has_values() const { return !form().letters.empty(); }
    static std::string_view put_step(int row) { return row > 0 ? "Edit equation" : "Add equation"; }
    /// What else an edit of rows changes in the content of this kind.
    virtual Content after_row_edit(Content edited) const { return edited; }

    /// A typed equation with what the row that it replaces already has.
    std::optional<typed_row> typed_for(std::string_view text, int row, std::optional<std::string_view> value) const
    {
        std::optional<typed_row> typed = read_row(text);
        if (!typed) return typed;
        if (value) typed->value = *value;
        if (row == 0) return typed;
        const equation_row& replaced = content().rows.at(static_cast<std::size_t>(row - 1));
        if (typed->comment.empty()) typed->comment = replaced.comment;
        if (typed->implicit && !typed->value && is_implicit(replaced.equation, form())) typed->value = replaced.guess;
        return typed;
    }
    /// The checks of an equation typed as a whole, with places in its text. The value is looked at last: it may be
    /// asked for when all else is right.
    refusal check_typed(const Content& in, typed_row typed, int row) const
    {
        const std::string value = typed.value.value_or("");
        typed.value = "0";
        refusal refused = in_text_of(typed, check_row(in, typed, row));
        // A row that was read from a file may have any value; it is no fault of the equation typed anew.
        const bool keeps_value = row > 0 && value == content().rows.at(static_cast<std::size_t>(row - 1)).guess;
        if (refused || !typed.implicit || keeps_value || !has_values()) return refused;
        return check_value(value);
    }
    pasted_rows paste_into(Content& next, std::string_view text, int behind) const
    {
        pasted_text read = read_pasted_text(text, [this](std::string_view line) { return read_row(line); });
        pasted_rows outcome;
        std::size_t at = std::min(static_cast<std::size_t>(std::max(behind, 0)), next.rows.size());
        for (pasted_text::equation& equation : read.equations) {
            if (!equation.row.value) equation.row.value = value_of(equation.row, read);
            if (refusal refused = check_pasted(next, equation.row)) {
                outcome.left_out.push_back({equation.line, equation.text, std::move(refused->text), refused->place});
                continue;
            }
            next = prepared(std::move(next), equation.row);
            if (has_values() && equation.row.implicit && !equation.row.value)
                outcome.without_value.push_back(equation.row.name);
            next.rows.insert(next.rows.begin() + static_cast<std::ptrdiff_t>(at), make_row(next, equation.row));
            outcome.rows.push_back(static_cast<int>(++at));
        }
        paste_others(next, read, outcome);
        outcome.changed = !(next == content());
        return outcome;
    }
    /// A refusal with its place in the text of the equation.
    static refusal in_text_of(const typed_row& typed, refusal refused)
    {
        if (refused && refused->place) refused->place->offset += typed.expression_offset;
        if (refused && !refused->place && refused->field == entry_field::name)
            refused->place = text_place{0, typed.name_offset, typed.name.size()};
        return refused;
    }
    refusal check_pasted(const Content& next, typed_row typed) const
    {
        if (refusal full = check_room(next.rows.size())) return full;
        if (typed.value && has_values())
            if (refusal refused = check_value(*typed.value)) return refused;
        typed.value = "0";
        return in_text_of(typed, check_row(next, typed, 0));
    }
    /// The value that another line of a text gives for a row; removes that line.
    static std::optional<std::string> value_of(const typed_row& row, pasted_text& read)
    {
        const auto found = std::ranges::find_if(
            read.values, [&](const pasted_text::value& line) { return line.given.name == row.name; });
        if (!row.implicit || found == read.values.end()) return std::nullopt;
        std::optional<std::string> value = std::move(found->given.value);
        read.values.erase(found);
        return value;
    }
    /// Takes over the lines that are no equations: values of rows that are there, and what the kind understands.
    void paste_others(Content& next, const pasted_text& read, pasted_rows& outcome) const
    {
        for (const pasted_text::value& line : read.values) {
            if (line.is_result || take_line(next, line.text) || replace_value(next, line.given)) continue;
            outcome.left_out.push_back({line.line, line.text, {}});
        }
        for (const left_out_line& line : read.others) {
            if (line.text.find(version_marker) != std::string::npos) {
                // The first line of a problem file.
                if (next.title.empty()) next.title = read_title_line(line.text, marker_search::last).title;
            } else if (!take_line(next, line.text)) {
                outcome.left_out.push_back(line);
            }
        }
        std::ranges::sort(outcome.left_out, {}, &left_out_line::number);
    }
    bool replace_value(Content& next, const typed_value& given) const
    {
        for (equation_row& row : next.rows) {
            const std::optional<typed_row> present = read_row(row.equation);
            if (!has_values() || !present || !present->implicit || present->name != given.name ||
                check_value(given.value))
                continue;
            typed_row changed = *present;
            changed.value = given.value;
            row.guess = make_row(next, changed).guess;
            return true;
        }
        return false;
    }
};

} // namespace kelvarin

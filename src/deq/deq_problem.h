// SPDX-License-Identifier: MIT
#pragma once

#include "deq/deq_analysis.h"
#include "deq/deq_content.h"
#include "nle/equations/equation_table.h"
#include "nle/equations/row_edits.h"
#include "platform/message_box.h"
#include "shell/document/value_document.h"

#include <filesystem>
#include <span>
#include <string>
#include <string_view>

namespace kelvarin
{

/// A differential problem as a document. Every operation that is refused returns the box to show and changes nothing.
/// Undo names its steps "Add equation", "Edit equation", "Remove equation", "Move equation", "Edit comment", "Change
/// title", "Change independent variable", "Change range", "Choose method", "Rename variable", "Load example".
class deq_problem final : public value_document<deq_content>, public equation_table
{
public:
    deq_problem();

    /// No row, no title, no range, no file; the method alone is nothing to lose.
    bool is_blank() const override;
    int equation_count() const { return static_cast<int>(content().rows.size()); }
    deq_analysis analyse() const { return analyse_deq(content()); }

    std::span<const equation_row> rows() const override { return content().rows; }
    refusal may_add() const override;
    /// The checks of the entry dialogs for a new row (row 0) or the replacement of row `row` (from 1); the texts are
    /// those of the fields. A box that is about the expression has a place in that field's text.
    refusal check_differential(std::string_view name, std::string_view expression, std::string_view value,
                               int row) const;
    refusal check_explicit(std::string_view name, std::string_view expression, int row) const;

    /// Adds (row 0) or replaces a row after the checks.
    refusal put_differential(std::string_view name, std::string_view expression, std::string_view value,
                             std::string_view comment, int row = 0);
    refusal put_explicit(std::string_view name, std::string_view expression, std::string_view comment, int row = 0);

    refusal remove(int row) override;
    bool move(int row, bool up) override;
    void set_comment(int row, std::string_view comment) override;
    /// The text of the independent variable's field; its name goes into every differential row, while right sides keep
    /// what they use. Refused where a row defines that name. One step of undo for any number of changes in a row, as
    /// they come with every key typed.
    refusal set_independent(std::string_view name);
    /// The texts of the fields of initial and final value; one step of undo as well.
    void set_range(std::string_view initial, std::string_view final);
    void choose_method(deq_method method);
    /// Renames a variable, the independent one as well, where it is defined and wherever right sides use it. Refused as
    /// in the entry dialogs where the new name is no valid one, is defined already, or would define itself.
    refusal rename_variable(std::string_view old_name, std::string_view new_name) override;
    /// Puts rows, range and title of an example in place of the problem's, in one step, and leaves the file.
    void load_example(deq_content example);

    refusal open_deq(const std::filesystem::path& path) { return open(path); }

private:
    refusal put(equation_row next, int row);
    /// Takes the rows over as a step of undo, or hands on the box that refuses them.
    refusal take_rows(std::string_view step, edited_rows edited);
};

} // namespace kelvarin

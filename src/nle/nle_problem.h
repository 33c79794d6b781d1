// SPDX-License-Identifier: MIT
#pragma once

#include "nle/equations/equation_table.h"
#include "nle/equations/row_edits.h"
#include "nle/nle_analysis.h"
#include "nle/nle_content.h"
#include "platform/message_box.h"
#include "shell/document/value_document.h"

#include <filesystem>
#include <span>
#include <string>
#include <string_view>

namespace kelvarin
{

/// A nonlinear problem as a document. Every operation that is refused returns the box to show and changes nothing. Undo
/// names its steps "Add equation", "Edit equation", "Remove equation", "Move equation", "Edit comment", "Change title",
/// "Change bounds", "Choose method", "Rename variable", "Load example".
class nle_problem final : public value_document<nle_content>, public equation_table
{
public:
    nle_problem();

    /// No row, no title, no file; the method alone is nothing to lose.
    bool is_blank() const override;
    int equation_count() const { return static_cast<int>(content().rows.size()); }
    nle_analysis analyse() const { return analyse_nle(content()); }

    std::span<const equation_row> rows() const override { return content().rows; }
    refusal may_add() const override;
    /// The checks of the entry dialogs for a new row (row 0) or the replacement of row `row` (from 1); the
    /// texts are those of the fields. A box that is about the expression has a place in that field's text.
    refusal check_implicit(std::string_view name, std::string_view expression, std::string_view guess, int row) const;
    refusal check_explicit(std::string_view name, std::string_view expression, int row) const;

    /// Adds (row 0) or replaces a row after the checks. `constraint` is 0, 1 (" p") or 2 (" ap").
    refusal put_implicit(std::string_view name, std::string_view expression, std::string_view guess, int constraint,
                         std::string_view comment, int row = 0);
    refusal put_explicit(std::string_view name, std::string_view expression, std::string_view comment, int row = 0);

    refusal remove(int row) override;
    bool move(int row, bool up) override;
    void set_comment(int row, std::string_view comment) override;
    /// One step of undo for any number of changes in a row, as they come with every key typed.
    void set_bounds(std::string_view lower, std::string_view upper);
    /// A choice by the user, with what with_method does to the guesses.
    void choose_method(nle_method method);
    /// Refused as in the entry dialogs where the new name is no valid one, is defined already, or would define itself.
    refusal rename_variable(std::string_view old_name, std::string_view new_name) override;
    /// Puts an example in place of the problem, in one step, and leaves the file.
    void load_example(nle_content example);

    refusal nles_open(const std::filesystem::path& path) { return open(path); }

private:
    refusal put(equation_row next, int row);
    /// Takes the rows over as a step of undo, after which bounds stand only where a single implicit row needs them; or
    /// hands on the box that refuses them.
    refusal take_rows(std::string_view step, edited_rows edited);
};

} // namespace kelvarin

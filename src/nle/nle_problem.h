// SPDX-License-Identifier: MIT
#pragma once

#include "nle/equations/equation_document.h"
#include "nle/nle_analysis.h"
#include "nle/nle_content.h"
#include "platform/message_box.h"
#include "shell/document/solved_value.h"

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace kelvarin
{

/// A nonlinear problem as a document. Every operation that is refused returns the box to show and changes nothing. Undo
/// names its steps "Add equation", "Edit equation", "Remove equation", "Move equation", "Edit comment", "Change title",
/// "Change bounds", "Choose method", "Use solution as guesses", "Rename variable", "Load example".
class nle_problem final : public equation_document<nle_content>
{
public:
    nle_problem();

    /// Whether there is no row, no title and no file; the method alone is not worth saving.
    bool is_blank() const override;
    nle_analysis analyse() const { return analyse_nle(content()); }

    /// The checks of the entry dialogs for a new row (row 0) or the replacement of row `row` (from 1); the texts are
    /// those of the fields. A box about the expression has a place in that field's text.
    refusal check_implicit(std::string_view name, std::string_view expression, std::string_view guess, int row) const;
    refusal check_explicit(std::string_view name, std::string_view expression, int row) const;

    /// Adds (row 0) or replaces a row after the checks. `constraint` is 0, 1 (" p") or 2 (" ap").
    refusal put_implicit(std::string_view name, std::string_view expression, std::string_view guess, int constraint,
                         std::string_view comment, int row = 0);
    refusal put_explicit(std::string_view name, std::string_view expression, std::string_view comment, int row = 0);

    /// Successive changes, as they come with every key typed, make one step of undo.
    void set_bounds(std::string_view lower, std::string_view upper);
    /// Chooses a method on the user's behalf, changing the guesses as with_method does.
    void choose_method(nle_method method);
    /// Makes the values of a solution the guesses of the unknowns of these names; their suffixes stay. Returns false if
    /// that changes nothing.
    bool use_as_guesses(std::span<const solved_value> solution) override;
    /// Refused as in the entry dialogs if the new name is invalid, is defined already, or would be used by its own
    /// definition.
    refusal rename_variable(std::string_view old_name, std::string_view new_name) override;
    /// Replaces the problem by an example as one step of undo; the document has no file afterwards.
    void load_example(nle_content example);

    refusal nles_open(const std::filesystem::path& path) { return open(path); }

protected:
    const row_form& form() const override { return nle_row_form; }
    message_box no_equation_box() const override { return not_an_equation_box("f(x) = ..., or a = ..."); }
    std::optional<typed_row> read_row(std::string_view text) const override;
    refusal check_row(const nle_content& in, const typed_row& typed, int row) const override;
    /// A guess may have a suffix, " p" or " ap".
    refusal check_value(std::string_view value) const override;
    equation_row make_row(const nle_content& in, const typed_row& typed) const override;
    /// Bounds of a single equation, where none are set.
    bool take_line(nle_content& next, std::string_view line) const override;

private:
    /// Bounds stay only where a single implicit row needs them.
    nle_content after_row_edit(nle_content edited) const override;
};

} // namespace kelvarin

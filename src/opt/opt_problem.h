// SPDX-License-Identifier: MIT
#pragma once

#include "nle/equations/equation_document.h"
#include "opt/opt_analysis.h"
#include "opt/opt_content.h"
#include "platform/message_box.h"

#include <filesystem>
#include <span>
#include <string_view>

namespace kelvarin
{

/// An optimization problem as a document. Every operation that is refused returns the box to show and changes nothing.
/// Undo names its steps "Add equation", "Edit equation", "Remove equation", "Move equation", "Edit comment", "Change
/// title", "Change target", "Choose method", "Rename variable", "Use solution as guesses", "Load example".
class opt_problem final : public equation_document<opt_content>
{
public:
    opt_problem();

    /// Whether there is no row, title, target or file; the method alone is not worth saving.
    bool is_blank() const override;
    opt_analysis analyse() const { return analyse_opt(content()); }

    /// The check of a text that is to become a new row (row 0) or to replace row `row` (from 1). A box has a place in
    /// that text, if the fault has one.
    refusal check_opt_row(std::string_view text, int row) const;
    /// Adds (row 0) or replaces a row after the check.
    refusal put_row_text(std::string_view text, std::string_view comment, int row = 0);

    /// Sets the target, whatever it is; successive changes, as they come with every key typed, make one step of undo.
    void set_target(std::string_view target);
    void choose_method(opt_method method);
    bool use_as_guesses(std::span<const solved_value> solution) override;
    /// Renames a variable in the row that defines it, in all right sides and in the target. Refused if the new name is
    /// invalid, is defined already, or would be used by its own definition.
    refusal rename_variable(std::string_view old_name, std::string_view new_name) override;
    /// Replaces the problem by an example as one step of undo, except for the method; the document has no file
    /// afterwards.
    void load_example(opt_content example);

    refusal opt_open(const std::filesystem::path& path) { return open(path); }

protected:
    message_box open_refusal(const text_file& file) const override;
    const row_form& form() const override { return opt_row_form; }
    message_box no_equation_box() const override;
    refusal check_row(const opt_content& in, const typed_row& typed, int row) const override;
    /// Start values are parts of the rows' texts.
    refusal check_value(std::string_view) const override { return std::nullopt; }
    equation_row make_row(const opt_content& in, const typed_row& typed) const override;
};

} // namespace kelvarin

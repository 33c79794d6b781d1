// SPDX-License-Identifier: MIT
#pragma once

#include "deq/deq_analysis.h"
#include "deq/deq_content.h"
#include "nle/equations/equation_document.h"
#include "platform/message_box.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace kelvarin
{

/// A differential problem as a document. Every operation that is refused returns the box to show and changes nothing.
/// Undo names its steps "Add equation", "Edit equation", "Remove equation", "Move equation", "Edit comment", "Change
/// title", "Change independent variable", "Change range", "Choose method", "Rename variable", "Load example".
class deq_problem final : public equation_document<deq_content>
{
public:
    deq_problem();

    /// Whether there is no row, title, range or file; the method alone is not worth saving.
    bool is_blank() const override;
    deq_analysis analyse() const { return analyse_deq(content()); }

    /// The checks of the entry dialogs for a new row (row 0) or the replacement of row `row` (from 1); the texts are
    /// those of the fields. A box about the expression has a place in that field's text.
    refusal check_differential(std::string_view name, std::string_view expression, std::string_view value,
                               int row) const;
    refusal check_explicit(std::string_view name, std::string_view expression, int row) const;

    /// Adds (row 0) or replaces a row after the checks.
    refusal put_differential(std::string_view name, std::string_view expression, std::string_view value,
                             std::string_view comment, int row = 0);
    refusal put_explicit(std::string_view name, std::string_view expression, std::string_view comment, int row = 0);

    /// Sets the field of the independent variable and writes its name into every differential row; right sides are not
    /// changed. Refused if a row defines that name. Successive changes, as they come with every key typed, make one
    /// step of undo.
    refusal set_independent(std::string_view name);
    /// Sets the fields of initial and final value; successive changes make one step of undo.
    void set_range(std::string_view initial, std::string_view final);
    void choose_method(deq_method method);
    /// Renames a variable, also the independent one, in its definition and in all right sides. Refused as in the entry
    /// dialogs if the new name is invalid, is defined already, or would be used by its own definition.
    refusal rename_variable(std::string_view old_name, std::string_view new_name) override;
    /// Replaces the problem by an example as one step of undo, except for the method; the document has no file
    /// afterwards.
    void load_example(deq_content example);

    refusal open_deq(const std::filesystem::path& path) { return open(path); }

protected:
    const row_form& form() const override { return deq_row_form; }
    message_box no_equation_box() const override { return not_an_equation_box("d(y)/d(t) = ..., or a = ..."); }
    /// Also "dy/dt = ..." and "y' = ...".
    std::optional<typed_row> read_row(std::string_view text) const override;
    /// The variable of a derivative must be the independent one.
    refusal check_row(const deq_content& in, const typed_row& typed, int row) const override;
    refusal check_value(std::string_view value) const override;
    equation_row make_row(const deq_content& in, const typed_row& typed) const override;
    /// The first derivative names the independent variable if it has no name yet.
    deq_content prepared(deq_content next, const typed_row& typed) const override;
    /// The range, "t(0)=0" and "t(f)=5", where none is set.
    bool take_line(deq_content& next, std::string_view line) const override;
};

} // namespace kelvarin

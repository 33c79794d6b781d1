// SPDX-License-Identifier: MIT
#pragma once

#include "nle/equations/equation_rows.h"
#include "platform/message_box.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// Edits of equation rows, as functions from rows to rows. The documents of all kinds turn them into steps of undo.
namespace kelvarin
{

/// The box that says why an entry or an edit is refused; nullopt if it is accepted.
using row_refusal = std::optional<message_box>;

/// The rows after an edit, or the box that refuses it.
using edited_rows = std::variant<std::vector<equation_row>, message_box>;

/// Refuses another equation if `count` is at the limit already.
row_refusal check_room(std::size_t count);

// The checks of the entry dialogs. They take the texts of the fields as typed. The boxes name the field they are about;
// one about the expression has a place in that field's text, with row 0.

/// Refuses a text that is not a valid expression. Its names need not be defined.
row_refusal check_expression_field(std::string_view expression);
/// Refuses a text that is not a number, with `message`.
row_refusal check_number_field(std::string_view number, std::string_view message);
/// Refuses an invalid name.
row_refusal check_valid_name_field(std::string_view name);
/// Refuses a name that a row other than `own_row` (from 1; 0 for a new row) defines.
row_refusal check_new_name_field(std::string_view name, std::span<const equation_row> rows, const row_form& form,
                                 int own_row);
/// Both checks.
row_refusal check_name_field(std::string_view name, std::span<const equation_row> rows, const row_form& form,
                             int own_row);
/// The refusal of a name that stands for something else.
message_box already_defined_box(std::string_view name);
/// Refuses an explicit equation that uses its own variable.
row_refusal check_circular_definition(std::string_view name, std::string_view expression);

/// The refusal of a typed text that is no equation; `form_in_words` tells what one looks like: "f(x) = ... or a = ...".
message_box not_an_equation_box(std::string_view form_in_words);

/// The first row (from 1) other than `own_row` whose left side is `name`; 0 if there is none.
int row_defining(std::string_view name, std::span<const equation_row> rows, const row_form& form, int own_row);

/// "name = expression" with its comment; the texts are trimmed and joined to one line.
equation_row make_explicit_row(std::string_view name, std::string_view expression, std::string_view comment);

/// Replaces row `row` (from 1) by `next`, or appends `next` if `row` is 0. Refused if the limit of equations is
/// reached.
edited_rows put_row(std::vector<equation_row> rows, equation_row next, int row);

/// Removes rows by their numbers (from 1, in any order); numbers without a row are ignored. Refused if no equation
/// would remain.
edited_rows remove_rows(std::vector<equation_row> rows, std::span<const int> numbers);

/// Moves each of the rows (from 1, in any order) past its neighbour above (`up`) or below; adjacent rows stay together.
/// Returns nullopt if one of them is at that end of the table already, or if there is no row to move.
std::optional<std::vector<equation_row>> move_rows(std::vector<equation_row> rows, std::span<const int> numbers,
                                                   bool up);

/// The expression with a variable renamed wherever it is used.
std::string rename_in_expression(std::string_view expression, std::string_view old_name, std::string_view new_name);

/// Renames a variable where it is defined and in all right sides that use it. Refused as in the entry dialogs if the
/// new name is invalid, is defined already, or would be used by its own explicit equation. Returns the rows unchanged
/// if both names are equal or the old one is invalid.
edited_rows rename_in_rows(std::vector<equation_row> rows, const row_form& form, std::string_view old_name,
                           std::string_view new_name);

} // namespace kelvarin

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

/// Edits of equation rows, as functions from rows to rows. The documents of the kinds make steps of undo of them.
namespace kelvarin
{

/// The box that says why an entry or an edit is refused; nullopt if it isn't.
using row_refusal = std::optional<message_box>;

/// The rows after an edit, or the box that refuses it.
using edited_rows = std::variant<std::vector<equation_row>, message_box>;

/// Refuses one more equation in a problem that holds `count` of them already.
row_refusal check_room(std::size_t count);

// The checks of the entry dialogs. They take the texts of the fields as typed. A box that is about the expression has a
// place in that field's text, with row 0.

/// Refuses a text that is no expression. Names need not be defined.
row_refusal check_expression_field(std::string_view expression);
/// Refuses a text that is no number, with `message`.
row_refusal check_number_field(std::string_view number, std::string_view message);
/// Refuses what is no valid name, and a name that another row than `own_row` (from 1; 0 for a new row) defines.
row_refusal check_name_field(std::string_view name, std::span<const equation_row> rows, const row_form& form,
                             int own_row);
/// Refuses an explicit equation that uses its own variable.
row_refusal check_circular_definition(std::string_view name, std::string_view expression);

/// The first row (from 1) other than `own_row` whose left side is `name`; 0 if there is none.
int row_defining(std::string_view name, std::span<const equation_row> rows, const row_form& form, int own_row);

/// "name = expression" with its comment, all trimmed or put on one line.
equation_row make_explicit_row(std::string_view name, std::string_view expression, std::string_view comment);

/// Replaces row `row` (from 1) by `next`, or appends `next` where `row` is 0, within the limit of equations.
edited_rows put_row(std::vector<equation_row> rows, equation_row next, int row);

/// Takes rows away, by their numbers (from 1, in any order); numbers of no row are passed over. At least one equation
/// has to stay.
edited_rows remove_rows(std::vector<equation_row> rows, std::span<const int> numbers);

/// Moves each of the rows (from 1, in any order) past its neighbour above (`up`) or below; rows that stand together
/// stay together. Returns nullopt if one of them is at the end of the table already, or if there is none to move.
std::optional<std::vector<equation_row>> move_rows(std::vector<equation_row> rows, std::span<const int> numbers,
                                                   bool up);

/// The expression with a variable renamed wherever it is used.
std::string rename_in_expression(std::string_view expression, std::string_view old_name, std::string_view new_name);

/// Renames a variable where it is defined and wherever right sides use it. Refused as in the entry dialogs if the new
/// name is no valid one, is defined already, or would be used by its own explicit equation. The rows come back as they
/// are where both names are equal or the old one is no valid name.
edited_rows rename_in_rows(std::vector<equation_row> rows, const row_form& form, std::string_view old_name,
                           std::string_view new_name);

} // namespace kelvarin

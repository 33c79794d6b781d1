// SPDX-License-Identifier: MIT
#pragma once

#include "nle/equations/equation_rows.h"
#include "nle/equations/typed_rows.h"
#include "platform/message_box.h"
#include "shell/document/solved_value.h"

#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace kelvarin
{

/// The equations of a problem of any kind and the operations on them. Rows count from 1. An operation is one step of
/// undo; one that is refused returns the box to show and changes nothing.
class equation_table
{
public:
    virtual ~equation_table() = default;

    virtual std::span<const equation_row> rows() const = 0;
    /// Returns the box that refuses another equation, or nullopt if one may be added.
    virtual std::optional<message_box> may_add() const = 0;
    /// Removes rows by their numbers, in any order. Refused if no equation would remain.
    virtual std::optional<message_box> remove(std::span<const int> numbers) = 0;
    /// Moves each of the rows past the one above (up) or below it. Returns false if one of them is at that end already.
    virtual bool move(std::span<const int> numbers, bool up) = 0;
    virtual void set_comment(int row, std::string_view comment) = 0;
    /// Renames a variable where it is defined and in all right sides that use it.
    virtual std::optional<message_box> rename_variable(std::string_view old_name, std::string_view new_name) = 0;

    /// What put_text would refuse. A place in the box is one in `text`; a box about the value alone, of a row that is
    /// right otherwise, has the field `value`.
    virtual std::optional<message_box> check_text(std::string_view text, int row,
                                                  std::optional<std::string_view> value = std::nullopt) const = 0;
    /// Adds (row 0) or replaces a row by an equation typed as a whole: "f(x) = x^2 - 2", "a = 3". It is checked as in
    /// the entry dialogs. Without `value` a row that stays implicit keeps the one it has; comments are kept unless the
    /// text has one.
    virtual std::optional<message_box> put_text(std::string_view text, int row,
                                                std::optional<std::string_view> value = std::nullopt) = 0;
    /// Replaces the initial guess or value of an implicit row, checked as in its entry dialog.
    virtual std::optional<message_box> set_value(int row, std::string_view value) = 0;
    /// Adds the equations of a text behind row `behind` (0: in front of all). Equations that an entry dialog would
    /// refuse are left out, but an unknown may lack its value.
    virtual pasted_rows paste(std::string_view text, int behind) = 0;
    /// The lines that paste would leave out.
    virtual std::vector<left_out_line> check_paste(std::string_view text) const = 0;
    /// Gives the unknowns of a solution their values as guesses of the next run. Returns false if nothing changes, as
    /// in kinds whose values are part of what the problem says.
    virtual bool use_as_guesses(std::span<const solved_value>) { return false; }
};

} // namespace kelvarin

// SPDX-License-Identifier: MIT
#pragma once

#include "nle/equations/equation_rows.h"
#include "platform/message_box.h"

#include <optional>
#include <span>
#include <string_view>

namespace kelvarin
{

/// The equations of a problem of any kind and the operations on them. Rows count from 1. An operation that is refused
/// returns the box to show and changes nothing.
class equation_table
{
public:
    virtual ~equation_table() = default;

    virtual std::span<const equation_row> rows() const = 0;
    /// Returns the box that refuses another equation, or nullopt if one may be added.
    virtual std::optional<message_box> may_add() const = 0;
    /// Removing the last equation is refused.
    virtual std::optional<message_box> remove(int row) = 0;
    /// Exchanges a row with the one above (up) or below. Returns false if there is none.
    virtual bool move(int row, bool up) = 0;
    virtual void set_comment(int row, std::string_view comment) = 0;
    /// Renames a variable where it is defined and in all right sides that use it, as one step of undo.
    virtual std::optional<message_box> rename_variable(std::string_view old_name, std::string_view new_name) = 0;
};

} // namespace kelvarin

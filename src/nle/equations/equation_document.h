// SPDX-License-Identifier: MIT
#pragma once

#include "nle/equations/equation_table.h"
#include "nle/equations/row_edits.h"
#include "platform/text_file.h"
#include "shell/document/value_document.h"

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace kelvarin
{

/// A document whose content holds equation rows (`Content::rows`): the edits of rows as named steps of undo, the same
/// for every kind of problem. A kind derives from it and adds its own fields and the checks of its entry dialogs.
template <class Content> class equation_document : public value_document<Content>, public equation_table
{
public:
    using refusal = problem_document::refusal;
    using value_document<Content>::content;

    using value_document<Content>::value_document;

    int equation_count() const { return static_cast<int>(content().rows.size()); }
    std::span<const equation_row> rows() const final { return content().rows; }
    refusal may_add() const final { return check_room(content().rows.size()); }

    refusal remove(int row) final { return take_rows("Remove equation", remove_rows(content().rows, std::array{row})); }
    bool move(int row, bool up) final
    {
        std::optional<std::vector<equation_row>> moved = move_rows(content().rows, std::array{row}, up);
        if (!moved) return false;
        take_rows("Move equation", std::move(*moved));
        return true;
    }
    void set_comment(int row, std::string_view comment) final
    {
        std::vector<equation_row> rows = content().rows;
        rows.at(static_cast<std::size_t>(row - 1)).comment = one_line(comment);
        take_rows("Edit comment", std::move(rows));
    }

protected:
    /// Appends (row 0) or replaces a row that has passed the checks.
    refusal put(equation_row next, int row)
    {
        return take_rows(row > 0 ? "Edit equation" : "Add equation", put_row(content().rows, std::move(next), row));
    }
    /// Replaces the rows as a step of undo, or returns the box if the edit was refused.
    refusal take_rows(std::string_view step, edited_rows edited)
    {
        if (message_box* refused = std::get_if<message_box>(&edited)) return std::move(*refused);
        Content next = content();
        next.rows = std::get<std::vector<equation_row>>(std::move(edited));
        this->change(step, after_row_edit(std::move(next)));
        return std::nullopt;
    }

private:
    /// What else an edit of rows changes in the content of this kind.
    virtual Content after_row_edit(Content edited) const { return edited; }
};

} // namespace kelvarin

// SPDX-License-Identifier: MIT
#include "desktop/decimal_comma_question.h"

#include "desktop/qt_text.h"

#include <QCoreApplication>

#include <algorithm>

namespace kelvarin
{

namespace
{

/// The first cell in which two blocks differ, with both texts: "'1,5' becomes '1.5'".
QString first_change(const cell_block& before, const cell_block& after)
{
    for (std::size_t row = 0; row < before.size(); ++row) {
        const auto [old_cell, new_cell] = std::ranges::mismatch(before[row], after[row]);
        if (old_cell != before[row].end())
            return QCoreApplication::translate("decimal_comma", "'%1' becomes '%2'")
                .arg(to_qstring(*old_cell), to_qstring(*new_cell));
    }
    return {};
}

} // namespace

std::optional<cell_block> with_decimal_points(user_interface& user, QWidget* parent, cell_block block)
{
    std::optional<cell_block> converted = decimal_comma_block(block);
    if (!converted) return block;
    const QString asked =
        QCoreApplication::translate("decimal_comma",
                                    "The pasted numbers have decimal commas. Do you want decimal points instead ?\r%1")
            .arg(first_change(block, *converted));
    switch (user.ask(parent, {.text = to_text(asked), .with_cancel = true})) {
    case user_answer::yes:
        return converted;
    case user_answer::no:
        return block;
    case user_answer::cancel:
        break;
    }
    return std::nullopt;
}

} // namespace kelvarin

// SPDX-License-Identifier: MIT
#pragma once

#include <QTableView>

namespace kelvarin
{

/// The grid of initial guesses: typing goes at once into the second column, with the keys of numbers as in the table.
/// Enter goes one row down.
class guess_grid : public QTableView
{
    Q_OBJECT

public:
    explicit guess_grid(QWidget* parent = nullptr);

    /// Ends typing and keeps its text.
    void take_over_typing();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    void focusInEvent(QFocusEvent* event) override;
};

} // namespace kelvarin

// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>

namespace kelvarin
{

/// The field above a data table in which the current cell is edited. It reports the keys that end editing.
class cell_line : public QLineEdit
{
    Q_OBJECT

public:
    using QLineEdit::QLineEdit;

signals:
    /// Enter (down), or an arrow: -1 up, 1 down.
    void accepted(int row_step);
    void cancelled();
    void begun();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
};

} // namespace kelvarin

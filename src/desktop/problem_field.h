// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>

#include <string>

namespace kelvarin
{

/// A field of a problem window whose every change is a step of the problem. It has no undo of its own: the keys for
/// undo and redo mean the problem in it too.
class problem_field : public QLineEdit
{
    Q_OBJECT

public:
    /// As wide as so many digits in the fixed-width font.
    problem_field(int digits, const char* name, const QString& tip);

    /// Shows a text without moving the caret of somebody who types it.
    void show_text(const std::string& text);

protected:
    bool event(QEvent* event) override;
};

} // namespace kelvarin

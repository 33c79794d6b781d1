// SPDX-License-Identifier: MIT
#pragma once

#include <QLineEdit>

#include <string>

namespace kelvarin
{

/// A field of a problem window; each of its changes is a step of the problem. It has no undo of its own: the keys for
/// undo and redo apply to the problem.
class problem_field : public QLineEdit
{
    Q_OBJECT

public:
    /// `digits`: the width, in digits of the fixed-width font.
    problem_field(int digits, const char* name, const QString& tip);

    /// Sets the text without moving the caret.
    void show_text(const std::string& text);

protected:
    bool event(QEvent* event) override;
};

} // namespace kelvarin

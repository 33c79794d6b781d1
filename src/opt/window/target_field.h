// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/command_keys.h"
#include "desktop/expression_edit.h"

#include <string>

namespace kelvarin
{

/// The field of the target: an expression whose changes are steps of the problem. It has no undo of its own: the keys
/// for undo and redo apply to the problem.
class target_field final : public expression_edit
{
public:
    explicit target_field(QWidget* parent = nullptr) : expression_edit(parent)
    {
        setUndoRedoEnabled(false);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    }

    /// Sets the text; one that is shown already keeps its line ends and the caret.
    void show_text(const std::string& text)
    {
        if (text != expression()) set_expression(text);
    }

protected:
    bool event(QEvent* event) override
    {
        if (asks_for_command_key(*event, {QKeySequence::Undo, QKeySequence::Redo})) {
            event->ignore();
            return true;
        }
        return expression_edit::event(event);
    }
};

} // namespace kelvarin

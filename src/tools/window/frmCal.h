// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/desktop_context.h"
#include "tools/calculator.h"

#include <QWidget>

namespace kelvarin
{

/// "Calculator": lines are typed, solved and kept in a history; variables made on the way stay. A top-level
/// window, beside the main window or alone.
class frmCal : public QWidget
{
    Q_OBJECT

public:
    explicit frmCal(desktop_context& context, QWidget* parent = nullptr);

private:
    desktop_context& context_;
    calculator calculator_;
};

} // namespace kelvarin

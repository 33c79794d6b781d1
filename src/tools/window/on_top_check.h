// SPDX-License-Identifier: MIT
#pragma once

#include <QCheckBox>

namespace kelvarin
{

/// "On Top": keeps its window above all others, on desktops that let a program do that.
class on_top_check : public QCheckBox
{
    Q_OBJECT

public:
    explicit on_top_check(QWidget* parent);

private:
    void raise_window(bool above_others);
};

} // namespace kelvarin

// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

namespace kelvarin
{

/// The dialog with the version and notices.
class frmAbout : public QDialog
{
    Q_OBJECT

public:
    explicit frmAbout(QWidget* parent);

private:
    void build_ui();
};

} // namespace kelvarin

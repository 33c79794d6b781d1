// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

namespace kelvarin
{

class user_interface;

/// The dialog with version, licence and libraries.
class frmAbout : public QDialog
{
    Q_OBJECT

public:
    frmAbout(user_interface& user, QWidget* parent);

private:
    void build_ui();

    user_interface& user_;
};

} // namespace kelvarin

// SPDX-License-Identifier: MIT
#pragma once

#include "platform/data_files.h"
#include "tools/constants.h"
#include "tools/window/data_window.h"

#include <vector>

class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace kelvarin
{

class constant_view;

/// "Constants": physical constants in groups, to look up and copy. A top-level window, beside the main window or alone.
class frmConstant : public data_window
{
    Q_OBJECT

public:
    /// The viewer of the thermodynamic data base is expected in the first folder.
    explicit frmConstant(desktop_context& context, QWidget* parent = nullptr,
                         std::vector<std::filesystem::path> folders = data_folders());

protected:
    std::vector<data_fault> show_data(std::string_view content) override;
    void tint_controls() override;

private:
    void build_ui();
    void connect_controls();

    void cmbConstType_Click();
    void txtSearch_Change();
    void cmdCopy_Click();
    void cmdCopyValue_Click();
    void cmdKvrData_Click();
    void enable_controls();

    std::vector<constant_group> groups_;

    QLineEdit* txtSearch_ = nullptr;
    QComboBox* cmbConstType_ = nullptr;
    constant_view* lstConst_ = nullptr;
    QPushButton* cmdCopy_ = nullptr;
    QPushButton* cmdCopyValue_ = nullptr;
    QPushButton* cmdKvrData_ = nullptr;
};

} // namespace kelvarin

// SPDX-License-Identifier: MIT
#pragma once

#include "platform/data_files.h"
#include "tools/units.h"
#include "tools/window/data_window.h"

#include <vector>

class QCheckBox;
class QComboBox;
class QLabel;
class QLayout;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace kelvarin
{

class link_text;
class on_top_check;
class unit_search;

/// "Unit conversions": converts a number between two units of one type and lists the results. A top-level window,
/// beside the main window or alone.
class frmUni : public data_window
{
    Q_OBJECT

public:
    explicit frmUni(desktop_context& context, QWidget* parent = nullptr,
                    std::vector<std::filesystem::path> folders = data_folders());

signals:
    /// The converter of Antoine equations is requested.
    void antoine_asked();

protected:
    std::vector<data_fault> show_data(std::string_view content) override;
    void tint_controls() override;

private:
    void build_ui();
    QLayout* build_choice();
    QLayout* build_units();
    QLayout* build_number();
    QLayout* build_results();
    QLayout* build_foot();
    void connect_controls();
    void set_tab_order();

    void cmdConvert_Click();
    void cmdSwap_Click();
    void cmdCopy_Click();
    void cmdCopyAll_Click();
    void cmdClear_Click();
    void cmbTypeOfUnits_Click();
    void go_to_unit(const measurement_unit& wanted);
    void clear_result();
    void show_notes();
    void enable_controls();
    /// The unit selected in a combo box; null if the box is empty.
    const measurement_unit* chosen_unit(const QComboBox& box) const;

    std::vector<measurement_unit> units_;
    /// The units of the chosen type, in the order of the combo boxes.
    std::vector<measurement_unit> offered_;
    /// The last converted number as text.
    QString value_;

    unit_search* txtSearch_ = nullptr;
    QComboBox* cmbTypeOfUnits_ = nullptr;
    QComboBox* cmbUnitBefore_ = nullptr;
    QComboBox* cmbUnitAfter_ = nullptr;
    QLabel* lblNoteBefore_ = nullptr;
    QLabel* lblNoteAfter_ = nullptr;
    QPushButton* cmdSwap_ = nullptr;
    QLineEdit* txtNumToConvert_ = nullptr;
    QPushButton* cmdConvert_ = nullptr;
    QLineEdit* txtResult_ = nullptr;
    QPushButton* cmdCopyValue_ = nullptr;
    QCheckBox* chkHistory_ = nullptr;
    QPlainTextEdit* txtResults_ = nullptr;
    QPushButton* cmdCopy_ = nullptr;
    QPushButton* cmdCopyAll_ = nullptr;
    QPushButton* cmdClear_ = nullptr;
    link_text* lblAntoine_ = nullptr;
    on_top_check* chkOnTop_ = nullptr;
};

} // namespace kelvarin

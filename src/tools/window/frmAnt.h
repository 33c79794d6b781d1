// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/desktop_context.h"
#include "tools/antoine.h"

#include <QString>
#include <QWidget>

#include <array>
#include <span>
#include <string_view>

class QButtonGroup;
class QGridLayout;
class QGroupBox;
class QLabel;
class QLayout;
class QLineEdit;
class QPushButton;
class QStackedLayout;

namespace kelvarin
{

/// "Antoine constants manipulator": takes the constants of an Antoine equation and converts them to other logarithms
/// and units of pressure and temperature. A top-level window, beside the main window or alone.
class frmAnt : public QWidget
{
    Q_OBJECT

public:
    explicit frmAnt(desktop_context& context, QWidget* parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void build_ui();
    QLayout* build_choices();
    QButtonGroup* add_choices(QGridLayout& grid, const QString& caption, const char* name,
                              std::span<const std::string_view> items);
    QLayout* build_constants();
    QWidget* build_frame();
    QLayout* build_fields();
    QLayout* build_entry();
    QLayout* build_pressure();
    QLayout* build_buttons();
    void connect_controls();
    void set_tab_order();
    void tint_controls();

    void cmdABC_Click();
    void cmdok_Click();
    void cmdCancelABC_Click();
    void choice_Click();
    void cmdHelp_Click();

    /// Makes the fields editable for new constants, or read-only with the present ones.
    void set_entering(bool entering);
    void show_equation();
    void show_constants();
    void show_pressure();

    desktop_context& context_;
    antoine_tool tool_;
    bool entering_ = false;

    QButtonGroup* optLog_ = nullptr;
    QButtonGroup* optP_ = nullptr;
    QButtonGroup* optT_ = nullptr;
    QStackedLayout* constants_place_ = nullptr;
    QGroupBox* frameconstants_ = nullptr;
    QLabel* lblEquation_ = nullptr;
    QLabel* lblUnits_ = nullptr;
    /// txtA, txtB and txtC.
    std::array<QLineEdit*, 3> fields_ = {};
    QLabel* lblNote_ = nullptr;
    QPushButton* cmdok_ = nullptr;
    QPushButton* cmdCancelABC_ = nullptr;
    QLineEdit* LblDisplayed_ = nullptr;
    QPushButton* cmdCopy_ = nullptr;
    QLineEdit* txtT_ = nullptr;
    QLabel* lblPressure_ = nullptr;
    QPushButton* cmdABC_ = nullptr;
    QPushButton* cmdHelp_ = nullptr;
    QPushButton* cmdClose_ = nullptr;
};

} // namespace kelvarin

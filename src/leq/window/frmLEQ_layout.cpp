// SPDX-License-Identifier: MIT
// The layout of the window.

#include "desktop/cell_grid.h"
#include "desktop/controls.h"
#include "desktop/elided_label.h"
#include "desktop/icons.h"
#include "desktop/look.h"
#include "leq/window/frmLEQ.h"
#include "leq/window/leq_grid_model.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QStatusBar>
#include <QVBoxLayout>

namespace kelvarin
{

void frmLEQ::build_ui()
{
    setWindowIcon(program_icon("leq"));
    const int unit = line_unit(*this);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(unit / 2, unit / 2, unit / 2, 0);
    column->setSpacing(unit / 2);
    column->addLayout(build_title_row());
    cells_ = new leq_grid_model;
    grdMatrix_ = named(new cell_grid(cells_, this), "grdMatrix");
    grdMatrix_->setAccessibleName(tr("Coefficients and right sides"));
    column->addWidget(grdMatrix_, 1);
    // Tab leads from the last cell to the button, where Enter solves.
    setTabOrder(cmbNumEq_, grdMatrix_);
    setTabOrder(grdMatrix_, cmdRun_);
    column->addWidget(build_status());

    build_edit_menu();
    program_menu_ = build_program_menu();
    help_menu_ = build_help_menu();
    cell_menu_ = build_cell_menu();
}

QBoxLayout* frmLEQ::build_title_row()
{
    auto* row = new QHBoxLayout;
    lblTitle_ = named(new elided_label, "lblTitle");
    QFont font = lblTitle_->font();
    font.setBold(true);
    lblTitle_->setFont(font);
    row->addWidget(lblTitle_, 1);

    cmbNumEq_ = named(new QComboBox, "cmbNumEq");
    for (int count = least_leq_count; count <= largest_leq_count; ++count)
        cmbNumEq_->addItem(QString::number(count));
    cmbNumEq_->setToolTip(tr("What is typed stays as far as it fits"));
    auto* caption = new QLabel(tr("&Number of equations"));
    caption->setBuddy(cmbNumEq_);
    row->addWidget(caption);
    row->addWidget(cmbNumEq_);
    row->addSpacing(line_unit(*this));
    cmdRun_ = make_button(tr("Solve it ..."), "cmdRun", tr("Solve the problem (F5)"));
    cmdRun_->setAutoDefault(true);
    row->addWidget(cmdRun_);
    return row;
}

QStatusBar* frmLEQ::build_status()
{
    auto* status = named(new QStatusBar, "stbLEQ");
    status->setSizeGripEnabled(false);
    lblCell_ = named(new elided_label, "lblCell");
    status->addWidget(lblCell_, 1);
    lblEmpty_ = named(new QLabel, "lblEmpty");
    status->addPermanentWidget(lblEmpty_);
    return status;
}

void frmLEQ::build_edit_menu()
{
    QMenu* menu = edit_menu();
    main_frame& frame = context().frame;
    const auto add = [&](const QString& caption, const char* name, auto slot) {
        return named(menu->addAction(caption, this, slot), name);
    };
    for (const window_command which : {window_command::cut, window_command::copy, window_command::paste})
        menu->addAction(frame.action(which));
    clear_item_ = add(tr("C&lear"), "mnuClear", &frmLEQ::clear_cells);
    clear_item_->setIcon(program_icon("clear"));
    menu->addAction(frame.action(window_command::select_all));
    menu->addSeparator();
    add(tr("Enter Problem Title..."), "mnuTitle", &frmLEQ::change_title);
    rename_item_ =
        add(tr("&Variable Name..."), "mnuRename", [this] { rename_variable(grdMatrix_->currentIndex().column()); });
    menu->addSeparator();
    add(tr("Fill All Empty Cells With Zeros"), "mnuFill", &frmLEQ::fill_with_zeros);
    add(tr("Clean &Grid"), "mnuClean", &frmLEQ::clean_grid);
}

QMenu* frmLEQ::build_program_menu()
{
    auto* menu = new QMenu(tr("&Program"), this);
    menu->addAction(context().frame.action(window_command::solve));
    return menu;
}

QMenu* frmLEQ::build_help_menu()
{
    const QMenu& help = *context().frame.help_menu();
    auto* menu = new QMenu(help.title(), this);
    named(menu->addAction(tr("&Sample Problem"), this, &frmLEQ::load_sample), "mnuSample");
    menu->addSeparator();
    menu->addActions(help.actions());
    return menu;
}

QMenu* frmLEQ::build_cell_menu()
{
    main_frame& frame = context().frame;
    auto* menu = named(new QMenu(this), "mnuCell");
    menu->addActions({frame.action(window_command::cut), frame.action(window_command::copy),
                      frame.action(window_command::paste), clear_item_});
    menu->addSeparator();
    menu->addAction(rename_item_);
    return menu;
}

QList<QMenu*> frmLEQ::menus()
{
    main_frame& frame = context().frame;
    return {file_menu(), edit_menu(), program_menu_, frame.tools_menu(), frame.window_menu(), help_menu_};
}

void frmLEQ::apply_colours()
{
    cmdRun_->setPalette(solving_palette(palette()));
    const QPalette quiet = quiet_palette(palette());
    lblTitle_->setPalette(problem_.title().empty() ? quiet : palette());
    lblEmpty_->setPalette(quiet);
}

void frmLEQ::changeEvent(QEvent* event)
{
    problem_window::changeEvent(event);
    // The palette may change between light and dark while the program runs.
    if (event->type() == QEvent::PaletteChange && cell_menu_) apply_colours();
}

QSize frmLEQ::sizeHint() const
{
    return QSize(52, 28) * line_unit(*this);
}

} // namespace kelvarin

// SPDX-License-Identifier: MIT
// The layout of the window and its menus.

#include "desktop/controls.h"
#include "desktop/elided_label.h"
#include "desktop/icons.h"
#include "desktop/look.h"
#include "desktop/qt_text.h"
#include "reg/reg_kind.h"
#include "reg/window/analysis_page.h"
#include "reg/window/cell_line.h"
#include "reg/window/frmRGT.h"
#include "reg/window/matrix_menu.h"
#include "reg/window/regression_page.h"
#include "reg/window/scatter_page.h"
#include "reg/window/table_grid.h"
#include "reg/window/table_grid_model.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTabBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace kelvarin
{

void frmRGT::build_ui()
{
    setWindowIcon(program_icon("reg"));
    const int unit = line_unit(*this);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(unit / 2, unit / 2, unit / 2, 0);
    column->setSpacing(unit / 2);
    build_tabs(*column);
    cells_ = new table_grid_model;
    grdMain_ = named(new table_grid(cells_, this), "grdMain");
    grdMain_->setAccessibleName(tr("Data table"));
    column->addWidget(grdMain_, 1);
    column->addWidget(build_status());
    build_table_menus();
    apply_colours();
}

void frmRGT::build_tabs(QBoxLayout& column)
{
    sstMainTable_ = named(new QTabBar, "sstMainTable");
    sstMainTable_->setAccessibleName(tr("Pages"));
    sstMainTable_->setExpanding(false);
    sstMainTable_->setDrawBase(false);
    cmdSolve_ = make_button(tr("Solve it ..."), "cmdSolve", tr("Solve what the page asks for (F5)"));
    cmdSolve_->hide();
    auto* top = new QHBoxLayout;
    top->addWidget(sstMainTable_, 1);
    top->addWidget(cmdSolve_);
    column.addLayout(top);

    pages_ = named(new QStackedWidget, "pages");
    pages_->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    page_of_tab_ = {nullptr, new regression_page(table_, *this), build_analysis_page(),
                    new scatter_page(context(), table_, *this)};
    const QStringList captions = {tr("Table"), tr("Regression"), tr("Analysis"), tr("Graph")};
    for (std::size_t i = 0; i < page_of_tab_.size(); ++i) {
        sstMainTable_->addTab(captions[static_cast<qsizetype>(i)]);
        pages_->addWidget(page_of_tab_[i] ? page_of_tab_[i] : build_line());
    }
    show_page(0);
    show_page_menus();
    column.addWidget(pages_);
}

table_page* frmRGT::build_analysis_page()
{
    auto* page = new analysis_page(table_, *this);
    connect(page, &analysis_page::solve_asked, this, &frmRGT::solve);
    connect(page, &analysis_page::table_filled, this, [this](int column) {
        document_changed();
        grdMain_->set_current_cell(0, column);
    });
    return page;
}

QWidget* frmRGT::build_line()
{
    auto* line = new QWidget(this);
    auto* row = new QHBoxLayout(line);
    row->setContentsMargins(0, 0, 0, 0);
    const auto image = [&](const char* name, const char* icon, const QString& tip) {
        auto* button = named(new QToolButton, name);
        button->setIcon(program_icon(icon));
        button->setToolTip(tip);
        button->setAccessibleName(tip);
        button->setAutoRaise(false);
        button->setFocusPolicy(Qt::NoFocus);
        // Nothing moves when they appear.
        QSizePolicy policy = button->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        button->setSizePolicy(policy);
        button->hide();
        return button;
    };
    imgXV_ = {image("imgXV_0", "close", tr("Cancel")), image("imgXV_1", "accept", tr("Enter"))};
    lblGridCellPos_ = named(new QLabel, "lblGridCellPos");
    lblGridCellPos_->setFont(fixed_font(*this));
    txtGridCell_ = named(new cell_line, "txtGridCell");
    txtGridCell_->setFont(fixed_font(*this));
    txtGridCell_->setAccessibleName(tr("Text of the cell"));
    lblFormula_ = named(new elided_label, "lblFormula");
    lblFormula_->setFont(fixed_font(*this));
    lblFormula_->setMinimumHeight(txtGridCell_->sizeHint().height());
    row->addWidget(lblGridCellPos_);
    row->addWidget(txtGridCell_, 1);
    row->addWidget(lblFormula_, 1);
    for (QToolButton* button : imgXV_)
        row->addWidget(button);
    return line;
}

QStatusBar* frmRGT::build_status()
{
    auto* status = named(new QStatusBar, "stbRGT");
    status->setSizeGripEnabled(false);
    lblHint_ = named(new elided_label, "lblHint");
    status->addWidget(lblHint_, 1);
    lblSelection_ = named(new QLabel, "lblSelection");
    status->addPermanentWidget(lblSelection_);
    return status;
}

void frmRGT::build_table_menus()
{
    build_file_menu();
    build_edit_menu();
    table_menus_ = {edit_menu(),        build_rows_menu(),   build_columns_menu(),
                    build_align_menu(), build_format_menu(), build_matrix_menu()};
    samples_menu_ = build_samples_menu();
    cell_menu_ = build_cell_menu();
    for (const QMenu* menu : {edit_menu(), cell_menu_}) {
        connect(menu, &QMenu::aboutToShow, this, [this] { limit_commands(true); });
        connect(menu, &QMenu::aboutToHide, this, [this] { limit_commands(false); });
    }
}

void frmRGT::build_file_menu()
{
    QMenu* const menu = file_menu();
    // New empties this window's table; other kinds of problems are made by the toolbar.
    menu->removeAction(context().frame.new_menu()->menuAction());
    auto* fresh = named(new QAction(tr("&New"), this), "mnuFileItem_New");
    connect(fresh, &QAction::triggered, this, &frmRGT::file_new);
    menu->insertAction(menu->actions().value(0), fresh);
    QAction* const behind_save =
        menu->actions().value(menu->actions().indexOf(context().frame.action(window_command::save_as)) + 1);
    auto* import = named(new QAction(tr("&Import..."), this), "mnuFileItem_Import");
    connect(import, &QAction::triggered, this, &frmRGT::import_table);
    auto* exported = named(new QAction(tr("&Export..."), this), "mnuFileItem_Export");
    connect(exported, &QAction::triggered, this, &frmRGT::export_table);
    menu->insertActions(behind_save, {import, exported});
    auto* copy = named(new QAction(tr("Copy &Table"), this), "mnuFileItem_Copy");
    connect(copy, &QAction::triggered, this, &frmRGT::copy_table);
    QAction* const print = context().frame.action(window_command::print);
    menu->insertAction(print, copy);
    menu->insertSeparator(print);
}

void frmRGT::build_edit_menu()
{
    QMenu* menu = edit_menu();
    main_frame& frame = context().frame;
    for (const window_command which : {window_command::cut, window_command::copy, window_command::paste})
        menu->addAction(frame.action(which));
    clear_item_ = named(menu->addAction(tr("C&lear"), this, [this] { edit_cells(3); }), "mnuEditItem_3");
    clear_item_->setIcon(program_icon("clear"));
    menu->addAction(frame.action(window_command::select_all));
    menu->addSeparator();
    named(menu->addAction(tr("Copy with headers"), this, [this] { edit_cells(5); }), "mnuEditItem_5");
    named(menu->addAction(tr("Enter problem title..."), this,
                          [this] {
                              take_over_typing();
                              table_.mark_table_unsaved();
                              change_title();
                          }),
          "mnuEditItem_6");
}

QMenu* frmRGT::build_rows_menu()
{
    auto* menu = named(new QMenu(tr("&Rows"), this), "mnuRows");
    named(menu->addAction(tr("&Insert"), this, &frmRGT::insert_row), "mnuRowsItem_3");
    named(menu->addAction(tr("&Delete"), this, &frmRGT::delete_row), "mnuRowsItem_4");
    return menu;
}

QMenu* frmRGT::build_columns_menu()
{
    auto* menu = named(new QMenu(tr("&Columns"), this), "mnuCols");
    named(menu->addAction(tr("&Add..."), this, &frmRGT::add_columns), "mnuColsItem_4");
    menu->addSeparator();
    named(menu->addAction(tr("Column &Definition..."), this, &frmRGT::define_column), "mnuColsItem_6");
    named(menu->addAction(tr("&Column Name..."), this, [this] { rename_column(column()); }), "mnuColsItem_7");
    menu->addSeparator();
    named(menu->addAction(tr("&Statistics..."), this, &frmRGT::show_statistics), "mnuColsItem_9");
    return menu;
}

QMenu* frmRGT::build_align_menu()
{
    auto* menu = named(new QMenu(tr("&Align"), this), "mnuAlign");
    const auto add = [&](const QString& caption, const char* name, cell_alignment alignment) {
        named(
            menu->addAction(caption, this, [this, alignment] { cells_->align(grdMain_->selected_block(), alignment); }),
            name);
    };
    add(tr("Left"), "mnuAlignItem_1", cell_alignment::left);
    add(tr("Center"), "mnuAlignItem_2", cell_alignment::centre);
    add(tr("Right"), "mnuAlignItem_3", cell_alignment::right);
    return menu;
}

QMenu* frmRGT::build_format_menu()
{
    auto* menu = named(new QMenu(tr("F&ormat"), this), "mnuFormat");
    named(menu->addAction(tr("Font"), this, &frmRGT::choose_font), "mnuFormatItem_0");
    named(menu->addAction(tr("Back color"), this, [this] { choose_colour(true); }), "mnuFormatItem_1");
    named(menu->addAction(tr("Fore color"), this, [this] { choose_colour(false); }), "mnuFormatItem_2");
    menu->addSeparator();
    named(menu->addAction(tr("Calc digits..."), this, &frmRGT::set_calc_digits), "mnuFormatItem_4");
    menu->addSeparator();
    int index = 6;
    for (const char* mask : {"0.000", "0.0000", "0.00000", "0.000000", "0.000E+00", "0.0000E+00", "0.00000E+00"}) {
        QAction* item = menu->addAction(QLatin1String(mask), this, [this, mask] { format_selection(mask); });
        item->setObjectName(QStringLiteral("mnuFormatItem_%1").arg(index++));
    }
    return menu;
}

QMenu* frmRGT::build_matrix_menu()
{
    auto* menu = new matrix_menu(context(), table_, *this, [this] {
        take_over_typing();
        return grdMain_->selected_block();
    });
    connect(menu, &matrix_menu::told, this, [this](const QString& text) { lblHint_->show_text(text); });
    return menu;
}

QMenu* frmRGT::build_samples_menu()
{
    auto* menu = named(new QMenu(tr("&Samples"), this), "mnuSamples");
    int number = 1;
    for (const std::string& title : kind().example_titles()) {
        const QString caption = QStringLiteral("&%1: %2").arg(QString::number(number), to_qstring(title));
        QAction* item = menu->addAction(caption, this, [this, number] { load_sample_table(number - 1); });
        item->setObjectName(QStringLiteral("mnuSamplesItem_%1").arg(number++));
    }
    return menu;
}

QMenu* frmRGT::build_cell_menu()
{
    main_frame& frame = context().frame;
    auto* menu = named(new QMenu(this), "mnupopup");
    menu->addActions({frame.action(window_command::cut), frame.action(window_command::copy),
                      frame.action(window_command::paste), clear_item_});
    menu->addSeparator();
    named(menu->addAction(tr("Column name ..."), this, [this] { rename_column(column()); }), "mnupopupitem_6");
    named(menu->addAction(tr("Column definition ..."), this, &frmRGT::define_column), "mnupopupitem_7");
    menu->addSeparator();
    named(menu->addAction(tr("Insert row"), this, &frmRGT::insert_row), "mnupopupitem_9");
    named(menu->addAction(tr("Delete row"), this, &frmRGT::delete_row), "mnupopupitem_10");
    return menu;
}

QList<QMenu*> frmRGT::menus()
{
    main_frame& frame = context().frame;
    QList<QMenu*> page_menus;
    for (const table_page* const page : page_of_tab_)
        if (page && page->menu()) page_menus.append(page->menu());
    return QList<QMenu*>{file_menu()} + table_menus_ + page_menus +
           QList<QMenu*>{samples_menu_, frame.tools_menu(), frame.window_menu(), frame.help_menu()};
}

void frmRGT::apply_colours()
{
    cmdSolve_->setPalette(solving_palette(palette()));
    const QPalette quiet = quiet_palette(palette());
    lblHint_->setPalette(quiet);
    lblSelection_->setPalette(quiet);
    const QColor dark_blue(0, 0, 160);
    cells_->set_formula_colour(is_dark(palette()) ? accent(palette()) : dark_blue);
}

void frmRGT::changeEvent(QEvent* event)
{
    problem_window::changeEvent(event);
    // The palette may change between light and dark while the program runs.
    if (event->type() == QEvent::PaletteChange && cell_menu_) apply_colours();
}

} // namespace kelvarin

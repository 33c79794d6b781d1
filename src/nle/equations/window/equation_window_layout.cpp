// SPDX-License-Identifier: MIT
// The layout of the windows of equations.

#include "desktop/controls.h"
#include "desktop/editable_title.h"
#include "desktop/icons.h"
#include "desktop/link_label.h"
#include "desktop/look.h"
#include "desktop/qt_text.h"
#include "desktop/wrapping_row.h"
#include "nle/equations/window/equation_grid.h"
#include "nle/equations/window/equation_window.h"
#include "nle/equations/window/problem_status.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QVBoxLayout>

namespace kelvarin
{

namespace
{

QToolButton* make_arrow(Qt::ArrowType arrow, const char* name, const QString& tip)
{
    auto* button = named(new QToolButton, name);
    button->setArrowType(arrow);
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    return button;
}

} // namespace

void equation_window::build_ui(const equation_window_parts& parts)
{
    setWindowIcon(program_icon(parts.icon_name));
    listing_caption_ = parts.listing_caption;
    form_ = parts.form;
    const int unit = line_unit(*this);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(unit / 2, unit / 2, unit / 2, 0);
    column->setSpacing(unit / 2);
    column->addLayout(build_title_row());
    column->addLayout(build_button_row(parts));
    if (parts.above_grid) column->addWidget(parts.above_grid);

    grid_ = named(new equation_grid({parts.heads, parts.form, parts.new_implicit_caption, tr("&Add EE")}, this),
                  parts.grid_name);
    grid_->set_hint(parts.hint);
    column->addWidget(grid_, 1);

    column->addLayout(build_options_row(parts));
    if (parts.below_options) column->addWidget(parts.below_options);
    lblAdvice_ = named(new link_label(this), "lblAdvice");
    lblAdvice_->hide();
    column->addWidget(lblAdvice_);
    panels_ = named(new problem_status(this), parts.status_name);
    column->addWidget(panels_);

    run_controls_.append({cmbMethod_, cmdNewImplicit_, cmdNewEquation_, cmdRun_});
    apply_colours();
    build_edit_menu(parts);
    solution_menu_ = build_solution_menu();
    if (parts.offers_guesses)
        item_use_solution_ =
            named(solution_menu_->addAction(tr("Use solution as &guesses"), this, [this] { use_solution(solution_); }),
                  "mnuUseSolution");
    examples_menu_ = build_examples_menu();
    connect_controls();
    setFocusProxy(grid_);
}

QBoxLayout* equation_window::build_title_row()
{
    auto* row = new QHBoxLayout;
    title_ = new editable_title;
    QFont font = title_->label()->font();
    font.setBold(true);
    title_->label()->setFont(font);
    row->addWidget(title_, 1);

    cmbMethod_ = named(new QComboBox, "cmbMethod");
    for (const problem_method& method : kind().methods) {
        cmbMethod_->addItem(to_qstring(method.name));
        cmbMethod_->setItemData(cmbMethod_->count() - 1, tr(method.tip), Qt::ToolTipRole);
    }
    auto* caption = new QLabel(tr("&Method"));
    caption->setBuddy(cmbMethod_);
    row->addWidget(caption);
    row->addWidget(cmbMethod_);
    return row;
}

QLayout* equation_window::build_button_row(const equation_window_parts& parts)
{
    auto* row = new wrapping_row(line_unit(*this) / 2);
    cmdNewImplicit_ = make_button(parts.new_implicit_caption, parts.new_implicit_name, parts.new_implicit_tip);
    cmdNewEquation_ = make_button(tr("&Add EE"), "cmdNewEquation", tr("New explicit equation"));
    cmdEdit_ = make_button(tr("Edit"), "cmdEdit", tr("Change the equation (Enter)"));
    cmdRemove_ = make_button(tr("Remove"), "cmdRemove", tr("Remove the equation (Delete)"));
    for (QPushButton* button : {cmdNewImplicit_, cmdNewEquation_, cmdEdit_, cmdRemove_})
        row->addWidget(button);
    cmdUpDwn_ = {make_arrow(Qt::UpArrow, "cmdUpDwn_0", tr("Move up")),
                 make_arrow(Qt::DownArrow, "cmdUpDwn_1", tr("Move down"))};
    for (QToolButton* button : cmdUpDwn_)
        row->addWidget(button);
    row->addWidget(build_run_place());
    // All buttons get the height of the tallest one.
    for (QPushButton* button : {cmdNewImplicit_, cmdNewEquation_, cmdEdit_, cmdRemove_, cmdRun_})
        button->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Preferred);
    return row;
}

QWidget* equation_window::build_run_place()
{
    // The button and the line that says why it is not there take turns, and nothing else moves.
    auto* area = new QWidget;
    auto* row = new QHBoxLayout(area);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(line_unit(*this) / 2);
    light_ = new traffic_light(area);
    row->addWidget(light_);
    lblMissing_ = named(new link_label, "lblMissing");
    row->addWidget(lblMissing_, 1);
    row->addStretch();
    cmdRun_ = make_button(tr("Solve it ..."), "cmdRun", tr("Solve the problem (F5)"));
    row->addWidget(cmdRun_);
    return area;
}

QLayout* equation_window::build_options_row(const equation_window_parts& parts)
{
    auto* row = new wrapping_row(line_unit(*this));
    if (parts.below_grid) row->addWidget(parts.below_grid);
    chkComments_ = named(new QCheckBox(tr("&Comments")), "chkComments");
    chkComments_->setToolTip(tr("Show the column of comments"));
    chkComments_->setChecked(true);
    cmdShowallvars_ = make_button(tr("Show list of variables"), "cmdShowallvars",
                                  tr("Which variables there are, and what is missing"));
    // At the right edge, on whichever line.
    auto* at_right = new QWidget;
    auto* showing = new QHBoxLayout(at_right);
    showing->setContentsMargins(0, 0, 0, 0);
    showing->setSpacing(line_unit(*this));
    showing->addStretch();
    showing->addWidget(chkComments_);
    showing->addWidget(cmdShowallvars_);
    row->addWidget(at_right);
    return row;
}

void equation_window::build_edit_menu(const equation_window_parts& parts)
{
    QMenu* menu = edit_menu();
    for (const window_command which : {window_command::copy, window_command::paste, window_command::select_all})
        menu->addAction(context().frame.action(which));
    menu->addSeparator();
    const auto add = [&](const QString& caption, const char* name, auto slot) {
        QAction* item = named(menu->addAction(caption, this, slot), name);
        changing_items_.append(item);
        return item;
    };
    add(tr("&Title..."), "mnuTitle", &equation_window::change_title);
    add(tr("Add ro&ws..."), "mnuAddRows", &equation_window::add_rows);
    menu->addSeparator();
    add(parts.new_implicit_item, parts.new_implicit_item_name, &equation_window::cmdNewImplicit_Click);
    add(tr("New e&xplicit equation..."), "mnuNewEquation", &equation_window::cmdNewEquation_Click);
    menu->addSeparator();
    row_items_.append(add(tr("&Edit equation..."), "mnuEdit", &equation_window::cmdEdit_Click));
    item_remove_ = add(tr("Re&move equation"), "mnuRemove", &equation_window::cmdRemove_Click);
    row_items_.append(add(tr("Rename &variable..."), "mnuRename", &equation_window::ask_new_name));
    item_up_ = add(tr("M&ove up"), "mnuMoveUp", [this] { cmdUpDwn_Click(true); });
    item_down_ = add(tr("Move &down"), "mnuMoveDown", [this] { cmdUpDwn_Click(false); });
}

QMenu* equation_window::build_solution_menu()
{
    auto* menu = new QMenu(tr("&Solution"), this);
    menu->addAction(context().frame.action(window_command::solve));
    menu->addAction(context().frame.action(window_command::stop));
    menu->addSeparator();
    named(menu->addAction(tr("&Refresh"), this, [this] { document_changed(); }), "mnuSolutionItem_2");
    named(menu->addAction(tr("Show &list of variables"), this, &equation_window::cmdShowallvars_Click),
          "mnuSolutionItem_3");
    return menu;
}

QMenu* equation_window::build_examples_menu()
{
    auto* menu = new QMenu(tr("E&xamples"), this);
    int number = 0;
    for (const std::string& title : kind().example_titles()) {
        ++number;
        // The number of an example is its mnemonic.
        const QString digit = QString::number(number);
        QAction* item = menu->addAction(to_qstring(title).replace(digit, QLatin1Char('&') + digit), this,
                                        [this, number] { load_sample(number); });
        item->setObjectName(QStringLiteral("mnuSample%1").arg(number));
        changing_items_.append(item);
    }
    return menu;
}

QList<QMenu*> equation_window::menus()
{
    main_frame& frame = context().frame;
    return {file_menu(),        edit_menu(),         solution_menu_,   examples_menu_,
            frame.tools_menu(), frame.window_menu(), frame.help_menu()};
}

void equation_window::apply_colours()
{
    cmdRun_->setPalette(solving_palette(palette()));
    const QPalette quiet = quiet_palette(palette());
    lblMissing_->setPalette(quiet);
    title_->label()->setPalette(document().title().empty() ? quiet : palette());
}

void equation_window::changeEvent(QEvent* event)
{
    problem_window::changeEvent(event);
    // The palette turns from light to dark while the program runs.
    if (event->type() == QEvent::PaletteChange && panels_) apply_colours();
}

QSize equation_window::sizeHint() const
{
    return QSize(52, 28) * line_unit(*this);
}

} // namespace kelvarin

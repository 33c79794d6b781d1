// SPDX-License-Identifier: MIT
// Where everything of the window stands.

#include "desktop/controls.h"
#include "desktop/icons.h"
#include "desktop/link_label.h"
#include "desktop/look.h"
#include "desktop/qt_text.h"
#include "nle/equations/window/equation_grid.h"
#include "nle/equations/window/problem_status.h"
#include "nle/nle_samples.h"
#include "nle/window/frmNLE.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QVBoxLayout>

namespace kelvarin
{

namespace
{

/// What the methods are, beside their short names.
constexpr std::array<const char*, 4> method_tips = {
    QT_TRANSLATE_NOOP("kelvarin::frmNLE", "Newton's method with full steps"),
    QT_TRANSLATE_NOOP("kelvarin::frmNLE", "Newton's method with a line search"),
    QT_TRANSLATE_NOOP("kelvarin::frmNLE", "Broyden's method with a line search"),
    QT_TRANSLATE_NOOP("kelvarin::frmNLE", "Damped steps that keep the signs asked for; systems only")};

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

void frmNLE::build_ui()
{
    setWindowIcon(program_icon("nle"));
    const int unit = line_unit(*this);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(unit / 2, unit / 2, unit / 2, 0);
    column->setSpacing(unit / 2);
    column->addLayout(build_title_row());
    column->addLayout(build_button_row());

    grdRoots_ = named(
        new equation_grid({tr("Implicit equations / explicit equations"), tr("Initial guess"), tr("Comments")}, this),
        "grdRoots");
    grdRoots_->set_hint(tr("Add a nonlinear equation, f(x) = 0, with \"Add NLE\",\nor an explicit one, a = ..., with "
                           "\"Add EE\"."));
    column->addWidget(grdRoots_, 1);

    column->addLayout(build_bounds_row());
    stbNLE_ = named(new problem_status(this), "stbNLE");
    column->addWidget(stbNLE_);

    apply_colours();
    build_menu_bar();
}

QBoxLayout* frmNLE::build_title_row()
{
    auto* row = new QHBoxLayout;
    lblTitle_ = named(new link_label, "lblTitle");
    QFont font = lblTitle_->font();
    font.setBold(true);
    lblTitle_->setFont(font);
    row->addWidget(lblTitle_, 1);

    cmbMethod_ = named(new QComboBox, "cmbMethod");
    for (std::size_t i = 0; i < nle_method_items.size(); ++i) {
        cmbMethod_->addItem(to_qstring(nle_method_items[i]));
        cmbMethod_->setItemData(static_cast<int>(i), tr(method_tips.at(i)), Qt::ToolTipRole);
    }
    auto* caption = new QLabel(tr("&Method"));
    caption->setBuddy(cmbMethod_);
    row->addWidget(caption);
    row->addWidget(cmbMethod_);
    return row;
}

QBoxLayout* frmNLE::build_button_row()
{
    auto* row = new QHBoxLayout;
    row->setSpacing(line_unit(*this) / 2);
    cmdNewRoot_ = make_button(tr("Add &NLE"), "cmdNewRoot", tr("New nonlinear (implicit) equation"));
    cmdNewEquation_ = make_button(tr("&Add EE"), "cmdNewEquation", tr("New explicit equation"));
    cmdEdit_ = make_button(tr("Edit"), "cmdEdit", tr("Change the equation (Enter)"));
    cmdRemove_ = make_button(tr("Remove"), "cmdRemove", tr("Remove the equation (Delete)"));
    for (QPushButton* button : {cmdNewRoot_, cmdNewEquation_, cmdEdit_, cmdRemove_})
        row->addWidget(button);
    cmdUpDwn_ = {make_arrow(Qt::UpArrow, "cmdUpDwn_0", tr("Move up")),
                 make_arrow(Qt::DownArrow, "cmdUpDwn_1", tr("Move down"))};
    for (QToolButton* button : cmdUpDwn_)
        row->addWidget(button);
    row->addSpacing(line_unit(*this));
    row->addWidget(build_run_place(), 1);
    // All of one height, which is that of the tallest.
    for (QPushButton* button : {cmdNewRoot_, cmdNewEquation_, cmdEdit_, cmdRemove_, cmdRun_})
        button->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Preferred);
    light_ = new traffic_light(this);
    row->insertWidget(row->count() - 1, light_);
    return row;
}

QWidget* frmNLE::build_run_place()
{
    // The button and the line that tells why it is not there take turns, and nothing else moves.
    auto* place = new QWidget;
    auto* row = new QHBoxLayout(place);
    row->setContentsMargins(0, 0, 0, 0);
    lblMissing_ = named(new link_label, "lblMissing");
    row->addWidget(lblMissing_, 1);
    row->addStretch();
    cmdRun_ = make_button(tr("Solve it ..."), "cmdRun", tr("Solve the problem (F5)"));
    row->addWidget(cmdRun_);
    return place;
}

QBoxLayout* frmNLE::build_bounds_row()
{
    auto* row = new QHBoxLayout;
    row->setSpacing(line_unit(*this));
    bounds_ = build_bounds();
    row->addWidget(bounds_);
    row->addStretch(1);
    chkComments_ = named(new QCheckBox(tr("&Comments")), "chkComments");
    chkComments_->setToolTip(tr("Show the column of comments"));
    chkComments_->setChecked(true);
    row->addWidget(chkComments_);
    cmdShowallvars_ = make_button(tr("Show list of variables"), "cmdShowallvars",
                                  tr("Which variables there are, and what is missing"));
    row->addWidget(cmdShowallvars_);
    return row;
}

QWidget* frmNLE::build_bounds()
{
    auto* bounds = new QWidget;
    auto* row = new QHBoxLayout(bounds);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(line_unit(*this) / 2);
    const int letters = 12;
    const auto add_field = [&](const QString& caption, const char* label_name, const char* name, const QString& tip) {
        auto* field = named(new QLineEdit, name);
        field->setFont(fixed_font(*this));
        field->setFixedWidth(letters * field->fontMetrics().horizontalAdvance(QLatin1Char('0')) + line_unit(*this));
        field->setToolTip(tip);
        field->installEventFilter(this);
        field->setProperty(undo_of_problem, true);
        auto* label = named(new QLabel(caption), label_name);
        label->setBuddy(field);
        row->addWidget(label);
        row->addWidget(field);
        return field;
    };
    txtnle_min_ini_guess_ =
        add_field(tr("&Lower bound"), "lblLower", "txtnle_min_ini_guess", tr("Where the search for roots begins"));
    txtnle_max_ini_guess_ =
        add_field(tr("&Upper bound"), "lblUpper", "txtnle_max_ini_guess", tr("Where the search for roots ends"));
    row->addSpacing(line_unit(*this) / 2);

    chkGraph_ = named(new QCheckBox, "chkGraph");
    auto* label = named(new QLabel(tr("Graph")), "lblGraph");
    for (QWidget* part : std::initializer_list<QWidget*>{chkGraph_, label}) {
        part->setEnabled(false);
        part->setToolTip(tr("Graphs of the search come with a later version."));
        row->addWidget(part);
    }
    chkGraph_->setAccessibleName(tr("Graph"));
    return bounds;
}

void frmNLE::build_menu_bar()
{
    build_edit_menu();
    solution_menu_ = build_solution_menu();
    examples_menu_ = build_examples_menu();
}

QMenu* frmNLE::build_edit_menu()
{
    QMenu* menu = edit_menu();
    menu->addAction(context().frame.action(window_command::copy));
    menu->addAction(context().frame.action(window_command::select_all));
    menu->addSeparator();
    const auto add = [&](const QString& caption, const char* name, auto slot) {
        QAction* item = menu->addAction(caption, this, slot);
        item->setObjectName(QString::fromLatin1(name));
        changing_items_.append(item);
        return item;
    };
    add(tr("&Title..."), "mnuTitle", &frmNLE::change_title);
    add(tr("Add r&ows..."), "mnuAddRows", &frmNLE::add_rows);
    menu->addSeparator();
    add(tr("New &nonlinear equation..."), "mnuNewRoot", &frmNLE::cmdNewRoot_Click);
    add(tr("New e&xplicit equation..."), "mnuNewEquation", &frmNLE::cmdNewEquation_Click);
    menu->addSeparator();
    row_items_ = {add(tr("&Edit equation..."), "mnuEdit", &frmNLE::cmdEdit_Click),
                  add(tr("Re&move equation"), "mnuRemove", &frmNLE::cmdRemove_Click),
                  add(tr("Rename &variable..."), "mnuRename", &frmNLE::rename_variable)};
    item_up_ = add(tr("Move u&p"), "mnuMoveUp", [this] { cmdUpDwn_Click(true); });
    item_down_ = add(tr("Move &down"), "mnuMoveDown", [this] { cmdUpDwn_Click(false); });
    return menu;
}

QMenu* frmNLE::build_solution_menu()
{
    auto* menu = new QMenu(tr("&Solution"), this);
    menu->addAction(context().frame.action(window_command::solve));
    menu->addAction(context().frame.action(window_command::stop));
    menu->addSeparator();
    menu->addAction(tr("&Refresh"), this, [this] { document_changed(); })
        ->setObjectName(QStringLiteral("mnuSolutionItem_2"));
    menu->addAction(tr("Show &list of variables"), this, &frmNLE::cmdShowallvars_Click)
        ->setObjectName(QStringLiteral("mnuSolutionItem_3"));
    return menu;
}

QMenu* frmNLE::build_examples_menu()
{
    auto* menu = new QMenu(tr("E&xamples"), this);
    int number = 0;
    for (const nle_content& sample : nle_samples()) {
        ++number;
        QString caption = to_qstring(sample.title);
        caption.replace(QString::number(number), QStringLiteral("&%1").arg(number));
        QAction* item = menu->addAction(caption, this, [this, number] { load_sample(number); });
        item->setObjectName(QStringLiteral("mnuSample%1").arg(number));
        changing_items_.append(item);
    }
    return menu;
}

QList<QMenu*> frmNLE::menus()
{
    main_frame& frame = context().frame;
    return {file_menu(),        edit_menu(),         solution_menu_,   examples_menu_,
            frame.tools_menu(), frame.window_menu(), frame.help_menu()};
}

void frmNLE::apply_colours()
{
    cmdRun_->setPalette(solving_palette(palette()));
    const QPalette quiet = quiet_palette(palette());
    lblMissing_->setPalette(quiet);
    lblTitle_->setPalette(problem_.title().empty() ? quiet : palette());
}

void frmNLE::changeEvent(QEvent* event)
{
    problem_window::changeEvent(event);
    // The palette turns from light to dark while the program runs.
    if (event->type() == QEvent::PaletteChange && stbNLE_) apply_colours();
}

QSize frmNLE::sizeHint() const
{
    return QSize(52, 28) * line_unit(*this);
}

} // namespace kelvarin

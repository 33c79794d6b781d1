// SPDX-License-Identifier: MIT
// The graph window: controls and menus.

#include "desktop/controls.h"
#include "desktop/elided_label.h"
#include "desktop/icons.h"
#include "desktop/look.h"
#include "desktop/qt_text.h"
#include "desktop/wrapping_row.h"
#include "graph/window/frmGraph.h"

#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QRadioButton>
#include <QStatusBar>
#include <QVBoxLayout>

namespace kelvarin
{

namespace
{

constexpr int lines_of_list = 4;

} // namespace

void frmGraph::build_ui()
{
    setWindowIcon(program_icon("graph"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    PicGraph_ = new graph_view;
    column->addWidget(PicGraph_, 1);
    column->addWidget(build_panel());
    auto* status = named(new QStatusBar, "stbGraph");
    status->setSizeGripEnabled(false);
    lblPoint_ = named(new elided_label, "lblPoint");
    status->addWidget(lblPoint_, 1);
    column->addWidget(status);
    setFocusProxy(PicGraph_);
    build_menus();
}

QWidget* frmGraph::build_panel()
{
    const int unit = line_unit(*this);
    auto* panel = new QWidget;
    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(unit / 2, unit / 2, unit / 2, 0);
    column->setSpacing(unit / 2);
    column->addWidget(build_choices());

    lstCurves_ = named(new QListWidget, "lstCurves");
    lstCurves_->setAccessibleName(tr("Curves"));
    lstCurves_->setToolTip(tr("What is ticked is drawn"));
    lstCurves_->setUniformItemSizes(true);
    lstCurves_->setContextMenuPolicy(Qt::CustomContextMenu);
    lstCurves_->setFixedHeight(lines_of_list * (unit + unit / 4) + 2 * lstCurves_->frameWidth());
    column->addWidget(lstCurves_);
    return panel;
}

QWidget* frmGraph::build_choices()
{
    auto* choices = new QWidget;
    auto* row = new wrapping_row(line_unit(*this) / 2);
    choices->setLayout(row);
    optScatter_ = named(new QRadioButton(tr("Sca&tters")), "optScatter");
    optScatter_->setToolTip(tr("List the curves of the data"));
    optFunction_ = named(new QRadioButton(tr("F&unctions")), "optFunction");
    optFunction_->setToolTip(tr("List the curves of functions of x"));
    optScatter_->setChecked(true);
    row->add_together({optScatter_, optFunction_});

    cmbX_ = named(new QComboBox, "cmbX");
    cmbX_->setToolTip(tr("The column along the x axis"));
    cmbX_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    constexpr int letters_of_name = 10;
    cmbX_->setMinimumContentsLength(letters_of_name);
    auto* caption = new QLabel(tr("x &axis"));
    caption->setBuddy(cmbX_);
    row->add_together({caption, cmbX_});

    cmdAddFunc_ = make_button(tr("A&dd..."), "cmdAddFunc", tr("Add a function of x"));
    cmdEditFunc_ = make_button(tr("Ed&it..."), "cmdEditFunc", tr("Edit the function"));
    cmdRemoveFunc_ = make_button(tr("Re&move"), "cmdRemoveFunc", tr("Remove the function"));
    cmdAddDerived_ = make_button(tr("&Derived curve..."), "cmdAddDerived", tr("Add a curve computed from others"));
    for (QPushButton* button : {cmdAddFunc_, cmdEditFunc_, cmdRemoveFunc_, cmdAddDerived_})
        row->addWidget(button);
    return choices;
}

template <class Act> QAction* frmGraph::add_item(QMenu& menu, const QString& caption, const char* name, Act act)
{
    return named(menu.addAction(caption, this, act), name);
}

void frmGraph::add_flag(QMenu& menu, const QString& caption, const char* name, content_flag flag)
{
    QAction* item = add_item(menu, caption, name, [this, flag] {
        graph_.set_flag(flag, !(content().*flag));
        document_changed();
    });
    item->setCheckable(true);
    flag_items_.push_back({item, flag});
}

void frmGraph::build_menus()
{
    main_frame& frame = context().frame;
    // Another graph is opened in a window of its own.
    for (QAction* item : file_menu()->actions())
        if (item->objectName() == QLatin1String("mnuOpen")) {
            file_menu()->insertAction(item, frame.action(window_command::open));
            file_menu()->removeAction(item);
        }
    edit_menu()->addAction(frame.action(window_command::copy));
    add_item(*edit_menu(), tr("Copy &Data"), "mnuCopyData", [this] { copy_data(false); });
    mnuCopyView_ = add_item(*edit_menu(), tr("Copy Data in &View"), "mnuCopyView", [this] { copy_data(true); });
    edit_menu()->addSeparator();
    add_item(*edit_menu(), tr("&Title..."), "mnuTitle", [this] { ask_text(drawn_role::title); });
    add_item(*edit_menu(), tr("&Sub Title..."), "mnuSubTitle", [this] { ask_text(drawn_role::subtitle); });
    QMenu* const move = edit_menu()->addMenu(tr("&Move"));
    add_item(*move, tr("&Title"), "mnuMoveTitle", [this] { PicGraph_->select_part(drawn_role::title); });
    add_item(*move, tr("&Sub Title"), "mnuMoveSubTitle", [this] { PicGraph_->select_part(drawn_role::subtitle); });
    add_item(*move, tr("&Legend"), "mnuMoveLegend", [this] { PicGraph_->select_part(drawn_role::legend); });

    build_graph_menu();
    build_view_menu();
    build_curves_menu();
    mnuX_ = named(new QMenu(tr("&X"), this), "mnuX");
    build_axis_menu(*mnuX_, true);
    mnuY_ = named(new QMenu(tr("&Y"), this), "mnuY");
    build_axis_menu(*mnuY_, false);
    build_grid_menu();
}

void frmGraph::build_graph_menu()
{
    mnuG_ = named(new QMenu(tr("&Graph"), this), "mnuG");
    add_item(*mnuG_, tr("&Refresh"), "mnuRefresh", [this] { document_changed(); });
    add_item(*mnuG_, tr("&Print"), "mnuPrint", [this] { perform(window_command::print); });
    add_item(*mnuG_, tr("Copy"), "mnuCopy", [this] { copy_picture(); });
    add_item(*mnuG_, tr("&Save"), "mnuSave", [this] { save(); });
    add_item(*mnuG_, tr("Save &As..."), "mnuSaveAs", [this] { save_as(); });
    mnuG_->addSeparator();
    add_item(*mnuG_, tr("P&icture Size..."), "mnuPictureSize", &frmGraph::mnuPictureSize_Click);
    add_item(*mnuG_, tr("&Export Data..."), "mnuExport", &frmGraph::export_data);
    mnuG_->addSeparator();
    add_item(*mnuG_, tr("&Close"), "mnuClose", [this] { close_with_frame(); });
}

void frmGraph::build_view_menu()
{
    mnuView_ = named(new QMenu(tr("&View"), this), "mnuView");
    const auto zoom = [this](double factor) { PicGraph_->zoom(factor); };
    constexpr double step = 1.5;
    add_item(*mnuView_, tr("Zoom &In\t+"), "mnuZoomIn", [zoom] { zoom(1.0 / step); });
    add_item(*mnuView_, tr("Zoom &Out\t-"), "mnuZoomOut", [zoom] { zoom(step); });
    mnuStepBack_ =
        add_item(*mnuView_, tr("View &Before\tBackspace"), "mnuStepBack", [this] { PicGraph_->step_back(); });
    mnuShowAll_ = add_item(*mnuView_, tr("&Whole Graph\tHome"), "mnuShowAll", [this] { PicGraph_->show_all(); });
    mnuKeepView_ = add_item(*mnuView_, tr("&Keep This View"), "mnuKeepView", &frmGraph::keep_view);
    mnuView_->addSeparator();
    mnuLogX_ =
        add_item(*mnuView_, tr("Log &x (not saved)"), "mnuLogX", [this] { set_log(true, mnuLogX_->isChecked()); });
    mnuLogY_ =
        add_item(*mnuView_, tr("Log &y (not saved)"), "mnuLogY", [this] { set_log(false, mnuLogY_->isChecked()); });
    mnuLogX_->setCheckable(true);
    mnuLogY_->setCheckable(true);
    mnuView_->addSeparator();
    add_item(*mnuView_, tr("&Restore xy"), "mnuRestore", [this] {
        PicGraph_->show_all();
        graph_.restore_xy();
        document_changed();
    });
}

void frmGraph::build_curves_menu()
{
    mnuCurves_ = named(new QMenu(tr("&Curves"), this), "mnuCurves");
    add_flag(*mnuCurves_, tr("&Auto Scale"), "mnuAutoScale", &graph_content::auto_scale);
    add_flag(*mnuCurves_, tr("Scatter &Connected"), "mnuConnected", &graph_content::scatter_connected);
    add_flag(*mnuCurves_, tr("Draw &Points"), "mnuDrawPoints", &graph_content::draw_points);
    mnuCurves_->addSeparator();
    add_item(*mnuCurves_, tr("Add &Function..."), "mnuAddFunc", &frmGraph::cmdAddFunc_Click);
    function_items_ = {add_item(*mnuCurves_, tr("&Edit Function..."), "mnuEditFunc", &frmGraph::cmdEditFunc_Click),
                       add_item(*mnuCurves_, tr("&Remove Function"), "mnuRemoveFunc", &frmGraph::cmdRemoveFunc_Click)};
    add_item(*mnuCurves_, tr("Add &Derived Scatter Curve..."), "mnuAddDerived", &frmGraph::cmdAddDerived_Click);
    add_item(*mnuCurves_, tr("&Sort"), "mnuSort", [this] {
        graph_.sort_by_x();
        document_changed();
    });
    mnuCurves_->addSeparator();
    add_item(*mnuCurves_, tr("&Line Width..."), "mnuLineWidth", [this] {
        ask_width(&graph_content::line_width, QStringLiteral("Enter curve line width. (1 < width < 4)."));
    });
    add_item(*mnuCurves_, tr("&Marker Size..."), "mnuMarkerSize", &frmGraph::ask_marker_size);
}

void frmGraph::build_axis_menu(QMenu& menu, bool is_x)
{
    const QString axis = is_x ? QStringLiteral("x") : QStringLiteral("y");
    const auto name = [is_x](const char* of_x, const char* of_y) { return is_x ? of_x : of_y; };
    add_item(menu, tr("M&ax Value..."), name("mnuXMax", "mnuYMax"), [this, is_x, axis] {
        ask_limit(is_x ? axis_end::xmax : axis_end::ymax, QStringLiteral("Enter %1 max value.").arg(axis));
    });
    add_item(menu, tr("M&in Value..."), name("mnuXMin", "mnuYMin"), [this, is_x, axis] {
        ask_limit(is_x ? axis_end::xmin : axis_end::ymin, QStringLiteral("Enter %1 min value.").arg(axis));
    });
    menu.addSeparator();
    axis_label_format graph_content::*const labels = is_x ? &graph_content::x_labels : &graph_content::y_labels;
    const auto add_format = [&](const QString& caption, const char* item_name, axis_label_format format) {
        QAction* item = named(menu.addAction(caption), item_name);
        item->setCheckable(true);
        connect(item, &QAction::triggered, this,
                [this, labels, format](bool on) { set_label_format(labels, format, on); });
        format_items_.push_back({item, labels, format});
    };
    add_format(tr("&Sci Labels"), name("mnuXSciLables", "mnuYSciLables"), axis_label_format::scientific);
    add_format(tr("&Eng Labels"), name("mnuXEngLables", "mnuYEngLables"), axis_label_format::engineering);
    menu.addSeparator();
    add_item(menu, tr("&Title..."), name("mnuXTitle", "mnuYTitle"),
             [this, is_x] { ask_text(is_x ? drawn_role::x_title : drawn_role::y_title); });
}

void frmGraph::build_grid_menu()
{
    mnuGrid_ = named(new QMenu(tr("G&rid"), this), "mnuGrid");
    add_flag(*mnuGrid_, tr("&Horizontal Gridlines"), "mnuHorGridline", &graph_content::hor_gridline);
    add_flag(*mnuGrid_, tr("&Vertical Gridlines"), "mnuVerGridline", &graph_content::ver_gridline);
    add_item(*mnuGrid_, tr("&Axis Ticks..."), "mnuTicks", &frmGraph::ask_ticks);
    mnuGrid_->addSeparator();
    add_item(*mnuGrid_, tr("&Margines..."), "mnuMarginesItem", &frmGraph::ask_margins);
    add_item(*mnuGrid_, tr("&Border Width..."), "mnuBorderWidth", [this] {
        ask_width(&graph_content::border_width,
                  QStringLiteral("Enter graph border curve line width. (1 < width < 4)."));
    });
    mnuGrid_->addSeparator();
    add_item(*mnuGrid_, tr("&Font..."), "mnuFont", [this] { ask_font(&graph_content::axes_font); });
    add_item(*mnuGrid_, tr("&Title Font..."), "mnuTitleFont", [this] { ask_font(&graph_content::title_font); });
    add_item(*mnuGrid_, tr("&Sub Title Font..."), "mnuSubTitleFont",
             [this] { ask_font(&graph_content::subtitle_font); });
}

QList<QMenu*> frmGraph::menus()
{
    main_frame& frame = context().frame;
    return {file_menu(),         edit_menu(),      mnuG_, mnuView_, mnuCurves_, mnuX_, mnuY_, mnuGrid_,
            frame.window_menu(), frame.help_menu()};
}

void frmGraph::connect_controls()
{
    connect(PicGraph_, &graph_view::told, lblPoint_, &elided_label::show_text);
    connect(PicGraph_, &graph_view::point_clicked, this, &frmGraph::point_clicked);
    connect(PicGraph_, &graph_view::part_moved, this, &frmGraph::part_moved);
    connect(PicGraph_, &graph_view::edit_asked, this, &frmGraph::ask_text);
    connect(PicGraph_, &graph_view::view_changed, this, &frmGraph::show_view_state);
    connect(PicGraph_, &graph_view::style_changed, this, &frmGraph::show_list);
    connect(PicGraph_, &graph_view::drawing_failed, this,
            [this](const QString& reason) { context().user.show(this, drawing_failure_box(to_text(reason))); });
    connect(PicGraph_, &graph_view::menu_asked, this,
            [this](const QPoint& global_position) { mnuView_->popup(global_position); });
    for (QRadioButton* choice : {optScatter_, optFunction_})
        connect(choice, &QRadioButton::clicked, this, &frmGraph::show_list);
    connect(lstCurves_, &QListWidget::itemChanged, this, &frmGraph::lstCurves_ItemCheck);
    connect(lstCurves_, &QListWidget::currentRowChanged, this, &frmGraph::show_view_state);
    connect(lstCurves_, &QListWidget::itemDoubleClicked, this, [this] {
        if (shows_functions()) cmdEditFunc_Click();
    });
    connect(lstCurves_, &QWidget::customContextMenuRequested, this, &frmGraph::show_list_menu);
    connect(cmbX_, &QComboBox::activated, this, &frmGraph::cmbX_Click);
    connect(cmdAddFunc_, &QPushButton::clicked, this, &frmGraph::cmdAddFunc_Click);
    connect(cmdEditFunc_, &QPushButton::clicked, this, &frmGraph::cmdEditFunc_Click);
    connect(cmdRemoveFunc_, &QPushButton::clicked, this, &frmGraph::cmdRemoveFunc_Click);
    connect(cmdAddDerived_, &QPushButton::clicked, this, &frmGraph::cmdAddDerived_Click);
}

} // namespace kelvarin

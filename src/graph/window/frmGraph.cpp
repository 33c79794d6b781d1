// SPDX-License-Identifier: MIT
#include "graph/window/frmGraph.h"

#include "desktop/controls.h"
#include "desktop/elided_label.h"
#include "desktop/look.h"
#include "desktop/qt_text.h"
#include "graph/axis_limits.h"
#include "graph/graph_curves.h"
#include "graph/graph_functions.h"
#include "graph/graph_kind.h"
#include "graph/number_text.h"
#include "platform/format_mask.h"
#include "shell/document/run_outcome.h"

#include <QComboBox>
#include <QListWidget>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>

#include <utility>

namespace kelvarin
{

frmGraph::frmGraph(desktop_context& context) : problem_window(context, graph_kind())
{
    build_ui();
    connect_controls();
    document_changed();
}

frmGraph::frmGraph(desktop_context& context, graph_content start)
    : problem_window(context, graph_kind()), graph_(std::move(start))
{
    build_ui();
    connect_controls();
    document_changed();
}

frmGraph::~frmGraph()
{
    // A control with the focus tells its end of it when this window's part is gone.
    const auto children = findChildren<QObject*>();
    for (QObject* child : children)
        child->disconnect(this);
}

void frmGraph::set_styles(std::span<const std::pair<drawn_part, curve_style>> styles)
{
    for (const auto& [part, style] : styles)
        PicGraph_->set_style(part, style);
}

void frmGraph::offer_curves(const QString& caption, const char* name, added_curves curves,
                            std::vector<curve_style> styles)
{
    QAction* const first = mnuCurves_->actions().front();
    QAction* const item = named(new QAction(caption, this), name);
    connect(item, &QAction::triggered, this, &frmGraph::add_offered_curves);
    mnuCurves_->insertAction(first, item);
    mnuCurves_->insertSeparator(first);
    offer_ = {item, std::move(curves), std::move(styles)};
}

void frmGraph::add_offered_curves()
{
    // Functions are numbered behind the curves, and keep their looks.
    for (std::size_t i = 0; i < content().functions.size(); ++i) {
        const drawn_part part = {drawn_role::function, static_cast<int>(i)};
        PicGraph_->set_style(part, PicGraph_->style_of(part));
    }
    for (std::size_t i = 0; i < offer_->styles.size(); ++i)
        PicGraph_->set_style({drawn_role::curve, static_cast<int>(content().curve_count() + i)}, offer_->styles[i]);
    graph_.add_curves(offer_->curves);
    document_changed();
}

void frmGraph::set_problem(problem_window& problem)
{
    problem_ = &problem;
    // Whether it can be solved again depends on the problem.
    connect(&problem, &problem_window::state_changed, this, &frmGraph::state_changed);
    // Queued: the windows around both may be in the middle of their destruction.
    connect(&problem, &QObject::destroyed, this, &frmGraph::state_changed, Qt::QueuedConnection);
}

void frmGraph::solve()
{
    if (!can_solve()) return;
    context().frame.bring_to_front(*problem_);
    problem_->perform(window_command::solve);
}

QString frmGraph::document_caption() const
{
    return content().caption.empty() ? problem_window::document_caption() : to_qstring(content().caption);
}

std::string frmGraph::question_on_close() const
{
    return context().store.is_true("Graph_query_unload_save") ? problem_window::question_on_close() : std::string();
}

bool frmGraph::can(window_command which) const
{
    return which == window_command::copy || problem_window::can(which);
}

void frmGraph::perform(window_command which)
{
    if (which == window_command::copy)
        copy_picture();
    else
        problem_window::perform(which);
}

void frmGraph::show_document()
{
    PicGraph_->show_graph(content());
    show_columns();
    show_list();
    show_checks();
    show_view_state();
    const std::optional<message_box> refused =
        content().point_count() > 0 ? drawing_refusal(find_axis_limits(content())) : std::nullopt;
    const bool tells = refused && !std::exchange(refusal_told_, refused.has_value());
    refusal_told_ = refused.has_value();
    // Queued: what changed the document comes to its end first.
    if (tells)
        QMetaObject::invokeMethod(
            this, [this, box = *refused] { context().user.show(this, box); }, Qt::QueuedConnection);
}

void frmGraph::show_columns()
{
    const QSignalBlocker quiet(cmbX_);
    cmbX_->clear();
    for (const graph_column& column : content().columns)
        cmbX_->addItem(to_qstring(column.name));
    cmbX_->setCurrentIndex(0);
    cmbX_->setEnabled(content().columns.size() > 1);
}

bool frmGraph::shows_functions() const
{
    return optFunction_->isChecked();
}

int frmGraph::current_line() const
{
    return lstCurves_->currentRow();
}

QIcon frmGraph::sample_of(drawn_part part) const
{
    const int height = line_unit(*this);
    const QSize size(2 * height, height);
    QPixmap picture(size * devicePixelRatioF());
    picture.setDevicePixelRatio(devicePixelRatioF());
    picture.fill(Qt::white);
    QPainter painter(&picture);
    constexpr double points_per_pixel = 0.75;
    painter.scale(1.0 / points_per_pixel, 1.0 / points_per_pixel);
    const curve_style style = PicGraph_->style_of(part);
    const double middle = size.height() * points_per_pixel / 2.0;
    const double length = size.width() * points_per_pixel;
    drawn_picture sample;
    const bool markers = part.role == drawn_role::curve && content().draw_points && !style.always_line;
    if (content().scatter_connected || !markers)
        sample.shapes.emplace_back(
            drawn_path{part, curve_stroke(content(), style), {{1.0, middle}, {length - 1.0, middle}}, {0}});
    if (markers) sample.shapes.emplace_back(markers_at(content(), style, part, {{length / 2.0, middle}}));
    paint_picture(painter, sample);
    painter.end();
    QIcon icon(picture);
    // The colour of a selected line must not mix with that of the curve.
    icon.addPixmap(picture, QIcon::Selected);
    return icon;
}

void frmGraph::show_list()
{
    const QSignalBlocker quiet(lstCurves_);
    const int row = current_line();
    const bool functions = shows_functions();
    const auto count = functions ? content().functions.size() : content().curve_count();
    const bool fits = lstCurves_->count() == static_cast<int>(count);
    if (!fits) lstCurves_->clear();
    const int height = line_unit(*this);
    lstCurves_->setIconSize(QSize(2 * height, height));
    for (std::size_t i = 0; i < count; ++i) {
        QListWidgetItem* item =
            fits ? lstCurves_->item(static_cast<int>(i)) : new QListWidgetItem(QString(), lstCurves_);
        const drawn_part part = {functions ? drawn_role::function : drawn_role::curve, static_cast<int>(i)};
        const bool visible = functions ? content().functions[i].visible : content().curve_visible[i];
        item->setText(to_qstring(functions ? content().functions[i].text : content().columns[i + 1].name));
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(visible ? Qt::Checked : Qt::Unchecked);
        item->setIcon(sample_of(part));
    }
    if (count > 0) lstCurves_->setCurrentRow(std::clamp(row, 0, static_cast<int>(count) - 1));
    show_view_state();
}

void frmGraph::show_checks()
{
    for (const flag_item& each : flag_items_)
        each.item->setChecked(content().*each.flag);
    for (const format_item& each : format_items_)
        each.item->setChecked(content().*each.axis == each.format);
    if (!offer_) return;
    const bool present = std::ranges::any_of(content().columns, [this](const graph_column& column) {
        return column.name == offer_->curves.curves.front().name;
    });
    offer_->item->setEnabled(!present);
}

void frmGraph::show_view_state()
{
    const bool functions = shows_functions();
    const bool on_function = functions && current_line() >= 0;
    cmdAddFunc_->setVisible(functions);
    cmdEditFunc_->setVisible(functions);
    cmdRemoveFunc_->setVisible(functions);
    cmdAddDerived_->setVisible(!functions);
    cmdEditFunc_->setEnabled(on_function);
    cmdRemoveFunc_->setEnabled(on_function);
    for (QAction* item : function_items_)
        item->setEnabled(on_function);
    const bool zoomed = PicGraph_->is_zoomed();
    for (QAction* item : {mnuStepBack_, mnuShowAll_, mnuKeepView_, mnuCopyView_})
        item->setEnabled(zoomed);
    mnuLogX_->setChecked(PicGraph_->scales().x == axis_scale::logarithmic);
    mnuLogY_->setChecked(PicGraph_->scales().y == axis_scale::logarithmic);
}

void frmGraph::lstCurves_ItemCheck(const QListWidgetItem* item)
{
    const auto line = static_cast<std::size_t>(lstCurves_->row(item));
    const bool visible = item->checkState() == Qt::Checked;
    if (shows_functions())
        graph_.show_function(line, visible);
    else
        graph_.show_curve(line, visible);
    document_changed();
}

void frmGraph::cmbX_Click(int column)
{
    graph_.use_as_x(static_cast<std::size_t>(column));
    // The view and the hidden curves belong to the columns before.
    PicGraph_->show_all();
    PicGraph_->forget_parts();
    document_changed();
}

std::optional<std::string> frmGraph::ask(const QString& prompt, const std::string& proposed, const QString& title)
{
    const std::optional<QString> given = context().user.input(this, title, prompt, to_qstring(proposed));
    if (!given) return std::nullopt;
    return to_text(*given);
}

void frmGraph::cmdAddFunc_Click()
{
    if (const std::optional<message_box> refused = check_function_count(content()))
        return context().user.show(this, *refused);
    const std::optional<std::string> text =
        ask(QStringLiteral("Enter new y function curve.\nNumeric expression as function of x,\nFor example: "
                           "x*(sin(x)+2)\nChange the y scale if the curve cannot be seen."),
            "", QStringLiteral("Kelvarin"));
    if (!text) return;
    if (const auto refused = graph_.add_function(*text)) return context().user.show(this, *refused);
    optFunction_->setChecked(true);
    document_changed();
    lstCurves_->setCurrentRow(lstCurves_->count() - 1);
}

void frmGraph::cmdEditFunc_Click()
{
    if (!shows_functions() || current_line() < 0) return;
    const auto function = static_cast<std::size_t>(current_line());
    const std::optional<std::string> text =
        ask(QStringLiteral("Edit y function curve\n(Numeric expression as function of x)."),
            content().functions[function].text, QStringLiteral("Kelvarin"));
    if (text) changed_or_refused(graph_.edit_function(function, *text));
}

void frmGraph::cmdRemoveFunc_Click()
{
    if (!shows_functions() || current_line() < 0) return;
    graph_.remove_function(static_cast<std::size_t>(current_line()));
    PicGraph_->forget_parts();
    document_changed();
}

void frmGraph::cmdAddDerived_Click()
{
    const QString title = QStringLiteral("Add derived scatter curve");
    const std::optional<std::string> name =
        ask(QStringLiteral("Step 1 of 2.\nEnter the name of derived function curve. This must be a valid and unique "
                           "variable name."),
            "", title);
    if (!name) return;
    if (const auto refused = check_derived_name(content(), *name)) return context().user.show(this, *refused);
    const std::optional<std::string> text =
        ask(QStringLiteral("Step 2 of 2.\nEnter the algebric expression as function of other scatter curve names."), "",
            title);
    if (!text) return;
    if (const auto refused = graph_.add_derived_curve(*name, *text)) return context().user.show(this, *refused);
    optScatter_->setChecked(true);
    document_changed();
    lstCurves_->setCurrentRow(lstCurves_->count() - 1);
}

void frmGraph::ask_limit(axis_end end, const QString& prompt)
{
    const axis_limits found = find_axis_limits(content());
    const axis_range x = found.ok() ? found.x : content().x_range;
    const axis_range y = found.ok() && found.y ? *found.y : content().y_range;
    const double now = end == axis_end::xmin   ? x.min
                       : end == axis_end::xmax ? x.max
                       : end == axis_end::ymin ? y.min
                                               : y.max;
    const std::string shown = format_masked(now, "0.000");
    std::optional<std::string> typed = ask(prompt, shown);
    if (!typed) return;
    // What was not changed keeps its value, which may need more digits than are shown.
    if (*typed == shown) typed = exact_text(now);
    if (!graph_.content().x_manual && !graph_.content().y_manual) PicGraph_->show_all();
    changed_or_refused(graph_.set_axis_limit(end, *typed));
}

void frmGraph::ask_ticks()
{
    if (const auto typed = ask(QStringLiteral("Enter number of axis ticks."), std::to_string(content().ticks)))
        changed_or_refused(graph_.set_ticks(*typed));
}

void frmGraph::ask_margins()
{
    struct margin_question
    {
        const char* prompt;
        int graph_margins::*side;
    };
    constexpr margin_question questions[] = {{"Enter Left Margine size.", &graph_margins::left},
                                             {"Enter Right Margine size.", &graph_margins::right},
                                             {"Enter Upper Margine size.", &graph_margins::top},
                                             {"Enter Bottom Margine size.", &graph_margins::bottom}};
    for (const margin_question& each : questions) {
        const auto typed = ask(to_qstring(each.prompt), std::to_string(content().margins.*each.side));
        if (!typed) return;
        const auto refused = graph_.set_margin(each.side, *typed);
        changed_or_refused(refused);
        if (refused) return;
    }
}

void frmGraph::ask_width(int graph_content::*width, const QString& prompt)
{
    if (const auto typed = ask(prompt, std::to_string(content().*width)))
        changed_or_refused(graph_.set_width(width, *typed));
}

void frmGraph::ask_marker_size()
{
    const QString prompt = QStringLiteral("Enter the data point marker size (value should be between 1-300).");
    if (const auto typed = ask(prompt, std::to_string(content().marker_size)))
        changed_or_refused(graph_.set_marker_size(*typed));
}

void frmGraph::ask_font(graph_font graph_content::*font)
{
    QFont present = toolkit_font(content().*font);
    present.setPointSizeF((content().*font).size);
    const std::optional<QFont> chosen = context().user.choose_font(this, present);
    if (!chosen) return;
    graph_font next = content().*font;
    // The usual font stays the usual one, whatever is installed in its place.
    if (chosen->families() != present.families()) next.name = to_text(chosen->family());
    next.bold = chosen->bold();
    next.italic = chosen->italic();
    if (chosen->pointSizeF() > 0.0) next.size = chosen->pointSizeF();
    graph_.set_font(font, next);
    document_changed();
}

void frmGraph::ask_text(drawn_role role)
{
    switch (role) {
    case drawn_role::title:
        if (const auto typed = ask(QStringLiteral("Enter new title."), content().title)) graph_.set_title(*typed);
        break;
    case drawn_role::subtitle:
        if (const auto typed = ask(QStringLiteral("Enter new sub title. "), content().subtitle))
            graph_.set_subtitle(*typed);
        break;
    case drawn_role::x_title:
        if (const auto typed = ask(tr("Enter new x title."), content().x_title))
            graph_.set_axis_title(&graph_content::x_title, *typed);
        break;
    case drawn_role::y_title:
        if (const auto typed = ask(tr("Enter new y title."), content().y_title))
            graph_.set_axis_title(&graph_content::y_title, *typed);
        break;
    default:
        return;
    }
    document_changed();
}

void frmGraph::set_label_format(axis_label_format graph_content::*axis, axis_label_format format, bool on)
{
    graph_.set_label_format(axis, on ? format : axis_label_format::plain);
    document_changed();
}

void frmGraph::part_moved(drawn_role role, graph_place place)
{
    std::optional<graph_place> graph_content::*const part = role == drawn_role::title ? &graph_content::title_place
                                                            : role == drawn_role::subtitle
                                                                ? &graph_content::subtitle_place
                                                                : &graph_content::legend_place;
    graph_.move_part(part, place, PicGraph_->size_in_twips());
    document_changed();
}

void frmGraph::keep_view()
{
    const std::optional<axis_limits> view = PicGraph_->looks().view;
    if (!view || !view->y) return;
    graph_.keep_view(view->x, *view->y);
    PicGraph_->show_all();
    document_changed();
}

void frmGraph::set_log(bool is_x, bool on)
{
    axis_scales scales = PicGraph_->scales();
    (is_x ? scales.x : scales.y) = on ? axis_scale::logarithmic : axis_scale::linear;
    PicGraph_->set_scales(scales);
}

frmGraph* show_new_graph(desktop_context& context, problem_window& problem, const std::function<graph_content()>& start,
                         std::span<const std::pair<drawn_part, curve_style>> styles)
{
    std::unique_ptr<frmGraph> window;
    run_outcome starting;
    guard_run(starting, {start_failure_box, {}}, [&] {
        graph_content graph = start();
        if (std::optional<message_box> refused = drawing_refusal(find_axis_limits(graph)))
            return starting.refuse(std::move(*refused));
        window = std::make_unique<frmGraph>(context, std::move(graph));
        window->set_styles(styles);
    });
    if (!starting.boxes.empty()) {
        context.user.show(&problem, starting.boxes.front());
        return nullptr;
    }
    window->set_problem(problem);
    frmGraph* const shown = window.release();
    context.frame.show_child(shown, &problem);
    return shown;
}

void open_graph(desktop_context& context, const std::filesystem::path& path)
{
    auto window = std::make_unique<frmGraph>(context);
    // A refused file must not leave an empty window.
    if (window->open(path)) context.frame.show_child(window.release());
}

bool recover_graph(desktop_context& context, int slot, const recovery_entry& entry)
{
    auto window = std::make_unique<frmGraph>(context);
    if (!window->recover(slot, entry)) return false;
    context.frame.show_child(window.release());
    return true;
}

} // namespace kelvarin

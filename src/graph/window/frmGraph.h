// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/problem_window.h"
#include "graph/graph_document.h"
#include "graph/window/graph_picture.h"
#include "graph/window/graph_view.h"

#include <QPointer>

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

class QActionGroup;
class QComboBox;
class QLabel;
class QListWidget;
class QListWidgetItem;
class QPushButton;
class QRadioButton;

namespace kelvarin
{

class elided_label;

/// The graph window: shows a graph, the list of its curves or functions, and menus for everything that a person
/// changes. The rules are in graph_document.
class frmGraph : public problem_window
{
    Q_OBJECT

public:
    explicit frmGraph(desktop_context& context);
    /// Shows the graph of a run; it is unsaved.
    frmGraph(desktop_context& context, graph_content start);
    ~frmGraph() override;

    using problem_window::document;
    graph_document& document() override { return graph_; }
    /// The problem whose run made the graph.
    void set_problem(problem_window& problem);
    /// Draws curves in styles of their own while the window lives.
    void set_styles(std::span<const std::pair<drawn_part, curve_style>> styles);
    problem_window* its_problem() override { return problem_; }
    /// Offers curves as a menu item, which adds them as lines in these styles. One offer a window.
    void offer_curves(const QString& caption, const char* name, added_curves curves, std::vector<curve_style> styles);

    QList<QMenu*> menus() override;
    bool can(window_command which) const override;
    void perform(window_command which) override;

signals:
    /// A point of a curve, from 0, was clicked.
    void point_clicked(int point);

protected:
    void show_document() override;
    /// A graph has no runs.
    void enable_controls_for_run(bool) override {}
    bool can_solve() const override { return problem_ && problem_->can(window_command::solve); }
    void solve() override;
    QString document_caption() const override;
    std::string question_on_close() const override;
    file_question save_question() const override;
    bool write_file(const std::filesystem::path& path, int filter_index) override;
    bool print_pages(QPagedPaintDevice& device) const override;

private:
    using content_flag = bool graph_content::*;

    void build_ui();
    QWidget* build_panel();
    QWidget* build_choices();
    void build_menus();
    void build_graph_menu();
    void build_view_menu();
    void build_curves_menu();
    void build_axis_menu(QMenu& menu, bool is_x);
    void build_grid_menu();
    template <class Act> QAction* add_item(QMenu& menu, const QString& caption, const char* name, Act act);
    void add_flag(QMenu& menu, const QString& caption, const char* name, content_flag flag);
    void connect_controls();

    const graph_content& content() const { return graph_.content(); }
    void show_list();
    void show_columns();
    void show_checks();
    void add_offered_curves();
    void show_view_state();
    QIcon sample_of(drawn_part part) const;
    bool shows_functions() const;
    /// The curve or function of the list's current line; -1 if there is none.
    int current_line() const;

    void lstCurves_ItemCheck(const QListWidgetItem* item);
    void cmbX_Click(int column);
    void cmdAddFunc_Click();
    void cmdEditFunc_Click();
    void cmdRemoveFunc_Click();
    void cmdAddDerived_Click();
    void show_list_menu(const QPoint& position);

    std::optional<std::string> ask(const QString& prompt, const std::string& proposed,
                                   const QString& title = QStringLiteral("Kelvarin Graph"));
    void ask_limit(axis_end end, const QString& prompt);
    void ask_margins();
    void ask_ticks();
    void ask_width(int graph_content::*width, const QString& prompt);
    void ask_marker_size();
    void ask_font(graph_font graph_content::*font);
    void ask_text(drawn_role role);
    void set_label_format(axis_label_format graph_content::*axis, axis_label_format format, bool on);
    void part_moved(drawn_role role, graph_place place);
    void keep_view();
    void set_log(bool is_x, bool on);

    void copy_picture();
    void copy_data(bool of_view);
    void export_data();
    void mnuPictureSize_Click();
    /// The size of saved pictures: asked once, then remembered.
    std::optional<picture_size> size_of_pictures(bool asks_again);
    picture_size size_of_window() const;
    void write_picture(const std::filesystem::path& path, picture_format format);

    graph_document graph_;
    QPointer<problem_window> problem_;
    /// A graph that can't be drawn has been told of.
    bool refusal_told_ = false;

    graph_view* PicGraph_ = nullptr;
    QRadioButton* optScatter_ = nullptr;
    QRadioButton* optFunction_ = nullptr;
    QComboBox* cmbX_ = nullptr;
    QListWidget* lstCurves_ = nullptr;
    QPushButton* cmdAddFunc_ = nullptr;
    QPushButton* cmdEditFunc_ = nullptr;
    QPushButton* cmdRemoveFunc_ = nullptr;
    QPushButton* cmdAddDerived_ = nullptr;
    elided_label* lblPoint_ = nullptr;

    QMenu* mnuG_ = nullptr;
    QMenu* mnuView_ = nullptr;
    QMenu* mnuCurves_ = nullptr;
    QMenu* mnuX_ = nullptr;
    QMenu* mnuY_ = nullptr;
    QMenu* mnuGrid_ = nullptr;
    struct flag_item
    {
        QAction* item = nullptr;
        content_flag flag{};
    };
    std::vector<flag_item> flag_items_;
    struct format_item
    {
        QAction* item = nullptr;
        axis_label_format graph_content::*axis{};
        axis_label_format format{};
    };
    std::vector<format_item> format_items_;
    struct curve_offer
    {
        QAction* item = nullptr;
        added_curves curves;
        std::vector<curve_style> styles;
    };
    std::optional<curve_offer> offer_;
    QList<QAction*> function_items_;
    QAction* mnuStepBack_ = nullptr;
    QAction* mnuShowAll_ = nullptr;
    QAction* mnuKeepView_ = nullptr;
    QAction* mnuLogX_ = nullptr;
    QAction* mnuLogY_ = nullptr;
    QAction* mnuCopyView_ = nullptr;
};

/// Shows the graph of a run, which `start` makes, in a new window beside its problem, which the frame owns, and returns
/// it. A graph that can't be drawn, or a failure on the way, gives a box instead.
frmGraph* show_new_graph(desktop_context& context, problem_window& problem, const std::function<graph_content()>& start,
                         std::span<const std::pair<drawn_part, curve_style>> styles = {});

/// Opens a graph file in a new window, which the frame owns.
void open_graph(desktop_context& context, const std::filesystem::path& path);

/// Opens a graph of a recovery file. Returns false if it can't be read.
bool recover_graph(desktop_context& context, int slot, const recovery_entry& entry);

} // namespace kelvarin

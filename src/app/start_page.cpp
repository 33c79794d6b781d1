// SPDX-License-Identifier: MIT
#include "app/start_page.h"

#include "app/background_picture.h"
#include "app/problem_kinds.h"
#include "desktop/icons.h"
#include "desktop/look.h"
#include "desktop/qt_text.h"
#include "graph/graph_kind.h"
#include "kinds/kinds.h"
#include "platform/data_files.h"
#include "shell/document/example_files.h"
#include "shell/document/recent_files.h"

#include <QAction>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QToolButton>
#include <QVBoxLayout>

#include <map>
#include <optional>
#include <string>

namespace kelvarin
{

namespace
{

struct recent_file
{
    const problem_kind* kind = nullptr;
    std::filesystem::path path;
};

/// The latest file of each kind first, then each second one and so on: the times are not stored.
std::vector<recent_file> recent_files_of_all_kinds(const registry_store& registry)
{
    std::vector<const problem_kind*> kinds;
    for (const problem_window_kind& kind : problem_window_kinds())
        kinds.push_back(kind.row);
    kinds.push_back(&graph_kind());
    std::vector<recent_file> files;
    for (std::size_t place = 0; place < recent_file_limit; ++place)
        for (const problem_kind* kind : kinds) {
            const auto of_kind = load_recent_files(registry, kind->recent_suffix);
            if (place < of_kind.size()) files.push_back({kind, of_kind[place]});
        }
    return files;
}

} // namespace

start_page::start_page(const command_actions& actions, const registry_store& registry, QWidget* parent)
    : QScrollArea(parent), registry_(registry), content_(new QWidget)
{
    setObjectName(QStringLiteral("start_page"));
    setAccessibleName(tr("Start page"));
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    build_ui(actions);
    setWidget(content_);
    setWidgetResizable(true);
    // Lets the page's background and picture show.
    content_->setAutoFillBackground(false);
}

void start_page::build_ui(const command_actions& actions)
{
    const int unit = line_unit(*this);
    auto* whole = new QVBoxLayout(content_);
    whole->setContentsMargins(2 * unit, unit, 2 * unit, unit);
    auto* columns = new QHBoxLayout;
    columns->setSpacing(2 * unit);
    whole->addStretch(1);
    whole->addLayout(columns);
    whole->addStretch(2);

    columns->addStretch(1);
    QBoxLayout* fresh = add_column(*columns, tr("New problem"));
    for (const problem_window_kind& kind : problem_window_kinds()) {
        const std::string name = std::string("cmdNew_") + kind.row->key;
        QToolButton* row = add_row(*fresh, program_icon(kind.row->key), tr(kind.row->name), name.c_str());
        QAction* command = actions.action(kind.fresh);
        row->setToolTip(command->toolTip());
        connect(row, &QToolButton::clicked, command, &QAction::trigger);
    }
    fresh->addStretch();

    recent_column_ = add_column(*columns, tr("Recent"));
    recent_column_->addStretch();

    QBoxLayout* examples = add_column(*columns, tr("Examples"));
    add_examples(*examples);
    examples->addStretch();
    columns->addStretch(1);
}

void start_page::add_examples(QBoxLayout& column)
{
    const std::optional<std::filesystem::path> folder = find_data_folder("examples");
    if (!folder) return;
    int number = 0;
    for (const example_file& example : example_files(*folder, problem_kinds())) {
        const std::string name = "cmdExample_" + std::to_string(++number);
        QToolButton* row = add_row(column, program_icon(example.kind->key), to_qstring(example.title), name.c_str());
        row->setToolTip(tr("Open this example in a new window (%1)").arg(tr(example.kind->name)));
        connect(row, &QToolButton::clicked, this, [this, path = example.path] { emit example_chosen(path); });
    }
}

QBoxLayout* start_page::add_column(QBoxLayout& columns, const QString& heading)
{
    auto* column = new QVBoxLayout;
    column->setSpacing(line_unit(*this) / 4);
    auto* title = new QLabel(heading, content_);
    QFont font = title->font();
    font.setPointSizeF(font.pointSizeF() * 1.25);
    font.setBold(true);
    title->setFont(font);
    title->setContentsMargins(line_unit(*this) / 3, 0, 0, line_unit(*this) / 3);
    column->addWidget(title);
    columns.addLayout(column, 3);
    return column;
}

QToolButton* start_page::add_row(QBoxLayout& column, const QIcon& picture, const QString& caption, const char* name)
{
    auto* row = new QToolButton(content_);
    row->setObjectName(QString::fromLatin1(name));
    row->setIcon(picture);
    row->setIconSize(QSize(line_unit(*this), line_unit(*this)) * 3 / 2);
    row->setText(QString(caption).replace(QLatin1Char('&'), QStringLiteral("&&")));
    row->setAccessibleName(caption);
    row->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    row->setAutoRaise(true);
    row->setFocusPolicy(Qt::StrongFocus);
    row->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    column.addWidget(row);
    row->installEventFilter(this);
    return row;
}

void start_page::show_recent_files()
{
    qDeleteAll(recent_rows_);
    recent_rows_.clear();
    // The stretch at the end is replaced by a new one after the new rows.
    delete recent_column_->takeAt(recent_column_->count() - 1);

    const std::vector<recent_file> files = recent_files_of_all_kinds(registry_);
    std::map<std::string, int> times_named;
    for (const recent_file& file : files)
        ++times_named[file.path.filename().string()];
    for (std::size_t i = 0; i < files.size(); ++i) {
        const std::filesystem::path& path = files[i].path;
        const std::string file_name = path.filename().string();
        // The folder distinguishes files of the same name.
        const QString caption =
            times_named[file_name] == 1
                ? to_qstring(file_name)
                : QStringLiteral("%1 (%2)").arg(to_qstring(file_name), path_text(path.parent_path().filename()));
        const std::string name = "cmdRecent_" + std::to_string(i + 1);
        QToolButton* row = add_row(*recent_column_, program_icon(files[i].kind->key), caption, name.c_str());
        row->setToolTip(tip_text(path_text(path)));
        connect(row, &QToolButton::clicked, this, [this, path, kind = files[i].kind] {
            if (kind->opened_by_own_windows)
                emit problem_chosen(kind, path);
            else
                emit document_chosen(path);
        });
        recent_rows_.append(row);
    }
    if (files.empty()) {
        auto* hint = new QLabel(tr("Problems that you save or open\nare listed here."), content_);
        hint->setContentsMargins(line_unit(*this) / 3, 0, 0, 0);
        hint->setPalette(quiet_palette(palette()));
        recent_column_->addWidget(hint);
        recent_rows_.append(hint);
    }
    recent_column_->addStretch();
    order_rows();
}

void start_page::order_rows()
{
    // The tab order goes column by column; the recent files were created last.
    QWidget* before = nullptr;
    const auto rows = content_->findChildren<QToolButton*>();
    for (const char* column : {"cmdNew_", "cmdRecent_", "cmdExample_"}) {
        for (QToolButton* row : rows) {
            if (!row->objectName().startsWith(QLatin1String(column))) continue;
            if (before) setTabOrder(before, row);
            before = row;
        }
    }
}

bool start_page::eventFilter(QObject* watched, QEvent* event)
{
    auto* row = qobject_cast<QToolButton*>(watched);
    if (row && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            row->click();
            return true;
        }
    }
    return QScrollArea::eventFilter(watched, event);
}

void start_page::show_background_picture(bool shown)
{
    background_picture_ = shown;
    viewport()->update();
}

void start_page::showEvent(QShowEvent* event)
{
    show_recent_files();
    QScrollArea::showEvent(event);
}

void start_page::paintEvent(QPaintEvent*)
{
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect(), ground_colour(palette()));
    if (background_picture_) paint_background_picture(painter, viewport()->rect(), palette());
}

} // namespace kelvarin

// SPDX-License-Identifier: MIT
#include "app/frmRecovery.h"

#include "app/problem_kinds.h"
#include "desktop/elided_label.h"
#include "desktop/icons.h"
#include "desktop/look.h"
#include "desktop/qt_text.h"
#include "graph/graph_kind.h"

#include <QDateTime>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QToolButton>

namespace kelvarin
{

namespace
{

/// Further rows are scrolled.
constexpr int rows_in_sight = 4;

enum column
{
    picture,
    title,
    kept_at,
    path,
    open,
    keep,
    discard
};

QString title_of(const recovery_entry& entry)
{
    return entry.title.empty() ? frmRecovery::tr("Untitled problem") : to_qstring(entry.title);
}

QString kind_of(const recovery_entry& entry)
{
    if (entry.kind == graph_kind().key) return frmRecovery::tr(graph_kind().name);
    const problem_window_kind* kind = kind_of_key(entry.kind);
    return kind ? frmRecovery::tr(kind->row->name) : to_qstring(entry.kind);
}

} // namespace

frmRecovery::frmRecovery(std::vector<recovery_store::found_problem> found, QWidget* parent)
    : QFrame(parent), found_(std::move(found))
{
    setObjectName(QStringLiteral("frmRecovery"));
    setAccessibleName(tr("Problems that were not saved"));
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    build_ui();
}

void frmRecovery::build_ui()
{
    const int unit = line_unit(*this);
    auto* heading = new QLabel(tr("Kelvarin ended before these problems were saved:"), this);
    QFont font = heading->font();
    font.setBold(true);
    heading->setFont(font);

    auto* close_button = new QToolButton(this);
    close_button->setObjectName(QStringLiteral("cmdKeepAll"));
    close_button->setIcon(program_icon("close"));
    close_button->setAutoRaise(true);
    close_button->setToolTip(tr("Decide at the next start"));
    close_button->setAccessibleName(tr("Keep all for the next start"));
    connect(close_button, &QToolButton::clicked, this, &QWidget::deleteLater);

    auto* list = new QWidget(this);
    auto* grid = new QGridLayout(list);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setHorizontalSpacing(unit);
    grid->setVerticalSpacing(unit / 4);
    grid->setColumnStretch(title, 3);
    grid->setColumnStretch(path, 4);
    for (std::size_t i = 0; i < found_.size(); ++i)
        add_row(*grid, static_cast<int>(i), found_[i]);

    auto* scroll = new QScrollArea(this);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setWidgetResizable(true);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setWidget(list);
    const int row_height = list->sizeHint().height() / std::max(1, static_cast<int>(found_.size())) + unit / 4;
    scroll->setFixedHeight(row_height * std::min(rows_in_sight, static_cast<int>(found_.size())));

    auto* whole = new QGridLayout(this);
    whole->addWidget(heading, 0, 0);
    whole->addWidget(close_button, 0, 1);
    whole->addWidget(scroll, 1, 0, 1, 2);
    whole->setColumnStretch(0, 1);
}

void frmRecovery::add_row(QGridLayout& grid, int row, const recovery_store::found_problem& problem)
{
    const recovery_entry& entry = problem.entry;
    QList<QWidget*>& controls = rows_[problem.slot];
    const auto place = [&](QWidget* control, column where) {
        grid.addWidget(control, row, where);
        controls.append(control);
    };
    auto* sign = new QLabel(this);
    const problem_window_kind* kind = kind_of_key(entry.kind);
    sign->setPixmap(program_icon(kind                             ? kind->row->key
                                 : entry.kind == graph_kind().key ? graph_kind().key
                                                                  : "report")
                        .pixmap(line_unit(*this), line_unit(*this)));
    sign->setAccessibleName(kind_of(entry));
    sign->setToolTip(kind_of(entry));
    place(sign, picture);

    auto* named = new elided_label(this);
    named->show_text(title_of(entry));
    place(named, title);
    const QDateTime when = QDateTime::fromSecsSinceEpoch(entry.kept_at);
    place(new QLabel(when.toString(QStringLiteral("yyyy-MM-dd  HH:mm")), this), kept_at);
    auto* file = new elided_label(this);
    file->show_text(entry.path.empty() ? tr("without a file") : path_text(entry.path));
    place(file, path);

    const auto add_button = [&](const QString& caption, const char* name, column where, auto act) {
        auto* button = new QPushButton(caption, this);
        button->setObjectName(QStringLiteral("%1_%2").arg(QLatin1String(name)).arg(row + 1));
        button->setAccessibleName(QStringLiteral("%1: %2").arg(caption, title_of(entry)));
        connect(button, &QPushButton::clicked, this, act);
        place(button, where);
    };
    add_button(tr("Open"), "cmdOpen", open, [this, problem] { emit open_asked(problem); });
    add_button(tr("Keep"), "cmdKeep", keep, [this, problem] { remove(problem.slot); });
    add_button(tr("Discard"), "cmdDiscard", discard, [this, problem] { emit discard_asked(problem); });
}

void frmRecovery::remove(int slot)
{
    const auto row = rows_.find(slot);
    if (row == rows_.end()) return;
    // One of the controls may be the button that is being clicked.
    for (QWidget* control : row->second) {
        control->hide();
        control->deleteLater();
    }
    rows_.erase(row);
    if (rows_.empty()) deleteLater();
}

} // namespace kelvarin

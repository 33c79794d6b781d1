// SPDX-License-Identifier: MIT
#include "app/report_places.h"

#include <QEvent>
#include <QFontMetrics>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QStyle>

#include <algorithm>
#include <ranges>

namespace kelvarin
{

namespace
{

/// A report is at least this many average characters wide; most of its tables fit in that.
constexpr int least_letters = 36;

} // namespace

report_places::report_places(QMdiArea& area) : QObject(&area), area_(area) {}

QMdiSubWindow* report_places::last_report_of(const QMdiSubWindow& problem, const QString& name) const
{
    for (const placed_report& each : reports_ | std::views::reverse) {
        const bool is_open = each.problem == &problem && each.report && !each.report->isHidden();
        const bool is_named = name.isEmpty() || (each.report && each.report->widget()->objectName() == name);
        if (is_open && is_named && !each.report->isMinimized()) return each.report;
    }
    return nullptr;
}

QRect report_places::place_below_title(const QMdiSubWindow& last) const
{
    QRect place = last.geometry();
    place.setTop(place.top() + area_.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &last));
    return place;
}

std::optional<QRect> report_places::place_for_report_of(QMdiSubWindow& problem, const QString& name)
{
    const QMdiSubWindow* last = last_report_of(problem, name);
    if (const QMdiSubWindow* other = last ? nullptr : last_report_of(problem);
        other && !other->isMaximized() && !problem.isMaximized())
        return place_below_title(*other);
    if (last && last->isMaximized()) return std::nullopt;
    if (last && !problem.isMaximized()) return last->geometry();
    const std::optional<QRect> place = make_room_beside(problem);
    return last && place ? last->geometry() : place;
}

std::optional<QRect> report_places::make_room_beside(QMdiSubWindow& problem)
{
    const QRect whole = area_.viewport()->rect();
    const int least = area_.fontMetrics().averageCharWidth() * least_letters;
    // As a maximised window has no frame, the hint of the subwindow itself may be too small.
    const int frame = area_.style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth, nullptr, &problem);
    const int least_of_problem = problem.widget()->minimumSizeHint().width() + 2 * frame;
    if (whole.width() < least_of_problem + least) return std::nullopt;
    // A window that the user has placed stays there if it leaves enough room.
    const QRect before = problem.geometry();
    const int right_of_it = whole.right() - before.right();
    if (!problem.isMaximized() && !problem.isMinimized() && right_of_it >= least)
        return QRect(before.right() + 1, before.y(), right_of_it, before.height());

    given_room room;
    room.problem = &problem;
    if (!problem.isMaximized()) room.before = before;
    const int width = std::clamp(whole.width() / 2, least_of_problem, whole.width() - least);
    room.given = QRect(whole.topLeft(), QSize(width, whole.height()));
    problem.showNormal();
    problem.setGeometry(room.given);
    std::erase_if(given_, [&](const given_room& each) { return !each.problem || each.problem == &problem; });
    given_.push_back(room);
    return QRect(room.given.right() + 1, whole.y(), whole.width() - width, whole.height());
}

void report_places::add(QMdiSubWindow& report, QMdiSubWindow& problem)
{
    std::erase_if(reports_, [](const placed_report& each) { return !each.report || !each.problem; });
    reports_.push_back({&report, &problem});
    report.installEventFilter(this);
}

bool report_places::eventFilter(QObject* watched, QEvent* event)
{
    auto* report = qobject_cast<QMdiSubWindow*>(watched);
    if (report && event->type() == QEvent::Close) closes_active_ = area_.activeSubWindow() == report;
    // Hidden by itself and not with the whole area: it has been closed.
    if (report && event->type() == QEvent::Hide && report->isHidden()) closed(*report);
    return false;
}

void report_places::closed(QMdiSubWindow& report)
{
    const auto found =
        std::ranges::find(reports_, &report, [](const placed_report& each) { return each.report.data(); });
    if (found == reports_.end()) return;
    const QPointer<QMdiSubWindow> problem = found->problem;
    reports_.erase(found);
    if (!problem || problem->isHidden()) return;
    const bool was_last = std::ranges::none_of(
        reports_, [&](const placed_report& each) { return each.problem == problem && each.report; });
    if (closes_active_) area_.setActiveSubWindow(problem);
    if (was_last) give_back(*problem);
}

void report_places::give_back(QMdiSubWindow& problem)
{
    const auto found = std::ranges::find(given_, &problem, [](const given_room& each) { return each.problem.data(); });
    if (found == given_.end()) return;
    const given_room room = *found;
    given_.erase(found);
    // A window that the user has moved or resized meanwhile stays as it is.
    if (problem.isMaximized() || problem.isMinimized() || problem.geometry() != room.given) return;
    if (room.before)
        problem.setGeometry(*room.before);
    else
        problem.showMaximized();
}

} // namespace kelvarin

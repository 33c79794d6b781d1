// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPointer>
#include <QRect>

#include <optional>
#include <vector>

class QMdiArea;
class QMdiSubWindow;

namespace kelvarin
{

/// Places reports beside their problems. A problem that fills the area, or leaves too little of it, is made narrower
/// for its first report, and gets its former geometry back when its last one is closed.
class report_places : public QObject
{
    Q_OBJECT

public:
    explicit report_places(QMdiArea& area);

    /// The geometry of a further report of `problem`, or of another window of its runs, whose object name is `name`:
    /// exactly that of the last one with the name if there is one; below the title bar of the last one with another
    /// name. The problem gives room if necessary. Returns nullopt if the area is too narrow for both.
    std::optional<QRect> place_for_report_of(QMdiSubWindow& problem, const QString& name);

    /// To be called for each report of `problem`. When the active report is closed, its problem becomes active.
    void add(QMdiSubWindow& report, QMdiSubWindow& problem);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct placed_report
    {
        QPointer<QMdiSubWindow> report;
        QPointer<QMdiSubWindow> problem;
    };

    struct given_room
    {
        QPointer<QMdiSubWindow> problem;
        /// The problem's geometry before; nullopt if it was maximised.
        std::optional<QRect> before;
        QRect given;
    };

    /// The last open window beside `problem`; with a name, the last one of that name.
    QMdiSubWindow* last_report_of(const QMdiSubWindow& problem, const QString& name = {}) const;
    /// The place of a window over `last` that leaves its title bar to be seen.
    QRect place_below_title(const QMdiSubWindow& last) const;
    std::optional<QRect> make_room_beside(QMdiSubWindow& problem);
    void closed(QMdiSubWindow& report);
    void give_back(QMdiSubWindow& problem);

    QMdiArea& area_;
    std::vector<placed_report> reports_;
    std::vector<given_room> given_;
    /// The report that is being closed was active.
    bool closes_active_ = false;
};

} // namespace kelvarin

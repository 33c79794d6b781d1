// SPDX-License-Identifier: MIT
#pragma once

#include "graph/axis_limits.h"
#include "graph/graph_file.h"
#include "graph/window/frmGraph.h"
#include "support/graphs.h"
#include "support/robot.h"
#include "support/test_desk.h"

#include <gtest/gtest.h>

#include <QListWidget>
#include <QMenu>
#include <QTest>

#include <cmath>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

namespace kelvarin::test
{

/// x from 0 to 10 with two curves, x^2 and 10 x.
inline graph_content parabola_and_line()
{
    std::vector<double> x, a, b;
    for (int i = 0; i <= 10; ++i) {
        x.push_back(i);
        a.push_back(i * i);
        b.push_back(10.0 * i);
    }
    graph_content graph = graph_of({x, a, b});
    graph.caption = "Run 1";
    graph.title = "Title";
    graph.subtitle = "Sub title";
    return graph;
}

/// A graph window as a run opens it, and the person before it.
struct graph_desk : test_desk
{
    frmGraph& window;
    robot person;

    explicit graph_desk(graph_content graph = parabola_and_line())
        : window(*new frmGraph(context, std::move(graph))), person(window)
    {
        frame.show_child(&window);
        window.resize(800, 600);
        window.activateWindow();
        if (!wait_until([this] { return window.isActiveWindow(); })) throw std::runtime_error("it stays behind");
        settle();
    }

    const graph_content& content() const { return window.document().content(); }
    graph_view& view() { return person.find<graph_view>("PicGraph"); }
    axis_range x_limits() { return view().drawing().limits.x; }
    axis_range y_limits() { return view().drawing().limits.y.value(); }

    void choose(const char* menu, const char* item)
    {
        for (QMenu* found : window.menus())
            if (found->objectName() == QLatin1String(menu) ||
                QString(found->title()).remove(QLatin1Char('&')) == QLatin1String(menu)) {
                person.trigger(*found, item);
                settle();
                return;
            }
        throw std::runtime_error(std::string("no menu ") + menu);
    }
    void answer(const char* menu, const char* item, const char* prompt, const char* typed)
    {
        user.expect_input(prompt, typed);
        choose(menu, item);
    }
    void tick(int line)
    {
        auto& list = person.find<QListWidget>("lstCurves");
        list.setFocus();
        list.setCurrentRow(line);
        robot::press(Qt::Key_Space);
        settle();
    }

    /// The position of a point of the graph in the picture.
    QPoint at(double x, double y)
    {
        const drawn_point point = view().drawing().mapping->at(x, y);
        return {static_cast<int>(std::lround(point.x / 0.75)), static_cast<int>(std::lround(point.y / 0.75))};
    }
    QPoint middle_of(drawn_role role)
    {
        const drawn_point middle = box_of(view().drawing(), role).value().middle();
        return {static_cast<int>(std::lround(middle.x / 0.75)), static_cast<int>(std::lround(middle.y / 0.75))};
    }
    void drag(QPoint from, QPoint to, Qt::MouseButton button = Qt::LeftButton)
    {
        press_and_move(from, to, button);
        QTest::mouseRelease(&view(), button, {}, to);
        settle();
    }
    void press_and_move(QPoint from, QPoint to, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mousePress(&view(), button, {}, from);
        move_pressed((from + to) / 2, button);
        move_pressed(to, button);
    }
    void click(QPoint at)
    {
        QTest::mouseClick(&view(), Qt::LeftButton, {}, at);
        settle();
    }

private:
    void move_pressed(QPoint to, Qt::MouseButton button)
    {
        QMouseEvent moved(QEvent::MouseMove, QPointF(to), view().mapToGlobal(QPointF(to)), Qt::NoButton, button, {});
        QApplication::sendEvent(&view(), &moved);
    }
};

} // namespace kelvarin::test

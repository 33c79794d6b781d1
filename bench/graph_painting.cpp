// SPDX-License-Identifier: MIT
// How long the graph window takes to paint, without a screen.
#include "graph/window/graph_view.h"
#include "table.h"
#include "waves.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPixmap>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

namespace
{

using namespace kelvarin;
using namespace kelvarin::bench;

constexpr QSize window_size(1280, 960);

std::vector<double> milliseconds_of(const std::function<void()>& run, int rounds)
{
    std::vector<double> seen;
    for (int round = 0; round < rounds; ++round)
        seen.push_back(1e3 * seconds_of(run, 1));
    return seen;
}

void paint(graph_view& view)
{
    keep(view.grab().width());
}

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    print_head();
    print_section("painting of graphs, 1280 x 960 pixels");
    graph_view view;
    view.resize(window_size);
    const graph_content wide = waves(1200, 200);
    const auto first = [&view](const graph_content& graph) {
        return [&view, &graph] {
            view.show_graph(graph);
            paint(view);
        };
    };
    constexpr int rounds = 21;
    print_line("200 curves of 1,200 points, ms", spread_of(milliseconds_of(first(wide), rounds)), at_most(50.0));
    graph_content pointed = wide;
    pointed.draw_points = true;
    print_line("the same with markers, ms", spread_of(milliseconds_of(first(pointed), rounds)));

    const graph_content long_one = waves(1000000, 1);
    print_line("1,000,000 points first drawn, ms", spread_of(milliseconds_of(first(long_one), rounds)), at_most(150.0));
    view.zoom(0.2);
    constexpr int frames = 200;
    std::vector<double> panned = milliseconds_of(
        [&view] {
            QKeyEvent right(QEvent::KeyPress, Qt::Key_Right, {});
            QApplication::sendEvent(&view, &right);
            paint(view);
        },
        frames);
    print_line("1,000,000 points, a frame while panning, ms", spread_of(panned), at_most(16.0));
    std::ranges::sort(panned);
    print_note("the frame at the 99th percentile: " + std::to_string(panned[frames * 99 / 100]) + " ms");
    return 0;
}

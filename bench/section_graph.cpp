// SPDX-License-Identifier: MIT
#include "graph/graph_drawing.h"
#include "graph/graph_functions.h"
#include "sections.h"
#include "table.h"
#include "waves.h"

#include <cmath>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace kelvarin::bench
{

namespace
{

spread milliseconds_of(const std::function<void()>& run)
{
    constexpr int rounds = 21;
    std::vector<double> seen;
    for (int round = 0; round < rounds; ++round)
        seen.push_back(1e3 * seconds_of(run, 1));
    return spread_of(seen);
}

} // namespace

void measure_graph()
{
    const drawing_options window = {.width = 960.0, .height = 720.0, .pixel = 0.75};
    const graph_content wide = waves(1200, 200);
    print_line("200 curves of 1,200 points: shapes, ms", milliseconds_of([&] { draw_graph(wide, window); }),
               at_most(50.0));

    const graph_content long_one = waves(1000000, 1);
    print_line("1,000,000 points: shapes, ms", milliseconds_of([&] { draw_graph(long_one, window); }), at_most(150.0));
    axis_limits fifth;
    fifth.x = {4.0, 6.0};
    fifth.y = axis_range{-1.0, 1.0};
    const drawing_options panned = {.width = 960.0, .height = 720.0, .pixel = 0.75, .view = fifth};
    print_line("1,000,000 points, a fifth of them in view: shapes, ms",
               milliseconds_of([&] { draw_graph(long_one, panned); }), at_most(16.0));

    const auto all_functions = [] {
        for (int i = 0; i < 30; ++i)
            if (!function_points("x*(sin(x)+" + std::to_string(i) + ")/(1+x^2)", {0.0, 10.0}).back().y)
                throw std::runtime_error("a function without a value");
    };
    print_line("30 functions: points, ms", milliseconds_of(all_functions), at_most(16.0));
}

} // namespace kelvarin::bench

// SPDX-License-Identifier: MIT
#include "graph/drawing_svg.h"
#include "graph/graph_drawing.h"
#include "graph/graph_file.h"
#include "graph/graph_recovery.h"
#include "platform/text_file.h"
#include "promise.h"

#include <string>
#include <variant>

namespace
{

using kelvarin::fuzz::promise;

void check_lines(const kelvarin::graph_drawing& drawn)
{
    for (const kelvarin::drawn_shape& shape : drawn.picture.shapes) {
        const auto* path = std::get_if<kelvarin::drawn_path>(&shape);
        if (path == nullptr || path->part.role != kelvarin::drawn_role::curve) continue;
        for (const kelvarin::drawn_point point : path->points)
            promise(drawn.plot.contains(point), "no line leaves the plot area");
    }
}

} // namespace

/// Any file is read or refused; what is read can be drawn, and once written comes back the same.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size)
{
    using namespace kelvarin;
    const std::string text = to_utf8(std::string_view(reinterpret_cast<const char*>(bytes), size));
    const auto graph = read_graph(text);
    if (!graph) return 0;
    promise(graph->point_count() >= 1, "a graph has points");
    promise(graph->curve_visible.size() == graph->curve_count(), "each curve is shown or not");

    const std::string written = write_graph(*graph);
    const auto again = read_graph(written);
    promise(again == graph, "what was written comes back the same");
    promise(write_graph(*again) == written, "saving twice writes the same");
    promise(read_graph_recovery(graph_recovery_text(*graph)) == graph, "what was kept comes back the same");

    for (const double width : {150.0, 560.0}) {
        // The small picture with logarithmic axes.
        const axis_scale scale = width < 500.0 ? axis_scale::logarithmic : axis_scale::linear;
        const graph_drawing drawn =
            draw_graph(*graph, {.width = width, .height = width * 0.75, .pixel = 0.75, .scales = {scale, scale}});
        check_lines(drawn);
        promise(!drawing_svg(drawn.picture).empty(), "a drawing has a text");
    }
    return 0;
}

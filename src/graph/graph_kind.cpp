// SPDX-License-Identifier: MIT
#include "graph/graph_kind.h"

#include "graph/graph_document.h"

#include <memory>

namespace kelvarin
{

const problem_kind& graph_kind()
{
    static constexpr problem_kind kind = {
        .key = "graph",
        .name = "Graph",
        .window_name = "frmGraph",
        .caption = "Graph",
        .recent_suffix = "\\files_graph",
        .open_filter = "Kelvarin graph (*.kvg)|*.kvg|All files (*.*)|*.*",
        .save_filter = "Kelvarin graph (*.kvg)|*.kvg|Bitmap file (*.bmp)|*.bmp|All files (*.*)|*.*",
        .unsaved_on_close = "The graph was not saved. Do you want to save it before closing ?",
        .unsaved_on_open = "The graph was not saved. Do you want to save it before closing ?",
        .bounds = bounds_of_numbers,
        .make_document = []() -> std::unique_ptr<problem_document> { return std::make_unique<graph_document>(); }};
    return kind;
}

} // namespace kelvarin

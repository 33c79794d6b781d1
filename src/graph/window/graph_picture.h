// SPDX-License-Identifier: MIT
#pragma once

#include "graph/graph_content.h"
#include "graph/graph_drawing.h"

#include <QString>

#include <filesystem>
#include <optional>
#include <string>

class QPagedPaintDevice;

namespace kelvarin
{

enum class picture_format
{
    svg,
    pdf,
    png,
    bmp
};

/// The format of a picture by the end of its file's name. Returns nullopt for a name that is no picture's.
std::optional<picture_format> picture_format_of(const std::filesystem::path& path);

/// The size of a picture in points, and its resolution, which counts for bitmaps.
struct picture_size
{
    double width = 560.0;
    double height = 420.0;
    double dots_per_inch = 96.0;
};

/// The bytes of a picture file. `looks` says how the graph is looked at: part, axes, hidden curves; its size is
/// ignored.
std::string picture_bytes(const graph_content& graph, drawing_options looks, const picture_size& size,
                          picture_format format);

/// Paints a graph on a page, as wide as the page or as high, in the proportions of `size`.
void print_graph(QPagedPaintDevice& device, const graph_content& graph, drawing_options looks,
                 const picture_size& size);

} // namespace kelvarin

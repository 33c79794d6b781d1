// SPDX-License-Identifier: MIT
#pragma once

#include "graph/graph_content.h"
#include "graph/graph_drawing.h"

#include <QString>

#include <filesystem>
#include <functional>
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

/// Draws something in the size of the options, with texts as the metrics measure them.
using picture_drawer = std::function<drawn_picture(const drawing_options&, const text_metrics&)>;

/// The bytes of a picture file.
std::string picture_bytes(const picture_drawer& draw, const QString& title, const picture_size& size,
                          picture_format format);

/// Paints a picture on a page, as wide as the page or as high, in the proportions of `size`.
void print_picture(QPagedPaintDevice& device, const picture_drawer& draw, const picture_size& size);

/// The bytes of a graph's picture file. `looks` says how the graph is looked at: part, axes, hidden curves; its size is
/// ignored.
std::string picture_bytes(const graph_content& graph, const drawing_options& looks, const picture_size& size,
                          picture_format format);

/// The same as print_picture for a graph.
void print_graph(QPagedPaintDevice& device, const graph_content& graph, const drawing_options& looks,
                 const picture_size& size);

} // namespace kelvarin

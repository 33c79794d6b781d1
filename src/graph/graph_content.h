// SPDX-License-Identifier: MIT
#pragma once

#include "graph/shared_values.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelvarin
{

inline constexpr std::size_t largest_function_count = 30;
/// Counts and most sizes are 16-bit numbers in a graph file.
inline constexpr int largest_file_count = 32767;

/// Lengths in a graph's fields are in twips, twentieths of a point.
inline constexpr double twips_per_point = 20.0;

/// Bounds that a drawing applies to the graph's values. Values from a file are stored unchanged.
inline constexpr int default_ticks = 10;
inline constexpr int least_ticks = 1;
inline constexpr int largest_ticks = 100;
inline constexpr int least_width = 1;
inline constexpr int largest_width = 4;
inline constexpr int least_marker_size = 1;
inline constexpr int largest_marker_size = 300;

struct graph_column
{
    std::string name;
    shared_values values;

    friend bool operator==(const graph_column&, const graph_column&) = default;
};

struct graph_function
{
    /// An expression of x.
    std::string text;
    bool visible = true;

    friend bool operator==(const graph_function&, const graph_function&) = default;
};

struct axis_range
{
    double min = 0.0;
    double max = 1.0;

    friend bool operator==(const axis_range&, const axis_range&) = default;
};

struct graph_margins
{
    int top = 180;
    int left = 800;
    int right = 400;
    int bottom = 520;

    friend bool operator==(const graph_margins&, const graph_margins&) = default;
};

/// The position of a title or of the legend, from the upper left corner of the window.
struct graph_place
{
    double top = 0.0;
    double left = 0.0;

    friend bool operator==(const graph_place&, const graph_place&) = default;
};

struct graph_size
{
    double height = 8400.0;
    double width = 11200.0;

    friend bool operator==(const graph_size&, const graph_size&) = default;
};

struct graph_font
{
    bool bold = false;
    bool italic = false;
    std::string name = "Sans Serif";
    /// In points.
    double size = 9.0;

    friend bool operator==(const graph_font&, const graph_font&) = default;
};

enum class axis_label_format
{
    plain,
    scientific,
    engineering
};

/// The content of a graph: a plain value. Column 0 is x, column c + 1 is curve c.
struct graph_content
{
    /// The window's caption.
    std::string caption;
    std::string title;
    std::string subtitle;
    std::string x_title;
    std::string y_title;

    /// At least x; all of equal length.
    std::vector<graph_column> columns = {graph_column()};
    /// One for each curve.
    std::vector<bool> curve_visible;
    std::vector<graph_function> functions;

    /// Number of divisions of each axis.
    int ticks = default_ticks;
    /// In pixels of 1/96 inch.
    int line_width = 2;
    int border_width = 1;
    int marker_size = 40;
    graph_margins margins;
    graph_font axes_font;
    graph_font title_font = {.bold = true, .size = 13.0};
    graph_font subtitle_font = {.size = 10.0};
    axis_label_format x_labels = axis_label_format::plain;
    axis_label_format y_labels = axis_label_format::plain;

    /// nullopt until moved by the user: then the drawing determines the position.
    std::optional<graph_place> title_place;
    std::optional<graph_place> subtitle_place;
    std::optional<graph_place> legend_place;
    /// The size of the window to which the positions refer; in another size they are scaled.
    graph_size window_size;

    axis_range x_range;
    axis_range y_range;
    /// The range was set by the user; otherwise it follows the data.
    bool x_manual = false;
    bool y_manual = false;
    /// Stored and shown as a check mark only; ranges follow the data whenever they are not manual.
    bool auto_scale = true;
    bool hor_gridline = false;
    bool ver_gridline = false;
    bool scatter_connected = true;
    bool draw_points = false;

    std::size_t curve_count() const { return columns.size() - 1; }
    std::size_t point_count() const { return columns.front().values.size(); }

    friend bool operator==(const graph_content&, const graph_content&) = default;
};

/// A text without commas and line ends, which separate items in the file.
std::string joinable_text(std::string_view text);

/// The name by which expressions refer to a column: for a derived one, "name = expression", the part before " = ".
std::string_view reference_name(std::string_view column_name);

} // namespace kelvarin

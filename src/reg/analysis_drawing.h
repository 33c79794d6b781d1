// SPDX-License-Identifier: MIT
#pragma once

#include "graph/graph_drawing.h"
#include "reg/column_analysis.h"

#include <span>
#include <string>

namespace kelvarin
{

/// A small graph of the three methods of interpolation through sorted points (two or more, x not equal); where a method
/// fails its curve has a gap. Its y axis shows what the data need, whatever the curves do. With very many points the
/// rational function, whose cost grows with their square, is left out.
graph_content analysis_graph(const analysis_points& points, const std::string& x_name, const std::string& y_name);

/// Draws it with the data as markers, and with larger ones on the spline at each of `marked`, values of x;
/// one outside of the points is left out.
drawn_picture draw_analysis(const graph_content& graph, const analysis_points& points, std::span<const double> marked,
                            const drawing_options& options, const text_metrics& metrics = sans_serif_metrics());

} // namespace kelvarin

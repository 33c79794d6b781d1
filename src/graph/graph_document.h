// SPDX-License-Identifier: MIT
#pragma once

#include "graph/graph_content.h"
#include "graph/graph_curves.h"
#include "graph/graph_entries.h"
#include "shell/document/value_document.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace kelvarin
{

/// A graph as a document. Curves and functions count from 0, columns with x as 0. A refused operation returns the box
/// to show and changes nothing; after every change the limits of axes that are not manual are found again.
class graph_document final : public value_document<graph_content>
{
public:
    /// A graph without points, for opening a file.
    graph_document();
    /// The graph of a run; it is unsaved.
    explicit graph_document(graph_content start);

    bool is_blank() const override;

    void show_curve(std::size_t curve, bool visible);
    void show_function(std::size_t function, bool visible);
    refusal add_function(std::string_view text);
    refusal edit_function(std::size_t function, std::string_view text);
    void remove_function(std::size_t function);
    refusal add_derived_curve(std::string_view name, std::string_view text);
    void add_curves(const added_curves& added);
    void use_as_x(std::size_t column);
    void sort_by_x();

    refusal set_axis_limit(axis_end end, std::string_view text);
    /// Makes the displayed ranges the manual ones.
    void keep_view(axis_range x, axis_range y);
    void restore_xy();
    refusal set_ticks(std::string_view text);
    void set_label_format(axis_label_format graph_content::*axis, axis_label_format format);

    refusal set_margin(int graph_margins::*side, std::string_view text);
    refusal set_width(int graph_content::*width, std::string_view text);
    refusal set_marker_size(std::string_view text);
    void set_font(graph_font graph_content::*text, const graph_font& font);
    /// Sets a flag of the graph, such as &graph_content::draw_points.
    void set_flag(bool graph_content::*flag, bool value);
    void set_subtitle(std::string_view text);
    /// `axis` is &graph_content::x_title or y_title.
    void set_axis_title(std::string graph_content::*axis, std::string_view text);
    void move_part(std::optional<graph_place> graph_content::*part, graph_place place, graph_size window);

private:
    /// Applies `edit` to a copy of the content and makes it the new content, unless the edit is refused.
    template <class Edit> refusal apply(std::string_view step, const Edit& edit);
};

} // namespace kelvarin

// SPDX-License-Identifier: MIT
#include "graph/graph_layout.h"

#include "graph/graph_drawing.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace kelvarin
{

namespace
{

/// Distance between texts, and from a text to the page's edge.
constexpr double spacing = 3.0;
/// Maximum part of the page used by everything around the plot area.
constexpr double largest_frame = 0.6;
/// Beyond this part, less important texts are left out.
constexpr double usual_frame = 0.45;

/// The space used at the page's edges by captions, from the outside in.
struct page_edges
{
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;
};

/// The scale of texts on a page that is too small for their normal size.
double part_of_usual(const drawn_box& page)
{
    constexpr double usual_width = 260.0;
    constexpr double usual_height = 195.0;
    return std::min({1.0, page.width / usual_width, page.height / usual_height});
}

drawn_text horizontal_text(drawn_part part, std::string text, const graph_font& font, drawn_point upper_left,
                           const text_metrics& metrics)
{
    const double width = metrics.width(text, font);
    drawn_text drawn = {part, std::move(text), font, text_colour, {}, text_anchor::middle, 0.0, {}};
    drawn.box = {upper_left.x, upper_left.y, width, metrics.height(font)};
    drawn.position = {upper_left.x + width / 2.0, upper_left.y + metrics.ascent(font)};
    return drawn;
}

/// Lays out everything around the plot area, from the edges of the page inward.
class layout_maker
{
public:
    layout_maker(const graph_content& graph, const axis_limits& limits, axis_scales scales, double width, double height,
                 const text_metrics& metrics)
        : graph_(graph), metrics_(metrics), scales_(scales)
    {
        layout_.page = {0.0, 0.0, width, height};
        layout_.axes_font = font_on_page(graph.axes_font, layout_.page);
        label_height_ = metrics.height(layout_.axes_font);
        const int divisions = axis_divisions(graph);
        layout_.x_ticks = axis_ticks(limits.x, divisions, graph.x_labels, scales.x);
        if (limits.y) layout_.y_ticks = axis_ticks(*limits.y, divisions, graph.y_labels, scales.y);
    }

    graph_layout made()
    {
        used_ = {spacing, spacing, spacing, spacing};
        // In order of importance: later texts have less space.
        const graph_font title_font = font_on_page(graph_.title_font, layout_.page);
        const graph_font subtitle_font = font_on_page(graph_.subtitle_font, layout_.page);
        add_title(drawn_role::title, graph_.title, title_font, graph_.title_place);
        const bool x_title = reserve_x_title();
        add_title(drawn_role::subtitle, graph_.subtitle, subtitle_font, graph_.subtitle_place);
        const bool y_title = reserve_y_title();
        place_plot();
        if (x_title) add_x_title();
        if (y_title) add_y_title();
        add_x_labels();
        add_y_labels();
        return std::move(layout_);
    }

private:
    double largest_label(const std::vector<axis_tick>& ticks) const
    {
        double largest = 0.0;
        for (const axis_tick& tick : ticks)
            largest = std::max(largest, metrics_.width(tick.label, layout_.axes_font));
        return largest;
    }

    /// Whether `height` more can be used by captions if all of them together with the labels use at most `part` of the
    /// page.
    bool has_height(double height, double part) const
    {
        const double labels = tick_length + 2.0 * spacing + label_height_;
        return used_.top + used_.bottom + labels + height <= part * layout_.page.height;
    }

    void add_title(drawn_role role, const std::string& text, const graph_font& font,
                   const std::optional<graph_place>& place)
    {
        const double height = metrics_.height(font);
        const std::string fitting = elided_text(text, layout_.page.width - 2.0 * spacing, font, metrics_);
        if (fitting.find_first_not_of(' ') == std::string::npos) return;
        const double width = metrics_.width(fitting, font);
        if (place) {
            const drawn_point corner = place_on_page(*place, graph_.window_size, layout_.page, width, height);
            layout_.titles.push_back(horizontal_text({role}, fitting, font, corner, metrics_));
            return;
        }
        if (!has_height(height + spacing, role == drawn_role::title ? largest_frame : usual_frame)) return;
        layout_.titles.push_back(
            horizontal_text({role}, fitting, font, {layout_.page.middle().x - width / 2.0, used_.top}, metrics_));
        used_.top += height + spacing;
    }

    bool reserve_x_title()
    {
        if (graph_.x_title.empty() || !has_height(label_height_ + spacing, largest_frame)) return false;
        used_.bottom += label_height_ + spacing;
        return true;
    }

    bool reserve_y_title()
    {
        const double room =
            largest_frame * layout_.page.width - used_.left - used_.right - largest_label(layout_.y_ticks);
        if (graph_.y_title.empty() || room < label_height_ + spacing) return false;
        used_.left += label_height_ + spacing;
        return true;
    }

    /// Sets the margins of the graph, increased if labels need more, decreased on a small page.
    void place_plot()
    {
        const drawn_box& page = layout_.page;
        const double part = part_of_usual(page);
        const auto in_points = [part](int twips) { return std::max(0.0, twips / twips_per_point) * part; };
        page_edges margins = {in_points(graph_.margins.left), in_points(graph_.margins.top),
                              in_points(graph_.margins.right), in_points(graph_.margins.bottom)};
        const double beside_label = tick_length + spacing;
        const page_edges needed = {beside_label + largest_label(layout_.y_ticks), label_height_ / 2.0,
                                   metrics_.width(layout_.x_ticks.back().label, layout_.axes_font) / 2.0,
                                   beside_label + label_height_};
        const auto fit = [](double& first, double& second, double first_needed, double second_needed, double room) {
            const double wanted = first + second;
            if (wanted > room) {
                first *= room / wanted;
                second *= room / wanted;
            }
            first = std::min(std::max(first, first_needed), room);
            second = std::min(std::max(second, second_needed), room - first);
        };
        const double across = largest_frame * page.width - used_.left - used_.right;
        const double upright = largest_frame * page.height - used_.top - used_.bottom;
        fit(margins.left, margins.right, needed.left, needed.right, std::max(0.0, across));
        fit(margins.bottom, margins.top, needed.bottom, needed.top, std::max(0.0, upright));
        const double left = used_.left + margins.left;
        const double top = used_.top + margins.top;
        layout_.plot = {left, top, page.width - used_.right - margins.right - left,
                        page.height - used_.bottom - margins.bottom - top};
    }

    void add_x_title()
    {
        const double room = layout_.page.width - 2.0 * spacing;
        const std::string text = elided_text(graph_.x_title, room, layout_.axes_font, metrics_);
        const double width = metrics_.width(text, layout_.axes_font);
        const double left = std::clamp(layout_.plot.middle().x - width / 2.0, spacing, spacing + room - width);
        const double below_labels = layout_.plot.bottom() + tick_length + label_height_ + 3.0 * spacing;
        const double top = std::min(layout_.page.height - spacing - label_height_, below_labels);
        if (!text.empty())
            layout_.titles.push_back(
                horizontal_text({drawn_role::x_title}, text, layout_.axes_font, {left, top}, metrics_));
    }

    /// Upward along the axis and no longer than the axis, so that it overlaps neither titles nor the labels of x.
    void add_y_title()
    {
        const drawn_box& plot = layout_.plot;
        const std::string text = elided_text(graph_.y_title, plot.height, layout_.axes_font, metrics_);
        if (text.empty()) return;
        const double beside_labels =
            plot.left - tick_length - 3.0 * spacing - largest_label(layout_.y_ticks) - label_height_;
        const double left = std::max(spacing, beside_labels);
        const double length = metrics_.width(text, layout_.axes_font);
        drawn_text drawn = {{drawn_role::y_title},
                            text,
                            layout_.axes_font,
                            text_colour,
                            {},
                            text_anchor::middle,
                            -90.0,
                            {left, plot.middle().y - length / 2.0, label_height_, length}};
        drawn.position = {left + metrics_.ascent(layout_.axes_font), plot.middle().y};
        layout_.titles.push_back(std::move(drawn));
    }

    /// The ticks that get a label if labels need a length `needed` along the axis.
    static std::vector<std::size_t> labelled_ticks(const std::vector<axis_tick>& ticks, axis_scale scale, double needed,
                                                   double axis_length)
    {
        std::vector<std::size_t> labelled;
        if (scale == axis_scale::logarithmic) {
            double next = 0.0;
            for (std::size_t i = 0; i < ticks.size(); ++i) {
                const double place = ticks[i].fraction * axis_length;
                if (ticks[i].label.empty() || place < next) continue;
                labelled.push_back(i);
                next = place + needed;
            }
            return labelled;
        }
        const std::size_t stride = label_stride(static_cast<int>(ticks.size()) - 1, needed, axis_length);
        for (std::size_t i = 0; i < ticks.size(); i += stride)
            labelled.push_back(i);
        return labelled;
    }

    /// The smallest stride in divisions between labels; a larger one, less than twice that, if it gives the last
    /// division a label.
    static std::size_t label_stride(int divisions, double needed, double axis_length)
    {
        const double division = axis_length / divisions;
        if (division <= 0.0) return static_cast<std::size_t>(divisions) + 1;
        const int least = std::max(1, static_cast<int>(std::min(1000.0, std::ceil(needed / division))));
        for (int stride = least; stride < 2 * least; ++stride)
            if (divisions % stride == 0) return static_cast<std::size_t>(stride);
        return static_cast<std::size_t>(least);
    }

    void add_label(drawn_text label)
    {
        if (layout_.page.contains(label.box)) layout_.labels.push_back(std::move(label));
    }

    void add_x_labels()
    {
        const drawn_box& plot = layout_.plot;
        const double needed = largest_label(layout_.x_ticks) + 2.0 * spacing;
        for (const std::size_t i : labelled_ticks(layout_.x_ticks, scales_.x, needed, plot.width)) {
            const auto& [fraction, label] = layout_.x_ticks[i];
            const double x = plot.left + plot.width * fraction;
            const double width = metrics_.width(label, layout_.axes_font);
            const drawn_point corner = {x - width / 2.0, plot.bottom() + tick_length + spacing};
            add_label(horizontal_text({drawn_role::x_label, static_cast<int>(i)}, label, layout_.axes_font, corner,
                                      metrics_));
        }
    }

    void add_y_labels()
    {
        if (layout_.y_ticks.empty()) return;
        const drawn_box& plot = layout_.plot;
        for (const std::size_t i : labelled_ticks(layout_.y_ticks, scales_.y, label_height_ + 1.0, plot.height)) {
            const auto& [fraction, label] = layout_.y_ticks[i];
            const double y = plot.bottom() - plot.height * fraction;
            const double width = metrics_.width(label, layout_.axes_font);
            const drawn_point corner = {plot.left - tick_length - spacing - width, y - label_height_ / 2.0};
            // The last label must not overlap a title above, nor the first one the labels of x.
            if (corner.x < used_.left - spacing / 2.0 || corner.y < used_.top - spacing) continue;
            if (fraction == 0.0 && label_height_ / 2.0 >= tick_length + spacing) continue;
            add_label(horizontal_text({drawn_role::y_label, static_cast<int>(i)}, label, layout_.axes_font, corner,
                                      metrics_));
        }
    }

    const graph_content& graph_;
    const text_metrics& metrics_;
    axis_scales scales_;
    graph_layout layout_;
    page_edges used_;
    double label_height_ = 0.0;
};

} // namespace

graph_font font_on_page(graph_font font, const drawn_box& page)
{
    constexpr double least_size = 5.0;
    constexpr double largest_size = 144.0;
    const double part = part_of_usual(page);
    const double size = std::clamp(font.size, least_size, largest_size);
    font.size = std::max(std::min(size * part, page.height / 8.0), std::min(least_size, page.height / 8.0));
    return font;
}

drawn_point place_on_page(const graph_place& place, const graph_size& window, const drawn_box& page, double width,
                          double height)
{
    const auto in_proportion = [](double twips, double window_length, double page_length) {
        const double points = window_length > 0.0 ? twips * (page_length / window_length) : twips / twips_per_point;
        return std::isfinite(points) ? points : 0.0;
    };
    const double left = in_proportion(place.left, window.width, page.width);
    const double top = in_proportion(place.top, window.height, page.height);
    return {std::clamp(left, 0.0, std::max(0.0, page.width - width)),
            std::clamp(top, 0.0, std::max(0.0, page.height - height))};
}

graph_layout lay_out_graph(const graph_content& graph, const axis_limits& limits, axis_scales scales, double width,
                           double height, const text_metrics& metrics)
{
    return layout_maker(graph, limits, scales, width, height, metrics).made();
}

} // namespace kelvarin

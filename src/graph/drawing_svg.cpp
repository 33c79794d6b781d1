// SPDX-License-Identifier: MIT
#include "graph/drawing_svg.h"

#include "graph/curve_style.h"

#include <array>
#include <charconv>
#include <cstddef>
#include <span>
#include <string_view>
#include <utility>
#include <variant>

namespace kelvarin
{

namespace
{

/// At most two decimals without trailing zeros; a value that rounds to zero has no sign.
std::string length_text(double value)
{
    std::array<char, 400> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed, 2);
    std::string_view text(buffer.data(), static_cast<std::size_t>(end.ptr - buffer.data()));
    text = text.substr(0, text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) text.remove_suffix(1);
    return text == "-0" ? "0" : std::string(text);
}

std::string point_text(drawn_point point)
{
    return length_text(point.x) + "," + length_text(point.y);
}

std::string colour_text(drawn_colour colour)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string text = "#";
    for (int shift = 20; shift >= 0; shift -= 4)
        text += digits[(colour >> shift) & 0xFU];
    return text;
}

/// A text as character data or attribute value. Control characters are invalid in XML and become blanks.
std::string escaped(std::string_view text)
{
    std::string safe;
    for (const char letter : text) {
        switch (letter) {
        case '&':
            safe += "&amp;";
            break;
        case '<':
            safe += "&lt;";
            break;
        case '>':
            safe += "&gt;";
            break;
        case '"':
            safe += "&quot;";
            break;
        default:
            safe += static_cast<unsigned char>(letter) < 0x20 ? ' ' : letter;
        }
    }
    return safe;
}

std::string_view role_name(drawn_role role)
{
    switch (role) {
    case drawn_role::page:
        return "page";
    case drawn_role::title:
        return "title";
    case drawn_role::subtitle:
        return "subtitle";
    case drawn_role::x_title:
        return "x-title";
    case drawn_role::y_title:
        return "y-title";
    case drawn_role::ground:
        return "ground";
    case drawn_role::grid_line:
        return "grid";
    case drawn_role::axis:
        return "axis";
    case drawn_role::tick:
        return "tick";
    case drawn_role::x_label:
        return "x-label";
    case drawn_role::y_label:
        return "y-label";
    case drawn_role::curve:
        return "curve";
    case drawn_role::function:
        return "function";
    case drawn_role::legend:
        return "legend";
    case drawn_role::legend_sample:
        return "legend-sample";
    case drawn_role::legend_text:
        return "legend-text";
    case drawn_role::notice:
        return "notice";
    }
    return "";
}

std::string class_attribute(drawn_part part)
{
    std::string name(role_name(part.role));
    const bool is_numbered = part.role == drawn_role::curve || part.role == drawn_role::function;
    if (is_numbered) name += " " + name + "-" + std::to_string(part.index);
    return " class=\"" + name + "\"";
}

std::string stroke_attributes(const drawn_stroke& stroke)
{
    std::string text =
        " stroke=\"" + colour_text(stroke.colour) + "\" stroke-width=\"" + length_text(stroke.width) + "\"";
    if (stroke.dashes.empty()) return text;
    text += " stroke-dasharray=\"";
    for (std::size_t i = 0; i < stroke.dashes.size(); ++i)
        text += (i > 0 ? "," : "") + length_text(stroke.dashes[i] * stroke.width);
    return text + "\"";
}

std::string path_data(std::span<const drawn_point> points, std::span<const std::size_t> starts)
{
    std::string data;
    std::size_t next = 0;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const bool begins = next < starts.size() && starts[next] == i;
        if (begins) ++next;
        data += (begins ? "M" : "L") + point_text(points[i]);
    }
    return data;
}

class svg_writer
{
public:
    explicit svg_writer(const drawn_picture& picture)
    {
        const std::string width = length_text(picture.width);
        const std::string height = length_text(picture.height);
        text_ = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" version=\"1.1\" "
                "width=\"" +
                width + "pt\" height=\"" + height + "pt\" viewBox=\"0 0 " + width + " " + height +
                "\" fill=\"none\" stroke-linejoin=\"round\" stroke-linecap=\"butt\">\n";
    }

    void operator()(const drawn_rectangle& rectangle)
    {
        text_ += "<rect" + class_attribute(rectangle.part) + " x=\"" + length_text(rectangle.box.left) + "\" y=\"" +
                 length_text(rectangle.box.top) + "\" width=\"" + length_text(rectangle.box.width) + "\" height=\"" +
                 length_text(rectangle.box.height) + "\"";
        if (rectangle.fill) text_ += " fill=\"" + colour_text(*rectangle.fill) + "\"";
        if (rectangle.stroke) text_ += stroke_attributes(*rectangle.stroke);
        text_ += "/>\n";
    }

    void operator()(const drawn_path& path)
    {
        if (path.points.empty()) return;
        text_ += "<path" + class_attribute(path.part) + stroke_attributes(path.stroke) + " d=\"" +
                 path_data(path.points, path.starts) + "\"/>\n";
    }

    void operator()(const drawn_markers& markers)
    {
        if (markers.points.empty()) return;
        text_ += "<g" + class_attribute(markers.part) + stroke_attributes(markers.stroke) + ">\n";
        for (const drawn_point point : markers.points)
            for (const marker_stroke& stroke : marker_outline(markers.shape))
                add_marker_stroke(stroke, point, markers);
        text_ += "</g>\n";
    }

    void operator()(const drawn_text& drawn)
    {
        text_ += "<text" + class_attribute(drawn.part) + " x=\"" + length_text(drawn.position.x) + "\" y=\"" +
                 length_text(drawn.position.y) + "\" fill=\"" + colour_text(drawn.colour) + "\" font-family=\"" +
                 escaped(family_of(drawn.font)) + "\" font-size=\"" + length_text(drawn.font.size) + "\"";
        if (drawn.font.bold) text_ += " font-weight=\"bold\"";
        if (drawn.font.italic) text_ += " font-style=\"italic\"";
        if (drawn.anchor == text_anchor::middle) text_ += " text-anchor=\"middle\"";
        if (drawn.anchor == text_anchor::end) text_ += " text-anchor=\"end\"";
        if (drawn.angle != 0.0)
            text_ += " transform=\"rotate(" + length_text(drawn.angle) + " " + length_text(drawn.position.x) + " " +
                     length_text(drawn.position.y) + ")\"";
        text_ += ">" + escaped(drawn.text) + "</text>\n";
    }

    std::string taken() { return std::move(text_.append("</svg>\n")); }

private:
    /// The graph's own font first, then those whose widths the layout assumes.
    static std::string family_of(const graph_font& font)
    {
        const std::string usual = "Liberation Sans, Arial, Helvetica, sans-serif";
        if (font.name.empty() || font.name == graph_font().name) return usual;
        std::string name;
        for (const char letter : font.name)
            if (letter != '\'' && letter != '\\') name += letter;
        return "'" + name + "', " + usual;
    }

    void add_marker_stroke(const marker_stroke& stroke, drawn_point middle, const drawn_markers& markers)
    {
        std::string fill;
        if (stroke.fill == marker_stroke::ground::page) fill = " fill=\"#FFFFFF\"";
        if (stroke.fill == marker_stroke::ground::ink) fill = " fill=\"" + colour_text(markers.stroke.colour) + "\"";
        if (stroke.radius > 0.0) {
            text_ += "<circle cx=\"" + length_text(middle.x) + "\" cy=\"" + length_text(middle.y) + "\" r=\"" +
                     length_text(stroke.radius * markers.radius) + "\"" + fill + "/>\n";
            return;
        }
        std::string data;
        for (const drawn_point point : stroke.points)
            data += (data.empty() ? "M" : "L") +
                    point_text({middle.x + point.x * markers.radius, middle.y + point.y * markers.radius});
        text_ += "<path d=\"" + data + (stroke.closed ? "Z" : "") + "\"" + fill + "/>\n";
    }

    std::string text_;
};

} // namespace

std::string drawing_svg(const drawn_picture& picture)
{
    svg_writer writer(picture);
    for (const drawn_shape& shape : picture.shapes)
        std::visit(writer, shape);
    return writer.taken();
}

} // namespace kelvarin

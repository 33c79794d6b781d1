// SPDX-License-Identifier: MIT
#include "nle/nle_file.h"

#include "expr/basParse.h"
#include "nle/equations/row_lines.h"
#include "platform/run_time_text.h"
#include "platform/runtime_failure.h"
#include "platform/text_file.h"

#include <cmath>
#include <span>
#include <utility>
#include <vector>

namespace kelvarin
{

namespace
{

constexpr std::string_view guess_marker = "(0)=";
constexpr std::string_view lower_marker = "(min)=";
constexpr std::string_view upper_marker = "(max)=";

/// Whether the line holds the bounds; both on one line may come in either order.
bool holds_bounds(std::string_view line)
{
    return is_marked(line, lower_marker) ||
           (is_marked(line, upper_marker) && before_comment(line).find(lower_marker) != std::string_view::npos);
}

bool follows_equations(std::string_view line)
{
    return is_marked(line, guess_marker) || holds_bounds(line);
}

/// The text after a marker. Returns nullopt if the line doesn't contain it.
std::optional<std::string_view> text_after(std::string_view line, std::string_view marker)
{
    const std::size_t at = before_comment(line).find(marker);
    if (at == std::string_view::npos) return std::nullopt;
    return line.substr(at + marker.size());
}

/// An equation's name for use in front of a marker. Guesses are read by position, so a name that would make the line
/// look like an equation or a comment is left out.
std::string marked_name(std::string_view equation)
{
    const std::string_view name = parts_of(equation, nle_row_form).name;
    return name.find_first_of("(=#") == std::string_view::npos ? one_line(name) : std::string();
}

bool defines_f(const std::vector<equation_row>& rows)
{
    for (const equation_row& row : rows) {
        if (marked_name(row.equation) == "f") return true;
    }
    return false;
}

void read_title(std::string_view line, nle_content& content)
{
    const title_line read = read_title_line(line, marker_search::last);
    content.title = read.title;
    if (!read.method || read.method->empty()) return;
    const char digit = read.method->front();
    if (digit >= '0' && digit <= '3') content.method = static_cast<nle_method>(digit - '0');
}

void add_row(std::string_view line, std::string_view guess, std::vector<equation_row>& rows)
{
    if (std::optional<equation_row> row = row_of_line(line, guess)) rows.push_back(std::move(*row));
}

void read_equations(line_reader& lines, std::vector<equation_row>& rows)
{
    // After an equation of the variable f, "f(0)=" is its guess and not an equation.
    for (; !lines.at_end() && is_implicit(lines.line(), nle_row_form); lines.take()) {
        if (follows_equations(lines.line()) && defines_f(rows)) break;
        add_row(lines.line(), "", rows);
    }
    for (; !lines.at_end() && !follows_equations(lines.line()); lines.take())
        add_row(lines.line(), no_guess, rows);
}

std::vector<equation_row*> implicit_rows(std::vector<equation_row>& rows)
{
    std::vector<equation_row*> implicit;
    for (equation_row& row : rows) {
        if (is_implicit(row.equation, nle_row_form)) implicit.push_back(&row);
    }
    return implicit;
}

void read_guesses(line_reader& lines, std::span<equation_row* const> implicit)
{
    for (equation_row* row : implicit) {
        if (lines.at_end() || !is_marked(lines.line(), guess_marker)) return;
        const std::string_view line = lines.take();
        row->guess = trimmed(line.substr(line.find('=') + 1));
    }
}

double midpoint(double lower, double upper)
{
    const double sum = lower + upper;
    return std::isfinite(sum) ? sum / 2.0 : lower / 2.0 + upper / 2.0;
}

/// The bounds are on one line or on two.
void read_bounds(line_reader& lines, std::span<equation_row* const> implicit, nle_content& content)
{
    const std::string_view first = lines.take();
    const double lower = val(text_after(first, lower_marker).value());
    std::optional<std::string_view> upper_text = text_after(first, upper_marker);
    while (!upper_text && !lines.at_end() && trimmed(lines.line()).empty())
        lines.take();
    if (!upper_text && !lines.at_end()) upper_text = text_after(lines.take(), upper_marker);

    if (implicit.size() != 1) return;
    content.lower_bound = plain_text(lower);
    if (!upper_text) return;
    const double upper = val(*upper_text);
    content.upper_bound = plain_text(upper);
    implicit.front()->guess = plain_text(midpoint(lower, upper));
}

void write_guesses(const nle_content& content, std::string& text)
{
    std::vector<const equation_row*> implicit;
    for (const equation_row& row : content.rows) {
        if (is_implicit(row.equation, nle_row_form)) implicit.push_back(&row);
    }
    if (implicit.size() == 1) {
        const std::string name = marked_name(implicit.front()->equation);
        write_line(text, name + std::string(lower_marker) + plain_text(val(content.lower_bound)) + ", " + name +
                             std::string(upper_marker) + plain_text(val(content.upper_bound)));
        return;
    }
    for (const equation_row* row : implicit) {
        const std::string name = marked_name(row->equation);
        write_line(text, name + std::string(guess_marker) + one_line(row->guess));
    }
}

} // namespace

bool is_nle_second_line(std::string_view line)
{
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) return false;
    return is_implicit(line, nle_row_form) || is_valid_name(trimmed(line.substr(0, equals)));
}

bool holds_a_bound(std::string_view line)
{
    return text_after(line, lower_marker).has_value() || text_after(line, upper_marker).has_value();
}

bool take_bounds(std::string_view line, nle_content& content)
{
    const std::vector<equation_row*> implicit = implicit_rows(content.rows);
    if (implicit.size() != 1) return false;
    bool taken = false;
    for (const auto& [marker, bound] :
         {std::pair(lower_marker, &content.lower_bound), std::pair(upper_marker, &content.upper_bound)}) {
        const std::optional<std::string_view> text = text_after(line, marker);
        if (!text || !bound->empty()) continue;
        *bound = trimmed(text->substr(0, text->find(',')));
        taken = true;
    }
    const std::optional<double> lower = numeric_value(content.lower_bound);
    const std::optional<double> upper = numeric_value(content.upper_bound);
    if (taken && lower && upper && implicit.front()->guess.empty())
        implicit.front()->guess = plain_text(midpoint(*lower, *upper));
    return taken;
}

std::optional<nle_content> read_nle(std::string_view text, nle_method method)
{
    line_reader lines(split_lines(text));
    nle_content content;
    content.method = method;
    if (lines.at_end()) return std::nullopt;
    read_title(lines.take(), content);
    if (lines.at_end() || !is_nle_second_line(lines.line())) return std::nullopt;

    read_equations(lines, content.rows);
    const std::vector<equation_row*> implicit = implicit_rows(content.rows);
    if (lines.at_end()) return content;
    try {
        if (holds_bounds(lines.line())) {
            read_bounds(lines, implicit, content);
        } else {
            read_guesses(lines, implicit);
        }
    } catch (const runtime_failure&) {
        return std::nullopt;
    }
    return content;
}

std::string write_nle(const nle_content& content, bool older_format)
{
    std::string text;
    write_line(text, title_line_text(content.title, static_cast<int>(content.method), older_format));
    write_rows(text, content.rows, nle_row_form, true, !older_format);
    write_rows(text, content.rows, nle_row_form, false, !older_format);
    write_guesses(content, text);
    return text;
}

} // namespace kelvarin

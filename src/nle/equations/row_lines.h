// SPDX-License-Identifier: MIT
#pragma once

#include "nle/equations/equation_rows.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// The lines of files that hold equation rows.
namespace kelvarin
{

/// Separates title and method in a file's first line.
inline constexpr std::string_view version_marker = " |KVRVER05_";

/// Reads the lines of a file one by one.
class line_reader
{
public:
    explicit line_reader(std::vector<std::string_view> lines) : lines_(std::move(lines)) {}

    bool at_end() const { return next_ == lines_.size(); }
    /// The next line. Not to be called at the end.
    std::string_view line() const { return lines_[next_]; }
    std::string_view take() { return lines_[next_++]; }

private:
    std::vector<std::string_view> lines_;
    std::size_t next_ = 0;
};

/// Appends the line and CR LF.
void write_line(std::string& text, std::string_view line);

/// The parts of a file's first line.
struct title_line
{
    /// Trimmed.
    std::string title;
    /// The text after the version marker; nullopt in a file of the older format.
    std::optional<std::string> method;
};

/// Which occurrence of the version marker counts: a title may contain the marker as well.
enum class marker_search
{
    first,
    last
};

title_line read_title_line(std::string_view line, marker_search search);
/// The title on one line, followed by the marker and the method's index unless `older_format`.
std::string title_line_text(std::string_view title, int method, bool older_format);

/// A line without its comment.
std::string_view before_comment(std::string_view line);

/// Whether the line's left side, up to and including its first "=", ends in `marker`, such as "(0)=". Comments and
/// right sides are ignored: an expression such as (0)==b belongs to an equation.
bool is_marked(std::string_view line, std::string_view marker);

/// The row of a line "equation #comment", split at the first "#"; the equation is trimmed, the comment is not. Returns
/// nullopt if the line has no equation.
std::optional<equation_row> row_of_line(std::string_view line, std::string_view guess);

/// "equation #comment", or the equation alone.
std::string line_of_row(const equation_row& row, bool with_comment);

/// Writes the implicit or the explicit rows in their order with line_of_row.
void write_rows(std::string& text, std::span<const equation_row> rows, const row_form& form, bool implicit,
                bool with_comments);

} // namespace kelvarin

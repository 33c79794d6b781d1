// SPDX-License-Identifier: MIT
#pragma once

#include "platform/clock.h"
#include "shell/settings.h"

#include <cstddef>
#include <filesystem>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

namespace kelvarin
{

/// The format of a kind's lines in the blocks "Settings" and "General", in rich text.
struct report_layout
{
    /// The beginning of each line: a blank, or an empty group that indents.
    std::string_view margin = " ";
    /// Between the label of a setting and its value.
    std::string_view equals = " = ";
    /// The last line has an end of its own, in front of the one that ends every document.
    bool ends_last_line = true;
};

/// A row of the block "Comments": the row's number in the problem, its text and its comment, as typed.
struct commented_row
{
    std::size_t number = 0;
    std::string_view text;
    std::string_view comment;
};

/// A line of the block "Settings": its label in rich text, and the setting's key.
struct setting_line
{
    std::string_view label;
    std::string_view key;
};

/// Composes a report in rich text. Arguments are rich text unless described as typed; typed texts are escaped here.
class report_text
{
public:
    /// Writes the head of every report: title (as typed), date and the program's version.
    report_text(std::string_view title, calendar_date date, report_layout layout = {});
    /// Begins with nothing: for a report with a head of its own.
    explicit report_text(report_layout layout) : layout_(layout) {}

    /// Room for so many bytes.
    void reserve(std::size_t bytes) { body_.reserve(bytes); }
    /// Appends to the current line.
    void add(std::string_view part) { body_ += part; }
    /// Appends the parts and ends the line; without parts an empty line.
    void line(std::initializer_list<std::string_view> parts = {});
    /// The same with the margin of the layout in front.
    void margin_line(std::initializer_list<std::string_view> parts);

    /// An equation or condition, as typed, after its number: "[1] x = 2".
    void numbered_line(std::size_t number, std::initializer_list<std::string_view> typed);
    /// The head, then each row that has a comment with the comment below. Adds nothing and returns false if no row has
    /// a comment.
    bool comments(std::string_view head, std::span<const commented_row> rows);
    /// A line "label = value".
    void setting(std::string_view label, std::string_view value);
    /// A line for each setting with its value in `store`; all of them are numbers.
    void settings_of(std::span<const setting_line> lines, const settings& store);
    /// "Data file: " with a shortened path; adds nothing if the problem has no file.
    void data_file(const std::filesystem::path& path);
    /// "Elapsed time: 0.0000 sec".
    void elapsed_time(double seconds);

    /// The whole document.
    std::string document() const;

private:
    report_layout layout_;
    std::string body_;
};

} // namespace kelvarin

// SPDX-License-Identifier: MIT
#include "help/make/man_page.h"

#include "help/help_page.h"
#include "shell/report/rich_text.h"

#include <sstream>
#include <vector>

namespace kelvarin
{

namespace
{

/// A line of text that the formatter leaves as it is.
std::string escaped(std::string_view text)
{
    std::string safe;
    for (const char letter : text) {
        if (letter == '\\')
            safe += "\\e";
        else if (letter == '-')
            safe += "\\-";
        else if (letter == '\'')
            safe += "\\(aq";
        else if (letter == '`')
            safe += "\\(ga";
        else if (letter == '^')
            safe += "\\(ha";
        else if (letter == '~')
            safe += "\\(ti";
        else
            safe += letter;
    }
    return safe.starts_with('.') ? "\\&" + safe : safe;
}

std::string upper(std::string text)
{
    for (char& letter : text)
        if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
    return text;
}

std::vector<std::string> cells_of(std::string_view row)
{
    std::vector<std::string> cells;
    std::string cell;
    bool in_code = false;
    for (const char letter : row.substr(1)) {
        if (letter == '`') in_code = !in_code;
        if (letter != '|' || in_code) {
            cell += letter;
            continue;
        }
        const std::string read = reading_form(cell);
        const std::size_t from = read.find_first_not_of(' ');
        cells.push_back(from == std::string::npos ? "" : read.substr(from, read.find_last_not_of(' ') + 1 - from));
        cell.clear();
    }
    return cells;
}

class man_writer
{
public:
    void line(const std::string& text)
    {
        if (text.starts_with("```")) return fence();
        if (in_code_) return add(escaped(text));
        if (text.starts_with("<!--") || text.starts_with("# ") || text.starts_with("![")) return;
        if (text.starts_with("|")) return row(text);
        in_table_ = false;
        if (text.empty()) {
            needs_paragraph_ = true;
        } else if (text.starts_with("## ")) {
            heading(".SH " + upper(escaped(reading_form(text.substr(3)))));
        } else if (text.starts_with("### ")) {
            heading(".SS " + escaped(reading_form(text.substr(4))));
        } else if (text.starts_with("- ")) {
            add(".IP \\(bu 2");
            add(escaped(reading_form(text.substr(2))));
            needs_paragraph_ = false;
        } else {
            if (needs_paragraph_) add(".PP");
            needs_paragraph_ = false;
            add(escaped(reading_form(text.substr(text.find_first_not_of(' ')))));
        }
    }
    std::string text() const { return text_; }

private:
    void add(const std::string& text) { text_ += text + "\n"; }
    void heading(const std::string& text)
    {
        add(text);
        needs_paragraph_ = false;
    }
    void fence()
    {
        in_code_ = !in_code_;
        add(in_code_ ? ".PP\n.nf" : ".fi");
        needs_paragraph_ = true;
    }
    /// The head of a table and the rule below it are left out.
    void row(const std::string& text)
    {
        if (!in_table_ || text.starts_with("|---")) {
            in_table_ = true;
            return;
        }
        const std::vector<std::string> cells = cells_of(text);
        add(".TP\n.B " + escaped(cells.front()));
        std::string rest;
        for (std::size_t i = 1; i < cells.size(); ++i)
            rest += (i > 1 ? ", " : "") + escaped(cells[i]);
        add(rest);
        needs_paragraph_ = true;
    }

    std::string text_;
    bool in_code_ = false;
    bool in_table_ = false;
    bool needs_paragraph_ = false;
};

} // namespace

std::string man_page_of(std::string_view markdown, const man_head& head)
{
    const std::string name = escaped(head.name);
    std::string page = ".\\\" SPDX-License-Identifier: MIT\n.TH " + upper(name) + " " + std::to_string(head.section) +
                       " \"\" \"Kelvarin " + std::string(program_version()) + "\"\n.SH NAME\n" + name + " \\- " +
                       escaped(head.summary) + "\n.SH DESCRIPTION\n";
    man_writer writer;
    std::istringstream lines{std::string(markdown)};
    for (std::string line; std::getline(lines, line);)
        writer.line(line);
    return page + writer.text() + ".SH SEE ALSO\n" + escaped(head.see_also) + "\n";
}

std::map<std::string, std::string> man_pages(const std::map<std::string, std::string>& help)
{
    return {{"kelvarin-solve.1", man_page_of(help.at("command-line"), {.name = "kelvarin-solve",
                                                                       .section = 1,
                                                                       .summary = "solve problem files without windows",
                                                                       .see_also = "kelvarin(1), kelvarin-files(5)"})},
            {"kelvarin-files.5", man_page_of(help.at("files"), {.name = "kelvarin-files",
                                                                .section = 5,
                                                                .summary = "problems, tables and graphs of Kelvarin",
                                                                .see_also = "kelvarin(1), kelvarin-solve(1)"})}};
}

} // namespace kelvarin

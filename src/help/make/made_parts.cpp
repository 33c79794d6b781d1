// SPDX-License-Identifier: MIT
#include "help/make/made_parts.h"

#include "batch/run_batch.h"
#include "help/make/gallery.h"
#include "help/make/tables.h"
#include "help/make/work_folder.h"
#include "platform/clock.h"
#include "platform/registry_store.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>

namespace kelvarin
{

namespace
{

namespace fs = std::filesystem;

constexpr std::string_view begin_mark = "<!-- made: ";
constexpr std::string_view begin_end = " -->";
constexpr std::string_view end_mark = "<!-- end -->";

std::string read_all(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error("can not read " + path.string());
    return {std::istreambuf_iterator<char>(file), {}};
}

/// What a command prints, by default settings, on a fixed date, in no time.
std::string output_of(const std::vector<std::string>& arguments)
{
    const fixed_clock clock;
    const memory_registry registry;
    recording_listener listener;
    std::ostringstream out;
    std::ostringstream err;
    run_batch(arguments, out, err, {clock, registry, listener, false, [] { return 0.0; }});
    // What goes wrong is a part of what a page shows.
    return out.str() + err.str();
}

std::string without_blanks_at_line_ends(const std::string& text)
{
    std::string clean;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
        clean.append(line, 0, line.find_last_not_of(" \r") + 1).append("\n");
    return clean;
}

std::string fenced(const std::string& text)
{
    std::string clean = without_blanks_at_line_ends(text);
    while (clean.ends_with("\n\n"))
        clean.pop_back();
    return "```\n" + clean + "```\n";
}

/// Up to ": ", which is removed with it.
std::string take_part(std::string_view& text)
{
    const std::size_t end = text.find(": ");
    if (end == std::string_view::npos) throw std::runtime_error("a figure is NAME: CAPTION: ARGUMENTS");
    std::string part(text.substr(0, end));
    text.remove_prefix(end + 2);
    return part;
}

std::string make_figure(std::string_view what, made_page& page)
{
    const std::string name = take_part(what) + ".svg";
    const std::string caption = take_part(what);
    std::vector<std::string> arguments{"--plot", name};
    std::ranges::copy(words_of_command(what), std::back_inserter(arguments));
    const std::string said = output_of(arguments);
    if (!fs::exists(name)) throw std::runtime_error("no picture: " + said);
    page.figures[name] = read_all(name);
    return "![" + caption + "](figures/" + name + ")\n";
}

std::string make_part(std::string_view what, made_page& page)
{
    const std::size_t blank = what.find(' ');
    const std::string_view verb = what.substr(0, blank);
    const std::string_view rest = blank == std::string_view::npos ? "" : what.substr(blank + 1);
    if (verb == "run")
        return fenced("$ kelvarin-solve " + std::string(rest) + "\n" + output_of(words_of_command(rest)));
    if (verb == "report") return fenced(output_of(words_of_command(rest)));
    if (verb == "figure") return make_figure(rest, page);
    if (verb == "file") return fenced(read_all(fs::path(rest)));
    if (verb == "examples")
        return gallery_table(words_of_command(rest), [](const std::string& file) {
            return output_of({"--format", "json", file});
        });
    if (verb == "operators") return operators_table();
    if (verb == "functions") return functions_table();
    if (verb == "settings") return settings_rows(rest);
    if (verb == "method") return method_table(rest.substr(0, rest.find(' ')), rest.substr(rest.find(' ') + 1));
    throw std::runtime_error("unknown part");
}

} // namespace

std::vector<std::string> words_of_command(std::string_view line)
{
    std::vector<std::string> words;
    bool in_word = false;
    char quote = 0;
    for (const char letter : line) {
        const bool is_quote = quote != 0 ? letter == quote : letter == '\'' || letter == '"';
        if (is_quote) quote = quote != 0 ? 0 : letter;
        if (letter == ' ' && quote == 0) {
            in_word = false;
            continue;
        }
        if (!in_word) words.emplace_back();
        in_word = true;
        if (!is_quote) words.back() += letter;
    }
    return words;
}

made_page make_page(std::string_view markdown, const fs::path& examples)
{
    const work_folder folder(examples);
    made_page page;
    std::istringstream lines{std::string(markdown)};
    bool skipping = false;
    for (std::string line; std::getline(lines, line);) {
        if (line == end_mark) skipping = false;
        if (skipping) continue;
        page.markdown += line + "\n";
        if (!line.starts_with(begin_mark) || !line.ends_with(begin_end)) continue;
        std::string_view what(line);
        what.remove_prefix(begin_mark.size());
        what.remove_suffix(begin_end.size());
        try {
            page.markdown += make_part(what, page);
        } catch (const std::runtime_error& failure) {
            throw std::runtime_error(line + ": " + failure.what());
        }
        skipping = true;
    }
    if (skipping) throw std::runtime_error("a made part has no end");
    return page;
}

} // namespace kelvarin

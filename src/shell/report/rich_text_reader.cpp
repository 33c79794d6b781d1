// SPDX-License-Identifier: MIT
#include "shell/report/rich_text.h"

#include "platform/utf8.h"
#include "shell/report/rich_text_scanner.h"
#include "shell/report/rich_text_tables.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <utility>

namespace kelvarin
{

namespace
{

/// The state that a group inherits and its end restores.
struct group_state
{
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool hidden = false;
    /// Indexes in the tables.
    int colour = 0;
    int font = 3;
    int size = styled_run().size;
    /// Number of characters after a \u escape that replace it for readers without Unicode.
    int replacement_length = 1;

    friend bool operator==(const group_state&, const group_state&) = default;
};

/// Groups whose text is not part of the document's text. A group that begins with \* is one of them too.
constexpr std::array<std::string_view, 25> destinations = {
    "fonttbl", "colortbl", "stylesheet", "info",       "pict",     "header",   "headerl", "headerr", "headerf",
    "footer",  "footerl",  "footerr",    "footerf",    "filetbl",  "footnote", "fldinst", "objdata", "listtable",
    "pntxta",  "pntxtb",   "template",   "nonshppict", "xmlnstbl", "tc",       "xe"};

/// Control words that represent characters.
struct text_word
{
    std::string_view name;
    char32_t letter;
};
constexpr std::array<text_word, 13> text_words = {{{"tab", U'\t'},
                                                   {"cell", U'\t'},
                                                   {"nestcell", U'\t'},
                                                   {"emspace", U'\u2003'},
                                                   {"enspace", U'\u2002'},
                                                   {"qmspace", U'\u2005'},
                                                   {"bullet", U'\u2022'},
                                                   {"endash", U'\u2013'},
                                                   {"emdash", U'\u2014'},
                                                   {"lquote", U'\u2018'},
                                                   {"rquote", U'\u2019'},
                                                   {"ldblquote", U'\u201C'},
                                                   {"rdblquote", U'\u201D'}}};

constexpr std::array<std::string_view, 6> line_ending_words = {"line", "row", "nestrow", "page", "column", "sect"};

constexpr std::array<std::string_view, 8> underlining_words = {"ul",      "uld",  "uldb", "uldash",
                                                               "uldashd", "ulth", "ulw",  "ulwave"};

bool has_style_of(const styled_run& run, const styled_run& other)
{
    return run.bold == other.bold && run.italic == other.italic && run.underline == other.underline &&
           run.colour == other.colour && run.font == other.font && run.family == other.family && run.size == other.size;
}

/// Reads the document in one pass without recursion: groups are a stack of states of limited depth, and deeper groups
/// are only counted, so that no document can exhaust stack or memory.
class rich_text_reader
{
public:
    explicit rich_text_reader(std::string_view document) : scanner_(document) {}
    std::vector<styled_line> read();

private:
    void open_group();
    void close_group();
    void read_text();
    void read_control();
    void read_symbol(char symbol);
    void read_word();
    void apply(const control_word& word);
    bool apply_style(const control_word& word);
    void read_destination(std::string_view name);
    void make_plain();
    void read_unicode(int number);

    bool is_replacement();
    void append_ascii(std::string_view text);
    void append_letter(char32_t code);
    std::string& run_text();
    styled_run new_run() const;
    void flush_surrogate();
    void end_line();

    rich_text_scanner scanner_;
    /// The tables in use: the document's own, or those of reports if it has none.
    const font_table* fonts_ = &report_fonts();
    const colour_table* colours_ = &report_colours();
    font_table own_fonts_;
    colour_table own_colours_;
    /// The state that \plain restores.
    group_state plain_;
    group_state state_;
    /// The state of the line's last run.
    group_state run_state_;
    std::vector<group_state> outer_;
    std::size_t uncounted_depth_ = 0;
    int replacement_left_ = 0;
    char32_t high_surrogate_ = 0;
    styled_line line_;
    std::vector<styled_line> lines_;
};

std::vector<styled_line> rich_text_reader::read()
{
    while (!scanner_.at_end()) {
        const char byte = scanner_.peek();
        if (byte == '{')
            open_group();
        else if (byte == '}')
            close_group();
        else if (byte == '\\')
            read_control();
        else if (byte == '\r' || byte == '\n')
            scanner_.advance();
        else
            read_text();
    }
    flush_surrogate();
    if (!line_.empty()) end_line();
    return std::move(lines_);
}

void rich_text_reader::open_group()
{
    constexpr std::size_t deepest = 1000;
    scanner_.advance();
    replacement_left_ = 0;
    if (outer_.size() < deepest)
        outer_.push_back(state_);
    else
        ++uncounted_depth_;
}

void rich_text_reader::close_group()
{
    scanner_.advance();
    replacement_left_ = 0;
    if (uncounted_depth_ > 0)
        --uncounted_depth_;
    else if (!outer_.empty()) {
        state_ = outer_.back();
        outer_.pop_back();
    }
}

void rich_text_reader::read_text()
{
    if (const std::string_view plain = scanner_.take_plain(); !plain.empty()) return append_ascii(plain);
    const char32_t letter = scanner_.take_letter();
    if (!is_replacement()) append_letter(letter);
}

void rich_text_reader::read_control()
{
    scanner_.advance();
    if (scanner_.at_end()) return;
    const char byte = scanner_.peek();
    if (rich_text_scanner::is_letter(byte))
        read_word();
    else if (static_cast<unsigned char>(byte) < 0x80) {
        scanner_.advance();
        read_symbol(byte);
    }
}

void rich_text_reader::read_symbol(char symbol)
{
    constexpr char32_t blank_that_does_not_break = 0xA0;
    constexpr char32_t hyphen_that_does_not_break = 0x2011;
    if (symbol == '*') {
        scanner_.take_group();
        return;
    }
    if (symbol == '\'') {
        const std::optional<unsigned char> byte = scanner_.take_hex();
        if (byte && !is_replacement()) append_letter(ansi_letter(*byte));
        return;
    }
    if (is_replacement()) return;
    switch (symbol) {
    case '\\':
    case '{':
    case '}':
    case ' ':
    case '\t':
        append_letter(static_cast<unsigned char>(symbol));
        break;
    case '~':
        append_letter(blank_that_does_not_break);
        break;
    case '_':
        append_letter(hyphen_that_does_not_break);
        break;
    case '\r':
        if (!scanner_.at_end() && scanner_.peek() == '\n') scanner_.advance();
        [[fallthrough]];
    case '\n':
        end_line();
        break;
    default:
        break;
    }
}

void rich_text_reader::read_word()
{
    const control_word word = scanner_.take_word();
    // \bin is followed by data even if it counts as a replacement.
    if (is_replacement() && word.name != "bin") return;
    apply(word);
}

void rich_text_reader::apply(const control_word& word)
{
    if (word.name == "par") return end_line();
    if (apply_style(word)) return;
    if (word.name == "u") {
        if (word.parameter) read_unicode(*word.parameter);
    } else if (word.name == "uc")
        state_.replacement_length = std::max(word.parameter.value_or(1), 0);
    else if (word.name == "bin")
        scanner_.skip_bytes(word.parameter);
    else if (std::ranges::find(line_ending_words, word.name) != line_ending_words.end())
        end_line();
    else if (std::ranges::find(destinations, word.name) != destinations.end())
        read_destination(word.name);
    else if (const auto found = std::ranges::find(text_words, word.name, &text_word::name); found != text_words.end())
        append_letter(found->letter);
    else if (word.name == "rtf") {
        // A complete document begins with the format's default size.
        constexpr int size_of_documents = 24;
        plain_.size = size_of_documents;
        plain_.font = 0;
        make_plain();
    } else if (word.name == "deff") {
        plain_.font = word.parameter.value_or(0);
        state_.font = plain_.font;
    }
}

bool rich_text_reader::apply_style(const control_word& word)
{
    constexpr int largest_size = 3276;
    const bool on = word.parameter != 0;
    const int number = std::max(word.parameter.value_or(0), 0);
    if (word.name == "b")
        state_.bold = on;
    else if (word.name == "i")
        state_.italic = on;
    else if (word.name == "ulnone")
        state_.underline = false;
    else if (word.name == "cf")
        state_.colour = number;
    else if (word.name == "f")
        state_.font = number;
    else if (word.name == "fs")
        state_.size = std::clamp(number, 1, largest_size);
    else if (word.name == "plain")
        make_plain();
    else if (word.name == "v" || word.name == "deleted")
        state_.hidden = on;
    else if (word.name.front() == 'u' && std::ranges::find(underlining_words, word.name) != underlining_words.end())
        state_.underline = on;
    else
        return false;
    return true;
}

void rich_text_reader::read_destination(std::string_view name)
{
    const std::string_view group = scanner_.take_group();
    if (name == "fonttbl" && group != report_font_group) {
        own_fonts_ = read_font_table(group);
        fonts_ = &own_fonts_;
    } else if (name == "colortbl" && group != report_colour_group) {
        own_colours_ = read_colour_table(group);
        colours_ = &own_colours_;
    }
}

void rich_text_reader::make_plain()
{
    const int replacement_length = state_.replacement_length;
    state_ = plain_;
    state_.replacement_length = replacement_length;
}

void rich_text_reader::read_unicode(int number)
{
    // The number is a signed 16-bit one; some programs write it unsigned.
    const auto code = static_cast<char32_t>(number < 0 ? number + 0x10000 : number);
    if (code >= 0xD800 && code <= 0xDBFF) {
        flush_surrogate();
        high_surrogate_ = code;
    } else if (code >= 0xDC00 && code <= 0xDFFF && high_surrogate_ != 0) {
        const char32_t high = std::exchange(high_surrogate_, 0);
        append_letter(0x10000 + ((high - 0xD800) << 10) + (code - 0xDC00));
    } else
        append_letter(code);
    replacement_left_ = state_.replacement_length;
}

/// Whether the character just read only replaces a \u escape before it.
bool rich_text_reader::is_replacement()
{
    if (replacement_left_ == 0) return false;
    --replacement_left_;
    return true;
}

void rich_text_reader::append_ascii(std::string_view text)
{
    const std::size_t replaced = std::min(text.size(), static_cast<std::size_t>(replacement_left_));
    replacement_left_ -= static_cast<int>(replaced);
    text.remove_prefix(replaced);
    if (text.empty()) return;
    flush_surrogate();
    if (!state_.hidden) run_text() += text;
}

void rich_text_reader::append_letter(char32_t code)
{
    flush_surrogate();
    // Controls are not text, and a line must not contain line ends.
    const bool is_control = (code < 0x20 && code != U'\t') || code == 0x7F;
    if (!is_control && !state_.hidden) append_utf8(run_text(), code);
}

/// The text of the last run if it has the current style, else of a new run.
std::string& rich_text_reader::run_text()
{
    if (!line_.empty() && run_state_ == state_) return line_.back().text;
    styled_run run = new_run();
    // Different numbers may mean the same font or colour.
    if (line_.empty() || !has_style_of(line_.back(), run)) line_.push_back(std::move(run));
    run_state_ = state_;
    return line_.back().text;
}

styled_run rich_text_reader::new_run() const
{
    styled_run run;
    run.bold = state_.bold;
    run.italic = state_.italic;
    run.underline = state_.underline;
    run.size = state_.size;
    if (const auto font = fonts_->find(state_.font); font != fonts_->end()) {
        run.font = font->second.name;
        run.family = font->second.family;
    }
    if (const auto colour = static_cast<std::size_t>(state_.colour); colour < colours_->size())
        run.colour = (*colours_)[colour];
    return run;
}

/// A high surrogate without a low one becomes U+FFFD.
void rich_text_reader::flush_surrogate()
{
    if (high_surrogate_ == 0) return;
    const char32_t half = std::exchange(high_surrogate_, 0);
    if (!state_.hidden) append_utf8(run_text(), half);
}

void rich_text_reader::end_line()
{
    flush_surrogate();
    lines_.push_back(std::move(line_));
    line_.clear();
}

} // namespace

std::vector<styled_line> read_rich_text(std::string_view document)
{
    return rich_text_reader(document).read();
}

} // namespace kelvarin

// SPDX-License-Identifier: MIT
#include "shell/rich_text.h"

#include "platform/utf8.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <utility>

namespace kelvarin
{

namespace
{

/// What a group changes and its end restores.
struct group_state
{
    bool bold = false;
    bool italic = false;
    bool underline = false;
    int colour = styled_run().colour;
    int font = styled_run().font;
    int size = styled_run().size;
    /// How many characters behind a \u escape are its replacement for readers without Unicode.
    int replacement_length = 1;
};

struct control_word
{
    std::string_view name;
    std::optional<int> parameter;
};

/// Groups whose text is not part of the document's. A group that begins with \* is one of them too.
constexpr std::array<std::string_view, 19> destinations = {
    "fonttbl",   "colortbl",   "stylesheet", "info",    "pict",    "header",  "headerl",
    "headerr",   "headerf",    "footer",     "footerl", "footerr", "footerf", "filetbl",
    "listtable", "nonshppict", "xmlnstbl",   "tc",      "xe"};

/// Words that stand for text.
struct text_word
{
    std::string_view name;
    char32_t letter;
};
constexpr std::array<text_word, 9> text_words = {{{"tab", U'\t'},
                                                  {"cell", U'\t'},
                                                  {"bullet", U'\u2022'},
                                                  {"endash", U'\u2013'},
                                                  {"emdash", U'\u2014'},
                                                  {"lquote", U'\u2018'},
                                                  {"rquote", U'\u2019'},
                                                  {"ldblquote", U'\u201C'},
                                                  {"rdblquote", U'\u201D'}}};

constexpr std::array<std::string_view, 5> line_ending_words = {"par", "line", "row", "page", "sect"};

/// The letters of \'80 to \'9f: the "ansi" of these documents is code page 1252, which has letters where
/// Latin-1 has controls. Its five gaps stay what they are in Latin-1.
constexpr std::array<char16_t, 32> ansi_letters = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                   0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                                   0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                   0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr bool is_letter(char byte)
{
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z');
}
constexpr bool is_digit(char byte)
{
    return byte >= '0' && byte <= '9';
}
constexpr bool is_plain_byte(char byte)
{
    return byte >= 0x20 && byte < 0x7F && byte != '\\' && byte != '{' && byte != '}';
}

std::optional<int> hex_digit(char byte)
{
    if (is_digit(byte)) return byte - '0';
    if (byte >= 'a' && byte <= 'f') return byte - 'a' + 10;
    if (byte >= 'A' && byte <= 'F') return byte - 'A' + 10;
    return std::nullopt;
}

/// One walk over the document, without recursion: groups are a stack of states with a limit, and deeper ones
/// are only counted, so that no document can exhaust stack or memory.
class rich_text_reader
{
public:
    explicit rich_text_reader(std::string_view document) : document_(document) {}
    std::vector<styled_line> read();

private:
    bool at_end() const { return at_ >= document_.size(); }

    void open_group();
    void close_group();
    void skip_group();
    void skip_control_in_group();
    void read_text();
    void read_control();
    void read_symbol(char symbol);
    void read_hex_letter();
    void read_word();
    control_word scan_word();
    void apply(const control_word& word);
    bool apply_style(const control_word& word);
    void read_unicode(int number);

    bool is_replacement();
    void append_ascii(std::string_view text);
    void append_letter(char32_t code);
    std::string& run_text();
    void flush_surrogate();
    void end_line();

    std::string_view document_;
    std::size_t at_ = 0;
    group_state state_;
    std::vector<group_state> outer_;
    std::size_t uncounted_depth_ = 0;
    int replacement_left_ = 0;
    char32_t high_surrogate_ = 0;
    styled_line line_;
    std::vector<styled_line> lines_;
};

std::vector<styled_line> rich_text_reader::read()
{
    while (!at_end()) {
        const char byte = document_[at_];
        if (byte == '{')
            open_group();
        else if (byte == '}')
            close_group();
        else if (byte == '\\')
            read_control();
        else if (byte == '\r' || byte == '\n')
            ++at_;
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
    ++at_;
    replacement_left_ = 0;
    if (outer_.size() < deepest)
        outer_.push_back(state_);
    else
        ++uncounted_depth_;
}

void rich_text_reader::close_group()
{
    ++at_;
    replacement_left_ = 0;
    if (uncounted_depth_ > 0)
        --uncounted_depth_;
    else if (!outer_.empty()) {
        state_ = outer_.back();
        outer_.pop_back();
    }
}

/// To the brace that closes the group we are in, which is left to be read.
void rich_text_reader::skip_group()
{
    std::size_t depth = 0;
    while (!at_end()) {
        const char byte = document_[at_];
        if (byte == '\\') {
            skip_control_in_group();
            continue;
        }
        if (byte == '}' && depth == 0) return;
        if (byte == '{') ++depth;
        if (byte == '}') --depth;
        ++at_;
    }
}

void rich_text_reader::skip_control_in_group()
{
    ++at_;
    if (at_end()) return;
    if (!is_letter(document_[at_])) {
        ++at_;
        return;
    }
    // Binary data may hold braces.
    const control_word word = scan_word();
    if (word.name == "bin") apply(word);
}

void rich_text_reader::read_text()
{
    const std::size_t first = at_;
    while (!at_end() && is_plain_byte(document_[at_]))
        ++at_;
    if (at_ > first) {
        append_ascii(document_.substr(first, at_ - first));
        return;
    }
    const auto byte = static_cast<unsigned char>(document_[at_]);
    const utf8_letter letter = first_utf8_letter(document_.substr(at_)).value_or(utf8_letter{byte, 1});
    at_ += letter.length;
    if (!is_replacement()) append_letter(letter.code);
}

void rich_text_reader::read_control()
{
    ++at_;
    if (at_end()) return;
    const char byte = document_[at_];
    if (is_letter(byte))
        read_word();
    else if (static_cast<unsigned char>(byte) < 0x80) {
        ++at_;
        read_symbol(byte);
    }
}

void rich_text_reader::read_symbol(char symbol)
{
    constexpr char32_t blank_that_does_not_break = 0xA0;
    constexpr char32_t hyphen_that_does_not_break = 0x2011;
    if (symbol == '*') {
        skip_group();
        return;
    }
    if (symbol == '\'') {
        read_hex_letter();
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
        if (!at_end() && document_[at_] == '\n') ++at_;
        [[fallthrough]];
    case '\n':
        end_line();
        break;
    default:
        break;
    }
}

void rich_text_reader::read_hex_letter()
{
    const auto digit = [this](std::size_t place) {
        return place < document_.size() ? hex_digit(document_[place]) : std::nullopt;
    };
    const std::optional<int> high = digit(at_);
    const std::optional<int> low = digit(at_ + 1);
    if (!high || !low) return;
    at_ += 2;
    if (is_replacement()) return;
    const auto byte = static_cast<std::size_t>(*high) * 16 + static_cast<std::size_t>(*low);
    const bool has_own_letter = byte >= 0x80 && byte < 0x80 + ansi_letters.size();
    append_letter(has_own_letter ? ansi_letters[byte - 0x80] : static_cast<char32_t>(byte));
}

void rich_text_reader::read_word()
{
    const control_word word = scan_word();
    // \bin is followed by data whether it counts as a replacement or not.
    if (is_replacement() && word.name != "bin") return;
    apply(word);
}

/// Name, number and the one blank that ends them.
control_word rich_text_reader::scan_word()
{
    constexpr int largest_parameter = 1 << 24;
    control_word word;
    const std::size_t first = at_;
    while (!at_end() && is_letter(document_[at_]))
        ++at_;
    word.name = document_.substr(first, at_ - first);
    const bool negative = at_ + 1 < document_.size() && document_[at_] == '-' && is_digit(document_[at_ + 1]);
    if (negative) ++at_;
    if (!at_end() && is_digit(document_[at_])) {
        int number = 0;
        for (; !at_end() && is_digit(document_[at_]); ++at_)
            number = std::min(number * 10 + (document_[at_] - '0'), largest_parameter);
        word.parameter = negative ? -number : number;
    }
    if (!at_end() && document_[at_] == ' ') ++at_;
    return word;
}

void rich_text_reader::apply(const control_word& word)
{
    if (apply_style(word)) return;
    if (word.name == "u") {
        if (word.parameter) read_unicode(*word.parameter);
    } else if (word.name == "uc")
        state_.replacement_length = std::max(word.parameter.value_or(1), 0);
    else if (word.name == "bin")
        at_ += std::min(static_cast<std::size_t>(std::max(word.parameter.value_or(0), 0)), document_.size() - at_);
    else if (std::ranges::find(line_ending_words, word.name) != line_ending_words.end())
        end_line();
    else if (std::ranges::find(destinations, word.name) != destinations.end())
        skip_group();
    else if (const auto found = std::ranges::find(text_words, word.name, &text_word::name); found != text_words.end())
        append_letter(found->letter);
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
    else if (word.name == "ul")
        state_.underline = on;
    else if (word.name == "ulnone")
        state_.underline = false;
    else if (word.name == "cf")
        state_.colour = number;
    else if (word.name == "f")
        state_.font = number;
    else if (word.name == "fs")
        state_.size = std::clamp(number, 1, largest_size);
    else if (word.name == "plain") {
        const int replacement_length = state_.replacement_length;
        state_ = {};
        state_.replacement_length = replacement_length;
    } else
        return false;
    return true;
}

void rich_text_reader::read_unicode(int number)
{
    // Written as a signed 16-bit number, by some programs as an unsigned one.
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

/// Whether the character just read only stands in for a \u escape before it.
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
    run_text() += text;
}

void rich_text_reader::append_letter(char32_t code)
{
    flush_surrogate();
    // Controls are no text, and a line end may not get into a line.
    const bool is_control = (code < 0x20 && code != U'\t') || code == 0x7F;
    if (!is_control) append_utf8(run_text(), code);
}

/// The text of the run that has the present style, a new one where the last has another.
std::string& rich_text_reader::run_text()
{
    const auto has_present_style = [this](const styled_run& run) {
        return run.bold == state_.bold && run.italic == state_.italic && run.underline == state_.underline &&
               run.colour == state_.colour && run.font == state_.font && run.size == state_.size;
    };
    if (line_.empty() || !has_present_style(line_.back()))
        line_.push_back({{}, state_.bold, state_.italic, state_.underline, state_.colour, state_.font, state_.size});
    return line_.back().text;
}

/// The first half of a pair whose second never came becomes U+FFFD.
void rich_text_reader::flush_surrogate()
{
    if (high_surrogate_ == 0) return;
    append_utf8(run_text(), std::exchange(high_surrogate_, 0));
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

std::string plain_text_of(const std::vector<styled_line>& lines)
{
    std::string text;
    for (const styled_line& line : lines) {
        for (const styled_run& run : line)
            text += run.text;
        text += '\n';
    }
    return text;
}

} // namespace kelvarin

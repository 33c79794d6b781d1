// SPDX-License-Identifier: MIT
#include "reg/table/delimited_reader.h"

#include <utility>

namespace kelvarin
{

namespace
{

constexpr char quotation_mark = '"';

} // namespace

delimited_reader::delimited_reader(char delimiter, record_taker take) : delimiter_(delimiter), take_(std::move(take)) {}

bool delimited_reader::read(std::string_view bytes)
{
    for (const char c : bytes) {
        if (!wanted_) return false;
        put(c);
    }
    return wanted_;
}

bool delimited_reader::finish()
{
    while (wanted_ && place_ == place::in_quotation)
        reread_quotation();
    if (returns_ > 0) lone_returns_.add(line_ - 1);
    if (wanted_ && (place_ != place::cell_begin || !cells_.empty())) end_record();
    return wanted_;
}

void delimited_reader::put(char c)
{
    if (c == '\0') return nul_characters_.add(line_);
    if (place_ == place::in_quotation) return put_in_quotation(c);
    if (place_ == place::behind_mark) {
        // A doubled mark stands for one.
        if (c == quotation_mark) return put_in_quotation(c);
        place_ = place::in_cell;
    }
    if (!take_line_end(c)) put_in_cell(c);
}

/// Takes CR and LF outside of quotations. A record ends at the first of them.
bool delimited_reader::take_line_end(char c)
{
    if (c == '\r' && ++returns_ == 1) {
        ++line_ends_;
        end_record();
    } else if (c == '\n') {
        if (returns_ == 0) {
            ++line_ends_;
            end_record();
        }
        returns_ = 0;
    } else if (c != '\r') {
        if (returns_ > 0) lone_returns_.add(line_ - 1);
        returns_ = 0;
        return false;
    }
    return true;
}

void delimited_reader::put_in_cell(char c)
{
    if (is_delimiter(c)) {
        if (place_ != place::cell_begin || delimiter_ != blank_delimiter) end_cell();
        return;
    }
    if (place_ == place::cell_begin && c == quotation_mark) {
        place_ = place::in_quotation;
        quotation_line_ = line_;
        quotation_.clear();
        return;
    }
    place_ = place::in_cell;
    cell_ += c;
    if (cell_.size() > most_cell_bytes) {
        too_long_cell_ = line_;
        wanted_ = false;
    }
}

void delimited_reader::put_in_quotation(char c)
{
    quotation_ += c;
    if (c == quotation_mark && place_ == place::in_quotation) {
        place_ = place::behind_mark;
        return;
    }
    place_ = place::in_quotation;
    cell_ += c;
    if (c == '\n') ++line_;
    if (quotation_.size() > most_cell_bytes) reread_quotation();
}

/// The mark opened no quotation: what followed is read once more, with the mark as a letter.
void delimited_reader::reread_quotation()
{
    unclosed_.add(quotation_line_);
    line_ = quotation_line_;
    cell_ = quotation_mark;
    place_ = place::in_cell;
    for (const char c : std::exchange(quotation_, {})) {
        if (!wanted_) return;
        put(c);
    }
}

void delimited_reader::end_cell()
{
    cells_.push_back(std::exchange(cell_, {}));
    place_ = place::cell_begin;
}

void delimited_reader::end_record()
{
    // A delimiter at the end of a line has an empty cell behind it, unless blanks are the delimiter.
    const bool blank_at_end = place_ == place::cell_begin && (cells_.empty() || delimiter_ == blank_delimiter);
    if (!blank_at_end) end_cell();
    wanted_ = take_(cells_, record_line_);
    cells_.clear();
    record_line_ = ++line_;
}

} // namespace kelvarin

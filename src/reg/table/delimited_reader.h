// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace kelvarin
{

/// How often something odd was met in a file, and in which line first.
struct line_tally
{
    std::int64_t count = 0;
    std::int64_t first_line = 0;

    void add(std::int64_t line)
    {
        if (count++ == 0) first_line = line;
    }
};

/// A delimiter that stands for any run of blanks and tabs.
inline constexpr char blank_delimiter = ' ';

/// Splits delimited text ("CSV", RFC 4180) into records while it comes, in pieces of any size. Cells may be quoted and
/// then hold delimiters and line ends. Nothing is refused but a cell of more than most_cell_bytes: a quotation that is
/// not closed within that length is none, NUL is passed over, and line ends are CR LF, LF, CR or CR CR LF.
class delimited_reader
{
public:
    static constexpr std::size_t most_cell_bytes = 32'767;

    /// Gets the cells of a record, none for a blank line, and the line where it begins, from 1. Returns false if it
    /// wants no more.
    using record_taker = std::function<bool(std::vector<std::string>& cells, std::int64_t line)>;

    delimited_reader(char delimiter, record_taker take);

    /// Each returns false if no more is wanted or a cell is too long.
    bool read(std::string_view bytes);
    /// The text has ended.
    bool finish();

    const line_tally& nul_characters() const { return nul_characters_; }
    const line_tally& unclosed_quotations() const { return unclosed_; }
    /// Line ends that are a CR alone, and all.
    const line_tally& lone_returns() const { return lone_returns_; }
    std::int64_t line_ends() const { return line_ends_; }
    /// The line of a cell that is too long; 0 if there is none.
    std::int64_t too_long_cell() const { return too_long_cell_; }

private:
    enum class place
    {
        cell_begin,
        in_cell,
        in_quotation,
        /// Behind a quotation mark that closes the quotation unless another one follows.
        behind_mark
    };

    void put(char c);
    void put_in_cell(char c);
    void put_in_quotation(char c);
    bool take_line_end(char c);
    bool is_delimiter(char c) const { return c == delimiter_ || (delimiter_ == blank_delimiter && c == '\t'); }
    void end_cell();
    void end_record();
    void reread_quotation();

    char delimiter_;
    record_taker take_;
    bool wanted_ = true;
    place place_ = place::cell_begin;
    std::string cell_;
    std::vector<std::string> cells_;
    /// What was read since the quotation mark, and where that stood.
    std::string quotation_;
    std::int64_t quotation_line_ = 0;
    std::int64_t line_ = 1;
    std::int64_t record_line_ = 1;
    /// CRs of a line end that may not be complete.
    int returns_ = 0;

    line_tally nul_characters_, unclosed_, lone_returns_;
    std::int64_t line_ends_ = 0;
    std::int64_t too_long_cell_ = 0;
};

} // namespace kelvarin

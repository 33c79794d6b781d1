// SPDX-License-Identifier: MIT
#pragma once

#include "platform/message_box.h"

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

/// Common parts of the readers of the files of units and of constants.
namespace kelvarin
{

/// A skipped line of a data file, counted from 1, and the reason.
struct data_fault
{
    int line = 0;
    std::string reason;

    friend bool operator==(const data_fault&, const data_fault&) = default;
};

/// Whether a trimmed line is blank or a comment, which begins with an apostrophe.
bool is_passed_over(std::string_view line);

/// A search for words, ignoring case; a search without words matches everything.
class word_search
{
public:
    /// `words` are separated by blanks.
    explicit word_search(std::string_view words);

    /// Whether each word occurs in at least one of the texts.
    bool all_in(std::initializer_list<std::string_view> texts) const;

private:
    std::vector<std::string> words_;
};

/// The message about a missing data file; the window that needs it closes afterwards.
message_box missing_data_box(std::string_view file_name);

} // namespace kelvarin

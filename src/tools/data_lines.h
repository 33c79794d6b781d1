// SPDX-License-Identifier: MIT
#pragma once

#include "platform/message_box.h"

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

/// What the files of units and of constants have in common.
namespace kelvarin
{

/// A line of a data file that was passed over, counted from 1, and why.
struct data_fault
{
    int line = 0;
    std::string reason;

    friend bool operator==(const data_fault&, const data_fault&) = default;
};

/// Whether a trimmed line says nothing: a blank one, or one that begins with an apostrophe.
bool is_passed_over(std::string_view line);

/// Words that are looked for, in any case; no word at all is found everywhere.
class word_search
{
public:
    /// The words stand between blanks.
    explicit word_search(std::string_view words);

    /// Whether each word stands in one of the texts.
    bool all_in(std::initializer_list<std::string_view> texts) const;

private:
    std::vector<std::string> words_;
};

/// What is said where a data file can not be found; the window that needs it closes behind the box.
message_box missing_data_box(std::string_view file_name);

} // namespace kelvarin

// SPDX-License-Identifier: MIT
#pragma once

#include "platform/message_box.h"

#include <optional>
#include <string>
#include <string_view>

/// What keys do to the text of a cell that takes numbers, in grids and in their editing lines.
namespace kelvarin
{

inline constexpr char backspace_key = '\b';

struct typed_text
{
    std::string text;
    /// Digits and points alone make a table unsaved.
    bool clears_saved = false;
};

/// The text after a key: digits, ".", "-", "+", E, e or Backspace. Returns nullopt if the key is refused. `first` is
/// the first key in a cell: it replaces a text that is no number.
std::optional<typed_text> typed_key(std::string_view text, char key, bool first);

/// The text that Enter leaves: without an exponent letter at the end.
std::string entered_text(std::string_view text);

/// The text that a cell gets while the editing line is typed in: the plain form of its number. Returns nullopt, and the
/// cell stays, if the line is no number.
std::optional<std::string> followed_text(std::string_view line);

/// The text that accepting the line gives: the plain form of its number, or an empty text for a blank line. Returns
/// nullopt if the line is no number and not_numeric_question must be asked.
std::optional<std::string> accepted_text(std::string_view line);
/// The text if that question is answered by OK: the plain form of the number that the line begins with, 0 if none. Too
/// large a number gives nullopt: the cell gets its former text, as with Cancel.
std::optional<std::string> converted_text(std::string_view line);

inline constexpr const char* not_numeric_question =
    "Data entered is not a numeric value. Press OK to convert to numeric value.\rPress Cancel to return to previous "
    "value.";
inline constexpr const char* not_numeric_title = "Krelvarin Guide";

} // namespace kelvarin

// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace kelvarin
{

/// A Unicode character and the number of its bytes in UTF-8.
struct utf8_letter
{
    char32_t code = 0;
    std::size_t length = 0;
};

/// The character at the start of `text`. Returns nullopt if there is no valid one. Overlong forms, surrogates and codes
/// above 10FFFF are invalid (RFC 3629).
std::optional<utf8_letter> first_utf8_letter(std::string_view text);

/// Whether `bytes` are valid UTF-8 as a whole.
bool is_utf8(std::string_view bytes);

/// Appends a character in UTF-8; an invalid code is appended as U+FFFD.
void append_utf8(std::string& text, char32_t code);

} // namespace kelvarin

// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace kelvarin
{

/// Takes the bytes of a text file as they come and gives them without a byte order mark; UTF-16, which the mark tells,
/// becomes UTF-8.
class import_bytes
{
public:
    std::string take(std::string_view bytes);
    /// What is left at the end of the file.
    std::string finish();

private:
    enum class encoding
    {
        not_known,
        single_bytes,
        utf16_little,
        utf16_big
    };

    void find_encoding();
    std::string decoded();

    encoding encoding_ = encoding::not_known;
    /// Bytes that are not complete yet.
    std::string rest_;
    char32_t high_half_ = 0;
};

} // namespace kelvarin

// SPDX-License-Identifier: MIT
#include "platform/text_file.h"
#include "promise.h"
#include "shell/report/rich_text.h"

#include <algorithm>
#include <string>
#include <vector>

/// Any document is read without harm, what was read comes back when it is written anew, and any text that is
/// escaped comes back from a document.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size)
{
    using namespace kelvarin;
    const std::string_view document(reinterpret_cast<const char*>(bytes), size);
    const std::vector<styled_line> lines = read_rich_text(document);
    fuzz::promise(read_rich_text(rich_text_of(lines)) == lines, "what was read comes back when it is written");
    fuzz::promise(to_utf8(html_of(lines)) == html_of(lines), "the HTML of a document is UTF-8");

    std::string text = to_utf8(document);
    const std::string shown =
        plain_text_of(read_rich_text(rich_text_document("{\\f6 " + escape_rich_text(text) + "}")));
    // Control characters are shown as blanks, line ends among them.
    std::replace_if(
        text.begin(), text.end(), [](char c) { return (c >= 0 && c < ' ') || c == 127; }, ' ');
    std::string compared = shown;
    std::replace_if(
        compared.begin(), compared.end(), [](char c) { return (c >= 0 && c < ' ') || c == 127; }, ' ');
    fuzz::promise(compared.find(text) != std::string::npos, "escaped text comes back");
    return 0;
}

// SPDX-License-Identifier: MIT
#include "platform/text_file.h"

#include "platform/utf8.h"
#include "support/scratch_folder.h"
#include "support/table.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <string>
#include <vector>

#include <sys/stat.h>

namespace kelvarin
{

using std::string_literals::operator""s;

TEST(SplitLines, TakesEveryKindOfLineEnd)
{
    for (const auto& [text, expected] :
         test::table<const char*, std::vector<std::string_view>>{{"", {}},
                                                                 {"a", {"a"}},
                                                                 {"a\n", {"a"}},
                                                                 {"a\r\n", {"a"}},
                                                                 {"a\r", {"a"}},
                                                                 {"a\r\r\n", {"a"}},
                                                                 {"a\nb", {"a", "b"}},
                                                                 {"a\r\nb\rc\r\r\nd", {"a", "b", "c", "d"}},
                                                                 {"\n", {""}},
                                                                 {"\n\n", {"", ""}},
                                                                 {"a\r\rb", {"a", "", "b"}},
                                                                 {"a\n\rb", {"a", "", "b"}},
                                                                 {"a\r\r\r\nb", {"a", "", "b"}}})
        EXPECT_EQ(split_lines(text), expected) << ::testing::PrintToString(std::string(text));
}

TEST(Trimmed, TakesBlanksTabsAndLineEndsOffBothEnds)
{
    EXPECT_EQ(trimmed(" \t\r\n a b \r\n\t "), "a b");
    EXPECT_EQ(trimmed("a"), "a");
    EXPECT_EQ(trimmed(" \t "), "");
    EXPECT_EQ(trimmed(""), "");
}

TEST(Utf8, RefusesWhatTheStandardRefuses)
{
    for (const std::string& bytes :
         {""s, "abc"s, "\xC3\xA9"s, "\xE2\x82\xAC"s, "\xF0\x9F\x98\x80"s, "\xF4\x8F\xBF\xBF"s, "\0"s}) {
        EXPECT_TRUE(is_utf8(bytes)) << ::testing::PrintToString(bytes);
        EXPECT_EQ(to_utf8(bytes), bytes);
    }
    // RFC 3629, sections 3 and 4: no overlong form, no surrogate, nothing above 10FFFF, nothing cut short.
    for (const char* bytes :
         {"\xC0\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF", "\xED\xA0\x80", "\xF4\x90\x80\x80",
          "\xF8\x88\x80\x80\x80", "\xC3", "\xE2\x82", "\xF0\x9F\x98", "\x80", "a\xC3("}) {
        EXPECT_FALSE(is_utf8(bytes)) << ::testing::PrintToString(std::string(bytes));
        EXPECT_TRUE(is_utf8(to_utf8(bytes)));
    }
    EXPECT_EQ(to_utf8("\xE9t\xE9"), "\xC3\xA9t\xC3\xA9");
}

RC_GTEST_PROP(Utf8, ReadsEveryLetterItWrote, ())
{
    const auto code =
        *rc::gen::oneOf(rc::gen::inRange<char32_t>(0, 0xD800), rc::gen::inRange<char32_t>(0xE000, 0x110000));
    std::string text;
    append_utf8(text, code);
    const auto letter = first_utf8_letter(text + "x");
    RC_ASSERT(letter.has_value());
    RC_ASSERT(letter->code == code);
    RC_ASSERT(letter->length == text.size());
}

TEST(ReadTextFile, ReadsTextInEitherCoding)
{
    const test::scratch_folder folder;
    for (const auto& [bytes, expected] :
         test::table<std::string, std::string>{{"", ""},
                                               {"a\r\nb", "a\r\nb"},
                                               {"\xC3\xA9", "\xC3\xA9"},
                                               {"\xE9", "\xC3\xA9"},
                                               {"\xEF\xBB\xBFx", "x"},
                                               {"\xEF\xBB\xBF\xE9", "\xC3\xA9"},
                                               {"a\0b"s, "a\0b"s},
                                               {std::string(200000, 'z'), std::string(200000, 'z')}}) {
        const text_file file = read_text_file(folder.write("f", bytes));
        EXPECT_TRUE(file.ok()) << file.failure.reason;
        EXPECT_EQ(file.text, expected);
    }
    std::filesystem::create_symlink("f", folder / "link");
    EXPECT_TRUE(read_text_file(folder / "link").ok());
}

TEST(ReadTextFile, RefusesWhatIsNoReadableFileWithoutWaiting)
{
    const test::scratch_folder folder;
    std::filesystem::create_symlink("loop", folder / "loop");
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    std::filesystem::resize_file(folder.write("large", ""), (std::uintmax_t{64} << 20) + 1);
    for (const std::filesystem::path& path :
         {folder / "missing", folder.path(), folder / "loop", folder / "pipe", folder / "large",
          std::filesystem::path("/dev/zero"), std::filesystem::path()}) {
        SCOPED_TRACE(path);
        const text_file file = read_text_file(path);
        EXPECT_FALSE(file.ok());
        EXPECT_EQ(file.failure.place, path);
        EXPECT_EQ(file.text, "");
    }
}

TEST(ReadTextFile, SaysWhyAFileBeyondItsBoundsIsRefused)
{
    const test::scratch_folder folder;
    for (const auto& [bytes, reason] :
         test::table<std::string, const char*>{{std::string((1U << 20) + 1, 'x'), "it is larger than 1 MB"},
                                               {std::string(1U << 20, 'x'), ""},
                                               {"a\nb\nc\nd", "it has more than 3 lines"},
                                               {"a\r\nb\r\nc\r\n", ""}}) {
        const text_file file = read_text_file(folder.write("f", bytes), {.megabytes = 1, .lines = 3});
        EXPECT_EQ(file.failure.reason, reason);
        EXPECT_EQ(file.is_too_large, !file.ok());
    }
}

} // namespace kelvarin

// SPDX-License-Identifier: MIT
#include "platform/registry_store.h"

#include "support/changed_environment.h"
#include "support/scratch_folder.h"

#include <gmock/gmock.h>
#include <rapidcheck/gtest.h>

#include <map>
#include <string>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace kelvarin
{

namespace
{

/// Strings rich in what the file gives a meaning to.
rc::Gen<std::string> troublesome_string()
{
    const auto letter =
        rc::gen::oneOf(rc::gen::elementOf(std::string("\\=[]%xn0A\r\n \t\"#")), rc::gen::arbitrary<char>());
    return rc::gen::container<std::string>(letter);
}

std::string in_lower_case(std::string text)
{
    for (char& letter : text)
        if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter + 32);
    return text;
}

} // namespace

TEST(Registry, ComparesKeysAndNamesWithoutCase)
{
    memory_registry registry;
    EXPECT_EQ(registry.read("Software\\WinKlvn", "Window Width"), std::nullopt);
    registry.write("Software\\WinKlvn", "Window Width", "800");
    EXPECT_EQ(registry.read("SOFTWARE\\winklvn", "window width"), "800");
    registry.write("software\\WINKLVN", "WINDOW WIDTH", "900");
    EXPECT_EQ(registry.read("Software\\WinKlvn", "Window Width"), "900");
    EXPECT_EQ(registry.flush(), std::nullopt);
}

RC_GTEST_PROP(Registry, GivesBackAnyStringsAfterTheFileIsReadAgain, ())
{
    using place = std::pair<std::string, std::string>;
    const auto written = *rc::gen::container<std::map<place, std::string>>(
        rc::gen::pair(troublesome_string(), troublesome_string()), troublesome_string());
    const test::scratch_folder folder;
    file_registry registry(folder / "registry.txt");
    std::map<place, std::string> expected;
    for (const auto& [where, value] : written) {
        registry.write(where.first, where.second, value);
        expected[{in_lower_case(where.first), in_lower_case(where.second)}] = value;
    }
    RC_ASSERT(!registry.flush().has_value());
    const file_registry again(folder / "registry.txt");
    for (const auto& [where, value] : expected)
        RC_ASSERT(again.read(where.first, where.second) == std::optional<std::string>(value));
}

TEST(Registry, WritesAReadableFileAndMakesItsFolders)
{
    const test::scratch_folder folder;
    const std::filesystem::path file = folder / "a/b/registry.txt";
    file_registry registry(file);
    registry.write("Software\\WinKlvn\\settings\\newt_TOLF", "value", "1E-07");
    registry.write("Software\\WinKlvn\\files_nle", "1", "C:\\new\\x=1.kvr");
    registry.write("Software\\WinKlvn\\files_nle", "2", " ");
    EXPECT_FALSE(std::filesystem::exists(file)) << "nothing is kept before the flush";
    EXPECT_EQ(registry.flush(), std::nullopt);
    EXPECT_EQ(folder.read("a/b/registry.txt"), "[Software\\WinKlvn\\files_nle]\n"
                                               "1=C:\\\\new\\\\x=1.kvr\n"
                                               "2= \n"
                                               "[Software\\WinKlvn\\settings\\newt_TOLF]\n"
                                               "value=1E-07\n");
}

TEST(Registry, ReadsWhatAHandWroteAndPassesOverTheRest)
{
    const test::scratch_folder folder;
    const file_registry registry(
        folder.write("r", "no section=yet\r\n[Software\\WinKlvn]\r\njunk\r\n[half\r\nWindow Top=5\r\n"
                          "path=C:\\temp\\\\x\r\na\\=b=c=d\r\n\\x4=e\r\n\\=\r\n"));
    EXPECT_EQ(registry.read("software\\winklvn", "window top"), "5");
    EXPECT_EQ(registry.read("software\\winklvn", "path"), "C:\\temp\\x");
    EXPECT_EQ(registry.read("software\\winklvn", "a=b"), "c=d");
    EXPECT_EQ(registry.read("software\\winklvn", "\\x4"), "e");
    EXPECT_EQ(registry.read("software\\winklvn", "junk"), std::nullopt);
    EXPECT_EQ(registry.read("", "no section"), "yet");
}

TEST(Registry, DoesNotUndoAnotherProgramsValues)
{
    const test::scratch_folder folder;
    file_registry first(folder / "r");
    file_registry second(folder / "r");
    first.write("k", "mine", "1");
    first.write("k", "both", "first");
    second.write("k", "theirs", "2");
    second.write("K", "BOTH", "second");
    EXPECT_EQ(first.flush(), std::nullopt);
    EXPECT_EQ(second.flush(), std::nullopt);
    EXPECT_EQ(second.read("k", "mine"), "1");
    first.write("k", "more", "3");
    EXPECT_EQ(first.flush(), std::nullopt);
    for (const file_registry& each : {file_registry(folder / "r"), first}) {
        EXPECT_EQ(each.read("k", "mine"), "1");
        EXPECT_EQ(each.read("k", "theirs"), "2");
        EXPECT_EQ(each.read("k", "both"), "second") << "a value flushed before is not written again";
        EXPECT_EQ(each.read("k", "more"), "3");
    }
}

TEST(Registry, FailsToFlushAndKeepsItsValuesWhereItCannotWrite)
{
    const test::scratch_folder folder;
    std::filesystem::create_directory(folder / "in-the-way");
    folder.write("file", "");
    for (const char* name : {"in-the-way", "file/registry.txt"}) {
        SCOPED_TRACE(name);
        file_registry registry(folder / name);
        registry.write("k", "v", "1");
        EXPECT_TRUE(registry.flush().has_value());
        EXPECT_EQ(registry.read("k", "v"), "1");
    }
    EXPECT_THAT(folder.names(), ::testing::ElementsAre("file", "in-the-way"));
    std::filesystem::remove(folder / "in-the-way");
    file_registry registry(folder / "in-the-way");
    registry.write("k", "v", "1");
    EXPECT_EQ(registry.flush(), std::nullopt);
}

TEST(Registry, DoesNotWaitForeverForAnotherProgramAndIsPrivate)
{
    const test::scratch_folder folder;
    file_registry registry(folder / "own/registry.txt");
    registry.write("k", "v", "1");
    EXPECT_EQ(registry.flush(), std::nullopt);
    EXPECT_EQ(std::filesystem::status("own").permissions(), std::filesystem::perms::owner_all);
    EXPECT_EQ(std::filesystem::status("own/registry.txt").permissions(), std::filesystem::perms(0600));

    const int other = ::open("own", O_RDONLY | O_DIRECTORY);
    ASSERT_EQ(::flock(other, LOCK_EX), 0);
    registry.write("k", "v", "2");
    EXPECT_EQ(registry.flush(), std::nullopt);
    EXPECT_EQ(file_registry(folder / "own/registry.txt").read("k", "v"), "2");
    ::close(other);
}

TEST(Registry, DefaultFileFollowsTheConfigurationFolder)
{
    using value = std::optional<std::string>;
    using variables = test::changed_environment::variables;
    const auto file_with = [](const value& config, const value& home) {
        const test::changed_environment environment(variables{{"XDG_CONFIG_HOME", config}, {"HOME", home}});
        return default_registry_file();
    };
    EXPECT_EQ(file_with("/etc/xdg-of-mine", "/home/someone"), "/etc/xdg-of-mine/kelvarin/registry.txt");
    for (const value& unusable : {value(), value(""), value("relative")})
        EXPECT_EQ(file_with(unusable, "/home/someone"), "/home/someone/.config/kelvarin/registry.txt");
    EXPECT_TRUE(file_with("relative", std::nullopt).is_absolute());
}

} // namespace kelvarin

// SPDX-License-Identifier: MIT
#include "platform/data_files.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <string>

namespace kelvarin
{
namespace
{

namespace fs = std::filesystem;

/// Environment variables that are back as they were when it goes.
class changed_environment
{
public:
    explicit changed_environment(const std::map<std::string, std::string>& changes)
    {
        for (const auto& [name, value] : changes) {
            const char* before = std::getenv(name.c_str());
            before_[name] = before == nullptr ? "" : before;
            ::setenv(name.c_str(), value.c_str(), 1);
        }
    }
    changed_environment(const changed_environment&) = delete;
    changed_environment& operator=(const changed_environment&) = delete;
    ~changed_environment()
    {
        for (const auto& [name, value] : before_)
            value.empty() ? ::unsetenv(name.c_str()) : ::setenv(name.c_str(), value.c_str(), 1);
    }

private:
    std::map<std::string, std::string> before_;
};

TEST(DataFiles, AreLookedForBesideTheProgramThenInShareThenInTheFoldersOfTheUserAndTheSystem)
{
    const fs::path bin = fs::canonical(KELVARIN_BIN);
    struct row
    {
        std::map<std::string, std::string> environment;
        std::vector<fs::path> behind;
    };
    const std::vector<row> cases = {
        {{{"HOME", "/home/u"}, {"XDG_DATA_HOME", ""}, {"XDG_DATA_DIRS", ""}},
         {"/home/u/.local/share/kelvarin", "/usr/local/share/kelvarin", "/usr/share/kelvarin"}},
        {{{"XDG_DATA_HOME", "/a"}, {"XDG_DATA_DIRS", "/b::relative:/c"}},
         {"/a/kelvarin", "/b/kelvarin", "/c/kelvarin"}},
        {{{"HOME", "/home/u"}, {"XDG_DATA_HOME", "relative"}, {"XDG_DATA_DIRS", "/b"}},
         {"/home/u/.local/share/kelvarin", "/b/kelvarin"}},
    };
    for (const row& given : cases) {
        const changed_environment environment(given.environment);
        std::vector<fs::path> expected = {bin, bin.parent_path() / "share" / "kelvarin"};
        expected.insert(expected.end(), given.behind.begin(), given.behind.end());
        EXPECT_EQ(data_folders(), expected);
    }
}

TEST(DataFiles, TheFirstFolderThatHoldsTheFileWins)
{
    const test::scratch_folder scratch;
    for (const char* folder : {"a", "b", "c", "a/units.txt"})
        fs::create_directories(scratch / folder);
    scratch.write("b/units.txt", "");
    scratch.write("c/units.txt", "");
    const std::vector<fs::path> folders = {scratch / "missing", scratch / "a", scratch / "b", scratch / "c"};
    EXPECT_EQ(find_data_file("units.txt", folders), scratch / "b/units.txt");
    EXPECT_EQ(find_data_file("other.txt", folders), std::nullopt);
}

} // namespace
} // namespace kelvarin

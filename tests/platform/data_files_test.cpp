// SPDX-License-Identifier: MIT
#include "platform/data_files.h"
#include "support/changed_environment.h"
#include "support/scratch_folder.h"
#include "support/table.h"

#include <gtest/gtest.h>

namespace kelvarin
{
namespace
{

namespace fs = std::filesystem;

TEST(DataFiles, AreLookedForBesideTheProgramThenInShareThenInTheFoldersOfTheUserAndTheSystem)
{
    const fs::path bin = fs::canonical(KELVARIN_BIN);
    const test::table<test::changed_environment::variables, std::vector<fs::path>> cases = {
        {{{"HOME", "/home/u"}, {"XDG_DATA_HOME", ""}, {"XDG_DATA_DIRS", ""}},
         {"/home/u/.local/share/kelvarin", "/usr/local/share/kelvarin", "/usr/share/kelvarin"}},
        {{{"XDG_DATA_HOME", "/a"}, {"XDG_DATA_DIRS", "/b::relative:/c"}},
         {"/a/kelvarin", "/b/kelvarin", "/c/kelvarin"}},
        {{{"HOME", "/home/u"}, {"XDG_DATA_HOME", "relative"}, {"XDG_DATA_DIRS", "/b"}},
         {"/home/u/.local/share/kelvarin", "/b/kelvarin"}},
    };
    for (const auto& [variables, behind] : cases) {
        const test::changed_environment environment(variables);
        std::vector<fs::path> expected = {bin, bin.parent_path() / "share" / "kelvarin"};
        expected.insert(expected.end(), behind.begin(), behind.end());
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

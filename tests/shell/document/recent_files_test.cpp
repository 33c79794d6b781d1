// SPDX-License-Identifier: MIT
#include "shell/document/recent_files.h"
#include "support/scratch_folder.h"
#include "support/table.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kelvarin
{
namespace
{

constexpr const char* key = "Software\\WinKlvn\\files_nle";
constexpr const char* suffix = "\\files_nle";

using paths = std::vector<std::filesystem::path>;

TEST(RecentFiles, LoadsWhatIsStillThereWithoutGaps)
{
    const test::scratch_folder folder;
    const std::string a = folder.write("a.kvr", "").string();
    const std::string b = folder.write("b.kvr", "").string();
    memory_registry registry;
    EXPECT_EQ(load_recent_files(registry, suffix), paths());
    registry.write(key, "1", "a.kvr");
    registry.write(key, "2", a);
    registry.write(key, "3", (folder / "gone.kvr").string());
    registry.write(key, "4", b);
    registry.write(key, "5", a);
    EXPECT_EQ(load_recent_files(registry, suffix), (paths{a, b}));
    EXPECT_EQ(load_recent_files(registry, suffix, 2), paths{a});
    EXPECT_EQ(load_recent_files(registry, "\\files_leq"), paths()) << "each kind has its own";
    registry.write(key, "1", "/");
    registry.write(key, "2", folder.path().string());
    registry.write(key, "4", std::string("/\0", 2));
    EXPECT_EQ(load_recent_files(registry, suffix), paths()) << "folders are no files";
}

TEST(RecentFiles, MovesAFileToTheFrontAndKeepsFour)
{
    const test::scratch_folder folder;
    memory_registry registry;
    for (const char* name : {"a", "b", "c", "d", "e"}) {
        folder.write(name, "");
        remember_recent_file(registry, suffix, name);
    }
    EXPECT_EQ(load_recent_files(registry, suffix), (paths{folder / "e", folder / "d", folder / "c", folder / "b"}));
    remember_recent_file(registry, suffix, folder / "c");
    EXPECT_EQ(load_recent_files(registry, suffix), (paths{folder / "c", folder / "e", folder / "d", folder / "b"}));
    remember_recent_file(registry, suffix, "../" + folder.path().filename().string() + "/./b");
    EXPECT_EQ(load_recent_files(registry, suffix), (paths{folder / "b", folder / "c", folder / "e", folder / "d"}))
        << "one file has one place, however it is named";
    EXPECT_EQ(registry.read(key, "1"), (folder / "b").string());

    std::filesystem::remove("c");
    std::filesystem::remove("e");
    remember_recent_file(registry, suffix, "d");
    EXPECT_EQ(load_recent_files(registry, suffix), (paths{folder / "d", folder / "b"}));
    EXPECT_EQ(registry.read(key, "3"), "");
    remember_recent_file(registry, suffix, "");
    EXPECT_EQ(load_recent_files(registry, suffix), (paths{folder / "d", folder / "b"}));
}

TEST(RecentFiles, CaptionsAreLowerCaseShortAndShowTheAmpersand)
{
    for (const auto& [number, path, expected] : test::table<std::size_t, const char*, const char*>{
             {1, "/Tmp/A&B.kvr", "&1 /tmp/a&&b.kvr"},
             {2, "/123/5678901/345.kvr", "&2 /123/5678901/345.kvr"},
             {3, "/1234/678901/345X.KVR", "&3 /1234/.../345x.kvr"},
             {4, "/home/user/Problems & more/Gas.kvr", "&4 /home/.../gas.kvr"},
             {1, "/h&m/some/where/deep/P.kvr", "&1 /h&&m/.../p.kvr"},
             {1, "/tmp/\xC3\x89t\xC3\xA9.kvr", "&1 /tmp/\xC3\x89t\xC3\xA9.kvr"}})
        EXPECT_EQ(recent_file_caption(number, path), expected) << path;
}

} // namespace
} // namespace kelvarin

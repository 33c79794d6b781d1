// SPDX-License-Identifier: MIT
#include "shell/document/file_places.h"

#include "support/scratch_folder.h"
#include "support/table.h"

#include <gtest/gtest.h>

namespace kelvarin::test
{

TEST(FilePlaces, ATitleBecomesANameThatEveryFileSystemTakes)
{
    std::string long_title;
    for (int i = 0; i < 100; ++i)
        long_title += "\xC3\xA9";
    const table<std::string, std::string> rows = {
        {"Sag of a cable", "Sag of a cable.kvr"},
        {"a/b: 10%? ", "a b 10%.kvr"},
        {"../../etc", "etc.kvr"},
        {" . ", ""},
        {"", ""},
        {"tab\there", "tab here.kvr"},
        // 80 bytes are 40 of these letters; 79 would end in half of one.
        {"x" + long_title, "x" + long_title.substr(0, 78) + ".kvr"},
    };
    for (const auto& [title, name] : rows)
        EXPECT_EQ(file_name_of_title(title, ".kvr"), name) << title;
}

TEST(FilePlaces, AFolderIsRememberedForEachKindUntilItIsGone)
{
    const scratch_folder folder;
    std::filesystem::create_directory("sub");
    memory_registry registry;
    EXPECT_EQ(last_folder(registry, "nle"), "");
    remember_folder(registry, "nle", "sub/a.kvr");
    remember_folder(registry, "deq", "");
    EXPECT_EQ(last_folder(registry, "nle"), folder.path() / "sub");
    EXPECT_EQ(last_folder(registry, "deq"), "");
    std::filesystem::remove("sub");
    EXPECT_EQ(last_folder(registry, "nle"), "");
}

} // namespace kelvarin::test

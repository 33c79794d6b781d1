// SPDX-License-Identifier: MIT
#include "shell/document/recovery.h"
#include "support/changed_environment.h"
#include "support/scratch_folder.h"

#include <gmock/gmock.h>

#include <atomic>
#include <csignal>
#include <memory>
#include <thread>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace kelvarin
{
namespace
{

namespace fs = std::filesystem;

recovery_entry entry_of(const std::string& title, std::int64_t kept_at = 1)
{
    return {"nle", title, "/home/user/" + title + ".kvr", kept_at, "content of " + title};
}

std::vector<std::string> titles_of(const std::vector<recovery_store::found_problem>& found)
{
    std::vector<std::string> titles;
    for (const auto& problem : found)
        titles.push_back(problem.entry.title);
    return titles;
}

/// Leaves problems behind as a program does that ended without dropping them.
void leave_behind(const fs::path& folder, const std::vector<recovery_entry>& entries)
{
    recovery_store store(folder);
    for (const recovery_entry& entry : entries)
        ASSERT_FALSE(store.keep(store.new_slot(), entry));
}

TEST(Recovery, ProgramsThatRunAtOnceKeepTheirOwn)
{
    const test::scratch_folder folder;
    auto first = std::make_unique<recovery_store>(folder / "r");
    recovery_store second(folder / "r");
    const int slot = first->new_slot();
    const int saved = first->new_slot();
    EXPECT_NE(slot, saved);
    ASSERT_FALSE(first->keep(slot, entry_of("old")));
    ASSERT_FALSE(first->keep(slot, entry_of("mine")));
    ASSERT_FALSE(first->keep(saved, entry_of("saved")));
    first->drop(saved);
    ASSERT_FALSE(second.keep(second.new_slot(), entry_of("other")));
    EXPECT_TRUE(second.claim_orphans().empty());
    EXPECT_TRUE(first->claim_orphans().empty()) << "its own are no orphans either";

    first.reset();
    const auto found = second.claim_orphans();
    ASSERT_EQ(titles_of(found), std::vector<std::string>{"mine"});
    EXPECT_EQ(found[0].entry, entry_of("mine"));
    EXPECT_NE(found[0].slot, 1) << "that one holds a problem of its own";
    EXPECT_TRUE(second.claim_orphans().empty()) << "they have an owner now";

    second.drop(found[0].slot);
    recovery_store third(folder / "r");
    EXPECT_TRUE(third.claim_orphans().empty());
}

TEST(Recovery, AKilledProgramLeavesItsProblemsToTheNextNewestFirst)
{
    const test::scratch_folder folder;
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        recovery_store store(folder / "r");
        store.keep(store.new_slot(), entry_of("a", 10));
        store.keep(store.new_slot(), entry_of("b", 30));
        store.keep(store.new_slot(), entry_of("c", 20));
        static_cast<void>(write(ready[1], "x", 1) == 1);
        for (;;)
            pause();
    }
    char byte = 0;
    ASSERT_EQ(read(ready[0], &byte, 1), 1);
    recovery_store store(folder / "r");
    EXPECT_TRUE(store.claim_orphans().empty()) << "the program lives";
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    close(ready[0]);
    close(ready[1]);
    leave_behind(folder / "r", {entry_of("d", 25)});

    const auto found = store.claim_orphans();
    EXPECT_EQ(titles_of(found), (std::vector<std::string>{"b", "d", "c", "a"}));
    for (const auto& problem : found)
        store.drop(problem.slot);
    EXPECT_EQ(std::distance(fs::directory_iterator(folder / "r"), {}), 1) << "only the lock of the living is left";
}

TEST(Recovery, EveryProblemGoesToOneOfThoseThatStartAtOnce)
{
    const test::scratch_folder folder;
    std::vector<std::string> left;
    for (int session = 0; session < 20; ++session) {
        left.push_back("p" + std::to_string(session));
        leave_behind(folder / "r", {entry_of(left.back())});
    }
    std::vector<std::unique_ptr<recovery_store>> stores;
    for (int i = 0; i < 4; ++i)
        stores.push_back(std::make_unique<recovery_store>(folder / "r"));
    std::vector<std::vector<std::string>> taken(stores.size());
    std::atomic<int> waiting = static_cast<int>(stores.size());
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < stores.size(); ++i) {
        threads.emplace_back([&, i] {
            --waiting;
            while (waiting > 0)
                std::this_thread::yield();
            taken[i] = titles_of(stores[i]->claim_orphans());
        });
    }
    std::vector<std::string> all;
    for (std::size_t i = 0; i < stores.size(); ++i) {
        threads[i].join();
        all.insert(all.end(), taken[i].begin(), taken[i].end());
    }
    EXPECT_THAT(all, testing::UnorderedElementsAreArray(left));
}

TEST(Recovery, FilesThatCanNotBeReadAreSetAside)
{
    const test::scratch_folder folder;
    leave_behind(folder / "r", {entry_of("good")});
    const fs::path good = *fs::directory_iterator(folder / "r");
    const std::string text = folder.read("r/" + good.filename().string());
    folder.write("r/1.1.json", text.substr(0, text.size() / 2));
    folder.write("r/1.2.json", "");
    folder.write("r/1.3.json", "[]");
    folder.write("r/1.4.json", R"({"format": 2})");
    folder.write("r/1.5.json", std::string(100000, '['));
    folder.write("r/1.6.json", R"({"format":1,"kind":"nle","title":"t","path":["x"],"kept_at":0,"content":""})");
    folder.write("r/1.7.json", R"({"format":1,"kind":"nle","title":"t","path":"","kept_at":1e300,"content":""})");
    fs::create_directory(folder / "r/2.1.json");
    ASSERT_EQ(mkfifo((folder / "r/2.2.json").c_str(), 0600), 0);
    fs::create_symlink("nowhere", folder / "r/2.3.json");
    folder.write("r/notes.txt", "kept");
    folder.write("r/x.json", "kept");
    recovery_store store(folder / "r");
    EXPECT_EQ(titles_of(store.claim_orphans()), std::vector<std::string>{"good"});
    for (int i = 1; i <= 7; ++i)
        EXPECT_TRUE(folder.holds("r/1." + std::to_string(i) + ".json.unreadable")) << i;
    EXPECT_EQ(folder.read("r/1.1.json.unreadable"), text.substr(0, text.size() / 2));
    EXPECT_TRUE(folder.holds("r/2.1.json.unreadable"));
    EXPECT_TRUE(folder.holds("r/notes.txt"));
    EXPECT_TRUE(folder.holds("r/x.json"));
    EXPECT_TRUE(store.claim_orphans().empty());
}

TEST(Recovery, AFolderThatCanNotBeMadeHarmsNothing)
{
    const test::scratch_folder folder;
    folder.write("file", "");
    for (const fs::path& place : {folder / "file", folder / "file/r", fs::path()}) {
        SCOPED_TRACE(place.string());
        recovery_store store(place);
        ASSERT_TRUE(store.failure());
        EXPECT_FALSE(store.failure()->reason.empty());
        const int slot = store.new_slot();
        EXPECT_TRUE(store.keep(slot, entry_of("a")));
        store.drop(slot);
        EXPECT_TRUE(store.claim_orphans().empty());
    }
    EXPECT_EQ(folder.names(), std::vector<std::string>{"file"});

    recovery_store store(folder / "r");
    fs::remove_all(folder / "r");
    EXPECT_TRUE(store.keep(1, entry_of("a"))) << "the folder went away";
    EXPECT_TRUE(store.claim_orphans().empty());
}

TEST(Recovery, AnyTextComesBackAsItWas)
{
    const test::scratch_folder folder;
    const recovery_entry odd = {"nle", "\xC3\xA9 \"quoted\" \\ \n\t\x01 \xF0\x9F\x98\x80", "/tmp/\xC3\xA9\n\"'\\.kvr",
                                -5, std::string("a\0b\r\n", 5)};
    recovery_entry latin = odd;
    latin.path = "/tmp/\xE9t\xE9.kvr";
    latin.kept_at = 4000000000;
    leave_behind(folder / "r", {odd, latin, {}});
    recovery_store store(folder / "r");
    const auto found = store.claim_orphans();
    ASSERT_EQ(found.size(), 3u);
    EXPECT_EQ(found[0].entry, latin);
    EXPECT_EQ(found[1].entry, recovery_entry());
    EXPECT_EQ(found[2].entry, odd);
}

TEST(Recovery, OnlyItsUserSeesTheFolder)
{
    const test::scratch_folder folder;
    fs::create_directory(folder / "old");
    for (const char* name : {"old", "state/new"}) {
        const recovery_store store(folder / name);
        EXPECT_FALSE(store.failure());
        EXPECT_EQ(fs::status(folder / name).permissions(), fs::perms::owner_all) << name;
    }

    using variables = test::changed_environment::variables;
    {
        const test::changed_environment environment(variables{{"XDG_STATE_HOME", "/var/state"}});
        EXPECT_EQ(default_recovery_folder(), "/var/state/kelvarin/recovery");
    }
    const test::changed_environment environment(variables{{"XDG_STATE_HOME", "relative"}});
    EXPECT_THAT(default_recovery_folder().string(), testing::EndsWith("/.local/state/kelvarin/recovery"));
}

} // namespace
} // namespace kelvarin

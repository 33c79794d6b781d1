// SPDX-License-Identifier: MIT
#include "platform/saver.h"

#include "support/plain_user.h"
#include "support/scratch_folder.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace kelvarin
{

namespace fs = std::filesystem;
using ::testing::ElementsAre;

namespace
{

const std::string old_text = "the old content";
const std::string new_text(10000, 'n');

/// The system's calls, written down in order, of which the one with the number `failing` fails (an open,
/// write or rename without effect; a close after it has closed).
struct call_record
{
    int failing = -1;
    int error = EIO;
    std::vector<std::string> names;

    bool fails(const char* name)
    {
        names.emplace_back(name);
        if (static_cast<int>(names.size()) - 1 != failing) return false;
        errno = error;
        return true;
    }

    save_calls calls()
    {
        const save_calls& real = system_save_calls();
        return {
            [this, &real](const char* path, int flags, mode_t mode) {
                return fails(flags & O_DIRECTORY ? "open folder" : "open") ? -1 : real.open(path, flags, mode);
            },
            [this, &real](int file, const void* bytes, std::size_t count) -> ssize_t {
                return fails("write") ? -1 : real.write(file, bytes, count);
            },
            [this, &real](int file) { return fails("fsync") ? -1 : real.fsync(file); },
            [this, &real](int file) {
                real.close(file);
                return fails("close") ? -1 : 0;
            },
            [this, &real](const char* from, const char* to) { return fails("rename") ? -1 : real.rename(from, to); }};
    }
};

/// Limits the size of files that this process writes; beyond it, writing fails as on a full disk.
class file_size_limit
{
public:
    explicit file_size_limit(rlim_t bytes) : old_action_(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &old_limit_);
        const rlimit limit{bytes, old_limit_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    file_size_limit(const file_size_limit&) = delete;
    file_size_limit& operator=(const file_size_limit&) = delete;
    ~file_size_limit()
    {
        ::setrlimit(RLIMIT_FSIZE, &old_limit_);
        std::signal(SIGXFSZ, old_action_);
    }

private:
    rlimit old_limit_{};
    void (*old_action_)(int);
};

mode_t mode_of(const fs::path& path)
{
    struct stat about
    {
    };
    ::stat(path.c_str(), &about);
    return about.st_mode & 07777;
}

} // namespace

TEST(Saver, WritesNewFilesAndReplacesOldOnes)
{
    const test::scratch_folder folder;
    for (const std::string& text : {new_text, old_text, std::string(), std::string("\0\r\n\xFF", 4)}) {
        EXPECT_EQ(save_file(folder / "f", text), std::nullopt);
        EXPECT_EQ(folder.read("f"), text);
    }
    // The longest name that a file may have leaves the temporary file no room for a suffix.
    const std::string longest(255, 'x');
    EXPECT_EQ(save_file(folder / longest, new_text), std::nullopt);
    EXPECT_THAT(folder.names(), ElementsAre("f", longest));
}

TEST(Saver, SyncsAndClosesBeforeItRenames)
{
    const test::scratch_folder folder;
    call_record record;
    EXPECT_EQ(save_file(folder / "f", new_text, record.calls()), std::nullopt);
    EXPECT_THAT(record.names,
                ElementsAre("open", "write", "fsync", "close", "rename", "open folder", "fsync", "close"));
}

TEST(Saver, KeepsTheOldFileWholeWhicheverCallFails)
{
    // Up to the rename; behind it the new content is in place, and only its durability is in doubt.
    constexpr int calls_up_to_rename = 5;
    constexpr int calls_that_can_fail = 7;
    for (const bool exists : {true, false}) {
        for (int failing = 0; failing < calls_that_can_fail; ++failing) {
            SCOPED_TRACE(std::string(exists ? "old file, call " : "no old file, call ") + std::to_string(failing));
            const test::scratch_folder folder;
            if (exists) folder.write("f", old_text);
            call_record record{failing, EIO, {}};
            const std::optional<file_failure> failed = save_file(folder / "f", new_text, record.calls());
            ASSERT_TRUE(failed.has_value());
            EXPECT_EQ(failed->place, folder / "f");
            EXPECT_THAT(failed->reason, ::testing::HasSubstr("Input/output error"));
            const bool written = failing >= calls_up_to_rename;
            EXPECT_EQ(failed->reason.starts_with("it is written"), written);
            const bool is_there = exists || written;
            EXPECT_EQ(folder.names(), is_there ? std::vector<std::string>{"f"} : std::vector<std::string>{});
            EXPECT_EQ(folder.read("f"), written ? new_text : exists ? old_text : "");
        }
    }
}

TEST(Saver, GoesOnAfterAnInterruptionOfAnyCall)
{
    for (int failing = 0; failing < 8; ++failing) {
        SCOPED_TRACE(failing);
        const test::scratch_folder folder;
        call_record record{failing, EINTR, {}};
        EXPECT_EQ(save_file(folder / "f", new_text, record.calls()), std::nullopt);
        EXPECT_EQ(folder.read("f"), new_text);
        EXPECT_THAT(folder.names(), ElementsAre("f"));
    }
}

TEST(Saver, WritesOnAfterShortWritesAndGivesUpWithoutProgress)
{
    const test::scratch_folder folder;
    save_calls calls = system_save_calls();
    int turn = 0;
    calls.write = [&turn](int file, const void* bytes, std::size_t count) -> ssize_t {
        errno = EINTR;
        return ++turn % 2 == 0 ? -1 : ::write(file, bytes, std::min<std::size_t>(count, 7));
    };
    EXPECT_EQ(save_file(folder / "f", new_text, calls), std::nullopt);
    EXPECT_EQ(folder.read("f"), new_text);

    calls.write = [](int, const void*, std::size_t) -> ssize_t { return 0; };
    EXPECT_TRUE(save_file(folder / "f", old_text, calls).has_value());
    EXPECT_EQ(folder.read("f"), new_text);
}

TEST(Saver, KeepsTheOldFileWholeOnAFullDisk)
{
    for (const bool exists : {true, false}) {
        for (const std::size_t room : {std::size_t{0}, std::size_t{1}, std::size_t{4096}, new_text.size() - 1}) {
            SCOPED_TRACE(room);
            const test::scratch_folder folder;
            if (exists) folder.write("f", old_text);
            std::optional<file_failure> failed;
            {
                const file_size_limit limit(room);
                failed = save_file(folder / "f", new_text);
            }
            ASSERT_TRUE(failed.has_value());
            EXPECT_EQ(failed->reason, "File too large");
            EXPECT_EQ(folder.names(), exists ? std::vector<std::string>{"f"} : std::vector<std::string>{});
            EXPECT_EQ(folder.read("f"), exists ? old_text : "");
        }
    }
    const test::scratch_folder folder;
    const file_size_limit just_enough(new_text.size());
    EXPECT_EQ(save_file(folder / "f", new_text), std::nullopt);
}

TEST(Saver, RefusesWhatIsNoRegularFileAndLeavesItThere)
{
    const test::scratch_folder folder;
    fs::create_directory(folder / "folder");
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    folder.write("file", old_text);
    fs::create_symlink("loop", folder / "loop");
    fs::create_symlink("folder", folder / "to-folder");
    const std::vector<std::string> before = folder.names();
    for (const fs::path& path :
         {folder / "folder", folder / "folder/", folder / "pipe", folder / "loop", folder / "to-folder",
          folder / "file/below", folder / "no-folder/f", fs::path("/dev/null"), fs::path()})
        EXPECT_TRUE(save_file(path, new_text).has_value()) << path;
    EXPECT_EQ(folder.names(), before);
    EXPECT_TRUE(fs::is_fifo(folder / "pipe"));
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    EXPECT_EQ(folder.read("file"), old_text);
}

TEST(Saver, FollowsLinksAndLeavesThemLinks)
{
    const test::scratch_folder folder;
    fs::create_directory(folder / "there");
    folder.write("there/f", old_text);
    fs::create_symlink("there/f", folder / "direct");
    fs::create_symlink("direct", folder / "over-another");
    fs::create_symlink(folder / "there/new", folder / "dangling");
    for (const char* link : {"direct", "over-another"}) {
        const std::string text = std::string("by ") + link;
        EXPECT_EQ(save_file(folder / link, text), std::nullopt);
        EXPECT_TRUE(fs::is_symlink(folder / link));
        EXPECT_EQ(folder.read("there/f"), text);
    }
    EXPECT_EQ(save_file(folder / "dangling", new_text), std::nullopt);
    EXPECT_TRUE(fs::is_symlink(folder / "dangling"));
    EXPECT_EQ(folder.read("there/new"), new_text);
    EXPECT_THAT(folder.names(), ElementsAre("dangling", "direct", "over-another", "there"));
}

TEST(Saver, KeepsTheModeAndGivesNewFilesTheUsersOwn)
{
    const test::scratch_folder folder;
    for (const mode_t mode : {0600u, 0640u, 0666u, 0755u}) {
        SCOPED_TRACE(mode);
        ::chmod(folder.write("f", old_text).c_str(), mode);
        EXPECT_EQ(save_file(folder / "f", new_text), std::nullopt);
        EXPECT_EQ(mode_of(folder / "f"), mode);
    }
    for (const mode_t mask : {022u, 077u}) {
        const mode_t before = ::umask(mask);
        fs::remove(folder / "g");
        EXPECT_EQ(save_file(folder / "g", new_text), std::nullopt);
        ::umask(before);
        EXPECT_EQ(mode_of(folder / "g"), 0666 & ~mask);
    }
}

TEST(Saver, DoesNotGiveTheRightsOfAProgramToAnotherOwner)
{
    const test::scratch_folder folder;
    folder.write("tool", old_text);
    ASSERT_EQ(::chmod("tool", 04777), 0);
    ASSERT_EQ(::chmod(folder.path().c_str(), 0777), 0);
    // Whoever replaces a file of root owns it from then on.
    EXPECT_TRUE(test::holds_for_plain_user([] { return !save_file("tool", new_text); }));
    struct stat about
    {
    };
    ASSERT_EQ(::stat("tool", &about), 0);
    const bool same_owner = about.st_uid == ::geteuid();
    EXPECT_EQ(about.st_mode & 07777, same_owner ? 04777U : 0777U);
}

TEST(Saver, DoesNotReplaceAFileThatItsUserProtected)
{
    const test::scratch_folder folder;
    ::chmod(folder.write("f", old_text).c_str(), 0444);
    if (::geteuid() == 0) {
        for (const fs::path& given : {folder.path(), folder / "f"})
            ASSERT_EQ(::chown(given.c_str(), test::nobody, test::nobody), 0);
    }
    EXPECT_TRUE(test::holds_for_plain_user([&] { return save_file(folder / "g", new_text) == std::nullopt; }));
    EXPECT_TRUE(test::holds_for_plain_user([&] { return save_file(folder / "f", new_text).has_value(); }));
    EXPECT_EQ(folder.read("f"), old_text);
}

TEST(Saver, SavesANameWithoutAFolderInTheCurrentOne)
{
    const test::scratch_folder folder;
    ASSERT_EQ(fs::current_path(), fs::canonical(folder.path()));
    EXPECT_EQ(save_file("f", new_text), std::nullopt);
    EXPECT_EQ(folder.read("f"), new_text);
}

TEST(RemoveAbandonedFiles, TakesThoseOfKilledProgramsAlone)
{
    const test::scratch_folder folder;
    // A program that has ended, so that its number is free.
    const pid_t child = ::fork();
    if (child == 0) ::_exit(0);
    ASSERT_EQ(::waitpid(child, nullptr, 0), child);
    const std::string dead = std::to_string(child), living = std::to_string(::getpid());
    const auto hours_ago = fs::file_time_type::clock::now() - std::chrono::hours(2);
    for (const std::string& name : {".kelvarin-" + dead + "-1.tmp", ".kelvarin-" + living + "-1.tmp",
                                    ".kelvarin-" + dead + ".tmp", ".kelvarin-" + dead + "-1.kvr", std::string("p.kvr")})
        fs::last_write_time(folder.write(name, "x"), hours_ago);
    folder.write(".kelvarin-" + dead + "-2.tmp", "just written");
    remove_abandoned_files(folder.path());
    remove_abandoned_files(folder / "none");
    EXPECT_THAT(folder.names(), ::testing::UnorderedElementsAre(
                                    ".kelvarin-" + living + "-1.tmp", ".kelvarin-" + dead + ".tmp",
                                    ".kelvarin-" + dead + "-1.kvr", "p.kvr", ".kelvarin-" + dead + "-2.tmp"));
}

} // namespace kelvarin

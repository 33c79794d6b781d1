// SPDX-License-Identifier: MIT
//
// The user's files are written by this file only. Its invariants hold at every moment, even if a call fails or the
// power goes off:
//
//   1. The file under the user's name is either the complete old one or the complete new one. It is never written to:
//      the content goes into a temporary file in the same folder, which is then renamed.
//   2. The rename comes only after every byte, the mode and the size of the temporary file are on the disk and its
//      close has reported no error.
//   3. A temporary file belongs to this program: it is created by O_EXCL under an unused name, and is removed after
//      every failure.
//   4. Anything but a regular file (a folder, a pipe, a device) is never replaced, nor a file without write permission,
//      although a rename would not check it.
//   5. A link stays a link: the file that it leads to is replaced, in that file's own folder.
//
// The states, each transition labelled by its function:
//
//   named --target_of--> target --create--> temporary, empty --fill--> written --settle--> on the disk
//         --replace--> in place --sync_folder--> durable
//
// A failure up to `settle` or in `replace` leads back to "old file, no temporary file". After `replace` there is no way
// back; the reason of a failure of `sync_folder` says so.

#include "platform/saver.h"

#include "platform/posix_file.h"
#include "platform/uninterrupted.h"

#include <cerrno>
#include <charconv>
#include <chrono>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <string>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kelvarin
{

namespace
{

namespace fs = std::filesystem;

/// Reason of a failure in this file; an empty text means success.
using failure_reason = std::string;

failure_reason last_reason()
{
    return system_reason(errno);
}

/// The destination and the file that it replaces.
struct save_target
{
    fs::path path;
    fs::path folder;
    bool exists = false;
    struct stat old_file
    {
    };
};

/// Resolves links one by one, since the last one may lead to a file that does not exist yet.
failure_reason follow_links(fs::path& path)
{
    constexpr int most_links = 40;
    std::error_code error;
    for (int links = 0; fs::is_symlink(path, error); ++links) {
        if (links == most_links) return system_reason(ELOOP);
        const fs::path leads_to = fs::read_symlink(path, error);
        if (error) return error.message();
        path = path.parent_path() / leads_to;
    }
    return {};
}

failure_reason target_of(const fs::path& path, save_target& target)
{
    target.path = path;
    if (failure_reason failed = follow_links(target.path); !failed.empty()) return failed;
    if (!target.path.has_filename()) return path.empty() ? "the file has no name" : "it is a folder";
    target.folder = target.path.has_parent_path() ? target.path.parent_path() : fs::path(".");
    if (::stat(target.path.c_str(), &target.old_file) != 0) return errno == ENOENT ? failure_reason() : last_reason();

    target.exists = true;
    if (S_ISDIR(target.old_file.st_mode)) return "it is a folder";
    if (!S_ISREG(target.old_file.st_mode)) return "it is no regular file";
    if (::faccessat(AT_FDCWD, target.path.c_str(), W_OK, AT_EACCESS) != 0) return last_reason();
    return {};
}

constexpr std::string_view temporary_prefix = ".kelvarin-";
constexpr std::string_view temporary_ending = ".tmp";

/// The number of the program that made a temporary file of this name; nullopt if it is none.
std::optional<pid_t> maker_of(std::string_view name)
{
    if (!name.starts_with(temporary_prefix) || !name.ends_with(temporary_ending)) return std::nullopt;
    name.remove_prefix(temporary_prefix.size());
    pid_t maker = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), maker);
    if (error != std::errc() || *end != '-' || maker <= 0) return std::nullopt;
    return maker;
}

/// The temporary file; the destructor closes and removes it unless it was renamed.
class temporary_file
{
public:
    explicit temporary_file(const save_calls& calls) : calls_(calls) {}
    temporary_file(const temporary_file&) = delete;
    temporary_file& operator=(const temporary_file&) = delete;
    ~temporary_file()
    {
        if (is_open_) calls_.close(file_);
        if (!path_.empty()) ::unlink(path_.c_str());
    }

    failure_reason create(const save_target& target);
    failure_reason fill(std::string_view content);
    failure_reason settle(const save_target& target);
    failure_reason replace(const save_target& target);

private:
    failure_reason take_over_owner_and_mode(const struct stat& old_file);

    const save_calls& calls_;
    fs::path path_;
    int file_ = -1;
    bool is_open_ = false;
};

failure_reason temporary_file::create(const save_target& target)
{
    constexpr int most_tries = 100;
    constexpr mode_t mode_before_umask = 0666;
    constexpr mode_t private_mode = 0600;
    const auto moment = static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count());
    for (int attempt = 0; attempt < most_tries; ++attempt) {
        const std::string name = std::string(temporary_prefix) + std::to_string(::getpid()) + '-' +
                                 std::to_string(moment + attempt) + std::string(temporary_ending);
        const fs::path path = target.folder / name;
        file_ = uninterrupted([&] {
            return calls_.open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW,
                               target.exists ? private_mode : mode_before_umask);
        });
        if (file_ >= 0) {
            is_open_ = true;
            path_ = path;
            return {};
        }
        if (errno != EEXIST) break;
    }
    return last_reason();
}

failure_reason temporary_file::fill(std::string_view content)
{
    while (!content.empty()) {
        const ssize_t count = uninterrupted([&] { return calls_.write(file_, content.data(), content.size()); });
        if (count < 0) return last_reason();
        // No error and no progress: the loop would never end.
        if (count == 0) return system_reason(ENOSPC);
        content.remove_prefix(static_cast<std::size_t>(count));
    }
    return {};
}

failure_reason temporary_file::take_over_owner_and_mode(const struct stat& old_file)
{
    // Keeps another user's file theirs if permitted; failing to set owner or group must not lose the user's work. The
    // mode is set second, since a change of owner clears bits of it.
    const bool same_owner = (old_file.st_uid == ::geteuid() && old_file.st_gid == ::getegid()) ||
                            ::fchown(file_, old_file.st_uid, old_file.st_gid) == 0;
    // A program that runs with its owner's rights must not begin to run with ours.
    const mode_t mode_bits = same_owner ? 07777 : 01777;
    return ::fchmod(file_, old_file.st_mode & mode_bits) == 0 ? failure_reason() : last_reason();
}

failure_reason temporary_file::settle(const save_target& target)
{
    if (target.exists) {
        if (failure_reason failed = take_over_owner_and_mode(target.old_file); !failed.empty()) return failed;
    }
    if (uninterrupted([&] { return calls_.fsync(file_); }) != 0) return last_reason();
    // Not repeated: an interrupted close has closed the file, and its number may be in use again.
    is_open_ = false;
    if (calls_.close(file_) != 0 && errno != EINTR) return last_reason();
    return {};
}

failure_reason temporary_file::replace(const save_target& target)
{
    if (uninterrupted([&] { return calls_.rename(path_.c_str(), target.path.c_str()); }) != 0) return last_reason();
    path_.clear();
    return {};
}

/// Makes the rename durable.
failure_reason sync_folder(const save_target& target, const save_calls& calls)
{
    const auto not_safe = [](const failure_reason& why) {
        return "it is written, but may be lost if the power fails now: " + why;
    };
    const int folder =
        uninterrupted([&] { return calls.open(target.folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0); });
    // A folder may be writable but not readable; then it can't be synchronised.
    if (folder < 0) return errno == EACCES ? failure_reason() : not_safe(last_reason());
    const bool synced = uninterrupted([&] { return calls.fsync(folder); }) == 0;
    const int error = errno;
    calls.close(folder);
    // EINVAL: the file system can't synchronise folders, or needs not.
    if (synced || error == EINVAL) return {};
    return not_safe(system_reason(error));
}

failure_reason save_steps(const fs::path& path, std::string_view content, const save_calls& calls)
{
    save_target target;
    temporary_file file(calls);
    if (failure_reason failed = target_of(path, target); !failed.empty()) return failed;
    if (failure_reason failed = file.create(target); !failed.empty()) return failed;
    if (failure_reason failed = file.fill(content); !failed.empty()) return failed;
    if (failure_reason failed = file.settle(target); !failed.empty()) return failed;
    if (failure_reason failed = file.replace(target); !failed.empty()) return failed;
    return sync_folder(target, calls);
}

} // namespace

const save_calls& system_save_calls()
{
    static const save_calls calls{
        [](const char* path, int flags, mode_t mode) { return ::open(path, flags, mode); },
        [](int file, const void* bytes, std::size_t count) { return ::write(file, bytes, count); },
        [](int file) { return ::fsync(file); },
        [](int file) { return ::close(file); },
        [](const char* from, const char* to) { return std::rename(from, to); },
    };
    return calls;
}

std::optional<file_failure> save_file(const fs::path& path, std::string_view content, const save_calls& calls)
{
    failure_reason failed = save_steps(path, content, calls);
    if (failed.empty()) return std::nullopt;
    return file_failure{path, std::move(failed)};
}

void remove_abandoned_files(const fs::path& folder)
{
    constexpr std::chrono::hours shortest_age{1};
    std::error_code error;
    for (const fs::directory_entry& each : fs::directory_iterator(folder, error)) {
        const std::optional<pid_t> maker = maker_of(each.path().filename().string());
        if (!maker || ::kill(*maker, 0) == 0 || errno != ESRCH) continue;
        const fs::file_time_type written = each.last_write_time(error);
        if (!error && fs::file_time_type::clock::now() - written > shortest_age) fs::remove(each.path(), error);
    }
}

} // namespace kelvarin

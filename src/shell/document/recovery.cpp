// SPDX-License-Identifier: MIT
//
// The folder contains, for each session (a running program):
//
//   SESSION.lock      locked by the system for as long as the program lives
//   SESSION.N.json    the problem in slot N
//
// The holder of a session's lock owns its files. A session whose lock file is missing or not locked has no owner, and a
// program that gets the lock may take the files; so two programs that start at once never take the same ones. Only the
// holder removes a lock file. A lock is valid only if its file still has its name: another program may have locked and
// removed it between opening and locking.

#include "shell/document/recovery.h"

#include "platform/saver.h"
#include "platform/text_file.h"
#include "platform/user_folders.h"
#include "shell/document/recovery_file.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kelvarin
{

namespace
{

namespace fs = std::filesystem;

constexpr std::string_view lock_ending = ".lock";
constexpr std::string_view slot_ending = ".json";
constexpr const char* unreadable_ending = ".unreadable";

fs::path lock_file_of(const fs::path& folder, const std::string& session)
{
    return folder / (session + std::string(lock_ending));
}

/// Creates the folder, readable by this user alone, since problems may be confidential.
std::optional<file_failure> make_folder(const fs::path& folder)
{
    constexpr mode_t private_mode = 0700;
    std::error_code error;
    if (folder.has_parent_path()) fs::create_directories(folder.parent_path(), error);
    if (error) return file_failure{folder, error.message()};
    if (::mkdir(folder.c_str(), private_mode) == 0) return std::nullopt;
    const int reason = errno;
    if (!fs::is_directory(folder, error)) return file_failure{folder, system_reason(reason)};
    // chmod fails for a folder of another user, which keeps its mode.
    static_cast<void>(::chmod(folder.c_str(), private_mode) == 0);
    return std::nullopt;
}

/// Whether the open file is still the one with this name.
bool stands_at(const posix_file& file, const fs::path& path)
{
    struct stat open_file
    {
    };
    struct stat named_file
    {
    };
    return ::fstat(file.number(), &open_file) == 0 && ::stat(path.c_str(), &named_file) == 0 &&
           open_file.st_dev == named_file.st_dev && open_file.st_ino == named_file.st_ino;
}

/// Opens and locks the file of a session. Returns nullopt, with errno set, if another program holds it. `flags` may
/// demand a new file.
std::optional<posix_file> lock_session(const fs::path& path, int flags)
{
    constexpr mode_t private_mode = 0600;
    posix_file file(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | flags, private_mode));
    if (!file.is_open() || ::flock(file.number(), LOCK_EX | LOCK_NB) != 0) return std::nullopt;
    if (!stands_at(file, path)) {
        errno = EWOULDBLOCK;
        return std::nullopt;
    }
    return file;
}

struct slot_file
{
    fs::path path;
    std::string session;
};

/// Splits "SESSION.N.json". Returns nullopt for other names.
std::optional<slot_file> slot_file_of(const fs::path& path)
{
    const std::string name = path.filename().string();
    if (!name.ends_with(slot_ending)) return std::nullopt;
    const std::string_view stem = std::string_view(name).substr(0, name.size() - slot_ending.size());
    const std::size_t dot = stem.rfind('.');
    if (dot == std::string_view::npos || dot == 0 || dot + 1 == stem.size()) return std::nullopt;
    if (stem.find_first_not_of("0123456789", dot + 1) != std::string_view::npos) return std::nullopt;
    return slot_file{path, std::string(stem.substr(0, dot))};
}

/// All slot files sorted by name, so that those of a session are adjacent.
std::vector<slot_file> slot_files_in(const fs::path& folder)
{
    std::vector<slot_file> files;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        if (std::optional<slot_file> file = slot_file_of(entry->path())) files.push_back(std::move(*file));
    }
    std::ranges::sort(files, {}, &slot_file::path);
    return files;
}

/// Removes lock files without slot files, left by programs that ended with nothing unsaved.
void remove_stale_locks(const fs::path& folder)
{
    std::error_code error;
    std::vector<fs::path> locks;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        if (entry->path().filename().string().ends_with(lock_ending)) locks.push_back(entry->path());
    }
    for (const fs::path& path : locks) {
        if (const std::optional<posix_file> lock = lock_session(path, 0)) ::unlink(path.c_str());
    }
}

} // namespace

fs::path default_recovery_folder()
{
    return user_state_folder() / "recovery";
}

recovery_store::recovery_store(fs::path folder) : folder_(std::move(folder))
{
    constexpr int most_tries = 100;
    failure_ = make_folder(folder_);
    const auto moment = std::chrono::system_clock::now().time_since_epoch().count();
    for (int attempt = 0; attempt < most_tries && !failure_ && !lock_; ++attempt) {
        session_ = std::to_string(::getpid()) + '-' + std::to_string(moment + attempt);
        if (std::optional<posix_file> lock = lock_session(lock_file_of(folder_, session_), O_EXCL))
            lock_.emplace(std::move(*lock));
        else if (errno != EEXIST && errno != EWOULDBLOCK)
            failure_ = file_failure{folder_, system_reason(errno)};
    }
    if (!failure_ && !lock_) failure_ = file_failure{folder_, system_reason(EWOULDBLOCK)};
}

recovery_store::~recovery_store()
{
    if (lock_) ::unlink(lock_file_of(folder_, session_).c_str());
}

std::optional<file_failure> recovery_store::keep(int slot, const recovery_entry& entry)
{
    if (failure_) return failure_;
    return save_file(file_of(slot), recovery_file_text(entry));
}

void recovery_store::drop(int slot)
{
    if (!failure_) ::unlink(file_of(slot).c_str());
}

std::vector<recovery_store::found_problem> recovery_store::claim_orphans()
{
    std::vector<found_problem> found;
    if (failure_) return found;
    const std::vector<slot_file> files = slot_files_in(folder_);
    for (auto first = files.begin(); first != files.end();) {
        const auto last =
            std::find_if(first, files.end(), [&](const slot_file& file) { return file.session != first->session; });
        const fs::path lock_file = lock_file_of(folder_, first->session);
        if (const std::optional<posix_file> lock = lock_session(lock_file, 0)) {
            for (auto file = first; file != last; ++file)
                claim_from(file->path, found);
            ::unlink(lock_file.c_str());
        }
        first = last;
    }
    remove_stale_locks(folder_);
    std::ranges::stable_sort(found, std::ranges::greater(),
                             [](const found_problem& problem) { return problem.entry.kept_at; });
    return found;
}

/// Takes one file of a session that this program has locked. Renaming moves it, so that it exists exactly once at any
/// time.
void recovery_store::claim_from(const fs::path& file, std::vector<found_problem>& found)
{
    const text_file read = read_text_file(file);
    std::optional<recovery_entry> entry = read.ok() ? read_recovery_file(read.text) : std::nullopt;
    std::error_code error;
    if (!entry) {
        if (fs::exists(file, error)) fs::rename(file, file.string() + unreadable_ending, error);
        return;
    }
    const int slot = new_slot();
    fs::rename(file, file_of(slot), error);
    // A file that can not be moved is left for a later program.
    if (!error) found.push_back({slot, std::move(*entry)});
}

fs::path recovery_store::file_of(int slot) const
{
    return folder_ / (session_ + '.' + std::to_string(slot) + std::string(slot_ending));
}

} // namespace kelvarin

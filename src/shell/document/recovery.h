// SPDX-License-Identifier: MIT
#pragma once

#include "platform/posix_file.h"
#include "platform/text_file.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace kelvarin
{

/// An unsaved problem in a recovery file.
struct recovery_entry
{
    /// The kind of problem: "nle".
    std::string kind;
    std::string title;
    /// The problem's file; empty if it was never saved.
    std::filesystem::path path;
    /// Time of the last recovery copy in seconds since 1970-01-01 UTC.
    std::int64_t kept_at = 0;
    /// As problem_document::recovery_text wrote it.
    std::string content;

    friend bool operator==(const recovery_entry&, const recovery_entry&) = default;
};

/// `$XDG_STATE_HOME/kelvarin/recovery`, with `~/.local/state` if the variable is not set.
std::filesystem::path default_recovery_folder();

/// The recovery files of one running program. Each program holds a lock file in the folder as long as it runs (the
/// system releases the lock however the program ends), and each unsaved problem is one file named after that lock; so
/// files without a living owner were left by a crash, and no program takes the files of another running one. Files are
/// written completely or not at all.
class recovery_store
{
public:
    /// Stores nothing and sets `failure` if the folder can not be made or locked.
    explicit recovery_store(std::filesystem::path folder);
    /// Remaining files are left without owner for the next program.
    ~recovery_store();
    recovery_store(const recovery_store&) = delete;
    recovery_store& operator=(const recovery_store&) = delete;

    const std::optional<file_failure>& failure() const { return failure_; }

    /// A new number for one problem; no number is used twice.
    int new_slot() { return ++last_slot_; }
    /// Stores a problem in a slot, replacing its earlier copy.
    std::optional<file_failure> keep(int slot, const recovery_entry& entry);
    /// Removes the file of a problem that was saved or closed.
    void drop(int slot);

    /// A problem of an ended program, now stored in a slot of this program.
    struct found_problem
    {
        int slot = 0;
        recovery_entry entry;
    };
    /// Takes over every problem that no running program owns, newest first. Unreadable recovery files stay in the
    /// folder, renamed to end in ".unreadable".
    std::vector<found_problem> claim_orphans();

private:
    std::filesystem::path file_of(int slot) const;
    void claim_from(const std::filesystem::path& file, std::vector<found_problem>& found);

    std::filesystem::path folder_;
    std::string session_;
    /// Locked during the life of this object.
    std::optional<posix_file> lock_;
    int last_slot_ = 0;
    std::optional<file_failure> failure_;
};

} // namespace kelvarin

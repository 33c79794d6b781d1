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

/// An unsaved problem as it is kept against a crash.
struct recovery_entry
{
    /// The kind of problem: "nle".
    std::string kind;
    std::string title;
    /// Where the problem is kept; empty where it was never saved.
    std::filesystem::path path;
    /// When it was last kept: seconds since 1970-01-01 UTC.
    std::int64_t kept_at = 0;
    /// As problem_document::recovery_text wrote it.
    std::string content;

    friend bool operator==(const recovery_entry&, const recovery_entry&) = default;
};

/// `$XDG_STATE_HOME/kelvarin/recovery`, with `~/.local/state` where the variable is not set.
std::filesystem::path default_recovery_folder();

/// The recovery files of one running program. Each program holds a lock file in the folder for as long as it
/// lives (the system lets it go however the program ends), and each unsaved problem is one file named after
/// that lock; so the files without a living owner are those that a crash left behind, and no program takes
/// what another one is keeping. Files are written whole or not at all.
class recovery_store
{
public:
    /// Keeps nothing, and says so in `failure`, where the folder can not be made or locked.
    explicit recovery_store(std::filesystem::path folder);
    /// What is still kept stays, without owner, for the next program.
    ~recovery_store();
    recovery_store(const recovery_store&) = delete;
    recovery_store& operator=(const recovery_store&) = delete;

    const std::optional<file_failure>& failure() const { return failure_; }

    /// A number under which one problem is kept; never given twice.
    int new_slot() { return ++last_slot_; }
    /// Keeps a problem in place of what the slot held.
    std::optional<file_failure> keep(int slot, const recovery_entry& entry);
    /// The problem was saved or closed: its file goes.
    void drop(int slot);

    /// A problem found without owner: it is kept under a slot of this program from now on.
    struct found_problem
    {
        int slot = 0;
        recovery_entry entry;
    };
    /// Takes over every problem that no living program owns, the newest first. Files that can not be read as
    /// recovery files are left where they are, under a name that ends in ".unreadable".
    std::vector<found_problem> claim_orphans();

private:
    std::filesystem::path file_of(int slot) const;
    void claim_from(const std::filesystem::path& file, std::vector<found_problem>& found);

    std::filesystem::path folder_;
    std::string session_;
    /// Held while this lives.
    std::optional<posix_file> lock_;
    int last_slot_ = 0;
    std::optional<file_failure> failure_;
};

} // namespace kelvarin

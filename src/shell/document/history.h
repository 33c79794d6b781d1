// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace kelvarin
{

/// Undo and redo by values: the earlier and later contents of a document, each with the name of the step that changed
/// it. Saving moves the clean mark and keeps both stacks.
template <class Content> class undo_history
{
public:
    /// Stores `before`, the content before a step named `step`, and clears the redo stack.
    void record(Content before, std::string step)
    {
        undo_.push_back({std::move(before), std::move(step)});
        redo_.clear();
        if (clean_ && *clean_ >= undo_.size()) clean_.reset();
    }

    bool can_undo() const { return !undo_.empty(); }
    bool can_redo() const { return !redo_.empty(); }
    /// The name of the step that undo reverts; empty if there is none.
    std::string undo_step() const { return undo_.empty() ? std::string() : undo_.back().step; }
    std::string redo_step() const { return redo_.empty() ? std::string() : redo_.back().step; }

    /// Whether undo would bring this content back.
    bool undo_gives(const Content& content) const { return can_undo() && undo_.back().content == content; }

    /// Swaps `content` with the one before the last step. Returns false if there is none.
    bool undo(Content& content) { return move_entry(undo_, redo_, content); }
    bool redo(Content& content) { return move_entry(redo_, undo_, content); }

    /// Marks the present content as the saved one.
    void mark_clean() { clean_ = undo_.size(); }
    bool is_clean() const { return clean_ == undo_.size(); }
    /// Marks that no content reachable by undo or redo is the saved one.
    void mark_unsaved() { clean_.reset(); }
    void clear()
    {
        undo_.clear();
        redo_.clear();
        clean_ = 0;
    }

private:
    struct entry
    {
        Content content;
        std::string step;
    };

    static bool move_entry(std::vector<entry>& from, std::vector<entry>& to, Content& content)
    {
        if (from.empty()) return false;
        entry taken = std::move(from.back());
        from.pop_back();
        std::swap(taken.content, content);
        to.push_back(std::move(taken));
        return true;
    }

    std::vector<entry> undo_;
    std::vector<entry> redo_;
    /// The number of undoable steps at which the content is the saved one; nullopt if there is no such number.
    std::optional<std::size_t> clean_ = 0;
};

} // namespace kelvarin

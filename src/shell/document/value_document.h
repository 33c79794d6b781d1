// SPDX-License-Identifier: MIT
#pragma once

#include "platform/file_bounds.h"
#include "platform/message_box.h"
#include "platform/runtime_failure.h"
#include "platform/saver.h"
#include "platform/text_file.h"
#include "shell/document/document_path.h"
#include "shell/document/history.h"
#include "shell/document/problem_document.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace kelvarin
{

/// The conversions between a kind's content and its texts.
template <class Content> struct content_format
{
    /// The kind's key in recovery files: "nle".
    std::string_view kind;
    /// The name of the undo step that replaces the problem by an example.
    std::string_view example_step;

    /// The content of a problem file's text (UTF-8). Returns nullopt if the text is not a problem of this kind.
    /// `current` is the content to be replaced and supplies what a file doesn't contain.
    std::optional<Content> (*read)(std::string_view text, const Content& current);
    /// The text of a problem file, in the current or the older format. May throw runtime_failure if the content can't
    /// be represented in the format.
    std::string (*write)(const Content& content, bool older_format);
    /// A text that preserves the whole content, including what a problem file omits.
    std::string (*recovery_text)(const Content& content);
    /// The content that `recovery_text` wrote. Returns nullopt if the text is not valid.
    std::optional<Content> (*read_recovery)(std::string_view text);
    /// The text that is printed; `path` is empty if the problem has no file.
    std::string (*listing)(const Content& content, const std::filesystem::path& path);
    file_bounds bounds = {};
};

/// A document whose content is one value: undo and redo store earlier and later values, and files, recovery and print
/// are made from the value by the kind's format. A kind derives from it and adds the operations on its content, each of
/// which makes the next value and calls `change`.
///
/// `Content` compares equal by value, and `Content::title` is the problem's title.
template <class Content> class value_document : public problem_document
{
public:
    /// `format` must outlive the document.
    explicit value_document(const content_format<Content>& format) : format_(&format) {}

    const Content& content() const { return content_; }

    std::string_view kind() const final { return format_->kind; }
    const std::string& title() const final { return content_.title; }
    void set_title(std::string_view title) override
    {
        Content next = content_;
        next.title = field_text(title);
        change("Change title", std::move(next));
    }
    const std::filesystem::path& path() const final { return path_.path(); }
    /// An example to which nothing has been done since holds no work that could be lost.
    bool problem_saved() const override { return history_.is_clean() || history_.undo_step() == format_->example_step; }

    bool undo() final
    {
        if (!history_.undo(content_)) return false;
        if (history_.is_clean()) path_.come_back();
        return true;
    }
    bool redo() final
    {
        const bool to_example = history_.redo_step() == format_->example_step;
        if (!history_.redo(content_)) return false;
        if (to_example) path_.leave();
        return true;
    }
    std::string undo_step() const final { return history_.undo_step(); }
    std::string redo_step() const final { return history_.redo_step(); }

    file_reader reader_of(const std::filesystem::path& path) final
    {
        return [this, format = format_, current = content_, path](const std::function<bool()>& stop_asked) {
            const auto file = std::make_shared<const text_file>(read_text_file(path, format->bounds, stop_asked));
            const auto read =
                std::make_shared<std::optional<Content>>(file->ok() ? format->read(file->text, current) : std::nullopt);
            return file_taker([this, path, file, read]() -> refusal {
                if (!*read) return open_refusal(*file);
                const Content before = content_;
                start_anew(std::move(**read), path);
                file_taken_over(before);
                return std::nullopt;
            });
        };
    }
    refusal open_example(const std::filesystem::path& path) final
    {
        refusal refused = open(path);
        if (!refused) path_.set({});
        return refused;
    }
    refusal save(const std::filesystem::path& path, bool older_format = false,
                 const save_calls& calls = system_save_calls()) override
    {
        const message_box failed = {"Error while trying to save file.", box_icon::critical};
        try {
            if (save_file(path, format_->write(content_, older_format), calls)) return failed;
        } catch (const runtime_failure&) {
            return failed;
        }
        path_.set(path);
        history_.mark_clean();
        return std::nullopt;
    }

    std::string recovery_text() const final { return format_->recovery_text(content_); }
    std::function<std::string()> recovery_text_maker() const final
    {
        return [format = format_, content = content_] { return format->recovery_text(content); };
    }
    bool restore(std::string_view recovery_text, const std::filesystem::path& path) override
    {
        std::optional<Content> read = format_->read_recovery(recovery_text);
        if (!read) return false;
        start_anew(std::move(*read), path);
        history_.mark_unsaved();
        return true;
    }

    std::string printed_listing() const final { return format_->listing(content_, path()); }

protected:
    /// The box for a file that can't be read or holds no problem of this kind.
    virtual message_box open_refusal(const text_file& file) const
    {
        message_box box = {"Error while trying to open file.", box_icon::critical};
        if (file.is_too_large) box.text += "\rThe file can not be read: " + file.failure.reason + ".";
        return box;
    }
    /// Called after a file was read in place of `before`.
    virtual void file_taken_over(const Content& /*before*/) {}
    /// The content, to change what is no part of its value: such a change is no step of undo.
    Content& unrecorded() { return content_; }
    /// Starts with a content that was made elsewhere and is unsaved; clears the undo stack.
    void start_unsaved(Content content)
    {
        start_anew(std::move(content), {});
        history_.mark_unsaved();
    }
    /// Starts with a content that was made elsewhere and has nothing to be saved; clears the undo stack.
    void start_clean(Content content) { start_anew(std::move(content), {}); }
    /// Replaces the content by `next` as a step of undo. Does nothing if they are equal.
    void change(std::string_view step, Content next)
    {
        if (next == content_) return;
        history_.record(std::exchange(content_, std::move(next)), std::string(step));
    }
    /// The same for changes made while typing: consecutive ones are one step.
    void change_on(std::string_view step, Content next)
    {
        if (history_.undo_step() != step || history_.can_redo() || history_.is_clean())
            change(step, std::move(next));
        else if (history_.undo_gives(next))
            // What was typed is taken back by typing: nothing is left that a step could revert.
            undo();
        else
            content_ = std::move(next);
    }
    /// Replaces the problem by an example in one step. The path is cleared, so that Save doesn't overwrite the file
    /// that was open.
    void change_to_example(Content example)
    {
        change(format_->example_step, std::move(example));
        path_.leave();
    }

private:
    void start_anew(Content content, const std::filesystem::path& path)
    {
        content_ = std::move(content);
        path_.set(path);
        history_.clear();
    }

    const content_format<Content>* format_;
    Content content_;
    document_path path_;
    undo_history<Content> history_;
};

} // namespace kelvarin

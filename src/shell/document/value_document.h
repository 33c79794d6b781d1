// SPDX-License-Identifier: MIT
#pragma once

#include "platform/message_box.h"
#include "platform/runtime_failure.h"
#include "platform/saver.h"
#include "platform/text_file.h"
#include "shell/document/document_path.h"
#include "shell/document/history.h"
#include "shell/document/problem_document.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace kelvarin
{

/// How a kind of problem turns its content into texts and back.
template <class Content> struct content_format
{
    /// The kind as recovery files name it: "nle".
    std::string_view kind;
    /// The name of the step that puts an example in place of the problem.
    std::string_view example_step;

    /// The content of a problem file's text (UTF-8); nullopt if the text is no problem of this kind. `current` is the
    /// content that is to be replaced: what a file does not name stays as it is there.
    std::optional<Content> (*read)(std::string_view text, const Content& current);
    /// The text of a problem file, in the current or the older format. May throw runtime_failure where the content has
    /// no such text.
    std::string (*write)(const Content& content, bool older_format);
    /// A text that holds everything, also what a problem file has no room for.
    std::string (*recovery_text)(const Content& content);
    /// The content that `recovery_text` wrote; nullopt if it did not write this.
    std::optional<Content> (*read_recovery)(std::string_view text);
    /// The lines that are printed; `path` is empty where the problem has no file.
    std::string (*listing)(const Content& content, const std::filesystem::path& path);
};

/// A document whose content is one value: undo and redo keep earlier and later values, and files, recovery and print
/// are made from the value by the kind's format. A kind derives from it and adds the operations on its content, each of
/// which makes the next value and calls `change`.
///
/// `Content` compares equal by value, and `Content::title` is the problem's title.
template <class Content> class value_document : public problem_document
{
public:
    /// `format` outlives the document.
    explicit value_document(const content_format<Content>& format) : format_(&format) {}

    const Content& content() const { return content_; }

    std::string_view kind() const final { return format_->kind; }
    const std::string& title() const final { return content_.title; }
    void set_title(std::string_view title) final
    {
        Content next = content_;
        next.title = field_text(title);
        change("Change title", std::move(next));
    }
    const std::filesystem::path& path() const final { return path_.path(); }
    bool problem_saved() const final { return history_.is_clean(); }

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

    refusal open(const std::filesystem::path& path) final
    {
        const text_file file = read_text_file(path);
        std::optional<Content> read = file.ok() ? format_->read(file.text, content_) : std::nullopt;
        if (!read) return message_box{"Error while trying to open file.", box_icon::critical};
        start_anew(std::move(*read), path);
        return std::nullopt;
    }
    refusal save(const std::filesystem::path& path, bool older_format = false,
                 const save_calls& calls = system_save_calls()) final
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
    bool restore(std::string_view recovery_text, const std::filesystem::path& path) final
    {
        std::optional<Content> read = format_->read_recovery(recovery_text);
        if (!read) return false;
        start_anew(std::move(*read), path);
        history_.mark_unsaved();
        return true;
    }

    std::string printed_listing() const final { return format_->listing(content_, path()); }

protected:
    /// Begins with a content that was made elsewhere and that nobody has saved yet; undo starts anew.
    void start_unsaved(Content content)
    {
        start_anew(std::move(content), {});
        history_.mark_unsaved();
    }
    /// Puts `next` in place of the content, as a step of undo. Nothing happens where they are equal.
    void change(std::string_view step, Content next)
    {
        if (next == content_) return;
        history_.record(std::exchange(content_, std::move(next)), std::string(step));
    }
    /// The same for changes that come with every key typed: those in a row are one step.
    void change_on(std::string_view step, Content next)
    {
        if (history_.undo_step() == step && !history_.can_redo() && !history_.is_clean())
            content_ = std::move(next);
        else
            change(step, std::move(next));
    }
    /// Puts an example in place of the problem, in one step. The path goes, so that no save writes the example over the
    /// file that was open.
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
    history<Content> history_;
};

} // namespace kelvarin

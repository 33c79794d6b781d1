// SPDX-License-Identifier: MIT
#pragma once

#include "platform/message_box.h"
#include "platform/saver.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace kelvarin
{

/// The interface of all kinds of documents to the problem window: title and path, saved or not, undo, files and
/// recovery. A refused operation returns the box to show and changes nothing.
class problem_document
{
public:
    using refusal = std::optional<message_box>;

    virtual ~problem_document() = default;

    /// The kind's key in recovery files: "nle".
    virtual std::string_view kind() const = 0;
    /// Trimmed.
    virtual const std::string& title() const = 0;
    /// Line ends and tabs become blanks, and the title is trimmed.
    virtual void set_title(std::string_view title) = 0;
    /// Empty if the problem has no file.
    virtual const std::filesystem::path& path() const = 0;
    virtual bool problem_saved() const = 0;
    /// Whether a recovery copy is to be kept: the content differs from what a file or New would give.
    virtual bool needs_recovery() const { return !problem_saved(); }
    /// Whether the document has no content worth saving.
    virtual bool is_blank() const = 0;

    virtual bool undo() = 0;
    virtual bool redo() = 0;
    /// The name of the step that undo reverts, such as "Remove equation"; empty if there is none.
    virtual std::string undo_step() const = 0;
    virtual std::string redo_step() const = 0;

    /// Takes what was read over into this document, in the document's thread.
    using file_taker = std::function<refusal()>;
    /// Reads a file in any thread; gives up soon after `stop_asked` (which may be null) returns true.
    using file_reader = std::function<file_taker(const std::function<bool()>& stop_asked)>;
    /// The two parts of `open`.
    virtual file_reader reader_of(const std::filesystem::path& path) = 0;
    /// Reads a file into this document and clears the undo stack. Refused, the document is unchanged.
    refusal open(const std::filesystem::path& path) { return reader_of(path)(nullptr)(); }
    /// The same for an example: the document has no file then, so that Save can't write over the example.
    virtual refusal open_example(const std::filesystem::path& path) = 0;
    /// Writes the document, in the kind's older format if requested; updates path and clean mark.
    virtual refusal save(const std::filesystem::path& path, bool older_format,
                         const save_calls& calls = system_save_calls()) = 0;

    /// The whole content in a private format, from which `restore` recreates it without loss.
    virtual std::string recovery_text() const = 0;
    /// Makes recovery_text of the document as it is now, later and in any thread.
    virtual std::function<std::string()> recovery_text_maker() const
    {
        return [text = recovery_text()] { return text; };
    }
    /// Replaces the content by a recovered one with its path; it counts as unsaved. Returns false and changes nothing
    /// if `recovery_text` didn't write the text.
    virtual bool restore(std::string_view recovery_text, const std::filesystem::path& path) = 0;

    /// The text that is printed.
    virtual std::string printed_listing() const = 0;
};

} // namespace kelvarin

// SPDX-License-Identifier: MIT
#pragma once

#include "platform/message_box.h"
#include "platform/saver.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace kelvarin
{

/// What a problem window asks of its document, whatever its kind: name and place, saved or not, undo, files
/// and recovery. Whatever is refused is told by the box to show, and then nothing has changed.
class problem_document
{
public:
    using refusal = std::optional<message_box>;

    virtual ~problem_document() = default;

    /// The kind as recovery files name it: "nle".
    virtual std::string_view kind() const = 0;
    /// Without blanks around it.
    virtual const std::string& title() const = 0;
    /// Line ends and tabs become blanks, and blanks around it go.
    virtual void set_title(std::string_view title) = 0;
    /// Empty where the problem has no file.
    virtual const std::filesystem::path& path() const = 0;
    virtual bool problem_saved() const = 0;
    /// Nothing is in it yet that a person could lose or save.
    virtual bool is_blank() const = 0;

    virtual bool undo() = 0;
    virtual bool redo() = 0;
    /// The name of the step that undo takes back, "Remove equation"; empty when there is none.
    virtual std::string undo_step() const = 0;
    virtual std::string redo_step() const = 0;

    /// Reads a file into this document; undo starts anew. Refused, the document stays as it was.
    virtual refusal open(const std::filesystem::path& path) = 0;
    /// Writes the document, in the kind's older format on demand; path and clean mark move.
    virtual refusal save(const std::filesystem::path& path, bool older_format,
                         const save_calls& calls = system_save_calls()) = 0;

    /// The whole content in a form of its own, from which `restore` makes it again with nothing lost.
    virtual std::string recovery_text() const = 0;
    /// Takes over a recovered content and the path that it had; it counts as unsaved. False, and nothing
    /// changed, where the text is none that `recovery_text` wrote.
    virtual bool restore(std::string_view recovery_text, const std::filesystem::path& path) = 0;

    /// The lines that are printed.
    virtual std::string printed_listing() const = 0;
};

} // namespace kelvarin

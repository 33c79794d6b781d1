// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/child_window.h"
#include "desktop/user_interface.h"
#include "platform/file_stamp.h"

#include <filesystem>
#include <optional>
#include <string>

class QPagedPaintDevice;

namespace kelvarin
{

/// A window whose content is saved and printed: a problem, a report, a graph. It carries out Save, Save As, Print,
/// Print Preview and Close with their questions; the derived window supplies the content.
class document_window : public child_window
{
    Q_OBJECT

public:
    using child_window::child_window;

    bool can(window_command which) const override;
    void perform(window_command which) override;
    QString file_panel() const override;

    /// Each returns true if the content is saved afterwards. `save` asks for a file only if there is none, and both ask
    /// before they replace what another program wrote into the file since it was read.
    bool save();
    bool save_as();
    /// Asks with `text` whether to save unsaved work. Returns true if the content may be replaced.
    bool may_replace(const std::string& text);

protected:
    /// The file that Save writes; empty if there is none yet.
    virtual const std::filesystem::path& file_path() const = 0;
    virtual bool is_saved() const = 0;
    /// The dialog of Save As.
    virtual file_question save_question() const = 0;
    /// Writes the content in the form of the filter's pair `filter_index` (0: the form that the file has), asking what
    /// has to be confirmed. Shows a failure. Returns true if the content is saved.
    virtual bool write_file(const std::filesystem::path& path, int filter_index) = 0;

    /// The title of the printed document, and its pages; false if their painting was stopped.
    virtual QString printed_name() const = 0;
    /// What is said if printing fails.
    virtual std::string print_failure() const { return "Error while trying to print or setting printer."; }
    virtual bool print_pages(QPagedPaintDevice& device) const = 0;

    /// The question before the window closes with unsaved work; empty if there is nothing to ask.
    virtual std::string question_on_close() const { return {}; }
    /// Ends editing in a field or cell: called before the content is saved, replaced or closed.
    virtual void take_over_typing() {}

    /// Reads the file anew; the content is replaced. Shows a failure.
    virtual void reload() = 0;

    /// To be called after a file was read: its stamp from before. nullopt: what was read is not known.
    void note_file(const std::filesystem::path& path, const std::optional<file_stamp>& stamp);

    /// Sets the window's caption with the mark of unsaved work.
    void show_caption(QString caption);

    void closeEvent(QCloseEvent* event) override;

private:
    /// write_file after the question that may be due. Returns true if the content is saved.
    bool write(const std::filesystem::path& path, int filter_index);
    bool was_changed_elsewhere(const std::filesystem::path& path) const;
    void print(bool preview);

    struct known_file
    {
        std::filesystem::path path;
        std::optional<file_stamp> stamp;
    };
    known_file known_file_;
};

} // namespace kelvarin

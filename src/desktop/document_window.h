// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/child_window.h"
#include "desktop/user_interface.h"

#include <filesystem>
#include <string>

class QPrinter;

namespace kelvarin
{

/// A window whose content is saved and printed: a problem, a report, a graph. It carries out Save, Save As, Print,
/// Print Preview and Close, with their questions; the derived window says what is written and printed.
class document_window : public child_window
{
    Q_OBJECT

public:
    using child_window::child_window;

    bool can(window_command which) const override;
    void perform(window_command which) override;
    QString file_panel() const override;

    /// Each is true when the content is saved afterwards. `save` asks for a file only where there is none.
    bool save();
    bool save_as();
    /// Asks what is to become of unsaved work (`text` as the question): true where one may go on.
    bool may_replace(const std::string& text);

protected:
    /// The file that Save writes; empty where there is none yet.
    virtual const std::filesystem::path& file_path() const = 0;
    virtual bool is_saved() const = 0;
    /// The dialog of Save As.
    virtual file_question save_question() const = 0;
    /// Writes the content in the form of the filter's pair `filter_index` (0: in the form that the file has), after
    /// what has to be asked. A failure is shown; true where the content is saved.
    virtual bool write_file(const std::filesystem::path& path, int filter_index) = 0;

    /// The name of the printed document, and its pages.
    virtual QString printed_name() const = 0;
    virtual void print_pages(QPrinter& printer) const = 0;

    /// The question before the window closes over unsaved work; empty where none is asked.
    virtual std::string question_on_close() const { return {}; }
    /// Takes over what is being typed into a field or cell: called before the content is saved, replaced or closed.
    virtual void take_over_typing() {}

    /// Shows the window's caption with the mark of unsaved work.
    void show_caption(QString caption);

    void closeEvent(QCloseEvent* event) override;

private:
    void print(bool preview);
};

} // namespace kelvarin

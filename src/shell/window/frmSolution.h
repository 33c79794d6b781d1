// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/child_window.h"
#include "shell/rich_text.h"

#include <QTextBrowser>

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace kelvarin
{

/// The result window: shows a report, prints it, copies it and saves it. It holds the report's text as it was
/// given; opened files are shown as they stand.
class frmSolution : public child_window
{
    Q_OBJECT

public:
    explicit frmSolution(desktop_context& context);

    /// Told by the creator before the window is shown: whether the report is unsaved work, the file it stands
    /// in (empty for none) and the title that the status bar shows.
    void update_prog_sol(bool changed, const std::filesystem::path& file, const std::string& title);
    /// Shows a rich-text document. `caption` is the window's: "Nonlinear Equations Solution #1".
    void show_report(std::string rich_text, const QString& caption);
    /// Shows a plain text in the fixed-width font.
    void show_text(std::string text, const QString& caption);

    /// The rich text as it is saved.
    const std::string& rich_text() const { return rich_text_; }
    std::string plain_text() const;

    bool save_as();

    QList<QMenu*> menus() override;
    bool can(command which) const override;
    void perform(command which) override;
    QString file_panel() const override;
    QString title_panel() const override;

private:
    std::string rich_text_;
    std::filesystem::path file_;
    std::string title_;
    bool changed_ = false;
};

/// Opens a report or text file in a new window, which the frame takes over. A file that can not be read is
/// refused by a box.
std::optional<message_box> open_report(desktop_context& context, const std::filesystem::path& path);

} // namespace kelvarin

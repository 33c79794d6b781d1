// SPDX-License-Identifier: MIT
#pragma once

#include "platform/message_box.h"

#include <QColor>
#include <QFont>
#include <QMimeData>
#include <QString>

#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QPagedPaintDevice;
class QWidget;

namespace kelvarin
{

enum class user_answer
{
    yes,
    no,
    cancel
};

/// A question with Yes and No, and optionally Cancel. Enter takes `default_answer`; Esc is Cancel, or No if there is no
/// Cancel.
struct user_question
{
    std::string text;
    std::string title = guide_title;
    bool with_cancel = false;
    /// Buttons OK and Cancel in place of these; OK is the answer yes.
    bool ok_or_cancel = false;
    box_icon icon = box_icon::question;
    user_answer default_answer = user_answer::yes;
};

/// A question whose answers have captions of their own. Enter and Esc take none.
struct user_choice
{
    std::string text;
    std::vector<QString> captions;
    std::string title = guide_title;
};

/// What a file dialog shows.
struct file_question
{
    QString caption = {};
    /// Pairs of description and pattern: "Kelvarin (*.kvr)|*.kvr|Text (*.txt)|*.txt".
    std::string filter = {};
    /// The proposed file, or the folder to start in.
    std::filesystem::path proposed = {};
    /// Appended to a typed name without extension, when saving.
    QString default_extension = {};
};

struct chosen_file
{
    std::filesystem::path path;
    /// Which pair of the filter was chosen, from 1.
    int filter_index = 1;
};

/// Paints pages on a printer or into a file. Returns false if it was stopped: then nothing is printed.
using page_painter = std::function<bool(QPagedPaintDevice&)>;

enum class print_outcome
{
    cancelled,
    printed,
    failed
};

/// All boxes, questions and desktop services that a window uses. Boxes and questions return when they are answered; the
/// windows' own dialogs don't use this interface.
class user_interface
{
public:
    virtual ~user_interface() = default;

    virtual void show(QWidget* parent, const message_box& box) = 0;
    virtual user_answer ask(QWidget* parent, const user_question& asked) = 0;
    /// The number of the chosen answer; nullopt for none.
    virtual std::optional<std::size_t> choose(QWidget* parent, const user_choice& asked) = 0;
    /// Asks for one line of text. Returns nullopt if it was cancelled; an empty text is a valid answer.
    virtual std::optional<QString> input(QWidget* parent, const QString& title, const QString& prompt,
                                         const QString& proposed) = 0;
    virtual std::optional<chosen_file> choose_file_to_open(QWidget* parent, const file_question& asked) = 0;
    /// Asks before an existing file is overwritten.
    virtual std::optional<chosen_file> choose_file_to_save(QWidget* parent, const file_question& asked) = 0;
    virtual std::optional<QFont> choose_font(QWidget* parent, const QFont& present) = 0;
    virtual std::optional<QColor> choose_colour(QWidget* parent, const QColor& present) = 0;

    virtual void copy(std::unique_ptr<QMimeData> content) = 0;
    void copy_text(const QString& text);
    /// The content of the clipboard; never null.
    virtual const QMimeData* clipboard() const = 0;

    /// Lets the user choose a printer (or a PDF file) and calls `paint`.
    virtual print_outcome print(QWidget* parent, const QString& document_name, const page_painter& paint) = 0;
    /// Shows the pages that `paint` makes; they can be printed from there.
    virtual print_outcome print_preview(QWidget* parent, const QString& document_name, const page_painter& paint) = 0;

    virtual void beep() = 0;
};

/// The interface of the real desktop: the toolkit's dialogs, the clipboard and printers.
std::unique_ptr<user_interface> make_desktop_interface();

/// A box's text with its CR line separators converted to LF.
QString box_text(const std::string& text);

} // namespace kelvarin

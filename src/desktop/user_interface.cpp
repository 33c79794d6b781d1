// SPDX-License-Identifier: MIT
#include "desktop/user_interface.h"

#include "desktop/file_dialogs.h"
#include "desktop/page_printing.h"
#include "desktop/qt_text.h"

#include <QApplication>
#include <QClipboard>
#include <QColorDialog>
#include <QFontDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPushButton>

#include <algorithm>
#include <vector>

namespace kelvarin
{

namespace
{

QMessageBox::Icon box_icon_of(box_icon icon)
{
    switch (icon) {
    case box_icon::critical:
        return QMessageBox::Critical;
    case box_icon::question:
        return QMessageBox::Question;
    case box_icon::exclamation:
        return QMessageBox::Warning;
    case box_icon::information:
        return QMessageBox::Information;
    case box_icon::none:
        break;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButton button_of(user_answer given)
{
    if (given == user_answer::yes) return QMessageBox::Yes;
    return given == user_answer::no ? QMessageBox::No : QMessageBox::Cancel;
}

/// The window to show a box over: the parent's, or the active window if there is no parent.
QWidget* owner_of(QWidget* parent)
{
    return parent ? parent->window() : QApplication::activeWindow();
}

class desktop_interface final : public user_interface
{
public:
    void show(QWidget* parent, const message_box& box) override
    {
        QMessageBox shown(box_icon_of(box.icon), to_qstring(box.title), box_text(box.text), QMessageBox::Ok,
                          owner_of(parent));
        // Messages quote the user's texts, which must not be interpreted as markup.
        shown.setTextFormat(Qt::PlainText);
        shown.exec();
    }

    user_answer ask(QWidget* parent, const user_question& asked) override
    {
        QMessageBox::StandardButtons buttons = QMessageBox::Yes | QMessageBox::No;
        if (asked.with_cancel) buttons |= QMessageBox::Cancel;
        if (asked.ok_or_cancel) buttons = QMessageBox::Ok | QMessageBox::Cancel;
        QMessageBox shown(box_icon_of(asked.icon), to_qstring(asked.title), box_text(asked.text), buttons,
                          owner_of(parent));
        shown.setTextFormat(Qt::PlainText);
        const bool yes_is_ok = asked.ok_or_cancel && asked.default_answer == user_answer::yes;
        shown.setDefaultButton(yes_is_ok ? QMessageBox::Ok : button_of(asked.default_answer));
        shown.setEscapeButton(asked.with_cancel || asked.ok_or_cancel ? QMessageBox::Cancel : QMessageBox::No);
        switch (shown.exec()) {
        case QMessageBox::Ok:
        case QMessageBox::Yes:
            return user_answer::yes;
        case QMessageBox::No:
            return user_answer::no;
        default:
            return user_answer::cancel;
        }
    }

    std::optional<std::size_t> choose(QWidget* parent, const user_choice& asked) override
    {
        QMessageBox shown(QMessageBox::Question, to_qstring(asked.title), box_text(asked.text), QMessageBox::Cancel,
                          owner_of(parent));
        shown.setTextFormat(Qt::PlainText);
        std::vector<QAbstractButton*> buttons;
        for (const QString& caption : asked.captions)
            buttons.push_back(shown.addButton(caption, QMessageBox::ActionRole));
        shown.setDefaultButton(QMessageBox::Cancel);
        shown.setEscapeButton(QMessageBox::Cancel);
        shown.exec();
        const auto chosen = std::ranges::find(buttons, shown.clickedButton());
        if (chosen == buttons.end()) return std::nullopt;
        return static_cast<std::size_t>(chosen - buttons.begin());
    }

    std::optional<QString> input(QWidget* parent, const QString& title, const QString& prompt,
                                 const QString& proposed) override
    {
        bool accepted = false;
        QString text = QInputDialog::getText(owner_of(parent), title, prompt, QLineEdit::Normal, proposed, &accepted);
        if (!accepted) return std::nullopt;
        return text;
    }

    std::optional<chosen_file> choose_file_to_open(QWidget* parent, const file_question& asked) override
    {
        return run_file_dialog(owner_of(parent), asked, false);
    }

    std::optional<chosen_file> choose_file_to_save(QWidget* parent, const file_question& asked) override
    {
        return run_file_dialog(owner_of(parent), asked, true);
    }

    std::optional<QFont> choose_font(QWidget* parent, const QFont& present) override
    {
        bool accepted = false;
        QFont font = QFontDialog::getFont(&accepted, present, owner_of(parent));
        if (!accepted) return std::nullopt;
        return font;
    }

    std::optional<QColor> choose_colour(QWidget* parent, const QColor& present) override
    {
        const QColor colour = QColorDialog::getColor(present, owner_of(parent));
        if (!colour.isValid()) return std::nullopt;
        return colour;
    }

    void copy(std::unique_ptr<QMimeData> content) override
    {
        QGuiApplication::clipboard()->setMimeData(content.release());
    }

    const QMimeData* clipboard() const override
    {
        // Null on platforms without a clipboard of their own until something is copied.
        static const QMimeData empty;
        const QMimeData* content = QGuiApplication::clipboard()->mimeData();
        return content ? content : &empty;
    }

    print_outcome print(QWidget* parent, const QString& document_name, const page_painter& paint) override
    {
        QPrinter printer(QPrinter::HighResolution);
        printer.setDocName(document_name);
        QPrintDialog dialog(&printer, owner_of(parent));
        if (dialog.exec() != QDialog::Accepted) return print_outcome::cancelled;
        return print_pages(printer, paint);
    }

    print_outcome print_preview(QWidget* parent, const QString& document_name, const page_painter& paint) override
    {
        QPrinter printer(QPrinter::HighResolution);
        printer.setDocName(document_name);
        QPrintPreviewDialog dialog(&printer, owner_of(parent));
        QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog,
                         [&paint](QPrinter* pages) { paint(*pages); });
        // The dialog's print button accepts it; the chosen settings are in the printer.
        if (dialog.exec() != QDialog::Accepted) return print_outcome::cancelled;
        return outcome_of(printer);
    }

    void beep() override { QApplication::beep(); }
};

} // namespace

std::unique_ptr<user_interface> make_desktop_interface()
{
    return std::make_unique<desktop_interface>();
}

QString box_text(const std::string& text)
{
    QString shown = to_qstring(text);
    shown.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    shown.replace(QLatin1Char('\r'), QLatin1Char('\n'));
    return shown;
}

void user_interface::copy_text(const QString& text)
{
    auto content = std::make_unique<QMimeData>();
    content->setText(text);
    copy(std::move(content));
}

} // namespace kelvarin

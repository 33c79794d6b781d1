// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>

#include <string_view>

class QTextBrowser;

namespace kelvarin
{

/// Shows a rich text in a dialog over the calling window.
class frmMsg : public QDialog
{
    Q_OBJECT

public:
    explicit frmMsg(QWidget* parent);

    /// Shows a text in the rich-text subset of reports, without prolog and tail, and returns at once; the window
    /// deletes itself when it is closed. Names in `linked_names` become links where they occur as whole words below the
    /// heading "Undefined variables".
    void display_msg(const QString& caption, std::string_view text, const QStringList& linked_names = {});
    void put_always_on_top();

signals:
    /// A link was clicked; the window has been closed already.
    void name_clicked(const QString& name);

private:
    void build_ui();
    void link_names(const QStringList& names);
    void fit_to_text();

    QTextBrowser* txtMsg_ = nullptr;
};

} // namespace kelvarin

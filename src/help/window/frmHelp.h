// SPDX-License-Identifier: MIT
#pragma once

#include "help/help_library.h"

#include <QWidget>

#include <functional>
#include <string>

class QLineEdit;
class QListWidget;
class QPushButton;
class QStackedWidget;
class QTreeWidget;
class QUrl;

namespace kelvarin
{

class help_view;

/// The window of the help: contents or what a search found on the left, a page on the right.
class frmHelp : public QWidget
{
    Q_OBJECT

public:
    explicit frmHelp(const help_library& library, QWidget* parent = nullptr);

    /// Shows a page, such as "graphs#zoom", and its line of the contents.
    void show_target(const std::string& target);
    std::string page_name() const;

signals:
    /// A file of the examples is to be opened.
    void example_asked(const QString& file);

private:
    void build_ui();
    QWidget* build_head();
    QWidget* build_side();
    void build_contents();
    void build_keys();
    QPushButton* add_head_button(const char* caption, const char* name, const char* tip);
    void add_key(const QList<QKeySequence>& keys, const std::function<void()>& act);
    void search();
    void open_found(int row);
    void page_changed(const QUrl& address);

    const help_library& library_;
    std::vector<std::string> found_;
    QPushButton* cmdBack_ = nullptr;
    QPushButton* cmdForward_ = nullptr;
    QLineEdit* txtFind_ = nullptr;
    QStackedWidget* side_ = nullptr;
    QTreeWidget* tvwContents_ = nullptr;
    QListWidget* lstFound_ = nullptr;
    help_view* txtPage_ = nullptr;
};

} // namespace kelvarin

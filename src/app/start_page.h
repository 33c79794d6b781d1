// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/commands.h"
#include "platform/registry_store.h"

#include <QScrollArea>

#include <filesystem>

class QBoxLayout;
class QToolButton;

namespace kelvarin
{

struct problem_kind;

/// Fills the main window while no child is open: new problems, recent files, examples.
class start_page : public QScrollArea
{
    Q_OBJECT

public:
    start_page(const command_actions& actions, const registry_store& registry, QWidget* parent);

    void show_background_picture(bool shown);

signals:
    void document_chosen(const std::filesystem::path& path);
    /// A recent file of a kind whose files its own windows open.
    void problem_chosen(const problem_kind* kind, const std::filesystem::path& path);
    void example_chosen(const std::filesystem::path& path);

protected:
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    /// Return and Enter choose a row, as Space does.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void build_ui(const command_actions& actions);
    void add_examples(QBoxLayout& column);
    QBoxLayout* add_column(QBoxLayout& columns, const QString& heading);
    QToolButton* add_row(QBoxLayout& column, const QIcon& picture, const QString& caption, const char* name);
    void show_recent_files();
    void order_rows();

    const registry_store& registry_;
    QWidget* content_ = nullptr;
    QBoxLayout* recent_column_ = nullptr;
    QList<QWidget*> recent_rows_;
    bool background_picture_ = false;
};

} // namespace kelvarin

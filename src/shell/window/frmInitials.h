// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/desktop_context.h"
#include "shell/settings.h"

#include <QWidget>

#include <optional>

class QLabel;
class QLayout;
class QLineEdit;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

namespace kelvarin
{

/// "Kelvarin Settings": the settings as a tree, with a check and a reset for each. A top-level window that is hidden,
/// not deleted, when it is closed.
class frmInitials : public QWidget
{
    Q_OBJECT

public:
    explicit frmInitials(desktop_context& context, QWidget* parent = nullptr);

signals:
    /// A value has changed: the main window rereads the settings that it uses.
    void settings_changed();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void build_ui();
    QLayout* build_tree_side();
    QLayout* build_value_side();
    void build_tree();
    QTreeWidgetItem* folder_of(const setting_row& row);
    void rebuild_leaf(QTreeWidgetItem& leaf);
    void rebuild_leaves();
    void filter_tree(const QString& words);
    bool filter_item(QTreeWidgetItem& item, const QString& words, bool inside_match);

    /// The first setting that matches the search; null if there is none.
    QTreeWidgetItem* first_found() const;
    bool choose_first_found();

    /// The setting of the current item; null if it is a folder.
    const setting_row* current_row() const;
    void show_current();
    void show_value(const setting_row& row);
    /// Shows how a text that is no number is read.
    void show_reading();
    void clear_value();
    void cmdSet_Click();
    void cmdRestore_Click();
    void cmdRestoreAll_Click();
    void cmdUndoReset_Click();
    void show_all_values();

    desktop_context& context_;
    /// The settings before they were all reset; nullopt if there is nothing to undo.
    std::optional<settings> before_reset_;
    QLabel* lblTree_ = nullptr;
    QLineEdit* txtFind_ = nullptr;
    QTreeWidget* tvw_ = nullptr;
    QPushButton* cmdRestoreAll_ = nullptr;
    QPushButton* cmdUndoReset_ = nullptr;
    QLabel* lblFolder_ = nullptr;
    QLabel* lblEq_ = nullptr;
    QLineEdit* txtTreeData_ = nullptr;
    QLabel* lblRead_ = nullptr;
    QLabel* lblHint_ = nullptr;
    QLabel* lblDefault_ = nullptr;
    QLabel* lblEffect_ = nullptr;
    QPushButton* cmdSet_ = nullptr;
    QPushButton* cmdRestore_ = nullptr;
};

} // namespace kelvarin

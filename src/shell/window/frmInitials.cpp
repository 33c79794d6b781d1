// SPDX-License-Identifier: MIT
#include "shell/window/frmInitials.h"

#include "desktop/icons.h"
#include "desktop/look.h"
#include "desktop/qt_text.h"
#include "desktop/search_keys.h"
#include "platform/letter_case.h"
#include "shell/window/setting_text.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <QVBoxLayout>

#include <utility>

namespace kelvarin
{

namespace
{

/// Item role of a leaf's row in the settings table; folders have none.
constexpr int row_role = Qt::UserRole;
/// Item role: whether a folder was expanded before a search.
constexpr int open_role = Qt::UserRole + 1;

const setting_row* row_of(const QTreeWidgetItem* item)
{
    if (item == nullptr || !item->data(0, row_role).isValid()) return nullptr;
    return &settings_table()[item->data(0, row_role).toUInt()];
}

QLabel* add_label(QWidget* parent, const char* name, const QString& text = {})
{
    auto* label = new QLabel(text, parent);
    label->setObjectName(QString::fromLatin1(name));
    label->setTextFormat(Qt::PlainText);
    return label;
}

QPushButton* add_button(QWidget* parent, const char* name, const QString& caption, const QString& tool_tip)
{
    auto* button = new QPushButton(caption, parent);
    button->setObjectName(QString::fromLatin1(name));
    button->setToolTip(tool_tip);
    return button;
}

} // namespace

frmInitials::frmInitials(desktop_context& context, QWidget* parent) : QWidget(parent, Qt::Window), context_(context)
{
    setObjectName(QStringLiteral("frmInitials"));
    setWindowTitle(tr("Kelvarin Settings"));
    setWindowIcon(program_icon("setup"));
    build_ui();
    build_tree();
    clear_value();
}

void frmInitials::build_ui()
{
    const int unit = line_unit(*this);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(unit, unit, unit, unit);
    layout->setSpacing(unit);
    layout->addLayout(build_tree_side(), 3);
    layout->addLayout(build_value_side(), 2);
    resize(46 * unit, 28 * unit);

    connect(txtFind_, &QLineEdit::textChanged, this, &frmInitials::filter_tree);
    new search_keys(*txtFind_, *tvw_, [this] {
        if (choose_first_found()) txtTreeData_->setFocus(Qt::TabFocusReason);
    });
    connect(tvw_, &QTreeWidget::currentItemChanged, this, &frmInitials::show_current);
    connect(tvw_, &QTreeWidget::itemExpanded, this,
            [](QTreeWidgetItem* item) { item->setIcon(0, program_icon("folder_open")); });
    connect(tvw_, &QTreeWidget::itemCollapsed, this,
            [](QTreeWidgetItem* item) { item->setIcon(0, program_icon("folder")); });
    // Enter on a leaf moves the focus to the field of its value.
    connect(tvw_, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem* item) {
        if (row_of(item) != nullptr) txtTreeData_->setFocus();
    });
    connect(txtTreeData_, &QLineEdit::textChanged, this, &frmInitials::show_reading);
    connect(txtTreeData_, &QLineEdit::returnPressed, this, &frmInitials::cmdSet_Click);
    connect(cmdSet_, &QPushButton::clicked, this, &frmInitials::cmdSet_Click);
    connect(cmdRestore_, &QPushButton::clicked, this, &frmInitials::cmdRestore_Click);
    connect(cmdRestoreAll_, &QPushButton::clicked, this, &frmInitials::cmdRestoreAll_Click);
    connect(cmdUndoReset_, &QPushButton::clicked, this, &frmInitials::cmdUndoReset_Click);
}

QLayout* frmInitials::build_tree_side()
{
    auto* lblFind = add_label(this, "lblFind", tr("&Find"));
    txtFind_ = new QLineEdit(this);
    txtFind_->setObjectName(QStringLiteral("txtFind"));
    txtFind_->setClearButtonEnabled(true);
    txtFind_->setPlaceholderText(tr("part of a name"));
    lblFind->setBuddy(txtFind_);

    lblTree_ = add_label(this, "lblTree", tr("Settings &tree"));
    tvw_ = new QTreeWidget(this);
    tvw_->setObjectName(QStringLiteral("tvw"));
    tvw_->setAccessibleName(tr("Settings tree"));
    tvw_->setHeaderHidden(true);
    tvw_->setUniformRowHeights(true);
    lblTree_->setBuddy(tvw_);
    cmdRestoreAll_ = add_button(this, "cmdRestoreAll", tr("Reset &All"), tr("Restore all values to default"));

    cmdUndoReset_ =
        add_button(this, "cmdUndoReset", tr("&Undo Reset"), tr("Give all values back that Reset All has restored"));
    cmdUndoReset_->setEnabled(false);

    auto* find = new QHBoxLayout;
    find->addWidget(lblFind);
    find->addWidget(txtFind_);
    auto* side = new QVBoxLayout;
    side->setSpacing(line_unit(*this) / 2);
    side->addLayout(find);
    side->addWidget(lblTree_);
    side->addWidget(tvw_);
    auto* resetting = new QHBoxLayout;
    resetting->setSpacing(line_unit(*this) / 2);
    resetting->addWidget(cmdRestoreAll_);
    resetting->addWidget(cmdUndoReset_);
    resetting->addStretch();
    side->addLayout(resetting);
    return side;
}

QLayout* frmInitials::build_value_side()
{
    const int unit = line_unit(*this);
    lblFolder_ = add_label(this, "lblFolder");
    lblFolder_->setWordWrap(true);
    lblEq_ = add_label(this, "lblEq");
    lblEq_->setWordWrap(true);
    QFont heading = lblEq_->font();
    heading.setBold(true);
    lblEq_->setFont(heading);
    txtTreeData_ = new QLineEdit(this);
    txtTreeData_->setObjectName(QStringLiteral("txtTreeData"));
    txtTreeData_->setFont(fixed_font(*this));
    lblRead_ = add_label(this, "lblRead");
    lblRead_->hide();
    lblHint_ = add_label(this, "lblHint");
    lblHint_->setWordWrap(true);
    lblDefault_ = add_label(this, "lblDefault");
    lblEffect_ = add_label(this, "lblEffect");
    lblEffect_->setWordWrap(true);
    // Their lines are reserved while empty, so that nothing moves when a setting is chosen.
    for (QLabel* label : {lblFolder_, lblEq_, lblHint_, lblDefault_})
        label->setMinimumHeight(label->fontMetrics().height());
    cmdSet_ = add_button(this, "cmdSet", tr("&Set"), tr("Take the value over"));
    cmdRestore_ = add_button(this, "cmdRestore", tr("&Restore"), tr("Restore this value to its default"));

    auto* buttons = new QHBoxLayout;
    buttons->setSpacing(unit / 2);
    buttons->addWidget(cmdSet_);
    buttons->addWidget(cmdRestore_);
    buttons->addStretch();
    auto* side = new QVBoxLayout;
    side->setSpacing(unit / 4);
    for (QWidget* widget : {static_cast<QWidget*>(lblFolder_), static_cast<QWidget*>(lblEq_)})
        side->addWidget(widget);
    side->addSpacing(unit / 4);
    auto* value = new QHBoxLayout;
    value->setSpacing(unit / 2);
    value->addWidget(txtTreeData_);
    value->addWidget(lblRead_);
    side->addLayout(value);
    side->addWidget(lblHint_);
    side->addWidget(lblDefault_);
    side->addSpacing(unit / 2);
    side->addLayout(buttons);
    side->addSpacing(unit / 2);
    side->addWidget(lblEffect_);
    side->addStretch();
    return side;
}

void frmInitials::build_tree()
{
    // Folders come before the leaves of the same level, independent of the table's order.
    const std::span<const setting_row> rows = settings_table();
    for (const setting_row& row : rows) {
        if (!row.caption.empty()) folder_of(row);
    }
    for (std::size_t at = 0; at < rows.size(); ++at) {
        if (rows[at].caption.empty()) continue;
        auto* leaf = new QTreeWidgetItem(folder_of(rows[at]));
        leaf->setData(0, row_role, static_cast<uint>(at));
        leaf->setIcon(0, program_icon("data"));
        leaf->setToolTip(0, leaf_tip(rows[at]));
        rebuild_leaf(*leaf);
    }
}

QTreeWidgetItem* frmInitials::folder_of(const setting_row& row)
{
    QTreeWidgetItem* folder = tvw_->invisibleRootItem();
    for (const QString& name : folder_names(row)) {
        QTreeWidgetItem* found = nullptr;
        for (int i = 0; i < folder->childCount() && found == nullptr; ++i) {
            if (folder->child(i)->text(0) == name) found = folder->child(i);
        }
        if (found == nullptr) {
            found = new QTreeWidgetItem(folder, {name});
            found->setIcon(0, program_icon("folder"));
        }
        folder = found;
    }
    return folder;
}

void frmInitials::rebuild_leaf(QTreeWidgetItem& leaf)
{
    const setting_row& row = *row_of(&leaf);
    const std::string& value = context_.store.value(row.key);
    leaf.setText(0, leaf_text(row, value));
    QFont font = tvw_->font();
    // The text of a boolean may have any case.
    const bool changed = row.type == setting_type::boolean ? lower_case(value) != lower_case(row.default_value)
                                                           : value != row.default_value;
    font.setBold(changed);
    leaf.setFont(0, font);
}

void frmInitials::rebuild_leaves()
{
    for (QTreeWidgetItemIterator each(tvw_); *each != nullptr; ++each) {
        if (row_of(*each) != nullptr) rebuild_leaf(**each);
    }
}

void frmInitials::filter_tree(const QString& words)
{
    const QString wanted = words.trimmed();
    for (QTreeWidgetItemIterator each(tvw_); *each != nullptr; ++each) {
        QTreeWidgetItem& item = **each;
        if (!wanted.isEmpty() && !item.data(0, open_role).isValid()) item.setData(0, open_role, item.isExpanded());
    }
    for (int i = 0; i < tvw_->topLevelItemCount(); ++i)
        filter_item(*tvw_->topLevelItem(i), wanted, false);
    lblTree_->setText(wanted.isEmpty() || first_found() ? tr("Settings &tree")
                                                        : tr("No setting has this in its name."));
    if (!wanted.isEmpty()) return;
    // Restores the expanded folders; the current leaf stays visible.
    for (QTreeWidgetItemIterator each(tvw_); *each != nullptr; ++each) {
        QTreeWidgetItem& item = **each;
        if (item.data(0, open_role).isValid()) item.setExpanded(item.data(0, open_role).toBool());
        item.setData(0, open_role, {});
    }
    if (tvw_->currentItem() != nullptr) tvw_->scrollToItem(tvw_->currentItem());
}

bool frmInitials::filter_item(QTreeWidgetItem& item, const QString& words, bool inside_match)
{
    const bool matches = inside_match || item.text(0).contains(words, Qt::CaseInsensitive);
    bool shown = matches && row_of(&item) != nullptr;
    for (int i = 0; i < item.childCount(); ++i)
        shown = filter_item(*item.child(i), words, matches) || shown;
    item.setHidden(!shown);
    if (shown && item.childCount() > 0 && !words.isEmpty()) item.setExpanded(true);
    return shown;
}

QTreeWidgetItem* frmInitials::first_found() const
{
    for (QTreeWidgetItemIterator each(tvw_, QTreeWidgetItemIterator::NotHidden); *each != nullptr; ++each)
        if (row_of(*each) != nullptr) return *each;
    return nullptr;
}

bool frmInitials::choose_first_found()
{
    if (txtFind_->text().trimmed().isEmpty() || first_found() == nullptr) return false;
    tvw_->setCurrentItem(first_found());
    return true;
}

const setting_row* frmInitials::current_row() const
{
    return row_of(tvw_->currentItem());
}

void frmInitials::show_current()
{
    if (const setting_row* row = current_row())
        show_value(*row);
    else
        clear_value();
}

void frmInitials::show_value(const setting_row& row)
{
    const QString leaf = tvw_->currentItem()->text(0);
    lblFolder_->setText(folder_names(row).join(QStringLiteral(" \u203A ")));
    lblEq_->setText(leaf_caption(leaf));
    txtTreeData_->setText(leaf_value(leaf));
    txtTreeData_->setAccessibleName(lblEq_->text().trimmed());
    lblHint_->setText(setting_hint(row));
    lblDefault_->setText(default_hint(row));
    lblEffect_->setText(to_qstring(row.effect));
    txtTreeData_->setAccessibleDescription(lblEffect_->text());
    for (QWidget* control :
         {static_cast<QWidget*>(txtTreeData_), static_cast<QWidget*>(cmdSet_), static_cast<QWidget*>(cmdRestore_)}) {
        control->setEnabled(true);
    }
}

void frmInitials::show_reading()
{
    const setting_row* row = current_row();
    lblRead_->setText(row ? reading_note(*row, to_text(txtTreeData_->text())) : QString());
    lblRead_->setHidden(lblRead_->text().isEmpty());
}

void frmInitials::clear_value()
{
    for (QLabel* label : {lblFolder_, lblEq_, lblDefault_, lblEffect_})
        label->clear();
    txtTreeData_->setAccessibleDescription({});
    txtTreeData_->clear();
    txtTreeData_->setAccessibleName(tr("Value"));
    lblHint_->setText(tr("Choose a setting in the tree."));
    for (QWidget* control :
         {static_cast<QWidget*>(txtTreeData_), static_cast<QWidget*>(cmdSet_), static_cast<QWidget*>(cmdRestore_)}) {
        control->setEnabled(false);
    }
}

void frmInitials::cmdSet_Click()
{
    const setting_row* row = current_row();
    if (row == nullptr) return;
    if (const auto refused = context_.store.set_value(row->key, to_text(txtTreeData_->text()))) {
        if (refused->text.starts_with("Value must be between")) context_.user.beep();
        context_.user.show(this, *refused);
        txtTreeData_->selectAll();
        txtTreeData_->setFocus();
        return;
    }
    rebuild_leaf(*tvw_->currentItem());
    show_value(*row);
    emit settings_changed();
}

void frmInitials::cmdRestore_Click()
{
    const setting_row* row = current_row();
    if (row == nullptr) return;
    context_.store.restore(row->key);
    rebuild_leaf(*tvw_->currentItem());
    show_value(*row);
    emit settings_changed();
}

void frmInitials::cmdRestoreAll_Click()
{
    before_reset_ = context_.store;
    context_.store.restore_all();
    show_all_values();
}

void frmInitials::cmdUndoReset_Click()
{
    context_.store = *std::exchange(before_reset_, std::nullopt);
    show_all_values();
}

void frmInitials::show_all_values()
{
    cmdUndoReset_->setEnabled(before_reset_.has_value());
    rebuild_leaves();
    show_current();
    emit settings_changed();
}

void frmInitials::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}

void frmInitials::showEvent(QShowEvent* event)
{
    // Not when the window system shows the window again: text being typed stays.
    if (!event->spontaneous()) {
        // A new search is likely.
        txtFind_->clear();
        rebuild_leaves();
        show_current();
    }
    QWidget::showEvent(event);
}

} // namespace kelvarin

// SPDX-License-Identifier: MIT
#include "tools/window/constant_view.h"

#include "desktop/look.h"
#include "desktop/qt_text.h"

#include <QKeyEvent>

namespace kelvarin
{

namespace
{

constexpr int constant_role = Qt::UserRole;

bool is_constant(const QListWidgetItem& item)
{
    return item.data(constant_role).isValid();
}

} // namespace

constant_view::constant_view(QWidget* parent) : QListWidget(parent)
{
    setFont(fixed_font(*this));
    setUniformItemSizes(true);
}

void constant_view::show_group(const constant_group& group)
{
    clear();
    constants_ = group.constants;
    int number = 0;
    for (const std::string& line : constant_lines(group))
        add_line(line, number++);
    select_first();
}

void constant_view::show_groups(const std::vector<constant_group>& groups, const QString& empty_text)
{
    clear();
    constants_.clear();
    constant_group together;
    for (const constant_group& group : groups)
        together.constants.insert(together.constants.end(), group.constants.begin(), group.constants.end());
    const std::vector<std::string> lines = constant_lines(together);
    constants_ = together.constants;
    int number = 0;
    for (const constant_group& group : groups) {
        if (!group.name.empty()) add_remark(to_qstring(group.name), true);
        for (std::size_t i = 0; i < group.constants.size(); ++i, ++number)
            add_line(lines[static_cast<std::size_t>(number)], number);
    }
    if (groups.empty()) add_remark(empty_text, false);
    select_first();
}

void constant_view::add_line(const std::string& line, int number)
{
    auto* item = new QListWidgetItem(to_qstring(line), this);
    item->setData(constant_role, number);
    item->setToolTip(tip_text(to_qstring(copied_line(constants_[static_cast<std::size_t>(number)]))));
}

void constant_view::add_remark(const QString& text, bool is_heading)
{
    auto* item = new QListWidgetItem(text, this);
    item->setFlags(Qt::NoItemFlags);
    tint_remark(*item);
    if (!is_heading) return;
    QFont bold = font();
    bold.setBold(true);
    item->setFont(bold);
}

void constant_view::tint_remark(QListWidgetItem& item) const
{
    // Disabled items would be grey, but headings and remarks must be as readable as the others.
    item.setForeground(accent(palette()));
}

void constant_view::changeEvent(QEvent* event)
{
    QListWidget::changeEvent(event);
    if (event->type() != QEvent::PaletteChange) return;
    for (int row = 0; row < count(); ++row)
        if (!is_constant(*item(row))) tint_remark(*item(row));
}

void constant_view::select_first()
{
    for (int row = 0; row < count(); ++row)
        if (is_constant(*item(row))) return setCurrentRow(row);
}

const physical_constant* constant_view::selected() const
{
    const QListWidgetItem* item = currentItem();
    if (!item || !item->isSelected() || !is_constant(*item)) return nullptr;
    return &constants_.at(item->data(constant_role).toUInt());
}

QString constant_view::selected_line() const
{
    return selected() ? currentItem()->text() : QString();
}

void constant_view::keyPressEvent(QKeyEvent* event)
{
    if (event->matches(QKeySequence::Copy)) return emit copy_requested();
    QListWidget::keyPressEvent(event);
}

} // namespace kelvarin

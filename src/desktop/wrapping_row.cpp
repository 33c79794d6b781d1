// SPDX-License-Identifier: MIT
#include "desktop/wrapping_row.h"

#include <QHBoxLayout>

#include <algorithm>

namespace kelvarin
{

/// The visible items of one line, and their widths.
struct wrapping_row::line
{
    std::vector<QLayoutItem*> items;
    std::vector<int> widths;
    int height = 0;
};

namespace
{

/// Controls that stay together don't expand.
bool expands(const QLayoutItem* item)
{
    return item->expandingDirections().testFlag(Qt::Horizontal) && !const_cast<QLayoutItem*>(item)->layout();
}

/// The width of an item on a line of `width`, without what it gets because it expands. Items that can wrap by
/// themselves do so only if a whole line is too narrow for them.
int needed_width(const QLayoutItem& item, int width)
{
    const int least = item.minimumSize().width();
    if (expands(&item) && !item.hasHeightForWidth()) return least;
    return std::min(item.sizeHint().width(), std::max(least, width));
}

int needed_height(const QLayoutItem& item, int width)
{
    return item.hasHeightForWidth() ? item.heightForWidth(width) : item.sizeHint().height();
}

/// Shares the rest of a line among those that expand.
void share(const std::vector<QLayoutItem*>& items, std::vector<int>& widths, int rest)
{
    auto sharing = static_cast<int>(std::ranges::count_if(items, expands));
    for (std::size_t i = 0; i < items.size() && rest > 0; ++i) {
        if (!expands(items[i])) continue;
        const int part = rest / sharing--;
        widths[i] += part;
        rest -= part;
    }
}

} // namespace

wrapping_row::wrapping_row(int spacing)
{
    setContentsMargins(0, 0, 0, 0);
    setSpacing(spacing);
}

wrapping_row::~wrapping_row()
{
    // One by one: a layout among them takes itself out of this one when it is deleted.
    while (const std::unique_ptr<QLayoutItem> item{takeAt(0)}) {
    }
}

void wrapping_row::add_together(std::initializer_list<QWidget*> controls)
{
    auto* together = new QHBoxLayout;
    together->setSpacing(spacing());
    for (QWidget* control : controls)
        together->addWidget(control);
    addChildLayout(together);
    addItem(together);
}

void wrapping_row::addItem(QLayoutItem* item)
{
    items_.emplace_back(item);
}

QLayoutItem* wrapping_row::itemAt(int index) const
{
    return index >= 0 && index < count() ? items_[static_cast<std::size_t>(index)].get() : nullptr;
}

QLayoutItem* wrapping_row::takeAt(int index)
{
    if (index < 0 || index >= count()) return nullptr;
    const auto taken = items_.begin() + index;
    QLayoutItem* item = taken->release();
    items_.erase(taken);
    return item;
}

std::vector<wrapping_row::line> wrapping_row::lines_for(int width) const
{
    std::vector<line> lines;
    int rest = 0;
    for (const auto& item : items_) {
        if (item->isEmpty()) continue;
        const int needed = needed_width(*item, width);
        if (lines.empty() || needed + spacing() > rest) {
            if (!lines.empty()) share(lines.back().items, lines.back().widths, rest);
            lines.emplace_back();
            rest = width + spacing();
        }
        rest -= needed + spacing();
        lines.back().items.push_back(item.get());
        lines.back().widths.push_back(needed);
    }
    if (!lines.empty()) share(lines.back().items, lines.back().widths, rest);
    for (line& each : lines)
        for (std::size_t i = 0; i < each.items.size(); ++i)
            each.height = std::max(each.height, needed_height(*each.items[i], each.widths[i]));
    return lines;
}

int wrapping_row::heightForWidth(int width) const
{
    int height = 0;
    for (const line& each : lines_for(width))
        height += each.height + (height > 0 ? spacing() : 0);
    return height;
}

QSize wrapping_row::minimumSize() const
{
    QSize size;
    for (const auto& item : items_)
        if (!item->isEmpty()) size = size.expandedTo({item->minimumSize().width(), item->sizeHint().height()});
    return size;
}

QSize wrapping_row::sizeHint() const
{
    QSize size;
    for (const auto& item : items_) {
        if (item->isEmpty()) continue;
        size.rwidth() += item->sizeHint().width() + (size.width() > 0 ? spacing() : 0);
        size.setHeight(std::max(size.height(), item->sizeHint().height()));
    }
    return size;
}

void wrapping_row::setGeometry(const QRect& place)
{
    QLayout::setGeometry(place);
    QPoint corner = place.topLeft();
    for (const line& each : lines_for(place.width())) {
        for (std::size_t i = 0; i < each.items.size(); ++i) {
            each.items[i]->setGeometry({corner, QSize(each.widths[i], each.height)});
            corner.rx() += each.widths[i] + spacing();
        }
        corner = QPoint(place.left(), corner.y() + each.height + spacing());
    }
}

} // namespace kelvarin

// SPDX-License-Identifier: MIT
#include "reg/window/regression_panel.h"

#include "desktop/controls.h"
#include "desktop/look.h"
#include "desktop/qt_text.h"

#include <QComboBox>
#include <QListWidget>

#include <algorithm>

namespace kelvarin
{

namespace
{

QStringList texts_of(const std::vector<std::string>& names)
{
    QStringList texts;
    for (const std::string& name : names)
        texts.append(to_qstring(name));
    return texts;
}

} // namespace

QComboBox* regression_panel::make_names_box(const char* name, const QString& tip)
{
    auto* box = named(new QComboBox, name);
    box->setToolTip(tip);
    box->setAccessibleName(tip);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(10);
    return box;
}

QListWidget* regression_panel::make_names_list(const char* name, const QString& tip)
{
    auto* list = named(new QListWidget, name);
    list->setToolTip(tip);
    list->setAccessibleName(tip);
    list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    list->setUniformItemSizes(true);
    list->setMinimumHeight(4 * line_unit(*list));
    list->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    list->setMaximumHeight(10 * line_unit(*list));
    return list;
}

void regression_panel::show_names(QComboBox& box, const std::vector<std::string>& names, int preset)
{
    const QStringList texts = texts_of(names);
    QStringList present;
    for (int i = 0; i < box.count(); ++i)
        present.append(box.itemText(i));
    if (texts == present && box.currentIndex() >= 0) return;
    const qsizetype chosen = texts.indexOf(box.currentText());
    box.clear();
    box.addItems(texts);
    const int count = static_cast<int>(texts.size());
    box.setCurrentIndex(chosen >= 0 ? static_cast<int>(chosen) : std::min(preset, count - 1));
}

void regression_panel::show_names(QListWidget& list, const std::vector<std::string>& names, int preset)
{
    const QStringList texts = texts_of(names);
    QStringList present;
    QStringList chosen;
    for (int i = 0; i < list.count(); ++i) {
        present.append(list.item(i)->text());
        if (list.item(i)->isSelected()) chosen.append(list.item(i)->text());
    }
    if (texts == present && !texts.isEmpty()) return;
    list.clear();
    list.addItems(texts);
    bool any = false;
    for (int i = 0; i < list.count(); ++i)
        if (chosen.contains(list.item(i)->text())) {
            list.item(i)->setSelected(true);
            any = true;
        }
    if (!any && preset >= 0 && preset < list.count()) list.item(preset)->setSelected(true);
}

} // namespace kelvarin

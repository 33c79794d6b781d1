// SPDX-License-Identifier: MIT
#include "support/window_walk.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QAccessible>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTabBar>
#include <QTextEdit>
#include <QToolButton>

#include <map>
#include <set>

namespace kelvarin::test
{

namespace
{

std::string name_of(const QObject& object)
{
    const std::string name = object.objectName().toStdString();
    return std::string(object.metaObject()->className()) + " " + (name.empty() ? "without a name" : name);
}

/// Parts that the toolkit made for itself: the arrows of a tab bar, the viewport of a table.
bool is_internal(const QWidget& widget)
{
    return widget.objectName().startsWith(QLatin1String("qt_")) || qobject_cast<const QHeaderView*>(&widget) ||
           qobject_cast<const QScrollBar*>(&widget) || widget.inherits("QTableCornerButton") ||
           qobject_cast<const QComboBox*>(widget.parentWidget()) || widget.inherits("QComboBoxPrivateContainer") ||
           widget.inherits("QMdiSubWindow") ||
           (widget.parentWidget() && widget.parentWidget()->inherits("QMdiSubWindow") &&
            widget.inherits("QAbstractButton")) ||
           (qobject_cast<const QToolButton*>(&widget) && qobject_cast<const QLineEdit*>(widget.parentWidget()));
}

template <class Visit> void visit_shown(const QWidget& window, Visit visit)
{
    const auto widgets = window.findChildren<QWidget*>();
    for (const QWidget* widget : widgets) {
        const bool in_this_window = widget->window() == window.window();
        if (in_this_window && widget->isVisible() && !is_internal(*widget)) visit(*widget);
    }
}

bool needs_name(const QWidget& widget)
{
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) return !label->pixmap(Qt::ReturnByValue).isNull();
    return qobject_cast<const QAbstractButton*>(&widget) || qobject_cast<const QLineEdit*>(&widget) ||
           qobject_cast<const QTextEdit*>(&widget) || qobject_cast<const QPlainTextEdit*>(&widget) ||
           qobject_cast<const QComboBox*>(&widget) || qobject_cast<const QAbstractItemView*>(&widget) ||
           qobject_cast<const QProgressBar*>(&widget);
}

/// The caption of a control whose "&" is a mnemonic; empty for all others.
QString mnemonic_caption(const QWidget& widget)
{
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) return button->text();
    if (const auto* box = qobject_cast<const QGroupBox*>(&widget)) return box->title();
    const auto* label = qobject_cast<const QLabel*>(&widget);
    return label && label->buddy() ? label->text() : QString();
}

/// Letters and what uses them.
class letter_table
{
public:
    explicit letter_table(std::string where) : where_(std::move(where)) {}

    void add(const QString& caption)
    {
        const QKeySequence mnemonic = QKeySequence::mnemonic(caption);
        if (!mnemonic.isEmpty()) captions_[mnemonic.toString().toStdString()].push_back(caption.toStdString());
    }
    void add_clashes(std::vector<std::string>& faults) const
    {
        for (const auto& [letter, captions] : captions_) {
            if (captions.size() < 2) continue;
            std::string all;
            for (const std::string& caption : captions)
                all += " '" + caption + "'";
            faults.push_back(where_ + ": " + letter + " stands for" + all);
        }
    }

private:
    std::string where_;
    std::map<std::string, std::vector<std::string>> captions_;
};

void add_clashes_inside(const QMenu& menu, std::vector<std::string>& faults)
{
    letter_table letters("menu " + menu.title().toStdString());
    for (const QAction* action : menu.actions()) {
        if (!action->isVisible()) continue;
        letters.add(action->text());
        if (action->menu()) add_clashes_inside(*action->menu(), faults);
    }
    letters.add_clashes(faults);
}

} // namespace

std::vector<std::string> controls_without_name(const QWidget& window)
{
    std::vector<std::string> faults;
    visit_shown(window, [&](const QWidget& widget) {
        if (!needs_name(widget)) return;
        QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(&widget));
        if (!spoken || spoken->text(QAccessible::Name).trimmed().isEmpty())
            faults.push_back(name_of(widget) + " has no accessible name");
    });
    return faults;
}

std::vector<std::string> mnemonic_clashes(const QWidget& window, const QList<QMenu*>& menus)
{
    std::vector<std::string> faults;
    letter_table letters(name_of(window));
    visit_shown(window, [&](const QWidget& widget) {
        letters.add(mnemonic_caption(widget));
        if (const auto* tabs = qobject_cast<const QTabBar*>(&widget))
            for (int i = 0; i < tabs->count(); ++i)
                letters.add(tabs->tabText(i));
        if (const auto* bar = qobject_cast<const QMenuBar*>(&widget))
            for (const QAction* action : bar->actions()) {
                letters.add(action->text());
                if (action->menu()) add_clashes_inside(*action->menu(), faults);
            }
    });
    for (const QMenu* menu : menus) {
        if (menu->menuAction()->isVisible()) letters.add(menu->title());
        add_clashes_inside(*menu, faults);
    }
    letters.add_clashes(faults);
    return faults;
}

std::vector<std::string> cut_captions(const QWidget& window)
{
    std::vector<std::string> faults;
    visit_shown(window, [&](const QWidget& widget) {
        const auto* label = qobject_cast<const QLabel*>(&widget);
        const bool plain_label = label && !label->wordWrap() && !label->text().isEmpty() &&
                                 // Labels that shorten by themselves say so.
                                 !label->property("elides").toBool();
        const bool button = qobject_cast<const QPushButton*>(&widget) || qobject_cast<const QCheckBox*>(&widget) ||
                            qobject_cast<const QRadioButton*>(&widget) || qobject_cast<const QToolButton*>(&widget) ||
                            qobject_cast<const QComboBox*>(&widget);
        if (!plain_label && !button) return;
        const QSize needed = widget.minimumSizeHint().expandedTo(plain_label ? widget.sizeHint() : QSize());
        if (widget.width() < needed.width() || widget.height() < needed.height())
            faults.push_back(name_of(widget) + " is cut off: " + std::to_string(widget.width()) + "x" +
                             std::to_string(widget.height()) + " of " + std::to_string(needed.width()) + "x" +
                             std::to_string(needed.height()));
    });
    return faults;
}

std::vector<std::string> shared_shortcuts(const QWidget& window)
{
    std::set<const QAction*> actions;
    for (const QAction* action : window.actions())
        actions.insert(action);
    for (const QAction* action : window.findChildren<QAction*>())
        actions.insert(action);
    std::map<std::string, std::vector<std::string>> owners;
    for (const QAction* action : actions)
        for (const QKeySequence& key : action->shortcuts())
            owners[key.toString().toStdString()].push_back(action->text().toStdString());
    std::vector<std::string> faults;
    for (const auto& [key, captions] : owners)
        if (captions.size() > 1)
            faults.push_back(name_of(window) + ": " + key + " is '" + captions[0] + "' and '" + captions[1] + "'");
    return faults;
}

std::vector<std::string> buttons_without_tool_tip(const QWidget& window)
{
    std::vector<std::string> faults;
    visit_shown(window, [&](const QWidget& widget) {
        const auto* button = qobject_cast<const QAbstractButton*>(&widget);
        if (button && button->text().isEmpty() && button->toolTip().isEmpty())
            faults.push_back(name_of(widget) + " has neither text nor tool tip");
    });
    return faults;
}

std::vector<std::string> faults_of(const QWidget& window, const QList<QMenu*>& menus)
{
    std::vector<std::string> all;
    for (const auto& faults : {controls_without_name(window), mnemonic_clashes(window, menus), cut_captions(window),
                               shared_shortcuts(window), buttons_without_tool_tip(window)})
        all.insert(all.end(), faults.begin(), faults.end());
    return all;
}

} // namespace kelvarin::test

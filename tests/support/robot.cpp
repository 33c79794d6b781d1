// SPDX-License-Identifier: MIT
#include "support/robot.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTest>
#include <QTextEdit>
#include <QThread>
#include <QWheelEvent>
#include <QtTest/qtestspontaneevent.h>

namespace kelvarin::test
{

namespace
{

/// What gets the keys; a window that was just shown becomes active a moment later.
QWidget* key_target()
{
    QWidget* target = nullptr;
    wait_until(
        [&] {
            target = QApplication::activePopupWidget();
            if (!target) target = QApplication::focusWidget();
            if (!target) target = QApplication::activeWindow();
            return target != nullptr;
        },
        2000);
    if (!target) throw std::runtime_error("no window takes keys");
    return target;
}

void type_letters(QWidget& target, const std::string& text)
{
    for (const QChar letter : QString::fromStdString(text)) {
        if (letter == QLatin1Char('\n'))
            QTest::keyClick(&target, Qt::Key_Return);
        else if (letter == QLatin1Char('\t'))
            QTest::keyClick(&target, Qt::Key_Tab);
        else
            QTest::sendKeyEvent(QTest::Click, &target, Qt::Key_unknown, QString(letter), Qt::NoModifier);
    }
}

} // namespace

void settle()
{
    for (int i = 0; i < 3; ++i) {
        QApplication::sendPostedEvents();
        QApplication::processEvents();
    }
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

bool wait_until(const std::function<bool()>& condition, int milliseconds)
{
    QElapsedTimer timer;
    timer.start();
    while (!condition()) {
        if (timer.elapsed() > milliseconds) return false;
        QApplication::processEvents(QEventLoop::AllEvents, 10);
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QThread::msleep(1);
    }
    return true;
}

QWidget& robot::usable(const char* name) const
{
    QWidget& found = find(name);
    if (!found.isVisible()) throw std::runtime_error(std::string(name) + " is not shown");
    if (!found.isEnabled()) throw std::runtime_error(std::string(name) + " is switched off");
    return found;
}

std::string robot::text(const char* name) const
{
    QWidget& found = find(name);
    QString text;
    if (const auto* label = qobject_cast<QLabel*>(&found))
        text = label->text();
    else if (const auto* line = qobject_cast<QLineEdit*>(&found))
        text = line->text();
    else if (const auto* button = qobject_cast<QAbstractButton*>(&found))
        text = button->text();
    else if (const auto* box = qobject_cast<QComboBox*>(&found))
        text = box->currentText();
    else if (const auto* plain = qobject_cast<QPlainTextEdit*>(&found))
        text = plain->toPlainText();
    else if (const auto* rich = qobject_cast<QTextEdit*>(&found))
        text = rich->toPlainText();
    else
        throw std::runtime_error(std::string(name) + " has no text");
    return text.toStdString();
}

void robot::click(const char* name) const
{
    QWidget& target = usable(name);
    if (target.focusPolicy() & Qt::ClickFocus) target.setFocus(Qt::MouseFocusReason);
    QTest::mouseClick(&target, Qt::LeftButton);
    settle();
}

void robot::double_click(const char* name) const
{
    QTest::mouseDClick(&usable(name), Qt::LeftButton);
    settle();
}

void robot::type(const char* name, const std::string& text) const
{
    QWidget& target = usable(name);
    target.activateWindow();
    target.setFocus(Qt::MouseFocusReason);
    if (auto* line = qobject_cast<QLineEdit*>(&target))
        line->selectAll();
    else if (auto* plain = qobject_cast<QPlainTextEdit*>(&target))
        plain->selectAll();
    else if (auto* rich = qobject_cast<QTextEdit*>(&target))
        rich->selectAll();
    if (text.empty()) QTest::keyClick(&target, Qt::Key_Delete);
    type_letters(target, text);
    settle();
}

void robot::choose(const char* name, const std::string& item) const
{
    auto* box = qobject_cast<QComboBox*>(&usable(name));
    if (!box) throw std::runtime_error(std::string(name) + " is no combo box");
    const int index = box->findText(QString::fromStdString(item));
    if (index < 0) throw std::runtime_error(std::string(name) + " has no item " + item);
    box->setCurrentIndex(index);
    emit box->activated(index);
    settle();
}

void robot::turn_wheel(QWidget& over, int notches)
{
    constexpr int notch = 120;
    const QPoint middle = over.rect().center();
    QWheelEvent turned(middle, over.mapToGlobal(middle), {}, {0, notches * notch}, Qt::NoButton, Qt::NoModifier,
                       Qt::NoScrollPhase, false);
    // As one that comes from the desktop: only those give the focus.
    QSpontaneKeyEvent::setSpontaneous(&turned);
    QCoreApplication::instance()->notify(&over, &turned);
    settle();
}

void robot::keys(const std::string& text)
{
    // Each letter goes to what has the keyboard then: Tab leaves a field, and a letter may open one.
    for (const char32_t letter : QString::fromStdString(text).toUcs4())
        type_letters(*key_target(), QString::fromUcs4(&letter, 1).toStdString());
    settle();
}

void robot::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(key_target(), key, modifiers);
    settle();
}

QAction* robot::item_of(const QMenu& menu, const char* item)
{
    const QString wanted = QString::fromUtf8(item);
    for (QAction* action : menu.actions())
        if (action->objectName() == wanted || QString(action->text()).remove(QLatin1Char('&')) == wanted) return action;
    throw std::runtime_error(std::string("the menu has no item ") + item);
}

void robot::trigger(const QMenu& menu, const char* item) const
{
    QAction* action = item_of(menu, item);
    if (!action->isEnabled()) throw std::runtime_error(std::string(item) + " is switched off");
    action->trigger();
    settle();
}

QWidget& top_window(const char* name)
{
    QWidget* found = nullptr;
    wait_until(
        [&] {
            const auto windows = QApplication::topLevelWidgets();
            for (QWidget* window : windows)
                if (window->isVisible() && window->objectName() == QLatin1String(name)) found = window;
            return found != nullptr;
        },
        3000);
    if (!found) throw std::runtime_error(std::string("no window ") + name + " is shown");
    return *found;
}

} // namespace kelvarin::test

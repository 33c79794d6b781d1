// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QWidget>

#include <functional>
#include <stdexcept>
#include <string>

class QAction;
class QMenu;

namespace kelvarin::test
{

/// Acts on a window as a person does: finds things by their name, clicks and types. What is not there, not shown
/// or switched off can not be used: then the test ends with an exception.
class robot
{
public:
    explicit robot(QWidget& window) : window_(window) {}

    /// A control of this kind and object name, shown or not.
    template <class Widget = QWidget> Widget& find(const char* name) const
    {
        auto* found = window_.findChild<Widget*>(QString::fromLatin1(name));
        if (!found) throw std::runtime_error(std::string("there is no ") + name);
        return *found;
    }
    bool is_shown(const char* name) const { return find(name).isVisible(); }
    bool is_enabled(const char* name) const { return find(name).isEnabled(); }
    /// The text of a label, field, button or box.
    std::string text(const char* name) const;

    void click(const char* name) const;
    void double_click(const char* name) const;
    /// Clicks into a field, selects what it holds and types over it.
    void type(const char* name, const std::string& text) const;
    /// Chooses an item of a combo box by its text, as a person does (its signals are sent).
    void choose(const char* name, const std::string& item) const;
    /// Turns the wheel over a widget by so many notches, away from the person where they are positive.
    static void turn_wheel(QWidget& over, int notches);
    /// Keys go to what has the focus in the window in front.
    static void keys(const std::string& text);
    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    /// Triggers an action of a menu by its object name or its caption (without "&"); it has to be enabled.
    void trigger(const QMenu& menu, const char* item) const;
    static QAction* item_of(const QMenu& menu, const char* item);

private:
    QWidget& usable(const char* name) const;

    QWidget& window_;
};

/// Lets the program go on until `condition` holds; false where that takes longer than some seconds.
bool wait_until(const std::function<bool()>& condition, int milliseconds = 10000);
/// Lets the program handle what is pending.
void settle();

/// The shown dialog or window of this object name among the top-level ones; waits for it. Throws where none comes.
QWidget& top_window(const char* name);
template <class Window> Window& top_window_of(const char* name)
{
    return dynamic_cast<Window&>(top_window(name));
}

} // namespace kelvarin::test

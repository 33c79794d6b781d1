// SPDX-License-Identifier: MIT
#include "desktop/window_memory.h"

#include "desktop/qt_text.h"
#include "platform/run_time_text.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPointer>
#include <QResizeEvent>
#include <QScreen>
#include <QTimer>
#include <QWidget>
#include <QWindow>

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

namespace kelvarin
{

namespace
{

std::string key_of(const QString& name)
{
    return std::string(registry_root) + "\\windows\\" + to_text(name);
}

const QString frame_name = QStringLiteral("frame");

std::optional<int> kept_number(const registry_store& registry, const std::string& key, std::string_view name)
{
    // No screen extends further.
    constexpr double furthest = 1e5;
    const std::optional<std::string> text = registry.read(key, name);
    const std::optional<double> number = text ? numeric_value(*text) : std::nullopt;
    if (!number || !(*number >= -furthest && *number <= furthest)) return std::nullopt;
    return static_cast<int>(*number);
}

bool is_normal(const QWidget& window)
{
    return !(window.windowState() & (Qt::WindowMinimized | Qt::WindowMaximized | Qt::WindowFullScreen));
}

frame_margins frame_of(const QWidget& window)
{
    const QMargins margins = window.windowHandle() ? window.windowHandle()->frameMargins() : QMargins();
    return {margins.left(), margins.top(), margins.right(), margins.bottom()};
}

/// Watches one window, which owns it. Qt's own conversion between the positions of frame and content depends on whether
/// the window was visible before, which would make it drift; so only its content is placed here, with the known frame.
class place_keeper final : public QObject
{
public:
    /// `place`: where the window appears first; nullopt if it has a stored position.
    place_keeper(registry_store& registry, QWidget& window, std::optional<rectangle> place)
        : QObject(&window), registry_(registry), frame_(usual_frame(registry)), first_place_(place)
    {
        window.installEventFilter(this);
        frame_timer_.setSingleShot(true);
        connect(&frame_timer_, &QTimer::timeout, this, &place_keeper::ask_for_frame);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (watched == handle_)
            handle_event(*event);
        else if (auto* window = qobject_cast<QWidget*>(watched); window && !event->spontaneous())
            window_event(*window, *event);
        return false;
    }

    rectangle place_of(const QWidget& window) const
    {
        const QRect content = window.geometry();
        return {.left = content.x() - frame_.left,
                .top = content.y() - frame_.top,
                .width = content.width(),
                .height = content.height()};
    }

private:
    void window_event(QWidget& window, const QEvent& event)
    {
        if (event.type() == QEvent::Show) shown(window);
        if (event.type() == QEvent::Hide) hidden(window);
        if (event.type() == QEvent::Resize && was_exposed_) resized(static_cast<const QResizeEvent&>(event));
    }

    void shown(QWidget& window)
    {
        asked_ = window.size();
        if (!first_place_)
            restore(window);
        else if (!was_exposed_ && is_normal(window))
            ask_for(window, *first_place_);
        was_exposed_ = false;
        if (!window.windowHandle()) return;
        handle_ = window.windowHandle();
        handle_->installEventFilter(this);
    }

    /// A window that grows by itself, because it shows more, must not grow out of the screen.
    void resized(const QResizeEvent& event)
    {
        const QSize grown = event.size().expandedTo(event.oldSize());
        if (first_place_ || !event.oldSize().isValid() || grown == event.oldSize()) return;
        asked_ = event.oldSize();
        frame_timer_.start(0);
    }

    void hidden(const QWidget& window)
    {
        frame_timer_.stop();
        if (was_exposed_ && !first_place_) store(window);
    }

    /// When the window is exposed its frame is known, or soon will be.
    void handle_event(const QEvent& event)
    {
        if (event.type() != QEvent::Expose || was_exposed_ || !handle_->isExposed()) return;
        was_exposed_ = true;
        frame_questions_ = 0;
        // Not at once: the widget has not received its first geometry yet.
        frame_timer_.start(0);
    }

    void ask_for_frame()
    {
        constexpr int most_questions = 10;
        constexpr int pause_ms = 30;
        auto& window = *qobject_cast<QWidget*>(parent());
        if (!window.isVisible() || !is_normal(window)) return;
        const frame_margins found = frame_of(window);
        if (found.top == 0 && ++frame_questions_ < most_questions) return frame_timer_.start(pause_ms);
        // Without an answer there is no frame.
        frame_ = found;
        if (frame_.top > 0) store_frame();
        fit(window);
    }

    void fit(QWidget& window)
    {
        const std::optional<rectangle> wanted = std::exchange(wanted_, std::nullopt);
        rectangle place = place_of(window);
        if (wanted) {
            place.left = wanted->left;
            place.top = wanted->top;
        }
        // A window that grew because its content needs more room must be visible entirely.
        const bool grew = window.width() > asked_.width() || window.height() > asked_.height();
        put(window, on_a_screen(place, frame_, screen_places(), grew));
    }

    void put(QWidget& window, const rectangle& place)
    {
        const QRect content(place.left + frame_.left, place.top + frame_.top, place.width, place.height);
        if (window.geometry() != content) window.setGeometry(content);
    }

    void restore(QWidget& window)
    {
        const std::string key = key_of(window.objectName());
        const auto width = kept_number(registry_, key, "width");
        const auto height = kept_number(registry_, key, "height");
        const auto left = kept_number(registry_, key, "left");
        const auto top = kept_number(registry_, key, "top");
        rectangle place = place_of(window);
        if (width && height && *width > 0 && *height > 0) {
            place.width = *width;
            place.height = *height;
        }
        if (left && top) {
            place.left = *left;
            place.top = *top;
        }
        place = on_a_screen(place, frame_, screen_places(), false);
        // Without a stored position the window manager places it.
        if (left && top)
            ask_for(window, place);
        else
            window.resize(place.width, place.height);
    }

    void ask_for(QWidget& window, const rectangle& place)
    {
        asked_ = QSize(place.width, place.height);
        wanted_ = place;
        put(window, place);
    }

    void store(const QWidget& window)
    {
        // The last normal geometry stays stored.
        if (!is_normal(window)) return;
        const rectangle place = place_of(window);
        const std::string key = key_of(window.objectName());
        registry_.write(key, "width", std::to_string(place.width));
        registry_.write(key, "height", std::to_string(place.height));
        registry_.write(key, "left", std::to_string(place.left));
        registry_.write(key, "top", std::to_string(place.top));
    }

    void store_frame()
    {
        const std::string key = key_of(frame_name);
        registry_.write(key, "left", std::to_string(frame_.left));
        registry_.write(key, "top", std::to_string(frame_.top));
        registry_.write(key, "right", std::to_string(frame_.right));
        registry_.write(key, "bottom", std::to_string(frame_.bottom));
    }

    registry_store& registry_;
    frame_margins frame_;
    std::optional<rectangle> first_place_;
    /// Where the window is to be once its frame is known.
    std::optional<rectangle> wanted_;
    /// The size before it grew to the minimum.
    QSize asked_;
    /// Since it was shown the last time.
    bool was_exposed_ = false;
    QTimer frame_timer_;
    int frame_questions_ = 0;
    QPointer<QWindow> handle_;
};

} // namespace

std::vector<rectangle> screen_places()
{
    std::vector<rectangle> all;
    const auto known = QGuiApplication::screens();
    for (const QScreen* screen : known) {
        const QRect room = screen->availableGeometry();
        all.push_back({.left = room.x(), .top = room.y(), .width = room.width(), .height = room.height()});
    }
    return all;
}

frame_margins usual_frame(const registry_store& registry)
{
    const std::string key = key_of(frame_name);
    constexpr int widest = 200;
    const auto margin = [&](const char* name) {
        const int kept = kept_number(registry, key, name).value_or(0);
        return kept > 0 && kept < widest ? kept : 0;
    };
    return {margin("left"), margin("top"), margin("right"), margin("bottom")};
}

void remember_place(registry_store& registry, QWidget& window)
{
    new place_keeper(registry, window, std::nullopt);
}

rectangle present_place(const QWidget& window)
{
    for (const QObject* child : window.children())
        if (const auto* keeper = dynamic_cast<const place_keeper*>(child)) return keeper->place_of(window);
    return {.left = window.x(), .top = window.y(), .width = window.width(), .height = window.height()};
}

void appear_at(registry_store& registry, QWidget& window, const rectangle& place)
{
    new place_keeper(registry, window, place);
}

} // namespace kelvarin

// SPDX-License-Identifier: MIT
#include "desktop/window_memory.h"

#include "desktop/qt_text.h"
#include "platform/run_time_text.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <optional>

namespace kelvarin
{

namespace
{

std::string key_of(const QWidget& window)
{
    return std::string(registry_root) + "\\windows\\" + to_text(window.objectName());
}

std::optional<int> kept_number(const registry_store& registry, const std::string& key, std::string_view name)
{
    // No screen extends further.
    constexpr double furthest = 1e5;
    const std::optional<std::string> text = registry.read(key, name);
    const std::optional<double> number = text ? numeric_value(*text) : std::nullopt;
    if (!number || *number < -furthest || *number > furthest) return std::nullopt;
    return static_cast<int>(*number);
}

} // namespace

void restore_window(const registry_store& registry, QWidget& window)
{
    const std::string key = key_of(window);
    const auto width = kept_number(registry, key, "width");
    const auto height = kept_number(registry, key, "height");
    const auto left = kept_number(registry, key, "left");
    const auto top = kept_number(registry, key, "top");
    const QScreen* screen = left && top ? QGuiApplication::screenAt(QPoint(*left, *top)) : nullptr;
    if (screen) window.move(*left, *top);
    const QScreen* shown_on = screen ? screen : QGuiApplication::primaryScreen();
    if (width && height && *width > 0 && *height > 0)
        window.resize(QSize(*width, *height).boundedTo(shown_on->availableSize()).expandedTo(window.minimumSizeHint()));
}

void remember_window(registry_store& registry, const QWidget& window)
{
    const std::string key = key_of(window);
    registry.write(key, "width", std::to_string(window.width()));
    registry.write(key, "height", std::to_string(window.height()));
    registry.write(key, "left", std::to_string(window.x()));
    registry.write(key, "top", std::to_string(window.y()));
}

} // namespace kelvarin

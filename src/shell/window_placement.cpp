// SPDX-License-Identifier: MIT
#include "shell/window_placement.h"

#include "platform/run_time_text.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>

namespace kelvarin
{

namespace
{

constexpr std::string_view width_name = "Window Width";
constexpr std::string_view height_name = "Window Height";
constexpr std::string_view top_name = "Window Top";
constexpr std::string_view left_name = "Window Left";
constexpr std::string_view state_name = "Window State";

int pixels_of(std::string_view text)
{
    // No screen reaches further, and sums of two such numbers stay within an int.
    constexpr double furthest = 1e6;
    return static_cast<int>(std::clamp(std::round(prefix_value(text).value_or(furthest)), -furthest, furthest));
}

void write_number(registry_store& registry, std::string_view name, int number)
{
    registry.write(registry_root, name, std::to_string(number));
}

/// The kept number, or `current`, which is then kept.
int kept_or(registry_store& registry, std::string_view name, int current)
{
    if (const std::optional<std::string> kept = registry.read(registry_root, name)) return pixels_of(*kept);
    write_number(registry, name, current);
    return current;
}

/// How many pixels two rectangles share; where they share none, less the further they are apart.
std::int64_t closeness(const rectangle& a, const rectangle& b)
{
    const std::int64_t across = std::min(a.left + a.width, b.left + b.width) - std::max(a.left, b.left);
    const std::int64_t down = std::min(a.top + a.height, b.top + b.height) - std::max(a.top, b.top);
    if (across > 0 && down > 0) return across * down;
    return std::min<std::int64_t>(across, 0) + std::min<std::int64_t>(down, 0);
}

/// Whether enough of the title bar shows to take the window by it.
bool can_be_moved(const rectangle& place, std::span<const rectangle> screens)
{
    constexpr int bar_height = 24;
    constexpr int grip_width = 64;
    const rectangle bar = {place.left, place.top, place.width, std::min(bar_height, place.height)};
    const std::int64_t least = static_cast<std::int64_t>(bar.height) * std::min(grip_width, place.width);
    return std::ranges::any_of(screens, [&](const rectangle& screen) { return closeness(bar, screen) >= least; });
}

} // namespace

rectangle on_a_screen(rectangle place, const frame_margins& frame, std::span<const rectangle> screens, bool as_a_whole)
{
    if (screens.empty()) return place;
    const int beside = frame.left + frame.right;
    const int above = frame.top + frame.bottom;
    rectangle outer = {place.left, place.top, place.width + beside, place.height + above};
    const rectangle& screen =
        *std::ranges::max_element(screens, {}, [&](const rectangle& each) { return closeness(outer, each); });
    const bool too_large = outer.width > screen.width || outer.height > screen.height;
    outer.width = std::min(outer.width, screen.width);
    outer.height = std::min(outer.height, screen.height);
    if (too_large || as_a_whole || !can_be_moved(outer, screens)) {
        outer.left = std::clamp(outer.left, screen.left, screen.left + screen.width - outer.width);
        outer.top = std::clamp(outer.top, screen.top, screen.top + screen.height - outer.height);
    }
    return {outer.left, outer.top, outer.width - beside, outer.height - above};
}

placement first_placement(const rectangle& screen)
{
    // 0.85, in whole numbers, whose floor is exact.
    constexpr int share = 85;
    constexpr int whole = 100;
    placement first;
    first.normal.width = screen.width * share / whole;
    first.normal.height = screen.height * share / whole;
    first.normal.left = screen.left + std::abs(screen.width - first.normal.width) / 2;
    first.normal.top = screen.top + std::abs(screen.height - first.normal.height) / 2;
    return first;
}

placement restore_placement(registry_store& registry, const placement& current, std::span<const rectangle> screens,
                            const frame_margins& frame)
{
    // Smaller than this nobody means a main window to be.
    constexpr int least_width = 200;
    constexpr int least_height = 150;
    rectangle place;
    place.width = kept_or(registry, width_name, current.normal.width);
    place.height = kept_or(registry, height_name, current.normal.height);
    place.top = kept_or(registry, top_name, current.normal.top);
    place.left = kept_or(registry, left_name, current.normal.left);
    const int state = kept_or(registry, state_name, static_cast<int>(current.state));
    const bool maximised = state == static_cast<int>(window_state::maximised);
    if (!screens.empty()) {
        place.width = std::max(place.width, least_width);
        place.height = std::max(place.height, least_height);
    }
    return {on_a_screen(place, frame, screens, false), maximised ? window_state::maximised : window_state::normal};
}

void save_placement(registry_store& registry, const placement& placed)
{
    write_number(registry, state_name, static_cast<int>(placed.state));
    if (placed.state != window_state::normal) return;
    write_number(registry, width_name, placed.normal.width);
    write_number(registry, height_name, placed.normal.height);
    write_number(registry, top_name, placed.normal.top);
    write_number(registry, left_name, placed.normal.left);
}

} // namespace kelvarin

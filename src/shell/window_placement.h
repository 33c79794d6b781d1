// SPDX-License-Identifier: MIT
#pragma once

#include "platform/registry_store.h"

#include <span>

namespace kelvarin
{

/// A place on the screens, in pixels.
struct rectangle
{
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    friend bool operator==(const rectangle&, const rectangle&) = default;
};

/// The sizes of a window's frame, in pixels.
struct frame_margins
{
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
};

/// The states of a window, as the registry keeps them.
enum class window_state
{
    normal = 0,
    minimised = 1,
    maximised = 2
};

/// The main window: where it is when it is neither minimised nor maximised, and what it is now.
struct placement
{
    rectangle normal;
    window_state state = window_state::normal;

    friend bool operator==(const placement&, const placement&) = default;
};

/// Fits a window (position of its frame, size of its content) on one of `screens`: it becomes at most as large as the
/// screen that it overlaps most. It is moved into that screen if it had to shrink, if its title bar could not be
/// reached, or if `as_a_whole`. Without screens it stays as it is.
rectangle on_a_screen(rectangle place, const frame_margins& frame, std::span<const rectangle> screens, bool as_a_whole);

/// The placement of a first start: 0.85 of the screen, centred.
placement first_placement(const rectangle& screen);

/// The placement that the registry keeps, with what it lacks taken from `current` and written to it; the
/// caller flushes the registry. Numbers are read as far as they go. The window fits on one of `screens` with its
/// frame, wherever the registry wants it, and is never minimised. Without screens it is taken as it is kept.
placement restore_placement(registry_store& registry, const placement& current, std::span<const rectangle> screens,
                            const frame_margins& frame = {});

/// Writes the state, and the rest in the normal state alone, so that the last normal place stays.
void save_placement(registry_store& registry, const placement& placed);

} // namespace kelvarin

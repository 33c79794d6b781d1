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

/// The placement of a first start: 0.85 of the screen, centred.
placement first_placement(const rectangle& screen);

/// The placement that the registry keeps, with what it lacks taken from `current` and written to it; the
/// caller flushes the registry. Numbers are read as far as they go. The window fits on one of `screens`,
/// wherever the registry wants it, and is never minimised. Without screens it is taken as it is kept.
placement restore_placement(registry_store& registry, const placement& current, std::span<const rectangle> screens);

/// Writes the state, and the rest in the normal state alone, so that the last normal place stays.
void save_placement(registry_store& registry, const placement& placed);

} // namespace kelvarin

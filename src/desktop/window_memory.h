// SPDX-License-Identifier: MIT
#pragma once

#include "platform/registry_store.h"
#include "shell/window_placement.h"

#include <vector>

class QWidget;

namespace kelvarin
{

// Positions are those of the frame, sizes those of the content. The frame is only known once the window is visible;
// until then the last known frame of any window is assumed.

/// The available geometry of each screen.
std::vector<rectangle> screen_places();

/// The last known frame; margins of 0 if there is none.
frame_margins usual_frame(const registry_store& registry);

/// Restores size and position of a top-level window each time it is shown, and stores them under its object name each
/// time it is hidden. It stays on the screen with its frame, also when it grows by itself. `registry` must outlive the
/// window; the caller flushes it.
void remember_place(registry_store& registry, QWidget& window);

/// Shows a window first at `place`, moved or reduced so that it is on the screen with its frame. Its position is stored
/// elsewhere.
void appear_at(registry_store& registry, QWidget& window, const rectangle& place);

/// The place of a window of one of these two, by the frame that it is known to have.
rectangle present_place(const QWidget& window);

} // namespace kelvarin

// SPDX-License-Identifier: MIT
#pragma once

#include "platform/registry_store.h"

class QWidget;

namespace kelvarin
{

/// Restores the size and position that was stored for a top-level window under its object name. A position outside
/// every screen and values that are not numbers are ignored.
void restore_window(const registry_store& registry, QWidget& window);

/// Stores size and position of a window; the caller flushes the registry.
void remember_window(registry_store& registry, const QWidget& window);

} // namespace kelvarin

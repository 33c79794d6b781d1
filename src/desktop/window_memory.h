// SPDX-License-Identifier: MIT
#pragma once

#include "platform/registry_store.h"

class QWidget;

namespace kelvarin
{

/// Gives a top-level window, by its object name, the size and place that it was remembered with. What lies outside
/// every screen, or is no number, is passed over.
void restore_window(const registry_store& registry, QWidget& window);

/// Remembers size and place of a window; the caller flushes the registry.
void remember_window(registry_store& registry, const QWidget& window);

} // namespace kelvarin

// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/user_interface.h"
#include "shell/document/cell_block.h"

#include <optional>

namespace kelvarin
{

/// The block to paste: where its numbers have decimal commas, with points instead if the user agrees; an example of the
/// change is shown. Returns nullopt if the paste is cancelled.
std::optional<cell_block> with_decimal_points(user_interface& user, QWidget* parent, cell_block block);

} // namespace kelvarin

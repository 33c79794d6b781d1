// SPDX-License-Identifier: MIT
#include "leq/window/leq_grid_model.h"

namespace kelvarin
{

QString leq_grid_model::column_tip(int column) const
{
    return is_set_off(column) ? QString() : tr("Double click to rename the variable");
}

} // namespace kelvarin

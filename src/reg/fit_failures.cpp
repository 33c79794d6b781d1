// SPDX-License-Identifier: MIT
#include "reg/fit_failures.h"

#include <string>

namespace kelvarin
{

message_box regression_failure_box(const runtime_failure& failure)
{
    return {std::string(failure.description()) + "\rInternal Error trapped (" + std::to_string(failure.number()) + " " +
                failure.detail() + ")",
            box_icon::critical};
}

message_box invalid_entry_box(std::string_view reason)
{
    return {"Invalid data entry : \r" + std::string(reason), box_icon::exclamation};
}

} // namespace kelvarin

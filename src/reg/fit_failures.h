// SPDX-License-Identifier: MIT
#pragma once

#include "platform/message_box.h"
#include "platform/runtime_failure.h"

#include <string_view>

namespace kelvarin
{

/// The box of a regression that failed while it ran: the failure's description, number and detail.
message_box regression_failure_box(const runtime_failure& failure);

/// "Invalid data entry : " and the reason.
message_box invalid_entry_box(std::string_view reason);

} // namespace kelvarin

// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace kelvarin
{

/// What a report of a fault should tell of the program and the desktop under it: versions, platform, screens, language;
/// no names of files or people. Lines of text.
QString fault_report();

} // namespace kelvarin

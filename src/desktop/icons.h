// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>

#include <string_view>

namespace kelvarin
{

/// One of the program's own icons by its file's name ("save", "nle", "traffic_green"), in the colours of the
/// palette: it is drawn anew when the palette turns from light to dark. Asking for one that there is not is
/// a programming error.
QIcon program_icon(std::string_view name);

} // namespace kelvarin

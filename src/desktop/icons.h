// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>

#include <string_view>

namespace kelvarin
{

/// An icon of the program by its file's name ("save", "nle", "traffic_green"), in the colours of the palette: it is
/// redrawn when the palette changes between light and dark. An unknown name is a programming error.
QIcon program_icon(std::string_view name);

} // namespace kelvarin

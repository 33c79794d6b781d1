// SPDX-License-Identifier: MIT
#pragma once

#include "shell/settings.h"

#include <QString>
#include <QStringList>

#include <string_view>

namespace kelvarin
{

/// A setting as the tree shows it: its caption, " = " where that has none of its own, and the value.
QString leaf_text(const setting_row& row, std::string_view value);
/// The part of a leaf's text before its first "=", and the value behind it.
QString leaf_caption(const QString& leaf);
QString leaf_value(const QString& leaf);

/// The names of the folders that hold a setting, outermost first.
QStringList folder_names(const setting_row& row);

/// What may be entered: "0 to 0.1", "True or False"; and the default.
QString setting_hint(const setting_row& row);
QString default_hint(const setting_row& row);

} // namespace kelvarin

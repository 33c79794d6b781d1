// SPDX-License-Identifier: MIT
#pragma once

#include "shell/settings.h"

#include <QString>
#include <QStringList>

#include <string_view>

namespace kelvarin
{

/// A setting as the tree shows it: its caption, " = " unless the caption contains it, and the value.
QString leaf_text(const setting_row& row, std::string_view value);
/// The part of a leaf's text before its first "=", and the value after it.
QString leaf_caption(const QString& leaf);
QString leaf_value(const QString& leaf);

/// The names of the folders that contain a setting, outermost first.
QStringList folder_names(const setting_row& row);

/// The valid values, such as "0 to 0.1" or "True or False"; and the default.
QString setting_hint(const setting_row& row);
QString default_hint(const setting_row& row);
/// Both, and what the setting does.
QString leaf_tip(const setting_row& row);

/// "read as 0" for a text that is no number as a whole, of a setting that is one; empty otherwise.
QString reading_note(const setting_row& row, std::string_view text);

} // namespace kelvarin

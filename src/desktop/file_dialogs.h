// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/user_interface.h"

#include <QStringList>

namespace kelvarin
{

/// The filters of a file question ("Kelvarin (*.kvr)|*.kvr|...") in the toolkit's form ("Kelvarin (*.kvr)"), one for
/// each pair, made distinct if two have the same pattern.
QStringList dialog_filters(const std::string& filter);

/// Runs the toolkit's file dialog for a question. Returns nullopt if it was cancelled.
std::optional<chosen_file> run_file_dialog(QWidget* parent, const file_question& asked, bool saving);

} // namespace kelvarin

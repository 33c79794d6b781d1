// SPDX-License-Identifier: MIT
#pragma once

#include "shell/rich_text.h"

#include <QTextDocument>

#include <memory>
#include <span>

namespace kelvarin
{

/// The styled lines as a document of the toolkit: fonts, colours, tab stops. Paper is white, whatever the
/// palette.
void fill_document(QTextDocument& document, std::span<const styled_line> lines);

} // namespace kelvarin

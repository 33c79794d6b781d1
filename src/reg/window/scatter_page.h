// SPDX-License-Identifier: MIT
#pragma once

#include "reg/window/table_page.h"

namespace kelvarin
{

/// Graphs of columns over a column.
class scatter_page : public table_page
{
    Q_OBJECT

public:
    explicit scatter_page(table_document& table, QWidget* parent = nullptr);
};

} // namespace kelvarin

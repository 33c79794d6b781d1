// SPDX-License-Identifier: MIT
#pragma once

#include "reg/window/table_page.h"

namespace kelvarin
{

/// Regressions on columns of the table.
class regression_page : public table_page
{
    Q_OBJECT

public:
    explicit regression_page(table_document& table, QWidget* parent = nullptr);
};

} // namespace kelvarin

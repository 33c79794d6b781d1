// SPDX-License-Identifier: MIT
#pragma once

#include "reg/window/table_page.h"

namespace kelvarin
{

/// Interpolation, differentiation and integration of a column over another.
class analysis_page : public table_page
{
    Q_OBJECT

public:
    explicit analysis_page(table_document& table, QWidget* parent = nullptr);
};

} // namespace kelvarin

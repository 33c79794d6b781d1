// SPDX-License-Identifier: MIT
#include "reg/window/table_page.h"

namespace kelvarin
{

table_page::table_page(table_document& table, QWidget* parent) : QWidget(parent), table_(table) {}

} // namespace kelvarin

// SPDX-License-Identifier: MIT
#include "reg/window/scatter_page.h"

#include "desktop/look.h"

#include <QLabel>
#include <QVBoxLayout>

namespace kelvarin
{

scatter_page::scatter_page(table_document& table, QWidget* parent) : table_page(table, parent)
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    auto* later = new QLabel(tr("Scatter graphs come with a later version."));
    later->setPalette(quiet_palette(palette()));
    column->addWidget(later);
}

} // namespace kelvarin

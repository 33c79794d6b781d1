// SPDX-License-Identifier: MIT
#include "reg/window/regression_page.h"

#include "desktop/look.h"

#include <QLabel>
#include <QVBoxLayout>

namespace kelvarin
{

regression_page::regression_page(table_document& table, QWidget* parent) : table_page(table, parent)
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    auto* later = new QLabel(tr("Regressions come with a later version."));
    later->setPalette(quiet_palette(palette()));
    column->addWidget(later);
}

} // namespace kelvarin

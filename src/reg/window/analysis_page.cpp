// SPDX-License-Identifier: MIT
#include "reg/window/analysis_page.h"

#include "desktop/look.h"

#include <QLabel>
#include <QVBoxLayout>

namespace kelvarin
{

analysis_page::analysis_page(table_document& table, QWidget* parent) : table_page(table, parent)
{
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    auto* later = new QLabel(tr("Interpolation, differentiation and integration come with a later version."));
    later->setPalette(quiet_palette(palette()));
    column->addWidget(later);
}

} // namespace kelvarin

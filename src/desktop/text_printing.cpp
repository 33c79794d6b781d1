// SPDX-License-Identifier: MIT
#include "desktop/text_printing.h"

#include "desktop/look.h"
#include "desktop/qt_text.h"

#include <QFontDatabase>
#include <QPagedPaintDevice>
#include <QTextDocument>

namespace kelvarin
{

void print_text(QPagedPaintDevice& device, std::string_view text)
{
    QTextDocument document;
    QFont font = of_equal_widths(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    font.setPointSize(10);
    document.setDefaultFont(font);
    document.setPlainText(to_qstring(text));
    document.print(&device);
}

} // namespace kelvarin

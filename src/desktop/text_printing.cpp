// SPDX-License-Identifier: MIT
#include "desktop/text_printing.h"

#include "desktop/qt_text.h"

#include <QFontDatabase>
#include <QPrinter>
#include <QTextDocument>

namespace kelvarin
{

void print_text(QPrinter& printer, std::string_view text)
{
    QTextDocument document;
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    font.setPointSize(10);
    document.setDefaultFont(font);
    document.setPlainText(to_qstring(text));
    document.print(&printer);
}

} // namespace kelvarin

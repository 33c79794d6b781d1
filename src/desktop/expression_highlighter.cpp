// SPDX-License-Identifier: MIT
#include "desktop/expression_highlighter.h"

#include "desktop/qt_text.h"
#include "desktop/text_spans.h"

namespace kelvarin
{

expression_highlighter::expression_highlighter(QTextDocument* document, QPalette palette)
    : QSyntaxHighlighter(document), palette_(std::move(palette))
{
}

void expression_highlighter::set_palette(const QPalette& palette)
{
    palette_ = palette;
    rehighlight();
}

void expression_highlighter::highlightBlock(const QString& text)
{
    for (const text_span& span : expression_spans(to_text(text)))
        setFormat(span.start, span.length, span_format(span.meaning, palette_));
}

} // namespace kelvarin

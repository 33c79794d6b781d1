// SPDX-License-Identifier: MIT
#include "desktop/text_spans.h"

#include "desktop/look.h"
#include "desktop/qt_text.h"
#include "expr/basParse.h"

#include <QTextDocument>

#include <algorithm>

namespace kelvarin
{

text_span span_of(std::string_view text, std::size_t offset, std::size_t length, text_meaning meaning)
{
    const std::string_view before = text.substr(0, std::min(offset, text.size()));
    const std::string_view part = text.substr(before.size(), length);
    return {static_cast<int>(to_qstring(before).size()), static_cast<int>(to_qstring(part).size()), meaning};
}

std::vector<text_span> expression_spans(std::string_view text, std::size_t offset)
{
    std::vector<text_span> spans;
    for (const token& word : scan_tokens(text.substr(std::min(offset, text.size())))) {
        // A function that equations don't have is a variable there, and is not tinted.
        if (word.is_function() && is_equation_word(word.text))
            spans.push_back(span_of(text, offset + word.offset, word.length, text_meaning::function));
        else if (word.kind == token_kind::tokVerb || word.kind == token_kind::tokBoolean)
            spans.push_back(span_of(text, offset + word.offset, word.length, text_meaning::keyword));
    }
    return spans;
}

QTextCharFormat span_format(text_meaning meaning, const QPalette& palette)
{
    QTextCharFormat format;
    const auto wave = [&format](const QColor& colour) {
        format.setUnderlineStyle(QTextCharFormat::WaveUnderline);
        format.setUnderlineColor(colour);
    };
    switch (meaning) {
    case text_meaning::function:
        format.setForeground(function_colour(palette));
        break;
    case text_meaning::keyword:
        format.setForeground(keyword_colour(palette));
        break;
    case text_meaning::undefined:
        wave(fault_colour(palette));
        break;
    case text_meaning::duplicate:
        wave(warning_colour(palette));
        break;
    case text_meaning::marked:
        wave(fault_colour(palette));
        format.setBackground(mixed(palette.color(QPalette::Base), fault_colour(palette), 0.22));
        break;
    }
    return format;
}

} // namespace kelvarin

// SPDX-License-Identifier: MIT
#pragma once

#include <QPalette>
#include <QString>
#include <QTextCharFormat>

#include <string_view>
#include <vector>

namespace kelvarin
{

/// The meaning of a part of an equation's text, which determines its format.
enum class text_meaning
{
    function,
    keyword,
    /// A name that no row defines.
    undefined,
    /// A name that several rows define.
    duplicate,
    /// The part that a message is about.
    marked
};

/// A part of a text, counted in the toolkit's UTF-16 units.
struct text_span
{
    int start = 0;
    int length = 0;
    text_meaning meaning = text_meaning::function;

    friend bool operator==(const text_span&, const text_span&) = default;
};

/// A range of bytes of a text (UTF-8) as a span, cut at the text's end.
text_span span_of(std::string_view text, std::size_t offset, std::size_t length, text_meaning meaning);

/// The functions and keywords, as found by the engine's scanner, of the expression that begins at byte `offset` of a
/// text.
std::vector<text_span> expression_spans(std::string_view text, std::size_t offset = 0);

/// Tints for words, wavy underlines for faults.
QTextCharFormat span_format(text_meaning meaning, const QPalette& palette);

} // namespace kelvarin

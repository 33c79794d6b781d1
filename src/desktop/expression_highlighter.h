// SPDX-License-Identifier: MIT
#pragma once

#include <QPalette>
#include <QSyntaxHighlighter>

namespace kelvarin
{

/// Tints the functions and keywords of an expression in the colours of the palette it was last given.
class expression_highlighter : public QSyntaxHighlighter
{
    Q_OBJECT

public:
    expression_highlighter(QTextDocument* document, QPalette palette);

    void set_palette(const QPalette& palette);

protected:
    void highlightBlock(const QString& text) override;

private:
    QPalette palette_;
};

} // namespace kelvarin

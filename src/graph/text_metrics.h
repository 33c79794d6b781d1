// SPDX-License-Identifier: MIT
#pragma once

#include "graph/graph_content.h"

#include <string>
#include <string_view>

namespace kelvarin
{

/// Sizes of texts in points. A window passes what its toolkit measures.
class text_metrics
{
public:
    virtual ~text_metrics() = default;

    virtual double width(std::string_view text, const graph_font& font) const = 0;
    /// Heights above and below the baseline.
    virtual double ascent(const graph_font& font) const = 0;
    virtual double descent(const graph_font& font) const = 0;

    double height(const graph_font& font) const { return ascent(font) + descent(font); }
};

/// Advance widths of DejaVu Sans, for any font name: for drawings without a toolkit. It is the widest of the common
/// sans-serif fonts, so that texts don't overlap in whatever font a viewer uses.
const text_metrics& sans_serif_metrics();

/// `text`, cut and ended by an ellipsis if it is wider than `width`; empty if the ellipsis doesn't fit.
std::string elided_text(std::string_view text, double width, const graph_font& font, const text_metrics& metrics);

} // namespace kelvarin

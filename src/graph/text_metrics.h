// SPDX-License-Identifier: MIT
#pragma once

#include "graph/graph_content.h"

#include <string>
#include <string_view>

namespace kelvarin
{

/// How large texts are, in points. A window passes what its toolkit measures.
class text_metrics
{
public:
    virtual ~text_metrics() = default;

    virtual double width(std::string_view text, const graph_font& font) const = 0;
    /// Above and below the baseline.
    virtual double ascent(const graph_font& font) const = 0;
    virtual double descent(const graph_font& font) const = 0;

    double height(const graph_font& font) const { return ascent(font) + descent(font); }
};

/// Advance widths of DejaVu Sans, whatever the font's name: for drawings without a toolkit. Of the common sans-serif
/// faces it is the widest, so that texts that keep apart do so in whatever face a viewer shows them.
const text_metrics& sans_serif_metrics();

/// `text`, cut and ended by an ellipsis where it is wider than `width`; empty where not even that fits.
std::string elided_text(std::string_view text, double width, const graph_font& font, const text_metrics& metrics);

} // namespace kelvarin

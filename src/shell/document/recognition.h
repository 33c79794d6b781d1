// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace kelvarin
{

enum class document_kind
{
    unknown,
    graph,
    report,
    text,
    nle,
    deq,
    leq,
    reg
};

/// The kind of a document by its file name's extension and its first lines, in the order of the
/// recognition table.
document_kind recognise_document(std::string_view path, std::string_view text);

/// "The file format of " + path + " does not match any of the Kelvarin input files format."
std::string unknown_format_text(std::string_view path);

/// "nle", "deq", ...; "unknown" for none.
std::string_view kind_name(document_kind kind);

} // namespace kelvarin

// SPDX-License-Identifier: MIT
#pragma once

#include "platform/clock.h"
#include "shell/report/styled_text.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Reports are rich text. What is written here is the vocabulary of their fragments; what is read here is
/// the subset of the format that they use, from which plain text and windows are made.
namespace kelvarin
{

/// User text (UTF-8) as rich text: braces and backslashes escaped, letters beyond ASCII as \uN escapes,
/// line ends and control characters as blanks.
std::string escape_rich_text(std::string_view text);

/// The document prolog, the body, and the tail "\par }". The prolog ends in a control word with a number, so
/// the body begins with a group or a control word of its own.
std::string rich_text_document(std::string_view body);

/// The head of every report, up to and with the one line end behind the date: "KELVARIN Results", the title
/// (escaped here), the date and the program's version.
std::string report_head(std::string_view title, calendar_date date);

/// The version of the program as reports print it: "5.0.0".
std::string_view program_version();

/// Reads the subset: groups, \b \i \ul \cfN \fN \fsN \plain \v \par \line \tab, escapes \\ \{ \} \'hh \uN (with
/// \ucN), dashes, quotes and spaces by name, font table and colour table. Hidden text and destinations such as
/// pictures are passed over, unknown words have no effect, table cells end in a tab and their rows in a line end.
/// A document without tables of fonts and colours has those of reports, as a fragment has. A document cut short or with
/// groups that do not match is read as far as it goes. Never fails, whatever the bytes; the texts are valid UTF-8.
std::vector<styled_line> read_rich_text(std::string_view document);

/// Any lines, such as a part of a report, as a document with tables of its own; read_rich_text gives what it
/// has read back the same.
std::string rich_text_of(std::span<const styled_line> lines);

} // namespace kelvarin

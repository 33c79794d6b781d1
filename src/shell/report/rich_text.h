// SPDX-License-Identifier: MIT
#pragma once

#include "platform/clock.h"
#include "shell/report/styled_text.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Reports are rich text. Functions for writing fragments of reports, and a reader for the subset of the format that
/// they use, from which plain text and windows are made.
namespace kelvarin
{

/// User text (UTF-8) as rich text: braces and backslashes are escaped, characters beyond ASCII become \uN escapes, line
/// ends and control characters become blanks.
std::string escape_rich_text(std::string_view text);

/// The document prolog, the body, and the tail "\par }". The prolog ends in a control word with a number, so the body
/// must begin with a group or a control word.
std::string rich_text_document(std::string_view body);

/// The head of every report, up to and including the line end after the date: "KELVARIN Results", the title (escaped
/// here), the date and the program's version.
std::string report_head(std::string_view title, calendar_date date);

/// The parts of a head: the title as a group (escaped here), and the group of date and version.
std::string report_title_group(std::string_view title);
std::string report_date_group(calendar_date date);

/// The date as reports print it: "01-31-2026".
std::string report_date(calendar_date date);

/// The version of the program as reports print it: "5.0.0".
std::string_view program_version();

/// Reads the subset: groups, \b \i \ul \cfN \fN \fsN \plain \v \par \line \tab, escapes \\ \{ \} \'hh \uN (with \ucN),
/// dashes, quotes and spaces by name, font table and colour table. Hidden text and destinations such as pictures are
/// skipped, unknown words have no effect, table cells end in a tab and table rows in a line end. A document without
/// font and colour tables gets those of reports, as fragments do. A document that is cut short or has unbalanced groups
/// is read as far as possible. Never fails, whatever the bytes; the texts are valid UTF-8.
std::vector<styled_line> read_rich_text(std::string_view document);

/// Any lines, such as a part of a report, as a document with its own tables; read_rich_text restores the same lines
/// from it.
std::string rich_text_of(std::span<const styled_line> lines);

} // namespace kelvarin

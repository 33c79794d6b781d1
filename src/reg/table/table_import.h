// SPDX-License-Identifier: MIT
#pragma once

#include "platform/text_file.h"
#include "reg/table/import_form.h"
#include "reg/table/table_content.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Reads tables of other programs: text whose lines are rows and whose cells are separated by a delimiter.
namespace kelvarin
{

/// What reading came to: a table or the reason why there is none, and in sentences what the user should know of it.
struct import_result
{
    std::optional<table_content> content;
    std::string failure;
    std::vector<std::string> notes;
};

/// Reads a text. `current` supplies the size of a new table and the digits of calculated cells. Cells become as they
/// stand, but for decimal commas; those that are no numbers are noted. Names are changed so that formulas can use them.
/// Text other than UTF-8, or UTF-16 with a byte order mark, is read as Latin-1.
import_result import_text(std::string_view text, const import_form& form, const table_content& current);

/// The same for a file, which is read piece by piece: it may have any length, if only the table keeps within its
/// limits. `stop_asked` ends it early, with "interrupted" as the failure.
import_result import_file(const std::filesystem::path& path, const import_form& form, const table_content& current,
                          const std::function<bool()>& stop_asked);

/// The first lines of a file, for guesses and previews.
struct import_sample
{
    std::string text;
    /// Its reason is empty if the file can be read.
    file_failure failure;
};
import_sample read_import_sample(const std::filesystem::path& path);

} // namespace kelvarin

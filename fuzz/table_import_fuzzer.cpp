// SPDX-License-Identifier: MIT
#include "promise.h"
#include "reg/table/delimited_reader.h"
#include "reg/table/table_export.h"
#include "reg/table/table_import.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace
{

using namespace kelvarin;
using fuzz::promise;

/// A line of few letters may ask for a table of a million cells, which is made in time but not thousands of times.
constexpr int most_cells = 20'000;

/// The records do not depend on the pieces in which a text comes.
void check_pieces(std::string_view text, char delimiter, std::size_t piece)
{
    const auto records = [&](std::size_t step) {
        std::string all;
        delimited_reader reader(delimiter, [&all](const std::vector<std::string>& cells, std::int64_t line) {
            all += std::to_string(line);
            for (const std::string& cell : cells)
                all.append("[").append(cell).append("]");
            return true;
        });
        std::string_view rest = text;
        bool wanted = true;
        for (; wanted && !rest.empty(); rest.remove_prefix(std::min(step, rest.size())))
            wanted = reader.read(rest.substr(0, step));
        if (wanted) reader.finish();
        return all;
    };
    promise(records(piece) == records(text.size() + 1), "pieces give the same records");
}

} // namespace

/// Any text becomes a table or is refused with a reason, in its guessed form and in another one; what is exported is
/// imported as it was.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size)
{
    if (size == 0) return 0;
    const std::string_view text(reinterpret_cast<const char*>(bytes), size);
    const table_content empty({10, 5});
    constexpr std::string_view delimiters = ",;\t| ";
    const import_form other = {delimiters[bytes[0] % delimiters.size()], bytes[0] % 2 == 0 ? '.' : ',',
                               bytes[size - 1] % 2 == 0};
    check_pieces(text, other.delimiter, bytes[0] % 16 + 1);
    for (const import_form& form : {guess_form(text), other}) {
        const import_result read = import_text(text, form, empty);
        promise(read.content.has_value() == read.failure.empty(), "there is a table or a reason");
        if (!read.content || read.content->rows() * read.content->columns() > most_cells) continue;
        table_content exported = *read.content;
        // A line of blank cells alone would be no row.
        for (int row = 0; row < exported.rows(); ++row)
            exported.cells.set_cell(row, exported.columns() - 1, "1");
        const import_form written = {form.delimiter == ' ' ? ',' : form.delimiter, '.', true};
        const import_result again = import_text(export_text(exported, written), written, exported);
        promise(again.content.has_value(), "what is exported is imported");
        promise(again.content->names == exported.names, "names are usable at once");
        promise(used_size(*again.content).rows == used_size(exported).rows, "no row is lost");
        for (int column = 0; column < exported.columns(); ++column)
            for (int row = 0; row < exported.rows(); ++row)
                promise(again.content->cells.text(row, column) == exported.cells.text(row, column), "cells stay");
    }
    return 0;
}

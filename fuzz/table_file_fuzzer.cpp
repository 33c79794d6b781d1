// SPDX-License-Identifier: MIT
#include "platform/clock.h"
#include "platform/runtime_failure.h"
#include "platform/text_file.h"
#include "promise.h"
#include "reg/table/column_formulas.h"
#include "reg/table/column_statistics.h"
#include "reg/table/table_file.h"
#include "reg/table/table_listing.h"
#include "reg/table/table_recovery.h"
#include "saving.h"
#include "shell/report/rich_text.h"

#include <string>

namespace
{

/// A line of few letters may ask for a table of half a million cells, which is made in time but not thousands of times.
constexpr int most_cells = 20'000;

} // namespace

/// Any file is read or refused; what is read comes back the same from files and recovery copies, its formulas are
/// calculated, and its columns have statistics.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size)
{
    using namespace kelvarin;
    using fuzz::promise;
    const table_content empty({10, 5});
    auto content = read_table(to_utf8(std::string_view(reinterpret_cast<const char*>(bytes), size)), empty);
    if (!content || content->rows() * content->columns() > most_cells) return 0;
    // A table without cells is saved with 0 rows, which are no table when they are read.
    if (used_size(*content).rows > 0)
        fuzz::check_saving(*content, write_table, [&](const std::string& each) { return read_table(each, empty); });
    promise(read_table_recovery(table_recovery_text(*content)) == content, "what was kept comes back the same");

    evaluation_context context;
    recalc_all_formula_columns(*content, context);
    promise(!table_listing(*content, "fuzz.kvr").empty(), "a listing has lines");
    try {
        const std::string report = column_statistics_report(statistics_of_columns(*content), fixed_clock().today());
        promise(!read_rich_text(report).empty(), "a report can be read");
    } catch (const runtime_failure&) {
        // A cell beyond the doubles.
    }
    return 0;
}

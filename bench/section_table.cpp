// SPDX-License-Identifier: MIT
#include "reg/table/table_document.h"
#include "reg/table/table_file.h"
#include "sections.h"
#include "table.h"

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace kelvarin::bench
{

namespace
{

spread times_of(const std::function<void()>& run, double units_in_a_second)
{
    constexpr int rounds = 21;
    std::vector<double> seen;
    for (int round = 0; round < rounds; ++round)
        seen.push_back(units_in_a_second * seconds_of(run, 1));
    return spread_of(seen);
}

spread milliseconds_of(const std::function<void()>& run)
{
    return times_of(run, 1e3);
}

spread microseconds_of(const std::function<void()>& run)
{
    return times_of(run, 1e6);
}

cell_block numbers(int rows, int columns)
{
    cell_block block;
    for (int row = 0; row < rows; ++row) {
        std::vector<std::string>& cells = block.emplace_back();
        for (int column = 0; column < columns; ++column)
            cells.push_back(std::to_string(row % 97 + 1) + "." + std::to_string(column + 10));
    }
    return block;
}

/// 600 rows with two columns of numbers and 20 that follow them and each other.
table_document formulas()
{
    table_document document({600, 30});
    document.paste(0, 0, numbers(600, 2));
    for (int column = 2; column < 22; ++column) {
        const std::string before = document.content().name(column - 1);
        if (document.define_column(column, "ln(C01) + C02 * exp(-" + before + " / 50)"))
            throw std::runtime_error("a formula was refused");
    }
    return document;
}

} // namespace

void measure_table()
{
    table_document table = formulas();
    print_line("600 rows, 20 formula columns: computed anew, ms", milliseconds_of([&] { table.set_calc_digits("10"); }),
               at_most(30.0));
    if (table.content().cells.text(599, 21).empty()) throw std::runtime_error("a formula without a value");

    const cell_block block = numbers(600, 20);
    table_document wide({600, 120});
    wide.paste(0, 0, numbers(600, 120));
    // To another place each time, so that each is a step.
    int place = 0;
    print_line("600 x 20 cells pasted into 600 x 120 as one step, ms",
               milliseconds_of([&] { wide.paste(0, place++, block); }));
    print_line("such a step undone, us", microseconds_of([&] { wide.undo(); }));

    table_document large({32000, 120});
    large.paste(0, 0, numbers(32000, 120));
    const std::string file = write_table(large.content());
    const table_content blank({300, 30});
    print_line("a file of 32,000 x 120 cells: read, ms", milliseconds_of([&] {
                   if (!read_table(file, blank)) throw std::runtime_error("a table was refused");
               }));
    int typed = 0;
    print_line("one of its cells typed as one step, us",
               microseconds_of([&] { large.set_cell(16000, 60, std::to_string(++typed)); }));
}

} // namespace kelvarin::bench

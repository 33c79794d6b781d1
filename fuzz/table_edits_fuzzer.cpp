// SPDX-License-Identifier: MIT
#include "promise.h"
#include "reg/table/table_document.h"

#include <string>
#include <utility>
#include <vector>

namespace
{

using namespace kelvarin;
using fuzz::promise;

/// The cells of a table without formulas, kept in the plainest way, and every state before.
struct plain_table
{
    using cells = std::vector<std::vector<std::string>>;

    explicit plain_table(table_size size)
        : now(static_cast<std::size_t>(size.rows), std::vector<std::string>(static_cast<std::size_t>(size.columns)))
    {
    }

    cells now;
    std::vector<cells> before;

    void change(cells next)
    {
        if (next == now) return;
        before.push_back(std::exchange(now, std::move(next)));
    }
};

/// Takes the bytes of an input one after the other; 0 behind the last.
class choices
{
public:
    choices(const unsigned char* bytes, std::size_t size) : bytes_(bytes), size_(size) {}
    bool at_end() const { return next_ >= size_; }
    int below(int limit) { return at_end() ? 0 : bytes_[next_++] % limit; }

private:
    const unsigned char* bytes_;
    std::size_t size_;
    std::size_t next_ = 0;
};

void compare(const table_content& content, const plain_table& plain)
{
    promise(content.rows() == static_cast<int>(plain.now.size()), "as many rows");
    promise(content.columns() == static_cast<int>(plain.now.front().size()), "as many columns");
    promise(content.names.size() == plain.now.front().size(), "a name for each column");
    for (int row = 0; row < content.rows(); ++row)
        for (int column = 0; column < content.columns(); ++column)
            promise(content.cells.text(row, column) ==
                        plain.now[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)],
                    "the same cells");
}

void set(plain_table& plain, int row, int column, const std::string& text)
{
    plain_table::cells next = plain.now;
    next[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)] = text;
    plain.change(std::move(next));
}

void clear(plain_table& plain, const cell_range& range)
{
    plain_table::cells next = plain.now;
    for (int row = range.row; row < range.row + range.rows; ++row)
        for (int column = range.column; column < range.column + range.columns; ++column)
            next[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)].clear();
    plain.change(std::move(next));
}

void edit(table_document& table, plain_table& plain, choices& input)
{
    const int row = input.below(table.content().rows());
    const int column = input.below(table.content().columns());
    switch (input.below(6)) {
    case 0: {
        const std::string text = std::to_string(input.below(5));
        table.set_cell(row, column, text);
        return set(plain, row, column, text);
    }
    case 1: {
        const cell_range range = {row, column, 1 + input.below(table.content().rows() - row),
                                  1 + input.below(table.content().columns() - column)};
        table.clear_cells(range);
        return clear(plain, range);
    }
    case 2: {
        if (table.content().rows() > 40) return;
        table.insert_row(row);
        plain_table::cells next = plain.now;
        next.insert(next.begin() + row, std::vector<std::string>(next.front().size()));
        return plain.change(std::move(next));
    }
    case 3: {
        table.delete_row(row);
        if (plain.now.size() == 1) return;
        plain_table::cells next = plain.now;
        next.erase(next.begin() + row);
        return plain.change(std::move(next));
    }
    case 4: {
        if (table.content().columns() > 40) return;
        table.add_columns(1);
        plain_table::cells next = plain.now;
        for (std::vector<std::string>& cells : next)
            cells.emplace_back();
        return plain.change(std::move(next));
    }
    default:
        promise(table.undo() == !plain.before.empty(), "a step for each change");
        if (plain.before.empty()) return;
        plain.now = std::move(plain.before.back());
        plain.before.pop_back();
    }
}

} // namespace

/// Edits of a table give the same cells as those of plain texts, and each is one step of undo; all of them undone
/// leave the first table.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size)
{
    if (size > 600) return 0;
    constexpr table_size start = {6, 4};
    table_document table(start);
    plain_table plain(start);
    for (choices input(bytes, size); !input.at_end();) {
        edit(table, plain, input);
        compare(table.content(), plain);
    }
    while (table.undo()) {
    }
    compare(table.content(), plain_table(start));
    return 0;
}

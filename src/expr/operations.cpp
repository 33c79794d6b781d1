// SPDX-License-Identifier: MIT
#include "expr/operations.h"

#include "expr/operation_table.h"

#include <array>

namespace kelvarin
{

namespace
{

using code = operation_code;
using operation_table::rows;

constexpr bool rows_stand_in_code_order()
{
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (rows[i].code != static_cast<code>(i)) return false;
    return true;
}
static_assert(rows_stand_in_code_order());

/// A table of spellings with open addressing, made by the compiler: most names that are looked up are
/// variables, and the first look shows it.
class spelling_table
{
public:
    constexpr spelling_table()
    {
        for (const operation_row& row : rows) {
            if (row.spelling.empty() || row.code == code::if_then_else) continue;
            std::size_t i = place_of(row.spelling);
            while (codes_[i] != code::none)
                i = (i + 1) % codes_.size();
            codes_[i] = row.code;
        }
    }

    constexpr code find(std::string_view spelling) const
    {
        if (spelling.empty()) return code::none;
        for (std::size_t i = place_of(spelling); codes_[i] != code::none; i = (i + 1) % codes_.size())
            if (rows[static_cast<std::size_t>(codes_[i])].spelling == spelling) return codes_[i];
        return code::none;
    }

private:
    static constexpr std::size_t place_of(std::string_view spelling)
    {
        const auto letter = [&](std::size_t i) {
            return static_cast<std::size_t>(static_cast<unsigned char>(spelling[i]));
        };
        return (letter(0) * 37 + letter(spelling.size() / 2) * 11 + letter(spelling.size() - 1) * 5 +
                spelling.size() * 3) %
               size;
    }

    static constexpr std::size_t size = 256;
    std::array<code, size> codes_{};
};

constexpr spelling_table codes_by_spelling;

} // namespace

std::span<const operation_row> operation_rows()
{
    return rows;
}

const operation_row& row_of(operation_code operation)
{
    return rows[static_cast<std::size_t>(operation)];
}

operation_code operator_of(std::string_view spelling)
{
    const code found = codes_by_spelling.find(spelling);
    return row_of(found).priority > 0 ? found : code::none;
}

operation_code function_of(std::string_view spelling)
{
    const code found = codes_by_spelling.find(spelling);
    return row_of(found).priority == 0 ? found : code::none;
}

double power_value(double left, double right)
{
    if (right == 2.0) return left * left;
    if (right == 3.0) return left * left * left;
    return std::pow(left, right);
}

} // namespace kelvarin

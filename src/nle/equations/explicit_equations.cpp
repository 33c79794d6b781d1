// SPDX-License-Identifier: MIT
#include "nle/equations/explicit_equations.h"

#include "expr/basParse.h"
#include "platform/runtime_failure.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <numeric>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace kelvarin
{

namespace
{

bool is_letter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

/// Finds all names of a list in a text in one pass over the text.
class name_index
{
public:
    explicit name_index(const std::vector<std::string>& names)
    {
        for (std::size_t i = 0; i < names.size(); ++i) {
            if (names[i].empty()) continue;
            equations_[names[i]].push_back(i);
            starts_[static_cast<unsigned char>(names[i].front())] = true;
            lengths_.push_back(names[i].size());
        }
        std::sort(lengths_.begin(), lengths_.end());
        lengths_.erase(std::unique(lengths_.begin(), lengths_.end()), lengths_.end());
    }

    /// Calls `found(i)` for each occurrence in `text` of the name of equation i that has no letter directly before or
    /// after it.
    template <class Found> void find_in(std::string_view text, Found found) const
    {
        for (std::size_t at = 0; at < text.size(); ++at) {
            if (!starts_[static_cast<unsigned char>(text[at])]) continue;
            if (at > 0 && is_letter(text[at - 1])) continue;
            for (const std::size_t length : lengths_) {
                const std::size_t end = at + length;
                if (end > text.size()) break;
                if (end < text.size() && is_letter(text[end])) continue;
                const auto hit = equations_.find(text.substr(at, length));
                if (hit == equations_.end()) continue;
                for (const std::size_t equation : hit->second)
                    found(equation);
            }
        }
    }

private:
    std::unordered_map<std::string_view, std::vector<std::size_t>> equations_;
    std::array<bool, 256> starts_{};
    std::vector<std::size_t> lengths_;
};

/// Matrix of uses: element name * n + text is 1 if right side `text` uses `name`.
std::vector<std::uint8_t> table_of_uses(const equation_list& equations)
{
    const std::size_t n = equations.names.size();
    const name_index names(equations.names);
    std::vector<std::uint8_t> uses(n * n, 0);
    for (std::size_t text = 0; text < n; ++text) {
        names.find_in(equations.right_sides[text], [&](std::size_t name) { uses[name * n + text] = 1; });
    }
    return uses;
}

/// Swaps entries of `order` until no entry's name is used by an earlier entry. A pass looks for the last entry whose
/// name is used, and for the nearest earlier user, swaps the two and starts over.
///
/// A pass need not check the entries after the one that was swapped last again: none of their names was used by an
/// earlier entry, and a swap of earlier entries doesn't change that.
void order_by_swapping(std::vector<std::size_t>& order, const std::vector<std::uint8_t>& uses)
{
    const std::size_t n = order.size();
    std::size_t passes = 0;
    const auto begin_pass = [&] {
        if (passes > n * n) nrerror(circular_definition_text);
        ++passes;
    };

    begin_pass();
    for (std::size_t i = n; i-- > 1;) {
        std::size_t j = i;
        while (j-- > 0) {
            if (uses[order[i] * n + order[j]] == 0) continue;
            std::swap(order[i], order[j]);
            begin_pass();
            j = i;
        }
    }
}

template <class T> void rearrange(std::vector<T>& values, const std::vector<std::size_t>& order)
{
    std::vector<T> moved;
    moved.reserve(order.size());
    for (const std::size_t from : order)
        moved.push_back(std::move(values[from]));
    values = std::move(moved);
}

} // namespace

void equation_list::add(std::string name, std::string right_side, int row)
{
    names.push_back(std::move(name));
    right_sides.push_back(std::move(right_side));
    rows.push_back(row);
}

void sort_explicit_equations(equation_list& explicit_equations)
{
    std::vector<std::size_t> order(explicit_equations.names.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    order_by_swapping(order, table_of_uses(explicit_equations));
    rearrange(explicit_equations.names, order);
    rearrange(explicit_equations.right_sides, order);
    rearrange(explicit_equations.rows, order);
}

bool uses_itself(const equation_list& equations, std::size_t equation)
{
    const std::vector<token> words = scan_tokens(equations.right_sides[equation]);
    return std::ranges::any_of(words, [&](const token& word) {
        return word.kind == token_kind::tokName && word.text == equations.names[equation];
    });
}

std::vector<std::size_t> circular_equations(const equation_list& equations)
{
    const std::size_t n = equations.names.size();
    std::vector<std::uint8_t> leads_to = table_of_uses(equations);
    for (std::size_t i = 0; i < n; ++i)
        leads_to[i * n + i] = uses_itself(equations, i) ? 1 : 0;
    // The transitive closure. [Warshall1962]
    for (std::size_t via = 0; via < n; ++via)
        for (std::size_t from = 0; from < n; ++from)
            if (leads_to[from * n + via] != 0)
                for (std::size_t to = 0; to < n; ++to)
                    leads_to[from * n + to] |= leads_to[via * n + to];
    std::vector<std::size_t> circular;
    for (std::size_t i = 0; i < n; ++i)
        if (leads_to[i * n + i] != 0) circular.push_back(i);
    return circular;
}

std::vector<int> circular_rows(const equation_list& equations)
{
    std::vector<int> rows;
    for (const std::size_t i : circular_equations(equations))
        rows.push_back(equations.rows[i]);
    std::ranges::sort(rows);
    return rows;
}

} // namespace kelvarin

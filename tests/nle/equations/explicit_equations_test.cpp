// SPDX-License-Identifier: MIT
#include "nle/equations/explicit_equations.h"
#include "platform/runtime_failure.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <algorithm>

namespace kelvarin
{
namespace
{

using texts = std::vector<std::string>;

equation_list list_of(const std::vector<std::pair<std::string, std::string>>& equations)
{
    equation_list list;
    for (const auto& [name, right_side] : equations)
        list.add(name, right_side, list.size() + 1);
    return list;
}

/// The rule of the order as it is told, on the texts themselves: the referee for the table of uses.
class literal_order
{
public:
    explicit literal_order(equation_list& list) : list_(list) {}

    void sort()
    {
        const int n = list_.size();
        for (int restarts = 0;; ++restarts) {
            if (restarts > n * n) nrerror("circle");
            if (!swap_first_pair(n)) return;
        }
    }

private:
    static bool is_letter(char c) { return std::isalpha(static_cast<unsigned char>(c)) != 0; }

    static bool is_named(const std::string& name, const std::string& text)
    {
        for (std::size_t at = text.find(name); at != std::string::npos; at = text.find(name, at + 1)) {
            const char before = at == 0 ? ' ' : text[at - 1];
            const char after = at + name.size() == text.size() ? ' ' : text[at + name.size()];
            if (!is_letter(before) && !is_letter(after)) return true;
        }
        return false;
    }

    bool swap_first_pair(int n)
    {
        for (int i = n - 1; i >= 1; --i) {
            for (int j = i - 1; j >= 0; --j) {
                const auto a = static_cast<std::size_t>(i);
                const auto b = static_cast<std::size_t>(j);
                if (!is_named(list_.names[a], list_.right_sides[b])) continue;
                std::swap(list_.names[a], list_.names[b]);
                std::swap(list_.right_sides[a], list_.right_sides[b]);
                std::swap(list_.rows[a], list_.rows[b]);
                return true;
            }
        }
        return false;
    }

    equation_list& list_;
};

TEST(SortExplicit, OrdersBySwappingNotByGraph)
{
    struct order
    {
        const char* name;
        std::vector<std::pair<std::string, std::string>> equations;
        texts sorted;
    };
    // The orders were found by carrying the swaps out by hand.
    const order orders[] = {
        {"nothing", {}, {}},
        {"one that names itself", {{"a", "a + 1"}}, {"a"}},
        {"a pair", {{"a", "b + 1"}, {"b", "2"}}, {"b", "a"}},
        {"in order already", {{"a", "1"}, {"b", "a"}, {"c", "a"}}, {"a", "b", "c"}},
        {"a swap carries others along", {{"a", "d"}, {"b", "1"}, {"c", "1"}, {"d", "1"}}, {"d", "b", "c", "a"}},
        {"quadratic",
         {{"x1", "(-b + sqrt(disc))/(2*a)"},
          {"x2", "(-b - sqrt(disc))/(2*a)"},
          {"disc", "b^2 - 4*a*c"},
          {"a", "1"},
          {"b", "-3"},
          {"c", "2"}},
         {"a", "b", "c", "disc", "x1", "x2"}},
        {"letters protect", {{"a", "2*bx + xb"}, {"b", "1"}}, {"a", "b"}},
        {"digits do not", {{"a", "x1"}, {"x", "1"}}, {"x", "a"}},
        {"underscores do not", {{"a", "my_x"}, {"x", "1"}}, {"x", "a"}},
        {"the second place counts", {{"a", "bb + b"}, {"b", "1"}}, {"b", "a"}},
        {"case counts", {{"a", "B"}, {"b", "1"}}, {"a", "b"}},
        {"an exponent is taken for a name", {{"a", "2e-3"}, {"e", "1"}}, {"e", "a"}},
        {"letters beyond ASCII do not protect", {{"a", "\xC3\xA9x"}, {"x", "1"}}, {"x", "a"}},
    };
    for (const order& o : orders) {
        SCOPED_TRACE(o.name);
        equation_list list = list_of(o.equations);
        sort_explicit_equations(list);
        EXPECT_EQ(list.names, o.sorted);
    }
}

TEST(SortExplicit, ReportsACircleAlsoOneThatIsOnlyApparent)
{
    const std::vector<std::pair<std::string, std::string>> circles[] = {
        {{"a", "b"}, {"b", "a"}},
        {{"a", "b"}, {"b", "c"}, {"c", "a"}},
        {{"a", "x1"}, {"x", "a + 1"}, {"x1", "2"}},
        {{"e", "a"}, {"a", "1e-3"}},
    };
    for (const auto& circle : circles) {
        SCOPED_TRACE(circle.front().first + " = " + circle.front().second);
        equation_list list = list_of(circle);
        try {
            sort_explicit_equations(list);
            ADD_FAILURE() << "sorted";
        } catch (const runtime_failure& failure) {
            EXPECT_EQ(failure.number(), 8888);
            EXPECT_EQ(failure.detail(), "Circular definition of explicit variables not allowed.");
        }
    }
}

TEST(SortExplicit, GivesTheOrderOfTheToldProcedure)
{
    EXPECT_TRUE(rc::check("sorts, or refuses, as the literal procedure does", [] {
        const texts pool = {"a", "b", "ab", "ba", "x", "x1", "x12", "x_2", "e", "E", "y1", "1x"};
        const auto names = *rc::gen::container<texts>(rc::gen::elementOf(pool));
        const auto piece = rc::gen::element<std::string>("a", "b", "ab", "ba", "x", "x1", "x12", "x_2", "e", "y1", "+",
                                                         "*", "2e-3", "(", "1", " ", ".5", "z", "sin(");
        equation_list list;
        for (const std::string& name : names) {
            if (std::find(list.names.begin(), list.names.end(), name) != list.names.end()) continue;
            std::string right_side;
            for (int pieces = *rc::gen::inRange(0, 4); pieces > 0; --pieces)
                right_side += *piece;
            list.add(name, right_side, list.size() + 1);
        }
        equation_list told = list;
        bool circle = false;
        bool told_circle = false;
        try {
            sort_explicit_equations(list);
        } catch (const runtime_failure&) {
            circle = true;
        }
        try {
            literal_order(told).sort();
        } catch (const runtime_failure&) {
            told_circle = true;
        }
        RC_ASSERT(circle == told_circle);
        if (circle) return;
        RC_ASSERT(list.names == told.names);
        RC_ASSERT(list.right_sides == told.right_sides);
        RC_ASSERT(list.rows == told.rows);
    }));
}

TEST(SortExplicit, TwoHundredRowsInReverseOrderStayWithinTheBudget)
{
    const auto name = [](int k) {
        return std::string("v") + static_cast<char>('a' + k / 26) + static_cast<char>('a' + k % 26);
    };
    equation_list list;
    for (int k = 0; k < 199; ++k)
        list.add(name(k), name(k + 1) + " + 1", k + 1);
    list.add(name(199), "0", 200);
    sort_explicit_equations(list);
    for (int k = 0; k < 200; ++k)
        EXPECT_EQ(list.names[static_cast<std::size_t>(k)], name(199 - k));
    EXPECT_EQ(list.rows.front(), 200);
}

} // namespace
} // namespace kelvarin

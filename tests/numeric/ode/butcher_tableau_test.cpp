// SPDX-License-Identifier: MIT
#include "numeric/ode/butcher_tableau.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>
#include <string>
#include <vector>

namespace kelvarin::test
{

namespace
{

using weights = butcher_tableau::stage_weights;

/// A rooted tree by the trees that hang at its root, as numbers in a list where each stands behind its parts.
struct rooted_tree
{
    std::vector<std::size_t> branches;
    int nodes = 1;
    /// The product of the sizes of all its subtrees. [HairerNorsettWanner1993] sec. II.2
    double density = 1.0;
};

void add_trees(std::vector<rooted_tree>& trees, rooted_tree grown, std::size_t last, int nodes)
{
    if (grown.nodes == nodes) {
        grown.density = nodes;
        for (const std::size_t branch : grown.branches)
            grown.density *= trees[branch].density;
        trees.push_back(grown);
        return;
    }
    for (std::size_t next = 0; next <= last; ++next) {
        if (grown.nodes + trees[next].nodes > nodes) continue;
        rooted_tree larger = grown;
        larger.branches.push_back(next);
        larger.nodes += trees[next].nodes;
        add_trees(trees, larger, next, nodes);
    }
}

std::vector<rooted_tree> trees_up_to(int nodes)
{
    std::vector<rooted_tree> trees = {rooted_tree{}};
    for (int size = 2; size <= nodes; ++size)
        add_trees(trees, {}, trees.size() - 1, size);
    return trees;
}

/// By tree and stage: the product over the branches of the sums of a over theirs.
std::vector<weights> elementary_weights(const butcher_tableau& tableau, const std::vector<rooted_tree>& trees)
{
    std::vector<weights> made;
    for (const rooted_tree& tree : trees) {
        weights of_tree;
        of_tree.fill(1.0);
        for (const std::size_t branch : tree.branches)
            for (std::size_t m = 0; m < of_tree.size(); ++m)
                of_tree[m] *= std::inner_product(tableau.a[m].begin(), tableau.a[m].end(), made[branch].begin(), 0.0);
        made.push_back(of_tree);
    }
    return made;
}

/// The order up to which all conditions hold that b asks of the tableau.
int order_of(const butcher_tableau& tableau, const weights& b)
{
    const std::vector<rooted_tree> trees = trees_up_to(tableau.order + 1);
    const std::vector<weights> sums = elementary_weights(tableau, trees);
    int order = tableau.order + 1;
    for (std::size_t t = 0; t < trees.size(); ++t) {
        const double sum = std::inner_product(b.begin(), b.end(), sums[t].begin(), 0.0);
        if (std::fabs(sum - 1.0 / trees[t].density) > 1e-14) order = std::min(order, trees[t].nodes - 1);
    }
    return order;
}

} // namespace

TEST(ButcherTableau, OrderConditionsAreAsManyAsKnown)
{
    EXPECT_EQ(trees_up_to(5).size(), 1U + 1U + 2U + 4U + 9U);
    EXPECT_EQ(trees_up_to(6).size(), 37U);
}

TEST(ButcherTableau, HasItsOrdersAndNodesThatAreSumsOfTheirRows)
{
    for (const butcher_tableau* const tableau : {&fehlberg_45, &fehlberg_56}) {
        SCOPED_TRACE("order " + std::to_string(tableau->order));
        weights lower = tableau->b;
        for (std::size_t l = 0; l < lower.size(); ++l)
            lower[l] += tableau->error_factor * tableau->e[l];
        EXPECT_EQ(order_of(*tableau, tableau->b), tableau->order);
        EXPECT_EQ(order_of(*tableau, lower), tableau->order - 1);
        for (std::size_t m = 0; m < lower.size(); ++m)
            EXPECT_NEAR(std::accumulate(tableau->a[m].begin(), tableau->a[m].end(), 0.0), tableau->c[m], 1e-15);
    }
}

} // namespace kelvarin::test

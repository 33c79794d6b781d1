// SPDX-License-Identifier: MIT
#include "expr/basParse.h"

#include <gtest/gtest.h>

namespace kelvarin::test
{

using names = std::vector<std::string>;

TEST(Store, AddsOnlyValidNewNamesAndSetsAny)
{
    clsParse store;
    EXPECT_FALSE(store.Add_new_var("2x", 1.0));
    EXPECT_TRUE(store.Add_new_var(" x ", 1.0));
    EXPECT_FALSE(store.Add_new_var("x", 2.0));
    EXPECT_EQ(store.get_var("x"), 1.0);
    EXPECT_TRUE(store.Add_new_var("X", 3.0));
    store.modify_add_var_value(" 2x", 4.0);
    store.modify_add_var_value("x", 5.0);
    EXPECT_EQ(store.get_var("2x"), 4.0);
    EXPECT_EQ(store.get_all_vars(), (names{"x", "X", "2x"}));
}

TEST(Store, RemovesAndRefillsInOrderOfInsertion)
{
    clsParse store;
    for (const char* name : {"a", "b", "c"})
        store.modify_add_var_value(name, 1.0);
    EXPECT_FALSE(store.Remove_var(" b"));
    EXPECT_TRUE(store.Remove_var("b"));
    EXPECT_FALSE(store.Remove_var("b"));
    EXPECT_FALSE(store.get_var("b").has_value());
    store.modify_add_var_value("b", 2.0);
    EXPECT_EQ(store.get_all_vars(), (names{"a", "c", "b"}));
    store.remove_all_vars();
    EXPECT_EQ(store.count_variables(), 0);
    EXPECT_TRUE(store.get_all_vars().empty());
    EXPECT_FALSE(store.var_exists("a"));
}

TEST(Store, ACompiledTreeSurvivesTheEmptyingOfTheStore)
{
    clsParse store;
    evaluation_context context;
    store.modify_add_var_value("x", 2.0);
    const built_tree built = build_tree(scan_tokens("x*y + x"), store);
    store.remove_all_vars();
    store.modify_add_var_value("y", 3.0);
    evaluate_tree(built.tree, 1, store, context);
    EXPECT_EQ(context.eval_error_message(), "Error: Variable x is empty");
    context.clear_failure();
    store.modify_add_var_value("x", 4.0);
    EXPECT_EQ(evaluate_tree(built.tree, 1, store, context), 16.0);
}

TEST(Store, SolvesATextInOneGo)
{
    clsParse store;
    evaluation_context context;
    const solved_expression empty = store.Solve_expression("x+1", context);
    EXPECT_FALSE(empty.ok);
    EXPECT_EQ(empty.message, "Error: Variable x is empty");
    EXPECT_FALSE(context.eval_error_flag());
    store.modify_add_var_value("x", 6.0);
    EXPECT_EQ(store.Solve_expression("x+1", context).value, 7.0);
}

} // namespace kelvarin::test

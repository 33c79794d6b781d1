// SPDX-License-Identifier: MIT
#include "reg/matrix_work.h"

#include "support/golden.h"
#include "support/table.h"
#include "support/tables.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kelvarin::test
{
namespace
{

using enum matrix_operation;
using testing::ElementsAre;

const table_content cells =
    table_of({{"a", {"1", "3", "", "1e999"}}, {"b", {"2", "4", "x"}}, {"c", {"5", "6kg"}}}, {4, 3});

std::optional<matrix> stored(const cell_range& selection)
{
    std::optional<matrix> found;
    EXPECT_FALSE(store_selection_as_matrix(cells, selection, found));
    return found;
}

const std::optional<matrix> two_by_two = stored({0, 0, 2, 2});
const std::optional<matrix> two_by_three = stored({0, 0, 2, 3});

TEST(MatrixWork, SelectionsAreReadByLeadingNumbersFromAnyCorner)
{
    for (const auto& [row, column, other_row, other_column] :
         table<int, int, int, int>{{0, 1, 2, 2}, {2, 2, 0, 1}, {0, 2, 2, 1}, {2, 1, 0, 2}}) {
        const std::optional<matrix> a = stored(range_between(row, column, other_row, other_column));
        EXPECT_EQ(a->rows(), 3);
        EXPECT_THAT(a->values(), ElementsAre(2, 5, 4, 6, 0, 0));
    }
    std::optional<matrix> kept = two_by_two;
    const std::optional<message_box> box = store_selection_as_matrix(cells, {3, 0, 1, 1}, kept);
    ASSERT_TRUE(box);
    EXPECT_EQ(box->text, "Error during calculation. Overflow");
    EXPECT_EQ(kept->rows(), 2);
}

TEST(MatrixWork, OperationsNeedWhatIsStored)
{
    for (const matrix_operation operation : matrix_operations) {
        EXPECT_FALSE((stored_matrices{std::nullopt, two_by_two}.allows(operation)));
        EXPECT_EQ((stored_matrices{two_by_two, std::nullopt}.allows(operation)), !needs_matrix_b(operation));
        EXPECT_TRUE((stored_matrices{two_by_two, two_by_two}.allows(operation)));
    }
}

TEST(MatrixWork, RefusedOperationsAndIncompleteFindingsSayWhy)
{
    const matrix singular(2, 2, 1.0);
    const char* const no_inverse = "Singular matrix or number of columns different than the number of rows.";
    const table<matrix_operation, stored_matrices, bool, const char*> rows = {
        {add, {two_by_two, two_by_three}, false, "Dimensions of matrix A and B are different."},
        {subtract, {two_by_three, two_by_two}, false, "Dimensions of matrix A and B are different."},
        {multiply,
         {two_by_three, two_by_two},
         false,
         "The numberof rows in matrix B are not equal to the number of columns in matrix A"},
        {inverse, {two_by_three, {}}, false, no_inverse},
        {inverse, {singular, {}}, false, no_inverse},
        {explore, {two_by_three, {}}, true, "Number of rows is not equal to number of columns in A matrix."},
        {explore, {singular, {}}, true, "Singular matrix."},
        {add, {matrix(1, 1, 1.5e308), matrix(1, 1, 1.5e308)}, false, "Error during calculation. Overflow"},
    };
    for (const auto& [operation, matrices, has_report, text] : rows) {
        const matrix_outcome outcome = run_matrix(operation, matrices);
        EXPECT_EQ(outcome.has_report, has_report) << text;
        ASSERT_EQ(outcome.boxes.size(), 1u) << text;
        EXPECT_EQ(outcome.boxes[0].text, text);
        EXPECT_EQ(outcome.boxes[0].title, guide_title);
    }
    const matrix_outcome partly = run_matrix(explore, {singular, {}});
    EXPECT_EQ(partly.rank, 1);
    EXPECT_EQ(partly.trace, 2.0);
    EXPECT_FALSE(run_matrix(explore, {two_by_three, {}}).trace);
}

TEST(MatrixWork, ReportsOfAllOperations)
{
    std::string reports;
    for (const matrix_operation operation : matrix_operations) {
        const bool wide = operation == multiply || operation == transpose;
        const matrix_outcome outcome = run_matrix(operation, {two_by_two, wide ? two_by_three : two_by_two});
        reports += by_lines(matrix_report("Two {by} two", outcome, {2026, 1, 2}));
    }
    expect_golden("reg/matrices.rtf", reports);
}

} // namespace
} // namespace kelvarin::test

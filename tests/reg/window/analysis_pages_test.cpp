// SPDX-License-Identifier: MIT
// Analysis, scatter graphs and matrices in the window of data tables, used as a person does.

#include "graph/window/frmGraph.h"
#include "reg/window/analysis_plot.h"
#include "reg/window/frmRGT.h"
#include "reg/window/table_grid.h"
#include "support/german_locale.h"
#include "support/problem_desk.h"
#include "support/table.h"
#include "support/tables.h"
#include "support/window_walk.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

namespace kelvarin::test
{
namespace
{

enum page_number
{
    table_alone = 0,
    analysis = 2,
    scatter = 3
};

struct analysis_desk : problem_desk<frmRGT>
{
    explicit analysis_desk(page_number page)
    {
        paste("0\t0\t5\n1\t1\t6\n2\t8\t7\n3\t27\t8\n4\t64\t9\n");
        // As the main window says of the window in front: after a run the keyboard comes back.
        window.set_in_front(true);
        settle();
        show(page);
    }
    void paste(const std::string& text)
    {
        put_on_clipboard(text);
        window.perform(window_command::paste);
    }
    void show(page_number page) const { person.find<QTabBar>("sstMainTable").setCurrentIndex(page); }
    void show_request(int kind) const { person.find<QTabWidget>("sstAnalysis").setCurrentIndex(kind); }
    void select(int row, int column, int rows, int columns) const
    {
        auto& grid = person.find<table_grid>("grdMain");
        grid.setFocus();
        grid.select_block({row - 1, column - 1, rows, columns});
    }
    /// Presses a button, or with an empty name Enter, and waits for the end of what it starts.
    void run(const char* button = "")
    {
        if (*button)
            person.click(button);
        else
            robot::press(Qt::Key_Return);
        EXPECT_TRUE(wait_until([this] { return !window.is_running(); }, 60000));
        settle();
    }
    const std::vector<double>& marks() const { return person.find<analysis_plot>("picAnalysis").marks(); }
};

TEST(AnalysisPage, InterpolatesWithKeysAlone)
{
    analysis_desk desk(analysis);
    EXPECT_EQ(desk.person.text("lblN"), "N = 5");
    EXPECT_EQ(desk.person.find<QComboBox>("cmbDepVar").currentText(), "C02");
    EXPECT_TRUE(desk.person.is_shown("cmdSolve"));
    desk.person.find("cmbDepVar").setFocus();
    for (int i = 0; i < 20 && !desk.person.find("txtIndepVal").hasFocus(); ++i)
        robot::press(Qt::Key_Tab);
    ASSERT_TRUE(desk.person.find("txtIndepVal").hasFocus());
    robot::keys("3");
    desk.run();
    EXPECT_EQ(desk.person.text("txtDepVal"), "27");
    EXPECT_EQ(desk.person.text("lblErr"), "Err = 0.000E00");
    EXPECT_EQ(desk.person.text("lblDev"), "Dev = 0.00%");
    EXPECT_FALSE(desk.person.is_shown("lblWarning"));
    EXPECT_EQ(desk.person.text("lblOthers"), "SPLINT = 27     LINEAR = 27");
    EXPECT_EQ(desk.marks(), std::vector{3.0});
    EXPECT_TRUE(desk.person.find("txtIndepVal").hasFocus());

    robot::keys(".5");
    EXPECT_EQ(desk.person.text("txtDepVal"), "") << "a change of the value clears its result";
    EXPECT_FALSE(desk.person.is_shown("lblDev"));
    desk.person.choose("cmbInterpolationMethod", "LINEAR");
    desk.run("cmdSolve");
    EXPECT_EQ(desk.person.text("txtDepVal"), "45.5");
    EXPECT_FALSE(desk.person.is_shown("lblErr"));
    desk.person.choose("cmbInterpolationMethod", "SPLINT");
    EXPECT_EQ(desk.person.text("txtDepVal"), "");
}

TEST(AnalysisPage, DifferentiatesAndIntegrates)
{
    const german_locale german;
    analysis_desk desk(analysis);
    desk.show_request(1);
    EXPECT_EQ(desk.person.text("lblDFDX"), "d (C02) / d C01");
    desk.person.type("txtIndepVarValue", "2.5");
    desk.person.choose("cmbDifferentiationMethod", "LAGRANGE");
    desk.run("cmdSolve");
    EXPECT_EQ(desk.person.text("txtDiffResult"), "18.75");
    desk.show_request(2);
    desk.person.choose("cmbDepVar", "C03");
    EXPECT_EQ(desk.person.text("lblFDX"), "Integral of C03 d C01");
    desk.person.choose("cmbDepVar", "C02");
    desk.person.choose("cmbIntegrationMethod", "SIMPSON");
    desk.person.type("txtLowInteg", "4");
    desk.person.type("txtHighInteg", "0");
    desk.run("cmdSolve");
    EXPECT_EQ(desk.person.text("txtIntegResult"), "-64");
    EXPECT_EQ(desk.marks(), (std::vector{4.0, 0.0}));
}

TEST(AnalysisPage, RefusalsAreBoxesAndTheFieldKeepsTheKeyboard)
{
    analysis_desk desk(analysis);
    desk.person.type("txtIndepVal", "4.1");
    desk.user.expect_box("Independent variable value must be inside the range where x data is available.");
    desk.run();
    EXPECT_TRUE(desk.person.find("txtIndepVal").hasFocus());
    EXPECT_EQ(desk.person.find<QLineEdit>("txtIndepVal").selectedText(), "4.1");
    desk.person.choose("cmbDepVar", "C01");
    desk.person.choose("cmbIndepVar", "C02");
    EXPECT_EQ(desk.person.text("lblN"), "N = 5");
    desk.show(table_alone);
    desk.select(2, 2, 1, 1);
    desk.paste("0");
    desk.show(analysis);
    EXPECT_TRUE(desk.person.find<analysis_plot>("picAnalysis").is_empty());
    desk.user.expect_box("Duplicate values not allowed in x vector (0).");
    desk.run("cmdSolve");
}

TEST(AnalysisPage, TellsOnceThatItListsTwoHundredColumns)
{
    analysis_desk desk(table_alone);
    std::string names, cells;
    for (int column = 1; column <= 201; ++column) {
        const std::string end = column < 201 ? "\t" : "\r\n";
        names += "c" + std::to_string(column) + end;
        cells += std::to_string(column) + end;
    }
    desk.window.perform(window_command::undo);
    desk.open_text("Wide\r\n2 201\r\n" + names + cells + cells + "*\r\n\r\n\r\n");
    desk.user.expect_box("Internal Error trapped.  (Subscript out of range). ");
    desk.show(analysis);
    EXPECT_TRUE(desk.user.is_done());
    EXPECT_EQ(desk.person.find<QComboBox>("cmbIndepVar").count(), 200);
    desk.show(table_alone);
    desk.show(analysis);
}

TEST(AnalysisPage, ALongRequestLeavesTheWindowAliveAndCanBeStopped)
{
    analysis_desk desk(table_alone);
    std::string rows;
    for (int i = 0; i < 20000; ++i)
        rows += std::to_string(i) + "\t" + std::to_string(i % 7) + "\n";
    desk.select(1, 1, 1, 1);
    desk.paste(rows);
    desk.show(analysis);
    desk.show_request(2);
    desk.person.type("txtLowInteg", "1");
    desk.person.type("txtHighInteg", "19000");
    desk.person.click("cmdSolve");
    ASSERT_TRUE(desk.window.is_running());
    EXPECT_FALSE(desk.person.find("txtLowInteg").isEnabled());
    desk.window.perform(window_command::stop);
    EXPECT_TRUE(wait_until([&] { return !desk.window.is_running(); }, 5000));
    settle();
    EXPECT_EQ(desk.person.text("txtIntegResult"), "");
    EXPECT_TRUE(desk.person.find("txtLowInteg").isEnabled());
}

TEST(AnalysisPage, TableOfValuesFillsTwoFreeColumnsAsOneStep)
{
    analysis_desk desk(analysis);
    desk.person.choose("cmbInterpolationMethod", "LINEAR");
    desk.user.expect_input("How many points? (2-10000)", "9");
    desk.run("cmdTableOfValues");
    const table_content& content = desk.content();
    EXPECT_EQ(content.name(3), "C01_table");
    EXPECT_EQ(content.name(4), "C02_LINEAR");
    EXPECT_EQ(cells_of(content, 3, 10), "0 0.5 1 1.5 2 2.5 3 3.5 4 _");
    EXPECT_EQ(cells_of(content, 4, 10), "0 0.5 1 4.5 8 17.5 27 45.5 64 _");
    EXPECT_FALSE(desk.window.document().problem_saved());
    desk.window.perform(window_command::undo);
    EXPECT_EQ(desk.content().name(3), "C04");
    EXPECT_EQ(cells_of(desk.content(), 4, 2), "_ _");
}

TEST(ScatterPage, OpensAGraphOfTheChosenColumns)
{
    analysis_desk desk(scatter);
    desk.person.find<QListWidget>("lstGraphYVars").setCurrentRow(1);
    robot::press(Qt::Key_Down, Qt::ShiftModifier);
    desk.person.find("lstGraphYVars").setFocus();
    robot::press(Qt::Key_Down, Qt::ShiftModifier);
    desk.person.click("chkConnected");
    desk.person.click("cmdSolve");
    auto* graph = dynamic_cast<frmGraph*>(desk.frame.active_child());
    ASSERT_NE(graph, nullptr);
    const graph_content& drawn = graph->document().content();
    EXPECT_EQ(drawn.caption, "Scatter points graph");
    ASSERT_EQ(drawn.curve_count(), 2U);
    EXPECT_EQ(drawn.columns[1].name, "C02");
    EXPECT_FALSE(drawn.scatter_connected);
    EXPECT_TRUE(drawn.draw_points);
}

TEST(MatrixMenu, StoresSelectionsAndReportsResults)
{
    analysis_desk desk(table_alone);
    const QMenu& menu = desk.menu("Matrix");
    const QMenu& solve = *robot::item_of(menu, "mnuMatrixItem_3")->menu();
    const auto enabled = [&] {
        std::string flags;
        for (const QAction* item : solve.actions())
            flags += item->isEnabled() ? '1' : '0';
        return flags;
    };
    EXPECT_EQ(enabled(), "000000");
    desk.select(1, 1, 2, 2);
    desk.choose("Matrix", "mnuMatrixItem_1");
    EXPECT_EQ(enabled(), "100011");
    EXPECT_EQ(desk.person.text("lblHint"), "Matrix A: 2 rows, 2 columns");
    desk.select(1, 1, 3, 1);
    desk.choose("Matrix", "mnuMatrixItem_2");
    EXPECT_EQ(enabled(), "111111");
    desk.user.expect_box("The numberof rows in matrix B are not equal to the number of columns in matrix A");
    desk.person.trigger(solve, "A x B");
    // (0 0; 1 1) is singular: the report holds the rank all the same.
    desk.user.expect_box("Singular matrix.");
    desk.person.trigger(solve, "Explore A");
    ASSERT_EQ(desk.window.reports().size(), 1U);
    EXPECT_EQ(desk.window.reports()[0].caption, "Matrix Calculations");
    EXPECT_NE(desk.window.reports()[0].rich_text.find("Rank [A] = 1"), std::string::npos);
    desk.show(analysis);
    EXPECT_FALSE(menu.menuAction()->isVisible());
}

TEST(AnalysisPage, ControlsAreNamedAndWhole)
{
    analysis_desk desk(analysis);
    for (const page_number page : {analysis, scatter}) {
        desk.show(page);
        for (int kind = 0; kind < 3; ++kind) {
            desk.show_request(kind);
            settle();
            EXPECT_EQ(faults_of(desk.window, desk.window.menus()), std::vector<std::string>());
        }
    }
}

} // namespace
} // namespace kelvarin::test

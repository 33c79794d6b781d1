// SPDX-License-Identifier: MIT
// The page of regressions, used as a person does.

#include "desktop/expression_edit.h"
#include "graph/window/frmGraph.h"
#include "reg/window/frmRGT.h"
#include "reg/window/table_grid.h"
#include "support/problem_desk.h"
#include "support/window_walk.h"

#include <QComboBox>
#include <QListWidget>
#include <QMenu>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>
#include <QTest>

namespace kelvarin::test
{
namespace
{

using captions = std::vector<std::string>;

struct regression_desk : problem_desk<frmRGT>
{
    /// y = 2 - 3 x + x^2 in the second column, on the page of a regression.
    explicit regression_desk(int page)
    {
        put_on_clipboard("0\t2\t5\n1\t0\t5\n2\t0\t7\n3\t2\t7\n4\t6\t8\n");
        window.perform(window_command::paste);
        person.find<QTabBar>("sstMainTable").setCurrentIndex(1);
        person.find<QTabWidget>("sstReg").setCurrentIndex(page);
    }

    void enter_model(const std::string& text)
    {
        person.click("cmdEnterNLR");
        const robot in_dialog(top_window("frmREGnlr"));
        in_dialog.choose("cmbDepVar", "C02");
        in_dialog.find("txtModel").setFocus();
        robot::keys(text);
        in_dialog.click("cmdDone");
        settle();
    }

    /// Solves and waits; the captions of the windows that came.
    captions solve()
    {
        const std::size_t before = frame.children().size();
        to_front();
        person.click("cmdSolve");
        EXPECT_TRUE(wait_until([this] { return !window.is_running(); }, 60000));
        settle();
        captions came;
        for (const child_window* child : frame.children())
            came.push_back(child->windowTitle().toStdString());
        came.erase(came.begin(), came.begin() + static_cast<std::ptrdiff_t>(before));
        // The number of the run depends on the runs before it.
        for (std::string& caption : came)
            if (const std::size_t mark = caption.find('#'); mark != std::string::npos)
                caption.erase(mark + 1, caption.find_first_of(".[", mark) - mark - 1);
        return came;
    }

    QStringList items(const char* list) const
    {
        QStringList texts;
        const auto& shown = person.find<QListWidget>(list);
        for (int i = 0; i < shown.count(); ++i)
            texts.append(shown.item(i)->text());
        return texts;
    }
};

TEST(RegressionPage, PolynomialsOpenGraphsAndAReportAndFillAColumn)
{
    regression_desk desk(0);
    EXPECT_EQ(desk.person.text("lblPolyIntegx2"), "C012 = ");
    EXPECT_FALSE(desk.person.is_enabled("txtPolyIntegx1"));
    EXPECT_EQ(desk.items("lstPolDegree"), (QStringList{" 1 Linear", " 2", " 3", " 4"}));
    desk.person.click("chkPolOrigin");
    EXPECT_EQ(desk.items("lstPolDegree").size(), 5);
    desk.person.click("chkPolOrigin");
    auto& degrees = desk.person.find<QListWidget>("lstPolDegree");
    EXPECT_TRUE(degrees.item(0)->isSelected());
    degrees.item(1)->setSelected(true);
    for (const char* box : {"chkGraph", "chkResiduals", "chkAddModelCol"})
        desk.person.click(box);
    EXPECT_EQ(desk.person.find<QComboBox>("cmbModelCol").currentText(), "C04");
    EXPECT_EQ(
        desk.solve(),
        (captions{"Polynomial Regression Graph, Solution #.1[*]", "Polynomial Regression Residuals, Solution #.1[*]",
                  "Polynomial Regression Graph, Solution #.2[*]", "Polynomial Regression Residuals, Solution #.2[*]",
                  "Polynomial Regression Report, Solution #[*]"}));
    EXPECT_EQ(desk.content().formula(3), "2-3*C01+1*C01^2");
    EXPECT_EQ(desk.content().cells.text(4, 3), "6");
    // The formula follows a cell: a digit behind the 4 makes it 45, and 2 - 3 * 45 + 45^2 is 1892.
    desk.person.find<QTabBar>("sstMainTable").setCurrentIndex(0);
    desk.to_front();
    desk.person.find<table_grid>("grdMain").set_current_cell(4, 0);
    desk.person.find("grdMain").setFocus();
    robot::keys("5");
    robot::press(Qt::Key_Return);
    EXPECT_EQ(desk.content().cells.text(4, 3), "1892");
    desk.window.perform(window_command::undo);
    desk.window.perform(window_command::undo);
    EXPECT_EQ(desk.content().formula(3), "");
}

TEST(RegressionPage, BandsAreAddedToTheGraphOnRequest)
{
    regression_desk desk(0);
    desk.person.click("chkGraph");
    desk.solve();
    // The report came behind it.
    auto& graph = dynamic_cast<frmGraph&>(*desk.frame.children().at(1));
    EXPECT_EQ(graph.document().content().curve_count(), 1U);
    QAction& bands = *graph.findChild<QAction*>("mnuShowBands");
    bands.trigger();
    ASSERT_EQ(graph.document().content().curve_count(), 5U);
    EXPECT_EQ(graph.document().content().columns[5].name, "C02 95% prediction upper");
    EXPECT_FALSE(bands.isEnabled()) << "they are there";
    graph.perform(window_command::undo);
    EXPECT_TRUE(bands.isEnabled());
}

TEST(RegressionPage, AClickedPointSelectsItsRowAndModelsAreCompared)
{
    regression_desk desk(0);
    auto& degrees = desk.person.find<QListWidget>("lstPolDegree");
    degrees.item(1)->setSelected(true);
    desk.solve();
    const std::size_t before = desk.frame.children().size();
    desk.person.trigger(desk.person.find<QMenu>("mnuDiagnostics"), "mnuAllDiagnostics");
    ASSERT_TRUE(wait_until([&] { return desk.frame.children().size() == before + 5; }, 60000));
    auto& leverage = dynamic_cast<frmGraph&>(*desk.frame.children().back());
    EXPECT_EQ(leverage.document().content().x_title, "row");
    auto& picture = *leverage.findChild<graph_view*>("PicGraph");
    const graph_content& drawn = leverage.document().content();
    const drawn_point at = picture.drawing().mapping->at(4.0, drawn.columns[1].values[3]);
    QTest::mouseClick(&picture, Qt::LeftButton, {}, (QPointF(at.x, at.y) / 0.75).toPoint());
    const cell_range selected = desk.person.find<table_grid>("grdMain").selected_block();
    EXPECT_EQ(selected.row, 3);
    EXPECT_EQ(selected.rows, 1);
    EXPECT_EQ(selected.columns, desk.content().columns());
    const QMenu& others = desk.person.find<QMenu>("mnuCompareModels");
    ASSERT_EQ(others.actions().size(), 1);
    const frmSolution& compared = desk.report_of([&] { others.actions().front()->trigger(); });
    EXPECT_NE(compared.plain_text().find("a2*C01^2 is better"), std::string::npos);
}

TEST(RegressionPage, ALongFitIsStopped)
{
    // Tens of thousands of rows, and a model that can not follow them.
    regression_desk desk(2);
    std::string cells, model = "a+b*C01";
    for (int row = 0; row < 30000; ++row)
        cells += std::to_string(row % 97) + "\t" + std::to_string(row % 89) + "\n";
    for (int term = 0; term < 8; ++term)
        model += "+sin(a*C01)*exp(-b)";
    desk.put_on_clipboard(cells);
    desk.window.perform(window_command::paste);
    desk.enter_model(model);
    desk.to_front();
    desk.person.find("grdNlrGuess").setFocus();
    for (const char* guess : {"1", "2"}) {
        robot::keys(guess);
        robot::press(Qt::Key_Return);
    }
    const table_content before = desk.content();
    desk.person.click("cmdSolve");
    ASSERT_TRUE(wait_until([&] { return desk.window.fraction_done() > 0.0; }, 60000));
    desk.user.expect_box("Calculations aborted.");
    robot::press(Qt::Key_Escape);
    ASSERT_TRUE(wait_until([&] { return !desk.window.is_running() && desk.user.is_done(); }, 60000));
    EXPECT_EQ(desk.content(), before);
    EXPECT_EQ(desk.frame.children().size(), 1U) << "no report";
    EXPECT_TRUE(desk.person.is_enabled("cmdSolve"));
}

TEST(RegressionPage, AnExampleIsFittedInAFewActions)
{
    regression_desk desk(0);
    desk.user.expect_question("Data table not saved. Do you wish to save it now ?", user_answer::no);
    desk.person.find<QTabBar>("sstMainTable").setCurrentIndex(0);
    desk.choose("Samples", "mnuSamplesItem_2");
    desk.person.find<QTabBar>("sstMainTable").setCurrentIndex(1);
    EXPECT_EQ(desk.solve(), (captions{"Linear Regression Report, Solution #[*]"}));
}

TEST(RegressionPage, ListsFollowTheTableAndTheChoices)
{
    regression_desk desk(1);
    EXPECT_EQ(desk.person.text("cmbMLDepVar"), "C02");
    EXPECT_EQ(desk.items("lstMLIndepVars"), (QStringList{"C01", "C03"}));
    desk.person.choose("cmbMLDepVar", "C01");
    EXPECT_EQ(desk.items("lstMLIndepVars"), (QStringList{"C02", "C03"}));
    desk.window.perform(window_command::undo);
    EXPECT_EQ(desk.items("lstMLIndepVars"), QStringList());
    desk.window.perform(window_command::redo);
    desk.person.choose("cmbMLDepVar", "C02");
    EXPECT_EQ(desk.solve(), (captions{"Multiple Linear Report, Solution #[*]"}));
    desk.person.find<QListWidget>("lstMLIndepVars").clearSelection();
    desk.user.expect_box("Invalid data entry : \rUser must select at least one independent variables.");
    EXPECT_EQ(desk.solve(), captions());
}

TEST(RegressionPage, AModelIsEnteredGuessedAndFitted)
{
    regression_desk desk(2);
    EXPECT_EQ(desk.person.text("lblModelVars"), "unknown");
    desk.user.expect_box("Dependent variable can not be part of the model text (C02).");
    desk.enter_model("a+b*C01+C02");
    const robot in_dialog(top_window("frmREGnlr"));
    in_dialog.click("cmdClear");
    desk.user.expect_box("No regression model was entered.");
    in_dialog.click("cmdDone");
    in_dialog.find<expression_edit>("txtModel").set_expression("a+b*C01+c*C01^2");
    in_dialog.click("cmdDone");
    settle();
    desk.to_front();
    EXPECT_EQ(desk.person.text("txtNoneLinearModel"), "C02 = a+b*C01+c*C01^2");
    EXPECT_EQ(desk.person.text("lblnDependentVars"), "C01");
    EXPECT_EQ(desk.person.text("lblModelVars"), "a, b, c");
    EXPECT_FALSE(desk.window.document().problem_saved());
    // Three guesses, typed as into a spreadsheet; letters are no numbers.
    desk.person.find("grdNlrGuess").setFocus();
    for (const char* typed : {"1", "-x2e"}) {
        // The first key opens the editor, to which the others go.
        robot::keys(std::string(1, typed[0]));
        robot::keys(typed + 1);
        robot::press(Qt::Key_Return);
        settle();
    }
    EXPECT_EQ(desk.content().guesses.at(1).value, "-2");
    desk.user.expect_box("Invalid data entry : \rInvalid numeric format for 'c' initial guess");
    EXPECT_EQ(desk.solve(), captions());
    desk.person.find("grdNlrGuess").setFocus();
    robot::keys("3");
    desk.person.choose("cmbNLRMethod", "L-M");
    desk.person.click("chkGraph");
    EXPECT_EQ(desk.solve(), (captions{"Nonlinear Graph, Solution #[*]", "Nonlinear Report #[*]"}));
    const frmSolution& polished = desk.report_of([&] { desk.choose("Last fit", "mnuPolish"); });
    EXPECT_NE(polished.plain_text().find("no step changes it any more"), std::string::npos);
    const frmSolution& more = desk.report_of([&] { desk.choose("Last fit", "mnuMoreStatistics"); });
    EXPECT_NE(more.plain_text().find("What to doubt"), std::string::npos);
    EXPECT_EQ(desk.content().guesses.at(2).value, "3") << "the guess still being typed counts";
}

TEST(RegressionPage, AModelWithAFaultIsRefused)
{
    regression_desk desk(2);
    // The name of a variable can not begin with a digit.
    desk.user.expect_box("Syntax Error: invalid number '2b'");
    desk.enter_model("a+2b*C01");
    top_window("frmREGnlr").close();
    desk.to_front();
    // A file may bring more parameters than fit.
    std::string model = "y = x", guesses;
    for (int j = 1; j <= 61; ++j) {
        model += "+b" + std::to_string(j);
        guesses += "b" + std::to_string(j) + "=1\t";
    }
    desk.user.expect_question("Data table not saved. Do you wish to save it now ?", user_answer::no);
    desk.open_text("Many\n2 2 \nx\ty\n1\t2\n2\t3\n*\n" + model + "\n" + guesses + "\n");
    desk.person.find<QTabBar>("sstMainTable").setCurrentIndex(1);
    desk.person.find<QTabWidget>("sstReg").setCurrentIndex(2);
    desk.user.expect_box("Error: Subscript out of range");
    EXPECT_EQ(desk.solve(), captions());
}

TEST(RegressionPage, NothingIsCutOrWithoutName)
{
    for (int page = 0; page < 3; ++page) {
        regression_desk desk(page);
        settle();
        EXPECT_EQ(faults_of(desk.window, desk.window.menus()), captions()) << page;
    }
}

} // namespace
} // namespace kelvarin::test

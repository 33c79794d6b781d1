// SPDX-License-Identifier: MIT
// The window of data tables, used as a person does.

#include "reg/table/typing_rules.h"
#include "reg/window/frmRGT.h"
#include "reg/window/table_grid.h"
#include "support/problem_desk.h"
#include "support/table.h"
#include "support/tables.h"
#include "support/window_walk.h"

#include <QApplication>
#include <QHeaderView>
#include <QTabBar>
#include <QTest>

namespace kelvarin::test
{
namespace
{

struct table_desk : problem_desk<frmRGT>
{
    table_grid& grid() const { return person.find<table_grid>("grdMain"); }
    void click_cell(int row, int column) const
    {
        const QModelIndex cell = grid().model()->index(row - 1, column - 1);
        grid().scrollTo(cell);
        QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, grid().visualRect(cell).center());
    }
    std::string cells(int column, int rows = 4) const
    {
        return cells_of(window.document().content(), column - 1, rows);
    }
    std::string place() const { return person.text("lblGridCellPos"); }
    void paste(const std::string& text)
    {
        put_on_clipboard(text);
        window.perform(window_command::paste);
    }
    void define(const std::string& formula)
    {
        choose("Columns", "mnuColsItem_6");
        QWidget& dialog = top_window("frmColTranspose");
        const robot in_dialog(dialog);
        in_dialog.find("txtTranspose").setFocus();
        robot::keys(formula);
        in_dialog.click("cmdOk");
        in_dialog.click("cmdExit");
        settle();
        to_front();
    }
};

TEST(DataTable, ColumnIsTypedWithKeysAlone)
{
    table_desk desk;
    EXPECT_EQ(desk.place(), " R001 : C001 = ");
    EXPECT_NE(desk.person.text("lblHint").find("paste cells"), std::string::npos);
    robot::keys("1x2\n-1.5e\n3");
    EXPECT_EQ(desk.cells(1), "12 -1.5 3 _");
    EXPECT_EQ(desk.person.text("txtGridCell"), "3");
    EXPECT_TRUE(desk.person.is_shown("imgXV_0"));
    robot::press(Qt::Key_Tab);
    EXPECT_FALSE(desk.person.is_shown("imgXV_0"));
    EXPECT_EQ(desk.place(), " R003 : C002 = ");
    robot::keys("7");
    robot::press(Qt::Key_Tab);
    robot::press(Qt::Key_Left);
    robot::press(Qt::Key_Delete);
    EXPECT_EQ(desk.cells(2), "_ _ _ _");
    desk.window.perform(window_command::undo);
    EXPECT_EQ(desk.cells(2), "_ _ 7 _");
    robot::press(Qt::Key_Backspace);
    robot::press(Qt::Key_Escape);
    EXPECT_EQ(desk.cells(2), "_ _ 7 _") << "Esc gives the typing up";
}

TEST(DataTable, MovesAsASpreadsheetDoes)
{
    table_desk desk;
    desk.paste("1\t2\n3\t4\n\t\n5\t6\n");
    using presses = std::vector<std::pair<Qt::Key, Qt::KeyboardModifiers>>;
    constexpr auto ctrl = Qt::ControlModifier;
    const table<presses, const char*> ways = {
        {{{Qt::Key_Down, ctrl}}, " R002 : C001 = "},
        {{{Qt::Key_Down, ctrl}, {Qt::Key_Down, ctrl}}, " R004 : C001 = "},
        {{{Qt::Key_Down, ctrl}, {Qt::Key_Down, ctrl}, {Qt::Key_Down, ctrl}}, " R300 : C001 = "},
        {{{Qt::Key_Right, ctrl}}, " R001 : C002 = "},
        {{{Qt::Key_End, {}}}, " R001 : C002 = "},
        {{{Qt::Key_End, {}}, {Qt::Key_Home, {}}}, " R001 : C001 = "},
        {{{Qt::Key_End, ctrl}}, " R300 : C030 = "},
        {{{Qt::Key_End, ctrl}, {Qt::Key_Home, ctrl}}, " R001 : C001 = "},
        {{{Qt::Key_End, ctrl}, {Qt::Key_Return, {}}}, " R300 : C030 = "},
    };
    for (const auto& [keys, place] : ways) {
        desk.click_cell(1, 1);
        for (const auto& [key, modifiers] : keys)
            robot::press(key, modifiers);
        EXPECT_EQ(desk.place(), place);
    }
    desk.click_cell(1, 1);
    robot::press(Qt::Key_Down, Qt::ShiftModifier);
    robot::press(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(desk.person.text("lblSelection"), "Count: 4   Sum: 10   Mean: 2.5");
}

TEST(DataTable, TheLineAboveEditsTheCell)
{
    table_desk desk;
    robot::press(Qt::Key_F2);
    EXPECT_TRUE(desk.person.find("txtGridCell").hasFocus());
    robot::keys("1.50");
    EXPECT_EQ(desk.cells(1), "1.5 _ _ _");
    robot::press(Qt::Key_Return);
    EXPECT_EQ(desk.place(), " R002 : C001 = ");
    EXPECT_TRUE(desk.grid().hasFocus());

    robot::press(Qt::Key_F2);
    robot::keys("12abc");
    EXPECT_EQ(desk.cells(1), "1.5 12 _ _") << "no number leaves the cell as it stood";
    desk.user.expect_question(not_numeric_question, user_answer::cancel);
    desk.person.click("imgXV_1");
    EXPECT_EQ(desk.cells(1), "1.5 _ _ _");
    EXPECT_EQ(desk.user.questions().back().title, "Krelvarin Guide");
    robot::press(Qt::Key_F2);
    robot::keys("12abc");
    desk.user.expect_question(not_numeric_question, user_answer::yes);
    robot::press(Qt::Key_Down);
    EXPECT_EQ(desk.cells(1), "1.5 12 _ _");
    EXPECT_EQ(desk.place(), " R003 : C001 = ");
    robot::press(Qt::Key_F2);
    robot::keys("5");
    robot::press(Qt::Key_Escape);
    EXPECT_EQ(desk.cells(1), "1.5 12 _ _");
    EXPECT_TRUE(desk.grid().hasFocus());
}

TEST(DataTable, FormulaColumnsAreDefinedFollowAndCanNotBeTyped)
{
    table_desk desk;
    desk.paste("1\n2\n3\n");
    desk.click_cell(1, 2);
    desk.define("2*C01");
    EXPECT_EQ(desk.cells(2), "2 4 6 _");
    desk.click_cell(2, 1);
    robot::keys("0\n");
    EXPECT_EQ(desk.cells(2), "2 40 6 _");
    desk.click_cell(1, 2);
    robot::keys("9");
    EXPECT_EQ(desk.cells(2), "2 40 6 _");
    EXPECT_FALSE(desk.person.is_shown("txtGridCell"));
    EXPECT_EQ(desk.person.text("lblFormula"), "2*C01");
    const QVariant head = desk.grid().model()->headerData(1, Qt::Horizontal, Qt::FontRole);
    EXPECT_TRUE(head.value<QFont>().underline());

    desk.click_cell(1, 1);
    desk.user.expect_input("Enter column name.", "x");
    desk.choose("Columns", "mnuColsItem_7");
    EXPECT_EQ(desk.window.document().content().formula(1), "2*x");
    desk.user.expect_input("Enter column name.", "C02");
    desk.user.expect_box("Error: Column name must be unique.");
    desk.choose("Columns", "mnuColsItem_7");

    desk.user.expect_input("8 < n < 22", "30");
    desk.user.expect_box("Numer of digits must be in the interval: 8 < n < 22");
    desk.choose("Format", "mnuFormatItem_4");

    // What a menu switches off is reached by its key and passes the column over.
    desk.grid().selectAll();
    QMenu& edit = desk.menu("Edit");
    emit edit.aboutToShow();
    EXPECT_FALSE(robot::item_of(edit, "mnuEditItem_3")->isEnabled());
    emit edit.aboutToHide();
    EXPECT_TRUE(robot::item_of(edit, "mnuEditItem_3")->isEnabled());
    robot::press(Qt::Key_Delete);
    EXPECT_EQ(desk.cells(1) + desk.cells(2), "_ _ _ __ _ _ _");
}

TEST(DataTable, TheDialogSaysWhyAFormulaIsRefused)
{
    table_desk desk;
    desk.choose("Columns", "mnuColsItem_6");
    QWidget& dialog = top_window("frmColTranspose");
    const robot in_dialog(dialog);
    EXPECT_EQ(faults_of(dialog), std::vector<std::string>());
    robot::keys("C01+1");
    desk.user.expect_box("Circular column definitions not allowed.");
    in_dialog.click("cmdOk");
    auto& names = in_dialog.find<QComboBox>("cmbCol");
    names.setEditText(QStringLiteral("2x"));
    desk.user.expect_box("Error: The variable name must start with a letter and may contain only a combination of "
                         "letters, numbers and \"_\" sign.");
    desk.user.expect_box("Column definition was not changed.");
    in_dialog.click("cmdOk");
    names.setEditText(QStringLiteral("y"));
    in_dialog.find("txtTranspose").setFocus();
    robot::press(Qt::Key_A, Qt::ControlModifier);
    robot::keys("7");
    in_dialog.click("cmdOk");
    EXPECT_EQ(desk.window.document().content().name(0), "y");
    EXPECT_EQ(desk.cells(1, 2), "7 7");
    in_dialog.click("cmdClear");
    EXPECT_FALSE(desk.window.document().content().has_formula(0));
    desk.user.expect_question("All formulas for column transpose will be deleted. Do you want to continue ?",
                              user_answer::no);
    in_dialog.click("cmdClearMemory");
    in_dialog.click("cmdExit");
}

TEST(DataTable, PastesAndSaysWhatDoesNotFit)
{
    table_desk desk;
    desk.user.expect_question("The pasted numbers have decimal commas. Do you want decimal points instead ?\r"
                              "'1,5' becomes '1.5'",
                              user_answer::yes);
    desk.paste("1,5\t2\r\n3,25\t4\r\n");
    EXPECT_EQ(desk.cells(1), "1.5 3.25 _ _");
    EXPECT_EQ(desk.person.text("lblSelection"), "Count: 4   Sum: 10.75   Mean: 2.6875");
    desk.user.expect_box("Invalid numerical data cells were detected.");
    desk.paste("abc");
    EXPECT_NE(desk.person.text("lblHint").find("'abc' is not a number."), std::string::npos);
    desk.window.perform(window_command::undo);
    EXPECT_EQ(desk.cells(1), "1.5 3.25 _ _");

    desk.click_cell(1, 1);
    desk.choose("Rows", "mnuRowsItem_3");
    EXPECT_EQ(desk.cells(1), "_ 1.5 3.25 _");
    desk.choose("Rows", "mnuRowsItem_4");
    desk.user.expect_input("How many columns to add? (1-20)", "21");
    desk.user.expect_input("How many columns to add? (1-20)", "2");
    desk.choose("Columns", "mnuColsItem_4");
    EXPECT_EQ(desk.window.document().content().columns(), 32);
    desk.grid().select_block({0, 0, 2, 2});
    desk.choose("Edit", "mnuEditItem_5");
    EXPECT_EQ(desk.user.copied_text(), QStringLiteral("C01\tC02\r\n1.5\t2\r\n3.25\t4"));
    desk.user.expect_question("Data values may change or loose accuracy ! Do you want to continue ?", user_answer::yes);
    desk.choose("Format", "mnuFormatItem_6");
    EXPECT_EQ(desk.cells(1), "1.500 3.250 _ _");
    desk.choose("File", "mnuFileItem_Copy");
    EXPECT_TRUE(
        desk.user.copied_text().startsWith(QStringLiteral("\r\nKelvarin Data Table\r\nNo Title \r\nC01\tC02\r\n")));
}

TEST(DataTable, IsSavedReopenedAndAskedAbout)
{
    table_desk desk;
    robot::keys("5\n6\n");
    desk.user.expect_input("Enter problem title.", "Measured");
    desk.choose("Edit", "mnuEditItem_6");
    desk.user.expect_file(chosen_file{desk.folder / "m.kvr"});
    ASSERT_TRUE(desk.window.save());
    EXPECT_EQ(desk.user.file_questions().back().caption, QStringLiteral("Save table File"));
    EXPECT_EQ(desk.folder.read("m.kvr"), "Measured\r\n2 1\r\nC01\r\n5\r\n6\r\n*\r\n\r\n\r\n");
    EXPECT_EQ(desk.open_again("m.kvr").document().content(), desk.content());

    desk.to_front();
    ASSERT_TRUE(desk.window.document().problem_saved());
    robot::press(Qt::Key_F2);
    robot::keys("x");
    robot::press(Qt::Key_Escape);
    EXPECT_FALSE(desk.window.document().problem_saved()) << "a key in the line counts, though the cell stayed";
    robot::keys("7");
    desk.user.expect_question("Data table not saved. Do you wish to save it now ?", user_answer::cancel);
    desk.choose("File", "mnuFileItem_New");
    EXPECT_EQ(desk.cells(1), "5 6 7 _");
    desk.user.expect_question("Data table not saved. Do you wish to save it now ?", user_answer::no);
    desk.choose("File", "mnuFileItem_New");
    EXPECT_EQ(desk.cells(1), "_ _ _ _");
    EXPECT_TRUE(desk.window.document().is_blank());

    desk.choose("Samples", "mnuSamplesItem_4");
    desk.choose("Columns", "mnuColsItem_9");
    const auto* report = dynamic_cast<frmSolution*>(desk.frame.children().back());
    ASSERT_TRUE(report);
    EXPECT_NE(report->plain_text().find("Column name        :  hard_heat"), std::string::npos);
    desk.to_front();
    robot::keys("1");
    desk.user.expect_question("Data table not saved. Do you want to save it before closing ?", user_answer::no);
    EXPECT_TRUE(desk.window.close_with_frame());
}

TEST(DataTable, ResultsOfARunKeepTheirCaptionUntilAnotherTableComes)
{
    table_desk desk;
    named_columns points({"t", "x"});
    points.columns = {{0, 1}, {5, 6}};
    desk.window.show_points(points, "Tank", QStringLiteral("ODE Results: Tank, Solution #1"));
    const auto begins = [&](const char* caption) {
        return desk.window.windowTitle().startsWith(QLatin1String(caption));
    };
    EXPECT_TRUE(begins("ODE Results: Tank, Solution #1"));
    robot::keys("7\n");
    EXPECT_TRUE(begins("ODE Results: Tank, Solution #1")) << desk.window.windowTitle().toStdString();
    desk.user.expect_question("Data table not saved. Do you wish to save it now ?", user_answer::no);
    desk.choose("File", "mnuFileItem_New");
    EXPECT_TRUE(begins("Data Table")) << desk.window.windowTitle().toStdString();
}

TEST(DataTable, HasNoFaultsOfLayout)
{
    table_desk desk;
    desk.choose("Samples", "mnuSamplesItem_2");
    for (int tab = 0; tab < 4; ++tab) {
        desk.person.find<QTabBar>("sstMainTable").setCurrentIndex(tab);
        settle();
        EXPECT_EQ(faults_of(desk.window, desk.window.menus()), std::vector<std::string>()) << tab;
        EXPECT_EQ(desk.person.is_shown("cmdSolve"), tab != 0);
        EXPECT_EQ(desk.menu("Edit").menuAction()->isVisible(), tab == 0);
        EXPECT_TRUE(desk.person.is_shown("grdMain"));
    }
}

TEST(DataTable, FailuresOfTheClipboardAndThePrinterAreToldByTheTable)
{
    table_desk desk;
    robot::keys("1\n2");
    desk.click_cell(1, 1);
    desk.user.let_clipboard_fail();
    desk.user.expect_box("Error : illegal Edit command.", "Kelvarin GUIDE");
    desk.window.perform(window_command::copy);
    desk.user.expect_box("Error : illegal Edit command.", "Kelvarin GUIDE");
    desk.choose("Edit", "mnuEditItem_5");
    desk.user.expect_box("Error while copying.");
    desk.choose("File", "mnuFileItem_Copy");
    EXPECT_EQ(desk.cells(1), "1 2 _ _");

    // The toolkit warns of a printer that can not begin; here it should.
    const QtMessageHandler before = qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    desk.user.expect_print(desk.folder / "missing/printed.pdf");
    desk.user.expect_box("Error while printing.");
    desk.window.perform(window_command::print);
    qInstallMessageHandler(before);
    EXPECT_TRUE(desk.user.is_done());
}

} // namespace
} // namespace kelvarin::test

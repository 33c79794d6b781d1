// SPDX-License-Identifier: MIT
// Tables come from other programs and go there, as a person does it.

#include "reg/window/frmImport.h"
#include "reg/window/frmRGT.h"
#include "reg/window/table_grid.h"
#include "support/problem_desk.h"
#include "support/tables.h"
#include "support/window_walk.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPlainTextEdit>
#include <QTest>

namespace kelvarin::test
{
namespace
{

struct import_desk : problem_desk<frmRGT>
{
    /// Chooses File, Import and the file; the dialog that comes.
    QWidget& import(const std::string& text, const std::string& name = "measured.csv")
    {
        user.expect_file(chosen_file{folder.write(name, text)});
        choose("File", "mnuFileItem_Import");
        return top_window("frmImport");
    }
    bool finish(QWidget& dialog)
    {
        robot(dialog).click("cmdImport");
        return wait_until([this] { return !window.is_running(); }, 60000);
    }
    std::string cells(int column) const { return cells_of(content(), column, 3); }
};

std::string shown(const table_grid& grid, int row, int column)
{
    return grid.model()->index(row, column).data().toString().toStdString();
}

TEST(Import, ShowsWhatItGuessesAndTakesWhatIsChosen)
{
    import_desk desk;
    QWidget& dialog = desk.import("Time (s);Level\r\n0,5;1,25\r\n1;n/a\r\n");
    const robot in_dialog(dialog);
    EXPECT_EQ(faults_of(dialog), std::vector<std::string>());
    EXPECT_EQ(in_dialog.find<QComboBox>("cmbDelimiter").currentText(), QStringLiteral("Semicolon"));
    EXPECT_EQ(in_dialog.find<QComboBox>("cmbDecimalSign").currentText(), QStringLiteral("Comma: 1,5"));
    EXPECT_TRUE(in_dialog.find<QCheckBox>("chkHeader").isChecked());
    const auto& preview = in_dialog.find<table_grid>("grdPreview");
    EXPECT_EQ(shown(preview, 0, 1), "1.25");
    const auto& notes = in_dialog.find<QPlainTextEdit>("txtNotes");
    EXPECT_TRUE(notes.toPlainText().contains(QStringLiteral("'n/a' in row 2, column Level")))
        << notes.toPlainText().toStdString();
    in_dialog.find<QComboBox>("cmbDecimalSign").setCurrentIndex(0);
    EXPECT_EQ(shown(preview, 0, 1), "1,25");
    in_dialog.find<QComboBox>("cmbDecimalSign").setCurrentIndex(1);
    in_dialog.click("chkHeader");
    EXPECT_EQ(shown(preview, 0, 0), "Time (s)");
    in_dialog.click("chkHeader");

    desk.user.expect_box("1 cell is no number and stays as it is: 'n/a' in row 2, column Level.\r1 name was changed so "
                         "that formulas can use it: 'Time (s)' is Time_s now.");
    ASSERT_TRUE(desk.finish(dialog));
    EXPECT_EQ(desk.cells(0), "0.5 1 _");
    EXPECT_EQ(desk.cells(1), "1.25 n/a _");
    EXPECT_EQ(desk.content().rows(), 300);
    EXPECT_EQ(desk.window.document().title(), "measured");
    EXPECT_TRUE(desk.window.document().path().empty());
    EXPECT_FALSE(desk.window.document().problem_saved());

    desk.user.expect_file(chosen_file{desk.folder / "out.csv", 2});
    desk.choose("File", "mnuFileItem_Export");
    EXPECT_EQ(desk.folder.read("out.csv"), "Time_s;Level\r\n0,5;1,25\r\n1;n/a\r\n");
}

TEST(Import, KeepsTheTableWhenCancelledOrRefused)
{
    import_desk desk;
    robot::keys("7\n");
    desk.user.expect_question("Data table not saved. Do you wish to save it now ?", user_answer::cancel);
    desk.choose("File", "mnuFileItem_Import");
    const auto go_on = [&] {
        desk.user.expect_question("Data table not saved. Do you wish to save it now ?", user_answer::no);
    };
    go_on();
    desk.import("1,2\n");
    robot::press(Qt::Key_Escape);
    settle();
    desk.to_front();
    go_on();
    QWidget& empty = desk.import("");
    EXPECT_FALSE(robot(empty).find("cmdImport").isEnabled());
    robot(empty).click("cmdCancel");
    settle();
    go_on();
    desk.user.expect_file(chosen_file{desk.folder.path()});
    desk.user.expect_box("The file can not be imported: it is a folder.");
    desk.choose("File", "mnuFileItem_Import");
    // What the first lines do not show.
    std::string text;
    for (int row = 0; row < 20'000; ++row)
        text += "1,2,3\n";
    go_on();
    desk.user.expect_box("The file can not be imported: line 20001 has a cell of more than 32767 characters.");
    QWidget& long_file = desk.import(text + std::string(40'000, '9'));
    ASSERT_TRUE(desk.finish(long_file));
    EXPECT_EQ(desk.cells(0), "7 _ _");
}

} // namespace
} // namespace kelvarin::test

// SPDX-License-Identifier: MIT
#include "nle_desk.h"

#include "desktop/link_label.h"
#include "nle/nle_samples.h"

#include <gmock/gmock.h>

#include <QTest>
#include <QTextBrowser>

namespace kelvarin::test
{
namespace
{

using testing::ElementsAre;

const char* const three_rows = "Three |KVRVER05_3\nf(x) = x-a #\nf(y) = y-x #\na = 2 #two\nx(0)=1 p\ny(0)=3 ap\n";

std::string rows_up_to(int count)
{
    std::string text = "Many |KVRVER05_0\n";
    for (int i = 1; i <= count; ++i)
        text += "a" + std::to_string(i) + " = 1 #\n";
    return text;
}

TEST(Editing, RefusesTheEquationBeyondTheLimitAlsoWithFreeRows)
{
    nle_desk desk;
    ASSERT_NO_FATAL_FAILURE(desk.open_text(rows_up_to(199)));
    desk.add_by_mouse({"b", "1"});
    EXPECT_EQ(desk.content().rows.size(), 200u);
    for (const char* button : {"cmdNewRoot", "cmdNewEquation"}) {
        desk.user.expect_box("Kelvarin can not add new equation. Kelvarin can solve up to 200 equations only.");
        desk.person.click(button);
        EXPECT_EQ(desk.user.boxes().back().icon, box_icon::critical);
    }
}

TEST(Editing, AddsEmptyRowsThatNewEquationsFill)
{
    struct row
    {
        std::optional<std::string> given;
        std::string box, title;
        int rows;
    };
    const std::string illegal = "Data input not legal !";
    const row rows[] = {
        {std::nullopt, "", "", 2},
        {"ten", illegal, "Kelvarin GUIDE", 2},
        {"0.5", illegal, "Kelvarin GUIDE", 2},
        {"101", illegal, "Kelvarin GUIDE", 2},
        {"", illegal, "Kelvarin GUIDE", 2},
        {"100", "", "", 101},
        {"100", "Number of rows must be smaller than 200.", guide_title, 101},
        {" 3 ", "", "", 104},
    };
    nle_desk desk;
    desk.add_by_mouse({"a", "1"});
    for (const row& tried : rows) {
        SCOPED_TRACE(tried.given.value_or("cancelled"));
        desk.user.expect_input("How many rows wouldyou like to add ? (value should be between 1-100).Note: total "
                               "number of rows must be smaller than 200.",
                               tried.given);
        if (!tried.box.empty()) desk.user.expect_box(tried.box, tried.title);
        desk.choose("Edit", "mnuAddRows");
        EXPECT_EQ(desk.user.proposed_input(), "10");
        EXPECT_EQ(desk.shown_rows(), tried.rows);
    }
    // An empty row is nothing to edit, move or remove.
    desk.grid().set_current_row(2);
    for (const char* button : {"cmdEdit", "cmdRemove", "cmdUpDwn_0", "cmdUpDwn_1"})
        EXPECT_FALSE(desk.person.is_enabled(button)) << button;
    desk.add_by_mouse({"b", "2"});
    EXPECT_EQ(desk.shown_rows(), 104);
    EXPECT_EQ(desk.cell(2, 1), "b = 2");
    EXPECT_EQ(desk.grid().current_row(), 2);
}

TEST(Editing, RemovesAfterAskingAndNeverTheLastEquation)
{
    nle_desk desk;
    ASSERT_NO_FATAL_FAILURE(desk.open_text(three_rows));
    const std::string sure = "Are you sure you want to remove this equation ?";
    desk.grid().setFocus();
    desk.grid().set_current_row(2);
    desk.user.expect_question(sure, user_answer::no);
    robot::press(Qt::Key_Delete);
    EXPECT_EQ(desk.content().rows.size(), 3u);
    desk.user.expect_question(sure, user_answer::yes);
    desk.person.click("cmdRemove");
    EXPECT_THAT(desk.equations(), ElementsAre("f(x) = x-a", "a = 2"));
    EXPECT_EQ(desk.grid().current_row(), 2);
    desk.user.expect_question(sure, user_answer::yes);
    desk.person.click("cmdRemove");
    desk.user.expect_box("Can not remove last equation.");
    desk.person.click("cmdRemove");
    EXPECT_EQ(desk.user.boxes().back().icon, box_icon::exclamation);
    EXPECT_THAT(desk.equations(), ElementsAre("f(x) = x-a"));
}

TEST(Editing, MovesARowWithItsSelectionAndStopsAtTheEnds)
{
    nle_desk desk;
    ASSERT_NO_FATAL_FAILURE(desk.open_text(three_rows));
    desk.grid().set_current_row(1);
    EXPECT_FALSE(desk.person.is_enabled("cmdUpDwn_0"));
    desk.person.click("cmdUpDwn_1");
    EXPECT_EQ(desk.grid().current_row(), 2);
    desk.grid().setFocus();
    robot::press(Qt::Key_Down, Qt::AltModifier);
    EXPECT_THAT(desk.equations(), ElementsAre("f(y) = y-x", "a = 2", "f(x) = x-a"));
    EXPECT_EQ(desk.grid().current_row(), 3);
    EXPECT_FALSE(desk.person.is_enabled("cmdUpDwn_1"));
    robot::press(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(desk.grid().current_row(), 3);
    EXPECT_EQ(desk.cell(3, 2), "1 p");
    EXPECT_FALSE(desk.window.document().problem_saved());
}

TEST(Editing, ActsOnAllSelectedRowsTogether)
{
    nle_desk desk;
    ASSERT_NO_FATAL_FAILURE(desk.open_text("Four |KVRVER05_0\na = 1 #\nb = 2 #\nc = 3 #\nd = 4 #\n"));
    const auto names = [&] {
        std::string all;
        for (const std::string& equation : desk.equations())
            all += equation.front();
        return all;
    };
    desk.grid().setFocus();
    desk.grid().set_current_row(2);
    // The arrows with Ctrl go to another row as they do alone: the highlighted row is the one that is removed.
    robot::press(Qt::Key_Down, Qt::ControlModifier);
    EXPECT_THAT(desk.grid().selected_rows(), ElementsAre(3));
    robot::press(Qt::Key_Up, Qt::ShiftModifier);
    EXPECT_THAT(desk.grid().selected_rows(), ElementsAre(2, 3));
    desk.person.click("cmdUpDwn_1");
    EXPECT_EQ(names(), "adbc");
    EXPECT_THAT(desk.grid().selected_rows(), ElementsAre(3, 4));
    EXPECT_FALSE(desk.person.is_enabled("cmdUpDwn_1"));
    robot::press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(names(), "abcd");

    desk.grid().setFocus();
    desk.grid().select_rows({1, 2, 4});
    robot::press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(desk.user.copied_text(), "a = 1\tn.a.\nb = 2\tn.a.\nd = 4\tn.a.\n");
    desk.user.expect_question("Are you sure you want to remove these 3 equations ?", user_answer::yes);
    robot::press(Qt::Key_Delete);
    EXPECT_EQ(names(), "c");
    EXPECT_EQ(desk.window.document().undo_step(), "Remove equations");
    robot::press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(names(), "cabd");
    EXPECT_THAT(desk.grid().selected_rows(), ElementsAre(2, 3, 4));
    robot::press(Qt::Key_Z, Qt::ControlModifier);
    robot::press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(names(), "abcd");

    robot::press(Qt::Key_A, Qt::ControlModifier);
    desk.user.expect_box("Can not remove last equation.");
    robot::press(Qt::Key_Delete);
    EXPECT_EQ(names(), "abcd");
}

TEST(Editing, KeepsTheCurrentRowAmongTheSelectedOnes)
{
    nle_desk desk;
    ASSERT_NO_FATAL_FAILURE(desk.open_text("Three |KVRVER05_0\na = 1 #\nb = 2 #\nc = 3 #\n"));
    const auto click = [&](int row, Qt::KeyboardModifiers modifiers) {
        const QPoint place = desk.grid().visualRect(desk.grid().model()->index(row - 1, 0)).center();
        QTest::mouseClick(desk.grid().viewport(), Qt::LeftButton, modifiers, place);
        settle();
    };
    click(1, {});
    click(3, Qt::ControlModifier);
    EXPECT_THAT(desk.grid().selected_rows(), ElementsAre(1, 3));
    click(3, Qt::ControlModifier);
    EXPECT_THAT(desk.grid().selected_rows(), ElementsAre(1));
    EXPECT_EQ(desk.grid().current_row(), 1);
    click(1, Qt::ControlModifier);
    EXPECT_THAT(desk.grid().selected_rows(), ElementsAre(1)) << "some row is always selected";
}

TEST(Editing, MarksWhatAPasteLeftOutAndPutsItInWhenItIsMended)
{
    nle_desk desk;
    desk.grid().setFocus();
    desk.put_on_clipboard("f(x) = x - a\nb = 2*\nYours\n[4] c d = 1\na = 2\n");
    robot::press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_THAT(desk.equations(), ElementsAre("f(x) = x - a", "a = 2"));
    auto& advice = desk.person.find<link_label>("lblAdvice");
    EXPECT_EQ(advice.whole_text().toStdString(),
              "2 equations were taken over. These have no initial guess yet, x. Left out: 3 lines");
    emit advice.linkActivated(QStringLiteral("0"));
    const robot dialog(dialog_in_front("frmLeftOut"));
    auto& lines = dialog.find<QPlainTextEdit>("txtLines");
    const auto marked = [&] {
        std::vector<std::string> texts;
        for (const QTextEdit::ExtraSelection& mark : lines.extraSelections())
            texts.push_back(mark.cursor.selectedText().toStdString());
        return texts;
    };
    EXPECT_EQ(lines.toPlainText().toStdString(), "b = 2*\nYours\nc d = 1");
    EXPECT_THAT(marked(), ElementsAre("*", "Yours", "c d"));
    EXPECT_EQ(dialog.text("lblReason"), "Line 1: Syntax Error: extra operator at the end of the expression; *");

    // What is right goes in, the rest stays.
    robot::press(Qt::Key_End);
    robot::keys("a");
    EXPECT_TRUE(wait_until([&] { return marked().size() == 2; }));
    EXPECT_EQ(dialog.text("lblReason"), "");
    dialog.click("cmdPutIn");
    EXPECT_THAT(desk.equations(), ElementsAre("f(x) = x - a", "a = 2", "b = 2*a"));
    EXPECT_EQ(lines.toPlainText().toStdString(), "Yours\nc d = 1");
    robot::press(Qt::Key_A, Qt::ControlModifier);
    robot::keys("x(0) = 3");
    robot::press(Qt::Key_Return, Qt::ShiftModifier);
    robot::keys("c = 1");
    dialog.click("cmdPutIn");
    EXPECT_EQ(desk.content().rows.front().guess, "3");
    EXPECT_EQ(desk.equations().back(), "c = 1");
    EXPECT_FALSE(desk.person.is_shown("lblAdvice"));

    desk.to_front();
    for (const std::size_t rows : {3u, 2u, 0u}) {
        robot::press(Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(desk.content().rows.size(), rows);
    }
    desk.put_on_clipboard("");
    robot::press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(advice.whole_text(), "The clipboard has no equation that could be taken over.");
}

TEST(Editing, StripsSuffixesOnlyWhenAPersonChoosesAMethod)
{
    nle_desk desk;
    // A file may bring suffixes under any method.
    ASSERT_NO_FATAL_FAILURE(desk.open_text("Plain |KVRVER05_0\nf(x) = x-1 #\nf(y) = y-x #\nx(0)=1 p\ny(0)=3 ap\n"));
    EXPECT_EQ(desk.person.text("cmbMethod"), "fastnewt");
    EXPECT_EQ(desk.cell(2, 2), "3 ap");
    desk.person.choose("cmbMethod", "constrained");
    EXPECT_EQ(desk.cell(2, 2), "3 ap");
    desk.person.choose("cmbMethod", "safenewt");
    EXPECT_EQ(desk.cell(2, 2), "3");
    robot::press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(desk.cell(2, 2), "3 ap");
    EXPECT_EQ(desk.person.text("cmbMethod"), "constrained");
}

TEST(Editing, TakesEveryStepBackAndForthByNamedCommands)
{
    nle_desk desk;
    ASSERT_NO_FATAL_FAILURE(desk.open_text("One |KVRVER05_0\nf(x) = x^2-a #\na = 2 #\nx(min)=1, x(max)=2\n"));
    const nle_content opened = desk.content();
    desk.bounds_by_mouse("0.5", "3.25");
    desk.grid().setFocus();
    desk.grid().set_current_row(2);
    robot::press(Qt::Key_Right);
    robot::press(Qt::Key_Right);
    robot::press(Qt::Key_F2);
    robot::keys("two");
    robot::press(Qt::Key_Return);
    EXPECT_EQ(desk.cell(2, 3), "two");
    desk.user.expect_input("'a'", "b");
    desk.choose("Edit", "mnuRename");
    EXPECT_EQ(desk.user.proposed_input(), "a");
    EXPECT_THAT(desk.equations(), ElementsAre("f(x) = x^2-b", "b = 2"));
    desk.user.expect_input("'b'", "x");
    desk.user.expect_box("The variable 'x' has already been defined.");
    desk.choose("Edit", "mnuRename");
    desk.set_title("Two");
    EXPECT_EQ(desk.window.title_panel(), "Two");
    const nle_content edited = desk.content();
    EXPECT_EQ(desk.window.caption_of(window_command::undo), "&Undo Change title");

    for (const char* step : {"Change title", "Rename variable", "Edit comment", "Change bounds"}) {
        EXPECT_EQ(desk.window.document().undo_step(), step);
        robot::press(Qt::Key_Z, Qt::ControlModifier);
    }
    EXPECT_EQ(desk.content(), opened);
    EXPECT_TRUE(desk.window.document().problem_saved());
    EXPECT_EQ(desk.person.text("txtnle_max_ini_guess"), "2");
    EXPECT_FALSE(desk.window.can(window_command::undo));
    for (int i = 0; i < 4; ++i)
        robot::press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(desk.content(), edited);
    // The field of a bound has no undo of its own beside the problem's.
    desk.person.type("txtnle_min_ini_guess", "77");
    robot::press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(desk.person.text("txtnle_min_ini_guess"), "0.5");
}

TEST(Editing, FollowsNamesToTheRowThatIsMissingOrDoubled)
{
    nle_desk desk;
    desk.add_by_mouse({"x", "x-k", "1"});
    EXPECT_EQ(desk.third_panel(), "Undefined Variable: k");
    auto& panel = desk.person.find<QLabel>("panel_3");
    emit panel.linkActivated(QStringLiteral("0"));
    settle();
    {
        const robot dialog(dialog_in_front("frmNleEE"));
        EXPECT_EQ(dialog.text("txtVar"), "k");
        robot::keys("2-m");
        dialog.click("cmdDone");
        desk.decline_next();
    }
    // The listing has links as well.
    desk.person.click("cmdShowallvars");
    QWidget& listing = dialog_in_front("frmMsg");
    EXPECT_EQ(listing.windowTitle(), "NLE variables");
    EXPECT_THAT(robot(listing).text("txtMsg"), testing::HasSubstr("Undefined variables (1)\nm\n"));
    emit robot(listing).find<QTextBrowser>("txtMsg").anchorClicked(QUrl(QStringLiteral("#m")));
    settle();
    {
        const robot dialog(dialog_in_front("frmNleEE"));
        EXPECT_EQ(dialog.text("txtVar"), "m");
        // From a dialog the listing only tells.
        dialog.click("cmdShowallvars");
        robot(dialog_in_front("frmMsg")).click("cmdOK");
        dialog.click("cmdCancel");
    }
    desk.to_front();
    EXPECT_THAT(desk.equations(), ElementsAre("f(x) = x-k", "k = 2-m"));

    ASSERT_NO_FATAL_FAILURE([&] {
        desk.user.expect_question("Problem not saved. Do you wish to save it now ?", user_answer::no);
        desk.open_text("Double |KVRVER05_0\na = 1\nb = 2\na = 3\n");
    }());
    EXPECT_EQ(desk.third_panel(), "Variable defined more than once: a");
    emit panel.linkActivated(QStringLiteral("0"));
    EXPECT_THAT(desk.grid().selected_rows(), ElementsAre(1, 3));
    EXPECT_TRUE(desk.window.can(window_command::copy));
    robot::press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(desk.user.copied_text(), "a = 1\tn.a.\na = 3\tn.a.\n");
}

TEST(Editing, LoadsEveryExampleFromItsMenu)
{
    nle_desk desk;
    for (std::size_t i = 0; i < nle_sample_count; ++i) {
        desk.choose("Examples", ("mnuSample" + std::to_string(i + 1)).c_str());
        EXPECT_EQ(desk.content(), nle_samples().at(i));
        EXPECT_EQ(desk.grid().current_row(), 1);
    }
}

} // namespace
} // namespace kelvarin::test

// SPDX-License-Identifier: MIT
#include "tools/window/frmUni.h"

#include "support/alone_program.h"
#include "tool_window.h"

#include <QAbstractItemView>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kelvarin
{
namespace
{

using test::robot;

constexpr const char* units_text = "Length | m | 1 | 0 | metre\n"
                                   "Length | ft | 3.28083989501312336 | 0 | foot, 0.3048 m exactly\n"
                                   "Length | min | 2 | 0 | a length that is named like a time\n"
                                   "'comment\n"
                                   "Temperature | deg C | 1 | 0 | degree Celsius\n"
                                   "Temperature | deg F | 1.8 | -17.7777777777777778 | degree Fahrenheit\n"
                                   "Temperature | K | 1 | -273.15\n"
                                   "Time | s | 1 | 0 | second\n"
                                   "Time | min | 0.0166666666666666667 | 0 | minute, 60 s\n";

class Units_window : public test::tool_window<frmUni>
{
protected:
    Units_window() : tool_window("cnvrtcfg.txt", units_text) {}

    void choose(const char* type, const char* before, const char* after)
    {
        person.choose("cmbTypeOfUnits", type);
        person.choose("cmbUnitBefore", before);
        person.choose("cmbUnitAfter", after);
    }
    void search(const std::string& words)
    {
        person.type("txtSearch", words);
        list = &test::top_window_of<QAbstractItemView>("lstHits");
    }
    std::vector<std::string> hits() const
    {
        std::vector<std::string> lines;
        for (int row = 0; row < list->model()->rowCount(); ++row)
            lines.push_back(list->model()->index(row, 0).data().toString().toStdString());
        return lines;
    }
    std::string conversion_chosen() const
    {
        return person.text("cmbTypeOfUnits") + ": " + person.text("cmbUnitBefore") + " to " +
               person.text("cmbUnitAfter");
    }

    QAbstractItemView* list = nullptr;
};

TEST_F(Units_window, ConvertsByReturnAndByButton)
{
    open();
    // The number has the focus: three metres are 3/0.3048 feet.
    robot::keys("3\n");
    EXPECT_EQ(person.text("txtResult"), "3 m = 9.84251968503937 ft");
    robot::keys("1.5\n");
    EXPECT_EQ(person.text("txtResult"), "1.5 m = 4.92125984251969 ft") << "what is typed next replaces the number";
    choose("Temperature", "deg F", "K");
    person.type("txtNumToConvert", "-459.67");
    person.click("cmdConvert");
    EXPECT_EQ(person.text("txtResult"), "-459.67 deg F = 0 K");
}

TEST_F(Units_window, RefusesWhatIsNoNumber)
{
    open();
    robot::keys("3\n");
    desk.user.expect_box("Must be numeric value !");
    person.type("txtNumToConvert", "1,5");
    robot::press(Qt::Key_Return);
    EXPECT_EQ(person.text("txtResult"), "3 m = 9.84251968503937 ft");
    EXPECT_EQ(person.text("txtResults"), "3 m = 9.84251968503937 ft");
}

TEST_F(Units_window, OffersTheUnitsOfTheChosenTypeInFileOrder)
{
    open();
    EXPECT_EQ(items("cmbTypeOfUnits"), (std::vector<std::string>{"Length", "Temperature", "Time"}));
    robot::keys("3\n");
    person.choose("cmbTypeOfUnits", "Temperature");
    EXPECT_EQ(items("cmbUnitBefore"), (std::vector<std::string>{"deg C", "deg F", "K"}));
    EXPECT_EQ(items("cmbUnitAfter"), items("cmbUnitBefore"));
    EXPECT_EQ(conversion_chosen(), "Temperature: deg C to deg F");
    EXPECT_EQ(person.text("txtResult"), "");
    EXPECT_FALSE(person.is_enabled("cmdCopyValue"));
    EXPECT_EQ(person.text("txtResults"), "3 m = 9.84251968503937 ft") << "the list stays";
}

TEST_F(Units_window, TellsAboutTheUnitsAndSwapsThem)
{
    open();
    EXPECT_EQ(person.text("lblNoteBefore"), "metre");
    EXPECT_EQ(person.text("lblNoteAfter"), "foot, 0.3048 m exactly");
    person.click("cmdSwap");
    EXPECT_EQ(conversion_chosen(), "Length: ft to m");
    EXPECT_EQ(person.text("lblNoteBefore"), "foot, 0.3048 m exactly");
    EXPECT_EQ(person.text("lblNoteAfter"), "metre");
    choose("Temperature", "K", "K");
    EXPECT_EQ(person.text("lblNoteBefore"), "");
}

TEST_F(Units_window, KeepsCopiesAndForgetsResults)
{
    open();
    for (const char* button : {"cmdCopy", "cmdCopyAll", "cmdClear", "cmdCopyValue"})
        EXPECT_FALSE(person.is_enabled(button)) << button;
    robot::keys("3\n");
    person.click("chkHistory");
    person.type("txtNumToConvert", "6\n");
    EXPECT_EQ(person.text("txtResults"), "3 m = 9.84251968503937 ft") << "switched off, the list gets nothing";
    person.click("cmdCopy");
    EXPECT_EQ(desk.user.copied_text(), "6 m = 19.6850393700787 ft");
    person.click("cmdCopyValue");
    EXPECT_EQ(desk.user.copied_text(), "19.6850393700787");
    person.click("chkHistory");
    person.type("txtNumToConvert", "0.3048\n");
    person.click("cmdCopyAll");
    EXPECT_EQ(desk.user.copied_text(), "3 m = 9.84251968503937 ft\n0.3048 m = 1 ft\n");
    person.find("txtResults").setFocus();
    robot::press(Qt::Key_A, Qt::ControlModifier);
    person.click("cmdCopy");
    EXPECT_EQ(desk.user.copied_text(), "3 m = 9.84251968503937 ft\n0.3048 m = 1 ft");
    person.click("cmdClear");
    EXPECT_EQ(person.text("txtResults"), "");
    EXPECT_EQ(person.text("txtResult"), "");
    EXPECT_FALSE(person.is_enabled("cmdClear"));
}

TEST_F(Units_window, FindsUnitsByWordsOfTypeNameAndNote)
{
    open();
    search("min");
    EXPECT_EQ(hits(), (std::vector<std::string>{"Length: min (a length that is named like a time)",
                                                "Time: min (minute, 60 s)"}));
    robot::press(Qt::Key_Down);
    robot::press(Qt::Key_Down);
    robot::press(Qt::Key_Return);
    EXPECT_EQ(conversion_chosen(), "Time: min to s") << "not into itself";
    EXPECT_FALSE(list->isVisible());
    EXPECT_EQ(person.text("txtSearch"), "");
    robot::keys("2\n");
    EXPECT_EQ(person.text("txtResult"), "2 min = 120 s") << "the number has the focus";

    search("EXACT foot");
    robot::press(Qt::Key_Return);
    EXPECT_EQ(conversion_chosen(), "Length: ft to m") << "Return alone takes the first";

    search("temp");
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier,
                      list->visualRect(list->model()->index(2, 0)).center());
    test::settle();
    EXPECT_EQ(conversion_chosen(), "Temperature: K to deg F");

    search("furlong");
    EXPECT_EQ(hits(), std::vector<std::string>{"No unit has these words."});
    robot::press(Qt::Key_Return);
    EXPECT_EQ(conversion_chosen(), "Temperature: K to deg F");
}

TEST_F(Units_window, SaysThatItsFileIsMissingAndCloses)
{
    std::filesystem::remove(desk.folder / "cnvrtcfg.txt");
    desk.user.expect_box("\"cnvrtcfg.txt\" file not found.\rThis option cannot be continued.", "WinKelvarin Guide");
    EXPECT_TRUE(test::ends_program([this] { open(); })) << "there is no other window";
    EXPECT_TRUE(desk.user.is_done());
    EXPECT_FALSE(window.isVisible());
    desk.folder.write("cnvrtcfg.txt", units_text);
    open();
    EXPECT_EQ(person.text("cmbTypeOfUnits"), "Length") << "the file is looked for anew";
}

TEST_F(Units_window, TellsWhichLinesItPassedOver)
{
    desk.folder.write("cnvrtcfg.txt", "Length | m | 1 | 0\nLength | ft\nLength | none | 0 | 0\n");
    open();
    EXPECT_EQ(person.text("lblFaults"), "cnvrtcfg.txt: Passed over: line 2, fields are missing, and 1 more");
    EXPECT_EQ(items("cmbUnitBefore"), std::vector<std::string>{"m"});
    robot::keys("2\n");
    EXPECT_EQ(person.text("txtResult"), "2 m = 2 m");
}

TEST_F(Units_window, StaysAliveWithoutAnyUnit)
{
    desk.folder.write("cnvrtcfg.txt", "' nothing yet\n");
    open();
    EXPECT_FALSE(person.is_enabled("cmdConvert"));
    robot::keys("2\n");
    EXPECT_EQ(person.text("txtResult"), "");
}

TEST_F(Units_window, LeadsToTheAntoineEquationByKeyboard)
{
    open();
    QSignalSpy asked(&window, &frmUni::antoine_asked);
    person.find("chkOnTop").setFocus();
    robot::press(Qt::Key_Backtab, Qt::ShiftModifier);
    robot::press(Qt::Key_Return);
    EXPECT_EQ(asked.count(), 1);
}

TEST_F(Units_window, KeepsWhatItShowsWhenItGoesInFront)
{
    open();
    robot::keys("3\n");
    person.click("chkOnTop");
    EXPECT_TRUE(window.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(items("cmbTypeOfUnits").size(), 3U);
    EXPECT_EQ(person.text("txtResults"), "3 m = 9.84251968503937 ft");
}

TEST_F(Units_window, CanBeNamedReadAndReached)
{
    desk.folder.write("cnvrtcfg.txt", std::string(units_text) + "Length | broken\n");
    open();
    expect_no_fault_down_to_the_least_size();
}

} // namespace
} // namespace kelvarin

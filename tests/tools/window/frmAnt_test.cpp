// SPDX-License-Identifier: MIT
#include "tools/window/frmAnt.h"

#include "tool_window.h"

#include <QAction>
#include <QSignalSpy>

#include <gmock/gmock.h>

#include <array>
#include <string>

namespace kelvarin
{
namespace
{

using test::robot;

// Water between 1 and 100 deg C, in mmHg with the common logarithm: A 8.07131, B 1730.63, C 233.426, from tables that
// write A - B/(C+t). The logarithms and scales below were reckoned by hand from these.
constexpr const char* water_line = "log(P)=8.07131+-1730.6300/(233.4260+t)";

class Antoine_window : public test::tool_window<frmAnt>
{
protected:
    Antoine_window() { open(); }

    void enter(const std::string& A, const std::string& B, const std::string& C)
    {
        person.click("cmdABC");
        robot::keys(A);
        person.type("txtB", B);
        person.type("txtC", C);
        robot::press(Qt::Key_Return);
    }
    void enter_water() { enter("8.07131", "-1730.63", "233.426"); }
    void choose(const std::string& group, std::size_t item)
    {
        person.click((group + "_" + std::to_string(item)).c_str());
    }
    std::array<std::string, 3> fields() const
    {
        return {person.text("txtA"), person.text("txtB"), person.text("txtC")};
    }
    std::string shown() const { return person.text("LblDisplayed"); }
};

TEST_F(Antoine_window, TakesConstantsAndRewritesThemForEachChoice)
{
    EXPECT_FALSE(person.is_shown("frameconstants"));
    enter_water();
    EXPECT_EQ(shown(), water_line);
    EXPECT_EQ(fields(), (std::array<std::string, 3>{"8.07131", "-1730.6300", "233.4260"}));
    EXPECT_FALSE(person.is_shown("cmdok"));

    choose("optLog", 1);
    choose("optP", 3);
    choose("optT", 3);
    EXPECT_EQ(person.text("lblEquation"), "ln(P)=A+B/(C+t)");
    EXPECT_EQ(person.text("lblUnits"), "kPa ; R");
    EXPECT_EQ(shown(), "ln(P)=16.56989+-7172.8611/(-71.5032+t)");
    for (const char* group : {"optT", "optP", "optLog"})
        choose(group, 0);
    person.type("txtT", "100");
    EXPECT_EQ(person.text("lblPressure"), "deg C:  760.086 mmHg");
    person.click("cmdCopy");
    EXPECT_EQ(desk.user.copied_text(), water_line);
}

TEST_F(Antoine_window, ChangesNothingWithoutConstants)
{
    choose("optP", 5);
    choose("optT", 3);
    choose("optLog", 1);
    EXPECT_EQ(shown(), "");
    EXPECT_FALSE(person.is_enabled("cmdCopy"));
    // They are entered in the units chosen by now.
    person.click("cmdABC");
    EXPECT_EQ(person.text("lblUnits"), "Pa ; R");
    EXPECT_EQ(person.text("lblEquation"), "ln(P)=A+B/(C+t)");
    robot::press(Qt::Key_Escape);
    EXPECT_FALSE(person.is_shown("frameconstants"));
    enter("23.477", "-7173.79", "-71.5");
    EXPECT_EQ(shown(), "ln(P)=23.47700+-7173.7900/(-71.5000+t)");
}

TEST_F(Antoine_window, RefusesWhatIsNoNumberAndGoesThere)
{
    desk.user.expect_box("Enter a numeric value for B.");
    enter("8", "two", "1e");
    EXPECT_TRUE(person.find("txtB").hasFocus());
    EXPECT_EQ(shown(), "");
    EXPECT_TRUE(person.is_shown("cmdok")) << "the frame stays open";
}

TEST_F(Antoine_window, LeavesTheConstantsWhenNewOnesAreCancelled)
{
    enter_water();
    person.click("cmdABC");
    EXPECT_EQ(fields(), (std::array<std::string, 3>{"", "", ""}));
    EXPECT_TRUE(person.is_shown("cmdok"));
    robot::keys("99");
    choose("optT", 2);
    EXPECT_EQ(person.text("txtA"), "99") << "a choice leaves what is being typed";
    EXPECT_EQ(person.text("lblUnits"), "mmHg ; K");
    person.click("cmdCancelABC");
    EXPECT_EQ(fields(), (std::array<std::string, 3>{"8.07131", "-1730.6300", "-39.7240"}));
    person.find("txtA").setFocus();
    robot::keys("1");
    robot::press(Qt::Key_Escape);
    EXPECT_EQ(person.text("txtA"), "8.07131") << "outside of the entry the fields only show";
    EXPECT_TRUE(window.isVisible());
}

TEST_F(Antoine_window, TellsOfTheSignOfB)
{
    person.click("cmdABC");
    EXPECT_TRUE(person.is_shown("lblNote"));
    EXPECT_EQ(person.text("lblNote"), antoine_sign_note);
    person.click("cmdCancelABC");
    enter_water();
    EXPECT_FALSE(person.is_shown("lblNote"));
    enter("8.07131", "1730.63", "233.426");
    EXPECT_TRUE(person.is_shown("lblNote")) << "a pressure that falls with the temperature";
    person.type("txtT", "-233.426");
    EXPECT_EQ(person.text("lblPressure"), "deg C:  none mmHg");
    person.type("txtT", "hot");
    EXPECT_EQ(person.text("lblPressure"), "deg C");
}

TEST_F(Antoine_window, OpensTheHelpAndCloses)
{
    QSignalSpy asked(desk.frame.action(window_command::contents), &QAction::triggered);
    person.click("cmdHelp");
    EXPECT_EQ(asked.count(), 1);
    person.click("cmdClose");
    EXPECT_FALSE(window.isVisible());
}

TEST_F(Antoine_window, CanBeNamedReadAndReached)
{
    EXPECT_THAT(test::faults_of(window), testing::IsEmpty());
    const int height = window.minimumSizeHint().height();
    person.click("cmdABC");
    EXPECT_THAT(test::faults_of(window), testing::IsEmpty());
    EXPECT_EQ(window.minimumSizeHint().height(), height) << "nothing moves when the frame opens";
    person.click("cmdCancelABC");
    enter_water();
    person.type("txtT", "100");
    expect_no_fault_down_to_the_least_size();
}

} // namespace
} // namespace kelvarin

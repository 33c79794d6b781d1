// SPDX-License-Identifier: MIT
#include "tools/window/frmConstant.h"

#include "support/alone_program.h"
#include "tool_window.h"

#include <QComboBox>
#include <QListWidget>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kelvarin
{
namespace
{

using test::robot;

constexpr const char* constants_text = "speed of sound = 343 | m/s\n"
                                       ":Universal\n"
                                       "speed of light = 299792458 | m/s\n"
                                       "Planck constant = 6.62607015E-34 | J s\n"
                                       ":Mathematics\n"
                                       "' to 15 digits\n"
                                       "pi = 3.14159265358979 |\n"
                                       "e = 2.71828182845905\n";

class Constants_window : public test::tool_window<frmConstant>
{
protected:
    Constants_window() : tool_window("constant.txt", constants_text) {}

    std::vector<std::string> lines() const { return items("lstConst"); }
    void select(int row)
    {
        person.find("lstConst").setFocus();
        person.find<QListWidget>("lstConst").setCurrentRow(row);
        test::settle();
    }
    void make_viewer(const char* script, bool may_run)
    {
        namespace fs = std::filesystem;
        const fs::path viewer = desk.folder.write("kvrdata.exe", script);
        if (may_run) fs::permissions(viewer, fs::perms::owner_exec, fs::perm_options::add);
    }
};

TEST_F(Constants_window, ShowsTheChosenGroupInColumns)
{
    open();
    EXPECT_EQ(lines(), std::vector<std::string>{"speed of sound  343  m/s"}) << "the group without a name";
    person.choose("cmbConstType", "Universal");
    EXPECT_EQ(lines(), (std::vector<std::string>{"speed of light   299792458       m/s",
                                                 "Planck constant  6.62607015E-34  J s"}));
    EXPECT_EQ(person.find<QComboBox>("cmbConstType").count(), 3);
    const QFontMetricsF letters(person.find("lstConst").font());
    EXPECT_EQ(letters.horizontalAdvance(QStringLiteral("iiii.")), letters.horizontalAdvance(QStringLiteral("WM@00")));
}

TEST_F(Constants_window, CopiesTheSelectedConstant)
{
    open();
    person.choose("cmbConstType", "Universal");
    person.click("cmdCopy");
    EXPECT_EQ(desk.user.copied_text(), "speed of light   299792458       m/s") << "the first is selected";
    select(1);
    robot::press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(desk.user.copied_text(), "Planck constant  6.62607015E-34  J s");
    person.click("cmdCopyValue");
    EXPECT_EQ(desk.user.copied_text(), "6.62607015E-34");
    person.find<QListWidget>("lstConst").clearSelection();
    EXPECT_FALSE(person.is_enabled("cmdCopy"));
    EXPECT_FALSE(person.is_enabled("cmdCopyValue"));
}

TEST_F(Constants_window, SearchesAllGroupsByKeyboard)
{
    open();
    person.choose("cmbConstType", "Mathematics");
    person.find("txtSearch").setFocus();
    robot::keys("SPEED m/s");
    EXPECT_EQ(lines(), (std::vector<std::string>{"speed of sound  343        m/s", "Universal",
                                                 "speed of light  299792458  m/s"}));
    person.find("lstConst").setFocus();
    robot::press(Qt::Key_Down);
    robot::press(Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(desk.user.copied_text(), "speed of light  299792458  m/s") << "the group's name is passed over";

    person.type("txtSearch", "furlong");
    EXPECT_EQ(lines(), std::vector<std::string>{"No constant has these words."});
    EXPECT_FALSE(person.is_enabled("cmdCopy"));

    person.type("txtSearch", "");
    EXPECT_EQ(lines(), (std::vector<std::string>{"pi  3.14159265358979", "e   2.71828182845905"}));
    EXPECT_TRUE(person.is_enabled("cmdCopy"));
}

TEST_F(Constants_window, DownAndReturnLeadFromTheSearchToWhatItFound)
{
    open();
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Return}) {
        person.type("txtSearch", "planck");
        robot::press(key);
        robot::press(Qt::Key_C, Qt::ControlModifier);
        EXPECT_EQ(desk.user.copied_text(), "Planck constant  6.62607015E-34  J s");
        desk.user.copy(std::make_unique<QMimeData>());
    }
    person.type("txtSearch", "furlong");
    robot::press(Qt::Key_Return);
    EXPECT_TRUE(person.find("txtSearch").hasFocus()) << "there is nothing to go to";
}

TEST_F(Constants_window, EndsASearchWhenAGroupIsChosen)
{
    open();
    for (const char* group : {"Universal", "Mathematics", "Mathematics"}) {
        SCOPED_TRACE(group);
        person.type("txtSearch", "sound");
        EXPECT_EQ(lines().size(), 1U);
        person.choose("cmbConstType", group);
        EXPECT_EQ(person.text("txtSearch"), "");
        EXPECT_EQ(lines().size(), 2U);
    }
}

TEST_F(Constants_window, SaysThatItsFileIsMissingAndCloses)
{
    std::filesystem::remove(desk.folder / "constant.txt");
    desk.user.expect_box("\"constant.txt\" file not found.\rThis option cannot be continued.", "WinKelvarin Guide");
    EXPECT_TRUE(test::ends_program([this] { open(); })) << "there is no other window";
    EXPECT_TRUE(desk.user.is_done());
    EXPECT_FALSE(window.isVisible());
}

TEST_F(Constants_window, StartsTheViewerOnlyWithItsDataBase)
{
    open();
    desk.user.expect_box("KvrData files not found.", "Kelvarin Guide");
    person.click("cmdKvrData");
    make_viewer("#!/bin/sh\nprintf %s \"$1\" > part\nmv part started\n", true);
    desk.user.expect_box("KvrData files not found.", "Kelvarin Guide");
    person.click("cmdKvrData");
    EXPECT_TRUE(desk.user.is_done());
    desk.folder.write("KvrDB.mdb", "");
    person.click("cmdKvrData");
    ASSERT_TRUE(test::wait_until([&] { return desk.folder.holds("started"); }));
    EXPECT_EQ(desk.folder.read("started"), (desk.folder / "KvrDB.mdb").string());
}

TEST_F(Constants_window, SaysThatTheViewerDoesNotStart)
{
    open();
    desk.folder.write("KvrDB.mdb", "");
    make_viewer("no program", false);
    desk.user.expect_box("KvrData could not be started.");
    person.click("cmdKvrData");
    EXPECT_TRUE(desk.user.is_done());
}

TEST_F(Constants_window, CanBeNamedReadAndReached)
{
    desk.folder.write("constant.txt", std::string(constants_text) + "nonsense\n");
    open();
    EXPECT_EQ(person.text("lblFaults"), "constant.txt: Passed over: line 9, there is no \"=\"");
    expect_no_fault_down_to_the_least_size();
}

} // namespace
} // namespace kelvarin

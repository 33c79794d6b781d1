// SPDX-License-Identifier: MIT
#include "nle/equations/window/problem_status.h"

#include "desktop/traffic_light.h"
#include "support/robot.h"

#include <gmock/gmock.h>

#include <QAccessible>
#include <QLayout>
#include <QTextDocument>

#include <string>
#include <vector>

namespace kelvarin
{
namespace
{

using test::robot;
using testing::ElementsAre;
using testing::IsEmpty;

class desk
{
public:
    desk()
    {
        QObject::connect(&status, &problem_status::name_clicked, &status,
                         [this](const QString& name) { clicked.push_back(name.toStdString()); });
        status.resize(900, 30);
        status.show();
        status.activateWindow();
        test::settle();
    }

    void show(const std::string& third, const std::vector<std::string>& names)
    {
        status.show_panels({"Nonlinear Equations: 1 ", "Auxiliary Equations: 0 ", third}, names);
        test::settle();
    }
    QLabel& panel() const { return robot(const_cast<problem_status&>(status)).find<QLabel>("panel_3"); }
    std::string seen() const
    {
        QTextDocument read;
        read.setHtml(panel().text());
        return read.toPlainText().replace(QChar::Nbsp, ' ').trimmed().toStdString();
    }

    problem_status status;
    std::vector<std::string> clicked;
};

TEST(ProblemStatus, LeadsFromEachNameInItsOrder)
{
    desk at;
    at.show("Undefined Variables: a, ab, b ", {"a", "ab", "b"});
    EXPECT_EQ(at.seen(), "Undefined Variables: a, ab, b");
    EXPECT_EQ(at.status.panel_text(3), "Undefined Variables: a, ab, b ");
    EXPECT_EQ(at.panel().text().count("<a "), 3);

    // From link to link by Tab, and Enter follows.
    at.panel().setFocus(Qt::TabFocusReason);
    robot::press(Qt::Key_Return);
    robot::press(Qt::Key_Tab);
    robot::press(Qt::Key_Return);
    EXPECT_THAT(at.clicked, ElementsAre("a", "ab"));
}

TEST(ProblemStatus, ShowsTextsAsTheyAre)
{
    struct text
    {
        const char* third;
        std::vector<std::string> names;
        int links;
    };
    const text texts[] = {
        {"Variable defined more than once: <b>x</b> ", {"<b>x</b>"}, 1},
        {"Warning: Lower/upper boundary guess is not a valid number", {}, 0},
        {"Undefined Variable: a ", {"elsewhere"}, 0},
        // The letter "e" stands in the words before the colon as well.
        {"Undefined Variable: e ", {"e"}, 1},
        {"", {}, 0},
    };
    for (const text& shown : texts) {
        SCOPED_TRACE(shown.third);
        desk at;
        at.show(shown.third, shown.names);
        EXPECT_EQ(at.seen(), QString(shown.third).trimmed().toStdString());
        EXPECT_EQ(at.panel().text().count("<a "), shown.links);
        EXPECT_EQ(at.panel().focusPolicy() != Qt::NoFocus, shown.links > 0);
        EXPECT_THAT(at.clicked, IsEmpty());
    }
}

TEST(ProblemStatus, CutsALongMessageAndTellsItWhole)
{
    desk at;
    std::vector<std::string> names;
    std::string third = "Undefined Variables: ";
    for (int i = 0; i < 40; ++i) {
        names.push_back("unknown_" + std::to_string(i));
        third += (i ? ", " : "") + names.back();
    }
    at.show(third + " ", names);
    EXPECT_EQ(at.status.width(), 900) << "the window is not made wider";
    EXPECT_TRUE(at.seen().starts_with("Undefined Variables: unknown_0, unknown_1"));
    EXPECT_TRUE(at.seen().ends_with("\u2026"));
    EXPECT_EQ(at.panel().toolTip().toStdString(), third);
    EXPECT_EQ(at.panel().accessibleName().toStdString(), third);

    at.show("Undefined Variable: a ", {"a"});
    EXPECT_EQ(at.seen(), "Undefined Variable: a");
    EXPECT_EQ(at.panel().toolTip(), "");
}

TEST(ProblemStatus, CutsNoCountInANarrowWindow)
{
    desk at;
    at.show("Undefined Variables: a, ab, b ", {"a", "ab", "b"});
    at.status.show_notice("Solution stopped.");
    for (const int width : {900, 400, 184}) {
        SCOPED_TRACE(width);
        at.status.resize(width, at.status.layout()->heightForWidth(width));
        test::settle();
        for (const char* name : {"panel_1", "panel_2", "notice"}) {
            const auto& panel = robot(at.status).find<QLabel>(name);
            EXPECT_GE(panel.width(), panel.sizeHint().width()) << name;
            EXPECT_TRUE(at.status.rect().contains(panel.geometry())) << name;
        }
        EXPECT_TRUE(at.seen().starts_with("Undefined Variables:")) << at.seen();
    }
}

TEST(TrafficLight, IsSpokenAndTellsWhy)
{
    traffic_light light;
    light.show();
    const auto spoken = [&](const char* name) {
        return QAccessible::queryAccessibleInterface(&robot(light).find(name))->text(QAccessible::Name).toStdString();
    };
    EXPECT_FALSE(light.is_green());
    EXPECT_EQ(spoken("imgTraffic"), "Traffic light: not ready");
    light.set_green(true, "The problem may run");
    EXPECT_TRUE(light.is_green());
    EXPECT_EQ(spoken("imgTraffic"), "Traffic light: ready");
    EXPECT_EQ(robot(light).text("lblTraffic"), "ready");
    EXPECT_EQ(light.toolTip(), "The problem may run");
    light.set_green(false, "a is not defined");
    EXPECT_EQ(robot(light).text("lblTraffic"), "not ready");
    EXPECT_EQ(light.toolTip(), "a is not defined");
}

} // namespace
} // namespace kelvarin

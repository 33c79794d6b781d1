// SPDX-License-Identifier: MIT
#include "shell/window/frmMsg.h"

#include "support/robot.h"
#include "support/window_walk.h"

#include <gmock/gmock.h>

#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>

namespace kelvarin
{

using test::robot;
using testing::IsEmpty;

namespace
{

constexpr const char* listing = R"({\cf1\b Implicit variables} (1)\par alpha\par \par )"
                                R"({\b\cf1 Undefined variables} (2)\par a, alp\par \par )"
                                R"({\cf7{\b Warning:} a is not defined.}\par )";

/// A message over a window, which a test answers.
class MessageWindow : public testing::Test
{
protected:
    frmMsg& show(const QStringList& names = {})
    {
        owner.show();
        auto* message = new frmMsg(&owner);
        message->display_msg(QStringLiteral("NLE variables"), listing, names);
        message->activateWindow();
        test::settle();
        return *message;
    }
    /// The texts of all links, in order.
    static QStringList links_of(const frmMsg& message)
    {
        QStringList links;
        const QTextDocument& document = *message.findChild<QTextBrowser*>()->document();
        for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
            for (auto part = block.begin(); !part.atEnd(); ++part) {
                if (part.fragment().charFormat().isAnchor()) links += part.fragment().text();
            }
        }
        return links;
    }

    QWidget owner;
};

} // namespace

TEST_F(MessageWindow, ClosesByEnterEscAndOk)
{
    const std::vector<std::function<void(const robot&)>> ways = {[](const robot&) { robot::press(Qt::Key_Return); },
                                                                 [](const robot&) { robot::press(Qt::Key_Escape); },
                                                                 [](const robot& at) { at.click("cmdOK"); }};
    for (const auto& way : ways) {
        const QPointer<frmMsg> message(&show());
        EXPECT_EQ(message->windowTitle(), QStringLiteral("NLE variables"));
        EXPECT_TRUE(message->isModal());
        EXPECT_EQ(robot(*message).text("txtMsg"), "Implicit variables (1)\nalpha\n\nUndefined variables (2)\na, alp\n\n"
                                                  "Warning: a is not defined.");
        way(robot(*message));
        EXPECT_TRUE(message.isNull());
    }
}

TEST_F(MessageWindow, LinksUndefinedNamesAndTellsWhichWasClicked)
{
    frmMsg& message = show({QStringLiteral("a"), QStringLiteral("alp")});
    // Whole words below their heading, and nothing in the other sections.
    EXPECT_EQ(links_of(message), (QStringList{"a", "alp"}));
    EXPECT_THAT(test::faults_of(message), IsEmpty());

    QSignalSpy clicked(&message, &frmMsg::name_clicked);
    const QPointer<frmMsg> alive(&message);
    auto& box = *message.findChild<QTextBrowser*>();
    QTextCursor name = box.document()->find(QStringLiteral("alp"), box.document()->find("a, ").position());
    name.setPosition(name.position() - 1);
    QTest::mouseClick(box.viewport(), Qt::LeftButton, Qt::NoModifier, box.cursorRect(name).center());
    ASSERT_EQ(clicked.size(), 1);
    EXPECT_EQ(clicked[0][0].toString(), QStringLiteral("alp"));
    test::settle();
    EXPECT_TRUE(alive.isNull());
}

TEST_F(MessageWindow, StaysShownWhenItIsPutOnTop)
{
    frmMsg& message = show();
    message.put_always_on_top();
    EXPECT_TRUE(message.isVisible());
    EXPECT_TRUE(message.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    message.close();
}

} // namespace kelvarin

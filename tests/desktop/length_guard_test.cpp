// SPDX-License-Identifier: MIT
#include "desktop/length_guard.h"

#include "desktop/expression_edit.h"
#include "support/robot.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QToolTip>

namespace
{

using namespace kelvarin;
using namespace kelvarin::test;

TEST(LengthGuard, FieldsTakeAPartOfALongTextAndSaySo)
{
    length_guard guard(*qApp);
    QWidget window;
    auto* line = new QLineEdit(&window);
    auto* expression = new expression_edit(&window);
    expression->move(0, 100);
    window.resize(400, 400);
    window.show();
    window.activateWindow();
    settle();

    QGuiApplication::clipboard()->setText(QStringLiteral("1+1"));
    line->setFocus();
    robot::press(Qt::Key_V, Qt::ControlModifier);
    expression->setFocus();
    robot::press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(line->text(), QStringLiteral("1+1"));
    EXPECT_EQ(expression->toPlainText(), QStringLiteral("1+1"));
    EXPECT_FALSE(QToolTip::isVisible());

    QGuiApplication::clipboard()->setText(QStringLiteral("1+").repeated(200'000));
    line->setFocus();
    robot::press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(line->text().size(), line->maxLength());
    EXPECT_TRUE(QToolTip::text().contains(QString::number(line->maxLength()))) << QToolTip::text().toStdString();

    QToolTip::hideText();
    expression->setFocus();
    robot::press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_LE(expression->toPlainText().size(), longest_field_text);
    EXPECT_GT(expression->toPlainText().size(), longest_field_text / 2);
    EXPECT_TRUE(QToolTip::text().contains(QString::number(longest_field_text)));
    QGuiApplication::clipboard()->clear();
}

} // namespace

// SPDX-License-Identifier: MIT
#include "desktop/wrapping_row.h"

#include "support/robot.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace kelvarin
{

namespace
{

TEST(WrappingRow, CutsNoControlHoweverNarrowTheWindowIs)
{
    QWidget window;
    auto* column = new QVBoxLayout(&window);
    auto* row = new wrapping_row(6);
    column->addLayout(row);
    column->addWidget(new QPlainTextEdit, 1);
    QList<QWidget*> controls;
    for (const char* caption : {"First", "Second button", "Third"})
        row->addWidget(controls.emplace_back(new QPushButton(QString::fromLatin1(caption))));
    auto* field = new QPushButton(QStringLiteral("Field"));
    auto* label = new QLabel(QStringLiteral("Caption"));
    row->add_together({label, field});
    controls += {label, field};
    auto* last = new QPushButton(QStringLiteral("Expanding"));
    last->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    row->addWidget(last);
    controls.append(last);
    window.show();

    int lines_before = 0;
    for (const int width : {800, 300, 10}) {
        window.resize(width, 400);
        test::settle();
        QRegion taken;
        QList<int> tops;
        for (const QWidget* control : controls) {
            SCOPED_TRACE(control->property("text").toString().toStdString() + " at " + std::to_string(window.width()));
            EXPECT_GE(control->width(), control->minimumSizeHint().width());
            EXPECT_GE(control->height(), control->minimumSizeHint().height());
            EXPECT_TRUE(window.rect().contains(control->geometry()));
            EXPECT_FALSE(taken.intersects(control->geometry()));
            taken += control->geometry();
            if (!tops.contains(control->y())) tops.append(control->y());
        }
        EXPECT_EQ(label->y(), field->y());
        EXPECT_GT(tops.size(), lines_before) << "narrower windows have more lines";
        lines_before = static_cast<int>(tops.size());
        // What expands takes the rest of its line.
        EXPECT_EQ(last->geometry().right(), column->contentsRect().right());
    }
}

} // namespace
} // namespace kelvarin

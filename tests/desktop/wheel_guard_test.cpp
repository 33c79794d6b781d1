// SPDX-License-Identifier: MIT
#include "desktop/wheel_guard.h"

#include "support/robot.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QSpinBox>
#include <QTest>
#include <QVBoxLayout>

#include <memory>

namespace kelvarin
{

namespace
{

struct long_page
{
    QScrollArea area;
    QComboBox* choice = new QComboBox;
    QSpinBox* number = new QSpinBox;
    QSlider* slider = new QSlider(Qt::Horizontal);
    QLineEdit* field = new QLineEdit;

    long_page()
    {
        auto* page = new QWidget;
        auto* layout = new QVBoxLayout(page);
        choice->addItems({"a", "b", "c"});
        for (QWidget* each : std::initializer_list<QWidget*>{field, choice, number, slider})
            layout->addWidget(each);
        number->setValue(50);
        slider->setValue(50);
        page->setMinimumHeight(900);
        area.setWidget(page);
        area.setWidgetResizable(true);
        area.resize(300, 500);
        area.show();
        area.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&area));
        field->setFocus();
    }
};

TEST(WheelGuard, TheWheelOverAFieldWithoutFocusScrollsWhatIsBehind)
{
    const std::unique_ptr<wheel_guard> guard(new wheel_guard(*qApp));
    long_page page;
    for (QWidget* each : std::initializer_list<QWidget*>{page.choice, page.number, page.slider}) {
        page.area.verticalScrollBar()->setValue(0);
        test::robot::turn_wheel(*each, -1);
        EXPECT_GT(page.area.verticalScrollBar()->value(), 0) << each->metaObject()->className();
    }
    EXPECT_EQ(page.choice->currentIndex(), 0);
    EXPECT_EQ(page.number->value(), 50);
    EXPECT_EQ(page.slider->value(), 50);
    EXPECT_TRUE(page.field->hasFocus());

    // Who has chosen a field may turn the wheel over it.
    page.area.verticalScrollBar()->setValue(0);
    page.choice->setFocus();
    test::robot::turn_wheel(*page.choice, -1);
    EXPECT_EQ(page.choice->currentIndex(), 1);
}

} // namespace
} // namespace kelvarin

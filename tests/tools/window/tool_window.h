// SPDX-License-Identifier: MIT
#pragma once

#include "support/robot.h"
#include "support/test_desk.h"
#include "support/window_walk.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QComboBox>

#include <string>
#include <vector>

namespace kelvarin::test
{

/// A tool's window and the person before it.
template <class Window> class tool_window : public testing::Test
{
protected:
    tool_window() : window(desk.context) {}
    /// A tool that looks for `data_file` in the desk's folder alone.
    tool_window(const char* data_file, const std::string& content) : window(desk.context, nullptr, {desk.folder.path()})
    {
        desk.folder.write(data_file, content);
    }

    void open()
    {
        window.show();
        window.activateWindow();
        settle();
    }
    /// The lines of a list, or the items of a combo box.
    std::vector<std::string> items(const char* name) const
    {
        const auto* box = qobject_cast<QComboBox*>(&person.find(name));
        const QAbstractItemModel& model = box ? *box->model() : *person.find<QAbstractItemView>(name).model();
        std::vector<std::string> texts;
        for (int row = 0; row < model.rowCount(); ++row)
            texts.push_back(model.index(row, 0).data().toString().trimmed().toStdString());
        return texts;
    }
    void expect_no_fault_down_to_the_least_size()
    {
        EXPECT_THAT(faults_of(window), testing::IsEmpty());
        window.resize(window.minimumSizeHint());
        settle();
        EXPECT_THAT(faults_of(window), testing::IsEmpty());
    }

    test_desk desk;
    Window window;
    robot person{window};
};

} // namespace kelvarin::test

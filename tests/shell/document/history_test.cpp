// SPDX-License-Identifier: MIT
#include "shell/document/history.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <string>
#include <vector>

namespace kelvarin
{

TEST(History, NamesItsStepsAndForgetsWhatCouldBeRedone)
{
    history<std::string> steps;
    std::string content = "a";
    EXPECT_FALSE(steps.undo(content));
    steps.record(content, "add b");
    content = "ab";
    EXPECT_EQ(steps.undo_step(), "add b");
    EXPECT_TRUE(steps.undo(content));
    EXPECT_EQ(content, "a");
    EXPECT_EQ(steps.redo_step(), "add b");
    steps.record(content, "add c");
    content = "ac";
    EXPECT_FALSE(steps.can_redo());
    EXPECT_EQ(steps.undo_step(), "add c");
}

TEST(History, KnowsWhichContentIsTheSavedOne)
{
    history<int> steps;
    int content = 0;
    EXPECT_TRUE(steps.is_clean());
    steps.record(content++, "one");
    EXPECT_FALSE(steps.is_clean());
    steps.mark_clean();
    steps.record(content++, "two");
    steps.undo(content);
    EXPECT_TRUE(steps.is_clean()) << "saving keeps both stacks";
    steps.undo(content);
    EXPECT_FALSE(steps.is_clean());
    steps.record(content, "another way");
    content = 7;
    EXPECT_FALSE(steps.is_clean()) << "the saved content cannot be reached any more";
    steps.clear();
    EXPECT_TRUE(steps.is_clean());
}

RC_GTEST_PROP(History, GivesEveryContentBack, (const std::vector<int>& values))
{
    history<int> steps;
    std::vector<int> contents = {0};
    int content = 0;
    for (const int value : values) {
        steps.record(content, "set");
        content = value;
        contents.push_back(value);
    }
    for (std::size_t at = contents.size(); at-- > 0;) {
        RC_ASSERT(content == contents[at]);
        RC_ASSERT(steps.undo(content) == (at > 0));
    }
    for (std::size_t at = 1; at < contents.size(); ++at) {
        RC_ASSERT(steps.redo(content));
        RC_ASSERT(content == contents[at]);
    }
    RC_ASSERT(!steps.redo(content));
}

} // namespace kelvarin

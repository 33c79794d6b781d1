// SPDX-License-Identifier: MIT
// All lists that have something for each kind of problem have it for the same kinds, in the same order.

#include "app/main_toolbar.h"
#include "app/problem_kinds.h"
#include "batch/kinds/kind_answerer.h"
#include "kinds/kinds.h"
#include "main_desk.h"
#include "shell/settings.h"
#include "support/test_desk.h"

#include <gtest/gtest.h>

#include <QMenu>

#include <algorithm>
#include <set>
#include <string>

namespace kelvarin::test
{

TEST(Kinds, EachHasItsWindowsAndItsAnswererUnlessItsRowSaysWhyNot)
{
    test_desk desk;
    const auto windows = problem_window_kinds();
    ASSERT_EQ(windows.size(), problem_kinds().size());
    std::set<std::string> names;
    for (std::size_t i = 0; i < windows.size(); ++i) {
        const problem_kind& row = *problem_kinds()[i];
        SCOPED_TRACE(row.key);
        EXPECT_EQ(windows[i].row, &row);
        EXPECT_EQ(problem_kind_of(row.key), &row);
        EXPECT_EQ(kind_of_command(windows[i].fresh), &windows[i]);
        for (const char* name : {row.key, row.window_name, row.recent_suffix})
            EXPECT_TRUE(names.insert(name).second) << name;

        ASSERT_TRUE(windows[i].make && row.make_document);
        EXPECT_TRUE(answerer_of(row));
        EXPECT_EQ(row.make_document()->kind(), row.key);
        const auto window = windows[i].make(desk.context);
        EXPECT_EQ(window->objectName(), QLatin1String(row.window_name));
        EXPECT_EQ(window->document().kind(), row.key);
    }
    // Graphs are answered as well, but they are no problems.
    for (const kind_answerer& answerer : kind_answerers())
        if (answerer.kind->key != std::string("graph")) {
            EXPECT_EQ(problem_kind_of(answerer.kind->key), answerer.kind);
        }
}

TEST(Kinds, StandInTheSameOrderInToolbarAndMenu)
{
    main_desk desk;
    QStringList expected, in_menu, in_toolbar;
    for (const problem_kind* kind : problem_kinds())
        expected.append(QString::fromLatin1(kind->key).toUpper());
    for (const QAction* action : desk.window->findChild<QMenu*>(QStringLiteral("mnuFileItemP"))->actions())
        in_menu.append(action->text().remove(QLatin1Char('&')).section(QLatin1Char(' '), 0, 0));
    for (const QAction* action : desk.window->findChild<main_toolbar*>()->actions())
        if (expected.contains(action->text())) in_toolbar.append(action->text());
    EXPECT_EQ(in_menu, expected);
    EXPECT_EQ(in_toolbar, expected);
}

TEST(Kinds, MethodsAreThoseOfTheCommandLineAndReadSettingsThatExist)
{
    for (const kind_answerer& answerer : kind_answerers()) {
        SCOPED_TRACE(answerer.kind->key);
        const auto methods = answerer.kind->methods;
        for (const problem_method& method : methods)
            for (const setting_line& line : method.settings)
                EXPECT_TRUE(settings::find(line.key)) << line.key;
        const auto option = std::ranges::find(answerer.options, std::string_view("--method"), &kind_option::name);
        // The methods of tables are those of what is done with them.
        if (methods.empty()) continue;
        ASSERT_NE(option, answerer.options.end());
        for (std::size_t i = 0; i < methods.size(); ++i) {
            EXPECT_FALSE(option->refusal(methods[i].name));
            EXPECT_FALSE(option->refusal(std::to_string(i)));
            EXPECT_NE(std::string(option->help).find(methods[i].name), std::string::npos);
        }
        EXPECT_TRUE(option->refusal(std::to_string(methods.size())));
    }
}

} // namespace kelvarin::test

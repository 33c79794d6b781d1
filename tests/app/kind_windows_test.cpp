// SPDX-License-Identifier: MIT
// What every kind of problem window asks and keeps, each in its own words.

#include "app/problem_kinds.h"
#include "shell/document/file_places.h"
#include "support/robot.h"
#include "support/test_desk.h"

#include <gtest/gtest.h>

#include <QMenu>

#include <iterator>
#include <stdexcept>
#include <string>

namespace
{

using namespace kelvarin;
using namespace kelvarin::test;

const std::string on_open = "Problem not saved. Do you wish to save it now ?";
const std::string on_example = "Previous problem was not saved. Do you wish to save it now ?";
const std::string on_older_format =
    "Saving as older Kelvarin format may result in loosing some formating data. Do you want to continue ?";

struct kind_words
{
    const char* key;
    const char* caption;
    const char* on_close;
    /// The item that puts an example in place of the problem, and its menu.
    const char* example_menu;
    const char* example;
    /// A problem file, and the same in the older format; null if there is none.
    const char* file;
    const char* older_file;
};

const kind_words all_words[] = {
    {"leq", "Linear Equations Solver", "LEQ Problem not saved. Do you want to save it before closing ?", "&Help",
     "mnuSample", "mine\r\n1\r\nvarsnames==u,v\r\n1\t0\t\r\n0\t1\t\r\n3\t4\t\r\r\n",
     "mine\r\n1\r\n1\t0\t\r\n0\t1\t\r\n3\t4\t\r\r\n"},
    {"nle", "Nonlinear Equations Solver", "NLE Problem not saved. Do you want to save it before closing ?", "E&xamples",
     "mnuSample1", "mine |KVRVER05_0\r\nf(x) = x^2-2 #\r\nx(min)=1, x(max)=2\r\n",
     "mine\r\nf(x) = x^2-2\r\nx(min)=1, x(max)=2\r\n"},
    {"deq", "Ordinary Differential Equations Solver", "DEQ Problem not saved. Do you want to save it before closing ?",
     "E&xamples", "mnuSample1", "mine |KVRVER05_0\r\nd(y)/d(t) = -y #\r\nt(0)=0\r\ny(0)=1\r\nt(f)=1\r\n",
     "d(y)/d(t) = -y\r\nt(0)=0\r\ny(0)=1\r\nt(f)=1\r\n"},
    {"opt", "Minima Maxima Solver", "Problem not saved. Do you wish to save it now ?", "E&xamples", "mnuSample1",
     "mine\r\nx^2\r\nx(0) = 1 #\r\n", nullptr},
};

/// A window of the kind with a problem that has no file.
struct kind_desk : test_desk
{
    explicit kind_desk(const kind_words& kind) : window(make(kind.key)), person(window)
    {
        user.expect_input("Enter problem title.", "mine");
        person.trigger(menu("&Edit"), "mnuTitle");
    }
    problem_window& make(const char* key)
    {
        auto* made = kind_of_key(key)->make(context).release();
        frame.show_child(made);
        return *made;
    }
    QMenu& menu(const char* title)
    {
        for (QMenu* found : window.menus())
            if (found->title() == QLatin1String(title)) return *found;
        throw std::runtime_error(std::string("no menu ") + title);
    }

    problem_window& window;
    robot person;
};

TEST(KindsOfWindows, AskInTheirOwnWordsBeforeAnythingUnsavedIsLost)
{
    for (const kind_words& kind : all_words) {
        SCOPED_TRACE(kind.key);
        kind_desk desk(kind);
        EXPECT_EQ(desk.window.windowTitle().toStdString(), std::string(kind.caption) + " - mine[*]");
        const auto other = desk.folder.write("other.kvr", kind.file);
        desk.user.expect_question(kind.on_close, user_answer::cancel);
        EXPECT_FALSE(desk.window.close_with_frame());
        desk.user.expect_question(on_open, user_answer::cancel);
        EXPECT_FALSE(desk.window.open(other));
        desk.user.expect_question(on_example, user_answer::cancel);
        desk.person.trigger(desk.menu(kind.example_menu), kind.example);
        EXPECT_EQ(desk.window.document().title(), "mine");
        EXPECT_FALSE(desk.window.document().problem_saved());

        desk.user.expect_question(on_example, user_answer::yes);
        desk.user.expect_file(chosen_file{desk.folder / "saved.kvr"});
        desk.person.trigger(desk.menu(kind.example_menu), kind.example);
        EXPECT_TRUE(desk.folder.holds("saved.kvr"));
        EXPECT_NE(desk.window.document().title(), "mine");
        EXPECT_EQ(desk.window.file_panel(), "No File  ") << "the example would go over the saved file";
        EXPECT_TRUE(desk.window.open(other)) << "an example that nobody changed is no work";
        EXPECT_TRUE(desk.window.close_with_frame());
    }
}

TEST(KindsOfWindows, WriteTheirFilesAndTheOlderOnesAfterAQuestion)
{
    for (const kind_words& kind : all_words) {
        if (!kind.older_file) continue;
        SCOPED_TRACE(kind.key);
        kind_desk desk(kind);
        desk.user.expect_question(on_open, user_answer::no);
        ASSERT_TRUE(desk.window.open(desk.folder.write("file.kvr", kind.file)));
        for (const user_answer given : {user_answer::no, user_answer::yes}) {
            desk.user.expect_file(chosen_file{desk.folder / "old.kvr", 2});
            desk.user.expect_question(on_older_format, given);
            desk.person.trigger(desk.menu("&File"), "save_as");
            EXPECT_EQ(desk.folder.holds("old.kvr"), given == user_answer::yes);
        }
        EXPECT_EQ(desk.folder.read("old.kvr"), kind.older_file);
        // Save stays with the format, and warns each time.
        std::filesystem::remove(desk.folder / "old.kvr");
        desk.user.expect_question(on_older_format, user_answer::yes);
        desk.person.trigger(desk.menu("&File"), "save");
        EXPECT_EQ(desk.folder.read("old.kvr"), kind.older_file);
        desk.user.expect_file(chosen_file{desk.folder / "new.kvr", 1});
        desk.person.trigger(desk.menu("&File"), "save_as");
        EXPECT_EQ(desk.folder.read("new.kvr"), kind.file);
        std::filesystem::remove(desk.folder / "new.kvr");
        desk.person.trigger(desk.menu("&File"), "save");
        EXPECT_EQ(desk.folder.read("new.kvr"), kind.file);
    }
}

TEST(KindsOfWindows, PassFilesOfOtherKindsOn)
{
    for (std::size_t i = 0; i < std::size(all_words); ++i) {
        SCOPED_TRACE(all_words[i].key);
        // Almost any text could be an optimization problem: its window takes what it is given.
        if (kind_of_key(all_words[i].key)->row->opened_by_own_windows) continue;
        kind_desk desk(all_words[i]);
        const auto open = [&](const std::filesystem::path& file) {
            desk.user.expect_file(chosen_file{file, 1});
            desk.person.trigger(desk.menu("&File"), "mnuOpen");
        };
        const auto foreign = desk.folder.write("other.kvr", all_words[(i + 1) % std::size(all_words)].file);
        desk.user.expect_question(on_open, user_answer::no);
        open(foreign);
        EXPECT_EQ(desk.frame.opened(), std::vector{foreign});

        // A problem kept as a text is one of this window's own.
        desk.user.expect_question(on_open, user_answer::no);
        open(desk.folder.write("own.txt", all_words[i].file));
        EXPECT_EQ(desk.frame.opened().size(), 1u);
        EXPECT_TRUE(desk.window.document().problem_saved());

        desk.frame.recognises_files = false;
        desk.user.expect_box("Error while trying to open file.");
        open(desk.folder.write("bad.kvr", "Shopping\neggs\nmilk\n"));
        EXPECT_EQ(desk.window.document().title(), "mine");
        EXPECT_EQ(desk.frame.opened().size(), 1u);
    }
}

TEST(KindsOfWindows, FileDialogsStartWhereTheLastOneEndedAndProposeAName)
{
    for (const kind_words& kind : all_words) {
        SCOPED_TRACE(kind.key);
        kind_desk desk(kind);
        const std::filesystem::path folder = desk.folder.path() / "homework";
        std::filesystem::create_directory(folder);
        remember_folder(desk.registry, kind.key, folder / "gone.kvr");
        desk.user.expect_input("Enter problem title.", " a/b: 10% ");
        desk.person.trigger(desk.menu("&Edit"), "mnuTitle");
        desk.user.expect_file(chosen_file{desk.folder / "saved.kvr", 1});
        desk.person.trigger(desk.menu("&File"), "save");
        EXPECT_EQ(desk.user.file_questions().back().proposed, folder / "a b 10%.kvr");
        EXPECT_EQ(last_folder(desk.registry, kind.key), desk.folder.path());
        desk.user.expect_file(std::nullopt);
        desk.person.trigger(desk.menu("&File"), "mnuOpen");
        EXPECT_EQ(desk.user.file_questions().back().proposed, desk.folder.path() / "saved.kvr");
    }
}

} // namespace

// SPDX-License-Identifier: MIT
// What every kind of document does the same, said once.

#include "random_changes.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <cerrno>
#include <functional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace kelvarin::test
{
namespace
{

/// Some steps: operations of the kind, titles, examples, and now and then one step back.
template <class Document> void take_steps(Document& document)
{
    for (int steps = *rc::gen::inRange(0, 15); steps > 0; --steps) {
        const int choice = *rc::gen::inRange(0, 10);
        if (choice == 0)
            put_example(document);
        else if (choice == 1)
            document.set_title(any_text());
        else if (choice == 2)
            document.undo();
        else
            change_at_random(document);
    }
}

/// The step after which there is an example that nobody has changed: no work to be lost.
bool is_example_step(std::string_view step)
{
    return step == "Load example" || step == "Load sample";
}

/// The system's calls without the wait for the disk: a property saves a few hundred times.
save_calls without_wait()
{
    save_calls calls = system_save_calls();
    calls.fsync = [](int) { return 0; };
    return calls;
}

template <class Document> class document_laws : public testing::Test
{
protected:
    /// A document with a step and no file.
    static Document titled(std::string_view title)
    {
        Document document;
        document.set_title(title);
        return document;
    }

    const scratch_folder folder_;
};

using kinds = testing::Types<nle_problem, deq_problem, opt_problem, leq_problem, table_document>;
TYPED_TEST_SUITE(document_laws, kinds);

TYPED_TEST(document_laws, ANewOneIsBlank)
{
    TypeParam document;
    EXPECT_TRUE(document.is_blank());
    EXPECT_TRUE(document.problem_saved());
    EXPECT_EQ(document.path(), "");
    EXPECT_EQ(document.undo_step() + document.redo_step(), "");
    EXPECT_FALSE(document.undo());
    EXPECT_FALSE(document.redo());
    document.set_title(" a\tb\r\n");
    EXPECT_EQ(document.title(), "a b");
    EXPECT_FALSE(document.is_blank());
    ASSERT_TRUE(document.undo());
    EXPECT_TRUE(document.is_blank());
    ASSERT_FALSE(document.save("p.kvr"));
    EXPECT_FALSE(document.is_blank()) << "its file can be lost";
}

TYPED_TEST(document_laws, UndoAndRedoWalkTheSameWayBackAndForth)
{
    EXPECT_TRUE(rc::check("any steps", [] {
        TypeParam document;
        take_steps(document);
        const auto last = document.content();
        std::vector<std::pair<std::remove_const_t<decltype(last)>, std::string>> way = {{last, ""}};
        while (document.undo())
            way.emplace_back(document.content(), document.redo_step());
        RC_ASSERT(document.content() == TypeParam().content());
        // A table is unsaved after a command of the clipboard, whatever it did.
        RC_ASSERT(document.problem_saved() || document.kind() == "reg");
        for (std::size_t at = way.size() - 1; at > 0; --at) {
            RC_ASSERT(document.content() == way[at].first);
            RC_ASSERT(document.redo_step() == way[at].second);
            RC_ASSERT(document.redo());
            RC_ASSERT(document.undo_step() == way[at].second);
            RC_ASSERT(document.content() != way[at].first);
            RC_ASSERT(document.needs_recovery() != is_example_step(document.undo_step()) || document.kind() == "reg");
        }
        RC_ASSERT(document.content() == last);
    }));
}

TYPED_TEST(document_laws, AStepForgetsWhatCouldBeRedone)
{
    TypeParam document = this->titled("a");
    document.set_title("b");
    document.set_title("b");
    ASSERT_TRUE(document.undo()) << "a title that does not change is no step";
    EXPECT_EQ(document.title(), "a");
    EXPECT_EQ(document.redo_step(), "Change title");
    document.set_title("c");
    EXPECT_FALSE(document.redo());
    EXPECT_EQ(document.redo_step(), "");
    EXPECT_EQ(document.title(), "c");
}

TYPED_TEST(document_laws, TheCleanMarkMovesWithSavingAndUndoStays)
{
    TypeParam document = this->titled("a");
    EXPECT_FALSE(document.problem_saved());
    ASSERT_FALSE(document.save("p.kvr"));
    EXPECT_TRUE(document.problem_saved());
    EXPECT_EQ(document.path(), "p.kvr");
    document.set_title("b");
    EXPECT_FALSE(document.problem_saved());
    ASSERT_TRUE(document.undo());
    EXPECT_TRUE(document.problem_saved());
    ASSERT_TRUE(document.undo());
    EXPECT_FALSE(document.problem_saved());
    document.set_title("c");
    EXPECT_FALSE(document.problem_saved()) << "as many steps, but another content";
    ASSERT_TRUE(document.undo());
    EXPECT_FALSE(document.problem_saved()) << "the saved content can not be reached any more";
}

TYPED_TEST(document_laws, AnExampleIsNotSavedOverTheFileThatWasOpen)
{
    EXPECT_TRUE(rc::check("any example", [] {
        TypeParam document;
        document.set_title("a");
        RC_ASSERT(!document.save("p.kvr", false, without_wait()));
        put_example(document);
        RC_ASSERT(document.path() == "");
        // Nothing is lost with an example; with what is made of it there is.
        RC_ASSERT(document.problem_saved());
        document.set_title("my own");
        RC_ASSERT(!document.problem_saved());
        RC_ASSERT(document.undo());
        RC_ASSERT(document.problem_saved());
        RC_ASSERT(document.undo());
        RC_ASSERT(document.title() == "a");
        RC_ASSERT(document.problem_saved());
        RC_ASSERT(document.path() == "p.kvr");
        RC_ASSERT(document.redo());
        RC_ASSERT(document.path() == "");
        RC_ASSERT(!document.save("q.kvr", false, without_wait()));
        RC_ASSERT(document.undo());
        RC_ASSERT(document.path() == "q.kvr");
    }));
}

TYPED_TEST(document_laws, FilesComeBackAsTheyWereWritten)
{
    EXPECT_TRUE(rc::check("in both formats", [this] {
        TypeParam document;
        put_example(document);
        take_steps(document);
        const bool older = *rc::gen::arbitrary<bool>();
        RC_ASSERT(!document.save("p.kvr", older, without_wait()));
        TypeParam opened = this->titled("another");
        if (opened.open("p.kvr")) RC_DISCARD("nothing but a title");
        RC_ASSERT(opened.problem_saved());
        RC_ASSERT(opened.path() == "p.kvr");
        RC_ASSERT(!opened.undo());
        RC_ASSERT(!opened.save("q.kvr", older, without_wait()));
        const std::string written = this->folder_.read("p.kvr");
        const std::string rewritten = this->folder_.read("q.kvr");
        RC_ASSERT(rewritten == written);
        TypeParam again;
        RC_ASSERT(!again.open("q.kvr"));
        RC_ASSERT(again.content() == opened.content());
    }));
}

TYPED_TEST(document_laws, WhatIsNoFileOfItsKindLeavesItAsItWas)
{
    this->folder_.write("empty.kvr", "");
    this->folder_.write("title.kvr", "only a title\r\n");
    TypeParam document = this->titled("a");
    ASSERT_FALSE(document.save("p.kvr"));
    document.set_title("b");
    const TypeParam before = document;
    for (const char* name : {"missing.kvr", "empty.kvr", "title.kvr", "."}) {
        SCOPED_TRACE(name);
        // Any line may be the title of an optimization problem that is cut short.
        if (document.kind() == "opt" && name == std::string_view("title.kvr")) continue;
        const auto refused = document.open(name);
        ASSERT_TRUE(refused);
        EXPECT_TRUE(refused->text.starts_with("Error while trying to open file")) << refused->text;
        EXPECT_EQ(refused->icon, box_icon::critical);
        EXPECT_EQ(document.content(), before.content());
        EXPECT_EQ(document.path(), "p.kvr");
        EXPECT_FALSE(document.problem_saved());
        EXPECT_EQ(document.undo_step(), "Change title");
    }
    this->folder_.write("endless.kvr", std::string(100'001, '\n'));
    const auto refused = document.open("endless.kvr");
    ASSERT_TRUE(refused);
    EXPECT_NE(refused->text.find("it has more than 100000 lines"), std::string::npos) << refused->text;
}

TYPED_TEST(document_laws, AFailedSaveLosesNothing)
{
    const auto fail = [](auto...) {
        errno = EIO;
        return -1;
    };
    struct fault
    {
        const char* call;
        std::function<void(save_calls&)> let_it_fail;
    };
    const fault faults[] = {{"open", [&](save_calls& calls) { calls.open = fail; }},
                            {"write", [&](save_calls& calls) { calls.write = fail; }},
                            {"fsync", [&](save_calls& calls) { calls.fsync = fail; }},
                            {"rename", [&](save_calls& calls) { calls.rename = fail; }}};
    this->folder_.write("p.kvr", "before");
    TypeParam document = this->titled("a");
    const TypeParam before = document;
    for (const auto& [call, let_it_fail] : faults) {
        SCOPED_TRACE(call);
        save_calls calls = system_save_calls();
        let_it_fail(calls);
        const auto refused = document.save("p.kvr", false, calls);
        ASSERT_TRUE(refused);
        EXPECT_EQ(refused->text, "Error while trying to save file.");
        EXPECT_EQ(this->folder_.read("p.kvr"), "before");
        EXPECT_EQ(document.content(), before.content());
        EXPECT_FALSE(document.problem_saved());
        EXPECT_EQ(document.path(), "");
    }
    EXPECT_TRUE(document.save(".")) << "a folder";
    EXPECT_FALSE(document.problem_saved());
    EXPECT_FALSE(document.save("p.kvr"));
    EXPECT_TRUE(document.problem_saved());
}

TYPED_TEST(document_laws, RecoveryBringsEverythingBackAsUnsaved)
{
    EXPECT_TRUE(rc::check("whatever was done before", [] {
        TypeParam document;
        take_steps(document);
        const std::string text = document.recovery_text();
        TypeParam recovered;
        recovered.set_title("another");
        RC_ASSERT(!recovered.restore(text.substr(0, *rc::gen::inRange<std::size_t>(0, text.size())), "p.kvr"));
        RC_ASSERT(recovered.title() == "another");
        RC_ASSERT(recovered.path() == "");

        RC_ASSERT(recovered.restore(text, "p.kvr"));
        RC_ASSERT(recovered.content() == document.content());
        RC_ASSERT(recovered.path() == "p.kvr");
        RC_ASSERT(!recovered.problem_saved());
        RC_ASSERT(!recovered.undo());
        take_steps(recovered);
        while (recovered.undo()) {
        }
        RC_ASSERT(recovered.content() == document.content());
        RC_ASSERT(!recovered.problem_saved());
    }));
}

TYPED_TEST(document_laws, RecoveryRefusesWhatItDidNotWrite)
{
    TypeParam document = this->titled("a");
    const std::string whole = document.recovery_text();
    std::string later = whole;
    later.replace(later.find("\"format\": 1"), 11, "\"format\": 2");
    const std::string other_kind =
        document.kind() == "nle" ? leq_problem().recovery_text() : nle_problem().recovery_text();
    for (const std::string& text : {std::string(), std::string("{}"), std::string("[1]"), std::string("null"),
                                    std::string(100000, '['), whole + "x", later, other_kind}) {
        SCOPED_TRACE(text.substr(0, 100));
        EXPECT_FALSE(document.restore(text, "p.kvr"));
        EXPECT_EQ(document.title(), "a");
        EXPECT_EQ(document.path(), "");
        EXPECT_EQ(document.undo_step(), "Change title");
    }
}

} // namespace
} // namespace kelvarin::test

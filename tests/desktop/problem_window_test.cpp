// SPDX-License-Identifier: MIT
#include "desktop/problem_window.h"

#include "shell/document/recent_files.h"
#include "support/robot.h"
#include "support/test_desk.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QMenu>
#include <QPointer>
#include <QProgressDialog>
#include <QPushButton>
#include <QTextDocument>
#include <QThread>
#include <QTimer>

#include <atomic>
#include <ctime>
#include <fstream>
#include <functional>
#include <memory>

namespace
{

using namespace kelvarin;
using namespace kelvarin::test;

/// A problem that is its title, kept as the only line of its file.
class note_document final : public problem_document
{
public:
    std::string_view kind() const override { return "note"; }
    const std::string& title() const override { return title_; }
    void set_title(std::string_view title) override
    {
        title_ = title;
        saved_ = false;
    }
    const std::filesystem::path& path() const override { return path_; }
    bool problem_saved() const override { return saved_; }
    bool is_blank() const override { return title_.empty(); }
    bool undo() override { return false; }
    bool redo() override { return false; }
    std::string undo_step() const override { return {}; }
    std::string redo_step() const override { return {}; }
    refusal open_example(const std::filesystem::path& path) override { return open(path); }
    file_reader reader_of(const std::filesystem::path& path) override
    {
        return [this, path, slow = is_slow](const std::function<bool()>& stop_asked) {
            while (slow && *slow && !(stop_asked && stop_asked()))
                QThread::msleep(1);
            return file_taker([this, path, read = read_text_file(path)]() -> refusal {
                if (!read.ok()) return message_box{.text = "Error while trying to open file."};
                title_ = read.text;
                path_ = path;
                saved_ = true;
                return std::nullopt;
            });
        };
    }
    refusal save(const std::filesystem::path& path, bool older_format, const save_calls& calls) override
    {
        if (save_file(path, older_format ? "old " + title_ : title_, calls))
            return message_box{.text = "Error while trying to save file."};
        path_ = path;
        saved_ = true;
        return std::nullopt;
    }
    std::string recovery_text() const override { return title_; }
    bool restore(std::string_view recovery_text, const std::filesystem::path& path) override
    {
        title_ = recovery_text;
        path_ = path;
        saved_ = false;
        return true;
    }
    std::string printed_listing() const override { return title_; }
    std::function<std::string()> recovery_text_maker() const override
    {
        return [title = title_, slow = is_slow] {
            while (slow && *slow)
                QThread::msleep(1);
            return title;
        };
    }

    /// While it is true, no recovery text and no reading of a file is finished.
    std::shared_ptr<std::atomic<bool>> is_slow;

private:
    std::string title_;
    std::filesystem::path path_;
    bool saved_ = true;
};

constexpr problem_kind note_kind = {.key = "note",
                                    .window_name = "frmNote",
                                    .caption = "Note",
                                    .recent_suffix = "\\files_note",
                                    .open_filter = "Notes (*.kvr)|*.kvr",
                                    .save_filter = "Notes (*.kvr)|*.kvr|Old notes (*.kvr)|*.kvr",
                                    .older_format_filter = 2,
                                    .older_format_question = "Older ?",
                                    .unsaved_on_close = "Save before closing ?",
                                    .unsaved_on_open = "Save now ?"};

class frmNote final : public problem_window
{
public:
    explicit frmNote(desktop_context& context) : problem_window(context, note_kind) { document_changed(); }

    using problem_window::document;
    note_document& document() override { return document_; }
    QList<QMenu*> menus() override { return {file_menu(), edit_menu()}; }
    void write(const std::string& title)
    {
        document_.set_title(title);
        document_changed();
    }
    bool controls_off = false;

protected:
    void show_document() override {}
    void enable_controls_for_run(bool running) override { controls_off = running; }
    bool can_solve() const override { return true; }
    void solve() override
    {
        start_run(
            [](run_listener& listener) {
                while (!listener.stop_asked())
                    QThread::msleep(1);
                return 0;
            },
            [](int) {});
    }

private:
    note_document document_;
};

struct note_test : testing::Test
{
    note_test()
    {
        window = new frmNote(desk.context);
        desk.frame.show_child(window);
    }
    std::string content(const std::string& file) const { return read_text_file(desk.folder / file).text; }
    /// The recovery copies.
    std::vector<std::filesystem::path> kept_files() const
    {
        std::vector<std::filesystem::path> files;
        for (const auto& entry : std::filesystem::directory_iterator(desk.folder / "recovery"))
            if (entry.path().extension() == ".json") files.push_back(entry.path());
        return files;
    }
    std::size_t kept() const { return kept_files().size(); }
    std::string kept_text() const
    {
        const std::vector<std::filesystem::path> files = kept_files();
        return files.empty() ? std::string() : read_text_file(files.front()).text;
    }

    test_desk desk;
    QPointer<frmNote> window;
};

TEST_F(note_test, AsksOnClosingAndLosesNothingUnlessTold)
{
    window->write("first");
    desk.user.expect_question("Save before closing ?", user_answer::cancel);
    EXPECT_FALSE(window->close_with_frame());
    // Yes, but then no file is chosen: the window stays.
    desk.user.expect_question("Save before closing ?", user_answer::yes);
    desk.user.expect_file(std::nullopt);
    EXPECT_FALSE(window->close_with_frame());
    EXPECT_FALSE(window->document().problem_saved());
    desk.user.expect_question("Save before closing ?", user_answer::yes);
    desk.user.expect_file(chosen_file{desk.folder / "note.kvr"});
    EXPECT_TRUE(window->close_with_frame());
    settle();
    EXPECT_TRUE(window.isNull());
    EXPECT_EQ(content("note.kvr"), "first");
}

TEST_F(note_test, StaysUnsavedWhereSavingFails)
{
    window->write("first");
    std::ofstream(desk.folder / "file") << "no folder";
    desk.user.expect_file(chosen_file{desk.folder / "file" / "note.kvr"});
    desk.user.expect_box("Error while trying to save file.");
    EXPECT_FALSE(window->save());
    EXPECT_TRUE(window->isWindowModified());
    // Over it another file is opened only after the question.
    std::ofstream(desk.folder / "other.kvr") << "other";
    desk.user.expect_question("Save now ?", user_answer::cancel);
    EXPECT_FALSE(window->open(desk.folder / "other.kvr"));
    EXPECT_EQ(window->document().title(), "first");
    desk.user.expect_question("Save now ?", user_answer::no);
    EXPECT_TRUE(window->open(desk.folder / "other.kvr"));
    EXPECT_FALSE(window->isWindowModified());
}

TEST_F(note_test, KeepsARecoveryCopyExactlyWhileUnsaved)
{
    ASSERT_EQ(kept(), 0U);
    window->write("first");
    EXPECT_TRUE(wait_until([&] { return kept() == 1; })) << "nothing was kept by itself";
    desk.user.expect_file(chosen_file{desk.folder / "note.kvr"});
    EXPECT_TRUE(window->save());
    EXPECT_EQ(kept(), 0U);
    window->write("second");
    window->keep_recovery_copy();
    EXPECT_EQ(kept(), 1U);
    desk.user.expect_question("Save before closing ?", user_answer::no);
    EXPECT_TRUE(window->close_with_frame());
    EXPECT_EQ(kept(), 0U);
}

TEST_F(note_test, RecoveryCopiesFollowWhileChangesKeepComing)
{
    QElapsedTimer clock;
    clock.start();
    const auto is_kept = [&](const std::string& title) {
        // Faster than the pause before a copy.
        window->write(title + std::to_string(clock.elapsed()));
        return kept_text().find(title) != std::string::npos;
    };
    EXPECT_TRUE(wait_until([&] { return is_kept("first"); }, 2000));
    EXPECT_TRUE(wait_until([&] { return is_kept("second"); }, 4000));
}

TEST_F(note_test, ASlowRecoveryCopyKeepsNobodyWaiting)
{
    const auto slow = std::make_shared<std::atomic<bool>>(true);
    window->document().is_slow = slow;
    window->write("first");
    // Well into the making of the copy; this returns although that doesn't.
    EXPECT_FALSE(wait_until([&] { return kept() > 0; }, 700));
    desk.user.expect_file(chosen_file{desk.folder / "note.kvr"});
    EXPECT_TRUE(window->save());
    *slow = false;
    EXPECT_FALSE(wait_until([] { return false; }, 200));
    EXPECT_EQ(kept(), 0U) << "a copy of what was saved came late";
    window->write("second");
    EXPECT_TRUE(wait_until([&] { return kept_text().find("second") != std::string::npos; }));
}

TEST_F(note_test, SaysThatRecoveryCopiesCanNotBeKept)
{
    std::filesystem::remove_all(desk.folder / "recovery");
    window->write("first");
    ASSERT_TRUE(wait_until([&] { return !desk.frame.said().isEmpty(); }));
    EXPECT_EQ(desk.frame.said().front().toStdString(),
              "Unsaved work can not be kept against a crash: No such file or directory.");
}

TEST_F(note_test, AsksBeforeItReplacesWhatAnotherProgramWrote)
{
    const std::filesystem::path file = desk.folder / "note.kvr";
    const auto write_elsewhere = [&](const std::string& text) {
        std::filesystem::remove(file);
        std::ofstream(file) << text;
    };
    std::ofstream(file) << "first";
    ASSERT_TRUE(window->open(file));
    window->write("here 1");
    EXPECT_TRUE(window->save()) << "nobody else has written";
    window->write("here 2");
    EXPECT_TRUE(window->save()) << "what this window wrote is no news";

    const std::string told = file.string() + "\rwas changed by another program or window.";
    write_elsewhere("there 1");
    window->write("here 3");
    desk.user.expect_choice(told, std::nullopt);
    EXPECT_FALSE(window->save());
    EXPECT_EQ(content("note.kvr"), "there 1");
    EXPECT_EQ(window->document().title(), "here 3");

    desk.user.expect_choice(told, QStringLiteral("Save As..."));
    desk.user.expect_file(chosen_file{desk.folder / "other.kvr"});
    EXPECT_TRUE(window->save());
    EXPECT_EQ(content("note.kvr"), "there 1");
    EXPECT_EQ(content("other.kvr"), "here 3");

    ASSERT_TRUE(window->open(file));
    write_elsewhere("there 2");
    window->write("here 4");
    desk.user.expect_choice("Save replaces it by this window's \"here 4\"", QStringLiteral("Reload"));
    EXPECT_FALSE(window->save());
    EXPECT_EQ(window->document().title(), "there 2");
    EXPECT_FALSE(window->isWindowModified());

    write_elsewhere("there 3");
    window->write("here 5");
    desk.user.expect_choice(told, QStringLiteral("Save"));
    EXPECT_TRUE(window->save());
    EXPECT_EQ(content("note.kvr"), "here 5");

    // A file that is gone is written again.
    std::filesystem::remove(file);
    window->write("here 6");
    EXPECT_TRUE(window->save());
    EXPECT_EQ(content("note.kvr"), "here 6");
}

TEST_F(note_test, ARecoveredProblemAsksBeforeItReplacesANewerFile)
{
    const std::filesystem::path file = desk.folder / "note.kvr";
    std::ofstream(file) << "there";
    const std::int64_t now = std::time(nullptr);
    ASSERT_TRUE(
        window->recover(desk.recovery.new_slot(),
                        {.kind = "note", .title = "here", .path = file, .kept_at = now - 60, .content = "here"}));
    desk.user.expect_choice("Changed there: ", std::nullopt);
    EXPECT_FALSE(window->save());
    ASSERT_TRUE(
        window->recover(desk.recovery.new_slot(),
                        {.kind = "note", .title = "here", .path = file, .kept_at = now + 60, .content = "here"}));
    EXPECT_TRUE(window->save());
}

// Not under the thread sanitizer: the toolkit draws the box in threads of its own, which the sanitizer can't follow.
TEST_F(note_test, ASlowFileKeepsNoWindowWaitingAndReadingItCanBeStopped)
{
    const std::filesystem::path file = desk.folder / "note.kvr";
    std::ofstream(file) << "read";
    const auto slow = std::make_shared<std::atomic<bool>>(true);
    window->document().is_slow = slow;
    int looks = 0;
    QTimer other_work;
    QObject::connect(&other_work, &QTimer::timeout, &other_work, [&] {
        const auto* const box = window->window()->findChild<QProgressDialog*>(QStringLiteral("frmWait"));
        if (box && box->isVisible() && ++looks == 10) box->findChild<QPushButton*>()->click();
    });
    other_work.start(1);
    EXPECT_FALSE(window->open(file));
    EXPECT_EQ(looks, 10);
    EXPECT_EQ(window->document().title(), "");
    EXPECT_TRUE(window->document().path().empty());

    looks = 10;
    QTimer::singleShot(300, &other_work, [&] { *slow = false; });
    EXPECT_TRUE(window->open(file));
    EXPECT_GT(looks, 10);
    EXPECT_EQ(window->document().title(), "read");
}

TEST_F(note_test, RemembersFilesAndOpensThemFromItsMenu)
{
    for (const char* name : {"one.kvr", "two.kvr"}) {
        std::ofstream(desk.folder / name) << name;
        EXPECT_TRUE(window->open(desk.folder / name));
    }
    emit window->menus().front()->aboutToShow();
    robot(*window).trigger(*window->menus().front(), "mnuFileItem_2");
    ASSERT_EQ(desk.frame.opened().size(), 1U);
    EXPECT_EQ(desk.frame.opened().front().filename(), "one.kvr");
}

TEST_F(note_test, TakesNoNameOfAFileForMarkup)
{
    const std::filesystem::path file = desk.folder / "a<b>c<b>.kvr";
    std::ofstream(file) << "first";
    ASSERT_TRUE(window->open(file));
    emit window->menus().front()->aboutToShow();
    const QAction* const item = robot::item_of(*window->menus().front(), "mnuFileItem_1");
    QTextDocument shown;
    shown.setHtml(item->toolTip());
    EXPECT_EQ(shown.toPlainText().toStdString(), file.string());
}

TEST_F(note_test, ARunCanBeStoppedByEscAndByClosing)
{
    robot::press(Qt::Key_F5);
    ASSERT_TRUE(window->is_running());
    EXPECT_TRUE(window->controls_off);
    EXPECT_FALSE(window->can(window_command::solve));
    robot::press(Qt::Key_Escape);
    ASSERT_TRUE(wait_until([&] { return !window->is_running(); }));
    EXPECT_FALSE(window->controls_off);

    robot::press(Qt::Key_F5);
    EXPECT_FALSE(window->close_with_frame()) << "closed under a running job";
    EXPECT_TRUE(wait_until([&] { return window.isNull(); })) << "closing was not carried out after the run";
}

} // namespace

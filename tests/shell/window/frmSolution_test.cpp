// SPDX-License-Identifier: MIT
#include "shell/window/frmSolution.h"

#include "platform/saver.h"
#include "support/robot.h"
#include "support/table.h"
#include "support/test_desk.h"
#include "support/window_walk.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTimer>

#include <fstream>

namespace kelvarin
{

using test::robot;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace
{

const std::string table_head = R"({\cf1\f6  \ul Variable      Value       f(x)       Ini Guess}\par )";
const std::string table_row = R"({\f6  x           3           -2            3        }\par )";

std::string small_report()
{
    return rich_text_document(R"({\b\cf2\f5\fs24\ul KELVARIN Results}\par {\cf2\f5\fs20\b Pipe}\par )" + table_head +
                              table_row + R"({\f6  }Data file: pipe.kvr)");
}

std::string golden(const char* name)
{
    std::ifstream file(std::filesystem::path(KELVARIN_GOLDEN) / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// A shown report on a desk.
class ReportWindow : public testing::Test
{
protected:
    frmSolution& show(std::string report)
    {
        auto* window = new frmSolution(desk.context);
        window->update_prog_sol(true, {}, "Pipe");
        window->show_report(std::move(report), QStringLiteral("Nonlinear Equations Solution #1"));
        desk.frame.show_child(window);
        test::settle();
        return *window;
    }
    frmSolution& opened(const std::filesystem::path& path)
    {
        EXPECT_FALSE(open_report(desk.context, path));
        return dynamic_cast<frmSolution&>(*desk.frame.children().back());
    }
    static report_view& box_of(const frmSolution& window) { return *window.findChild<report_view*>(); }
    /// Marks the lines `first` to `last`, counted from 0, as a mouse would.
    static void mark(const frmSolution& window, int first, int last)
    {
        report_view& box = box_of(window);
        QTextCursor cursor(box.document()->findBlockByNumber(first));
        const QTextBlock end = box.document()->findBlockByNumber(last);
        cursor.setPosition(end.position() + end.length() - 1, QTextCursor::KeepAnchor);
        box.setTextCursor(cursor);
        box.setFocus();
    }
    static QStringList captions_of(const QMenu& menu)
    {
        QStringList captions;
        for (const QAction* action : menu.actions()) {
            if (!action->isSeparator()) captions += action->text();
        }
        return captions;
    }

    test::test_desk desk;
};

} // namespace

TEST_F(ReportWindow, SavesTheReportAsItWasGiven)
{
    for (const char* name : {"nle/system.rtf", "nle/single.rtf", "nle/explicit.rtf"}) {
        SCOPED_TRACE(name);
        const std::string report = golden(name);
        ASSERT_FALSE(report.empty());
        frmSolution& window = show(report);
        EXPECT_EQ(window.file_panel(), QStringLiteral("No File  "));
        desk.user.expect_file(chosen_file{desk.folder / "saved.rtf", 1});
        window.perform(window_command::save_as);
        EXPECT_EQ(desk.folder.read("saved.rtf"), report);

        const frmSolution& again = opened(desk.folder / "saved.rtf");
        EXPECT_EQ(again.rich_text(), report);
        EXPECT_EQ(again.plain_text(), window.plain_text());
        EXPECT_EQ(again.title_panel(), QStringLiteral("KELVARIN Report "));
        EXPECT_THAT(again.file_panel().toStdString(), HasSubstr("saved.rtf"));
    }
    EXPECT_EQ(desk.user.file_questions().front().filter.substr(0, 63),
              "Rich text (*.rtf)|*.rtf|Text (*.txt)|*.txt|All file (*.*)|*.*|P");
    EXPECT_EQ(desk.user.file_questions().front().default_extension, QStringLiteral("rtf"));
}

TEST_F(ReportWindow, ShowsASavedTextInCourierNew)
{
    frmSolution& window = show(small_report());
    desk.user.expect_file(chosen_file{desk.folder / "saved.txt", 1});
    window.perform(window_command::save_as);
    EXPECT_EQ(desk.folder.read("saved.txt"),
              "KELVARIN Results\nPipe\n Variable      Value       f(x)       Ini Guess\n"
              " x           3           -2            3        \n Data file: pipe.kvr\n");

    frmSolution& text = opened(desk.folder / "saved.txt");
    int runs = 0;
    for (QTextBlock block = box_of(text).document()->begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part, ++runs)
            EXPECT_EQ(part.fragment().charFormat().fontFamilies().toStringList(), QStringList{"Courier New"});
    }
    EXPECT_EQ(runs, 5);
    // A save without a question keeps the form.
    text.perform(window_command::save);
    EXPECT_EQ(desk.folder.read("saved.txt"), window.plain_text());
}

TEST_F(ReportWindow, ChoosesTheFormByTheNameAndThenByTheFilter)
{
    using enum report_format;
    for (const auto& [name, filter, expected] :
         test::table<const char*, int, report_format>{{"a.rtf", 2, rich_text},
                                                      {"a.txt", 1, plain_text},
                                                      {"a.txt.bak", 1, plain_text},
                                                      {"A.RTF", 2, rich_text},
                                                      {"a.rtf.txt", 1, plain_text},
                                                      {"a.pdf", 1, pdf},
                                                      {"a.html", 1, html},
                                                      {"a", 1, rich_text},
                                                      {"a", 2, plain_text},
                                                      {"a.doc", 3, rich_text},
                                                      {"a.doc", 4, pdf},
                                                      {"a.doc", 5, html},
                                                      // The folder's name tells nothing.
                                                      {"notes.txt.d/a", 1, rich_text}})
        EXPECT_EQ(format_of_report(name, filter), expected) << name;
}

TEST_F(ReportWindow, WritesPdfAndHtml)
{
    frmSolution& window = show(small_report());
    desk.user.expect_file(chosen_file{desk.folder / "saved.pdf", 4});
    window.perform(window_command::save_as);
    const std::string pdf = desk.folder.read("saved.pdf");
    EXPECT_TRUE(pdf.starts_with("%PDF-"));
    EXPECT_THAT(pdf.substr(pdf.size() - 10), HasSubstr("%%EOF"));
    EXPECT_THAT(pdf, HasSubstr("/Count 1"));

    desk.user.expect_file(chosen_file{desk.folder / "saved.html", 5});
    window.perform(window_command::save_as);
    const std::string html = desk.folder.read("saved.html");
    EXPECT_THAT(html, HasSubstr("<title>Nonlinear Equations Solution #1</title>"));
    EXPECT_THAT(html, HasSubstr("Data file: pipe.kvr"));
}

TEST_F(ReportWindow, NamesNoFileWhereASaveFails)
{
    frmSolution& window = show(small_report());
    const std::filesystem::path nowhere = desk.folder / "missing/saved.rtf";
    desk.user.expect_file(chosen_file{nowhere, 1});
    desk.user.expect_box("Error\r" + save_file(nowhere, "x")->reason);
    window.perform(window_command::save);
    EXPECT_TRUE(desk.user.is_done());
    EXPECT_EQ(window.file_panel(), QStringLiteral("No File  "));

    desk.user.expect_file(std::nullopt);
    window.perform(window_command::save_as);
    EXPECT_EQ(window.file_panel(), QStringLiteral("No File  "));
}

TEST_F(ReportWindow, CopiesWhatIsMarkedInAllForms)
{
    frmSolution& window = show(small_report());
    EXPECT_FALSE(window.can(window_command::copy));
    mark(window, 2, 3);
    EXPECT_TRUE(window.can(window_command::copy));
    robot::press(Qt::Key_C, Qt::ControlModifier);
    const QMimeData& copied = *desk.user.clipboard();
    EXPECT_EQ(copied.text().toStdString(),
              " Variable      Value       f(x)       Ini Guess\n x           3           -2            3        ");
    EXPECT_EQ(copied.data("text/tab-separated-values").toStdString(),
              "Variable\tValue\tf(x)\tIni Guess\nx\t3\t-2\t3\n");
    EXPECT_THAT(copied.html().toStdString(), HasSubstr("<td>-2</td>"));
    const std::vector<styled_line> read = read_rich_text(copied.data("text/rtf").toStdString());
    ASSERT_EQ(plain_text_of(read), copied.text().toStdString() + "\n");
    EXPECT_TRUE(read[0].back().underline);
    EXPECT_EQ(read[0].back().colour, (rgb_colour{0, 0, 160}));

    robot(window).trigger(*window.menus()[1], "Select All");
    robot(window).trigger(*window.menus()[1], "Copy");
    EXPECT_EQ(desk.user.copied_text().toStdString() + "\n", window.plain_text());
}

TEST_F(ReportWindow, MarksLettersBeyondTheBasicPlaneWhole)
{
    // U+1F600 is two units in the toolkit's text and four bytes in ours.
    frmSolution& window = show(rich_text_document(R"({\b a\u-10179?\u-8704?b}{\i c\u233?d})"));
    QTextCursor cursor = box_of(window).textCursor();
    cursor.setPosition(1);
    cursor.setPosition(5, QTextCursor::KeepAnchor);
    box_of(window).setTextCursor(cursor);
    const std::vector<styled_line> marked = box_of(window).marked_lines();
    ASSERT_EQ(marked.size(), 1U);
    ASSERT_EQ(marked[0].size(), 2U);
    EXPECT_EQ(marked[0][0].text, "\xF0\x9F\x98\x80"
                                 "b");
    EXPECT_EQ(marked[0][1].text, "c");
    EXPECT_TRUE(marked[0][1].italic);
}

TEST_F(ReportWindow, KeepsColumnsAtEveryZoom)
{
    frmSolution& window = show(small_report());
    report_view& box = box_of(window);
    // Of one letter in the row above the other: the head begins with a blank.
    const auto place = [&](int line, int column) {
        QTextCursor cursor(box.document()->findBlockByNumber(line));
        cursor.setPosition(cursor.position() + column);
        return box.cursorRect(cursor).left();
    };
    window.resize(500, 500);
    box.set_zoom(0.5);
    double width = 0.0;
    for (double before = 0.0; box.zoom() != before;) {
        SCOPED_TRACE(box.zoom());
        for (const int column : {0, 12, 24, 38})
            EXPECT_NEAR(place(2, column), place(3, column), 1);
        // No row of the table is broken, however narrow the window is.
        EXPECT_EQ(box.document()->findBlockByNumber(2).layout()->lineCount(), 1);
        EXPECT_GT(place(2, 38) - place(2, 0), width);
        width = place(2, 38) - place(2, 0);
        before = box.zoom();
        robot::press(Qt::Key_Plus, Qt::ControlModifier);
    }
    EXPECT_GT(box.horizontalScrollBar()->maximum(), 0);
    robot::press(Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(box.zoom(), 1.0);
}

TEST_F(ReportWindow, AsksBeforeItReplacesWhatAnotherProgramWrote)
{
    const auto file = desk.folder.write("text.txt", "first\n");
    frmSolution& window = opened(file);
    EXPECT_TRUE(window.save());
    std::filesystem::remove(file);
    desk.folder.write("text.txt", "second\n");
    desk.user.expect_choice("was changed by another program or window.", QStringLiteral("Reload"));
    EXPECT_FALSE(window.save());
    EXPECT_EQ(window.plain_text(), "second\n");
    EXPECT_TRUE(window.save());
}

/// A report of so many letters, among them lines that no toolkit lays out in reasonable time.
std::string long_text(std::size_t letters)
{
    std::string text = std::string(2000, '\t') + "end of tabs\n" + std::string(100'000, 'x') + "\n";
    for (int line = 1; text.size() < letters; ++line)
        text += "line " + std::to_string(line) + " of a long text that is shown piece by piece\n";
    return text;
}

TEST_F(ReportWindow, ShowsTheStartOfALongTextAtOnceAndTheRestBesideOtherWork)
{
    const std::string text = long_text(1'000'000);
    frmSolution& window = opened(desk.folder.write("long.txt", text));
    report_view& box = box_of(window);
    EXPECT_FALSE(box.is_filled());
    const QString start = box.toPlainText();
    EXPECT_GT(start.size(), 10'000);
    EXPECT_LT(start.size(), 200'000);
    // What is saved and copied is whole meanwhile.
    EXPECT_EQ(window.plain_text(), text);
    box.selectAll();
    EXPECT_EQ(plain_text_of(box.marked_lines()), text);
    window.resize(700, 500);
    box.set_zoom(1.25);

    ASSERT_TRUE(test::wait_until([&] { return box.is_filled(); }, 60'000));
    EXPECT_EQ(box.toPlainText().remove(QLatin1Char('\n')).toStdString(),
              QString::fromStdString(text).remove(QLatin1Char('\n')).toStdString());
    for (QTextBlock block = box.document()->begin(); block.isValid(); block = block.next())
        ASSERT_LE(block.length(), 12'001);
    mark(window, 40, 90);
    const std::string marked = plain_text_of(box.marked_lines());
    EXPECT_NE(text.find(marked.substr(0, marked.size() - 1)), text.npos);
}

TEST_F(ReportWindow, MakingPagesCanBeStopped)
{
    frmSolution& window = opened(desk.folder.write("long.txt", long_text(5'000'000)));
    bool has_stopped = false;
    QTimer stopper;
    QObject::connect(&stopper, &QTimer::timeout, &stopper, [&] {
        for (QWidget* shown : QApplication::topLevelWidgets()) {
            if (shown->objectName() != QLatin1String("frmPages") || !shown->isVisible()) continue;
            shown->findChild<QPushButton*>()->click();
            has_stopped = true;
        }
    });
    stopper.start(0);
    desk.user.expect_print(desk.folder / "printed.pdf");
    window.perform(window_command::print);
    EXPECT_TRUE(has_stopped);
    EXPECT_FALSE(desk.folder.holds("printed.pdf"));
    has_stopped = false;
    desk.user.expect_file(chosen_file{desk.folder / "saved.pdf", 4});
    EXPECT_FALSE(window.save_as());
    EXPECT_TRUE(has_stopped);
    EXPECT_FALSE(desk.folder.holds("saved.pdf"));
}

TEST_F(ReportWindow, OffersItsMenus)
{
    frmSolution& window = show(small_report());
    const QList<QMenu*> menus = window.menus();
    QStringList titles;
    for (const QMenu* menu : menus)
        titles += menu->title();
    EXPECT_EQ(titles, (QStringList{"&Report", "&Edit", "&Window", "&Help"}));
    EXPECT_EQ(captions_of(*menus[0]), (QStringList{"&Refresh", "Save &As...", "&Print...", "Print Pre&view...",
                                                   "&Close", "Close All", "E&xit"}));
    EXPECT_EQ(captions_of(*menus[1]).mid(0, 2), (QStringList{"&Copy", "Select All"}));
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Nonlinear Equations Solution #1[*]"));
    EXPECT_EQ(window.title_panel(), QStringLiteral("Pipe"));
    EXPECT_THAT(test::faults_of(window, menus), IsEmpty());

    // Lays out anew what it was given.
    box_of(window).clear();
    robot(window).trigger(*menus[0], "Refresh");
    EXPECT_EQ(box_of(window).toPlainText().toStdString() + "\n", window.plain_text());
}

TEST_F(ReportWindow, Prints)
{
    frmSolution& window = show(small_report());
    desk.user.expect_print(desk.folder / "printed.pdf");
    window.perform(window_command::print);
    EXPECT_TRUE(desk.folder.read("printed.pdf").starts_with("%PDF-"));
    desk.user.expect_print(desk.folder / "preview.pdf");
    window.perform(window_command::print_preview);
    EXPECT_TRUE(desk.folder.holds("preview.pdf"));

    // The toolkit warns of a printer that can not begin; here it should.
    const QtMessageHandler before = qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    desk.user.expect_print(desk.folder / "missing/printed.pdf");
    desk.user.expect_box("Error while trying to print or setting printer.");
    window.perform(window_command::print);
    qInstallMessageHandler(before);
    EXPECT_TRUE(desk.user.is_done());
}

TEST_F(ReportWindow, OpensReportsOfOthersAndRefusesWhatIsNone)
{
    // As word processors write: groups that are not to be shown, letters of a code page, a table.
    const auto other =
        desk.folder.write("other.RTF", R"({\rtf1\ansi\ansicpg1252{\fonttbl{\f0\froman\fprq2 Liberation Serif;}}
{\*\generator Writer;}{\stylesheet{\s0 Standard;}}\pard\plain\f0\fs24 Caf\'e9\par
\trowd\cellx1000\cellx2000\intbl a\cell b\cell\row\pard end\par})");
    const frmSolution& window = opened(other);
    EXPECT_THAT(window.plain_text(), HasSubstr("Caf\xC3\xA9\n"));
    EXPECT_THAT(window.plain_text(), HasSubstr("a\tb"));
    EXPECT_EQ(window.windowTitle(), QStringLiteral("KELVARIN Report - other.RTF[*]"));
    EXPECT_FALSE(window.isWindowModified());

    std::filesystem::create_directory(desk.folder / "folder.txt");
    for (const auto& path :
         {desk.folder / "missing.rtf", desk.folder / "folder.txt", desk.folder.write("plain.rtf", "no rich text")}) {
        SCOPED_TRACE(path);
        const auto refused = open_report(desk.context, path);
        ASSERT_TRUE(refused);
        EXPECT_EQ(refused->text, "Error while trying to open file.");
    }
    EXPECT_EQ(desk.frame.children().size(), 1U);
}

} // namespace kelvarin

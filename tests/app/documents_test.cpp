// SPDX-License-Identifier: MIT
#include "main_desk.h"

#include "desktop/link_label.h"
#include "graph/graph_file.h"
#include "leq/leq_file.h"
#include "leq/leq_sample.h"
#include "shell/window/frmSolution.h"
#include "support/graphs.h"
#include "support/robot.h"
#include "support/table.h"

#include <QApplication>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QUrl>

namespace
{

using namespace kelvarin;
using namespace kelvarin::test;

constexpr const char* gas = "Gas\nf(v) = v - 2\n1\n3\n";
constexpr const char* rope = "Rope\nf(h) = h^2 - 2\n1\n3\n";

TEST(OpenDocument, GoesByExtensionAndFirstLines)
{
    const std::string plane = write_leq(sample_leq(1));
    const std::string curve = write_graph(graph_of({{0, 1}, {2, 3}}));
    // The kind of the window that opens, and else the box.
    const table<const char*, const char*, const char*, const char*> rows = {
        {"gas.kvr", gas, "frmNLE", ""},
        {"gas.TXT", gas, "frmSolution", ""},
        {"report.rtf", "{\\rtf1 hello}", "frmSolution", ""},
        {"decay.kvr", "Decay\nd(y)/d(t) = -y\nt(0)=0\ny(0)=1\nt(f)=1\n", "frmDEQ", ""},
        {"table.kvr", "Table\n2 3\nA\n", "frmRGT", ""},
        {"plane.kvr", plane.c_str(), "frmLEQ", ""},
        {"cut.kvg", "KVRGRF/V500//\nx\ny\n", "", "Error while trying to open file."},
        {"curve.kvg", curve.c_str(), "frmGraph", ""},
        {"letter.kvr", "Dear all\nhello\nbye\n", "",
         "The file format of letter.kvr does not match any of the Kelvarin input files format."},
        {"valley.kvr", "Valley\nx^2\nx(0)=1\n", "",
         "The file format of valley.kvr does not match any of the Kelvarin input files format."},
        {"empty.kvr", "", "", "Error while trying to open file."},
    };
    for (const auto& [name, text, window, box] : rows) {
        SCOPED_TRACE(name);
        main_desk desk;
        desk.folder.write(name, text);
        if (*box) desk.user.expect_box(box);
        desk.window->open_document(name);
        settle();
        EXPECT_TRUE(desk.user.is_done());
        const child_window* front = desk.window->active_child();
        EXPECT_EQ(front ? front->objectName().toStdString() : "", window);
    }
}

TEST(OpenDocument, PassesOverMissingFilesAndRefusesWhatIsNoFile)
{
    main_desk desk;
    desk.window->open_document("nowhere.kvr");
    EXPECT_TRUE(desk.children().empty());
    EXPECT_TRUE(desk.user.boxes().empty());
    desk.user.expect_box("Error while trying to open file.");
    desk.window->open_document(desk.folder.path());
    EXPECT_TRUE(desk.children().empty());
}

TEST(OpenDocument, ARefusedFileLeavesNoEmptyWindow)
{
    main_desk desk;
    // Recognised by the "=" of its second line, which is no equation of a nonlinear problem.
    desk.folder.write("refused.kvr", "Title\n1 + 1 = 2\nx = 1\n");
    desk.user.expect_box("Error while trying to open file.");
    desk.window->open_document("refused.kvr");
    settle();
    EXPECT_TRUE(desk.children().empty());
    // A window that was there stays.
    desk.new_problem();
    desk.user.expect_box("Error while trying to open file.");
    desk.window->open_document("refused.kvr");
    EXPECT_EQ(desk.children().size(), 1u);
}

TEST(OpenDocument, TheWindowInFrontTakesAFileOfItsKind)
{
    main_desk desk;
    desk.folder.write("gas.kvr", gas);
    desk.folder.write("rope.kvr", rope);
    frmNLE& first = desk.new_problem();
    desk.window->open_document("gas.kvr");
    EXPECT_EQ(first.document().title(), "Gas");
    EXPECT_EQ(desk.children().size(), 1u);
    EXPECT_EQ(desk.person().text("pnlTitle"), "Gas");

    // Where a report stands in front, a new window does.
    desk.show_stand_in("frmSolution");
    desk.window->open_document("rope.kvr");
    EXPECT_EQ(first.document().title(), "Gas");
    EXPECT_EQ(desk.front_problem().document().title(), "Rope");
    EXPECT_EQ(desk.children().size(), 3u);

    // What is unsaved is asked for, and can be kept.
    desk.new_unsaved_problem();
    desk.user.expect_question("Problem not saved. Do you wish to save it now ?", user_answer::cancel);
    desk.window->open_document("gas.kvr");
    EXPECT_NE(desk.front_problem().document().title(), "Gas");
    EXPECT_EQ(desk.user.questions().size(), 1u);
    desk.user.expect_question(unsaved_question, user_answer::no);
    desk.run(window_command::close);
}

TEST(OpenDocument, SeveralFilesGetAWindowEach)
{
    main_desk desk;
    desk.window->open_documents({desk.folder.write("gas.kvr", gas), desk.folder.write("rope.kvr", rope)});
    ASSERT_EQ(desk.children().size(), 2u);
    EXPECT_EQ(desk.children()[0]->title_panel(), QStringLiteral("Gas"));
    EXPECT_EQ(desk.children()[1]->title_panel(), QStringLiteral("Rope"));
}

TEST(OpenDocument, TheDialogHasItsFilterAndAnEmptyNameAndMayBeLeft)
{
    main_desk desk;
    desk.user.expect_file(std::nullopt);
    desk.run(window_command::open);
    EXPECT_TRUE(desk.children().empty());
    ASSERT_EQ(desk.user.file_questions().size(), 1u);
    EXPECT_EQ(desk.user.file_questions()[0].filter,
              "All Kelvarin files (*.kvr; *.kvg; *.rtf)|*.kvr; *.kvg; *.rtf|Kelvarin Problems (*.kvr)|*.kvr|Kelvarin "
              "Graphs (*.kvg)|*.kvg|Kelvarin Reports (*.rtf)|*.rtf");
    EXPECT_TRUE(desk.user.file_questions()[0].proposed.empty());
    desk.user.expect_file(chosen_file{desk.folder.write("gas.kvr", gas)});
    desk.press_toolbar("open");
    EXPECT_EQ(desk.front_problem().document().title(), "Gas");
    desk.user.expect_file(std::nullopt);
    desk.run(window_command::open);
    EXPECT_EQ(desk.user.file_questions().back().proposed, desk.folder.path());
}

TEST(OpenDocument, ATextThatHoldsAProblemOpensAsOneFromItsReport)
{
    main_desk desk;
    desk.window->open_document(desk.folder.write("notes.txt", "Dear reader\nof these lines\n"));
    EXPECT_FALSE(robot(*desk.children().back()).is_shown("lblProblem"));
    desk.window->open_document(desk.folder.write("gas.txt", gas));
    robot person(*desk.children().back());
    EXPECT_TRUE(person.is_shown("lblProblem"));
    auto& line = person.find<link_label>("lblProblem");
    EXPECT_EQ(line.whole_text(), QStringLiteral("This text is a problem: Open as a problem"));
    emit line.name_clicked(QStringLiteral("Open as a problem"));
    EXPECT_EQ(desk.front_problem().document().title(), "Gas");
    EXPECT_EQ(desk.children().size(), 3u);
}

TEST(OpenDocument, FilesDroppedOnTheWindowOrAFieldInItOpen)
{
    main_desk desk;
    const auto drop_on = [&](QWidget& target, const std::filesystem::path& file) {
        QMimeData content;
        content.setUrls({QUrl::fromLocalFile(QString::fromStdString(file.string()))});
        content.setText(QString::fromStdString(file.string()));
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &content, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&target, &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &content, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&target, &drop);
        settle();
    };
    drop_on(*desk.window, desk.folder.write("gas.kvr", gas));
    EXPECT_EQ(desk.front_problem().document().title(), "Gas");
    auto& field = desk.person().find<QLineEdit>("txtnle_min_ini_guess");
    drop_on(field, desk.folder.write("rope.kvr", rope));
    EXPECT_EQ(desk.front_problem().document().title(), "Rope");
    EXPECT_FALSE(field.text().contains(QStringLiteral("rope")));

    QMimeData words;
    words.setText(QStringLiteral("only words"));
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &words, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QApplication::sendEvent(desk.window.get(), &enter);
    EXPECT_FALSE(enter.isAccepted());
}

} // namespace

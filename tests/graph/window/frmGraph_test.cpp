// SPDX-License-Identifier: MIT
#include "graph/drawing_svg.h"
#include "graph_desk.h"

#include "support/german_locale.h"
#include "support/table.h"
#include "support/window_walk.h"

#include <gmock/gmock.h>

#include <QComboBox>
#include <QImage>

namespace
{

using namespace kelvarin;
using kelvarin::test::graph_desk;
using kelvarin::test::graph_of;
using kelvarin::test::robot;
using kelvarin::test::settle;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

TEST(GraphWindow, IsNamedByItsRunAndHasNoFaults)
{
    graph_desk desk;
    EXPECT_EQ(desk.window.windowTitle(), "Run 1[*]");
    EXPECT_THAT(test::faults_of(desk.window, desk.window.menus()), testing::IsEmpty());
    desk.person.click("optFunction");
    EXPECT_THAT(test::faults_of(desk.window, desk.window.menus()), testing::IsEmpty());
}

TEST(GraphWindow, ShowsAndHidesCurvesByTicksAndUndoesIt)
{
    graph_desk desk;
    EXPECT_EQ(desk.y_limits(), (axis_range{0.0, 100.0}));
    desk.tick(0);
    desk.tick(1);
    EXPECT_THAT(desk.content().curve_visible, ElementsAre(false, false));
    EXPECT_FALSE(desk.view().drawing().limits.y) << "nothing is left to draw";
    desk.window.perform(window_command::undo);
    EXPECT_THAT(desk.content().curve_visible, ElementsAre(false, true));
    EXPECT_EQ(desk.person.find<QListWidget>("lstCurves").item(1)->checkState(), Qt::Checked);
}

TEST(GraphWindow, TakesFunctionsOfXAndRefusesOthers)
{
    graph_desk desk;
    desk.answer("mnuCurves", "mnuAddFunc", "For example: x*(sin(x)+2)", "x^3");
    EXPECT_TRUE(desk.person.is_shown("cmdEditFunc"));
    EXPECT_EQ(desk.person.find<QListWidget>("lstCurves").item(0)->text(), "x^3");

    desk.user.expect_box("Only 'x' variable is allowed in the algebric expression.");
    desk.user.expect_input("Edit y function curve", "x*y");
    desk.person.click("cmdEditFunc");
    EXPECT_EQ(desk.content().functions[0].text, "x^3");
    EXPECT_EQ(desk.user.proposed_input(), "x^3");
    desk.user.expect_input("Enter new y function curve.", "5");
    desk.person.click("cmdAddFunc");
    desk.person.find<QListWidget>("lstCurves").setCurrentRow(0);
    desk.person.click("cmdRemoveFunc");
    ASSERT_EQ(desk.content().functions.size(), 1u);
    EXPECT_EQ(desk.content().functions[0].text, "5");

    graph_content full = test::parabola_and_line();
    full.functions.assign(30, {"x", true});
    graph_desk full_desk(full);
    full_desk.user.expect_box("You can not use more than 30 user function curves. Selection aborted.");
    full_desk.choose("mnuCurves", "mnuAddFunc");
}

TEST(GraphWindow, DerivesCurvesInTwoSteps)
{
    graph_desk desk;
    const std::string step_1 = "Step 1 of 2.";
    desk.user.expect_box("'a' is not a unique variable name");
    desk.answer("mnuCurves", "mnuAddDerived", "Step 1 of 2.", "a");
    desk.user.expect_box("'2c' is not a valid variable name");
    desk.answer("mnuCurves", "mnuAddDerived", "Step 1 of 2.", "2c");
    desk.user.expect_input(step_1, "c");
    desk.user.expect_input("Step 2 of 2.", "a-q");
    desk.user.expect_box("'q' is not a known scatter curve name");
    desk.choose("mnuCurves", "mnuAddDerived");
    desk.user.expect_input(step_1, "c");
    desk.user.expect_input("Step 2 of 2.", "a-b");
    desk.person.click("cmdAddDerived");
    ASSERT_EQ(desk.content().curve_count(), 3u);
    EXPECT_EQ(desk.content().columns[3].name, "c = a-b");
    EXPECT_EQ(desk.content().columns[3].values[10], 0.0);
    EXPECT_EQ(desk.person.find<QComboBox>("cmbX").count(), 4);
}

TEST(GraphWindow, AsksForLimitsInEveryLocale)
{
    const test::german_locale german;
    graph_desk desk;
    desk.answer("mnuX", "mnuXMax", "Enter x max value.", "7.5");
    EXPECT_EQ(desk.user.proposed_input(), "10.000");
    EXPECT_EQ(desk.x_limits(), (axis_range{0.0, 7.5}));
    for (const char* bad : {"7,5", "-1", "zero"}) {
        desk.user.expect_box("Data input not legal !", "Kelvarin GUIDE");
        desk.answer("mnuX", "mnuXMax", "Enter x max value.", bad);
    }
    desk.answer("mnuY", "mnuYMin", "Enter y min value.", "-20");
    EXPECT_EQ(desk.y_limits(), (axis_range{-20.0, 100.0}));
    desk.choose("mnuView", "mnuRestore");
    EXPECT_EQ(desk.x_limits(), (axis_range{0.0, 10.0}));
    EXPECT_EQ(desk.y_limits(), (axis_range{0.0, 100.0}));
}

TEST(GraphWindow, AnUnchangedLimitKeepsAllItsDigits)
{
    graph_desk desk(graph_of({{0.0001, 0.0007}, {1, 2}}));
    desk.answer("mnuX", "mnuXMax", "Enter x max value.", "0.001");
    desk.user.expect_input("Enter x min value.", "0.000");
    desk.choose("mnuX", "mnuXMin");
    EXPECT_NEAR(desk.x_limits().min, 0.0001, 1e-12);
}

TEST(GraphWindow, AsksForSizesTicksAndMarginsAndRefusesOthers)
{
    graph_desk desk;
    const test::table<const char*, const char*, const char*, int graph_content::*, const char*, int, const char*> rows =
        {{"mnuGrid", "mnuTicks", "Enter number of axis ticks.", &graph_content::ticks, "5", 5,
          "Number of axis ticks must be greater than 0 and smaller than 101."},
         {"mnuCurves", "mnuLineWidth", "Enter curve line width. (1 < width < 4).", &graph_content::line_width, "3", 3,
          "Invalid data entry."},
         {"mnuGrid", "mnuBorderWidth", "Enter graph border curve line width. (1 < width < 4).",
          &graph_content::border_width, "2", 2, "Invalid data entry."},
         {"mnuCurves", "mnuMarkerSize", "Enter the data point marker size (value should be between 1-300).",
          &graph_content::marker_size, "80", 80, "Invalid data entry."}};
    for (const auto& [menu, item, prompt, field, typed, value, refusal] : rows) {
        SCOPED_TRACE(item);
        desk.answer(menu, item, prompt, typed);
        EXPECT_EQ(desk.content().*field, value);
        desk.user.expect_box(refusal);
        desk.answer(menu, item, prompt, "1000");
        EXPECT_EQ(desk.content().*field, value);
    }
    desk.user.expect_input("Enter Left Margine size.", "900");
    desk.user.expect_input("Enter Right Margine size.", "500");
    desk.user.expect_input("Enter Upper Margine size.", "200");
    desk.user.expect_input("Enter Bottom Margine size.", "x");
    desk.user.expect_box("Invalid data entry.");
    desk.choose("mnuGrid", "mnuMarginesItem");
    EXPECT_EQ(desk.content().margins, (graph_margins{200, 900, 500, 520}));
    desk.choose("mnuX", "mnuXSciLables");
    EXPECT_EQ(desk.content().x_labels, axis_label_format::scientific);
    desk.choose("mnuX", "mnuXSciLables");
    EXPECT_EQ(desk.content().x_labels, axis_label_format::plain);
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPointSizeF(14.0);
    desk.user.expect_font(font);
    desk.choose("mnuGrid", "mnuTitleFont");
    EXPECT_EQ(desk.content().title_font, (graph_font{false, false, "DejaVu Sans", 14.0}));
}

TEST(GraphWindow, EditsTitlesByDoubleClick)
{
    graph_desk desk;
    const auto double_click = [&](drawn_role role) {
        QTest::mouseDClick(&desk.view(), Qt::LeftButton, {}, desk.middle_of(role));
        settle();
    };
    desk.user.expect_input("Enter new title.", "Yield");
    double_click(drawn_role::title);
    desk.user.expect_input("Enter new sub title. ", "at 300 K");
    double_click(drawn_role::subtitle);
    EXPECT_EQ(desk.content().title, "Yield");
    EXPECT_EQ(desk.content().subtitle, "at 300 K");
}

TEST(GraphWindow, MovesPartsByMouseAndKeysAndKeepsThemInProportion)
{
    graph_desk desk;
    const QPoint before = desk.middle_of(drawn_role::legend);
    // From the legend's frame, where no line of it is hit.
    const drawn_box box = *box_of(desk.view().drawing(), drawn_role::legend);
    const QPoint corner(static_cast<int>(box.left / 0.75) + 2, static_cast<int>(box.top / 0.75) + 2);
    // To where there is room for it.
    const QPoint way(before.x() < desk.view().width() / 2 ? 200 : -200, 150);
    desk.press_and_move(corner, corner + way);
    robot::press(Qt::Key_Escape);
    QTest::mouseRelease(&desk.view(), Qt::LeftButton, {}, corner + way);
    settle();
    EXPECT_FALSE(desk.content().legend_place);
    EXPECT_EQ(desk.middle_of(drawn_role::legend), before);

    desk.drag(corner, corner + way);
    EXPECT_TRUE(desk.content().legend_place);
    const QPoint moved = desk.middle_of(drawn_role::legend) - before;
    EXPECT_NEAR(moved.x(), way.x(), 2);
    EXPECT_NEAR(moved.y(), 150, 2);
    EXPECT_EQ(desk.window.document().undo_step(), "Move legend");

    desk.window.findChild<QAction*>(QStringLiteral("mnuMoveTitle"))->trigger();
    const QPoint title = desk.middle_of(drawn_role::title);
    for (int i = 0; i < 7; ++i)
        robot::press(Qt::Key_Down);
    robot::press(Qt::Key_Return);
    settle();
    EXPECT_NEAR(desk.middle_of(drawn_role::title).y(), title.y() + 7, 1);
    EXPECT_EQ(desk.window.document().undo_step(), "Move title");

    const double part = desk.middle_of(drawn_role::legend).y() / static_cast<double>(desk.view().height());
    desk.window.resize(1000, 800);
    settle();
    EXPECT_NEAR(desk.middle_of(drawn_role::legend).y() / static_cast<double>(desk.view().height()), part, 0.05);
}

TEST(GraphWindow, ZoomsPansAndComesBack)
{
    graph_desk desk;
    desk.drag(desk.at(2, 20), desk.at(6, 60));
    EXPECT_NEAR(desk.x_limits().min, 2.0, 0.05);
    EXPECT_NEAR(desk.x_limits().max, 6.0, 0.05);
    EXPECT_NEAR(desk.y_limits().max, 60.0, 0.5);
    EXPECT_EQ(desk.content().x_range, (axis_range{0.0, 10.0})) << "looking changes nothing";

    desk.drag(desk.at(4, 40), desk.at(5, 40), Qt::MiddleButton);
    EXPECT_NEAR(desk.x_limits().min, 1.0, 0.05);
    EXPECT_NEAR(desk.x_limits().max, 5.0, 0.05);
    robot::press(Qt::Key_Backspace);
    EXPECT_NEAR(desk.x_limits().min, 2.0, 0.05);
    desk.choose("mnuView", "mnuKeepView");
    EXPECT_TRUE(desk.content().x_manual);
    EXPECT_NEAR(desk.content().x_range.max, 6.0, 0.05);
    desk.window.perform(window_command::undo);
    EXPECT_EQ(desk.x_limits(), (axis_range{0.0, 10.0}));

    QWheelEvent wheel(desk.at(5, 50), desk.view().mapToGlobal(desk.at(5, 50)), {}, {0, 120}, {}, {}, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(&desk.view(), &wheel);
    EXPECT_NEAR(desk.x_limits().min, 1.0, 0.05);
    EXPECT_NEAR(desk.x_limits().max, 9.0, 0.05);
    desk.view().setFocus();
    robot::press(Qt::Key_Home);
    EXPECT_EQ(desk.x_limits(), (axis_range{0.0, 10.0}));
}

TEST(GraphWindow, TellsTheNearestPointAndMeasures)
{
    graph_desk desk;
    QTest::mouseMove(&desk.view(), desk.at(3, 9) + QPoint(2, 1));
    settle();
    EXPECT_THAT(desk.person.text("lblPoint"), HasSubstr("a, point 4: (3, 9)"));
    desk.click(desk.at(3, 9));
    desk.click(desk.at(5, 50));
    EXPECT_THAT(desk.person.text("lblPoint"), HasSubstr("dx = 2   dy = 41   slope = 20.5"));
}

TEST(GraphWindow, LegendHidesCurvesAndLogAxesAreAWayOfLooking)
{
    graph_desk desk;
    const std::string before = write_graph(desk.content());
    for (const drawn_shape& shape : std::vector(desk.view().drawing().picture.shapes)) {
        const auto* text = std::get_if<drawn_text>(&shape);
        if (!text || text->text != "b" || text->part.role != drawn_role::legend_text) continue;
        desk.click(
            QPoint(static_cast<int>(text->box.middle().x / 0.75), static_cast<int>(text->box.middle().y / 0.75)));
    }
    EXPECT_TRUE(desk.view().is_hidden({drawn_role::curve, 1}));
    desk.choose("mnuView", "mnuLogX");
    EXPECT_EQ(desk.x_limits(), (axis_range{1.0, 10.0})) << "from the first positive value";
    EXPECT_EQ(desk.at(std::sqrt(10.0), 50).x(), (desk.at(1, 50).x() + desk.at(10, 50).x()) / 2);
    EXPECT_EQ(write_graph(desk.content()), before);
    EXPECT_TRUE(desk.window.document().undo_step().empty());
}

TEST(GraphWindow, AGraphThatCanNotBeDrawnIsToldOnce)
{
    graph_desk desk(graph_of({{1, 2, 3}, {4, 4, 4}}));
    desk.user.expect_box(
        "Kelvarin can not create the requested graph. Error: Graph cannot be plotted when all x values "
        "are the same.",
        "Kelvarin Graph");
    desk.person.choose("cmbX", "a");
    settle();
    desk.choose("mnuG", "mnuRefresh");
    desk.window.perform(window_command::undo);
    EXPECT_EQ(desk.x_limits(), (axis_range{1.0, 3.0}));
}

TEST(GraphWindow, AFailureOfItsStartIsABoxAndLeavesNoWindow)
{
    graph_desk desk;
    const std::size_t windows = desk.frame.children().size();
    const test::table<std::function<graph_content()>, std::string, std::string> rows = {
        {[]() -> graph_content { throw runtime_failure(failure_number::overflow); },
         "Internal Error trapped. 6 (Overflow). ", "Kelvarin Guide"},
        {[]() -> graph_content { throw std::bad_alloc(); }, "Internal Error trapped. 7 (Out of memory). ",
         "Kelvarin Guide"},
        {[] {
             return graph_of({{1, 1}, {2, 3}});
         },
         "Kelvarin can not create the requested graph. Error: Graph cannot be plotted when all x values are the same.",
         "Kelvarin Graph"}};
    for (const auto& [start, text, title] : rows) {
        desk.user.expect_box(text.c_str(), title.c_str());
        show_new_graph(desk.context, desk.window, start);
        EXPECT_TRUE(desk.user.is_done());
    }
    EXPECT_EQ(desk.frame.children().size(), windows);
}

TEST(GraphWindow, SavesAndReopensTheSamePicture)
{
    graph_desk desk;
    desk.answer("mnuCurves", "mnuAddFunc", "Enter new y function curve.", "50+x");
    desk.choose("mnuGrid", "mnuHorGridline");
    desk.user.expect_file(chosen_file{desk.folder / "run.kvg"});
    desk.choose("mnuG", "mnuSave");
    EXPECT_EQ(desk.user.file_questions().back().filter,
              "Kelvarin graph (*.kvg)|*.kvg|Bitmap file (*.bmp)|*.bmp|All files (*.*)|*.*");
    EXPECT_TRUE(desk.window.document().problem_saved());

    open_graph(desk.context, desk.folder / "run.kvg");
    auto& reopened = dynamic_cast<frmGraph&>(*desk.frame.children().back());
    reopened.resize(desk.window.size());
    settle();
    EXPECT_EQ(reopened.windowTitle(), "Run 1[*]");
    auto& view = *reopened.findChild<graph_view*>();
    view.setFixedSize(desk.view().size());
    settle();
    EXPECT_EQ(drawing_svg(view.drawing().picture), drawing_svg(desk.view().drawing().picture));

    desk.folder.write("cut.kvg", "96KVRGRF/V500//\r\nx\r\n");
    const std::size_t windows = desk.frame.children().size();
    desk.user.expect_box("Error while trying to open file.");
    open_graph(desk.context, desk.folder / "cut.kvg");
    EXPECT_EQ(desk.frame.children().size(), windows);
}

TEST(GraphWindow, SavesPicturesInASizeThatIsAskedOnce)
{
    graph_desk desk;
    const auto save_as = [&](const char* name, int filter = 3) {
        desk.user.expect_file(chosen_file{desk.folder / name, filter});
        desk.choose("mnuG", "mnuSaveAs");
    };
    desk.user.expect_input("in millimetres", "100 80 254");
    save_as("a.png");
    save_as("a.pdf");
    save_as("a.svg");
    save_as("a.bmp", 2);
    EXPECT_TRUE(desk.user.is_done());
    EXPECT_EQ(QImage(QString::fromStdString((desk.folder / "a.png").string())).size(), QSize(1000, 800));
    EXPECT_EQ(QImage(QString::fromStdString((desk.folder / "a.bmp").string())).size(), desk.view().size());
    EXPECT_THAT(desk.folder.read("a.pdf"), StartsWith("%PDF"));
    EXPECT_THAT(desk.folder.read("a.svg"), HasSubstr(">Title</text>"));
    EXPECT_FALSE(desk.window.document().problem_saved()) << "a picture is no copy of the graph";
    EXPECT_TRUE(desk.window.file_panel().startsWith("No File"));
}

TEST(GraphWindow, CopiesPictureAndDataAndExportsThem)
{
    graph_desk desk;
    desk.choose("mnuG", "mnuCopy");
    const QMimeData* copied = desk.user.clipboard();
    EXPECT_EQ(qvariant_cast<QImage>(copied->imageData()).size(), desk.view().size() * 2);
    EXPECT_TRUE(copied->data(QStringLiteral("image/svg+xml")).startsWith("<?xml"));

    desk.choose("Edit", "mnuCopyData");
    EXPECT_TRUE(desk.user.copied_text().startsWith("x\ta\tb\n0\t0\t0\n1\t1\t10\n"));
    desk.drag(desk.at(2.5, 20), desk.at(4.5, 60));
    desk.choose("Edit", "mnuCopyView");
    EXPECT_EQ(desk.user.copied_text(), "x\ta\tb\n3\t9\t30\n4\t16\t40\n");

    desk.user.expect_file(chosen_file{desk.folder / "data.csv"});
    desk.choose("mnuG", "mnuExport");
    EXPECT_THAT(desk.folder.read("data.csv"), StartsWith("x,a,b\n0,0,0\n1,1,10\n"));
    desk.user.expect_print(desk.folder / "print.pdf");
    desk.choose("mnuG", "mnuPrint");
    EXPECT_THAT(desk.folder.read("print.pdf"), StartsWith("%PDF"));
}

TEST(GraphWindow, AsksOnClosingIfTheSettingSaysSo)
{
    graph_desk quiet;
    EXPECT_TRUE(quiet.window.close_with_frame());
    graph_desk asking;
    ASSERT_FALSE(asking.store.set_value("Graph_query_unload_save", "True"));
    asking.user.expect_question("The graph was not saved. Do you want to save it before closing ?",
                                user_answer::cancel);
    EXPECT_FALSE(asking.window.close_with_frame());
    asking.user.expect_question("The graph was not saved. Do you want to save it before closing ?", user_answer::no);
    EXPECT_TRUE(asking.window.close_with_frame());
}

TEST(GraphWindow, ComesBackFromARecoveryCopy)
{
    graph_desk desk;
    desk.answer("mnuCurves", "mnuMarkerSize", "Enter the data point marker size", "80");
    recovery_entry entry;
    entry.kind = desk.window.document().kind();
    entry.content = desk.window.document().recovery_text();
    ASSERT_TRUE(recover_graph(desk.context, 1, entry));
    auto& recovered = dynamic_cast<frmGraph&>(*desk.frame.children().back());
    EXPECT_EQ(recovered.document().content(), desk.content());
    EXPECT_FALSE(recovered.document().problem_saved());
    entry.content = "{";
    EXPECT_FALSE(recover_graph(desk.context, 2, entry));
}

TEST(GraphWindow, StylesOfTheSessionAreDrawn)
{
    graph_desk desk;
    const drawn_part part = {drawn_role::curve, 0};
    desk.view().set_style(part, {0x123456, {}, 3});
    std::vector<drawn_colour> colours;
    for (const drawn_shape& shape : desk.view().drawing().picture.shapes) {
        const auto* path = std::get_if<drawn_path>(&shape);
        if (path && path->part == part) colours.push_back(path->stroke.colour);
    }
    EXPECT_THAT(colours, ElementsAre(0x123456u));
}

TEST(GraphWindow, APictureThatFindsNoMemoryIsToldOnce)
{
    graph_desk desk;
    // No picture of this size is made.
    desk.view().resize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    desk.user.expect_box("Kelvarin can not create the requested graph. Error: Out of memory", "Kelvarin Graph");
    for (int time = 0; time < 2; ++time) {
        QPaintEvent paint(QRect(0, 0, 1, 1));
        QApplication::sendEvent(&desk.view(), &paint);
    }
    settle();
    desk.view().resize(400, 300);
    EXPECT_FALSE(desk.view().grab().isNull());
    EXPECT_TRUE(desk.view().drawing().mapping) << "the graph is drawn again";
}

} // namespace

// SPDX-License-Identifier: MIT
#include "graph/graph_document.h"
#include "graph/graph_table.h"
#include "support/graphs.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <functional>
#include <limits>

namespace kelvarin::test
{
namespace
{

graph_content two_curves()
{
    graph_content graph = graph_of({{2, 0, 1}, {3, 1, 2}, {30, 10, gap}});
    graph.title = "Two";
    return graph;
}

TEST(GraphDocument, OfARunIsUnsavedAndUndoesNothing)
{
    graph_document document(two_curves());
    EXPECT_FALSE(document.problem_saved());
    EXPECT_FALSE(document.is_blank());
    EXPECT_FALSE(document.undo());
    EXPECT_TRUE(graph_document().is_blank());
}

TEST(GraphDocument, LimitsFollowWhatIsShownUnlessTheyAreManual)
{
    graph_document document(two_curves());
    EXPECT_EQ(document.content().y_range, (axis_range{1, 30}));
    document.show_curve(1, false);
    EXPECT_EQ(document.content().y_range, (axis_range{1, 3}));
    EXPECT_FALSE(document.set_axis_limit(axis_end::ymax, " 2.5 "));
    EXPECT_EQ(document.content().y_range, (axis_range{1, 2.5})) << "the other end stays as it was found";
    document.show_curve(1, true);
    EXPECT_EQ(document.content().y_range, (axis_range{1, 2.5}));
    document.restore_xy();
    EXPECT_EQ(document.content().y_range, (axis_range{1, 30}));
    document.keep_view({0, 1}, {2, 3});
    EXPECT_TRUE(document.content().x_manual && document.content().y_manual);
}

TEST(GraphDocument, RefusesWhatIsTypedWrong)
{
    graph_document document(two_curves());
    const graph_content before = document.content();
    for (const char* text : {"", "two", "1e999", "0", "-1"}) {
        const auto refused = document.set_axis_limit(axis_end::xmax, text);
        EXPECT_EQ(text_of(refused), "Data input not legal !") << text;
        EXPECT_EQ(refused->title, "Kelvarin GUIDE");
    }
    for (const char* text : {"", "0", "101", "2.5", "x"}) {
        EXPECT_EQ(text_of(document.set_ticks(text)),
                  "Number of axis ticks must be greater than 0 and smaller than 101.");
        EXPECT_EQ(text_of(document.set_width(&graph_content::line_width, std::string(text) + "9")),
                  "Invalid data entry.");
        EXPECT_EQ(text_of(document.set_marker_size(text == std::string("101") ? "301" : text)), "Invalid data entry.");
    }
    for (const char* text : {"-1", "32768", "wide"})
        EXPECT_EQ(text_of(document.set_margin(&graph_margins::left, text)), "Invalid data entry.");
    EXPECT_NE(text_of(document.add_function("y")), "");
    EXPECT_NE(text_of(document.add_derived_curve("a", "x")), "");
    EXPECT_EQ(document.content(), before);
    EXPECT_EQ(document.undo_step(), "");
}

TEST(GraphDocument, MovedPartsStayInProportion)
{
    graph_document document(two_curves());
    document.move_part(&graph_content::legend_place, {100, 200}, {1000, 2000});
    document.move_part(&graph_content::title_place, {10, 20}, {2000, 2000});
    EXPECT_EQ(document.content().legend_place, (graph_place{200, 200}));
    EXPECT_EQ(document.content().title_place, (graph_place{10, 20}));
    EXPECT_EQ(document.undo_step(), "Move title");
}

TEST(GraphDocument, EqualXAreTheDrawingsRefusal)
{
    const auto box = drawing_refusal(find_axis_limits(graph_of({{1, 1}, {0, 1}})));
    EXPECT_EQ(text_of(box), "Kelvarin can not create the requested graph. Error: Graph cannot be plotted when all x "
                            "values are the same.");
    EXPECT_EQ(box->title, "Kelvarin Graph");
    EXPECT_FALSE(drawing_refusal(find_axis_limits(two_curves())));
}

/// One of everything that a person does.
const std::vector<std::function<void(graph_document&)>> deeds = {
    [](graph_document& graph) { graph.show_curve(0, false); },
    [](graph_document& graph) { graph.show_curve(0, true); },
    [](graph_document& graph) { graph.add_function("x^2"); },
    [](graph_document& graph) {
        if (!graph.content().functions.empty()) graph.show_function(0, false);
    },
    [](graph_document& graph) {
        if (!graph.content().functions.empty()) graph.edit_function(0, "x/2");
    },
    [](graph_document& graph) {
        if (!graph.content().functions.empty()) graph.remove_function(0);
    },
    [](graph_document& graph) { graph.add_derived_curve("z", "a+x"); },
    [](graph_document& graph) { graph.use_as_x(1); },
    [](graph_document& graph) { graph.sort_by_x(); },
    [](graph_document& graph) { graph.set_axis_limit(axis_end::xmin, "-7"); },
    [](graph_document& graph) { graph.restore_xy(); },
    [](graph_document& graph) { graph.set_ticks("7"); },
    [](graph_document& graph) { graph.set_label_format(&graph_content::x_labels, axis_label_format::scientific); },
    [](graph_document& graph) { graph.set_margin(&graph_margins::top, "77"); },
    [](graph_document& graph) { graph.set_width(&graph_content::border_width, "3"); },
    [](graph_document& graph) { graph.set_marker_size("99"); },
    [](graph_document& graph) {
        graph.set_font(&graph_content::axes_font, {true, true, "Serif", 7.5});
    },
    [](graph_document& graph) { graph.set_flag(&graph_content::draw_points, true); },
    [](graph_document& graph) { graph.set_title("Another"); },
    [](graph_document& graph) { graph.set_subtitle("sub"); },
    [](graph_document& graph) { graph.set_axis_title(&graph_content::y_title, "p, bar"); },
    [](graph_document& graph) {
        graph.move_part(&graph_content::legend_place, {5, 6}, {700, 800});
    },
};

TEST(GraphDocument, AnyDeedsAreUndoneAndComeBackFromRecovery)
{
    rc::check([] {
        const graph_content first = two_curves();
        graph_document document(first);
        for (const std::size_t deed :
             *rc::gen::container<std::vector<std::size_t>>(rc::gen::inRange<std::size_t>(0, deeds.size())))
            deeds[deed](document);
        const graph_content last = document.content();

        graph_document recovered;
        RC_ASSERT(recovered.restore(document.recovery_text(), "/tmp/graph.kvg"));
        RC_ASSERT(recovered.content() == last);

        while (document.undo())
            ;
        RC_ASSERT(document.content() == first);
        while (document.redo())
            ;
        RC_ASSERT(document.content() == last);
    });
}

TEST(GraphDocument, RefusesADamagedRecovery)
{
    const std::string kept = graph_document(two_curves()).recovery_text();
    graph_document document;
    for (std::size_t length = 0; length < kept.size(); length += 7)
        EXPECT_FALSE(document.restore(kept.substr(0, length), {})) << length;
    EXPECT_TRUE(document.is_blank());
}

TEST(GraphDocument, SavesAndOpens)
{
    const scratch_folder folder;
    graph_document document(two_curves());
    EXPECT_FALSE(document.save(folder.path() / "two.kvg"));
    EXPECT_TRUE(document.problem_saved());
    graph_document opened;
    EXPECT_FALSE(opened.open(folder.path() / "two.kvg"));
    EXPECT_EQ(opened.content(), document.content());
    EXPECT_EQ(text_of(opened.open(folder.path() / "none.kvg")), "Error while trying to open file.");
    EXPECT_EQ(opened.content(), document.content());
}

TEST(GraphTable, HasALineForEachPoint)
{
    graph_content graph = two_curves();
    EXPECT_EQ(graph_table_text(graph), "x\ta\tb\n2\t3\t30\n0\t1\t10\n1\t2\t\n");
    EXPECT_EQ(graph_table_text(graph, axis_range{0.5, 1.5}), "x\ta\tb\n1\t2\t\n");
    graph.functions = {{"x^2", true}};
    EXPECT_EQ(graph_listing(graph, "two.kvg").substr(0, 22), "Two\ntwo.kvg\ny = x^2\n\nx");
}

} // namespace
} // namespace kelvarin::test

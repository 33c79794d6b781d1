// SPDX-License-Identifier: MIT
#include "app/export_picture.h"
#include "graph/graph_file.h"
#include "support/changed_environment.h"
#include "support/graphs.h"
#include "support/scratch_folder.h"
#include "support/table.h"

#include <gmock/gmock.h>

#include <QImage>

#include <sstream>

namespace
{

using namespace kelvarin;
using testing::HasSubstr;
using words = std::vector<std::string>;

TEST(Export, ReadsItsArguments)
{
    const test::scratch_folder folder;
    folder.write("here.svg", "");
    const export_request request = {"a.svg", "b.kvg"};
    for (const words& arguments : {words{"--export", "a.svg", "b.kvg"}, words{"b.kvg", "--export", "a.svg"},
                                   words{"--export", "a.svg", "--", "b.kvg"}})
        EXPECT_EQ(std::get<export_request>(read_export(arguments).value()), request);
    const test::table<words, std::string> wrong = {{{"--export"}, "a picture and one graph file"},
                                                   {{"--export", "a.svg"}, "a picture and one graph file"},
                                                   {{"--export", "a.svg", "b.kvg", "c.kvg"}, "one graph file"},
                                                   {{"--export", "a.gif", "b.kvg"}, "not 'a.gif'"},
                                                   {{"--export", "here.svg", "./here.svg"}, "would replace the graph"}};
    for (const auto& [arguments, reason] : wrong)
        EXPECT_THAT(std::get<std::string>(read_export(arguments).value()), HasSubstr(reason));
    EXPECT_FALSE(read_export({"--", "--export"}));
}

TEST(Export, DrawsOrSaysWhyNot)
{
    const test::scratch_folder folder;
    folder.write("a.kvg", write_graph(test::graph_of({{0, 1}, {2, 3}})));
    folder.write("equal.kvg", write_graph(test::graph_of({{1, 1}, {2, 3}})));
    folder.write("cut.kvg", "96KVRGRF/V500//\r\nx\r\n");
    folder.write("problem.kvr", "Root\nf(x) = x\n");
    const test::table<std::string, int, std::string> rows = {
        {"a.kvg", 0, ""},
        {"equal.kvg", 1, "kelvarin: equal.kvg: Kelvarin Graph\nKelvarin can not create the requested graph. Error: "},
        {"cut.kvg", 2, "Error while trying to open file."},
        {"problem.kvr", 2, "does not match any of the Kelvarin input files format."},
        {"none.kvg", 2, "The file can not be read: "}};
    for (const auto& [file, status, text] : rows)
        for (const std::string picture : {"out.svg", "out.pdf", "out.PNG", "out.bmp"}) {
            SCOPED_TRACE(file + " " + picture);
            std::filesystem::remove(picture);
            std::ostringstream err;
            EXPECT_EQ(export_picture({picture, file}, err), status);
            EXPECT_THAT(err.str(), HasSubstr(text));
            EXPECT_EQ(err.str().empty(), status == 0);
            EXPECT_EQ(folder.holds(picture), status == 0);
        }
    std::ostringstream err;
    EXPECT_EQ(export_picture({"no/such/folder.svg", "a.kvg"}, err), 2);
    EXPECT_EQ(export_picture({"out.png", "a.kvg"}, err), 0);
    // 560 by 420 points at 150 dots per inch.
    EXPECT_EQ(QImage(QStringLiteral("out.png")).size(), QSize(1167, 875));
}

TEST(Export, GivesTheSameBytesOfAnySortAtAGivenMoment)
{
    const test::scratch_folder folder;
    folder.write("a.kvg", write_graph(test::graph_of({{0, 1}, {2, 3}})));
    const test::changed_environment environment(
        test::changed_environment::variables{{"SOURCE_DATE_EPOCH", "1767323045"}});
    std::ostringstream err;
    for (const std::string picture : {"out.svg", "out.pdf", "out.png", "out.bmp"}) {
        SCOPED_TRACE(picture);
        EXPECT_EQ(export_picture({picture, "a.kvg"}, err), 0);
        const std::string first = folder.read(picture);
        // 2026-01-02 03:04:05.
        if (picture == "out.pdf") {
            EXPECT_THAT(first, HasSubstr("/CreationDate (D:20260102030405"));
        }
        EXPECT_EQ(export_picture({picture, "a.kvg"}, err), 0);
        EXPECT_EQ(folder.read(picture), first);
    }
}

} // namespace

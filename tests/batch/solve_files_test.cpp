// SPDX-License-Identifier: MIT
#include "batch/ordered_answers.h"
#include "batch_call.h"
#include "support/scratch_folder.h"
#include "support/table.h"

#include <gmock/gmock.h>

namespace kelvarin
{
namespace
{

using test::batch_result;
using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

class SolveFiles : public testing::Test
{
protected:
    SolveFiles()
    {
        folder.write("root.kvr", test::square_root_of_two);
        folder.write("lines.kvr", test::plane_lines);
        folder.write("sum.kvr", test::explicit_only);
        folder.write("red.kvr", test::undefined_name);
        folder.write("fails.kvr", test::failing_run);
        folder.write("endless.kvr", test::explicit_only + std::string(100'000, '\n'));
        folder.write("table.kvr", "Table\n2 40000\n1\t2\n");
    }

    test::scratch_folder folder;
    test::batch_call call;
};

TEST_F(SolveFiles, TheHighestStatusWinsAndEveryFileGetsItsTurn)
{
    const test::table<std::vector<std::string>, int, int, std::string> rows = {
        {{"sum.kvr", "lines.kvr", "root.kvr"}, 0, 3, ""},
        {{"fails.kvr", "sum.kvr"},
         1,
         1,
         "kelvarin-solve: fails.kvr: Expression evaluation error.\nError: sqrt() of negative number "},
        {{"red.kvr", "sum.kvr"}, 1, 1, "kelvarin-solve: red.kvr: Kelvarin Guide\nUndefined Variable: q\n"},
        {{"missing.kvr", "fails.kvr", "sum.kvr"},
         2,
         1,
         "kelvarin-solve: missing.kvr: Kelvarin Guide\nThe file can not be read: "},
        {{"table.kvr", "sum.kvr"},
         2,
         1,
         "kelvarin-solve: table.kvr: Kelvarin Guide\nError while trying to open file ("},
        {{"endless.kvr", "sum.kvr"},
         2,
         1,
         "kelvarin-solve: endless.kvr: Kelvarin Guide\nThe file can not be read: it has more than 100000 lines"},
        {{"."}, 2, 0, "kelvarin-solve: .: Kelvarin Guide\nThe file can not be read: "},
    };
    for (const auto& [files, status, reports, err] : rows) {
        SCOPED_TRACE(testing::PrintToString(files));
        const batch_result result = call(files);
        EXPECT_EQ(result.status, status);
        EXPECT_THAT(result.err, StartsWith(err));
        EXPECT_EQ(result.err.empty(), err.empty()) << result.err;
        EXPECT_EQ(result.err.find('\r'), std::string::npos);
        int found = 0;
        for (auto at = result.out.find("KELVARIN Results"); at != std::string::npos;
             at = result.out.find("KELVARIN Results", at + 1))
            ++found;
        EXPECT_EQ(found, reports);
    }
}

TEST_F(SolveFiles, FilesOfOtherKindsAreToldByTheirKind)
{
    folder.write("many.kvr", "Equations\n64\n1\t2\t\r\n");
    folder.write("one-line.kvr", "only a title\n");
    folder.write("odd.kvr", "title\n2x y = 3\nz = 1\n");
    folder.write("report.rtf", "{\\rtf1 }");
    folder.write("notes.txt", test::explicit_only);
    folder.write("curve.kvg", "KVRGRF/V500//\n1\n2\n");
    const test::table<std::string, std::string, std::string> rows = {
        {"many.kvr", "leq",
         "Error while trying to open file.\rIts second line is to be the number of equations less 1, a whole number "
         "from 1 to 63."},
        {"table.kvr", "reg", "Error while trying to open file ("},
        {"report.rtf", "report", "--kind nle"},
        {"notes.txt", "text", "--kind nle"},
        {"curve.kvg", "graph", "Error while trying to open file."},
        {"one-line.kvr", "unknown", "does not match any of the Kelvarin input files format."},
        {"odd.kvr", "nle", "Error while trying to open file."},
    };
    for (const auto& [file, kind, text] : rows) {
        SCOPED_TRACE(file);
        const batch_result solved = call({"--format", "json", file});
        EXPECT_EQ(solved.status, 2);
        EXPECT_EQ(solved.as_json()["kind"], kind);
        EXPECT_EQ(solved.as_json()["ok"], false);
        EXPECT_THAT(solved.as_json()["messages"][0]["text"].get<std::string>(), HasSubstr(text));
        EXPECT_THAT(solved.err, HasSubstr(text.substr(0, text.find('\r'))));
        const batch_result checked = call({"--check", file});
        EXPECT_EQ(checked.status, 2);
        EXPECT_EQ(checked.as_json()["kind"], kind);
    }
    EXPECT_EQ(call({"--kind", "nle", "notes.txt"}).status, 0);
    EXPECT_EQ(call({"--kind", "nle", "one-line.kvr"}).status, 2);
}

TEST_F(SolveFiles, OutputGoesWhereItIsSentAndNowhereElse)
{
    const batch_result each = call({"-o", "{}.report", "sum.kvr", "fails.kvr", "root.kvr"});
    EXPECT_EQ(each.status, 1);
    EXPECT_EQ(each.out, "");
    EXPECT_EQ(folder.read("sum.report"), call({"sum.kvr"}).out);
    EXPECT_EQ(folder.read("root.report"), call({"root.kvr"}).out);
    EXPECT_FALSE(folder.holds("fails.report")) << "a run without a report makes no file";

    EXPECT_EQ(call({"-o", "both.txt", "sum.kvr", "root.kvr"}).status, 0);
    EXPECT_EQ(folder.read("both.txt"), folder.read("sum.report") + "\n" + folder.read("root.report"));
    EXPECT_EQ(call({"sum.kvr", "fails.kvr", "root.kvr"}).out, folder.read("both.txt"));

    EXPECT_EQ(call({"--format", "json", "-o", "{}.json", "sum.kvr", "fails.kvr"}).status, 1);
    EXPECT_EQ(json::parse(folder.read("sum.json"))["ok"], true);
    EXPECT_EQ(json::parse(folder.read("fails.json"))["ok"], false);
    EXPECT_EQ(call({"--format", "json", "-o", "all.json", "sum.kvr", "fails.kvr"}).status, 1);
    EXPECT_EQ(json::parse(folder.read("all.json")).size(), 2u);

    EXPECT_EQ(call({"--format", "rtf", "-o", "sum.rtf", "sum.kvr"}).status, 0);
    EXPECT_THAT(folder.read("sum.rtf"), AllOf(StartsWith("{\\rtf1\\ansi"), testing::EndsWith("\\par }")));
}

TEST_F(SolveFiles, AnOutputThatCannotBeWrittenIsTold)
{
    const batch_result result = call({"-o", "no/such/folder.txt", "sum.kvr"});
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.err,
                StartsWith("kelvarin-solve: no/such/folder.txt: Kelvarin Guide\nError while trying to save file.\n"));
    std::filesystem::create_directory("folder");
    EXPECT_EQ(call({"-o", "folder", "sum.kvr"}).status, 2);
}

TEST_F(SolveFiles, FileNamesThatAreNoUtf8DoNotBreakJson)
{
    const std::string name = "r\xE9sum\xE9.kvr";
    folder.write(name, test::explicit_only);
    const batch_result result = call({"--format", "json", name});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.as_json()["file"], "r\xEF\xBF\xBDsum\xEF\xBF\xBD.kvr");
    EXPECT_EQ(call({"--check", "\xFF"}).status, 2);
}

TEST_F(SolveFiles, AWishToStopEndsWithoutHalfAnAnswer)
{
    call.listener.ask_to_stop();
    for (const std::vector<std::string>& arguments : std::vector<std::vector<std::string>>{
             {"lines.kvr", "root.kvr"},
             {"--format", "json", "lines.kvr", "root.kvr"},
             {"-o", "all.txt", "lines.kvr"},
             {"-o", "{}.txt", "root.kvr"},
         }) {
        SCOPED_TRACE(testing::PrintToString(arguments));
        const batch_result result = call(arguments);
        EXPECT_EQ(result.status, 130);
        EXPECT_EQ(result.out, "");
    }
    EXPECT_FALSE(folder.holds("all.txt"));
    EXPECT_FALSE(folder.holds("root.txt"));
}

TEST_F(SolveFiles, TheNumberOfJobsChangesNoByte)
{
    folder.write("decay.kvr", test::differential);
    std::vector<std::string> files;
    for (int i = 0; i < 6; ++i)
        for (const char* file :
             {"lines.kvr", "fails.kvr", "decay.kvr", "root.kvr", "red.kvr", "sum.kvr", "missing.kvr"})
            files.emplace_back(file);
    for (const char* action : {"--format=text", "--format=json", "--check"}) {
        SCOPED_TRACE(action);
        std::vector<std::string> arguments = {"--jobs", "1", action};
        arguments.insert(arguments.end(), files.begin(), files.end());
        const batch_result alone = call(arguments);
        for (const char* jobs : {"2", "7", "100"}) {
            arguments[1] = jobs;
            const batch_result together = call(arguments);
            EXPECT_EQ(together.status, alone.status);
            EXPECT_EQ(together.out, alone.out);
            EXPECT_EQ(together.err, alone.err);
        }
        EXPECT_EQ(json::parse(alone.out, nullptr, false).is_discarded(), std::string(action) == "--format=text");
    }
    EXPECT_EQ(call({"--jobs", "0", "sum.kvr"}).status, 2);
}

TEST(OrderedAnswers, GivesAnswersInOrderAndPassesExceptionsOn)
{
    recording_listener program;
    const auto slow_first = [](std::size_t file, run_listener&) {
        if (file == 0) std::this_thread::sleep_for(std::chrono::milliseconds(30));
        if (file == 2) throw std::runtime_error("no answer");
        return file_answer{.report = std::to_string(file)};
    };
    ordered_answers answers(4, 3, slow_first, program);
    EXPECT_EQ(answers.next(program).report, "0");
    EXPECT_EQ(answers.next(program).report, "1");
    EXPECT_THROW(answers.next(program), std::runtime_error);
    EXPECT_EQ(answers.next(program).report, "3");
}

TEST(OrderedAnswers, AWishToStopStartsNoFurtherFile)
{
    recording_listener program;
    ordered_answers answers(
        50, 2,
        [&](std::size_t file, run_listener& listener) {
            if (file == 3) program.ask_to_stop();
            return file_answer{.status = static_cast<int>(file), .stopped = listener.stop_asked()};
        },
        program);
    int given = 0;
    while (!answers.next(program).stopped)
        ++given;
    EXPECT_LE(given, 5);
}

} // namespace
} // namespace kelvarin

// SPDX-License-Identifier: MIT
#include "batch/ordered_answers.h"
#include "batch_call.h"
#include "support/scratch_folder.h"

#include <gmock/gmock.h>

#include <cmath>

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
        folder.write("decay.kvr", test::differential);
    }

    test::scratch_folder folder;
    test::batch_call call;
};

std::vector<std::string> keys_of(const json& object)
{
    std::vector<std::string> keys;
    for (const auto& [key, value] : object.items())
        keys.push_back(key);
    return keys;
}

TEST_F(SolveFiles, TheHighestStatusWinsAndEveryFileGetsItsTurn)
{
    struct row
    {
        std::vector<std::string> files;
        int status;
        int reports;
        std::string err;
    };
    const std::vector<row> rows = {
        {{"sum.kvr"}, 0, 1, ""},
        {{"sum.kvr", "lines.kvr", "root.kvr"}, 0, 3, ""},
        {{"fails.kvr", "sum.kvr"},
         1,
         1,
         "Expression evaluation error. (fails.kvr)\nError: sqrt() of negative number not allowed.\nsqrt(b)\n"},
        {{"red.kvr", "sum.kvr"}, 1, 1, "Kelvarin Guide (red.kvr)\nUndefined Variable: q\n"},
        {{"missing.kvr", "fails.kvr", "sum.kvr"}, 2, 1, "Kelvarin Guide (missing.kvr)\nThe file can not be read: "},
        {{"decay.kvr", "sum.kvr"}, 2, 1, "Kelvarin Guide (decay.kvr)\nDifferential equations are not yet solved"},
        {{"."}, 2, 0, "Kelvarin Guide (.)\nThe file can not be read: "},
    };
    for (const row& expected : rows) {
        SCOPED_TRACE(testing::PrintToString(expected.files));
        const batch_result result = call(expected.files);
        EXPECT_EQ(result.status, expected.status);
        EXPECT_THAT(result.err, StartsWith(expected.err));
        EXPECT_EQ(result.err.empty(), expected.err.empty()) << result.err;
        EXPECT_EQ(result.err.find('\r'), std::string::npos);
        int reports = 0;
        for (auto at = result.out.find("KELVARIN Results"); at != std::string::npos;
             at = result.out.find("KELVARIN Results", at + 1))
            ++reports;
        EXPECT_EQ(reports, expected.reports);
    }
}

TEST_F(SolveFiles, FilesOfOtherKindsAreToldByTheirKind)
{
    folder.write("many.kvr", "Equations\n64\n1\t2\t\r\n");
    folder.write("table.kvr", "Table\n2 3\n1\t2\n");
    folder.write("target.kvr", "Optimum\nx*y\nx(0)=1\n");
    folder.write("one-line.kvr", "only a title\n");
    folder.write("empty.kvr", "");
    folder.write("odd.kvr", "title\n2x y = 3\nz = 1\n");
    folder.write("report.rtf", "{\\rtf1 }");
    folder.write("notes.txt", test::explicit_only);
    folder.write("curve.kvg", "KVRGRF/V500//\n1\n2\n");
    struct row
    {
        std::string file, kind, text;
    };
    const std::vector<row> rows = {
        {"decay.kvr", "deq", "Differential equations are not yet solved by this version."},
        {"many.kvr", "leq",
         "Error while trying to open file.\rIts second line is to be the number of equations less 1, a whole number "
         "from 1 "
         "to 63."},
        {"table.kvr", "reg", "Data tables are not yet solved by this version."},
        {"report.rtf", "report", "--kind nle"},
        {"notes.txt", "text", "--kind nle"},
        {"curve.kvg", "graph", "curve.kvg is a graph file"},
        {"target.kvr", "unknown",
         "The file format of target.kvr does not match any of the Kelvarin input files format."},
        {"one-line.kvr", "unknown", "does not match any of the Kelvarin input files format."},
        {"empty.kvr", "unknown", "does not match any of the Kelvarin input files format."},
        {"odd.kvr", "nle", "Error while trying to open file."},
    };
    for (const row& expected : rows) {
        SCOPED_TRACE(expected.file);
        const batch_result solved = call({"--format", "json", expected.file});
        EXPECT_EQ(solved.status, 2);
        EXPECT_EQ(solved.as_json()["kind"], expected.kind);
        EXPECT_EQ(solved.as_json()["ok"], false);
        EXPECT_THAT(solved.as_json()["messages"][0]["text"].get<std::string>(), HasSubstr(expected.text));
        EXPECT_THAT(solved.err, HasSubstr(expected.text.substr(0, expected.text.find('\r'))));
        const batch_result checked = call({"--check", expected.file});
        EXPECT_EQ(checked.status, 2);
        EXPECT_EQ(checked.as_json()["kind"], expected.kind);
    }
    EXPECT_EQ(call({"--kind", "nle", "notes.txt"}).status, 0);
    EXPECT_EQ(call({"--kind", "nle", "one-line.kvr"}).status, 2);
}

// x + y = 3, x - y = 1.
TEST_F(SolveFiles, LinearEquationsAreSolvedCheckedOrRefused)
{
    folder.write("linear.kvr", test::linear_lines);
    folder.write("linear.txt", test::linear_lines);
    folder.write("singular.kvr", "S\n1\n1\t2\t\n2\t4\t\n3\t6\t\n");
    folder.write("gap.kvr", "G\n1\n1\t2\t\n2\t\t\n3\t6\t\n");
    const json solved = call({"--format", "json", "linear.kvr"}).as_json();
    EXPECT_EQ(keys_of(solved),
              (std::vector<std::string>{"file", "kind", "title", "ok", "messages", "variables", "residual", "report"}));
    const json variables = {{{"name", "x"}, {"value", 2.0}}, {{"name", "y"}, {"value", 1.0}}};
    EXPECT_EQ(solved["kind"], "leq");
    EXPECT_EQ(solved["ok"], true);
    EXPECT_EQ(solved["variables"], variables);
    EXPECT_EQ(solved["residual"], 0.0);
    EXPECT_THAT(solved["report"].get<std::string>(), HasSubstr(" [2] y =  1"));
    EXPECT_EQ(call({"--kind", "leq", "--format", "json", "linear.txt"}).as_json()["variables"], variables);

    struct row
    {
        std::string file, text;
    };
    const std::vector<row> rows = {
        {"singular.kvr", "Error, Singular Matrix enetered !"},
        {"gap.kvr", "The coefficients matrix contains one or more empty cells (2,2)"},
    };
    for (const row& expected : rows) {
        SCOPED_TRACE(expected.file);
        const batch_result result = call({"--format", "json", expected.file});
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.err, "Kelvarin Guide (" + expected.file + ")\n" + expected.text + "\n");
        const json refused = result.as_json();
        EXPECT_EQ(refused["ok"], false);
        EXPECT_EQ(refused["messages"][0]["text"], expected.text);
        EXPECT_FALSE(refused.contains("variables"));
        EXPECT_FALSE(refused.contains("residual"));
    }
    const json checked = call({"--check", "linear.kvr", "gap.kvr"}).as_json();
    EXPECT_EQ(keys_of(checked[0]),
              (std::vector<std::string>{"file", "kind", "title", "green", "variables", "warnings"}));
    EXPECT_EQ(checked[0]["green"], true);
    EXPECT_EQ(checked[1]["green"], false);
    EXPECT_EQ(checked[1]["warnings"][0], rows[1].text);
}

TEST_F(SolveFiles, JsonHasTheKeysOfItsKindInOrder)
{
    const json one = call({"--format", "json", "root.kvr"}).as_json();
    EXPECT_EQ(keys_of(one), (std::vector<std::string>{"file", "kind", "title", "method", "ok", "messages", "converged",
                                                      "solutions", "scan", "report"}));
    ASSERT_EQ(one["solutions"].size(), 1u);
    EXPECT_NEAR(one["solutions"][0]["implicit"][0]["value"].get<double>(), std::sqrt(2.0), 1e-7);
    EXPECT_EQ(one["scan"]["x"].size(), 167u);
    EXPECT_EQ(one["scan"]["f"].size(), 167u);
    EXPECT_EQ(one["scan"]["x"].back(), 2.0);
    EXPECT_EQ(one["scan"]["f"].back(), 2.0);

    const json all = call({"--format", "json", "lines.kvr", "sum.kvr", "fails.kvr"}).as_json();
    ASSERT_TRUE(all.is_array());
    ASSERT_EQ(all.size(), 3u);
    EXPECT_EQ(keys_of(all[0]), (std::vector<std::string>{"file", "kind", "title", "method", "ok", "messages",
                                                         "converged", "iterations", "implicit", "explicit", "report"}));
    EXPECT_NEAR(all[0]["implicit"][0]["value"].get<double>(), 2.0, 1e-9);
    EXPECT_NEAR(all[0]["implicit"][1]["value"].get<double>(), 1.0, 1e-9);
    EXPECT_EQ(all[0]["implicit"][1]["guess"], 1.0);
    EXPECT_EQ(all[0]["converged"], true);
    EXPECT_FALSE(all[1].contains("iterations"));
    EXPECT_EQ(all[1]["explicit"], json::parse(R"([{"name": "a", "value": 1.0}, {"name": "b", "value": 2.0}])"));
    EXPECT_EQ(all[1]["report"], call({"sum.kvr"}).out);

    EXPECT_EQ(keys_of(all[2]), (std::vector<std::string>{"file", "kind", "title", "method", "ok", "messages",
                                                         "converged", "implicit", "explicit", "report"}));
    EXPECT_EQ(all[2]["ok"], false);
    EXPECT_EQ(all[2]["converged"], false);
    EXPECT_EQ(all[2]["explicit"], json::array());
    EXPECT_EQ(all[2]["report"], "");
    EXPECT_EQ(all[2]["messages"].size(), 1u);
}

TEST_F(SolveFiles, ARefusedSingleEquationKeepsItsEmptyArrays)
{
    const batch_result result = call({"--format", "json", "red.kvr"});
    EXPECT_EQ(result.status, 1);
    const json object = result.as_json();
    EXPECT_EQ(object["ok"], false);
    EXPECT_EQ(object["solutions"], json::array());
    EXPECT_EQ(object["scan"], json::parse(R"({"x": [], "f": []})"));
    EXPECT_FALSE(object.contains("implicit"));
}

TEST_F(SolveFiles, MessagesKeepTheirCarriageReturnsInJsonOnly)
{
    folder.write("syntax.kvr", "Syntax\nf(x) = x+y*\nf(y) = y-1\nx(0)=1\ny(0)=1\n");
    const batch_result result = call({"--format", "json", "syntax.kvr"});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.as_json()["messages"][0]["text"].get<std::string>(),
                StartsWith("Nonlinear equation # 1\rSyntax Error: "));
    EXPECT_THAT(result.err, StartsWith("Kelvarin Guide (syntax.kvr)\nNonlinear equation # 1\nSyntax Error: "));
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
    EXPECT_THAT(result.err, StartsWith("Kelvarin Guide (no/such/folder.txt)\nError while trying to save file.\n"));
    std::filesystem::create_directory("folder");
    EXPECT_EQ(call({"-o", "folder", "sum.kvr"}).status, 2);
}

TEST_F(SolveFiles, TheMethodOfTheCommandLineReplacesThatOfTheFile)
{
    for (const std::string method : {"fastnewt", "safenewt", "safebroydn", "constrained"}) {
        SCOPED_TRACE(method);
        const json object = call({"--format", "json", "--method", method, "lines.kvr"}).as_json();
        EXPECT_EQ(object["method"], method);
        EXPECT_EQ(object["ok"], true);
        EXPECT_NEAR(object["implicit"][0]["value"].get<double>(), 2.0, 1e-6);
        EXPECT_THAT(object["report"].get<std::string>(), HasSubstr("NLES Report (" + method + ")"));
    }
    const batch_result refused = call({"--method", "3", "root.kvr"});
    EXPECT_EQ(refused.status, 1);
    EXPECT_THAT(refused.err, HasSubstr("Constrained NLE method may only be chosen for a system"));
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
    std::vector<std::string> files;
    for (int i = 0; i < 6; ++i)
        for (const char* file : {"lines.kvr", "fails.kvr", "root.kvr", "red.kvr", "sum.kvr", "missing.kvr"})
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

TEST_F(SolveFiles, CheckTellsWhatIsMissingAndSucceedsOnARedProblem)
{
    folder.write("twice.kvr", "Twice\nf(x) = x-1\na = x\na = x+u+v\nx(min)=2, x(max)=2\n");
    const batch_result result = call({"--check", "red.kvr", "twice.kvr", "lines.kvr"});
    EXPECT_EQ(result.status, 0);
    const json all = result.as_json();
    ASSERT_EQ(all.size(), 3u);
    EXPECT_EQ(keys_of(all[0]),
              (std::vector<std::string>{"file", "kind", "title", "method", "green", "panels", "implicit", "explicit",
                                        "undefined", "duplicates", "warnings"}));
    EXPECT_EQ(all[0]["green"], false);
    EXPECT_EQ(all[0]["panels"], json::parse(R"(["Nonlinear Equations: 1 ", "Auxiliary Equations: 0 ",
                                                "Undefined Variable: q "])"));
    EXPECT_EQ(all[0]["warnings"], json::parse(R"(["Warning: Undefined variable/s exist."])")) << all[0]["warnings"];
    EXPECT_EQ(all[1]["undefined"], json::parse(R"(["u", "v"])"));
    EXPECT_EQ(all[1]["duplicates"], json::parse(R"(["a"])"));
    EXPECT_EQ(all[1]["explicit"], json::parse(R"(["a", "a"])"));
    EXPECT_EQ(all[2]["green"], true);
    EXPECT_EQ(all[2]["warnings"], json::array());
}

/// The JSON library's own text of a value.
std::string printed(const json& value)
{
    return value.dump(2, ' ', false, json::error_handler_t::replace);
}

TEST(BatchJson, AnswersAreTheBytesOfTheirOwnObjectsPrinted)
{
    const test::scratch_folder folder;
    folder.write("root.kvr", test::square_root_of_two);
    folder.write("lines.kvr", test::plane_lines);
    folder.write("sum.kvr", test::explicit_only);
    folder.write("red.kvr", test::undefined_name);
    folder.write("fails.kvr", test::failing_run);
    folder.write("decay.kvr", test::differential);
    folder.write("odd.kvr", "title\n2x y = 3\nz = 1\n");
    folder.write("title.kvr", "Tit\tle \"\\ \xC3\xA9\na = 1/3\n");
    test::batch_call call;
    std::vector<std::string> all = {"--format", "json"};
    for (const char* file : {"root.kvr", "lines.kvr", "sum.kvr", "red.kvr", "fails.kvr", "decay.kvr", "odd.kvr",
                             "title.kvr", "none.kvr"}) {
        SCOPED_TRACE(file);
        const test::batch_result alone = call({"--format", "json", file});
        EXPECT_EQ(alone.out, printed(alone.as_json()) + "\n");
        all.emplace_back(file);
    }
    const test::batch_result together = call(all);
    EXPECT_EQ(together.as_json().size(), 9u);
    EXPECT_EQ(together.out, printed(together.as_json()) + "\n");
    all[0] = "--check";
    all.erase(all.begin() + 1);
    const test::batch_result checked = call(all);
    EXPECT_EQ(checked.out, printed(checked.as_json()) + "\n");
}

} // namespace
} // namespace kelvarin

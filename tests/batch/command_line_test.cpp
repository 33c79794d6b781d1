// SPDX-License-Identifier: MIT
#include "batch/command_line.h"
#include "batch_call.h"
#include "support/changed_environment.h"
#include "support/scratch_folder.h"
#include "support/table.h"

#include <gmock/gmock.h>

namespace kelvarin::test
{

using testing::HasSubstr;

TEST(CommandLine, WrongUsageIsRefusedWithAReasonAndDoesNothing)
{
    const scratch_folder folder;
    folder.write("a.kvr", explicit_only);
    folder.write("b.kvr", explicit_only);
    std::filesystem::create_directory("sub");
    folder.write("sub/a.kvr", explicit_only);

    const table<std::vector<std::string>, std::string> rows = {
        {{"--check"}, "No FILE is given."},
        {{"--unknown", "a.kvr"}, "--unknown"},
        {{"a.kvr", "--method"}, "--method"},
        {{"--method", "5", "a.kvr"}, "there is no method '5'"},
        {{"--method", "newton", "a.kvr"}, "there is no method 'newton'"},
        {{"--method", "0", "--method", "1", "a.kvr"}, "--method"},
        {{"--set", "newt_TOLF", "a.kvr"}, "KEY=VALUE"},
        {{"--set", "newt_TOLF=1e-x", "a.kvr"},
         "kelvarin-solve: --set: a number is expected, not '1e-x' (newt_TOLF).\n"},
        {{"-", "a.kvr", "-"}, "can be read only once"},
        {{"--clock", "yesterday", "a.kvr"}, "--clock: a date such as 2026-01-02 is expected, not 'yesterday'."},
        {{"--set", "newt_TOL=1", "a.kvr"}, "there is no setting 'newt_TOL'"},
        {{"--set", "newt_TOLF=0.2", "a.kvr"}, "Kelvarin Guide (--set newt_TOLF=0.2)\nValue must be between 0 & 0.1\n"},
        {{"--set", "newt_MAXITS=20.5", "a.kvr"}, "Only integer input is allowed."},
        {{"--set", "newt_MAXITS=9", "a.kvr"}, "Value must be between 10 & 300"},
        {{"--set", "general_show_status_bar=1", "a.kvr"}, "Only Boolean input is allowed."},
        {{"--format", "pdf", "a.kvr"}, "'pdf'"},
        {{"--check", "--format", "text", "a.kvr"}, "JSON only"},
        {{"--format", "rtf", "--eval", "1"}, "text or JSON only"},
        {{"--settings", "--format", "rtf"}, "text or JSON only"},
        {{"--units", "--format", "rtf"}, "text or JSON only"},
        {{"--kind", "ode", "a.kvr"}, "--kind: nle, leq, deq, "},
        {{"--units", "--constants"}, "Only one of"},
        {{"--convert", "100", "m"}, "a number and two units are expected"},
        {{"a.kvr", "--convert", "100", "m", "km"}, "take no FILE"},
        {{"--check", "--settings"}, "Only one of"},
        {{"--settings", "a.kvr"}, "take no FILE"},
        {{"a.kvr", "--eval", "1"}, "take no FILE"},
        {{"--eval"}, "no line is given"},
        {{"--format", "rtf", "a.kvr", "b.kvr"}, "{}"},
        {{"--format", "rtf", "-o", "x.rtf", "a.kvr", "b.kvr"}, "{}"},
        {{"-o", "{}.txt", "a.kvr", "sub/a.kvr"}, "Two outputs would be written to 'a.txt'."},
        {{"-o", "a.kvr", "a.kvr"}, "would replace the problem 'a.kvr'"},
        {{"--csv", "x.csv", "a.kvr", "b.kvr"}, "--csv: of several FILEs the name needs {} in it, such as '{}.csv'."},
        {{"--csv", "a.kvr", "a.kvr"}, "would replace the problem 'a.kvr'"},
        {{"--csv", "x", "--plot", "x", "a.kvr"}, "Two outputs would be written to 'x'."},
        {{"-o", "sub/../{}.kvr", "b.kvr", "a.kvr"}, "would replace the problem 'b.kvr'"},
    };
    for (const auto& [arguments, reason] : rows) {
        SCOPED_TRACE(testing::PrintToString(arguments));
        batch_call call;
        const batch_result result = call(arguments);
        EXPECT_EQ(result.status, 2);
        EXPECT_EQ(result.out, "");
        EXPECT_THAT(result.err, HasSubstr(reason));
        EXPECT_EQ(folder.read("a.kvr"), explicit_only);
        EXPECT_FALSE(folder.holds("a.txt"));
    }
}

TEST(CommandLine, OptionsMayStandBeforeAndBehindTheFiles)
{
    const memory_registry saved;
    const std::vector<std::string> arguments = {"--set", "newt_TOLF=0.01", "a.kvr",      "--method", "2",  "--format",
                                                "json",  "--set",          "MNEWT_N=20", "b.kvr",    "-o", "out.json"};
    const auto read = read_command_line(arguments, saved);
    const auto* request = std::get_if<batch_request>(&read);
    ASSERT_NE(request, nullptr) << std::get<command_line_end>(read).text;
    EXPECT_EQ(request->files, (std::vector<std::string>{"a.kvr", "b.kvr"}));
    ASSERT_TRUE(request->option("--method"));
    EXPECT_EQ(*request->option("--method"), "2");
    EXPECT_EQ(request->format, output_format::object);
    EXPECT_EQ(request->output, "out.json");
    EXPECT_EQ(request->store.number("newt_TOLF"), 0.01);
    EXPECT_EQ(request->store.whole_number("mnewt_n"), 20);
}

TEST(CommandLine, TheUsersSavedSettingsHoldUnlessTheCommandLineSetsThem)
{
    batch_call call;
    settings own;
    ASSERT_FALSE(own.set_value("newt_MAXITS", "200"));
    ASSERT_FALSE(own.set_value("mnewt_n", "100"));
    own.save_settings(call.saved);
    const json listed = call({"--settings", "--format", "json", "--set", "mnewt_n=50"}).as_json();
    const auto value_of = [&](const std::string& key) {
        for (const json& row : listed)
            if (row["key"] == key) return row["value"];
        return json();
    };
    EXPECT_EQ(value_of("newt_MAXITS"), 200);
    EXPECT_EQ(value_of("mnewt_n"), 50);
    EXPECT_EQ(settings(call.saved).whole_number("mnewt_n"), 100) << "the command line must not be saved";
}

TEST(CommandLine, OptionsBehindEvalAreLinesAndTheGeneratorStartsAlike)
{
    batch_call call;
    const batch_result result = call({"--format", "json", "--eval", "2", "--format", "-o", "x"});
    EXPECT_EQ(result.status, 1);
    ASSERT_EQ(result.as_json().size(), 4u);
    EXPECT_EQ(result.as_json()[2]["line"], "-o");
    EXPECT_EQ(call({"--eval", "rand(1)", "rand(1)"}).out, call({"--eval", "rand(1)", "rand(1)"}).out);
}

TEST(CommandLine, EvalGivesValuesAsTextWhereThatIsWritten)
{
    batch_call call;
    const batch_result result = call({"--format", "text", "--eval", "r = 2.5", "1/0", "4*r"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.out, "2.5\n\n10\n");
    EXPECT_THAT(result.err, testing::StartsWith("kelvarin-solve: 1/0: "));
}

TEST(CommandLine, AClockThatStandsGivesTheSameBytes)
{
    const scratch_folder folder;
    folder.write("a.kvr", plane_lines);
    const system_clock clock;
    const memory_registry saved;
    recording_listener listener;
    double seconds = 0.0;
    const auto report = [&](const std::vector<std::string>& arguments) {
        std::ostringstream out, err;
        EXPECT_EQ(run_batch(arguments, out, err, {clock, saved, listener, false, [&] { return seconds += 1.5; }}), 0);
        return out.str();
    };
    const std::string first = report({"--clock", "2026-03-04", "a.kvr"});
    EXPECT_THAT(first, HasSubstr("03-04-2026"));
    EXPECT_EQ(report({"--clock", "2026-03-04", "a.kvr"}), first);
    const changed_environment environment(changed_environment::variables{{"SOURCE_DATE_EPOCH", "1772582400"}});
    EXPECT_EQ(report({"a.kvr"}), first);
}

TEST(CommandLine, ADoubleDashEndsTheOptions)
{
    const scratch_folder folder;
    folder.write("--eval", explicit_only);
    batch_call call;
    EXPECT_EQ(call({"--kind", "nle", "--", "--eval"}).status, 0);
}

TEST(OutputName, PutsTheStemInPlaceOfEachPairOfBraces)
{
    const table<std::string, std::string, std::string> rows = {
        {"{}.txt", "a.kvr", "a.txt"},        {"out/{}-{}.json", "dir/pipe.old.kvr", "out/pipe.old-pipe.old.json"},
        {"fixed.txt", "a.kvr", "fixed.txt"}, {"{}.txt", "{}.kvr", "{}.txt"},
        {"{}", "dir/.hidden", ".hidden"},    {"{}.txt", "-", "stdin.txt"},
    };
    for (const auto& [output, file, name] : rows)
        EXPECT_EQ(output_name(output, file), name) << output;
}

} // namespace kelvarin::test

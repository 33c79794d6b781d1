// SPDX-License-Identifier: MIT
#include "app/start_request.h"

#include "support/scratch_folder.h"
#include "support/table.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace
{

using namespace kelvarin;

TEST(StartRequest, TakesToolWordsOnlyAloneAndExactAndAllElseAsDocuments)
{
    const test::table<std::vector<std::string>, start_request> rows = {
        {std::vector<std::string>(), {}},
        {{"calc"}, {.tool = window_command::calculator, .documents = {}}},
        {{"units"}, {.tool = window_command::units, .documents = {}}},
        {{"const"}, {.tool = window_command::constants, .documents = {}}},
        {{"ant"}, {.tool = window_command::antoine, .documents = {}}},
        {{"Calc"}, {.tool = {}, .documents = {"Calc"}}},
        {{"calc", "a.kvr"}, {.tool = {}, .documents = {"calc", "a.kvr"}}},
        {{"my work/a b.kvr"}, {.tool = {}, .documents = {"my work/a b.kvr"}}},
        {{"\"my work/a b.kvr\""}, {.tool = {}, .documents = {"my work/a b.kvr"}}},
        {{"\"half.kvr"}, {.tool = {}, .documents = {"\"half.kvr"}}},
        {{"--", "calc"}, {.tool = {}, .documents = {"calc"}}},
        {{"--", "--", "-h"}, {.tool = {}, .documents = {"--", "-h"}}},
        {{"", "\"\"", "\""}, {.tool = {}, .documents = {"\""}}},
    };
    for (const auto& [arguments, expected] : rows)
        EXPECT_EQ(read_arguments(arguments), expected) << testing::PrintToString(arguments);
}

TEST(StartRequest, AnswersOptionsOnTheTerminalUnlessTheyNameAFile)
{
    const test::scratch_folder folder;
    folder.write("--odd.kvr", "");
    const test::table<std::vector<std::string>, int> rows = {
        {{"-h"}, 0},        {{"a.kvr", "--help"}, 0},
        {{"--helq"}, 2},    {{"a.kvr", "--export"}, 2},
        {{"a.kvr"}, -1},    {{"--odd.kvr"}, -1},
        {{"--", "-h"}, -1}, {{"--platform", "offscreen"}, -1},
        {{"-style"}, -1},   {std::vector<std::string>(), -1},
    };
    for (const auto& [arguments, status] : rows) {
        SCOPED_TRACE(testing::PrintToString(arguments));
        const std::optional<terminal_answer> answer = answer_on_terminal(arguments);
        EXPECT_EQ(answer ? answer->status : -1, status);
        EXPECT_EQ(answer && answer->text.find("usage: kelvarin [FILE...]") != std::string::npos, status >= 0);
    }
}

TEST(StartRequest, ExpectsAScreenOnlyWhereThereIsOne)
{
    const test::table<screen_variables, bool> rows = {
        {screen_variables(), false},
        {{.platform = {}, .display = ":0", .wayland_display = {}}, true},
        {{.platform = {}, .display = {}, .wayland_display = "wayland-0"}, true},
        {{.platform = "offscreen", .display = {}, .wayland_display = {}}, true},
        {{.platform = "vnc:size=800x600", .display = {}, .wayland_display = {}}, true},
        {{.platform = "xcb", .display = {}, .wayland_display = {}}, false},
        {{.platform = "wayland;xcb", .display = {}, .wayland_display = {}}, false},
    };
    for (const auto& [variables, expected] : rows)
        EXPECT_EQ(has_screen(variables), expected) << variables.platform.value_or("no platform");
}

struct answer_of_program
{
    int status = -1;
    std::string text;
};

/// Runs the program itself; what it says on both channels comes back.
answer_of_program run_program(const std::string& environment, const std::string& arguments)
{
    const std::string line = "env " + environment + " '" KELVARIN_BIN "/kelvarin' " + arguments + " 2>&1";
    answer_of_program answer;
    FILE* pipe = popen(line.c_str(), "r");
    if (!pipe) return answer;
    for (int letter = std::fgetc(pipe); letter != EOF; letter = std::fgetc(pipe))
        answer.text.push_back(static_cast<char>(letter));
    const int ended = pclose(pipe);
    if (WIFEXITED(ended)) answer.status = WEXITSTATUS(ended);
    return answer;
}

TEST(Program, SaysPlainlyThatThereIsNoDisplay)
{
    const answer_of_program answer = run_program("-u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM", "");
    EXPECT_EQ(answer.status, 1);
    EXPECT_EQ(answer.text, "kelvarin: there is no display to open a window on. kelvarin-solve solves problem files "
                           "without one.\n");
}

TEST(Program, TellsItsVersionWithoutADisplay)
{
    const answer_of_program answer = run_program("-u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM", "--version");
    EXPECT_EQ(answer.status, 0);
    EXPECT_EQ(answer.text, "kelvarin 5.0.0\n");
}

} // namespace

// SPDX-License-Identifier: MIT
#include "batch_call.h"
#include "deq/deq_file.h"
#include "deq/deq_kind.h"
#include "leq/leq_file.h"
#include "leq/leq_kind.h"
#include "nle/nle_file.h"
#include "opt/opt_file.h"
#include "opt/opt_kind.h"
#include "platform/text_file.h"
#include "reg/reg_kind.h"
#include "reg/table/table_file.h"
#include "shell/document/recognition.h"
#include "support/digits.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <set>

namespace kelvarin
{
namespace
{

namespace fs = std::filesystem;

std::vector<fs::path> files_in(const fs::path& folder, const std::string& extension)
{
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(folder))
        if (entry.path().extension() == extension) files.push_back(entry.path());
    return files;
}

std::map<std::string, double> values_of(const json& solution)
{
    std::map<std::string, double> values;
    for (const char* part : {"implicit", "explicit", "variables", "final"})
        for (const json& value : solution.value(part, json::array()))
            values[value["name"]] = value["value"];
    for (const json& fit : solution.value("fits", json::array()))
        for (const json& value : fit["parameters"])
            values[value["name"]] = value["value"];
    // The result of an analysis of columns.
    if (solution.contains("value")) values["value"] = solution["value"];
    return values;
}

/// tests/data/examples/NAME.json holds the values of examples/NAME.kvr, computed apart by the program beside
/// them. Six digits are what the default tolerances of 1e-7 promise; integrations promise 1e-6 or an absolute 1e-7 in
/// each of their steps; tables hold readings that are rounded.
TEST(Examples, EachGivesTheValuesThatWereComputedApart)
{
    const auto files = files_in(KELVARIN_EXAMPLES, ".kvr");
    ASSERT_GE(files.size(), 8u);
    std::set<std::string> methods;
    for (const fs::path& file : files) {
        SCOPED_TRACE(file.filename().string());
        std::ifstream data(fs::path(KELVARIN_TEST_DATA) / "examples" / (file.stem().string() + ".json"));
        ASSERT_TRUE(data);
        const json computed = json::parse(data);
        std::vector<std::string> arguments = computed.value("arguments", std::vector<std::string>());
        arguments.insert(arguments.end(), {"--format", "json", file.string()});
        test::batch_call call;
        const test::batch_result result = call(arguments);
        ASSERT_EQ(result.status, 0) << result.err;
        const json solved = result.as_json();
        EXPECT_TRUE(solved.value("converged", true));
        if (solved.contains("method")) methods.insert(solved["method"]);

        const json& expected = computed["solutions"];
        const double digits = solved["kind"] == "deq" || solved["kind"] == "reg" ? 3.5 : 6.0;
        const json solutions = solved.contains("solutions") ? solved["solutions"] : json::array({solved});
        ASSERT_EQ(solutions.size(), expected.size());
        for (std::size_t i = 0; i < expected.size(); ++i) {
            const auto values = values_of(solutions[i]);
            for (const auto& [name, value] : expected[i].items()) {
                ASSERT_TRUE(values.contains(name)) << name;
                EXPECT_GE(test::digits_shown(values.at(name), value), digits)
                    << name << " is " << values.at(name) << ", not " << value;
            }
        }
    }
    EXPECT_EQ(methods.size(), 10u) << "the examples are to show every method";
}

TEST(Examples, EveryEquationHasACommentAndSavingChangesNoByte)
{
    for (const fs::path& file : files_in(KELVARIN_EXAMPLES, ".kvr")) {
        SCOPED_TRACE(file.filename().string());
        std::ifstream stream(file, std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
        if (holds_problem(bytes, leq_kind())) {
            EXPECT_EQ(write_leq(read_leq(bytes).value()), bytes);
            continue;
        }
        if (holds_problem(bytes, reg_kind())) {
            EXPECT_EQ(write_table(read_table(bytes, table_content()).value()), bytes);
            continue;
        }
        if (holds_problem(bytes, opt_kind())) {
            const opt_content content = read_opt(bytes).value();
            for (const equation_row& row : content.rows)
                EXPECT_FALSE(row.comment.empty()) << row.equation;
            EXPECT_EQ(write_opt(content), bytes);
            continue;
        }
        const auto differential = holds_problem(bytes, deq_kind()) ? read_deq(bytes) : std::nullopt;
        const auto nonlinear = differential ? std::nullopt : read_nle(bytes);
        ASSERT_TRUE(differential || nonlinear);
        for (const equation_row& row : differential ? differential->rows : nonlinear->rows)
            EXPECT_FALSE(row.comment.empty()) << row.equation;
        EXPECT_EQ(differential ? write_deq(*differential) : write_nle(*nonlinear), bytes);
    }
}

} // namespace
} // namespace kelvarin

// SPDX-License-Identifier: MIT
#include "batch_call.h"
#include "support/golden.h"
#include "support/table.h"

#include <filesystem>

namespace kelvarin
{
namespace
{

/// The problems under tests/data/batch need nothing but + - * / and the square root, so that their results
/// are the same to the last bit on every machine.
class BatchGolden : public testing::Test
{
protected:
    BatchGolden() : before_(std::filesystem::current_path())
    {
        // Reports and JSON name the file as it was given.
        std::filesystem::current_path(std::filesystem::path(KELVARIN_TEST_DATA) / "batch");
    }
    ~BatchGolden() override { std::filesystem::current_path(before_); }

private:
    std::filesystem::path before_;
};

TEST_F(BatchGolden, OutputIsWhatItWas)
{
    const test::table<std::string, std::vector<std::string>, int> rows = {
        {"explicit.txt", {"explicit.kvr"}, 0},
        {"explicit.json", {"--format", "json", "explicit.kvr"}, 0},
        {"explicit.rtf", {"--format", "rtf", "explicit.kvr"}, 0},
        {"two-roots.txt", {"two-roots.kvr"}, 0},
        {"two-roots.json", {"--format", "json", "two-roots.kvr"}, 0},
        {"system.txt", {"system.kvr"}, 0},
        {"system-constrained.json", {"--method", "constrained", "--format", "json", "system.kvr"}, 0},
        {"refused.json", {"--format", "json", "circle.kvr", "red.kvr"}, 1},
        {"checked.json", {"--check", "explicit.kvr", "two-roots.kvr", "circle.kvr", "red.kvr"}, 0},
        {"settings.txt", {"--settings"}, 0},
        {"settings.json", {"--settings", "--format", "json", "--set", "cnle_tol=0.001"}, 0},
        {"linear.txt", {"linear.kvr"}, 0},
        {"linear.json", {"--format", "json", "linear.kvr", "nearly-singular.kvr", "decimal-comma.kvr"}, 1},
        {"linear.rtf", {"--format", "rtf", "linear.kvr"}, 0},
        {"linear-checked.json", {"--check", "linear.kvr", "decimal-comma.kvr"}, 0},
        {"differential.txt",
         {"--table", "--set", "rkf45_h=0.1", "--set", "deq_intermediate_data_points=20", "differential.kvr"},
         0},
        {"differential.json",
         {"--format", "json", "--method", "STIFF", "--set", "stiff_h1=0.1", "--set", "deq_intermediate_data_points=20",
          "differential.kvr"},
         0},
        {"optimum.txt", {"optimum.kvr"}, 0},
        {"optimum.json", {"--format", "json", "--method", "Dfpmin", "optimum.kvr", "flat-optimum.kvr"}, 0},
        {"optimum-checked.json", {"--check", "optimum.kvr", "flat-optimum.kvr"}, 0},
        {"units.txt", {"--units", "viscosity"}, 0},
        {"units.json", {"--units", "--format", "json", "temperature", "deg"}, 0},
        {"constants.txt", {"--constants", "gas", "constant"}, 0},
        {"constants.json", {"--constants", "--format", "json", "Planck"}, 0},
        {"help.txt", {"--help"}, 0},
        {"help.txt", {"-h"}, 0},
        {"version.txt", {"--version"}, 0},
        // Each line depends on those above it; one that fails keeps the old value.
        {"eval.json",
         {"--eval", "x = 2*3", "x+1", "-2^2", "2*(-x)", "--2", "", "= 5", "(x == 7)", "x => 7", "pi", "x = 1/0", "x",
          "1e200*1e200/1e200", "y\t=\n1", "(1) (2)", "1/3", "0.1", "1e300"},
         1},
    };
    for (const auto& [golden, arguments, status] : rows) {
        SCOPED_TRACE(golden);
        test::batch_call call;
        const test::batch_result result = call(arguments);
        EXPECT_EQ(result.status, status) << result.err;
        test::expect_golden("batch/" + golden, result.out);
    }
}

} // namespace
} // namespace kelvarin

// SPDX-License-Identifier: MIT
// Single operations of the engine, each beside the same formula compiled in C++.
#include "compiled_formula.h"
#include "values.h"

#include <benchmark/benchmark.h>

namespace
{

using namespace kelvarin;
using namespace kelvarin::bench;

constexpr int jacobian_size = 100;

void evaluate_program(benchmark::State& state, formula (*source)())
{
    compiled_formula compiled(source());
    program& fast = compiled.fast();
    for ([[maybe_unused]] auto each : state) {
        fast.run_in_place();
        benchmark::DoNotOptimize(fast.output(0));
    }
}

void evaluate_native(benchmark::State& state, formula (*source)())
{
    const formula native = source();
    std::vector<double> slots(native.slot_count());
    for (std::size_t i = 0; i < native.inputs.size(); ++i)
        slots[i] = native.inputs[i].value;
    for ([[maybe_unused]] auto each : state)
        benchmark::DoNotOptimize(native.native(slots.data()));
}

void difference(benchmark::State& state, nonlinear_system& system)
{
    const std::vector<double> x(jacobian_size, -1.0);
    const std::vector<double> moved(jacobian_size, -1.0 + 1e-07);
    const std::vector<double> divisors(jacobian_size, moved[0] - x[0]);
    std::vector<double> f(jacobian_size);
    system.evaluate(x, f);
    matrix df(jacobian_size, jacobian_size);
    const sparsity_pattern* pattern = nullptr;
    for ([[maybe_unused]] auto each : state) {
        pattern = system.difference_quotients(x, f, moved, divisors, df, pattern);
        benchmark::DoNotOptimize(df.values().data());
    }
}

void jacobian_program(benchmark::State& state)
{
    broyden_system broyden(jacobian_size);
    difference(state, broyden.system());
}

void jacobian_native(benchmark::State& state)
{
    function_system native(jacobian_size, broyden_native);
    difference(state, native);
}

} // namespace

int main(int argc, char** argv)
{
    const std::vector<std::pair<std::string, formula (*)()>> formulas = {
        {"cubic", cubic}, {"rate", rate}, {"chain", chain}};
    for (const auto& [name, source] : formulas) {
        benchmark::RegisterBenchmark((name + "/program").c_str(), evaluate_program, source);
        benchmark::RegisterBenchmark((name + "/native").c_str(), evaluate_native, source);
    }
    benchmark::RegisterBenchmark("jacobian/grouped columns", jacobian_program);
    benchmark::RegisterBenchmark("jacobian/native dense loop", jacobian_native);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}

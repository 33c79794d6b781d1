// SPDX-License-Identifier: MIT
#include "compiled_formula.h"
#include "sections.h"
#include "table.h"
#include "values.h"
#include "yardsticks.h"

namespace kelvarin::bench
{

namespace
{

struct evaluation_goals
{
    double program = 0.0;
    double parser = 0.0;
    double lanes = 0.0;
};

spread per_point(const spread& of_all)
{
    return {of_all.lowest / program::lanes, of_all.median / program::lanes, of_all.highest / program::lanes};
}

void compare_values(compiled_formula& compiled, double native, const yardstick& parsed, const std::string& name)
{
    program& fast = compiled.fast();
    require(fast.run_in_place() && fast.run_lanes_in_place(), name + ": the evaluation failed");
    require_same_bits(fast.output(0), native, name + ", program and native");
    require_same_bits(compiled.walk(), native, name + ", walk and native");
    for (int point = 0; point < program::lanes; ++point)
        require_same_bits(fast.lane_output(0, point), native, name + ", four points and native");
    if (!parsed) return;
    parsed.run();
    require_close(parsed.values->front(), native, 1e-12, name + ", muParser and native");
}

void measure(const formula& source, const evaluation_goals& goals)
{
    compiled_formula compiled(source);
    program& fast = compiled.fast();
    std::vector<double> slots(source.slot_count());
    for (std::size_t i = 0; i < source.inputs.size(); ++i)
        slots[i] = source.inputs[i].value;
    const yardstick parsed = parsed_evaluation(source);
    compare_values(compiled, source.native(slots.data()), parsed, source.name);

    const contender native = {"native", [&] { keep(source.native(slots.data())); }};
    const contender program_run = {"program", [&] {
                                       fast.run_in_place();
                                       keep(fast.output(0));
                                   }};
    const contender lanes_run = {"four points", [&] {
                                     fast.run_lanes_in_place();
                                     keep(fast.lane_output(0, 0));
                                 }};
    const contender walk_run = {"walk", [&] { keep(compiled.walk()); }};
    const std::vector<spread> seen = ratios({program_run, lanes_run, walk_run}, native);
    print_line(source.name + ": program / native", seen[0], at_most(goals.program));
    print_line(source.name + ": each of four points side by side / native", per_point(seen[1]), at_most(goals.lanes));
    print_line(source.name + ": walk / native", seen[2]);
    if (!parsed) return;
    const spread other = ratios({{"muParser", parsed.run}}, program_run).front();
    print_line(source.name + ": muParser / program", other, at_least(goals.parser));
}

} // namespace

void measure_evaluation()
{
    measure(cubic(), {.program = 2.4, .parser = 2.0, .lanes = 1.0});
    measure(rate(), {.program = 1.7, .parser = 1.8, .lanes = 1.2});
    measure(chain(), {.program = 2.5, .parser = 3.5, .lanes = 1.4});
}

void measure_compiling()
{
    const formula source = chain();
    const yardstick parsed = parsed_compiling(source);
    if (!parsed) return print_note("no muParser to compare with");
    const contender ours = {"ours", [&] { keep(compiled_formula(source)); }};
    const spread seen = ratios({{"muParser", parsed.run}}, ours).front();
    print_line("30 equations: muParser / text to program", seen, at_least(6.0));
}

} // namespace kelvarin::bench

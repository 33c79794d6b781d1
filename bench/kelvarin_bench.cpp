// SPDX-License-Identifier: MIT
// Prints how fast the program is beside others, section by section; names on the command line select.
#include "sections.h"
#include "table.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <exception>
#include <span>
#include <string_view>

namespace
{

struct section
{
    std::string_view name;
    void (*measure)();
};

constexpr std::array sections = {
    // First, since what this process holds by then counts.
    section{"memory", kelvarin::bench::measure_memory},
    section{"evaluation", kelvarin::bench::measure_evaluation},
    section{"compiling", kelvarin::bench::measure_compiling},
    section{"jacobian", kelvarin::bench::measure_jacobian},
    section{"linear", kelvarin::bench::measure_linear_solve},
    section{"newton", kelvarin::bench::measure_newton},
    section{"fits", kelvarin::bench::measure_fits},
    section{"integration", kelvarin::bench::measure_integration},
    section{"minimize", kelvarin::bench::measure_minimizers},
    section{"graph", kelvarin::bench::measure_graph},
    section{"table", kelvarin::bench::measure_table},
    section{"batch", kelvarin::bench::measure_batch},
    section{"jobs", kelvarin::bench::measure_jobs},
};

bool is_section(std::string_view name)
{
    return std::ranges::find(sections, name, &section::name) != sections.end();
}

} // namespace

int main(int argc, char** argv)
{
    const std::span<char*> wanted(argv + 1, static_cast<std::size_t>(std::max(argc - 1, 0)));
    if (!std::ranges::all_of(wanted, is_section)) {
        std::fputs("Sections:", stderr);
        for (const section& each : sections)
            std::fprintf(stderr, " %s", each.name.data());
        std::fputs("\n", stderr);
        return 2;
    }
    kelvarin::bench::print_head();
    int status = 0;
    for (const section& each : sections) {
        if (!wanted.empty() && std::ranges::find(wanted, each.name) == wanted.end()) continue;
        kelvarin::bench::print_section(std::string(each.name));
        try {
            each.measure();
        } catch (const std::exception& failure) {
            kelvarin::bench::print_note(std::string("failed: ") + failure.what());
            status = 1;
        }
    }
    return status;
}

// SPDX-License-Identifier: MIT
// This file alone is compiled for processors with registers of four doubles (see CMakeLists.txt); nothing
// in it may run before load() has asked whether there is one.
#include "expr/program_lanes.h"

#include "expr/program_machine.h"

namespace kelvarin
{

namespace
{

typedef double four_doubles __attribute__((vector_size(32)));

bool processor_has_lanes()
{
#if defined(__x86_64__)
    return __builtin_cpu_supports("avx2") != 0;
#else
    return true;
#endif
}

class four_lane_program final : public lane_program
{
public:
    explicit four_lane_program(const program_code& code) : program_(code), registers_(code.register_count)
    {
        for (const auto& [number, constant] : code.constants)
            registers_[number] = four_doubles{constant, constant, constant, constant};
    }

    double* registers() override { return reinterpret_cast<double*>(registers_.data()); }

    bool run() override
    {
        const four_doubles check = program_.run(registers_.data());
        return check[0] + check[1] + check[2] + check[3] == 0.0;
    }

private:
    machine::loaded_program<four_doubles> program_;
    std::vector<four_doubles> registers_;
};

} // namespace

std::unique_ptr<lane_program> lane_program::load(const program_code& code)
{
    if (!processor_has_lanes()) return nullptr;
    return std::make_unique<four_lane_program>(code);
}

} // namespace kelvarin

// SPDX-License-Identifier: MIT
#include "parsed_right_sides.h"
#include "values.h"

#include <cvode/cvode.h>
#include <nvector/nvector_serial.h>
#include <sunlinsol/sunlinsol_dense.h>
#include <sunmatrix/sunmatrix_dense.h>

namespace kelvarin::bench
{

namespace
{

constexpr long most_steps = 1'000'000;

int right_sides(realtype x, N_Vector y, N_Vector dydx, void* parameters)
{
    auto& sides = *static_cast<parsed_right_sides*>(parameters);
    sides.evaluate(x, {N_VGetArrayPointer(y), sides.size()}, {N_VGetArrayPointer(dydx), sides.size()});
    return 0;
}

/// One integration with all that it allocates.
class bdf_run
{
public:
    bdf_run(parsed_right_sides& sides, const std::vector<double>& start, double relative, double absolute)
    {
        const auto n = static_cast<sunindextype>(start.size());
        SUNContext_Create(nullptr, &context_);
        y_ = N_VNew_Serial(n, context_);
        std::ranges::copy(start, N_VGetArrayPointer(y_));
        memory_ = CVodeCreate(CV_BDF, context_);
        matrix_ = SUNDenseMatrix(n, n, context_);
        solver_ = SUNLinSol_Dense(y_, matrix_, context_);
        CVodeInit(memory_, right_sides, 0.0, y_);
        CVodeSetErrFile(memory_, nullptr);
        CVodeSetUserData(memory_, &sides);
        CVodeSStolerances(memory_, relative, absolute);
        CVodeSetLinearSolver(memory_, solver_, matrix_);
        CVodeSetMaxNumSteps(memory_, most_steps);
    }
    ~bdf_run()
    {
        CVodeFree(&memory_);
        SUNLinSolFree(solver_);
        SUNMatDestroy(matrix_);
        N_VDestroy(y_);
        SUNContext_Free(&context_);
    }
    bdf_run(const bdf_run&) = delete;
    bdf_run& operator=(const bdf_run&) = delete;

    /// Whether the end was reached; the state there in `end`.
    bool reach(double x2, std::vector<double>& end)
    {
        CVodeSetStopTime(memory_, x2);
        double x = 0.0;
        const int status = CVode(memory_, x2, y_, &x, CV_NORMAL);
        std::copy_n(N_VGetArrayPointer(y_), end.size(), end.begin());
        return status >= 0;
    }

private:
    SUNContext context_ = nullptr;
    N_Vector y_ = nullptr;
    void* memory_ = nullptr;
    SUNMatrix matrix_ = nullptr;
    SUNLinearSolver solver_ = nullptr;
};

} // namespace

integration parsed_bdf(const initial_values& problem, double relative, double absolute)
{
    integration made;
    made.values = std::make_shared<std::vector<double>>(problem.start.size());
    made.evaluations = std::make_shared<std::int64_t>(0);
    made.run = [=, sides = std::make_shared<parsed_right_sides>(problem), start = problem.start, x2 = problem.x2,
                values = made.values, evaluations = made.evaluations] {
        sides->evaluations = 0;
        const bool reached = bdf_run(*sides, start, relative, absolute).reach(x2, *values);
        *evaluations = sides->evaluations;
        require(reached, "CVODE gave up");
    };
    return made;
}

} // namespace kelvarin::bench

// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/linear/lu.h"
#include "numeric/ode/ode_stepper.h"
#include "numeric/ode/watched_system.h"

#include <span>
#include <vector>

namespace kelvarin
{

/// A step of a Rosenbrock method of order 4 with an estimate of order 3, for stiff systems; the Jacobian is
/// made once for each step and serves all its tries. Fails with "STIFF: stepsize not significant in stiff"
/// where x does not feel the step any more, with "STIFF: exceeded MAXTRY in stiff" after 420 tries.
/// [KapsRentrop1979], parameters of [Shampine1982], [Press1992] sec. 16.6
class stiff final : public ode_stepper
{
public:
    explicit stiff(watched_system& system);

    void advance(ode_position& at, double htry, double eps, std::span<const double> yscal, ode_step& step) override;

private:
    void decompose(double h);
    void make_stages(double x, std::span<const double> dydx, double h, std::span<double> y);
    void make_result(std::span<double> y);
    double error_norm(double eps, std::span<const double> yscal) const;

    watched_system& system_;
    ode_jacobian jacobian_;
    lu_factors lu_;
    std::vector<double> start_;
    std::vector<double> slopes_;
    std::vector<double> g1_;
    std::vector<double> g2_;
    std::vector<double> g3_;
    std::vector<double> g4_;
    std::vector<double> err_;
};

} // namespace kelvarin

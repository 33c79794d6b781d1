// SPDX-License-Identifier: MIT
#pragma once

#include "formulas.h"

#include <muParser.h>

#include <deque>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

namespace kelvarin::bench
{

/// A nonlinear system as a small program with public libraries would hold it: one muParser object per
/// equation, variables bound to places in memory.
class parsed_system
{
public:
    /// `explicit_equations` stand in the order of their evaluation.
    parsed_system(std::span<const std::string> unknowns, std::span<const named_text> explicit_equations,
                  std::span<const std::string> residuals);
    parsed_system(const parsed_system&) = delete;
    parsed_system& operator=(const parsed_system&) = delete;

    std::size_t size() const { return unknowns_.size(); }
    double& unknown(std::size_t i) { return *unknowns_[i]; }
    double residual(std::size_t i) { return residuals_[i].Eval(); }
    double explicit_value(std::size_t i) const { return *explicit_places_[i]; }
    void evaluate(std::span<const double> x, std::span<double> f);

private:
    double* place_of(const std::string& name);
    mu::Parser& add(std::deque<mu::Parser>& parsers, const std::string& text);
    static double* make_variable(const char* name, void* system);

    std::unordered_map<std::string, double*> places_;
    std::deque<double> values_;
    std::vector<double*> unknowns_;
    std::vector<double*> explicit_places_;
    std::deque<mu::Parser> explicit_equations_;
    std::deque<mu::Parser> residuals_;
};

struct hybrids_result
{
    bool converged = false;
    int iterations = 0;
};

/// gsl_multiroot_fsolver_hybrids from `x` until each residual is below `tolerance`; the solution in `x`.
hybrids_result solve_by_hybrids(parsed_system& system, std::span<double> x, double tolerance);

} // namespace kelvarin::bench

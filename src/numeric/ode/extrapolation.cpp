// SPDX-License-Identifier: MIT
#include "numeric/ode/extrapolation.h"

#include "numeric/arithmetic_check.h"
#include "numeric/work_array.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <cstddef>

namespace kelvarin
{

namespace
{

// The constants of [Press1992] sec. 16.4.

/// SAFE1: the part of the tolerance that is aimed at; SAFE2: the part of a step that the estimate allows.
constexpr double aimed_part = 0.25;
constexpr double reduction_safety = 0.7;
/// REDMAX and REDMIN: a step is shortened by no more and no less.
constexpr double strongest_reduction = 1e-5;
constexpr double weakest_reduction = 0.7;
/// SCALMX: a step grows by 1 over this at most.
constexpr double strongest_growth = 0.1;
/// TINY: an error of 0 would have no logarithm.
constexpr double smallest_error = 1e-30;
/// More work than any column costs.
constexpr double endless_work = 1e35;
/// No value that a step would begin or end with.
constexpr double nowhere = -1e29;

std::size_t index(int i)
{
    return static_cast<std::size_t>(i);
}

} // namespace

pzextr::pzextr(int columns, int size) : xpts_(work_array(columns)), d_(columns, size, unset), c_(work_array(size)) {}

void pzextr::operator()(int iest, double xest, std::span<const double> yest, std::span<double> yz, std::span<double> dy)
{
    xpts_[index(iest)] = xest;
    for (const std::span<double> copy : {yz, dy, std::span(c_)})
        std::ranges::copy(yest, copy.begin());
    for (int k = 0; k < iest; ++k) {
        const double other = xpts_[index(iest - k - 1)];
        const double reciprocal = 1.0 / (other - xest);
        const double f1 = xest * reciprocal;
        const double f2 = other * reciprocal;
        const std::span<double> diagonal = d_.row(k);
        for (std::size_t j = 0; j < yest.size(); ++j) {
            const double difference = c_[j] - diagonal[j];
            diagonal[j] = dy[j];
            dy[j] = f1 * difference;
            c_[j] = f2 * difference;
            yz[j] += dy[j];
        }
    }
    std::ranges::copy(dy, d_.row(iest).begin());
}

extrapolation_stepper::extrapolation_stepper(int size, std::span<const int> sequence, int start_work,
                                             std::string_view underflow)
    : sequence_(sequence), columns_(static_cast<int>(sequence.size()) - 1), start_work_(start_work),
      underflow_(underflow), xnew_(nowhere), start_y_(work_array(size)), estimate_(work_array(size)),
      correction_(work_array(size)), extrapolate_(columns_, size)
{
    assert(columns_ <= most_columns);
}

void extrapolation_stepper::advance(ode_position& at, double htry, double eps, std::span<const double> yscal,
                                    ode_step& step)
{
    if (eps != tables_eps_) {
        make_tables(eps);
        step.hnext = xnew_ = nowhere;
    }
    std::ranges::copy(at.y, start_y_.begin());
    start_step(at);
    h_ = htry;
    if (h_ != step.hnext || at.x != xnew_) {
        first_ = true;
        kopt_ = kmax_;
    }
    bool reduced = false;
    std::optional<int> converged;
    while (!(converged = make_columns(at, eps, yscal)))
        reduced = true;
    at.x = xnew_;
    first_ = false;
    step.hdid = h_;
    step.hnext = next_step(*converged, reduced);
}

/// [Press1992] eq. 16.4.12 and what it says of the choice of the last column.
void extrapolation_stepper::make_tables(double eps)
{
    tables_eps_ = eps;
    sum_work(1.0);
    for (int q = 1; q < columns_; ++q)
        for (int k = 0; k < q; ++k) {
            const double exponent = (work_[index(k + 1)] - work_[index(q + 1)]) /
                                    ((work_[index(q + 1)] - work_[0] + 1.0) * (2.0 * (k + 1) + 1.0));
            alf_[index(k)][index(q)] = finite(std::pow(aimed_part * eps, exponent));
        }
    sum_work(1.0 + start_work_);
    kopt_ = 1;
    while (kopt_ < columns_ - 1 &&
           work_[index(kopt_ + 1)] <= work_[index(kopt_)] * alf_[index(kopt_ - 1)][index(kopt_)])
        ++kopt_;
    kmax_ = kopt_;
}

void extrapolation_stepper::sum_work(double at_start)
{
    double work = at_start;
    for (std::size_t k = 0; k < sequence_.size(); ++k)
        work_[k] = work += sequence_[k];
}

/// The column in which the step has converged, or nothing: then h is the shorter step to be tried next.
std::optional<int> extrapolation_stepper::make_columns(const ode_position& at, double eps,
                                                       std::span<const double> yscal)
{
    for (int k = 0; k <= kmax_; ++k) {
        xnew_ = at.x + h_;
        if (xnew_ == at.x) nrerror(underflow_);
        const int substeps = sequence_[index(k)];
        base_rule(at.x, start_y_, at.dydx, h_, substeps, estimate_);
        require_finite(estimate_);
        const double substep = h_ / substeps;
        extrapolate_(k, substep * substep, estimate_, at.y, correction_);
        if (k == 0) continue;

        const double error = largest_error(eps, yscal);
        err_[index(k - 1)] = std::pow(error / aimed_part, 1.0 / (2 * k + 1));
        if (k < kopt_ - 1 && !first_) continue;
        if (error < 1.0) return k;
        if (const std::optional<double> red = reduction(k)) {
            h_ *= std::clamp(*red, strongest_reduction, weakest_reduction);
            return std::nullopt;
        }
    }
    // The last column always finds the step converged or too long.
    nrerror(underflow_);
}

double extrapolation_stepper::largest_error(double eps, std::span<const double> yscal) const
{
    double largest = smallest_error;
    for (std::size_t i = 0; i < yscal.size(); ++i)
        largest = std::max(largest, finite(std::fabs(correction_[i] / yscal[i])));
    return finite(largest / eps);
}

/// The factor by which a step has to be shorter that has not converged in this column, if it is already
/// foreseen that it won't in time.
std::optional<double> extrapolation_stepper::reduction(int column) const
{
    const double err = err_[index(column - 1)];
    const auto& alf = alf_[index(column - 1)];
    if (column == kmax_ || column == kopt_ + 1) return reduction_safety / err;
    if (column == kopt_ && alf[index(kopt_)] < err) return 1.0 / err;
    if (kopt_ == kmax_ && alf[index(kmax_ - 1)] < err) return alf[index(kmax_ - 1)] * reduction_safety / err;
    if (alf[index(kopt_)] < err) return alf[index(kopt_ - 1)] / err;
    return std::nullopt;
}

/// Chooses the column of least work per unit of x for the next step, and gives its length.
double extrapolation_stepper::next_step(int column, bool reduced)
{
    double least_work = endless_work;
    double scale = 1.0;
    for (int k = 0; k < column; ++k) {
        const double factor = std::max(err_[index(k)], strongest_growth);
        const double work = factor * work_[index(k + 1)];
        if (!(work < least_work)) continue;
        scale = factor;
        least_work = work;
        kopt_ = k + 1;
    }
    if (kopt_ >= column && kopt_ != kmax_ && !reduced) {
        const double factor = std::max(scale / alf_[index(kopt_ - 1)][index(kopt_)], strongest_growth);
        if (work_[index(kopt_ + 1)] * factor <= least_work) {
            ++kopt_;
            return h_ / factor;
        }
    }
    return h_ / scale;
}

} // namespace kelvarin

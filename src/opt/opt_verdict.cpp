// SPDX-License-Identifier: MIT
#include "opt/opt_verdict.h"

#include "numeric/linear/matrix.h"
#include "numeric/linear/symmetric_eigen.h"
#include "numeric/vector_sums.h"
#include "opt/opt_system.h"
#include "platform/runtime_failure.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace kelvarin
{

namespace
{

/// The step, as a part of each variable's scale: near the fourth root of the rounding unit, as second differences want
/// it.
constexpr double step = 1e-4;
/// A stationary point so near, in the same measure, is where the run ended.
constexpr double near = 1e-4;

/// First and second differences at one step, in variables divided by their scales.
struct differences
{
    std::vector<double> gradient;
    matrix hessian;
};

/// Thrown if the target can't be evaluated beside the point.
struct no_value
{
};

/// The target around a point.
class surroundings
{
public:
    surroundings(opt_system& system, std::vector<double> x) : system_(system), x_(std::move(x)), moved_(x_)
    {
        for (const double value : x_)
            scales_.push_back(std::max(1.0, std::fabs(value)));
        f_ = value_of_moved();
    }

    differences differences_at(double h)
    {
        const std::size_t n = x_.size();
        differences found = {std::vector<double>(n), matrix(static_cast<int>(n), static_cast<int>(n))};
        for (std::size_t i = 0; i < n; ++i) {
            const double above = value(i, h);
            const double below = value(i, -h);
            found.gradient[i] = (above - below) / (2.0 * h);
            found.hessian(static_cast<int>(i), static_cast<int>(i)) = (above - 2.0 * f_ + below) / (h * h);
        }
        for (std::size_t i = 0; i < n; ++i)
            for (std::size_t j = 0; j < i; ++j)
                found.hessian(static_cast<int>(i), static_cast<int>(j)) =
                    found.hessian(static_cast<int>(j), static_cast<int>(i)) = mixed(i, j, h);
        return found;
    }

    double scale(std::size_t i) const { return scales_[i]; }
    std::size_t size() const { return x_.size(); }
    /// What rounding may do to a value.
    double noise() const { return 8.0 * std::numeric_limits<double>::epsilon() * largest_; }

private:
    double value_of_moved()
    {
        const std::optional<double> f = system_.try_value(moved_);
        if (!f) throw no_value();
        largest_ = std::max(largest_, std::fabs(*f));
        return *f;
    }

    double value(std::size_t i, double h)
    {
        moved_[i] = x_[i] + h * scales_[i];
        const double f = value_of_moved();
        moved_[i] = x_[i];
        return f;
    }

    double mixed(std::size_t i, std::size_t j, double h)
    {
        const auto at = [&](double hj) {
            moved_[j] = x_[j] + hj * scales_[j];
            const double difference = value(i, h) - value(i, -h);
            moved_[j] = x_[j];
            return difference;
        };
        return (at(h) - at(-h)) / (4.0 * h * h);
    }

    opt_system& system_;
    std::vector<double> x_, moved_, scales_;
    double f_ = 0.0;
    double largest_ = 0.0;
};

/// How far the differences at two steps are apart: as much may they be wrong.
double distance(const matrix& a, const matrix& b)
{
    double sum = 0.0;
    for (int i = 0; i < a.rows(); ++i)
        for (int j = 0; j < a.columns(); ++j)
            sum += (a(i, j) - b(i, j)) * (a(i, j) - b(i, j));
    return std::sqrt(sum);
}

double distance(std::span<const double> a, std::span<const double> b)
{
    double sum = 0.0;
    for (std::size_t i = 0; i < a.size(); ++i)
        sum += (a[i] - b[i]) * (a[i] - b[i]);
    return std::sqrt(sum);
}

/// The curvature along the eigenvector in a column of `vectors`.
double along(const matrix& hessian, const matrix& vectors, std::size_t column)
{
    double sum = 0.0;
    for (int i = 0; i < hessian.rows(); ++i)
        for (int j = 0; j < hessian.columns(); ++j)
            sum += vectors(i, static_cast<int>(column)) * hessian(i, j) * vectors(j, static_cast<int>(column));
    return sum;
}

/// Second differences at a kink: they have no limit.
bool grows_with_smaller_steps(double found, double coarse, double noise)
{
    return std::fabs(found) > 10.0 * noise / (step * step) && std::fabs(coarse) < 0.8 * std::fabs(found);
}

/// The kind of a stationary point, or not_converged, by the gradient along each eigenvector. An eigenvalue within its
/// error says nothing; then the gradient must vanish within its own.
end_point kind_of_point(const differences& found, const differences& coarse, double noise)
{
    const double eigenvalue_error = 3.0 * distance(found.hessian, coarse.hessian) + noise / (step * step);
    const double slope_error = 2.0 * distance(found.gradient, coarse.gradient) + noise / step;
    const eigen_pairs eigen = symmetric_eigen(found.hessian);
    int up = 0;
    int down = 0;
    int level = 0;
    for (std::size_t k = 0; k < eigen.values.size(); ++k) {
        double slope = 0.0;
        for (std::size_t i = 0; i < found.gradient.size(); ++i)
            slope += found.gradient[i] * eigen.vectors(static_cast<int>(i), static_cast<int>(k));
        const double curvature = eigen.values[k];
        const bool is_known = std::fabs(curvature) > eigenvalue_error;
        const double allowed = is_known ? std::max(near * std::fabs(curvature), slope_error) : slope_error;
        if (std::fabs(slope) > allowed) return end_point::not_converged;
        if (!is_known && grows_with_smaller_steps(curvature, along(coarse.hessian, eigen.vectors, k), noise))
            return end_point::not_converged;
        ++(!is_known ? level : curvature > 0.0 ? up : down);
    }
    if (up > 0 && down > 0) return end_point::saddle;
    if (level > 0) return end_point::flat;
    return up > 0 ? end_point::minimum : end_point::maximum;
}

/// Whether the target goes on to fall at least in proportion along the way from `start` to `x`, far beyond it.
bool falls_without_end(opt_system& system, std::span<const double> start, std::span<const double> x)
{
    constexpr int least_doublings = 20;
    constexpr int most_doublings = 200;
    std::vector<double> way(x.size());
    std::vector<double> at(x.begin(), x.end());
    for (std::size_t i = 0; i < x.size(); ++i)
        way[i] = x[i] - start[i];
    const std::optional<double> first = system.try_value(start);
    std::optional<double> last = system.try_value(x);
    if (!first || !last || !(*last < *first)) return false;
    double fall = *first - *last;
    for (int doublings = 0; doublings < most_doublings; ++doublings) {
        for (std::size_t i = 0; i < x.size(); ++i) {
            at[i] = start[i] + std::ldexp(way[i], doublings + 1);
            if (!std::isfinite(at[i])) return doublings >= least_doublings;
        }
        const std::optional<double> next = system.try_value(at);
        if (!next) return doublings >= least_doublings;
        // From one point to the next the way doubles; the fall must as well, but for rounding.
        const double further = *last - *next;
        if (!(further >= 0.999 * fall)) return false;
        fall += further;
        last = next;
    }
    return true;
}

/// Differences at two steps without the error that grows with the step's square.
double extrapolated(double found, double coarse)
{
    return (4.0 * found - coarse) / 3.0;
}

opt_verdict judge(opt_system& system, const opt_outcome& outcome, const std::vector<double>& x)
{
    opt_verdict verdict;
    try {
        surroundings around(system, x);
        differences found = around.differences_at(step);
        const differences coarse = around.differences_at(2.0 * step);
        verdict.point = kind_of_point(found, coarse, around.noise());
        for (std::size_t i = 0; i < around.size(); ++i) {
            found.gradient[i] = extrapolated(found.gradient[i], coarse.gradient[i]) / around.scale(i);
            for (std::size_t j = 0; j < around.size(); ++j) {
                const auto row = static_cast<int>(i);
                const auto column = static_cast<int>(j);
                found.hessian(row, column) = extrapolated(found.hessian(row, column), coarse.hessian(row, column)) /
                                             (around.scale(i) * around.scale(j));
            }
        }
        const std::vector<double> values = symmetric_eigen(found.hessian).values;
        const auto [least, greatest] = std::ranges::minmax(values);
        verdict.gradient = norm(found.gradient);
        verdict.least_eigenvalue = least;
        verdict.greatest_eigenvalue = greatest;
        verdict.has_numbers = std::isfinite(verdict.gradient);
    } catch (const no_value&) {
        verdict.point = end_point::not_converged;
    } catch (const runtime_failure&) {
        // Differences that overflow.
        verdict.point = end_point::not_converged;
    }
    if (verdict.point == end_point::not_converged && falls_without_end(system, outcome.start, x))
        verdict.point = end_point::unbounded;
    return verdict;
}

} // namespace

std::string_view end_point_word(end_point point)
{
    switch (point) {
    case end_point::minimum:
        return "minimum";
    case end_point::maximum:
        return "maximum";
    case end_point::flat:
        return "flat";
    case end_point::saddle:
        return "saddle";
    case end_point::unbounded:
        return "unbounded";
    case end_point::not_converged:
        break;
    }
    return "not converged";
}

std::optional<opt_verdict> judge_end_point(const opt_content& content, const opt_outcome& outcome,
                                           run_listener& listener)
{
    if (outcome.points.empty() || outcome.stopped) return std::nullopt;
    opt_system system(content, listener);
    system.opt_sort_explicit();
    if (system.opt_compile()) return std::nullopt;
    return judge(system, outcome, outcome.has_report ? outcome.x : outcome.points.back().x);
}

} // namespace kelvarin

// SPDX-License-Identifier: MIT
#include "numeric/linear/qr.h"

#include "numeric/arithmetic_check.h"
#include "numeric/work_array.h"

#include <algorithm>
#include <cassert>
#include <cmath>
#include <vector>

namespace kelvarin
{

namespace
{

std::size_t index(int i)
{
    return static_cast<std::size_t>(i);
}

/// The largest magnitude in column k from the diagonal down.
double largest_below(const matrix& a, int k)
{
    double largest = 0.0;
    for (int i = k; i < a.rows(); ++i)
        largest = std::max(largest, std::fabs(a(i, k)));
    return largest;
}

/// Turns column k from the diagonal down, divided by its largest magnitude `scale` against overflow, into
/// the vector u of a reflection, which takes the column to (-sigma, 0, ...). Returns sigma; its sign keeps
/// the sum on the diagonal from cancelling.
double make_reflection(matrix& a, int k, double scale)
{
    double sum = 0.0;
    for (int i = k; i < a.rows(); ++i) {
        a(i, k) /= scale;
        sum += a(i, k) * a(i, k);
    }
    const double sigma = std::copysign(std::sqrt(sum), a(k, k));
    a(k, k) += sigma;
    return sigma;
}

/// Applies the reflection that column k of a holds to the columns behind it. `products` is u^T times them.
void reflect_columns_behind(matrix& a, int k, double c, std::span<double> products)
{
    const int n = a.rows();
    std::ranges::fill(products, 0.0);
    for (int i = k; i < n; ++i) {
        const std::span<const double> row = a.row(i);
        for (int j = k + 1; j < n; ++j)
            products[index(j)] += row[index(k)] * row[index(j)];
    }
    for (double& product : products)
        product /= c;
    for (int i = k; i < n; ++i) {
        const std::span<double> row = a.row(i);
        for (int j = k + 1; j < n; ++j)
            row[index(j)] -= products[index(j)] * row[index(k)];
    }
}

struct plane_rotation
{
    double c = 1.0;
    double s = 0.0;
};

/// Takes (a, -b) to (length, 0). The larger of the two is divided by, so that no square overflows.
plane_rotation rotation_of(double a, double b)
{
    if (a == 0.0) return {0.0, b >= 0.0 ? 1.0 : -1.0};
    if (std::fabs(a) > std::fabs(b)) {
        const double ratio = b / a;
        const double c = std::copysign(1.0 / std::sqrt(1.0 + ratio * ratio), a);
        return {c, ratio * c};
    }
    const double ratio = a / b;
    const double s = std::copysign(1.0 / std::sqrt(1.0 + ratio * ratio), b);
    return {ratio * s, s};
}

void rotate_rows(std::span<double> upper, std::span<double> lower, plane_rotation rotation)
{
    for (std::size_t j = 0; j < upper.size(); ++j) {
        const double y = upper[j];
        const double w = lower[j];
        upper[j] = rotation.c * y - rotation.s * w;
        lower[j] = rotation.s * y + rotation.c * w;
    }
}

/// The last element that is not 0, or 0 when there is none.
int last_nonzero(std::span<const double> u)
{
    int last = static_cast<int>(u.size()) - 1;
    while (last > 0 && u[index(last)] == 0.0)
        --last;
    return last;
}

} // namespace

bool qrdcmp(matrix& a, std::span<double> c, std::span<double> d)
{
    const int n = a.rows();
    assert(a.columns() == n && static_cast<int>(c.size()) == n && static_cast<int>(d.size()) == n);
    std::vector<double> products(index(n));
    for (int k = 0; k < n - 1; ++k) {
        const double scale = largest_below(a, k);
        c[index(k)] = 0.0;
        d[index(k)] = 0.0;
        if (scale == 0.0) continue;
        const double sigma = make_reflection(a, k, scale);
        c[index(k)] = sigma * a(k, k);
        d[index(k)] = finite(-scale * sigma);
        reflect_columns_behind(a, k, c[index(k)], products);
    }
    if (n > 0) {
        c[index(n - 1)] = 0.0;
        d[index(n - 1)] = a(n - 1, n - 1);
    }
    require_finite(a.values());
    return std::ranges::find(d, 0.0) != d.end();
}

void rsolv(const matrix& a, std::span<const double> d, std::span<double> b)
{
    for (int i = a.rows() - 1; i >= 0; --i) {
        const std::span<const double> row = a.row(i);
        double sum = 0.0;
        for (std::size_t j = index(i) + 1; j < b.size(); ++j)
            sum += row[j] * b[j];
        b[index(i)] = quotient(b[index(i)] - sum, d[index(i)]);
    }
}

void qrupdt(matrix& r, matrix& qt, std::span<double> u, std::span<const double> v)
{
    // u is turned to a multiple of the first unit vector from below; R becomes a Hessenberg matrix, to
    // whose first row alone the update is added, and is turned back to a triangle from above.
    const int last = last_nonzero(u);
    for (int i = last - 1; i >= 0; --i) {
        rotate(r, qt, i, u[index(i)], -u[index(i) + 1]);
        u[index(i)] = finite(std::hypot(u[index(i)], u[index(i) + 1]));
    }
    const std::span<double> first = r.row(0);
    for (std::size_t j = 0; j < v.size(); ++j)
        first[j] += u[0] * v[j];
    for (int i = 0; i < last; ++i)
        rotate(r, qt, i, r(i, i), -r(i + 1, i));
    require_finite(r.values());
}

void rotate(matrix& r, matrix& qt, int i, double a, double b)
{
    const plane_rotation rotation = rotation_of(a, b);
    rotate_rows(r.row(i).subspan(index(i)), r.row(i + 1).subspan(index(i)), rotation);
    rotate_rows(qt.row(i), qt.row(i + 1), rotation);
}

} // namespace kelvarin

// SPDX-License-Identifier: MIT
#include "numeric/linear/matrix_products.h"

#include "numeric/linear/gauss_jordan.h"
#include "platform/runtime_failure.h"

#include <cassert>
#include <cstddef>
#include <vector>

namespace kelvarin
{

matrix matrix_multiply(const matrix& a, const matrix& b)
{
    if (a.columns() != b.rows()) nrerror("impossible to multiple arrays - inconsistent dimentions !");
    matrix product(a.rows(), b.columns());
    for (int i = 0; i < a.rows(); ++i) {
        const std::span<double> row = product.row(i);
        // By rows of b, so that memory is walked through in order; each element still gets its terms in the order of k.
        for (int k = 0; k < a.columns(); ++k) {
            const double factor = a(i, k);
            const std::span<const double> terms = b.row(k);
            for (std::size_t j = 0; j < row.size(); ++j)
                row[j] += factor * terms[j];
        }
    }
    return product;
}

matrix matrix_transpose(const matrix& a)
{
    matrix transposed(a.columns(), a.rows());
    for (int i = 0; i < a.rows(); ++i)
        for (int j = 0; j < a.columns(); ++j)
            transposed(j, i) = a(i, j);
    return transposed;
}

matrix matrix_inverse(const matrix& a)
{
    assert(a.rows() == a.columns());
    matrix inverse = a;
    std::vector<double> no_right_side(static_cast<std::size_t>(a.rows()), 0.0);
    if (gauss_jordan_inverse(inverse, no_right_side) == elimination_status::singular)
        nrerror("Singular matrix when evaluating inverse matrix");
    return inverse;
}

} // namespace kelvarin

// SPDX-License-Identifier: MIT
#pragma once

#include "numeric/linear/matrix.h"
#include "numeric/linear/sparsity.h"

#include <memory>
#include <span>
#include <vector>

namespace kelvarin
{

enum class elimination_status
{
    done,
    singular
};

/// Gauss-Jordan elimination with full pivoting: `a` (n x n) becomes its inverse, `b` (n) the solution of
/// a x = b. At each step the largest absolute element among rows and columns not yet used is the pivot,
/// the last of equals in row-major order. A pivot of exactly 0 ends with `singular`, both arguments left
/// as they stand by then. Throws runtime_failure 6 when a pivot, an element of the inverse or of the
/// solution is not finite. [Press1992] sec. 2.1
elimination_status gauss_jordan_inverse(matrix& a, std::span<double> b);

/// The memory of gauss_jordan_inverse, for callers that keep it from one matrix to the next.
struct inversion_workspace
{
    struct place
    {
        int row = -1;
        int column = -1;
    };
    std::vector<bool> used;
    std::vector<place> pivots;
};
/// The same with memory that was used before.
elimination_status gauss_jordan_inverse(matrix& a, std::span<double> b, inversion_workspace& memory);

class small_elimination;

/// The memory of gauss_jordan_solve, for callers that keep it from one solution to the next.
class elimination_workspace
{
public:
    elimination_workspace();
    ~elimination_workspace();

private:
    friend elimination_status gauss_jordan_solve(const matrix& a, std::span<double> b, elimination_workspace& memory,
                                                 const sparsity_pattern* pattern);

    class lean_elimination;
    std::unique_ptr<lean_elimination> kept_;
    std::unique_ptr<small_elimination> small_;
};

/// The solution alone, with the pivots and the bits of gauss_jordan_inverse at a fraction of its cost: no
/// inverse is formed, only columns not yet used are touched, zero multipliers are skipped.
/// When `singular`, `b` is left as gauss_jordan_inverse leaves it. Throws runtime_failure 6 when a pivot or
/// an element of the solution is not finite. [Press1992] sec. 2.1
elimination_status gauss_jordan_solve(const matrix& a, std::span<double> b);
/// The same with memory that was used before; `a` is zero outside of `pattern` if one is given.
elimination_status gauss_jordan_solve(const matrix& a, std::span<double> b, elimination_workspace& memory,
                                      const sparsity_pattern* pattern = nullptr);

} // namespace kelvarin

// SPDX-License-Identifier: MIT
#include "numeric/ode/output_grid.h"

#include "numeric/arithmetic_check.h"

#include <string>

namespace kelvarin
{

void check_range(const ode_range& range, std::string_view method)
{
    finite(range.x1);
    finite(range.x2);
    if (!(range.x2 > range.x1))
        nrerror(std::string(method) + ": The final value must be greater than the initial value.");
    finite(range.x2 - range.x1);
    check_positive(range.spacing, "spacing of the points", method);
}

void check_positive(double option, std::string_view description, std::string_view method)
{
    if (!(finite(option) > 0.0))
        nrerror(std::string(method) + ": The " + std::string(description) + " must be greater than 0.");
}

} // namespace kelvarin

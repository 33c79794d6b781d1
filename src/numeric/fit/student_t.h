// SPDX-License-Identifier: MIT
#pragma once

namespace kelvarin
{

/// The two-sided 95 % value of Student's t that the widths of all fits use: a fixed table, which runs straight from
/// 2.042 at 30 degrees of freedom to 1.96 at 50. 0 for no degree of freedom, 1.96 above 49 and below 0.
double Td(int df);

} // namespace kelvarin

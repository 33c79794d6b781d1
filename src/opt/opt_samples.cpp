// SPDX-License-Identifier: MIT
#include "opt/opt_samples.h"

#include <initializer_list>
#include <string_view>

namespace kelvarin
{

namespace
{

opt_content sample_of(std::string_view title, std::string_view target, std::initializer_list<std::string_view> rows)
{
    opt_content content;
    content.title = title;
    content.target = target;
    for (const std::string_view row : rows)
        content.rows.push_back({std::string(row), "", ""});
    return content;
}

} // namespace

std::array<opt_content, opt_sample_count> opt_samples()
{
    return {sample_of("Sample problem 1", "(x-1.124)^2 + (y-2.033)^2 + (z+3.40192)^2 - h",
                      {"h = 3012.5", "x(0) = 2", "y(0) = 32", "z(0) = -12"}),
            sample_of("Sample problem 2", " 2*x + y - z",
                      {"x = t^2 - 14*t + 12", "y = t + 1", "z = 12 + t^3 + 13.4*t ", "t(0) = 3"}),
            sample_of("Sample problem 3", "(x-1)^2 - (y-2)^2 + (z+3.4)^2 - h",
                      {"h = 3", "x = 2 + t/(t+1)", "y = t*(t^1.2 -23)", "z = (t+t^2)/3", "t(0) = 12"})};
}

} // namespace kelvarin

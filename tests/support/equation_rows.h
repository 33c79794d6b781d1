// SPDX-License-Identifier: MIT
#pragma once

#include "nle/equations/equation_rows.h"

#include <string>

/// Rows of equation problems, written short.
namespace kelvarin::test
{

/// "f(x) = ..." is implicit, all else explicit.
inline constexpr row_form f_rows = {"f("};

inline equation_row implicit_row(const std::string& name, const std::string& expression, const std::string& guess = "1")
{
    return {"f(" + name + ") = " + expression, guess, ""};
}

inline equation_row explicit_row(const std::string& name, const std::string& expression)
{
    return {name + " = " + expression, "n.a.", ""};
}

} // namespace kelvarin::test

// SPDX-License-Identifier: MIT
#pragma once

#include "nle/window/frmNLE.h"
#include "support/equation_desk.h"

#include <string>

namespace kelvarin::test
{

/// A nonlinear window, and what a person does in it with the mouse.
struct nle_desk : equation_desk<frmNLE>
{
    nle_desk() : equation_desk({"grdRoots", "stbNLE", {"cmdNewRoot", "frmNleNE"}, {"cmdNewEquation", "frmNleEE"}}) {}

    void bounds_by_mouse(const std::string& lower, const std::string& upper)
    {
        person.type("txtnle_min_ini_guess", lower);
        person.type("txtnle_max_ini_guess", upper);
    }
};

} // namespace kelvarin::test

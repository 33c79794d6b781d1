// SPDX-License-Identifier: MIT
#pragma once

#include "deq/window/frmDEQ.h"
#include "support/equation_desk.h"

#include <string>

namespace kelvarin::test
{

/// A window of differential equations, and what a person does in it with the mouse.
struct deq_desk : equation_desk<frmDEQ>
{
    deq_desk()
        : equation_desk({"grdDiffEq",
                         "stbDEQ",
                         {"cmdNewDiffEq", "frmDeqDE", "txtVar", "txtExpression", "txtComments"},
                         {"cmdNewEquation", "frmDeqEE", "txtEVar", "txtExplicit", "txtComments"}})
    {
    }

    void range_by_mouse(const std::string& name, const std::string& initial, const std::string& final)
    {
        person.type("txtIndVar", name);
        person.type("txtInitVal", initial);
        person.type("txtFinalVal", final);
    }
};

} // namespace kelvarin::test

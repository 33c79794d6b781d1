// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/link_label.h"
#include "opt/window/frmOPT.h"
#include "support/equation_desk.h"

#include <string>

namespace kelvarin::test
{

/// A window of optimization problems, and what a person does in it.
struct opt_desk : equation_desk<frmOPT>
{
    opt_desk() : equation_desk({"grdOPT", "stbOPT", {"cmdNewStart", "frmOptRow"}, {"cmdNewEquation", "frmOptRow"}}) {}

    /// Adds a row through its dialog.
    void add(const char* button, const std::string& variable, const std::string& text, const std::string& comment = {})
    {
        person.click(button);
        const robot dialog(dialog_in_front("frmOptRow"));
        dialog.type("txtVar", variable);
        dialog.type("txtEquation", text);
        dialog.type("txtComment", comment);
        dialog.click("cmdDone");
        decline_next();
        to_front();
    }
    std::string missing() const { return person.find<link_label>("lblMissing").whole_text().toStdString(); }
    void type_target(const std::string& target)
    {
        robot::press(Qt::Key_G, Qt::AltModifier);
        robot::press(Qt::Key_A, Qt::ControlModifier);
        robot::keys(target);
    }
};

} // namespace kelvarin::test

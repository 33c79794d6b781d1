// SPDX-License-Identifier: MIT
#include "help/help_context.h"

#include "help/help_library.h"

#include <algorithm>
#include <array>

namespace kelvarin
{

namespace
{

constexpr std::array<help_place, 45> places{{
    {"frmMDIKelvarin", "", "start"},
    {"start_page", "", "start"},
    {"frmRecovery", "", "reports#unsaved-problems-and-crashes"},
    {"frmNLE", "", "nonlinear"},
    {"frmNLE", "cmbMethod", "methods-nonlinear"},
    {"frmNLE", "grdRoots", "nonlinear#rows"},
    {"frmNLE", "chkGraph", "graphs"},
    {"frmNleNE", "", "nonlinear#rows"},
    {"frmNleNE", "txtGuess", "nonlinear#guesses-and-ranges"},
    {"frmNleEE", "", "nonlinear#rows"},
    {"frmLeftOut", "", "nonlinear#rows"},
    {"frmLEQ", "", "linear"},
    {"frmLEQ", "grdMatrix", "linear#the-grid"},
    {"frmDEQ", "", "differential"},
    {"frmDEQ", "cmbMethod", "methods-differential"},
    {"frmDEQ", "grdDiffEq", "differential#rows"},
    {"frmDEQ", "chkGraph", "graphs"},
    {"frmDeqDE", "", "differential#rows"},
    {"frmDeqEE", "", "differential#rows"},
    {"frmOPT", "", "optimization"},
    {"frmOPT", "cmbMethod", "optimization#the-methods"},
    {"frmOPT", "grdOPT", "optimization#rows"},
    {"frmOPT", "txtTarget", "optimization#the-target"},
    {"frmOptRow", "", "optimization#rows"},
    {"frmTarget", "", "optimization#show-the-target"},
    {"frmRGT", "", "table"},
    {"frmRGT", "grdMain", "table#typing"},
    {"frmRGT", "sstReg", "regression"},
    {"frmRGT", "sstAnalysis", "columns"},
    {"frmRGT", "cmbNLRMethod", "regression#nonlinear"},
    {"frmRGT", "grdNlrGuess", "regression#nonlinear"},
    {"frmRGT", "cmbGraphXVar", "graphs#graphs-of-columns"},
    {"frmRGT", "lstGraphYVars", "graphs#graphs-of-columns"},
    {"frmColTranspose", "", "table#formula-columns"},
    {"frmREGnlr", "", "regression#nonlinear"},
    {"frmGraph", "", "graphs"},
    {"frmSolution", "", "reports"},
    {"frmMsg", "", "reports"},
    {"frmInitials", "", "settings"},
    {"frmCal", "", "tools#the-calculator"},
    {"frmUni", "", "tools#the-units-converter"},
    {"frmConstant", "", "tools#the-constants"},
    {"frmAnt", "", "tools#the-antoine-equation"},
    {"frmAbout", "", "start"},
    {"frmHelp", "", "contents#using-this-help"},
}};

bool speaks_of(const help_place& place, std::span<const std::string> names)
{
    if (place.control.empty()) return place.window == names.front();
    return place.control == names.front() && std::ranges::find(names.subspan(1), place.window) != names.end();
}

} // namespace

std::span<const help_place> help_places()
{
    return places;
}

std::string_view help_target_of(std::span<const std::string> names)
{
    for (; !names.empty(); names = names.subspan(1)) {
        const auto found =
            std::ranges::find_if(places, [&](const help_place& place) { return speaks_of(place, names); });
        if (found != places.end()) return found->target;
    }
    return help_contents_page;
}

} // namespace kelvarin

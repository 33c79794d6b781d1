// SPDX-License-Identifier: MIT
#include "app/problem_kinds.h"

#include "leq/window/frmLEQ.h"
#include "nle/window/frmNLE.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

namespace kelvarin
{

namespace
{

template <class Window> std::unique_ptr<problem_window> make_window(desktop_context& context)
{
    return std::make_unique<Window>(context);
}

constexpr std::array<problem_window_kind, 5> kinds{{
    {.key = "leq",
     .fresh = window_command::new_leq,
     .document = document_kind::leq,
     .window_name = "frmLEQ",
     .caption = QT_TRANSLATE_NOOP("kelvarin", "Linear Equations"),
     .recent_suffix = "\\files_leq",
     .make = make_window<frmLEQ>},
    {.key = "nle",
     .fresh = window_command::new_nle,
     .document = document_kind::nle,
     .window_name = "frmNLE",
     .caption = QT_TRANSLATE_NOOP("kelvarin", "Nonlinear Equations"),
     .recent_suffix = "\\files_nle",
     .make = make_window<frmNLE>},
    {.key = "deq",
     .fresh = window_command::new_deq,
     .document = document_kind::deq,
     .window_name = "frmDEQ",
     .caption = QT_TRANSLATE_NOOP("kelvarin", "Differential Equations"),
     .recent_suffix = "\\files_deq",
     .missing_text = "Differential equations are not yet solved by this version."},
    {.key = "reg",
     .fresh = window_command::new_reg,
     .document = document_kind::reg,
     .window_name = "frmRGT",
     .caption = QT_TRANSLATE_NOOP("kelvarin", "Regression"),
     .recent_suffix = "\\files_rgt",
     .missing_text = "Data tables are not yet solved by this version."},
    {.key = "opt",
     .fresh = window_command::new_opt,
     .document = std::nullopt,
     .window_name = "frmOPT",
     .caption = QT_TRANSLATE_NOOP("kelvarin", "Optimization"),
     .recent_suffix = "\\files_opt",
     .missing_text = "Optimization problems are not yet solved by this version."},
}};

template <class Test> const problem_window_kind* first_kind(Test test)
{
    const auto found = std::ranges::find_if(kinds, test);
    return found == kinds.end() ? nullptr : &*found;
}

} // namespace

std::span<const problem_window_kind> problem_window_kinds()
{
    return kinds;
}

const problem_window_kind* kind_of_command(window_command which)
{
    return first_kind([which](const problem_window_kind& kind) { return kind.fresh == which; });
}

const problem_window_kind* kind_of_document(document_kind document)
{
    return first_kind([document](const problem_window_kind& kind) { return kind.document == document; });
}

const problem_window_kind* kind_of_key(std::string_view key)
{
    return first_kind([key](const problem_window_kind& kind) { return kind.key == key; });
}

} // namespace kelvarin

// SPDX-License-Identifier: MIT
#include "app/problem_kinds.h"

#include "deq/window/frmDEQ.h"
#include "kinds/kinds.h"
#include "leq/window/frmLEQ.h"
#include "nle/window/frmNLE.h"
#include "opt/window/frmOPT.h"
#include "reg/window/frmRGT.h"

#include <algorithm>
#include <array>
#include <vector>

namespace kelvarin
{

namespace
{

/// Makes the windows of the kind with this key.
struct window_factory
{
    std::string_view key;
    window_command fresh{};
    std::unique_ptr<problem_window> (*make)(desktop_context&) = nullptr;
};

template <class Window> std::unique_ptr<problem_window> make_window(desktop_context& context)
{
    return std::make_unique<Window>(context);
}

constexpr std::array<window_factory, 5> factories{{{"leq", window_command::new_leq, make_window<frmLEQ>},
                                                   {"nle", window_command::new_nle, make_window<frmNLE>},
                                                   {"deq", window_command::new_deq, make_window<frmDEQ>},
                                                   {"reg", window_command::new_reg, make_window<frmRGT>},
                                                   {"opt", window_command::new_opt, make_window<frmOPT>}}};

std::vector<problem_window_kind> kinds_with_windows()
{
    std::vector<problem_window_kind> kinds;
    for (const problem_kind* row : problem_kinds()) {
        const auto* factory = std::ranges::find(factories, std::string_view(row->key), &window_factory::key);
        if (factory != factories.end()) kinds.push_back({row, factory->fresh, factory->make});
    }
    return kinds;
}

template <class Test> const problem_window_kind* first_kind(Test test)
{
    const auto kinds = problem_window_kinds();
    const auto found = std::ranges::find_if(kinds, test);
    return found == kinds.end() ? nullptr : &*found;
}

} // namespace

std::span<const problem_window_kind> problem_window_kinds()
{
    static const std::vector<problem_window_kind> kinds = kinds_with_windows();
    return kinds;
}

const problem_window_kind* kind_of_command(window_command which)
{
    return first_kind([which](const problem_window_kind& kind) { return kind.fresh == which; });
}

const problem_window_kind* kind_of_row(const problem_kind* row)
{
    return first_kind([row](const problem_window_kind& kind) { return kind.row == row; });
}

const problem_window_kind* kind_of_key(std::string_view key)
{
    return first_kind([key](const problem_window_kind& kind) { return kind.row->key == key; });
}

} // namespace kelvarin

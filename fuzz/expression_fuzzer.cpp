// SPDX-License-Identifier: MIT
#include "expr/basParse.h"
#include "expr/program.h"
#include "promise.h"

#include <array>
#include <bit>
#include <cmath>
#include <string_view>

namespace
{

using namespace kelvarin;

/// The fast form gives the bits of the walk, or fails where the walk does.
void compare_with_program(const built_tree& built, clsParse& store, double walked, bool failed)
{
    tree_system system;
    for (const std::string& name : store.get_all_vars())
        system.inputs.push_back(store.slot_of(name));
    system.outputs.push_back(&built.tree);
    const auto fast = program::compile(system);
    if (!fast) return;
    std::vector<double> inputs;
    for (const clsParse::slot place : system.inputs)
        inputs.push_back(store.value(place));
    std::array<double, 1> output{};
    const bool ok = fast->run(inputs, output);
    fuzz::promise(ok != failed, "the program fails where the walk does");
    fuzz::promise(failed || std::bit_cast<std::uint64_t>(output[0]) == std::bit_cast<std::uint64_t>(walked),
                  "the program gives the bits of the walk");
}

} // namespace

/// Any text is either refused with a message or compiled; what is compiled gives a finite number or a
/// message, and can be printed.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size)
{
    using fuzz::promise;
    const std::string_view text(reinterpret_cast<const char*>(bytes), size);

    clsParse store;
    store.modify_add_var_value("x", 0.5);
    store.modify_add_var_value("y1", -3.0);
    store.modify_add_var_value("k_2", 1e200);

    const check_result checked = check_expression(text, &store);
    promise(checked.ok == checked.message.empty(), "a refusal has a message, and nothing else has");
    if (checked.place)
        promise(checked.place->offset <= size && checked.place->length <= size - checked.place->offset,
                "the place of a message lies in the text");
    if (!checked.ok) return 0;

    const built_tree built = build_tree(checked.tokens, store);
    promise(!built.fatal || !built.ok(), "a fatal end has a message");
    if (!built.ok()) return 0;
    promise(built.tree.size() >= 1 && built.tree.size() <= expression_tree::capacity, "a tree has 1 to 200 nodes");
    promise(!tree_to_text(built.tree, expression_tree::root, store).empty(), "a tree can be printed");

    evaluation_context context;
    const double value = evaluate_tree(built.tree, expression_tree::root, store, context);
    promise(std::isfinite(value), "values are finite");
    promise(!context.eval_error_flag() || !context.eval_error_message().empty(), "a failure has a message");
    compare_with_program(built, store, value, context.eval_error_flag());
    return 0;
}

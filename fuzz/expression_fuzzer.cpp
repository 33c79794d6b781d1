// SPDX-License-Identifier: MIT
#include "expr/basParse.h"
#include "promise.h"

#include <cmath>
#include <string_view>

/// Any text is either refused with a message or compiled; what is compiled gives a finite number or a
/// message, and can be printed.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* bytes, std::size_t size)
{
    using namespace kelvarin;
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
    return 0;
}

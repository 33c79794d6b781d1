// SPDX-License-Identifier: MIT
#include "expr/basParse.h"
#include "platform/run_time_text.h"

namespace kelvarin
{

namespace
{

void append_text(std::string& text, const expression_tree& tree, int node, const clsParse& store)
{
    const expression_node& here = tree[node];
    switch (here.kind) {
    case node_kind::leaf:
        text += here.is_number ? plain_text(here.value) : std::string(store.slot_name(here.variable));
        break;
    case node_kind::function:
        text += row_of(here.operation).spelling;
        text += '(';
        append_text(text, tree, here.left, store);
        text += ')';
        break;
    case node_kind::binary:
        text += '(';
        append_text(text, tree, here.left, store);
        text.append(" ").append(row_of(here.operation).spelling).append(" ");
        append_text(text, tree, here.right, store);
        text += ')';
        break;
    case node_kind::if_then_else:
        text += "if (";
        append_text(text, tree, here.left, store);
        text += ") then (";
        append_text(text, tree, here.right, store);
        text += ") else (";
        append_text(text, tree, here.third, store);
        text += ')';
        break;
    }
}

} // namespace

std::string tree_to_text(const expression_tree& tree, int node, const clsParse& store)
{
    std::string text;
    append_text(text, tree, node, store);
    return text;
}

} // namespace kelvarin

// SPDX-License-Identifier: MIT
#include "expr/basParse.h"
#include "platform/runtime_failure.h"

#include <utility>

namespace kelvarin
{

namespace
{

constexpr std::string_view no_node_left = "Expression could not be parsed.";
constexpr std::string_view fatal_text = "Internal error found ! Please contact KELVARIN support personal.";

/// A list of tokens [first, last) of the text being compiled.
struct token_range
{
    std::size_t first = 0;
    std::size_t last = 0;

    std::size_t size() const { return last - first; }
    bool empty() const { return first >= last; }
};

constexpr std::size_t nowhere = static_cast<std::size_t>(-1);

bool is_verb_of(const token& t, std::string_view word)
{
    if (t.kind != token_kind::tokVerb || t.text.size() != word.size()) return false;
    for (std::size_t i = 0; i < word.size(); ++i)
        if ((t.text[i] | 0x20) != word[i]) return false;
    return true;
}

/// Compiles one text. The lists are split at the last operator of the lowest priority outside all
/// parentheses, so all operators bind from the left and a leading minus binds like a subtraction.
/// Recursion is bounded by the nodes of a tree; parentheses cost neither nodes nor stack.
class builder
{
public:
    builder(std::span<const token> tokens, clsParse& store, built_tree& result)
        : tokens_(tokens), store_(store), result_(result), partner_(partners(tokens))
    {
    }

    void build_root()
    {
        result_.tree.reserve(tokens_.size());
        build(result_.tree.next_free_node(), {0, tokens_.size()});
    }

private:
    using code = operation_code;

    expression_node& at(int node) { return result_.tree[node]; }
    const token& first_of(token_range list) const { return tokens_[list.first]; }
    const token& last_of(token_range list) const { return tokens_[list.last - 1]; }
    bool stopped() const { return !result_.message.empty(); }

    void remember_text(int node, token_range list)
    {
        const std::size_t offset = first_of(list).offset;
        at(node).text_offset = static_cast<std::uint32_t>(offset);
        at(node).text_length = static_cast<std::uint32_t>(last_of(list).offset + last_of(list).length - offset);
    }

    void refuse(std::string_view message)
    {
        if (!stopped()) result_.message = message;
    }

    /// A text that the checks let through and no rule covers.
    void refuse_fatally()
    {
        if (stopped()) return;
        result_.message = fatal_text;
        result_.fatal = true;
    }

    void refuse_empty_list()
    {
        refuse("Expression Parsing Error: " + std::string(runtime_failure_text(failure_number::subscript)));
    }

    /// For each "(" the index of the ")" that closes it, where there is one.
    static std::vector<std::size_t> partners(std::span<const token> tokens)
    {
        std::vector<std::size_t> partner(tokens.size(), nowhere);
        std::size_t open = nowhere; // while it is open, each one names the open one in front of it
        for (std::size_t i = 0; i < tokens.size(); ++i) {
            if (tokens[i].text == "(") {
                partner[i] = std::exchange(open, i);
            } else if (tokens[i].text == ")" && open != nowhere) {
                open = std::exchange(partner[open], i);
            }
        }
        while (open != nowhere)
            open = std::exchange(partner[open], nowhere);
        return partner;
    }

    /// Parentheses around the whole list drop away: nothing inside them can be a split.
    token_range without_parentheses(token_range list) const
    {
        while (list.size() > 1 && partner_[list.first] == list.last - 1) {
            ++list.first;
            --list.last;
        }
        return list;
    }

    /// The index of the operator at which the list splits, or `nowhere`.
    std::size_t split_of(token_range list) const
    {
        std::size_t split = nowhere;
        int lowest = 1000;
        int depth = 0;
        for (std::size_t i = list.first; i < list.last; ++i) {
            const token& t = tokens_[i];
            if (t.text == "(") {
                // A closed group is passed over in one step; it holds no place outside parentheses.
                if (depth == 0 && partner_[i] < list.last)
                    i = partner_[i];
                else
                    ++depth;
                continue;
            }
            if (t.text == ")") --depth;
            if (depth != 0) continue;
            const int priority = row_of(t.operation).priority;
            if (priority == 0 || priority > lowest) continue;
            lowest = priority;
            split = i;
        }
        return split;
    }

    /// Takes a node for a child and compiles the list into it.
    int build_child(token_range list)
    {
        if (stopped()) return 0;
        const int child = result_.tree.next_free_node();
        build(child, list);
        return child;
    }

    void build(int node, token_range list)
    {
        if (node == 0) return refuse(no_node_left);
        if (stopped()) return;
        list = without_parentheses(list);
        if (list.empty()) return refuse_empty_list();
        remember_text(node, list);
        if (is_verb_of(first_of(list), "if")) return build_conditional(node, list);
        if (const std::size_t split = split_of(list); split != nowhere) return build_operator(node, list, split);
        build_operand(node, list);
    }

    /// if condition then a else b; an inner `if` takes the next `else` for itself.
    void build_conditional(int node, token_range list)
    {
        std::size_t then = list.first + 1;
        while (then < list.last && !is_verb_of(tokens_[then], "then"))
            ++then;
        if (then >= list.last) return refuse_fatally();
        std::size_t otherwise = then + 1;
        for (int open = 0; otherwise < list.last; ++otherwise) {
            if (is_verb_of(tokens_[otherwise], "else")) ++open;
            if (is_verb_of(tokens_[otherwise], "if")) --open;
            if (open == 1) break;
        }
        at(node).kind = node_kind::if_then_else;
        at(node).operation = code::if_then_else;
        const int condition = build_child({list.first + 1, then});
        if (otherwise >= list.last) return refuse_fatally();
        const int chosen = build_child({then + 1, otherwise});
        const int other = build_child({otherwise + 1, list.last});
        at(node).left = static_cast<std::int16_t>(condition);
        at(node).right = static_cast<std::int16_t>(chosen);
        at(node).third = static_cast<std::int16_t>(other);
    }

    void build_operator(int node, token_range list, std::size_t split)
    {
        const bool leading_minus = split == list.first && first_of(list).text == "-";
        if (leading_minus && list.size() == 2 && last_of(list).kind == token_kind::tokNumber)
            return make_number(node, -last_of(list).value);
        at(node).kind = node_kind::binary;
        at(node).operation = tokens_[split].operation;
        const int left = leading_minus ? build_zero() : build_child({list.first, split});
        const int right = build_child({split + 1, list.last});
        at(node).left = static_cast<std::int16_t>(left);
        at(node).right = static_cast<std::int16_t>(right);
    }

    /// The 0 from which a leading minus subtracts.
    int build_zero()
    {
        const int node = result_.tree.next_free_node();
        if (node == 0)
            refuse(no_node_left);
        else
            make_number(node, 0.0);
        return node;
    }

    /// A list without a split: a function call, or a single token.
    void build_operand(int node, token_range list)
    {
        if (list.size() == 1) return make_leaf(node, first_of(list));
        // Parentheses that do not belong together can stand at both ends of a text like `(1) (2)`.
        if (first_of(list).text == "(" && last_of(list).text == ")")
            return build(node, {list.first + 1, list.last - 1});
        const bool call = tokens_[list.first + 1].text == "(" && last_of(list).text == ")" &&
                          function_list().find(first_of(list).text) != std::string_view::npos;
        if (!call) return refuse_fatally();
        at(node).kind = node_kind::function;
        at(node).operation = first_of(list).is_function() ? first_of(list).operation : code::srq;
        const int argument = build_child({list.first + 2, list.last - 1});
        at(node).left = static_cast<std::int16_t>(argument);
    }

    void make_number(int node, double value)
    {
        at(node).is_number = true;
        at(node).value = value;
    }

    void make_leaf(int node, const token& t)
    {
        if (t.kind == token_kind::tokNumber)
            make_number(node, t.value);
        else
            at(node).variable = store_.slot_of(t.text);
    }

    std::span<const token> tokens_;
    clsParse& store_;
    built_tree& result_;
    std::vector<std::size_t> partner_;
};

} // namespace

int expression_tree::next_free_node()
{
    if (size() >= capacity) return 0;
    nodes_.emplace_back();
    return size();
}

built_tree build_tree(std::span<const token> tokens, clsParse& store)
{
    built_tree result;
    builder(tokens, store, result).build_root();
    return result;
}

} // namespace kelvarin

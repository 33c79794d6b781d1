// SPDX-License-Identifier: MIT
#pragma once

#include "expr/clsParse.h"
#include "expr/operations.h"
#include "platform/run_time_numbers.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// From text to number: scan_tokens -> check_expression -> build_tree -> evaluate_tree.
namespace kelvarin
{

// ---------------------------------------------------------------------------------------------- words

/// Whether `name` is a function of the language: it occurs in the function list, and the characters around
/// its first occurrence there are both blanks. Case-sensitive; an empty name is none.
bool is_function_name(std::string_view name);

/// A letter A to Z or a to z, then such letters, digits and `_`.
bool is_valid_name(std::string_view name);

/// Whether the classifiers of equations take `name` for a word of the language. Their list is another
/// one than that of is_function_name: exp2, exp10, frac, fact, cbrt and round are variables to them, and
/// alog is none.
bool is_equation_word(std::string_view name);

/// The function list, names separated and surrounded by one blank.
std::string_view function_list();

// -------------------------------------------------------------------------------------------- scanner

enum class token_kind : std::int32_t
{
    tokOperator = 0,
    tokName = 1,
    tokNumber = 2,
    tokBoolean = 3,
    tokVerb = 4
};

/// A token refers to the scanned text, which must outlive it.
struct token
{
    token_kind kind = token_kind::tokOperator;
    /// What an operator, a boolean in lower case or a function name computes; `none` of all others.
    operation_code operation = operation_code::none;
    /// As typed, trimmed; a merged comparison without the blanks inside.
    std::string_view text;
    /// Where it stands in the scanned text, in bytes.
    std::size_t offset = 0;
    std::size_t length = 0;
    /// Of a number.
    double value = 0.0;

    bool is_function() const { return kind == token_kind::tokName && operation != operation_code::none; }
    bool is_variable() const { return kind == token_kind::tokName && operation == operation_code::none; }
};

using token_list = std::vector<token>;

/// The tokens of a right-hand side. Never fails; a blank text has none.
token_list scan_tokens(std::string_view text);

// -------------------------------------------------------------------------------------------- checker

struct byte_range
{
    std::size_t offset = 0;
    std::size_t length = 0;

    friend bool operator==(const byte_range&, const byte_range&) = default;
};

struct check_result
{
    bool ok = false;
    /// Empty when ok, else "Syntax Error: " and the reason.
    std::string message;
    /// The variable names in order of first appearance, also of a refused text; they refer to it.
    std::vector<std::string_view> names;
    /// What in the text the message is about, if that is known.
    std::optional<byte_range> place;
    /// The scanned text, for the builder.
    token_list tokens;
};

/// Decides whether a text is acceptable. With a store every variable must be known to it.
check_result check_expression(std::string_view text, const clsParse* defined = nullptr);

/// The variables among the tokens in order of first appearance, compared exactly.
std::vector<std::string_view> collect_variable_names(std::span<const token> tokens);

// --------------------------------------------------------------------------------------------- trees

enum class node_kind : std::int16_t
{
    leaf = 0,
    function = 1,
    binary = 2,
    if_then_else = 3
};

struct expression_node
{
    node_kind kind = node_kind::leaf;
    /// What the node computes; of a leaf nothing.
    operation_code operation = operation_code::none;
    std::int16_t left = 0;
    std::int16_t right = 0;
    std::int16_t third = 0;
    /// A leaf that is a number, and then its value.
    bool is_number = false;
    double value = 0.0;
    /// The slot of a leaf that is a name.
    clsParse::slot variable = 0;
    /// What of the text the node stands for.
    std::uint32_t text_offset = 0;
    std::uint32_t text_length = 0;
};

/// A compiled expression: at most 200 nodes, numbered from 1, the root first; 0 means "no node".
class expression_tree
{
public:
    static constexpr int capacity = 200;
    static constexpr int root = 1;

    /// A tree without nodes.
    void clear_tree() { nodes_.clear(); }
    /// Makes room for the nodes that a text of so many tokens takes at most.
    void reserve(std::size_t tokens) { nodes_.reserve(tokens + 1 < capacity ? tokens + 1 : capacity); }
    /// Takes the lowest free node and returns its number, or 0 when all are taken.
    int next_free_node();
    int size() const { return static_cast<int>(nodes_.size()); }
    expression_node& operator[](int node) { return nodes_[static_cast<std::size_t>(node - 1)]; }
    const expression_node& operator[](int node) const { return nodes_[static_cast<std::size_t>(node - 1)]; }

private:
    std::vector<expression_node> nodes_;
};

struct built_tree
{
    expression_tree tree;
    /// Empty when the tree was built.
    std::string message;
    /// No rule covers the text: the message is that of the box titled "Fatal Error".
    bool fatal = false;
    bool ok() const { return message.empty(); }
};

inline constexpr std::string_view fatal_title = "Fatal Error";

/// Compiles checked tokens into a tree whose leaves are bound to slots of `store`.
built_tree build_tree(std::span<const token> tokens, clsParse& store);

/// The text of a subtree, as failure messages show it.
std::string tree_to_text(const expression_tree& tree, int node, const clsParse& store);

// ---------------------------------------------------------------------------------------- evaluation

/// What belongs to the evaluations of one run or one calculator: the sticky first failure, and the
/// generator behind `rand`.
class evaluation_context
{
public:
    bool eval_error_flag() const { return flag_; }
    const std::string& eval_error_message() const { return message_; }
    /// What of the evaluated text the failure is about, if that is known.
    const std::optional<byte_range>& failed_text() const { return failed_text_; }
    /// Keeps the message and place of the first failure; later ones change nothing until the state is cleared.
    void fail(std::string message, const std::optional<byte_range>& text = std::nullopt);
    void clear_failure();

    random_generator generator;

private:
    bool flag_ = false;
    std::string message_;
    std::optional<byte_range> failed_text_;
};

/// The value of a subtree at the present values of the store. A failure is kept in the context and the
/// failing node gives 0; while a failure stands every evaluation gives 0 at once. All intermediate results
/// are finite: an operation whose result would not be is a failure.
double evaluate_tree(const expression_tree& tree, int node, const clsParse& store, evaluation_context& context);

} // namespace kelvarin

// SPDX-License-Identifier: MIT
#include "reg/table/column_formulas.h"

#include "platform/run_time_text.h"
#include "platform/text_file.h"
#include "shell/general_lib.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <utility>

namespace kelvarin
{

namespace
{

/// Stands for an inserted source while names are replaced; no formula that can be compiled contains it.
constexpr char source_mark = '\x01';

/// A formula between the places of its sources.
struct formula_piece
{
    std::string text;
    /// The source behind the text; none behind the last piece.
    std::optional<int> source;
};

bool contains_name(std::string_view text, std::string_view name)
{
    return !name.empty() && text.find(name) != std::string_view::npos;
}

/// The columns whose name the formula contains anywhere.
std::vector<int> contained_columns(std::string_view formula, const std::vector<std::string>& names)
{
    std::vector<int> contained;
    for (std::size_t column = 0; column < names.size(); ++column)
        if (contains_name(formula, names[column])) contained.push_back(static_cast<int>(column));
    return contained;
}

/// Appends `text` split at the words `name`; the last piece has the source `behind`.
void split_piece(std::vector<formula_piece>& pieces, std::string_view text, std::string_view name, int column,
                 std::optional<int> behind)
{
    const std::string marked = replace_name(text, name, std::string_view(&source_mark, 1));
    std::size_t begin = 0;
    for (std::size_t mark = marked.find(source_mark); mark != std::string::npos;
         mark = marked.find(source_mark, begin)) {
        pieces.push_back({marked.substr(begin, mark - begin), column});
        begin = mark + 1;
    }
    pieces.push_back({marked.substr(begin), behind});
}

std::vector<formula_piece> split_at_sources(std::string_view formula, const std::vector<int>& contained,
                                            const std::vector<std::string>& names)
{
    std::vector<formula_piece> pieces = {{std::string(formula), std::nullopt}};
    if (formula.find(source_mark) != std::string_view::npos) return pieces;
    for (const int column : contained) {
        std::vector<formula_piece> split;
        for (const formula_piece& piece : pieces)
            split_piece(split, piece.text, names[static_cast<std::size_t>(column)], column, piece.source);
        pieces = std::move(split);
    }
    return pieces;
}

/// The formula with `text_of(column)` in parentheses at the places of its sources.
template <class TextOf> std::string joined(const std::vector<formula_piece>& pieces, TextOf text_of)
{
    std::string text;
    for (const formula_piece& piece : pieces) {
        text += piece.text;
        if (piece.source) text.append("(").append(text_of(*piece.source)).append(")");
    }
    return text;
}

bool is_digit(char letter)
{
    return letter >= '0' && letter <= '9';
}

/// Whether a number consists of an optional minus, digits, and optionally a point with digits on both sides: such a
/// text reads alike as a cell and in an expression.
bool is_plain_decimal(std::string_view number)
{
    if (number.starts_with('-')) number.remove_prefix(1);
    const std::size_t point = std::min(number.find('.'), number.size());
    const auto are_digits = [](std::string_view text) { return !text.empty() && std::ranges::all_of(text, is_digit); };
    return are_digits(number.substr(0, point)) && (point == number.size() || are_digits(number.substr(point + 1)));
}

/// The value of a text as a number of an expression, with an optional minus in front.
std::optional<double> literal_value(std::string_view text)
{
    const token_list tokens = scan_tokens(text);
    const bool negative = tokens.size() == 2 && tokens.front().text == "-";
    if (tokens.size() != (negative ? 2U : 1U) || tokens.back().kind != token_kind::tokNumber) return std::nullopt;
    return negative ? -tokens.back().value : tokens.back().value;
}

/// The text that stands for a source cell in a formula. Expressions know no leading plus and not all exponents that
/// cells may have; such numbers are put in their plain form.
std::string inserted_text(const std::string& text, const parsed_cell& cell)
{
    if (!cell.is_number() || is_plain_decimal(text) || literal_value(text)) return text;
    return plain_text(cell.value);
}

double inserted_value(const std::string& text, const parsed_cell& cell)
{
    if (is_plain_decimal(text)) return cell.value;
    return literal_value(inserted_text(text, cell)).value_or(cell.value);
}

} // namespace

struct formula_columns::compiled_formula
{
    std::vector<int> contained;
    std::vector<formula_piece> pieces;
    /// The sources put in by words, once each.
    std::vector<int> sources;
    /// Of the formula with slots in place of its sources; empty if only the text can be evaluated.
    std::optional<expression_tree> tree;
};

formula_columns::formula_columns(const table_content& content, evaluation_context& context)
    : names_(content.names), calc_digits_(content.calc_digits), context_(context)
{
    formulas_.resize(names_.size());
    slots_.resize(names_.size());
    for (std::size_t column = 0; column < names_.size(); ++column) {
        const std::string& formula = content.formulas[column];
        if (formula.empty()) continue;
        any_ = true;
        formulas_[column] = std::make_shared<compiled_formula>(compile(formula));
        const bool from_the_left = std::ranges::all_of(formulas_[column]->contained, [&](int source) {
            const auto at = static_cast<std::size_t>(source);
            return at < column || content.formulas[at].empty();
        });
        if (!from_the_left || contains_name(formula, "rand")) settle_at_once_ = false;
    }
}

formula_columns::compiled_formula formula_columns::compile(std::string_view text)
{
    compiled_formula formula;
    formula.contained = contained_columns(text, names_);
    formula.pieces = split_at_sources(text, formula.contained, names_);
    int places = 0;
    for (const formula_piece& piece : formula.pieces)
        if (piece.source) {
            ++places;
            if (std::ranges::find(formula.sources, *piece.source) == formula.sources.end())
                formula.sources.push_back(*piece.source);
        }

    // A name that no formula of a person contains; if one does, only its text is evaluated.
    const std::string slot_prefix = "kelvarin_cell_";
    if (text.find(slot_prefix) != std::string_view::npos) return formula;
    const auto slot_name = [&](int column) { return slot_prefix + std::to_string(column); };
    store_.remove_all_vars();
    for (const int source : formula.sources) {
        slots_[static_cast<std::size_t>(source)] = store_.slot_of(slot_name(source));
        store_.set(slots_[static_cast<std::size_t>(source)], 1.0);
    }
    const std::string with_slots = joined(formula.pieces, slot_name);
    check_result checked = check_expression(with_slots, &store_);
    if (checked.ok) {
        built_tree built = build_tree(checked.tokens, store_);
        // The minus of a negative number takes nodes as well, and there are no more than these.
        if (built.ok() && built.tree.size() + 2 * places <= expression_tree::capacity)
            formula.tree = std::move(built.tree);
    }
    store_.remove_all_vars();
    return formula;
}

std::optional<double> formula_columns::value_by_tree(const compiled_formula& formula, const cell_editor& cells, int row)
{
    store_.remove_all_vars();
    for (const int source : formula.sources)
        store_.set(slots_[static_cast<std::size_t>(source)],
                   inserted_value(cells.text(row, source), cells.number(row, source)));
    context_.clear_failure();
    const double value = evaluate_tree(*formula.tree, expression_tree::root, store_, context_);
    const bool failed = context_.eval_error_flag();
    context_.clear_failure();
    store_.remove_all_vars();
    if (failed) return std::nullopt;
    return value;
}

std::optional<double> formula_columns::value_by_text(const std::string& text)
{
    store_.remove_all_vars();
    if (!check_expression(text, &store_).ok) return std::nullopt;
    const solved_expression solved = store_.Solve_expression(text, context_);
    if (!solved.ok) return std::nullopt;
    return solved.value;
}

/// The text of the calculated cell; nullopt if a source is blank.
std::optional<std::string> formula_columns::evaluate(const compiled_formula& formula, const cell_editor& cells, int row)
{
    if (std::ranges::any_of(formula.contained, [&](int source) { return cells.number(row, source).is_blank(); }))
        return std::nullopt;
    const bool all_numbers =
        std::ranges::all_of(formula.sources, [&](int source) { return cells.number(row, source).is_number(); });
    const std::optional<double> value =
        formula.tree && all_numbers ? value_by_tree(formula, cells, row)
                                    : value_by_text(joined(formula.pieces, [&](int source) {
                                          return inserted_text(cells.text(row, source), cells.number(row, source));
                                      }));
    return value ? format_digits(*value, calc_digits_) : cell_error;
}

void formula_columns::check_other_transpose_columns(cell_editor& cells, int row, int changed)
{
    for (std::size_t column = 0; column < formulas_.size(); ++column) {
        if (!formulas_[column] || static_cast<int>(column) == changed) continue;
        cells.set(row, static_cast<int>(column), evaluate(*formulas_[column], cells, row).value_or(""));
    }
}

void formula_columns::fill_column(cell_editor& cells, int rows, int column, std::string_view formula)
{
    const compiled_formula compiled = compile(formula);
    const std::string& own_name = names_[static_cast<std::size_t>(column)];
    for (int row = 0; row < rows; ++row) {
        // The texts of sources may contain the column's own name, which would be a circle.
        if (std::ranges::any_of(compiled.sources,
                                [&](int source) { return contains_name(cells.text(row, source), own_name); }))
            continue;
        const std::optional<std::string> text = evaluate(compiled, cells, row);
        if (!text) continue;
        cells.set(row, column, *text);
        if (*text != cell_error) check_other_transpose_columns(cells, row, column);
    }
}

std::string substituted_formula(const table_content& content, int row, std::string_view formula)
{
    const std::vector<formula_piece> pieces =
        split_at_sources(formula, contained_columns(formula, content.names), content.names);
    return joined(pieces, [&](int source) {
        return inserted_text(content.cells.text(row, source), content.cells.number(row, source));
    });
}

namespace
{

/// A formula over the names of a store.
struct store_formula
{
    int column = 0;
    clsParse::slot target = 0;
    std::vector<clsParse::slot> names;
    /// Empty if the formula can't be compiled.
    std::optional<expression_tree> tree;
};

store_formula compile_over_names(const std::string& text, int column, const std::string& name, clsParse& store)
{
    store_formula formula = {column, store.slot_of(trimmed(name)), {}, {}};
    const check_result checked = check_expression(text);
    if (!checked.ok) return formula;
    for (const std::string_view used : checked.names)
        formula.names.push_back(store.slot_of(used));
    built_tree built = build_tree(checked.tokens, store);
    if (built.ok()) formula.tree = std::move(built.tree);
    return formula;
}

std::optional<double> value_in_store(const store_formula& formula, const clsParse& store, evaluation_context& context)
{
    if (!formula.tree) return std::nullopt;
    if (!std::ranges::all_of(formula.names, [&](clsParse::slot name) { return store.holds(name); }))
        return std::nullopt;
    context.clear_failure();
    const double value = evaluate_tree(*formula.tree, expression_tree::root, store, context);
    const bool failed = context.eval_error_flag();
    context.clear_failure();
    if (failed) return std::nullopt;
    return value;
}

} // namespace

void recalc_all_formula_columns(table_content& content, evaluation_context& context)
{
    clsParse store;
    std::vector<store_formula> formulas;
    std::vector<std::pair<int, clsParse::slot>> plain_columns;
    for (int column = 0; column < content.columns(); ++column) {
        if (content.has_formula(column))
            formulas.push_back(compile_over_names(content.formula(column), column, content.name(column), store));
        else
            plain_columns.emplace_back(column, store.slot_of(trimmed(content.name(column))));
    }
    if (formulas.empty()) return;
    cell_editor cells(content.cells);
    for (int row = 0; row < content.rows(); ++row) {
        store.remove_all_vars();
        for (const auto& plain : plain_columns)
            if (const parsed_cell& cell = cells.number(row, plain.first); cell.is_number())
                store.set(plain.second, cell.value);
        for (const store_formula& formula : formulas) {
            if (cells.number(row, formula.column).is_blank()) continue;
            const std::optional<double> value = value_in_store(formula, store, context);
            cells.set(row, formula.column, value ? format_digits(*value, content.calc_digits) : cell_error);
            if (value) store.set(formula.target, *value);
        }
    }
    cells.commit();
}

std::optional<message_box> formula_fault(const table_content& content, int column, std::string_view formula)
{
    const message_box circular = {"Circular column definitions not allowed.", box_icon::critical};
    const std::string& own_name = content.name(column);
    for (int other = 0; other < content.columns(); ++other)
        if (other != column && contains_name(content.formula(other), own_name) &&
            contains_name(formula, content.name(other)))
            return circular;
    if (contains_name(formula, own_name)) return circular;

    const std::vector<formula_piece> pieces =
        split_at_sources(formula, contained_columns(formula, content.names), content.names);
    const check_result checked = check_expression(joined(pieces, [](int) { return "1"; }));
    if (!checked.ok) return message_box{checked.message, box_icon::critical, "Error"};
    return std::nullopt;
}

std::optional<message_box> define_column(table_content& content, int column, std::string_view formula,
                                         evaluation_context& context)
{
    if (std::optional<message_box> fault = formula_fault(content, column, formula)) return fault;
    formula_columns formulas(content, context);
    cell_editor cells(content.cells);
    formulas.fill_column(cells, content.rows(), column, formula);
    cells.commit();
    content.formulas[static_cast<std::size_t>(column)] = formula;
    return std::nullopt;
}

} // namespace kelvarin

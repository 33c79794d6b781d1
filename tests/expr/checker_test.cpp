// SPDX-License-Identifier: MIT
#include "expr/basParse.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kelvarin
{
namespace
{

struct refused_text
{
    std::string text;
    std::string message; // behind "Syntax Error: "
};

/// The word of a row's check stands in front of each group; the texts are those that the check exists for,
/// and those where it has to go before or behind another one.
const std::vector<refused_text> refused = {
    // nothing to read
    {"", "No expression entered."},
    // beginnings
    {"   ", "cannot begin with an operator (except -)"},
    {"*2", "cannot begin with an operator (except -)"},
    {"^ 2", "cannot begin with an operator (except -)"},
    {"/2", "cannot begin with an operator (except -)"},
    {")1(", "cannot begin with an operator (except -)"},
    {"or 1", "cannot begin with a boolean operator"},
    {"AND 1", "cannot begin with a boolean operator"},
    // raw text
    {"a$b", "invalid character '$'"},
    {"a,b", "invalid character ','"},
    {"1+\xC3\xA9", "invalid character '\xC3\xA9'"},
    {"2*\xCE\xB1 + $", "invalid character '\xCE\xB1'"},
    {"1\t+2", "invalid character '\t'"},
    {"(1)(2)", "missing operator between parantheses ') ('"},
    {"sin()", "missing expression between parantheses '( )'"},
    // neighbours: the leftmost pair decides
    {"a*-b", "two operators in sequence not allowed; * -"},
    {"x^-2", "two operators in sequence not allowed; ^ -"},
    {"x > -1", "two operators in sequence not allowed; > -"},
    {"2*-3", "two operators in sequence not allowed; * -"},
    {"a === b", "two operators in sequence not allowed; == ="},
    {"1 <=> 2", "two operators in sequence not allowed; <= >"},
    {"1 ==== 2", "two operators in sequence not allowed; == =="},
    {"a or or b", "two boolean operators in sequence not allowed; or or"},
    {"x y", "missing operator between variables; x y"},
    {"sin x", "missing operator between variables; sin x"},
    {"(x)y", "function or variable name not allowed after closing parantheses; ) y"},
    {"(1) sin(1)", "function or variable name not allowed after closing parantheses; ) sin"},
    {"x y + + 1", "missing operator between variables; x y"},
    {"1 + + x y", "two operators in sequence not allowed; + +"},
    // calls
    {"f(x)", "unknown function 'f'"},
    {"Sin(x)", "unknown function 'Sin'"},
    {"2x(1)", "unknown function '2x'"},
    {"((1)", "unequal number of parantheses. Too many '('"},
    {"(1))", "unequal number of parantheses. Too many ')'"},
    // names
    {"2x", "invalid number '2x'"},
    {"1e - 3", "invalid number '1e'"},
    {"k2e-3", "invalid number 'k2e-3'"},
    {"1d-3", "invalid number '1d'"},
    {"1e400", "invalid number '1e400'"},
    {"1.2.3", "invalid number '1.2.3'"},
    {"a.b", "invalid number 'a.b'"},
    {"_a+1", "invalid number '_a'"},
    {"0x10", "invalid number '0x10'"},
    {".", "invalid number '.'"},
    {"sin + 2x", "invalid number '2x'"},
    {"sin", "missing '(' after a function or function name is used as a variable name.sin"},
    {"sin+1", "missing '(' after a function or function name is used as a variable name.sin"},
    // missing operators, a pass for each sentence
    {"2(x)", "missing operator; 2 ("},
    {"(x)2", "missing operator; ) 2"},
    {"2 x", "missing operator; 2 x"},
    {"x 2", "missing operator; x 2"},
    {"1 2", "missing operator; 1 2"},
    {"1 2 x", "missing operator; 2 x"},
    {"(1)2+3(4)", "missing operator; 3 ("},
    // endings
    {"a +", "extra operator at the end of the expression; +"},
    {"a or", "extra operator at the end of the expression; or"},
    {"if a then", "expression cannot end with 'then'"},
    // conditionals
    {"if a or b", "unequal number of 'if' and 'then' statements"},
    {"if a then b", "unequal number of 'then' and 'else' statements"},
    {"if a THEN b else c", "the 'then' verb must follow the 'if' verb"},
    {"if (if a then b else c) then d else e", "the 'then' verb must follow the 'if' verb"},
    {"then 1 else 2 if 3", "the 'then' verb must follow the 'if' verb"},
    {"if then a else b", "no elemets found between if/then verbs"},
    {"IF a THEN IF b THEN c ELSE d ELSE e", "no elemets found between THEN/IF verbs"},
    {"if a then b else IF c THEN d ELSE e", "no elemets found between else/IF verbs"},
    // assignments, empty parentheses
    {"a = b", "only '==' is valid for equation conditioning operator ('=' is invalid)"},
    {"2 + ( )", "missing expression between parantheses '( )'"},
};

TEST(Checker, RefusesEachFaultInItsOwnWordsAndInOrder)
{
    for (const refused_text& row : refused) {
        SCOPED_TRACE(row.text);
        const check_result result = check_expression(row.text);
        EXPECT_FALSE(result.ok);
        EXPECT_EQ(result.message, "Syntax Error: " + row.message);
    }
}

TEST(Checker, AcceptsWhatOnlyTheBuilderOrTheEvaluatorMayRefuse)
{
    const std::vector<std::string> accepted = {
        "1e-3", "2.E+5",  ".5e-2",   "1d3",    "e-3",  "xe-3",    "k2e - 3",   "a*(-b)", "x^(-2)", "-x",        "+x",
        "a >",  "a == b", "1 = = 2", "1 OR 0", "(1+)", "(1) (2)", "inf + nan", "1e-400", "(or)",   "sin(1) (2)"};
    const std::vector<std::string> conditionals = {"if a then if b then c else d else e", "IF a THEN b ELSE c",
                                                   "2*if a>b then a else b", "if (a>0)then(1)else(2)",
                                                   "IF a THEN (IF b THEN c ELSE d) ELSE e"};
    for (const auto& texts : {accepted, conditionals})
        for (const std::string& text : texts)
            EXPECT_TRUE(check_expression(text).ok) << text << ": " << check_expression(text).message;
}

TEST(Checker, WithAStoreNamesTheFirstUndefinedVariableAlsoInBranchesThatNeverRun)
{
    clsParse store;
    store.modify_add_var_value("a", 1.0);
    EXPECT_TRUE(check_expression("a + sin(a)", &store).ok);
    EXPECT_EQ(check_expression("if 0 then zz else yy", &store).message, "Syntax Error: variable name not defined 'zz'");
    EXPECT_EQ(check_expression("A", &store).message, "Syntax Error: variable name not defined 'A'");
    EXPECT_EQ(check_expression("a + pi = 1", &store).message,
              "Syntax Error: only '==' is valid for equation conditioning operator ('=' is invalid)");
}

TEST(Checker, CollectsNamesInOrderOfFirstAppearanceAlsoOfARefusedText)
{
    const check_result result = check_expression("b*sin(a)+b-Ab/ab 7");
    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.names, (std::vector<std::string_view>{"b", "a", "Ab", "ab"}));

    std::string many;
    for (int i = 0; i < 60; ++i)
        many += "v" + std::to_string(i % 40) + " + ";
    EXPECT_EQ(check_expression(many + "v0").names.size(), 40u);
}

// A minus in front keeps a text from being accepted at the first look, and changes nothing about the rest of it.
TEST(Checker, AcceptsAtTheFirstLookWhatAllChecksAccept)
{
    const std::vector<std::string> words = {"x", "y", "sin", "2", "3.", "(", ")", "-", "*", "==", "=", "and", "if"};
    constexpr std::size_t longest = 4;
    std::size_t accepted = 0;
    std::vector<std::vector<std::size_t>> texts = {{}};
    for (std::size_t at = 0; at < texts.size(); ++at) {
        std::string text;
        for (const std::size_t word : texts[at])
            text += " " + words[word];
        // Behind a minus these are other faults than in front.
        if (!text.empty() && std::string_view("-*=a)").find(text[1]) == std::string_view::npos) {
            const bool ok = check_expression(text).ok;
            EXPECT_EQ(ok, check_expression("-" + text).ok) << text;
            accepted += ok ? 1 : 0;
        }
        if (texts[at].size() == longest) continue;
        for (std::size_t word = 0; word < words.size(); ++word) {
            texts.push_back(texts[at]);
            texts.back().push_back(word);
        }
    }
    EXPECT_GT(accepted, 200U);
    EXPECT_EQ(texts.size(), 1U + 13U + 169U + 2197U + 28561U);
}

TEST(Checker, TellsWhereTheFaultStands)
{
    const std::vector<std::pair<std::string, byte_range>> places = {
        {"1 + 2x", {4, 2}}, {"x  y", {0, 4}}, {"ab*-c", {2, 2}}, {"a + $", {4, 1}}, {"1 > = = 2", {2, 5}}};
    for (const auto& [text, place] : places)
        EXPECT_EQ(check_expression(text).place, place) << text;
}

TEST(Checker, RefusesMoreTokensThanCanBeCounted)
{
    std::string text = "1";
    while (text.size() < 2 * 16383 + 1)
        text += "+1"; // 32767 tokens in the end
    EXPECT_TRUE(check_expression(text).ok);
    EXPECT_EQ(check_expression(text + "+").message, "Syntax Error: Expression could not be evaluated.");
}

TEST(Scanner, SplitsAtBlanksAndOperatorsButNotAtTheSignOfAnExponent)
{
    const std::vector<std::pair<std::string, std::vector<std::string_view>>> cases = {
        {"1e-3+x", {"1e-3", "+", "x"}},   {"2  x", {"2", "x"}},
        {" -2.5E+5 ", {"-", "2.5E+5"}},   {"1e-x", {"1e", "-", "x"}},
        {"e-3", {"e", "-", "3"}},         {"a> =b", {"a", ">=", "b"}},
        {"a<==b", {"a", "<=", "=", "b"}}, {"   ", {}},
        {"a \t b", {"a", "\t", "b"}},
    };
    for (const auto& [text, expected] : cases) {
        SCOPED_TRACE(text);
        std::vector<std::string_view> texts;
        for (const token& t : scan_tokens(text))
            texts.push_back(t.text);
        EXPECT_EQ(texts, expected);
    }
}

TEST(Scanner, TellsTheKindOfEachToken)
{
    using enum token_kind;
    const std::vector<std::pair<std::string, token_kind>> cases = {
        {"12", tokNumber},  {".07", tokNumber},  {"5.", tokNumber}, {"1E5", tokNumber}, {"1D3", tokNumber},
        {"1e", tokName},    {"inf", tokName},    {"nan", tokName},  {"0x1", tokName},   {"1_0", tokName},
        {"or", tokBoolean}, {"And", tokBoolean}, {"THEN", tokVerb}, {"if", tokVerb},    {"sin", tokName},
        {"(", tokOperator}, {"=", tokOperator}};
    for (const auto& [text, kind] : cases) {
        const token_list tokens = scan_tokens(text);
        ASSERT_EQ(tokens.size(), 1u) << text;
        EXPECT_EQ(tokens[0].kind, kind) << text;
    }
    EXPECT_EQ(scan_tokens("1d3")[0].value, 1000.0);
}

TEST(Words, TheListsAndTheRowsNameTheSameFunctions)
{
    std::string listed = " ";
    for (const operation_row& row : operation_rows())
        if (row.priority == 0 && !row.spelling.empty() && row.code != operation_code::if_then_else) {
            EXPECT_TRUE(is_function_name(row.spelling)) << row.spelling;
            EXPECT_EQ(function_of(row.spelling), row.code);
            listed += std::string(row.spelling) + " ";
        }
    EXPECT_EQ(listed.size(), function_list().size());
}

TEST(Words, AreToldFromNames)
{
    EXPECT_FALSE(is_function_name("sq")); // its first hit lies inside another word
    EXPECT_FALSE(is_function_name("Sin"));
    EXPECT_FALSE(is_function_name("alog"));
    for (const char* word : {"alog", "if", "then", "else", "srq", "psi"})
        EXPECT_TRUE(is_equation_word(word)) << word;
    for (const char* word : {"exp2", "exp10", "frac", "fact", "cbrt", "round", "or", "and", "co", ""})
        EXPECT_FALSE(is_equation_word(word)) << word;
    EXPECT_TRUE(is_valid_name("a_1"));
    for (const char* word : {"", "_a", "1a", "a.b", "\xC3\xA9", "a b"})
        EXPECT_FALSE(is_valid_name(word)) << word;
}

} // namespace
} // namespace kelvarin

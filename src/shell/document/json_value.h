// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace kelvarin
{

/// Thrown when a requested value is missing from a json_value or has another type.
struct json_mismatch : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

/// A parsed JSON text. Every access checks the type and throws json_mismatch, which read_json catches.
class json_value
{
public:
    using array = std::vector<json_value>;
    using object = std::vector<std::pair<std::string, json_value>>;
    /// Numbers without fraction and exponent are integers if they fit, all others are double.
    using content = std::variant<std::monostate, bool, std::int64_t, double, std::string, array, object>;

    json_value() = default;
    explicit json_value(content held) : held_(std::move(held)) {}

    bool is_null() const { return std::holds_alternative<std::monostate>(held_); }
    bool is_text() const { return std::holds_alternative<std::string>(held_); }

    /// The value of a member of an object; the last one if the name occurs more than once.
    const json_value& at(std::string_view name) const;
    const array& items() const { return get<array>("an array"); }
    const std::string& text() const { return get<std::string>("a text"); }
    /// All items of an array of strings.
    std::vector<std::string> texts() const;
    bool truth() const { return get<bool>("a truth value"); }
    /// An integer or double.
    double number() const;
    std::int64_t whole_number() const { return get<std::int64_t>("a whole number"); }
    /// A whole number from `first` to `last`; throws json_mismatch otherwise.
    int whole_number(int first, int last) const;

private:
    friend class json_builder;

    template <class Type> const Type& get(const char* wanted) const
    {
        if (const Type* held = std::get_if<Type>(&held_)) return *held;
        throw json_mismatch(std::string("no ") + wanted);
    }

    content held_;
};

/// Parses a JSON text. Returns nullopt if it is invalid or nested more than a hundred deep.
std::optional<json_value> parse_json(std::string_view text);

/// The result of `read` for the parsed text. Returns nullopt if the text is invalid or `read` throws json_mismatch.
template <class Read>
auto read_json(std::string_view text, Read read) -> std::optional<decltype(read(std::declval<const json_value&>()))>
try {
    const std::optional<json_value> value = parse_json(text);
    if (!value) return std::nullopt;
    return read(*value);
} catch (const json_mismatch&) {
    return std::nullopt;
}

} // namespace kelvarin

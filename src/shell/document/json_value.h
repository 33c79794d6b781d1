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

/// What was asked of a json_value is not in it, or is of another type.
struct json_mismatch : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

/// A JSON text as values. Every access checks the type and throws json_mismatch, so that a reader states what it wants
/// and leaves the rest to read_json.
class json_value
{
public:
    using array = std::vector<json_value>;
    using object = std::vector<std::pair<std::string, json_value>>;
    /// Numbers without fraction and exponent that fit are whole, all others real.
    using content = std::variant<std::monostate, bool, std::int64_t, double, std::string, array, object>;

    json_value() = default;
    explicit json_value(content held) : held_(std::move(held)) {}

    bool is_null() const { return std::holds_alternative<std::monostate>(held_); }
    bool is_text() const { return std::holds_alternative<std::string>(held_); }

    /// The value of a member of an object; the last one where a name stands twice.
    const json_value& at(std::string_view name) const;
    const array& items() const { return get<array>("an array"); }
    const std::string& text() const { return get<std::string>("a text"); }
    /// All items of an array of texts.
    std::vector<std::string> texts() const;
    bool truth() const { return get<bool>("a truth value"); }
    /// A number, whole or real.
    double number() const;
    std::int64_t whole_number() const { return get<std::int64_t>("a whole number"); }
    /// A whole number from `first` to `last`.
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

/// The value of a JSON text; nullopt if it is none, or nests more than a hundred deep.
std::optional<json_value> parse_json(std::string_view text);

/// What `read` makes of a JSON text's value; nullopt if the text is none or `read` asks for what is not in it.
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

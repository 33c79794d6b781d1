// SPDX-License-Identifier: MIT
#include "shell/document/json_value.h"

#include <algorithm>
#include <limits>

#include <nlohmann/json.hpp>

namespace kelvarin
{

/// Builds a json_value from the events of the library's parser. A handler that returns false ends the parsing.
class json_builder final : public nlohmann::json_sax<nlohmann::json>
{
public:
    json_value take() { return std::move(root_); }

    bool null() override { return put({}); }
    bool boolean(bool truth) override { return put(truth); }
    bool number_integer(std::int64_t number) override { return put(number); }
    bool number_unsigned(std::uint64_t number) override
    {
        constexpr auto largest = static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max());
        return number <= largest ? put(static_cast<std::int64_t>(number)) : put(static_cast<double>(number));
    }
    bool number_float(double number, const std::string&) override { return put(number); }
    bool string(std::string& text) override { return put(std::move(text)); }
    bool binary(nlohmann::json::binary_t&) override { return false; }
    bool start_object(std::size_t) override { return open(json_value::object()); }
    bool key(std::string& name) override
    {
        std::get<json_value::object>(open_.back()->held_).emplace_back().first = std::move(name);
        return true;
    }
    bool end_object() override { return close(); }
    bool start_array(std::size_t) override { return open(json_value::array()); }
    bool end_array() override { return close(); }
    bool parse_error(std::size_t, const std::string&, const nlohmann::json::exception&) override { return false; }

private:
    /// The place of the next value: after the last key of an object, or at the end of an array.
    json_value& next_place()
    {
        if (open_.empty()) return root_;
        if (auto* members = std::get_if<json_value::object>(&open_.back()->held_)) return members->back().second;
        return std::get<json_value::array>(open_.back()->held_).emplace_back();
    }
    bool put(json_value::content held)
    {
        next_place().held_ = std::move(held);
        return true;
    }
    bool open(json_value::content held)
    {
        // Limits the recursion when values are read and destroyed.
        constexpr std::size_t deepest = 100;
        if (open_.size() == deepest) return false;
        json_value& opened = next_place();
        opened.held_ = std::move(held);
        open_.push_back(&opened);
        return true;
    }
    bool close()
    {
        open_.pop_back();
        return true;
    }

    json_value root_;
    /// The arrays and objects around the next value, the innermost last. An outer one doesn't grow while an inner one
    /// is open, so the pointers stay valid.
    std::vector<json_value*> open_;
};

const json_value& json_value::at(std::string_view name) const
{
    const object& members = get<object>("an object");
    const auto found = std::find_if(members.rbegin(), members.rend(),
                                    [name](const object::value_type& member) { return member.first == name; });
    if (found == members.rend()) throw json_mismatch("no member " + std::string(name));
    return found->second;
}

std::vector<std::string> json_value::texts() const
{
    std::vector<std::string> texts;
    for (const json_value& item : items())
        texts.push_back(item.text());
    return texts;
}

double json_value::number() const
{
    if (const auto* whole = std::get_if<std::int64_t>(&held_)) return static_cast<double>(*whole);
    return get<double>("a number");
}

int json_value::whole_number(int first, int last) const
{
    const std::int64_t number = whole_number();
    if (number < first || number > last) throw json_mismatch("a number out of range");
    return static_cast<int>(number);
}

std::optional<json_value> parse_json(std::string_view text)
{
    json_builder builder;
    if (!nlohmann::json::sax_parse(text, &builder)) return std::nullopt;
    return builder.take();
}

} // namespace kelvarin

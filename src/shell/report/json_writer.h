// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace kelvarin
{

/// Writes indented JSON into a text; all JSON of the program is written by this class. Numbers have the fewest digits
/// that read back as the same double.
///
/// Every array and object must be closed by its `end`; within an object each value follows its key.
class json_writer
{
public:
    /// `depth` is the nesting depth of the value in the surrounding text: its lines are indented by `depth` steps,
    /// except the first, which continues the surrounding line.
    explicit json_writer(int depth = 0) : line_end_(",\n" + std::string(spaces_of(depth), ' ')) {}

    void begin_object() { begin('{'); }
    void end_object() { end('}'); }
    void begin_array() { begin('['); }
    void end_array() { end(']'); }
    /// `name` must need no escapes.
    void key(std::string_view name);
    /// Invalid UTF-8 is replaced.
    void value(std::string_view text);
    void value(const char* text) { value(std::string_view(text)); }
    void value(bool truth);
    void value(std::int64_t number);
    void value(int number) { value(static_cast<std::int64_t>(number)); }
    /// A number that is not finite is written as null.
    void value(double number);
    void value(std::span<const double> numbers);
    void value(std::span<const std::string> texts);
    void null();
    /// Inserts JSON that another writer made for this depth.
    void raw(std::string_view text);
    template <class Value> void member(std::string_view name, const Value& content)
    {
        key(name);
        value(content);
    }

    /// An array with an object for each item; `write_members(item)` writes the members of one.
    template <class Items, class Write> void objects(const Items& items, Write write_members)
    {
        begin_array();
        for (const auto& item : items) {
            begin_object();
            write_members(item);
            end_object();
        }
        end_array();
    }
    template <class Items, class Write>
    void member_objects(std::string_view name, const Items& items, Write write_members)
    {
        key(name);
        objects(items, write_members);
    }

    void reserve(std::size_t bytes) { text_.reserve(bytes); }
    /// Takes the text; complete once everything that was begun has ended.
    std::string take() { return std::move(text_); }

private:
    static constexpr std::size_t step = 2;
    static std::size_t spaces_of(int depth) { return step * static_cast<std::size_t>(depth); }

    void begin(char bracket);
    void end(char bracket);
    void separate();

    std::string text_;
    /// A comma and a line break with the present indentation.
    std::string line_end_;
    /// Whether the next value is the first of its array or object.
    bool is_first_ = false;
    /// Whether the next value needs no separator: it is the only one or follows its key.
    bool stands_alone_ = true;
};

} // namespace kelvarin

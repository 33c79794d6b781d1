// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace kelvarin
{

/// Writes indented JSON straight into a text: the one writer of the program. Numbers have the fewest digits that give
/// the same double back.
///
/// Every array and object is closed by its `end`; within an object each value follows its key.
class json_writer
{
public:
    /// `depth` is that of the value among those around it: its lines are indented by so many steps, except
    /// the first, which stands where the writer of the surroundings put it.
    explicit json_writer(int depth = 0) : line_end_(",\n" + std::string(spaces_of(depth), ' ')) {}

    void begin_object() { begin('{'); }
    void end_object() { end('}'); }
    void begin_array() { begin('['); }
    void end_array() { end(']'); }
    /// A name that needs no escapes.
    void key(std::string_view name);
    /// Bytes that are no UTF-8 are replaced.
    void value(std::string_view text);
    void value(const char* text) { value(std::string_view(text)); }
    void value(bool truth);
    void value(std::int64_t number);
    void value(int number) { value(static_cast<std::int64_t>(number)); }
    /// One that is not finite is null.
    void value(double number);
    void value(std::span<const double> numbers);
    void value(std::span<const std::string> texts);
    void null();
    /// A text that another writer made at the depth of this place.
    void raw(std::string_view text);
    template <class Value> void member(std::string_view name, const Value& content)
    {
        key(name);
        value(content);
    }

    void reserve(std::size_t bytes) { text_.reserve(bytes); }
    /// The text, complete when everything that was begun is ended.
    std::string take() { return std::move(text_); }

private:
    static constexpr std::size_t step = 2;
    static std::size_t spaces_of(int depth) { return step * static_cast<std::size_t>(depth); }

    void begin(char bracket);
    void end(char bracket);
    void separate();

    std::string text_;
    /// A comma, and the line break with the indentation of this place.
    std::string line_end_;
    /// The next value is the first one of its array or object.
    bool is_first_ = false;
    /// A value stands alone or behind its key, not behind another one.
    bool stands_alone_ = true;
};

} // namespace kelvarin

// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelvarin
{

class evaluation_context;

/// What one evaluation of a text gives: a value, or the message of its failure.
struct solved_expression
{
    bool ok = false;
    double value = 0.0;
    std::string message;
    /// The builder met a text that no rule covers; a window would end the program here.
    bool fatal = false;
};

/// The variable store: named doubles in their order of insertion.
///
/// A name is interned once to a slot, and a slot stays for the life of the store: compiled trees bind to
/// slots, so that no name is compared while they are evaluated. A slot holds a variable if it was set
/// in the present filling, which has a number; `remove_all_vars` starts a new filling and so costs
/// nothing. Names are case-sensitive and not limited in number.
class clsParse
{
public:
    using slot = std::uint32_t;

    clsParse() = default;
    clsParse(const clsParse&) = delete;
    clsParse& operator=(const clsParse&) = delete;

    /// The value of the variable, or nothing.
    std::optional<double> get_var(std::string_view name) const;
    bool var_exists(std::string_view name) const { return get_var(name).has_value(); }
    /// Adds a variable under the trimmed name; false, and nothing changed, if the name is invalid or taken.
    bool Add_new_var(std::string_view name, double value);
    /// Sets the variable of the trimmed name, creating it if absent. The name is not checked.
    void modify_add_var_value(std::string_view name, double value);
    /// Removes the variable of exactly this name; false if there is none.
    bool Remove_var(std::string_view name);
    void remove_all_vars();
    int count_variables() const { return static_cast<int>(present_.size()); }
    /// The names present, in order of insertion.
    std::vector<std::string> get_all_vars() const;

    /// Evaluates a text that the checker has accepted, with a failure state of its own. `context` lends
    /// the generator behind `rand`; its failure state is clear afterwards.
    solved_expression Solve_expression(std::string_view text, evaluation_context& context);

    /// The slot of exactly this name, made where there is none yet. The slot alone is no variable.
    slot slot_of(std::string_view name);
    std::string_view slot_name(slot place) const { return names_[place]; }
    std::size_t slot_count() const { return values_.size(); }
    bool holds(slot place) const { return fillings_[place] == filling_; }
    /// The value of a slot that holds a variable.
    double value(slot place) const { return values_[place]; }
    void set(slot place, double value)
    {
        if (fillings_[place] != filling_) {
            fillings_[place] = filling_;
            present_.push_back(place);
        }
        values_[place] = value;
    }
    /// Removes the variable of a slot; false if it holds none.
    bool remove(slot place);

private:
    static constexpr slot no_slot = static_cast<slot>(-1);

    std::optional<slot> find(std::string_view name) const;
    /// The place among the buckets where the name's slot is, or where it would be.
    std::size_t bucket_of(std::string_view name) const;
    void grow_buckets();

    std::deque<std::string> names_;
    /// Open addressing over the slots' names: a power of two of places, at most half of them taken.
    std::vector<slot> buckets_;
    std::vector<double> values_;
    std::vector<std::uint64_t> fillings_;
    std::vector<slot> present_;
    std::uint64_t filling_ = 1;
};

} // namespace kelvarin

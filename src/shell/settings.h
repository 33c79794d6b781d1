// SPDX-License-Identifier: MIT
#pragma once

#include "platform/message_box.h"
#include "platform/registry_store.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kelvarin
{

enum class setting_type
{
    floating,
    integer,
    boolean,
    string
};

/// One line of the settings table.
struct setting_row
{
    std::string_view key;
    setting_type type = setting_type::floating;
    /// In the text form in which values are stored: "150", "1E-07", "True".
    std::string_view default_value;
    /// Bounds, both inclusive; 0 and unused for booleans and strings.
    double minimum_value = 0.0;
    double maximum_value = 0.0;
    /// Folders of the settings tree, outermost first, separated by " / "; folder and caption are empty if the tree does
    /// not show the setting.
    std::string_view folder;
    std::string_view caption;
    /// What the value does, in sentences; empty where the caption says it.
    std::string_view effect = {};
};

/// The 48 settings in table order.
std::span<const setting_row> settings_table();

/// The current values. Keys are case-insensitive; an unknown key is a programming error.
class settings
{
public:
    /// Sets all defaults.
    settings();
    /// The defaults, overridden by the values in the registry: `build_settings` with load_saved.
    explicit settings(const registry_store& saved);

    /// Overrides values by stored ones, without checking or converting them.
    void load_settings(const registry_store& saved);
    /// Writes every value to the registry (an empty text as one blank); the caller flushes it.
    void save_settings(registry_store& saved) const;

    /// The text of a value.
    const std::string& value(std::string_view key) const;
    /// The number at the beginning of the value; 0 if there is none or if it is too large.
    double number(std::string_view key) const;
    /// The same rounded to a whole number, halves to even, clamped to 16 bits.
    int whole_number(std::string_view key) const;
    bool is_true(std::string_view key) const;

    /// Checks and stores a text as the settings window does. Returns the box if it is refused; then nothing changes.
    std::optional<message_box> set_value(std::string_view key, std::string_view text);
    /// Restores the default.
    void restore(std::string_view key);
    void restore_all();

    /// The index of a key's row. Returns nullopt if there is none.
    static std::optional<std::size_t> find(std::string_view key);

private:
    std::vector<std::string> values_;
};

} // namespace kelvarin

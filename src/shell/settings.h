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
    /// In the text form in which values are kept: "150", "1E-07", "True".
    std::string_view default_value;
    /// Bounds, both included; 0 and unused for booleans and strings.
    double minimum_value = 0.0;
    double maximum_value = 0.0;
    /// Folders of the settings tree, outermost first, separated by " / "; empty with an empty caption where
    /// the tree does not show the setting.
    std::string_view folder;
    std::string_view caption;
};

/// The 48 settings in table order.
std::span<const setting_row> settings_table();

/// The values in force. Keys compare without case; a key that no row has is a programming error.
class settings
{
public:
    /// All defaults.
    settings();
    /// The defaults, overlaid by what the registry holds: `build_settings` with load_saved.
    explicit settings(const registry_store& saved);

    /// Overlays saved values; they are neither checked nor converted.
    void load_settings(const registry_store& saved);
    /// Writes every value to the registry (a blank text as one blank); the caller flushes it.
    void save_settings(registry_store& saved) const;

    /// The text of a value.
    const std::string& value(std::string_view key) const;
    /// A number by plain prefix reading; 0 where the value begins with none or with one too large.
    double number(std::string_view key) const;
    /// The same as a whole number, halves to the even neighbour, held within 16 bits.
    int whole_number(std::string_view key) const;
    bool is_true(std::string_view key) const;

    /// Stores a text as the settings window does after its checks; a refusal is the box to show, and
    /// nothing is changed.
    std::optional<message_box> set_value(std::string_view key, std::string_view text);
    /// Back to the default.
    void restore(std::string_view key);
    void restore_all();

    /// The index of a key's row, if there is one.
    static std::optional<std::size_t> find(std::string_view key);

private:
    std::vector<std::string> values_;
};

} // namespace kelvarin

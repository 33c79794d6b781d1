// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace kelvarin
{

enum class box_icon
{
    none,
    critical,
    question,
    exclamation,
    information
};

/// A part of a problem: a row (from 1) and a range of bytes in its text.
struct text_place
{
    int row = 0;
    std::size_t offset = 0;
    std::size_t length = 0;

    friend bool operator==(const text_place&, const text_place&) = default;
};

/// The field of an entry that a refusal is about.
enum class entry_field
{
    none,
    name,
    expression,
    /// The initial guess or value.
    value
};

inline constexpr const char* guide_title = "Kelvarin Guide";

/// A message to the user as a value: the core creates it, a front end shows it. Lines are separated by CR.
struct message_box
{
    std::string text;
    box_icon icon = box_icon::none;
    std::string title = guide_title;
    std::optional<text_place> place = std::nullopt;
    /// Whether the core detected an internal error: a program with windows ends after this box.
    bool fatal = false;
    /// The rows that the message is about, if they are several.
    std::vector<int> rows = {};
    entry_field field = entry_field::none;
};

} // namespace kelvarin

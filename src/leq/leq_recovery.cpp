// SPDX-License-Identifier: MIT
#include "leq/leq_recovery.h"

#include <nlohmann/json.hpp>

namespace kelvarin
{

namespace
{

using nlohmann::json;

/// Raised whenever a field changes its meaning, so that no older program misreads a newer one's text.
constexpr int recovery_format = 1;

} // namespace

std::string leq_recovery_text(const leq_content& content)
{
    const json text = {
        {"format", recovery_format}, {"title", content.title}, {"names", content.names}, {"cells", content.cells}};
    // Bytes that are no text must not keep the rest from being kept.
    return text.dump(1, ' ', false, json::error_handler_t::replace);
}

std::optional<leq_content> read_leq_recovery(std::string_view text)
try {
    const json kept = json::parse(text);
    if (kept.at("format").get<int>() != recovery_format) return std::nullopt;
    const auto names = kept.at("names").get<std::vector<std::string>>();
    const auto cells = kept.at("cells").get<std::vector<std::string>>();
    if (names.size() < least_leq_count || names.size() > largest_leq_count) return std::nullopt;
    leq_content content(static_cast<int>(names.size()));
    if (cells.size() != content.cells.size()) return std::nullopt;
    content.title = kept.at("title").get<std::string>();
    content.names = names;
    content.cells = cells;
    return content;
} catch (const json::exception&) {
    return std::nullopt;
}

} // namespace kelvarin

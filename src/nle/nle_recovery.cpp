// SPDX-License-Identifier: MIT
#include "nle/nle_recovery.h"

#include <nlohmann/json.hpp>

#include <utility>

namespace kelvarin
{

namespace
{

using nlohmann::json;

/// Raised whenever a field changes its meaning, so that no older program misreads a newer one's text.
constexpr int recovery_format = 1;

std::optional<nle_method> method_of(const json& number)
{
    for (int index = 0; index < static_cast<int>(nle_method_items.size()); ++index) {
        if (number == index) return static_cast<nle_method>(index);
    }
    return std::nullopt;
}

equation_row row_of(const json& row)
{
    return {row.at("equation").get<std::string>(), row.at("guess").get<std::string>(),
            row.at("comment").get<std::string>()};
}

} // namespace

std::string nle_recovery_text(const nle_content& content)
{
    json rows = json::array();
    for (const equation_row& row : content.rows)
        rows.push_back({{"equation", row.equation}, {"guess", row.guess}, {"comment", row.comment}});
    const json text = {{"format", recovery_format},
                       {"title", content.title},
                       {"method", static_cast<int>(content.method)},
                       {"rows", std::move(rows)},
                       {"lower_bound", content.lower_bound},
                       {"upper_bound", content.upper_bound}};
    // Bytes that are no text must not keep the rest from being kept.
    return text.dump(1, ' ', false, json::error_handler_t::replace);
}

std::optional<nle_content> read_nle_recovery(std::string_view text)
try {
    const json kept = json::parse(text);
    if (kept.at("format") != recovery_format) return std::nullopt;
    const std::optional<nle_method> method = method_of(kept.at("method"));
    if (!method) return std::nullopt;
    nle_content content;
    content.title = kept.at("title").get<std::string>();
    content.method = *method;
    for (const json& row : kept.at("rows"))
        content.rows.push_back(row_of(row));
    content.lower_bound = kept.at("lower_bound").get<std::string>();
    content.upper_bound = kept.at("upper_bound").get<std::string>();
    return content;
} catch (const json::exception&) {
    return std::nullopt;
}

} // namespace kelvarin

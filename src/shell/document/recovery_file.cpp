// SPDX-License-Identifier: MIT
#include "shell/document/recovery_file.h"

#include "platform/utf8.h"

#include <nlohmann/json.hpp>

#include <cstdint>

namespace kelvarin
{

namespace
{

using nlohmann::json;

/// Raised whenever a field changes its meaning, so that no older program misreads a newer one's file.
constexpr int recovery_format = 1;

/// A path is text as a rule, but the file system asks only for bytes, and JSON only takes text.
json path_json(const std::string& path)
{
    if (is_utf8(path)) return path;
    return std::vector<std::uint8_t>(path.begin(), path.end());
}

std::string path_of(const json& path)
{
    if (path.is_string()) return path.get<std::string>();
    std::string bytes;
    for (const json& byte : path)
        bytes += static_cast<char>(byte.get_ref<const json::number_unsigned_t&>());
    return bytes;
}

} // namespace

std::string recovery_file_text(const recovery_entry& entry)
{
    const json file = {{"format", recovery_format}, {"kind", entry.kind},
                       {"title", entry.title},      {"path", path_json(entry.path.string())},
                       {"kept_at", entry.kept_at},  {"content", entry.content}};
    // Bytes that are no text must not keep the rest from being kept.
    return file.dump(1, ' ', false, json::error_handler_t::replace) + '\n';
}

std::optional<recovery_entry> read_recovery_file(std::string_view text)
try {
    const json file = json::parse(text);
    if (file.at("format") != recovery_format) return std::nullopt;
    recovery_entry entry;
    entry.kind = file.at("kind").get<std::string>();
    entry.title = file.at("title").get<std::string>();
    entry.path = path_of(file.at("path"));
    entry.kept_at = file.at("kept_at").get_ref<const json::number_integer_t&>();
    entry.content = file.at("content").get<std::string>();
    return entry;
} catch (const json::exception&) {
    return std::nullopt;
}

} // namespace kelvarin

// SPDX-License-Identifier: MIT
#include "shell/document/recovery_file.h"

#include "platform/utf8.h"
#include "shell/document/json_value.h"
#include "shell/report/json_writer.h"

namespace kelvarin
{

namespace
{

/// To be raised when a field changes its meaning, so that an older program doesn't misread a newer file.
constexpr int recovery_format = 1;

/// A path may be any bytes, but JSON strings are UTF-8: a path that isn't is written as an array of its bytes.
void write_path(json_writer& file, const std::string& path)
{
    file.key("path");
    if (is_utf8(path)) return file.value(path);
    file.begin_array();
    for (const char byte : path)
        file.value(static_cast<int>(static_cast<unsigned char>(byte)));
    file.end_array();
}

std::string path_of(const json_value& path)
{
    if (path.is_text()) return path.text();
    constexpr int largest_byte = 255;
    std::string bytes;
    for (const json_value& byte : path.items())
        bytes += static_cast<char>(byte.whole_number(0, largest_byte));
    return bytes;
}

recovery_entry entry_of(const json_value& file)
{
    file.at("format").whole_number(recovery_format, recovery_format);
    recovery_entry entry;
    entry.kind = file.at("kind").text();
    entry.title = file.at("title").text();
    entry.path = path_of(file.at("path"));
    entry.kept_at = file.at("kept_at").whole_number();
    entry.content = file.at("content").text();
    return entry;
}

} // namespace

std::string recovery_file_text(const recovery_entry& entry)
{
    json_writer file;
    file.begin_object();
    file.member("format", recovery_format);
    file.member("kind", entry.kind);
    file.member("title", entry.title);
    write_path(file, entry.path.string());
    file.member("kept_at", entry.kept_at);
    file.member("content", entry.content);
    file.end_object();
    return file.take() + '\n';
}

std::optional<recovery_entry> read_recovery_file(std::string_view text)
{
    return read_json(text, entry_of);
}

} // namespace kelvarin

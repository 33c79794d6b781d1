// SPDX-License-Identifier: MIT
#pragma once

#include "platform/text_file.h"

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace kelvarin
{

/// The key of all stored values.
inline constexpr std::string_view registry_root = "Software\\WinKlvn";

/// Strings stored between sessions, each under a key (a path with backslashes) and a value name. Keys and value names
/// are case-insensitive.
class registry_store
{
public:
    virtual ~registry_store() = default;

    virtual std::optional<std::string> read(std::string_view key, std::string_view value_name) const = 0;
    virtual void write(std::string_view key, std::string_view value_name, std::string_view value) = 0;
    /// Makes written values durable; before this call nothing is stored. A failure is returned, not thrown.
    virtual std::optional<file_failure> flush() = 0;
};

/// A store without a file.
class memory_registry : public registry_store
{
public:
    std::optional<std::string> read(std::string_view key, std::string_view value_name) const override;
    void write(std::string_view key, std::string_view value_name, std::string_view value) override;
    std::optional<file_failure> flush() override { return std::nullopt; }

protected:
    struct entry
    {
        std::string key;
        std::string value_name;
        std::string value;
    };
    /// By key and value name in lower case.
    std::map<std::pair<std::string, std::string>, entry> entries_;
};

/// The store in one text file: a line `[key]`, then lines `value name=value`. Names and values have backslash escapes
/// for line ends, the backslash, "=" in names and bytes that are not valid UTF-8 (`\x07`); in keys the backslash is an
/// ordinary character and escapes are `%0A`. Any string is restored exactly. Other lines are ignored; a missing or
/// unreadable file is an empty store. `flush` merges the written values into the present content of the file, so that
/// two programs do not undo each other's values; it creates the file's folders, and fails rather than replace a file
/// that it cannot read.
class file_registry final : public memory_registry
{
public:
    explicit file_registry(std::filesystem::path file);

    void write(std::string_view key, std::string_view value_name, std::string_view value) override;
    std::optional<file_failure> flush() override;

private:
    /// Replaces the entries by those of the file. Fails and changes nothing if the file exists but cannot be read.
    std::optional<file_failure> load();
    std::string file_text() const;

    std::filesystem::path file_;
    std::map<std::pair<std::string, std::string>, entry> written_;
};

/// `$XDG_CONFIG_HOME/kelvarin/registry.txt`, with `~/.config` if the variable is not set.
std::filesystem::path default_registry_file();

} // namespace kelvarin

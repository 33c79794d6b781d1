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

/// The key under which the system keeps everything it remembers.
inline constexpr std::string_view registry_root = "Software\\WinKlvn";

/// Strings kept between sessions, each under a key (a path with backslashes) and a value name. Keys and
/// value names compare without case.
class registry_store
{
public:
    virtual ~registry_store() = default;

    virtual std::optional<std::string> read(std::string_view key, std::string_view value_name) const = 0;
    virtual void write(std::string_view key, std::string_view value_name, std::string_view value) = 0;
    /// Makes what was written durable; nothing is kept before this call. A failure is returned, not thrown.
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

/// The store in one text file: a line `[key]`, then lines `value name=value`. Names and values have backslash
/// escapes for line ends, the backslash, "=" in names and bytes that are no text (`\x07`); in keys the
/// backslash stands for itself and escapes are `%0A`. Any string comes back as it was. Lines that are neither
/// are kept out without harm; a missing or unreadable file is an empty store. `flush` merges what was written
/// here into the file as it stands by then, so that two programs do not undo each other's values; it makes
/// the file's folders, and fails rather than replace a file that it cannot read.
class file_registry final : public memory_registry
{
public:
    explicit file_registry(std::filesystem::path file);

    void write(std::string_view key, std::string_view value_name, std::string_view value) override;
    std::optional<file_failure> flush() override;

private:
    /// Takes the file's entries in place of those held; fails, and changes nothing, where there is a file that
    /// cannot be read.
    std::optional<file_failure> load();
    std::string file_text() const;

    std::filesystem::path file_;
    std::map<std::pair<std::string, std::string>, entry> written_;
};

/// `$XDG_CONFIG_HOME/kelvarin/registry.txt`, with `~/.config` where the variable is not set.
std::filesystem::path default_registry_file();

} // namespace kelvarin

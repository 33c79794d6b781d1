// SPDX-License-Identifier: MIT
#include "platform/registry_store.h"

#include "platform/letter_case.h"
#include "platform/posix_file.h"
#include "platform/saver.h"
#include "platform/uninterrupted.h"
#include "platform/user_folders.h"
#include "platform/utf8.h"

#include <chrono>
#include <cstddef>
#include <system_error>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace kelvarin
{

namespace
{

namespace fs = std::filesystem;

std::pair<std::string, std::string> entry_key(std::string_view key, std::string_view value_name)
{
    return {lower_case(key), lower_case(value_name)};
}

constexpr std::string_view hex_digits = "0123456789ABCDEF";

/// Whether a byte must be written as an escape: a mark followed by two hexadecimal digits. The mark is "%" in keys, so
/// that their backslashes stay readable, and "\x" in names and values, which also have "\n", "\r" and doubled
/// backslashes.
bool must_be_marked(char letter, bool bytes_are_text)
{
    const auto byte = static_cast<unsigned char>(letter);
    return byte < 0x20 || byte == 0x7F || (byte >= 0x80 && !bytes_are_text);
}

void append_hex(std::string& text, char letter)
{
    const auto byte = static_cast<unsigned char>(letter);
    text += hex_digits[byte >> 4];
    text += hex_digits[byte & 0x0F];
}

std::string escaped_key(std::string_view key)
{
    const bool bytes_are_text = is_utf8(key);
    std::string text;
    for (const char letter : key) {
        if (letter == '%' || must_be_marked(letter, bytes_are_text)) {
            text += '%';
            append_hex(text, letter);
        } else
            text += letter;
    }
    return text;
}

/// Escapes a value name (including "=", and "[" at its beginning, which would look like a key's line) or a value.
std::string escaped(std::string_view plain, bool is_name)
{
    const bool bytes_are_text = is_utf8(plain);
    std::string text;
    for (std::size_t at = 0; at < plain.size(); ++at) {
        const char letter = plain[at];
        if (letter == '\\')
            text += "\\\\";
        else if (letter == '\n')
            text += "\\n";
        else if (letter == '\r')
            text += "\\r";
        else if (is_name && (letter == '=' || (letter == '[' && at == 0))) {
            text += '\\';
            text += letter;
        } else if (must_be_marked(letter, bytes_are_text)) {
            text += "\\x";
            append_hex(text, letter);
        } else
            text += letter;
    }
    return text;
}

/// The byte of the two hexadecimal digits at the start of `text`. Returns nullopt if there are none.
std::optional<char> hex_byte(std::string_view text)
{
    if (text.size() < 2) return std::nullopt;
    const std::size_t high = hex_digits.find(text[0]);
    const std::size_t low = hex_digits.find(text[1]);
    if (high == std::string_view::npos || low == std::string_view::npos) return std::nullopt;
    return static_cast<char>(high << 4 | low);
}

std::string unescaped_key(std::string_view text)
{
    std::string key;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const std::optional<char> byte = text[at] == '%' ? hex_byte(text.substr(at + 1)) : std::nullopt;
        key += byte.value_or(text[at]);
        if (byte) at += 2;
    }
    return key;
}

/// Reverses `escaped`. A backslash that starts no valid escape is kept: the file may have been edited by hand.
std::string unescaped(std::string_view text)
{
    std::string plain;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char next = at + 1 < text.size() ? text[at + 1] : '\0';
        if (text[at] != '\\')
            plain += text[at];
        else if (next == '\\' || next == '=' || next == '[')
            plain += next, ++at;
        else if (next == 'n')
            plain += '\n', ++at;
        else if (next == 'r')
            plain += '\r', ++at;
        else if (const std::optional<char> byte = next == 'x' ? hex_byte(text.substr(at + 2)) : std::nullopt)
            plain += *byte, at += 3;
        else
            plain += '\\';
    }
    return plain;
}

/// The position of the "=" between name and value: the first one without a backslash before it.
std::size_t equals_sign(std::string_view line)
{
    for (std::size_t at = 0; at < line.size(); ++at) {
        if (line[at] == '=') return at;
        if (line[at] == '\\') ++at;
    }
    return std::string_view::npos;
}

/// Opens and locks the folder of the store against other programs that merge their values. It is tried for a quarter of
/// a second: without the lock the store works as well, but if two programs end at the same moment, values of one may be
/// lost.
posix_file locked_folder(const fs::path& folder)
{
    constexpr int tries = 25;
    constexpr std::chrono::milliseconds between_tries{10};
    const char* const name = folder.empty() ? "." : folder.c_str();
    posix_file lock(uninterrupted([&] { return ::open(name, O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
    for (int attempt = 0; lock.is_open() && attempt < tries; ++attempt) {
        if (uninterrupted([&] { return ::flock(lock.number(), LOCK_EX | LOCK_NB); }) == 0) break;
        std::this_thread::sleep_for(between_tries);
    }
    return lock;
}

} // namespace

std::optional<std::string> memory_registry::read(std::string_view key, std::string_view value_name) const
{
    const auto found = entries_.find(entry_key(key, value_name));
    if (found == entries_.end()) return std::nullopt;
    return found->second.value;
}

void memory_registry::write(std::string_view key, std::string_view value_name, std::string_view value)
{
    entries_[entry_key(key, value_name)] = {std::string(key), std::string(value_name), std::string(value)};
}

file_registry::file_registry(fs::path file) : file_(std::move(file))
{
    load();
}

void file_registry::write(std::string_view key, std::string_view value_name, std::string_view value)
{
    memory_registry::write(key, value_name, value);
    written_[entry_key(key, value_name)] = {std::string(key), std::string(value_name), std::string(value)};
}

std::optional<file_failure> file_registry::load()
{
    const text_file file = read_text_file(file_, bounds_of_configuration);
    std::error_code error;
    if (!file.ok() && fs::symlink_status(file_, error).type() != fs::file_type::not_found) return file.failure;
    entries_.clear();
    std::string key;
    for (std::string_view rest = file.text; !rest.empty();) {
        const std::string_view line = take_line(rest);
        if (line.starts_with('[') && line.ends_with(']')) {
            key = unescaped_key(line.substr(1, line.size() - 2));
            continue;
        }
        const std::size_t equals = equals_sign(line);
        if (equals == std::string_view::npos || line.starts_with('[')) continue;
        memory_registry::write(key, unescaped(line.substr(0, equals)), unescaped(line.substr(equals + 1)));
    }
    return std::nullopt;
}

std::string file_registry::file_text() const
{
    std::string text;
    const std::string* last_key = nullptr;
    for (const auto& [place, kept] : entries_) {
        if (last_key == nullptr || *last_key != place.first) text += '[' + escaped_key(kept.key) + "]\n";
        last_key = &place.first;
        text += escaped(kept.value_name, true) + '=' + escaped(kept.value, false) + '\n';
    }
    return text;
}

std::optional<file_failure> file_registry::flush()
{
    if (written_.empty()) return std::nullopt;
    std::error_code error;
    if (file_.has_parent_path() && fs::create_directories(file_.parent_path(), error))
        // Settings name files and folders, which are nobody else's business.
        fs::permissions(file_.parent_path(), fs::perms::owner_all, error);
    if (error) return file_failure{file_.parent_path(), error.message()};

    const posix_file lock = locked_folder(file_.parent_path());
    // An unreadable file must not be replaced by the values of this program alone.
    if (std::optional<file_failure> failed = load()) return failed;
    for (const auto& [place, kept] : written_)
        entries_[place] = kept;
    const bool is_new = !fs::exists(file_, error);
    if (std::optional<file_failure> failed = save_file(file_, file_text())) return failed;
    if (is_new) fs::permissions(file_, fs::perms::owner_read | fs::perms::owner_write, error);
    written_.clear();
    return std::nullopt;
}

fs::path default_registry_file()
{
    return user_config_folder() / "registry.txt";
}

} // namespace kelvarin

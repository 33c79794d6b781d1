// SPDX-License-Identifier: MIT
#include "shell/document/file_places.h"

#include "platform/text_file.h"

#include <system_error>

namespace kelvarin
{

namespace
{

namespace fs = std::filesystem;

std::string folders_key()
{
    return std::string(registry_root) + "\\folders";
}

bool is_refused_in_names(char letter)
{
    constexpr std::string_view refused = R"(/\:*?"<>|)";
    return static_cast<unsigned char>(letter) < 0x20 || letter == 0x7F ||
           refused.find(letter) != std::string_view::npos;
}

/// `text` cut to at most `size` bytes, between two characters.
std::string_view cut(std::string_view text, std::size_t size)
{
    if (text.size() <= size) return text;
    while (size > 0 && (static_cast<unsigned char>(text[size]) & 0xC0) == 0x80)
        --size;
    return text.substr(0, size);
}

} // namespace

fs::path last_folder(const registry_store& registry, std::string_view key)
{
    const fs::path folder = registry.read(folders_key(), std::string(key)).value_or("");
    std::error_code error;
    return fs::is_directory(folder, error) ? folder : fs::path();
}

void remember_folder(registry_store& registry, std::string_view key, const fs::path& file)
{
    std::error_code error;
    const fs::path path = fs::absolute(file, error);
    if (error || file.empty()) return;
    registry.write(folders_key(), std::string(key), path.lexically_normal().parent_path().native());
}

std::string file_name_of_title(std::string_view title, std::string_view extension)
{
    constexpr std::size_t longest = 80;
    std::string name;
    for (const char letter : title) {
        const char kept = is_refused_in_names(letter) ? ' ' : letter;
        if (kept != ' ' || !name.ends_with(' ')) name += kept;
    }
    // A dot in front would hide the file; some systems drop one at the end.
    std::string_view shown = trimmed(cut(name, longest));
    while (shown.starts_with('.') || shown.starts_with(' '))
        shown.remove_prefix(1);
    while (shown.ends_with('.') || shown.ends_with(' '))
        shown.remove_suffix(1);
    return shown.empty() ? std::string() : std::string(shown) + std::string(extension);
}

} // namespace kelvarin

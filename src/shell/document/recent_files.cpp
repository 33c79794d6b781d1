// SPDX-License-Identifier: MIT
#include "shell/document/recent_files.h"

#include "platform/letter_case.h"
#include "shell/general_lib.h"

#include <algorithm>
#include <optional>
#include <system_error>

namespace kelvarin
{

namespace
{

namespace fs = std::filesystem;

std::string key_of(std::string_view suffix)
{
    return std::string(registry_root) + std::string(suffix);
}

bool is_kept(const fs::path& path)
{
    constexpr std::size_t shortest = 3;
    std::error_code error;
    return path.native().size() >= shortest && path.is_absolute() && fs::exists(path, error) &&
           !fs::is_directory(path, error);
}

} // namespace

std::vector<fs::path> load_recent_files(const registry_store& registry, std::string_view suffix, std::size_t limit)
{
    const std::string key = key_of(suffix);
    std::vector<fs::path> files;
    for (std::size_t number = 1; number <= limit; ++number) {
        const fs::path path = registry.read(key, std::to_string(number)).value_or("");
        if (is_kept(path)) files.push_back(path);
    }
    return files;
}

void remember_recent_file(registry_store& registry, std::string_view suffix, const fs::path& path)
{
    std::error_code error;
    fs::path newest = fs::absolute(path, error);
    if (error || path.empty()) return;
    newest = newest.lexically_normal();

    std::vector<fs::path> files = load_recent_files(registry, suffix);
    std::erase(files, newest);
    files.insert(files.begin(), newest);
    // Registry values can't be deleted, so the remaining ones are set to empty.
    files.resize(recent_file_limit);
    const std::string key = key_of(suffix);
    for (std::size_t number = 1; number <= recent_file_limit; ++number)
        registry.write(key, std::to_string(number), files[number - 1].native());
}

std::string recent_file_caption(std::size_t number, const fs::path& path)
{
    std::string caption = "&" + std::to_string(number) + ' ';
    for (const char letter : shorten_path(lower_case(path.native()))) {
        caption += letter;
        if (letter == '&') caption += letter;
    }
    return caption;
}

} // namespace kelvarin

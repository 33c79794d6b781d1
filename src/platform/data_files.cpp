// SPDX-License-Identifier: MIT
#include "platform/data_files.h"

#include "platform/user_folders.h"

#include <algorithm>
#include <cstdlib>
#include <system_error>

namespace kelvarin
{

namespace
{

namespace fs = std::filesystem;

constexpr const char* program_folder_name = "kelvarin";

std::optional<fs::path> first_with(const std::vector<fs::path>& folders, std::string_view name, fs::file_type type)
{
    for (const fs::path& folder : folders) {
        const fs::path found = folder / name;
        std::error_code unknown;
        if (fs::status(found, unknown).type() == type) return found;
    }
    return std::nullopt;
}

} // namespace

std::vector<fs::path> data_folders()
{
    std::vector<fs::path> folders;
    std::error_code unknown;
    const fs::path program = fs::read_symlink("/proc/self/exe", unknown);
    if (!unknown) {
        folders.push_back(program.parent_path());
        folders.push_back(program.parent_path().parent_path() / "share" / program_folder_name);
    }
    folders.push_back(user_data_folder());
    const char* system_folders = std::getenv("XDG_DATA_DIRS");
    std::string_view rest = system_folders == nullptr ? "" : system_folders;
    if (rest.empty()) rest = "/usr/local/share:/usr/share";
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find(':'), rest.size());
        const fs::path folder = rest.substr(0, end);
        // The specification declares relative paths invalid.
        if (folder.is_absolute()) folders.push_back(folder / program_folder_name);
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return folders;
}

std::optional<fs::path> find_data_file(std::string_view name, const std::vector<fs::path>& folders)
{
    return first_with(folders, name, fs::file_type::regular);
}

std::optional<fs::path> find_data_folder(std::string_view name, const std::vector<fs::path>& folders)
{
    return first_with(folders, name, fs::file_type::directory);
}

} // namespace kelvarin

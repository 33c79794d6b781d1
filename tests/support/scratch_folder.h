// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace kelvarin::test
{

/// An empty folder of its own that is the current one while it lives, and is gone afterwards: names in
/// reports and messages are then the same on every machine.
class scratch_folder
{
public:
    scratch_folder() : before_(std::filesystem::current_path())
    {
        std::string name = (std::filesystem::temp_directory_path() / "kelvarin-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no scratch folder");
        path_ = name;
        std::filesystem::current_path(path_);
    }
    scratch_folder(const scratch_folder&) = delete;
    scratch_folder& operator=(const scratch_folder&) = delete;
    ~scratch_folder()
    {
        std::error_code ignored;
        std::filesystem::current_path(before_, ignored);
        std::filesystem::remove_all(path_, ignored);
    }

    const std::filesystem::path& path() const { return path_; }
    std::filesystem::path operator/(const std::string& name) const { return path_ / name; }

    /// Writes a file by plain means, without the program's own saver.
    std::filesystem::path write(const std::string& name, std::string_view content) const
    {
        std::ofstream(path_ / name, std::ios::binary) << content;
        return path_ / name;
    }
    std::string read(const std::string& name) const
    {
        std::ifstream file(path_ / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }
    bool holds(const std::string& name) const { return std::filesystem::exists(path_ / name); }
    /// The names of what is in it, sorted.
    std::vector<std::string> names() const
    {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(path_))
            names.push_back(entry.path().filename().string());
        std::ranges::sort(names);
        return names;
    }

private:
    std::filesystem::path before_;
    std::filesystem::path path_;
};

} // namespace kelvarin::test

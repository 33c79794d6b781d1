// SPDX-License-Identifier: MIT
#include "help/make/work_folder.h"

#include <cstdlib>
#include <stdexcept>
#include <string>
#include <system_error>

namespace kelvarin
{

namespace fs = std::filesystem;

work_folder::work_folder(const fs::path& examples) : before_(fs::current_path())
{
    std::string name = (fs::temp_directory_path() / "kelvarin-help-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("can not make a folder for the commands");
    folder_ = name;
    for (const fs::directory_entry& file : fs::directory_iterator(examples))
        if (file.is_regular_file()) fs::copy_file(file.path(), folder_ / file.path().filename());
    fs::current_path(folder_);
}

work_folder::~work_folder()
{
    std::error_code ignored;
    fs::current_path(before_, ignored);
    fs::remove_all(folder_, ignored);
}

} // namespace kelvarin

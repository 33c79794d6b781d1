// SPDX-License-Identifier: MIT
// Makes the parts of the help that the program itself knows anew, in place:
//
// kelvarin-make-help DOCS/HELP EXAMPLES
//
// and the manual pages in the folder "man" beside that of the help.
#include "help/make/made_parts.h"
#include "help/make/man_page.h"

#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <string>

namespace
{

namespace fs = std::filesystem;

void write_if_changed(const fs::path& path, const std::string& text)
{
    std::ifstream file(path, std::ios::binary);
    if (file && std::string{std::istreambuf_iterator<char>(file), {}} == text) return;
    std::ofstream(path, std::ios::binary) << text;
    std::cout << path.filename().string() << "\n";
}

void make_folder_anew(const fs::path& folder, const fs::path& examples)
{
    fs::create_directories(folder / "figures");
    std::map<std::string, std::string> pages;
    for (const fs::directory_entry& file : fs::directory_iterator(folder)) {
        if (file.path().extension() != ".md") continue;
        std::ifstream text(file.path(), std::ios::binary);
        const kelvarin::made_page page =
            kelvarin::make_page(std::string{std::istreambuf_iterator<char>(text), {}}, examples);
        write_if_changed(file.path(), page.markdown);
        pages[file.path().stem().string()] = page.markdown;
        for (const auto& [name, figure] : page.figures)
            write_if_changed(folder / "figures" / name, figure);
    }
    for (const auto& [name, text] : kelvarin::man_pages(pages))
        write_if_changed(folder.parent_path() / "man" / name, text);
}

} // namespace

int main(int argc, char** argv)
try {
    if (argc != 3) {
        std::cerr << "usage: kelvarin-make-help HELP_FOLDER EXAMPLES_FOLDER\n";
        return 2;
    }
    make_folder_anew(fs::absolute(argv[1]), fs::absolute(argv[2]));
    return 0;
} catch (const std::exception& failure) {
    std::cerr << "kelvarin-make-help: " << failure.what() << "\n";
    return 1;
}

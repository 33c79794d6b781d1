// SPDX-License-Identifier: MIT
#include "help/make/gallery.h"

#include <nlohmann/json.hpp>

#include <stdexcept>

namespace kelvarin
{

namespace
{

std::string upper(std::string text)
{
    for (char& letter : text)
        if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
    return text;
}

} // namespace

std::string gallery_table(const std::vector<std::string>& files,
                          const std::function<std::string(const std::string&)>& answer_of)
{
    std::string table = "| example | kind | method | problem |\n|---|---|---|---|\n";
    for (const std::string& file : files) {
        const auto answer = nlohmann::json::parse(answer_of(file), nullptr, false);
        if (!answer.is_object() || !answer.value("ok", false)) throw std::runtime_error(file + " is not solved");
        table += "| [" + file + "](../../examples/" + file + ") | " + upper(answer["kind"]) + " | " +
                 answer.value("method", std::string()) + " | " + answer.value("title", std::string()) + " |\n";
    }
    return table;
}

} // namespace kelvarin

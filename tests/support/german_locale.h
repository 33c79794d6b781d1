// SPDX-License-Identifier: MIT
#pragma once

#include <clocale>
#include <cstdlib>
#include <stdexcept>
#include <string>

namespace kelvarin::test
{

/// While it lives the C library writes decimal commas, from a locale that the build has made.
class german_locale
{
public:
    german_locale() : before_(std::setlocale(LC_ALL, nullptr))
    {
        ::setenv("LOCPATH", KELVARIN_LOCALES, 1);
        if (std::setlocale(LC_ALL, "de_DE.UTF-8") == nullptr) throw std::runtime_error("no German locale");
    }
    ~german_locale()
    {
        std::setlocale(LC_ALL, before_.c_str());
        ::unsetenv("LOCPATH");
    }
    german_locale(const german_locale&) = delete;
    german_locale& operator=(const german_locale&) = delete;

private:
    std::string before_;
};

} // namespace kelvarin::test

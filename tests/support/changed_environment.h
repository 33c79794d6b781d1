// SPDX-License-Identifier: MIT
#pragma once

#include <cstdlib>
#include <map>
#include <optional>
#include <string>

namespace kelvarin::test
{

/// Environment variables that are back as they were when it goes; without a value one is unset.
class changed_environment
{
public:
    using variables = std::map<std::string, std::optional<std::string>>;

    explicit changed_environment(const variables& changes)
    {
        for (const auto& [name, value] : changes) {
            const char* before = std::getenv(name.c_str());
            before_[name] = before ? std::optional<std::string>(before) : std::nullopt;
            set(name, value);
        }
    }
    changed_environment(const changed_environment&) = delete;
    changed_environment& operator=(const changed_environment&) = delete;
    ~changed_environment()
    {
        for (const auto& [name, value] : before_)
            set(name, value);
    }

private:
    static void set(const std::string& name, const std::optional<std::string>& value)
    {
        value ? ::setenv(name.c_str(), value->c_str(), 1) : ::unsetenv(name.c_str());
    }

    variables before_;
};

} // namespace kelvarin::test

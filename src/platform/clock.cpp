// SPDX-License-Identifier: MIT
#include "platform/clock.h"

#include <charconv>
#include <chrono>
#include <ctime>

namespace kelvarin
{

calendar_date system_clock::today() const
{
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    ::localtime_r(&now, &local);
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday};
}

std::int64_t system_clock::whole_seconds() const
{
    // steady_clock: a change of the computer's clock must not affect measured times.
    const auto since_start = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::seconds>(since_start).count();
}

std::optional<calendar_date> date_of_text(std::string_view text)
{
    const auto whole_number = [](std::string_view digits) -> std::optional<std::int64_t> {
        std::int64_t number = 0;
        const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), number);
        if (read.ec != std::errc() || read.ptr != digits.data() + digits.size() || number < 0) return std::nullopt;
        return number;
    };
    std::chrono::year_month_day date;
    if (text.size() == 10 && text[4] == '-' && text[7] == '-') {
        const auto year = whole_number(text.substr(0, 4));
        const auto month = whole_number(text.substr(5, 2));
        const auto day = whole_number(text.substr(8));
        if (!year || !month || !day) return std::nullopt;
        date = {std::chrono::year(static_cast<int>(*year)), std::chrono::month(static_cast<unsigned>(*month)),
                std::chrono::day(static_cast<unsigned>(*day))};
    } else {
        constexpr std::int64_t largest = std::int64_t{1} << 37;
        const auto seconds = whole_number(text.starts_with('@') ? text.substr(1) : text);
        if (!seconds || *seconds > largest) return std::nullopt;
        date = std::chrono::floor<std::chrono::days>(std::chrono::sys_seconds(std::chrono::seconds(*seconds)));
    }
    if (!date.ok()) return std::nullopt;
    return calendar_date{static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
                         static_cast<int>(static_cast<unsigned>(date.day()))};
}

} // namespace kelvarin

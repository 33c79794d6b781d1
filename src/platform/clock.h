// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstdint>
#include <optional>
#include <string_view>

namespace kelvarin
{

struct calendar_date
{
    int year = 0;
    int month = 0;
    int day = 0;
};

/// The core's source of date and time.
class wall_clock
{
public:
    virtual ~wall_clock() = default;

    virtual calendar_date today() const = 0;
    /// Whole seconds since some fixed moment: the resolution of reports.
    virtual std::int64_t whole_seconds() const = 0;
};

/// The computer's clock, in local time.
class system_clock final : public wall_clock
{
public:
    calendar_date today() const override;
    std::int64_t whole_seconds() const override;
};

/// A clock that advances only on request: for tests and reproducible output.
class fixed_clock final : public wall_clock
{
public:
    explicit fixed_clock(calendar_date date = {2026, 1, 2}, std::int64_t seconds = 0) : date_(date), seconds_(seconds)
    {
    }

    calendar_date today() const override { return date_; }
    std::int64_t whole_seconds() const override { return seconds_ += step_.load(); }
    /// From now on each call of whole_seconds advances the clock by `step` seconds.
    void advance_by(std::int64_t step) { step_ = step; }

private:
    calendar_date date_;
    mutable std::atomic<std::int64_t> seconds_;
    std::atomic<std::int64_t> step_ = 0;
};

/// The date in the text "2026-01-02", or of a number of seconds since 1970 in UTC ("@1767312000", or without the "@").
/// Returns nullopt for another text or a day that doesn't exist.
std::optional<calendar_date> date_of_text(std::string_view text);

} // namespace kelvarin

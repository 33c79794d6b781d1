// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

/// Interleaved measurement: every round times all contenders one after the other, and what counts is the
/// ratio within a round, so that a machine that slows down in between disturbs no result.
namespace kelvarin::bench
{

/// Keeps a value from being optimised away.
template <class T> inline void keep(const T& value)
{
    asm volatile("" : : "m"(value) : "memory");
}

struct contender
{
    std::string name;
    std::function<void()> run;
};

struct spread
{
    double lowest = 0.0;
    double median = 0.0;
    double highest = 0.0;
};

inline spread spread_of(std::vector<double> values)
{
    std::ranges::sort(values);
    return {values.front(), values[values.size() / 2], values.back()};
}

inline double seconds_of(const std::function<void()>& run, long repeats)
{
    const auto start = std::chrono::steady_clock::now();
    for (long i = 0; i < repeats; ++i)
        run();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// Repeats so that one timing takes about `wanted` seconds.
inline long repeats_for(const std::function<void()>& run, double wanted)
{
    long repeats = 1;
    double taken = seconds_of(run, repeats);
    while (taken < wanted / 4) {
        repeats *= 2;
        taken = seconds_of(run, repeats);
    }
    return std::max(1L, static_cast<long>(static_cast<double>(repeats) * wanted / taken));
}

/// time(contender) / time(reference) per round, for each contender.
inline std::vector<spread> ratios(const std::vector<contender>& contenders, const contender& reference, int rounds = 21,
                                  double seconds = 0.004)
{
    std::vector<long> repeats;
    for (const contender& each : contenders)
        repeats.push_back(repeats_for(each.run, seconds));
    const long reference_repeats = repeats_for(reference.run, seconds);
    std::vector<std::vector<double>> seen(contenders.size());
    for (int round = 0; round < rounds; ++round) {
        const double base = seconds_of(reference.run, reference_repeats) / static_cast<double>(reference_repeats);
        for (std::size_t i = 0; i < contenders.size(); ++i)
            seen[i].push_back(seconds_of(contenders[i].run, repeats[i]) / static_cast<double>(repeats[i]) / base);
    }
    std::vector<spread> result;
    for (const auto& values : seen)
        result.push_back(spread_of(values));
    return result;
}

} // namespace kelvarin::bench

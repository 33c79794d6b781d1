// SPDX-License-Identifier: MIT
#pragma once

#include <exception>
#include <string>
#include <string_view>

namespace kelvarin
{

/// Numbers of the run-time failures.
namespace failure_number
{
inline constexpr int invalid_argument = 5;
inline constexpr int overflow = 6;
inline constexpr int out_of_memory = 7;
inline constexpr int subscript = 9;
inline constexpr int division_by_zero = 11;
inline constexpr int type_mismatch = 13;
inline constexpr int numeric = 8888;
} // namespace failure_number

/// The description of a run-time failure: "Overflow" for 6. A number outside the table has the description "Unknown
/// failure".
std::string_view runtime_failure_text(int number);

/// The only exception of the core: a run-time fault or a numeric routine that failed. A run has one handler for it,
/// which shows number, description and detail.
class runtime_failure : public std::exception
{
public:
    explicit runtime_failure(int number, std::string detail = {});

    int number() const noexcept { return number_; }
    std::string_view description() const noexcept { return runtime_failure_text(number_); }
    /// The message of the failing numeric routine; empty for run-time faults.
    const std::string& detail() const noexcept { return detail_; }
    const char* what() const noexcept override { return what_.c_str(); }

private:
    int number_;
    std::string detail_;
    std::string what_;
};

/// What is said of `failure` where no handler knows more of it: "Out of memory" of std::bad_alloc, else the exception's
/// own text.
std::string failure_reason(const std::exception_ptr& failure);

/// Reports the failure of a numeric routine: throws runtime_failure 8888 with `text` as its detail.
[[noreturn]] void nrerror(std::string_view text);

} // namespace kelvarin

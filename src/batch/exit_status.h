// SPDX-License-Identifier: MIT
#pragma once

/// Exit statuses of the batch program; with several files the highest counts.
namespace kelvarin::exit_status
{
inline constexpr int every_file_reported = 0;
/// A run ended with a message in place of a report, or a calculator line failed.
inline constexpr int a_run_failed = 1;
/// Wrong usage, a file that cannot be read or written, a kind that is not solved.
inline constexpr int unusable = 2;
/// Ctrl+C: 128 + SIGINT.
inline constexpr int interrupted = 130;
} // namespace kelvarin::exit_status

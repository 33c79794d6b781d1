// SPDX-License-Identifier: MIT
#pragma once

/// How the batch program ends; of several files the highest counts.
namespace kelvarin::exit_status
{
inline constexpr int every_file_reported = 0;
/// A run ended with a message in place of a report, or a calculator line failed.
inline constexpr int a_run_failed = 1;
/// Wrong usage, a file that cannot be read or written, a kind that is not solved.
inline constexpr int unusable = 2;
/// Ctrl+C, as shells count it.
inline constexpr int interrupted = 130;
} // namespace kelvarin::exit_status

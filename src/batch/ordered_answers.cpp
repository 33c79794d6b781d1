// SPDX-License-Identifier: MIT
#include "batch/ordered_answers.h"

#include <algorithm>
#include <chrono>
#include <system_error>

namespace kelvarin
{

namespace
{

constexpr std::chrono::milliseconds time_between_looks{100};

} // namespace

ordered_answers::ordered_answers(std::size_t count, int jobs, answer_function answer, run_listener& program)
    : answer_(std::move(answer)), program_(program)
{
    const std::size_t threads = std::min(count, static_cast<std::size_t>(std::max(jobs, 1)));
    if (threads < 2) return;
    for (std::size_t i = 0; i < count; ++i)
        entries_.emplace_back(program);
    threads_.reserve(threads);
    try {
        for (std::size_t i = 0; i < threads; ++i)
            threads_.emplace_back([this] { work(); });
    } catch (const std::system_error&) {
        // The system allows no more threads: those that run do the work, else `next` does it.
    }
}

ordered_answers::~ordered_answers()
{
    over_ = true;
    for (std::thread& thread : threads_)
        thread.join();
}

void ordered_answers::work()
{
    while (!over_ && !program_.stop_asked()) {
        const std::size_t file = started_++;
        if (file >= entries_.size()) return;
        entry& own = entries_[file];
        std::optional<file_answer> made;
        std::exception_ptr failure;
        try {
            made = answer_(file, own);
        } catch (...) {
            failure = std::current_exception();
        }
        const std::lock_guard lock(mutex_);
        own.answer = std::move(made);
        own.failure = failure;
        answered_.notify_one();
    }
}

file_answer ordered_answers::next(run_listener& progress)
{
    const std::size_t file = given_++;
    if (threads_.empty()) return answer_(file, progress);

    entry& wanted = entries_[file];
    std::unique_lock lock(mutex_);
    while (!wanted.answer && !wanted.failure) {
        if (program_.stop_asked() && file >= started_) return {.stopped = true};
        answered_.wait_for(lock, time_between_looks);
        progress.fraction_done(wanted.fraction.load(std::memory_order_relaxed));
    }
    if (wanted.failure) std::rethrow_exception(wanted.failure);
    return std::move(*wanted.answer);
}

} // namespace kelvarin

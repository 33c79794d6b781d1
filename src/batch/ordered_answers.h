// SPDX-License-Identifier: MIT
#pragma once

#include "batch/file_answer.h"
#include "platform/run_listener.h"

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <exception>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace kelvarin
{

/// Answers files on several threads and returns the answers in the order of the files, so that the output doesn't
/// depend on the number of threads.
class ordered_answers
{
public:
    /// Answers one file; called from several threads at the same time.
    using answer_function = std::function<file_answer(std::size_t file, run_listener& listener)>;

    /// Starts min(jobs, count) threads, or none for one job. `program` can ask all runs to stop.
    ordered_answers(std::size_t count, int jobs, answer_function answer, run_listener& program);
    ordered_answers(const ordered_answers&) = delete;
    ordered_answers& operator=(const ordered_answers&) = delete;
    /// Starts no further file and waits for those in progress.
    ~ordered_answers();

    /// The answer of the next file in order. While waiting, reports the file's fraction to `progress` in the calling
    /// thread. Rethrows an exception of the answering function.
    file_answer next(run_listener& progress);

private:
    /// One file in progress or done. Forwards the request to stop from the program.
    struct entry final : run_listener
    {
        explicit entry(run_listener& program) : program_(program) {}
        void fraction_done(double done) override { fraction.store(done, std::memory_order_relaxed); }
        bool stop_asked() const override { return program_.stop_asked(); }

        run_listener& program_;
        std::atomic<double> fraction = 0.0;
        std::optional<file_answer> answer;
        std::exception_ptr failure;
    };

    void work();

    answer_function answer_;
    run_listener& program_;
    std::deque<entry> entries_;
    std::size_t given_ = 0;
    std::atomic<std::size_t> started_ = 0;
    std::atomic<bool> over_ = false;
    std::mutex mutex_;
    std::condition_variable answered_;
    std::vector<std::thread> threads_;
};

} // namespace kelvarin

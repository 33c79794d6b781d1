// SPDX-License-Identifier: MIT
#include "desktop/away_job.h"

#include <QApplication>
#include <QEventLoop>
#include <QProgressDialog>
#include <QTimer>

#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>

namespace kelvarin
{

namespace
{

using namespace std::chrono_literals;

/// Shared by the caller and the thread, either of which may be the last.
class away_job
{
public:
    explicit away_job(std::function<void(run_listener&)> work) : work_(std::move(work)) {}

    void run()
    {
        try {
            work_(listener_);
        } catch (...) {
            failure_ = std::current_exception();
        }
        const std::lock_guard lock(mutex_);
        ended_ = true;
        end_.notify_all();
    }
    void stop() { listener_.ask_to_stop(); }
    /// Whether it ends within that time.
    bool ends_within(std::chrono::milliseconds time)
    {
        std::unique_lock lock(mutex_);
        return end_.wait_for(lock, time, [this] { return ended_; });
    }
    /// Of a job that has ended.
    const std::exception_ptr& failure() const { return failure_; }

private:
    std::function<void(run_listener&)> work_;
    recording_listener listener_;
    std::mutex mutex_;
    std::condition_variable end_;
    bool ended_ = false;
    std::exception_ptr failure_;
};

/// Shows a box with Stop until the job ends or is stopped.
void show_box_during(away_job& job, QWidget* parent, const QString& text)
{
    constexpr std::chrono::milliseconds between_looks = 20ms;
    QWidget* const over = parent && parent->isVisible() ? parent->window() : QApplication::activeWindow();
    QProgressDialog box(text, QObject::tr("Stop"), 0, 0, over);
    box.setObjectName(QStringLiteral("frmWait"));
    box.setWindowModality(over ? Qt::WindowModal : Qt::ApplicationModal);
    box.setMinimumDuration(0);
    QEventLoop loop;
    QTimer looks;
    QObject::connect(&box, &QProgressDialog::canceled, &loop, &QEventLoop::quit);
    QObject::connect(&looks, &QTimer::timeout, &loop, [&] {
        if (job.ends_within(0ms)) loop.quit();
    });
    looks.start(between_looks);
    box.show();
    loop.exec();
}

} // namespace

bool wait_for_work(QWidget* parent, const QString& text, std::function<void(run_listener&)> work)
{
    constexpr std::chrono::milliseconds before_box = 100ms;
    constexpr std::chrono::milliseconds until_left_alone = 200ms;
    const auto job = std::make_shared<away_job>(std::move(work));
    std::thread worker;
    try {
        worker = std::thread([job] { job->run(); });
    } catch (const std::system_error&) {
        // The system allows no more threads: better a window that waits than no outcome.
        job->run();
    }
    if (!job->ends_within(before_box)) show_box_during(*job, parent, text);
    const bool stopped = !job->ends_within(0ms);
    if (stopped) job->stop();
    if (!job->ends_within(until_left_alone)) {
        // What waits for a disk or a network can't be ended.
        worker.detach();
        return false;
    }
    if (worker.joinable()) worker.join();
    if (job->failure()) std::rethrow_exception(job->failure());
    return !stopped;
}

} // namespace kelvarin

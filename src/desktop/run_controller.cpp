// SPDX-License-Identifier: MIT
#include "desktop/run_controller.h"

#include "desktop/qt_text.h"
#include "platform/runtime_failure.h"

#include <system_error>

namespace kelvarin
{

namespace
{

constexpr int progress_interval_ms = 50;

} // namespace

run_controller::run_controller(QObject* parent) : QObject(parent), listener_(std::make_unique<recording_listener>())
{
    progress_timer_.setInterval(progress_interval_ms);
    connect(&progress_timer_, &QTimer::timeout, this, [this] { emit progressed(fraction()); });
}

run_controller::~run_controller()
{
    listener_->ask_to_stop();
    if (worker_.joinable()) worker_.join();
}

void run_controller::stop()
{
    listener_->ask_to_stop();
}

void run_controller::start_job(std::function<void(run_listener&)> job, std::function<void()> done)
{
    if (running_) return;
    // Each job has its own listener, so that a request to stop never reaches the next job.
    listener_ = std::make_unique<recording_listener>();
    running_ = true;
    progress_timer_.start();
    emit started();
    const auto work = [this, job = std::move(job), done = std::move(done), listener = listener_.get()] {
        std::exception_ptr failure;
        try {
            job(*listener);
        } catch (...) {
            failure = std::current_exception();
        }
        // The destructor waits for this thread; a call queued for a destroyed object is dropped.
        QMetaObject::invokeMethod(
            this, [this, done, failure] { end_job(done, failure); }, Qt::QueuedConnection);
    };
    try {
        worker_ = std::thread(work);
    } catch (const std::system_error&) {
        // The system allows no more threads: better a window that waits than no result.
        work();
    }
}

void run_controller::end_job(const std::function<void()>& done, const std::exception_ptr& failure)
{
    if (worker_.joinable()) worker_.join();
    progress_timer_.stop();
    running_ = false;
    emit finished();
    // `done` may close the window and destroy this object.
    const QPointer<run_controller> self(this);
    if (failure)
        emit failed(to_qstring(failure_reason(failure)));
    else
        done();
    if (self) emit handed_over();
}

} // namespace kelvarin

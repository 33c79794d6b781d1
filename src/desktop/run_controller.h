// SPDX-License-Identifier: MIT
#pragma once

#include "platform/run_listener.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <QTimer>

#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <thread>
#include <type_traits>
#include <utility>

namespace kelvarin
{

/// Runs one job at a time in a thread of its own, so that the window stays responsive. The job uses only its own data
/// and its listener; its result is handed over in the window's thread.
class run_controller : public QObject
{
    Q_OBJECT

public:
    explicit run_controller(QObject* parent);
    /// Asks a running job to stop and waits for it; its outcome is discarded.
    ~run_controller() override;

    bool running() const { return running_; }
    double fraction() const { return listener_->fraction(); }
    /// Asks the job to stop; it ends soon after with an outcome.
    void stop();

    /// Starts `job(listener)`; `done(outcome)` is called when it has ended, after finished(). Does nothing if a job is
    /// under way.
    template <class Job, class Done> void start(Job job, Done done)
    {
        using outcome = std::invoke_result_t<Job, run_listener&>;
        auto result = std::make_shared<std::optional<outcome>>();
        start_job([job = std::move(job), result](run_listener& listener) { *result = job(listener); },
                  [done = std::move(done), result] { done(std::move(**result)); });
    }

signals:
    void started();
    /// Up to 20 times a second while a job is under way.
    void progressed(double fraction);
    /// The job has failed in a way that it has no outcome for; the reason. Comes after finished(), in place of the
    /// outcome.
    void failed(const QString& reason);
    /// The job has ended; its outcome is handed over next.
    void finished();
    /// The outcome was handed over.
    void handed_over();

private:
    void start_job(std::function<void(run_listener&)> job, std::function<void()> done);
    void end_job(const std::function<void()>& done, const std::exception_ptr& failure);

    std::unique_ptr<recording_listener> listener_;
    std::thread worker_;
    QTimer progress_timer_;
    bool running_ = false;
};

} // namespace kelvarin

// SPDX-License-Identifier: MIT
#include "desktop/recovery_keeper.h"

#include "desktop/qt_text.h"
#include "platform/runtime_failure.h"

#include <algorithm>
#include <exception>
#include <system_error>
#include <utility>

namespace kelvarin
{

namespace
{

using namespace std::chrono_literals;

/// Long enough not to write at every key, short enough to lose little typing.
constexpr std::chrono::milliseconds shortest_pause = 500ms;
constexpr std::chrono::milliseconds longest_pause = 2s;
/// The pause after a copy is this many times longer than the copy took.
constexpr int pause_per_time = 4;

} // namespace

recovery_keeper::recovery_keeper(recovery_store& store, snapshot_taker take_snapshot, QObject* parent)
    : QObject(parent), store_(store), take_snapshot_(std::move(take_snapshot))
{
    timer_.setSingleShot(true);
    timer_.setInterval(shortest_pause);
    connect(&timer_, &QTimer::timeout, this, &recovery_keeper::keep);
}

recovery_keeper::~recovery_keeper()
{
    wait_for_writer();
}

void recovery_keeper::document_changed()
{
    changed_meanwhile_ = true;
    // Not started anew by each change: while changes keep coming, a copy is still due.
    if (!writing_ && !timer_.isActive()) timer_.start();
}

std::function<recovery_keeper::written_copy()> recovery_keeper::next_copy()
{
    const std::optional<entry_maker> make_entry = take_snapshot_();
    if (!make_entry) return nullptr;
    if (slot_ == 0) slot_ = store_.new_slot();
    if (!dropped_) dropped_ = std::make_shared<std::atomic<bool>>(false);
    changed_meanwhile_ = false;
    return [&store = store_, make_entry = *make_entry, slot = slot_, dropped = dropped_] {
        const auto start = std::chrono::steady_clock::now();
        written_copy copy;
        try {
            const recovery_entry entry = make_entry();
            if (!*dropped) copy.failure = store.keep(slot, entry);
        } catch (...) {
            copy.failure = file_failure{{}, failure_reason(std::current_exception())};
        }
        // Whoever drops it sets the mark before the file is removed, so that one of the two removes it.
        if (*dropped) store.drop(slot);
        copy.time = std::chrono::steady_clock::now() - start;
        return copy;
    };
}

void recovery_keeper::keep()
{
    const std::function<written_copy()> write = next_copy();
    if (!write) return drop();
    wait_for_writer();
    writing_ = true;
    const auto work = [this, write, number = ++copy_] {
        const written_copy copy = write();
        // The destructor waits for this thread; a call queued for a destroyed object is dropped.
        QMetaObject::invokeMethod(
            this,
            [this, copy, number] {
                if (writing_ && number == copy_) take_result(copy);
            },
            Qt::QueuedConnection);
    };
    try {
        writer_ = std::thread(work);
    } catch (const std::system_error&) {
        // The system allows no more threads: better a pause in typing than no copy.
        work();
    }
}

void recovery_keeper::keep_now()
{
    timer_.stop();
    wait_for_writer();
    if (const std::function<written_copy()> write = next_copy())
        take_result(write());
    else
        drop();
}

void recovery_keeper::drop()
{
    timer_.stop();
    changed_meanwhile_ = false;
    if (dropped_) *dropped_ = true;
    dropped_.reset();
    if (slot_ != 0) store_.drop(std::exchange(slot_, 0));
}

void recovery_keeper::take_result(const written_copy& copy)
{
    writing_ = false;
    const auto pause = std::chrono::duration_cast<std::chrono::milliseconds>(copy.time * pause_per_time);
    timer_.setInterval(std::clamp(pause, shortest_pause, longest_pause));
    if (changed_meanwhile_) timer_.start();
    // Nobody misses a copy of what was saved or closed meanwhile.
    if (copy.failure && slot_ != 0) emit failed(to_qstring(copy.failure->reason));
}

void recovery_keeper::wait_for_writer()
{
    if (writer_.joinable()) writer_.join();
    writing_ = false;
}

} // namespace kelvarin

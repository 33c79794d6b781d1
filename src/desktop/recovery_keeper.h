// SPDX-License-Identifier: MIT
#pragma once

#include "shell/document/recovery.h"

#include <QObject>
#include <QString>
#include <QTimer>

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <thread>

namespace kelvarin
{

/// Keeps the recovery copy of one document: half a second after the first change, and while changes go on at least
/// every two seconds. Copies are made and written in a thread of their own, so that neither a large document nor a slow
/// disk is felt while typing.
class recovery_keeper : public QObject
{
    Q_OBJECT

public:
    /// Makes the entry of a copy, from its own snapshot of the document; called in any thread.
    using entry_maker = std::function<recovery_entry()>;
    /// Takes a snapshot of the document; nullopt if there is nothing to be kept. Called in the window's thread.
    using snapshot_taker = std::function<std::optional<entry_maker>()>;

    recovery_keeper(recovery_store& store, snapshot_taker take_snapshot, QObject* parent);
    /// Waits for a copy that is being written. What was kept stays, unless it was dropped.
    ~recovery_keeper() override;

    /// Goes on with a copy that is stored already.
    void take_over(int slot) { slot_ = slot; }
    /// To be called after every change of the document.
    void document_changed();
    /// Keeps a copy before it returns, or drops the present one if there is nothing to be kept.
    void keep_now();
    /// Removes the copy, also one that is just being written.
    void drop();

signals:
    /// A copy could not be kept.
    void failed(const QString& reason);

private:
    struct written_copy
    {
        std::optional<file_failure> failure;
        std::chrono::steady_clock::duration time;
    };

    /// Starts writing a copy in a thread of its own, or drops the present one if there is nothing to be kept.
    void keep();
    /// What writes the copy of the present document, in any thread; null if there is nothing to be kept.
    std::function<written_copy()> next_copy();
    void take_result(const written_copy& copy);
    void wait_for_writer();

    recovery_store& store_;
    snapshot_taker take_snapshot_;
    QTimer timer_;
    std::thread writer_;
    int slot_ = 0;
    /// Set when the copy in the present slot is not wanted any more.
    std::shared_ptr<std::atomic<bool>> dropped_;
    /// The number of the copy that is being written, or was last.
    int copy_ = 0;
    bool writing_ = false;
    /// The document has changed since the copy that is being written.
    bool changed_meanwhile_ = false;
};

} // namespace kelvarin

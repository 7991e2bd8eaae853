// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A thread that works on frames, and the short queue before it.
#pragma once

#include <QtCore/QtGlobal>

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

class CxImageData;

namespace vistrel {

/// Takes frames over.
using FrameFunction = std::function<void(std::unique_ptr<CxImageData>)>;

/// Whoever has a frame hands it in and goes on at once: when the work is slower than the frames
/// come, whole frames are dropped and counted. So are those for which there is no memory or no
/// thread, and those that the work throws at; the first of them is logged. The thread is there from
/// the first frame after a start to the next stop.
///
/// start(), stop() and drain() belong to one thread; the rest may be called on any.
class FrameWorker {
public:
    /// Which frame is dropped when the queue is full.
    enum class WhenFull { DropOldest, RefuseNewest };

    /// @param capacity  frames that wait at most, besides the one under way.
    /// @param work      called with every frame, in the order in which they came, on the worker's
    ///                  thread.
    FrameWorker(std::size_t capacity, WhenFull whenFull, FrameFunction work);
    /// Stops.
    ~FrameWorker();
    FrameWorker(const FrameWorker&) = delete;
    FrameWorker& operator=(const FrameWorker&) = delete;

    void start();
    /// Drops the frames that wait and returns when the one under way is done. Frames that come
    /// after that are dropped.
    void stop();
    /// Returns when all frames are done that were handed in before.
    void drain();

    void put(std::unique_ptr<CxImageData> frame) noexcept;
    /// Whether a frame handed in now would find room.
    bool hasRoom() const;
    /// Returns when a frame handed in now would find room, when it would be dropped in any case, or
    /// when that time is over.
    void waitForRoom(std::chrono::milliseconds atMost);
    /// Frames that were handed in and not worked on.
    quint64 dropped() const;

private:
    bool queue(std::unique_ptr<CxImageData>& frame);
    void tryToWork(std::unique_ptr<CxImageData> frame) noexcept;
    void countTrouble(const char* reason) noexcept;
    quint64 oldestOpen() const;
    void run();

    const std::size_t m_capacity;
    const WhenFull m_whenFull;
    const FrameFunction m_work;

    mutable std::mutex m_mutex; // guards what follows
    std::condition_variable m_changed;
    std::deque<std::unique_ptr<CxImageData>> m_waiting;
    std::thread m_thread;
    bool m_started = false;
    quint64 m_queued = 0;              ///< frames that have ever been in the queue: their numbers
    std::optional<quint64> m_underWay; ///< number of the frame that is being worked on
    quint64 m_dropped = 0;
    bool m_troubleLogged = false;
};

} // namespace vistrel

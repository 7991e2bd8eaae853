// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A thread that works on frames, and the short queue before it.
#include "chains/FrameWorker.h"

#include "core/Log.h"

#include <CxImageData.h>

#include <algorithm>
#include <exception>
#include <utility>

namespace vistrel {

FrameWorker::FrameWorker(std::size_t capacity, WhenFull whenFull, FrameFunction work)
    : m_capacity(capacity)
    , m_whenFull(whenFull)
    , m_work(std::move(work))
{
}

FrameWorker::~FrameWorker() { stop(); }

void FrameWorker::start()
{
    const std::scoped_lock lock(m_mutex);
    m_started = true;
}

void FrameWorker::stop()
{
    std::thread thread;
    std::deque<std::unique_ptr<CxImageData>> waiting; // freed after the lock
    {
        const std::scoped_lock lock(m_mutex);
        m_started = false;
        m_dropped += m_waiting.size();
        m_waiting.swap(waiting);
        thread.swap(m_thread);
    }
    m_changed.notify_all();
    if (thread.joinable())
        thread.join();
}

void FrameWorker::drain()
{
    std::unique_lock lock(m_mutex);
    const quint64 end = m_queued; // others may hand in for ever
    m_changed.wait(lock, [this, end] { return oldestOpen() >= end; });
}

// A camera's thread, on which an exception would end the process.
void FrameWorker::put(std::unique_ptr<CxImageData> frame) noexcept
{
    try {
        if (queue(frame))
            m_changed.notify_all();
    } catch (const std::exception& trouble) {
        countTrouble(trouble.what());
    }
}

/// Puts a frame into the queue or drops it; whether it did the former. What is to be freed after
/// the lock is left in the parameter.
bool FrameWorker::queue(std::unique_ptr<CxImageData>& frame)
{
    const std::scoped_lock lock(m_mutex);
    const bool isFull = m_waiting.size() >= m_capacity;
    if (!m_started || (isFull && m_whenFull == WhenFull::RefuseNewest)) {
        ++m_dropped;
        return false;
    }
    if (!m_thread.joinable()) // first: a frame without a thread would wait for ever
        m_thread = std::thread(&FrameWorker::run, this);
    if (isFull) {
        m_waiting.front().swap(frame);
        std::rotate(m_waiting.begin(), m_waiting.begin() + 1, m_waiting.end());
        ++m_dropped;
    } else {
        m_waiting.push_back(std::move(frame));
    }
    ++m_queued;
    return true;
}

bool FrameWorker::hasRoom() const
{
    const std::scoped_lock lock(m_mutex);
    return m_started && m_waiting.size() < m_capacity;
}

void FrameWorker::waitForRoom(std::chrono::milliseconds atMost)
{
    std::unique_lock lock(m_mutex);
    m_changed.wait_for(lock, atMost,
                       [this] { return !m_started || m_waiting.size() < m_capacity; });
}

quint64 FrameWorker::dropped() const
{
    const std::scoped_lock lock(m_mutex);
    return m_dropped;
}

void FrameWorker::tryToWork(std::unique_ptr<CxImageData> frame) noexcept
{
    try {
        m_work(std::move(frame));
    } catch (const std::exception& trouble) {
        countTrouble(trouble.what());
    } catch (...) {
        countTrouble("unknown error");
    }
}

void FrameWorker::countTrouble(const char* reason) noexcept
{
    {
        const std::scoped_lock lock(m_mutex);
        ++m_dropped;
        if (std::exchange(m_troubleLogged, true))
            return;
    }
    try {
        logError(QStringLiteral("Pictures are dropped: %1").arg(QString::fromLocal8Bit(reason)));
    } catch (...) { // without memory for the line the count alone tells of it
    }
}

/// The number of the first frame that is not done; of the next to come when all are.
quint64 FrameWorker::oldestOpen() const { return m_underWay.value_or(m_queued - m_waiting.size()); }

void FrameWorker::run()
{
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_changed.wait(lock, [this] { return !m_started || !m_waiting.empty(); });
        if (!m_started)
            return;
        m_underWay = oldestOpen();
        std::unique_ptr<CxImageData> frame = std::move(m_waiting.front());
        m_waiting.pop_front();
        m_changed.notify_all(); // there is room
        lock.unlock();
        tryToWork(std::move(frame));
        lock.lock();
        m_underWay.reset();
        m_changed.notify_all();
    }
}

} // namespace vistrel

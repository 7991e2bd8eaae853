// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A thread that works on frames, and the short queue before it.
#include "chains/FrameWorker.h"

#include <CxImageData.h>

#include <algorithm>
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
    m_changed.wait(lock, [this] { return m_waiting.empty() && !m_busy; });
}

void FrameWorker::put(std::unique_ptr<CxImageData> frame)
{
    const std::scoped_lock lock(m_mutex);
    const bool isFull = m_waiting.size() >= m_capacity;
    if (!m_started || (isFull && m_whenFull == WhenFull::RefuseNewest)) {
        ++m_dropped;
        return;
    }
    if (isFull) {
        m_waiting.front().swap(frame); // the old one goes after the lock, with the parameter
        std::rotate(m_waiting.begin(), m_waiting.begin() + 1, m_waiting.end());
        ++m_dropped;
    } else {
        m_waiting.push_back(std::move(frame));
    }
    if (!m_thread.joinable())
        m_thread = std::thread(&FrameWorker::run, this);
    m_changed.notify_all();
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

void FrameWorker::run()
{
    std::unique_lock lock(m_mutex);
    for (;;) {
        m_changed.wait(lock, [this] { return !m_started || !m_waiting.empty(); });
        if (!m_started)
            return;
        std::unique_ptr<CxImageData> frame = std::move(m_waiting.front());
        m_waiting.pop_front();
        m_busy = true;
        m_changed.notify_all(); // there is room
        lock.unlock();
        m_work(std::move(frame));
        lock.lock();
        m_busy = false;
        m_changed.notify_all();
    }
}

} // namespace vistrel

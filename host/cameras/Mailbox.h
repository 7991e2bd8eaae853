// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The way from any thread to an object's own, for as long as the object is there.
#pragma once

#include <QtCore/QObject>

#include <functional>
#include <mutex>
#include <utility>

namespace vistrel {

/// Shared between the object and those who write to it, who may live longer. Any thread.
class Mailbox {
public:
    explicit Mailbox(QObject& receiver)
        : m_receiver(&receiver)
    {
    }

    /// Lets the receiver's thread make a call from its event loop; nothing happens when the
    /// receiver is gone, or goes before.
    void post(std::function<void()> call)
    {
        const std::scoped_lock lock(m_mutex);
        if (m_receiver)
            QMetaObject::invokeMethod(m_receiver, std::move(call), Qt::QueuedConnection);
    }
    /// The receiver goes.
    void close()
    {
        const std::scoped_lock lock(m_mutex);
        m_receiver = nullptr;
    }

private:
    std::mutex m_mutex;
    QObject* m_receiver;
};

} // namespace vistrel

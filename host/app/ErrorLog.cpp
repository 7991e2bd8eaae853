// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A message handler in front of another one.
#include "app/ErrorLog.h"

#include <atomic>
#include <utility>

namespace vistrel {

namespace {

std::mutex keeperMutex; // held while a line is handed over, so that the log does not go meanwhile
ErrorLog* keeper = nullptr;
std::atomic<QtMessageHandler> replacedHandler{nullptr};

} // namespace

ErrorLog::ErrorLog()
{
    {
        const std::scoped_lock lock(keeperMutex);
        keeper = this;
    }
    // With no handler of ours yet, Qt returns its own.
    replacedHandler = qInstallMessageHandler(nullptr);
    qInstallMessageHandler(&ErrorLog::take);
}

ErrorLog::~ErrorLog()
{
    qInstallMessageHandler(replacedHandler);
    const std::scoped_lock lock(keeperMutex);
    keeper = nullptr;
}

QList<ErrorLog::Line> ErrorLog::lines() const
{
    const std::scoped_lock lock(m_mutex);
    return m_lines;
}

void ErrorLog::clear()
{
    const std::scoped_lock lock(m_mutex);
    m_lines.clear();
    announce();
}

void ErrorLog::take(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (type == QtCriticalMsg || type == QtFatalMsg) {
        const std::scoped_lock lock(keeperMutex);
        if (keeper)
            keeper->append(text);
    }
    replacedHandler.load()(type, context, text);
}

void ErrorLog::append(const QString& text)
{
    const std::scoped_lock lock(m_mutex);
    if (m_lines.size() == most)
        m_lines.removeFirst();
    m_lines.append({QDateTime::currentDateTime(), text});
    announce();
}

void ErrorLog::announce()
{
    if (std::exchange(m_announced, true))
        return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            {
                const std::scoped_lock lock(m_mutex);
                m_announced = false;
            }
            Q_EMIT changed();
        },
        Qt::QueuedConnection);
}

} // namespace vistrel

// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Lines to a process. They are written at once: while a script computes, no event loop runs here.
#include "viewer/scripts/StopCompanion.h"

#include "core/Log.h"

#include <QtCore/QCoreApplication>

namespace vistrel {

namespace {

constexpr int beatMs = 500;
constexpr int startMs = 30000; // for a machine that is busy: a missing program says so at once
constexpr int writeMs = 1000;
constexpr int endMs = 1000;

} // namespace

QString StopCompanion::programFile()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/vistrel-stop-window");
}

StopCompanion::StopCompanion(const QString& program, QObject* parent)
    : QObject(parent)
    , m_program(program)
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_beat.setInterval(beatMs);
    connect(&m_beat, &QTimer::timeout, this, [this] { send("alive"); });
    connect(&m_process, &QProcess::readyReadStandardOutput, this, [this] {
        m_process.readAllStandardOutput();
        Q_EMIT stopRequested();
    });
}

StopCompanion::~StopCompanion()
{
    m_process.disconnect(this);
    m_process.closeWriteChannel();
    if (m_process.state() != QProcess::NotRunning && !m_process.waitForFinished(endMs))
        m_process.kill();
}

void StopCompanion::begin(const QString& name)
{
    if (m_process.state() == QProcess::NotRunning && !m_program.isEmpty()) {
        m_process.start(m_program, QStringList());
        if (!m_process.waitForStarted(startMs)) {
            logError(tr("Scripts that only compute cannot be stopped: %1: %2")
                         .arg(m_program, m_process.errorString()));
            m_program.clear();
        }
    }
    QString line = name;
    send("run " + line.replace(u'\n', u' ').toUtf8());
    m_beat.start();
}

void StopCompanion::end()
{
    m_beat.stop();
    send("end");
}

void StopCompanion::send(const QByteArray& line)
{
    if (m_process.state() != QProcess::Running)
        return;
    m_process.write(line + '\n');
    m_process.waitForBytesWritten(writeMs);
}

} // namespace vistrel

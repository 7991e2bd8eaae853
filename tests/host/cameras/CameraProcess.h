// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A camera that is reached over the network, and can be killed.
#pragma once

#include <QtCore/QDir>
#include <QtCore/QLockFile>
#include <QtCore/QProcess>

#include <gtest/gtest.h>

namespace vistrel::test {

/// A simulated camera in a process of its own.
class CameraProcess {
public:
    CameraProcess(const char* address, const char* serial, int lostPerThousand = 0)
        : serialNumber(QString::fromLatin1(serial))
    {
        m_process.setProcessChannelMode(QProcess::ForwardedChannels);
        m_process.start(QStringLiteral("arv-fake-gv-camera-0.8"),
                        {QStringLiteral("-i"), QString::fromLatin1(address), QStringLiteral("-s"),
                         serialNumber, QStringLiteral("-r"), QString::number(lostPerThousand)});
        EXPECT_TRUE(m_process.waitForStarted())
            << "arv-fake-gv-camera-0.8 (package aravis-tools) cannot be started: "
            << m_process.errorString().toStdString();
    }
    ~CameraProcess() { kill(); }
    CameraProcess(const CameraProcess&) = delete;
    CameraProcess& operator=(const CameraProcess&) = delete;

    bool runs() const { return m_process.state() == QProcess::Running; }
    /// Without a goodbye.
    void kill()
    {
        m_process.kill();
        m_process.waitForFinished();
    }

    const QString serialNumber;

private:
    QProcess m_process;
};

/// The port of such a camera is fixed: tests that run side by side take turns.
inline QString networkCameraLock()
{
    return QDir::temp().filePath(QStringLiteral("vistrel-network-camera.lock"));
}

} // namespace vistrel::test

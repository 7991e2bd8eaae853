// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What the tests of cameras share: an application, a manager, a sink that keeps frames, waiting.
#pragma once

#include "cameras/CameraManager.h"

#include <CxCameraParameters.h>
#include <CxImageData.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QStringList>

#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <vector>

namespace vistrel::test {

/// Far more than anything takes; a test that waits for it fails.
constexpr std::chrono::seconds patience{60};

/// Handles events until a condition holds; false when it never does.
template<class Condition>
bool waitUntil(Condition condition)
{
    const QDeadlineTimer limit(patience);
    while (!condition()) {
        if (limit.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 10);
    }
    return true;
}

/// Keeps the frames of a stream.
class FrameCollector {
public:
    using Frames = std::vector<std::unique_ptr<CxImageData>>;

    FrameSink sink()
    {
        return [this](std::unique_ptr<CxImageData> frame) {
            const std::scoped_lock lock(m_mutex);
            m_frames.push_back(std::move(frame));
            m_arrived.notify_all();
        };
    }
    /// The frames so far, at least `count`; fewer when they never come.
    Frames take(std::size_t count)
    {
        std::unique_lock lock(m_mutex);
        m_arrived.wait_for(lock, patience, [&] { return m_frames.size() >= count; });
        return std::exchange(m_frames, {});
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_arrived;
    Frames m_frames;
};

/// Keeps the error lines that are written while it lives.
class LogCapture {
public:
    LogCapture()
    {
        lines().clear();
        m_previous = qInstallMessageHandler(&keep);
    }
    ~LogCapture() { qInstallMessageHandler(m_previous); }
    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    std::string text() const
    {
        const std::scoped_lock lock(mutex());
        return lines().join(u'\n').toStdString();
    }

private:
    static std::mutex& mutex()
    {
        static std::mutex theMutex;
        return theMutex;
    }
    static QStringList& lines()
    {
        static QStringList theLines;
        return theLines;
    }
    static void keep(QtMsgType, const QMessageLogContext&, const QString& line)
    {
        const std::scoped_lock lock(mutex());
        lines().append(line);
    }

    QtMessageHandler m_previous = nullptr;
};

/// A manager within an application, and the simulated camera on demand.
class CameraTest : public testing::Test {
protected:
    void* openSimulated()
    {
        void* camera = manager.open(QString::fromLatin1(CameraManager::simulatedId), error);
        EXPECT_NE(camera, nullptr) << error.toStdString();
        return camera;
    }
    bool start(void* camera)
    {
        const bool started = manager.start(camera, collector.sink(), error);
        EXPECT_TRUE(started) << error.toStdString();
        return started;
    }
    CxValue read(void* camera, const char* name)
    {
        CxValue value;
        manager.cameraParameters(camera)->getParamDirect(QString::fromLatin1(name), value, nullptr);
        return value;
    }
    int write(void* camera, const char* name, const CxValue& value)
    {
        int status = -1;
        const bool done = manager.cameraParameters(camera)->setParamDirect(
            QString::fromLatin1(name), value, &status, CxCameraParameters::NoRefresh);
        EXPECT_EQ(done, status == 0);
        return status;
    }

    int argc = 1;
    char program[8] = "test";
    char* argv[2] = {program, nullptr};
    QCoreApplication application{argc, argv};
    QString error;
    FrameCollector collector; // outlives the streams
    CameraManager manager;
};

} // namespace vistrel::test

// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A camera over the network: a simulated one in a process of its own, reached over loopback.
#include "CameraFixtures.h"

#include <QtCore/QDir>
#include <QtCore/QLockFile>
#include <QtCore/QProcess>
#include <QtCore/QThread>

#include <gmock/gmock.h>

#include <algorithm>

namespace vistrel::test {

namespace {

constexpr char serialNumber[] = "VISTREL01";

struct NetworkCamera : CameraTest {
    void SetUp() override
    {
        ASSERT_TRUE(onlyOne.tryLock(patience * 2)) << "another test holds the network camera";
        process.setProcessChannelMode(QProcess::ForwardedChannels);
        process.start(QStringLiteral("arv-fake-gv-camera-0.8"),
                      {QStringLiteral("-i"), QStringLiteral("127.0.0.1"), QStringLiteral("-s"),
                       QString::fromLatin1(serialNumber)});
        ASSERT_TRUE(process.waitForStarted())
            << "arv-fake-gv-camera-0.8 (package aravis-tools) cannot be started: "
            << process.errorString().toStdString();
        waitUntil([this] { return findId() || process.state() == QProcess::NotRunning; });
        ASSERT_FALSE(id.isEmpty()) << "the network camera on 127.0.0.1 was not found; its program "
                                   << (process.state() == QProcess::Running ? "runs" : "has ended");
    }
    void TearDown() override
    {
        for (void* camera : manager.openedCameras())
            manager.close(camera); // while it still answers
        process.kill();
        process.waitForFinished();
    }
    bool findId()
    {
        for (const CameraListing& listing : manager.discover()) {
            if (listing.serialNumber == QLatin1String(serialNumber))
                id = listing.id;
        }
        return !id.isEmpty();
    }
    void* openNetworkCamera()
    {
        void* camera = manager.open(id, error);
        EXPECT_NE(camera, nullptr) << error.toStdString();
        return camera;
    }

    // The port of such a camera is fixed: tests that run side by side take turns.
    QLockFile onlyOne{QDir::temp().filePath(QStringLiteral("vistrel-network-camera.lock"))};
    QProcess process;
    QString id;
};

TEST_F(NetworkCamera, SendsFramesAndSaysWhereItIs)
{
    void* camera = openNetworkCamera();
    const SxCameraInfo info = manager.cameraParameters(camera)->cameraInfo();
    EXPECT_EQ(info.deviceType, u"GigEVision");
    EXPECT_EQ(info.serialNumber, QLatin1String(serialNumber));
    EXPECT_TRUE(info.instancePath.endsWith(u"@127.0.0.1")) << info.instancePath.toStdString();
    start(camera);
    const auto frames = collector.take(3);
    ASSERT_GE(frames.size(), 3U);
    EXPECT_EQ(frames[0]->picBuf()->width, 512U);
    EXPECT_EQ(frames[2]->picBuf()->frameNumber, 2);
    EXPECT_GT(frames[2]->picBuf()->timestampUs, frames[1]->picBuf()->timestampUs);
}

TEST_F(NetworkCamera, IsOpenedTogetherWithTheSimulatedOneAndAgain)
{
    void* simulated = openSimulated();
    for (int i = 0; i < 2; ++i) {
        void* camera = openNetworkCamera();
        EXPECT_EQ(manager.openedCameras(), (QList<void*>{simulated, camera}));
        start(camera);
        EXPECT_GE(collector.take(1).size(), 1U);
        EXPECT_EQ(manager.open(id, error), nullptr);
        EXPECT_EQ(error, QStringLiteral("camera %1 is open already").arg(id));
        manager.close(camera);
    }
    EXPECT_EQ(manager.openedCameras(), QList<void*>{simulated});
}

TEST_F(NetworkCamera, ASlowSinkDropsWholeFrames)
{
    void* camera = openNetworkCamera();
    std::mutex gate;
    std::unique_lock closed(gate);
    std::atomic<int> calls = 0;
    const auto sink = [&](std::unique_ptr<CxImageData>) {
        ++calls;
        const std::scoped_lock wait(gate);
    };
    ASSERT_TRUE(manager.start(camera, sink, error)) << error.toStdString();
    ASSERT_TRUE(waitUntil([&] { return calls > 0; }));
    QThread::msleep(2000); // some 50 frames
    closed.unlock();
    EXPECT_TRUE(waitUntil([&] { return manager.statistics(camera).framesTaken >= 20; }));
    EXPECT_GT(manager.statistics(camera).framesDropped, 10U);
    EXPECT_LT(manager.statistics(camera).framesDropped, 200U);
}

TEST_F(NetworkCamera, IsReportedLostWhenItDiesAndLeavesTheRestWorking)
{
    LogCapture log;
    void* camera = openNetworkCamera();
    start(camera);
    ASSERT_FALSE(collector.take(1).empty());
    void* lost = nullptr;
    void* closing = nullptr;
    QThread* thread = nullptr;
    QObject::connect(&manager, &CameraManager::cameraClosing, &application,
                     [&](void* handle) { closing = handle; });
    QObject::connect(&manager, &CameraManager::cameraLost, &application, [&](void* handle) {
        lost = handle;
        thread = QThread::currentThread();
    });
    process.kill();
    process.waitForFinished();
    ASSERT_TRUE(waitUntil([&] { return lost != nullptr; }));
    EXPECT_EQ(lost, camera);
    EXPECT_EQ(closing, camera);
    EXPECT_EQ(thread, application.thread());
    EXPECT_EQ(manager.cameraParameters(camera), nullptr);
    EXPECT_FALSE(manager.isStreaming(camera));
    EXPECT_EQ(manager.openedCameraCount(), 0U);
    EXPECT_THAT(log.text(), testing::HasSubstr("the connection broke"));
    collector.take(0);
    start(openSimulated());
    EXPECT_FALSE(collector.take(1).empty());
}

TEST_F(NetworkCamera, TheManagerMayGoRightAfterTheCameraDied)
{
    auto own = std::make_unique<CameraManager>();
    void* camera = own->open(id, error);
    ASSERT_NE(camera, nullptr) << error.toStdString();
    ASSERT_TRUE(own->start(camera, collector.sink(), error)) << error.toStdString();
    ASSERT_FALSE(collector.take(1).empty());
    process.kill();
    process.waitForFinished();
    own.reset();
    collector.take(0);
    start(openSimulated());
    EXPECT_FALSE(collector.take(1).empty());
}

TEST_F(NetworkCamera, ClosingItRightAfterItDiedLeavesTheRestWorking)
{
    void* camera = openNetworkCamera();
    start(camera);
    ASSERT_FALSE(collector.take(1).empty());
    process.kill();
    process.waitForFinished();
    int reports = 0;
    QObject::connect(&manager, &CameraManager::cameraLost, &application, [&] { ++reports; });
    manager.close(camera);
    EXPECT_EQ(manager.openedCameraCount(), 0U);
    collector.take(0);
    start(openSimulated());
    EXPECT_FALSE(collector.take(1).empty());
    EXPECT_EQ(reports, 0);
}

} // namespace

} // namespace vistrel::test

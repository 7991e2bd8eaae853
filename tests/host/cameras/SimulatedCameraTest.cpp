// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Opening, closing and streaming, on the simulated camera.
#include "CameraFixtures.h"

#include <thread>

namespace vistrel::test {

namespace {

struct CameraOpening : CameraTest {};
struct CameraStreaming : CameraTest {};

TEST_F(CameraOpening, DiscoveryListsTheSimulatedCameraLast)
{
    const auto found = manager.discover();
    ASSERT_FALSE(found.empty());
    EXPECT_EQ(found.back().id, u"sim");
    EXPECT_EQ(found.back().vendor, u"Aravis");
    EXPECT_EQ(found.back().model, u"Fake");
    EXPECT_EQ(found.back().serialNumber, u"1");
}

TEST_F(CameraOpening, AnOpenedCameraIsListedAndSaysWhoItIs)
{
    void* camera = openSimulated();
    EXPECT_EQ(manager.openedCameras(), QList<void*>{camera});
    EXPECT_EQ(manager.openedCameraCount(), 1U);
    const SxCameraInfo info = manager.cameraParameters(camera)->cameraInfo();
    EXPECT_EQ(info.deviceName, u"Fake");
    EXPECT_EQ(info.deviceType, u"Simulated");
    EXPECT_EQ(info.serialNumber, u"1");
    EXPECT_EQ(info.instancePath, u"Fake_1");
    EXPECT_EQ(info.userId, u"");
    EXPECT_EQ(info.modelId, 0);
}

TEST_F(CameraOpening, ItCanBeClosedAndOpenedAgain)
{
    for (int i = 0; i < 3; ++i) {
        void* camera = openSimulated();
        manager.close(camera);
        EXPECT_EQ(manager.cameraParameters(camera), nullptr);
        EXPECT_EQ(manager.openedCameraCount(), 0U);
        EXPECT_TRUE(manager.openedCameras().isEmpty());
    }
}

TEST_F(CameraOpening, OpeningTheSameCameraTwiceIsRefused)
{
    void* camera = openSimulated();
    EXPECT_EQ(manager.open(QStringLiteral("sim"), error), nullptr);
    EXPECT_EQ(error, u"camera sim is open already");
    EXPECT_EQ(manager.openedCameras(), QList<void*>{camera});
}

TEST_F(CameraOpening, AnUnknownIdIsNamedTogetherWithWhatWasFound)
{
    EXPECT_EQ(manager.open(QStringLiteral("Nobody-1"), error), nullptr);
    EXPECT_TRUE(error.startsWith(u"camera Nobody-1 was not found; found: ")) << error.toStdString();
    EXPECT_TRUE(error.endsWith(u"sim")) << error.toStdString();
    EXPECT_EQ(manager.openedCameraCount(), 0U);
}

TEST_F(CameraOpening, HandlesOfNoCameraAreIgnoredEverywhere)
{
    int stranger = 0;
    for (void* handle : {static_cast<void*>(nullptr), static_cast<void*>(&stranger)}) {
        EXPECT_EQ(manager.cameraParameters(handle), nullptr);
        EXPECT_FALSE(manager.isStreaming(handle));
        EXPECT_FALSE(manager.start(handle, collector.sink(), error));
        EXPECT_EQ(error, u"the camera is not open");
        EXPECT_EQ(manager.statistics(handle).framesTaken, 0U);
        manager.stop(handle);
        manager.close(handle);
    }
}

TEST_F(CameraOpening, ClosingIsAnnouncedWhileTheHandleStillResolves)
{
    void* camera = openSimulated();
    void* announced = nullptr;
    bool resolves = false;
    QObject::connect(&manager, &CameraManager::cameraClosing, &application, [&](void* handle) {
        announced = handle;
        resolves = manager.cameraParameters(handle) != nullptr;
    });
    manager.close(camera);
    EXPECT_EQ(announced, camera);
    EXPECT_TRUE(resolves);
}

TEST_F(CameraOpening, AReceiverOfTheAnnouncementMayCloseTheCameraItself)
{
    void* camera = openSimulated();
    int announcements = 0;
    QObject::connect(&manager, &CameraManager::cameraClosing, &application, [&](void* handle) {
        if (++announcements == 1)
            manager.close(handle);
    });
    manager.close(camera);
    EXPECT_EQ(announcements, 2);
    EXPECT_EQ(manager.openedCameraCount(), 0U);
}

TEST_F(CameraOpening, AManagerFollowsAnother)
{
    for (int i = 0; i < 2; ++i) {
        const auto next = std::make_unique<CameraManager>();
        void* camera = next->open(QStringLiteral("sim"), error);
        ASSERT_NE(camera, nullptr) << error.toStdString();
        ASSERT_TRUE(next->start(camera, collector.sink(), error)) << error.toStdString();
        EXPECT_GE(collector.take(1).size(), 1U);
    }
}

TEST_F(CameraStreaming, FramesAreAsLargeAsTheCameraSays)
{
    void* camera = openSimulated();
    start(camera);
    EXPECT_TRUE(manager.isStreaming(camera));
    const auto frames = collector.take(1);
    ASSERT_FALSE(frames.empty());
    const SxPicBuf& picture = *frames.front()->picBuf();
    EXPECT_EQ(picture.width, 512U);
    EXPECT_EQ(picture.height, 512U);
    EXPECT_EQ(picture.bpc, 8U);
    EXPECT_NE(picture.data, nullptr);
}

TEST_F(CameraStreaming, NumbersAreConsecutiveAndTimeAdvances)
{
    start(openSimulated());
    const auto frames = collector.take(5);
    ASSERT_GE(frames.size(), 5U);
    EXPECT_EQ(frames.front()->picBuf()->frameNumber, 0);
    for (std::size_t i = 1; i < frames.size(); ++i) {
        const SxPicBuf& previous = *frames[i - 1]->picBuf();
        const SxPicBuf& current = *frames[i]->picBuf();
        EXPECT_EQ(current.frameNumber, previous.frameNumber + 1);
        EXPECT_EQ(current.acqFrameNumber, previous.acqFrameNumber + 1);
        EXPECT_GT(current.timestampUs, previous.timestampUs);
    }
}

TEST_F(CameraStreaming, TimeStampsAreMicroseconds)
{
    void* camera = openSimulated();
    ASSERT_EQ(write(camera, "AcquisitionFrameRate", CxValue::fromFloat(10.0F)), 0);
    start(camera);
    const auto frames = collector.take(5);
    ASSERT_GE(frames.size(), 5U);
    const qint64 span = frames[4]->picBuf()->timestampUs - frames[0]->picBuf()->timestampUs;
    // 4 periods of 100 ms, give or take one; a wrong unit is off by a factor of 1000.
    EXPECT_GE(span, 300'000);
    EXPECT_LE(span, 60'000'000);
}

TEST_F(CameraStreaming, TheAcquisitionRecordHoldsTheSettings)
{
    void* camera = openSimulated();
    ASSERT_EQ(write(camera, "ExposureTimeAbs", CxValue::fromFloat(12345.0F)), 0);
    ASSERT_EQ(write(camera, "GainRaw", CxValue::fromInt(3)), 0);
    start(camera);
    const auto frames = collector.take(1);
    ASSERT_FALSE(frames.empty());
    const SxAcquisitionInfo* info = frames.front()->acquisitionInfo();
    ASSERT_NE(info, nullptr);
    EXPECT_EQ(info->exposureTimeUs, 12345);
    EXPECT_EQ(info->gainDb, 0.0F); // its steps are no decibels
    EXPECT_EQ(info->transportFormat, 0x01080001U);
    EXPECT_EQ(info->colorFilterArray, ExColorFilterArray::None);
}

TEST_F(CameraStreaming, AnExposureSetMeanwhileAppearsInTheRecord)
{
    void* camera = openSimulated();
    start(camera);
    ASSERT_FALSE(collector.take(1).empty());
    ASSERT_EQ(write(camera, "ExposureTimeAbs", CxValue::fromFloat(777.0F)), 0);
    EXPECT_TRUE(waitUntil([&] {
        const auto frames = collector.take(1);
        return !frames.empty() && frames.back()->acquisitionInfo()->exposureTimeUs == 777;
    }));
}

TEST_F(CameraStreaming, NoFrameComesAfterItWasStopped)
{
    void* camera = openSimulated();
    std::atomic<bool> mayCome = true;
    std::atomic<int> late = 0;
    std::atomic<int> came = 0;
    const auto sink = [&](std::unique_ptr<CxImageData>) { ++(mayCome ? came : late); };
    for (int i = 0; i < 5; ++i) {
        came = 0;
        mayCome = true;
        ASSERT_TRUE(manager.start(camera, sink, error)) << error.toStdString();
        ASSERT_TRUE(waitUntil([&] { return came > 0; }));
        manager.stop(camera);
        mayCome = false;
        EXPECT_FALSE(manager.isStreaming(camera));
        std::this_thread::sleep_for(std::chrono::milliseconds(100)); // of several frames' length
    }
    EXPECT_EQ(late, 0);
}

TEST_F(CameraStreaming, TheSinkIsForgottenWhenTheStreamStops)
{
    void* camera = openSimulated();
    auto owned = std::make_shared<int>(0);
    ASSERT_TRUE(manager.start(
        camera, [owned](std::unique_ptr<CxImageData>) {}, error));
    EXPECT_EQ(owned.use_count(), 2);
    manager.stop(camera);
    EXPECT_EQ(owned.use_count(), 1);
}

TEST_F(CameraStreaming, NumbersStartAgainWithTheStream)
{
    void* camera = openSimulated();
    for (int i = 0; i < 2; ++i) {
        start(camera);
        const auto frames = collector.take(2);
        manager.stop(camera);
        ASSERT_GE(frames.size(), 2U);
        EXPECT_EQ(frames.front()->picBuf()->frameNumber, 0);
        const auto rest = collector.take(0).size();
        EXPECT_EQ(manager.statistics(camera).framesTaken, frames.size() + rest);
    }
}

TEST_F(CameraStreaming, ASecondStartKeepsTheFirstSink)
{
    void* camera = openSimulated();
    start(camera);
    std::atomic<int> other = 0;
    EXPECT_TRUE(manager.start(
        camera, [&](std::unique_ptr<CxImageData>) { ++other; }, error));
    EXPECT_GE(collector.take(3).size(), 3U);
    manager.stop(camera);
    EXPECT_EQ(other, 0);
}

TEST_F(CameraStreaming, ACameraMayBeClosedWhileItStreams)
{
    void* camera = openSimulated();
    start(camera);
    ASSERT_FALSE(collector.take(1).empty());
    manager.close(camera);
    EXPECT_FALSE(manager.isStreaming(camera));
    start(openSimulated());
    EXPECT_FALSE(collector.take(1).empty());
}

TEST_F(CameraStreaming, TheManagerMayGoWhileACameraStreams)
{
    auto own = std::make_unique<CameraManager>();
    void* camera = own->open(QStringLiteral("sim"), error);
    ASSERT_TRUE(own->start(camera, collector.sink(), error)) << error.toStdString();
    ASSERT_FALSE(collector.take(1).empty());
    own.reset();
    collector.take(0);
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    EXPECT_TRUE(collector.take(0).empty());
}

TEST_F(CameraStreaming, ASlowSinkDropsFramesAndHoldsNobodyUp)
{
    void* camera = openSimulated();
    ASSERT_EQ(write(camera, "AcquisitionFrameRate", CxValue::fromFloat(200.0F)), 0);
    std::mutex gate;
    std::unique_lock closed(gate);
    std::atomic<int> calls = 0;
    const auto sink = [&](std::unique_ptr<CxImageData>) {
        ++calls;
        const std::scoped_lock wait(gate);
    };
    ASSERT_TRUE(manager.start(camera, sink, error)) << error.toStdString();
    // The sink is inside its first call all the time, and the camera goes on.
    ASSERT_TRUE(waitUntil([&] { return calls > 0; }));
    EXPECT_TRUE(waitUntil([&] { return manager.statistics(camera).framesDropped >= 20; }));
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(read(camera, "Width").toInt(), 512);
    closed.unlock();
    EXPECT_TRUE(waitUntil([&] { return manager.statistics(camera).framesTaken >= 20; }));
    manager.stop(camera); // before the gate goes
}

} // namespace

} // namespace vistrel::test

// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A camera over the network: a simulated one in a process of its own, reached over loopback.
#include "AravisHooks.h"
#include "CameraFixtures.h"
#include "CameraProcess.h"

#include "cameras/CameraNodes.h"

#include <QtCore/QFile>
#include <QtCore/QLockFile>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtCore/QThread>

#include <gmock/gmock.h>

namespace vistrel::test {

namespace {

constexpr char serialNumber[] = "VISTREL01";

struct NetworkCameras : CameraTest {
    void SetUp() override
    {
        ASSERT_TRUE(onlyOne.tryLock(patience * 2)) << "another test holds the network camera";
    }
    void TearDown() override
    {
        for (void* camera : manager.openedCameras())
            manager.close(camera); // while it still answers
    }
    /// The id by which a camera is opened, when it is there; empty when it never is.
    QString idOf(const CameraProcess& process)
    {
        QString id;
        waitUntil([&] {
            for (const CameraListing& listing : manager.discover()) {
                if (listing.serialNumber == process.serialNumber)
                    id = listing.id;
            }
            return !id.isEmpty() || !process.runs();
        });
        EXPECT_FALSE(id.isEmpty()) << "the network camera was not found; its program "
                                   << (process.runs() ? "runs" : "has ended");
        return id;
    }
    void* open(const CameraProcess& process)
    {
        void* camera = manager.open(idOf(process), error);
        EXPECT_NE(camera, nullptr) << error.toStdString();
        return camera;
    }
    bool waitForFrames(void* camera, quint64 more)
    {
        const quint64 before = manager.statistics(camera).framesTaken;
        return waitUntil([&] { return manager.statistics(camera).framesTaken >= before + more; });
    }

    QLockFile onlyOne{networkCameraLock()};
};

/// One camera on the address that every machine has.
struct NetworkCamera : NetworkCameras {
    void SetUp() override
    {
        NetworkCameras::SetUp();
        process = std::make_unique<CameraProcess>("127.0.0.1", serialNumber);
        id = idOf(*process);
        ASSERT_FALSE(id.isEmpty());
    }
    void* openNetworkCamera()
    {
        void* camera = manager.open(id, error);
        EXPECT_NE(camera, nullptr) << error.toStdString();
        return camera;
    }
    /// Opens it, starts it, and kills it as soon as it streams.
    void* openAndKill()
    {
        void* camera = openNetworkCamera();
        start(camera);
        EXPECT_FALSE(collector.take(1).empty());
        process->kill();
        return camera;
    }

    std::unique_ptr<CameraProcess> process;
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
    std::vector<qint32> numbers; // that the camera gave the frames
    const auto sink = [&](std::unique_ptr<CxImageData> frame) {
        numbers.push_back(frame->picBuf()->acqFrameNumber);
        QThread::msleep(200); // some periods of the camera's
    };
    ASSERT_TRUE(manager.start(camera, sink, error)) << error.toStdString();
    EXPECT_TRUE(waitUntil([&] { return manager.statistics(camera).framesDropped > 10; }));
    manager.stop(camera);
    ASSERT_GT(numbers.size(), 1U);
    const StreamStatistics counted = manager.statistics(camera);
    EXPECT_EQ(counted.framesTaken, numbers.size());
    const auto missing = quint64(numbers.back() - numbers.front() + 1) - numbers.size();
    EXPECT_GT(missing, 0U);
    EXPECT_GE(counted.framesDropped, missing);
    // Frames, not packets, of which each has hundreds; some may be missing behind the last one.
    EXPECT_LT(counted.framesDropped, missing + 1000);
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
    process->kill();
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
    process->kill();
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
    process->kill();
    int reports = 0;
    QObject::connect(&manager, &CameraManager::cameraLost, &application, [&] { ++reports; });
    manager.close(camera);
    EXPECT_EQ(manager.openedCameraCount(), 0U);
    collector.take(0);
    start(openSimulated());
    EXPECT_FALSE(collector.take(1).empty());
    EXPECT_EQ(reports, 0);
}

TEST_F(NetworkCamera, IsOpenedAgainWhenItIsBackFromDeath)
{
    openAndKill();
    ASSERT_TRUE(waitUntil([&] { return manager.openedCameraCount() == 0; }));
    process = std::make_unique<CameraProcess>("127.0.0.1", serialNumber);
    collector.take(0);
    void* camera = open(*process);
    start(camera);
    EXPECT_FALSE(collector.take(1).empty());
}

TEST_F(NetworkCamera, IsRestartedWithTheValuesThatItWasFoundWith)
{
    void* camera = openNetworkCamera();
    ASSERT_EQ(write(camera, "gain_db", CxValue::fromInt(7)), 0);
    manager.cameraParameters(camera)->setROIRectParams(64, 32, 320, 200, true);
    start(camera);
    ASSERT_FALSE(collector.take(1).empty());
    ASSERT_TRUE(manager.restartWithDefaults(camera));
    EXPECT_EQ(manager.cameraParameters(camera), nullptr);
    ASSERT_TRUE(waitUntil([&] { return manager.openedCameraCount() == 1; }));
    camera = manager.openedCameras().constFirst();
    EXPECT_EQ(manager.cameraParameters(camera)->cameraInfo().serialNumber,
              QLatin1String(serialNumber));
    EXPECT_EQ(read(camera, "gain_db").toFloat(), 0.0F);
    EXPECT_EQ(manager.cameraParameters(camera)->currentROIRectParams(), QRect(0, 0, 512, 512));
}

struct DyingCamera : NetworkCamera {
    /// Whether something that is done with a camera that has just died makes one call that gets no
    /// answer, which takes 2.5 s, and no more; the camera is given up then.
    template<class Action>
    void expectSoonGivenUp(Action action)
    {
        void* camera = openAndKill();
        const UnansweredCalls& unanswered = UnansweredCalls::counted();
        action(*manager.cameraParameters(camera), camera);
        EXPECT_EQ(unanswered.count(), 1);
        EXPECT_TRUE(waitUntil([&] { return manager.openedCameraCount() == 0; }));
        EXPECT_EQ(manager.cameraParameters(camera), nullptr);
        EXPECT_EQ(unanswered.count(), 1);
    }
    LogCapture log;
};

TEST_F(DyingCamera, IsGivenUpByTheFirstValueThatIsSet)
{
    expectSoonGivenUp([](CxCameraParameters& parameters, void*) {
        int status = 0;
        CxCameraParam* width = parameters.findParam(QStringLiteral("width"), false);
        width->paramValue(); // as scripts do it
        EXPECT_FALSE(parameters.setParamDirect(QStringLiteral("width"), CxValue::fromInt(100),
                                               &status, CxCameraParameters::RefreshLater));
        EXPECT_EQ(status, static_cast<int>(ParameterStatus::Disconnected));
    });
}

TEST_F(DyingCamera, IsGivenUpByTheFirstRegionThatIsSet)
{
    expectSoonGivenUp([](CxCameraParameters& parameters, void*) {
        parameters.setROIRectParams(0, 0, 100, 100, true);
        EXPECT_TRUE(parameters.currentROIRectParams().isEmpty());
    });
}

TEST_F(DyingCamera, LeavesTheSettingsFileThereIs)
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("settings.json"));
    expectSoonGivenUp([&](CxCameraParameters& parameters, void*) {
        EXPECT_FALSE(parameters.saveParamValuesToFile(path, CxCameraParam::Guru));
        EXPECT_FALSE(parameters.loadParamValuesFromFile(path, CxCameraParam::Guru, nullptr, true));
    });
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(DyingCamera, IsNotWaitedForWhenItIsStoppedAndRestarted)
{
    expectSoonGivenUp([&](CxCameraParameters& parameters, void* camera) {
        CxShadingPreset preset;
        preset.saveCurrentValuesFrom(&parameters);
        manager.stop(camera);
        EXPECT_FALSE(manager.start(camera, collector.sink(), error));
        EXPECT_FALSE(manager.restartWithDefaults(camera));
    });
}

TEST_F(DyingCamera, SaysOnceThatItDoesNotTakeItsDefaults)
{
    expectSoonGivenUp([&](CxCameraParameters&, void* camera) {
        EXPECT_TRUE(manager.restartWithDefaults(camera));
    });
    EXPECT_THAT(log.text(),
                testing::AllOf(testing::HasSubstr("the defaults cannot be set: the connection "
                                                  "broke"),
                               testing::Not(testing::HasSubstr("Width"))));
}

TEST_F(DyingCamera, HoldsNobodyUpWhenNobodySpeaksToIt)
{
    void* camera = openAndKill();
    const UnansweredCalls& unanswered = UnansweredCalls::counted();
    EXPECT_TRUE(waitUntil([&] { return manager.cameraParameters(camera) == nullptr; }));
    EXPECT_EQ(unanswered.count(), 0);
}

struct LossyCamera : NetworkCameras {};

TEST_F(LossyCamera, SendsWholeFramesAndTheOthersAreDroppedAndCounted)
{
    const CameraProcess process("127.0.0.1", "VISTREL02", 2);
    void* camera = open(process);
    start(camera);
    EXPECT_TRUE(waitUntil([&] {
        const StreamStatistics numbers = manager.statistics(camera);
        return numbers.framesTaken >= 5 && numbers.framesDropped >= 5;
    }));
    manager.stop(camera);
    int lastNumber = -1;
    for (const auto& frame : collector.take(1)) {
        const SxPicBuf& picture = *frame->picBuf();
        EXPECT_EQ(picture.width, 512U);
        EXPECT_EQ(picture.frameNumber, ++lastNumber);
    }
}

/// Cameras on addresses of their own, which needs the right to give the machine a second one.
struct TwoNetworkCameras : NetworkCameras {
    void SetUp() override
    {
        NetworkCameras::SetUp();
        if (!addAddress())
            GTEST_SKIP() << "the address 127.0.0.2 cannot be added to this machine's loopback "
                            "interface: "
                         << refusal.toStdString();
        first = std::make_unique<CameraProcess>("127.0.0.1", "VISTREL03");
        second = std::make_unique<CameraProcess>("127.0.0.2", "VISTREL04");
    }
    bool addAddress()
    {
        QProcess ip;
        ip.setProcessChannelMode(QProcess::MergedChannels);
        ip.start(QStringLiteral("ip"),
                 {QStringLiteral("address"), QStringLiteral("add"), QStringLiteral("127.0.0.2/8"),
                  QStringLiteral("dev"), QStringLiteral("lo")});
        ip.waitForFinished();
        refusal = ip.error() == QProcess::FailedToStart ? ip.errorString()
                                                        : QString::fromUtf8(ip.readAll()).trimmed();
        return (ip.exitStatus() == QProcess::NormalExit && ip.exitCode() == 0
                && ip.error() != QProcess::FailedToStart)
               || refusal.contains(QLatin1String("File exists"));
    }

    QString refusal;
    std::unique_ptr<CameraProcess> first;
    std::unique_ptr<CameraProcess> second;
};

TEST_F(TwoNetworkCameras, StreamSideBySideAndOneOutlivesTheOther)
{
    void* one = open(*first);
    void* other = open(*second);
    ASSERT_TRUE(one && other);
    EXPECT_EQ(manager.openedCameras(), (QList<void*>{one, other}));
    EXPECT_NE(manager.cameraParameters(one)->cameraInfo().instancePath,
              manager.cameraParameters(other)->cameraInfo().instancePath);
    FrameCollector others;
    start(one);
    ASSERT_TRUE(manager.start(other, others.sink(), error)) << error.toStdString();
    EXPECT_TRUE(waitForFrames(one, 3));
    EXPECT_TRUE(waitForFrames(other, 3));
    EXPECT_EQ(write(one, "gain_db", CxValue::fromInt(3)), 0);
    EXPECT_EQ(read(other, "gain_db").toFloat(), 0.0F);

    first->kill();
    EXPECT_TRUE(waitUntil([&] { return manager.cameraParameters(one) == nullptr; }));
    EXPECT_EQ(manager.openedCameras(), QList<void*>{other});
    EXPECT_TRUE(waitForFrames(other, 3));
    manager.close(other);
    void* again = open(*second);
    ASSERT_NE(again, nullptr);
    ASSERT_TRUE(manager.start(again, others.sink(), error)) << error.toStdString();
    EXPECT_TRUE(waitForFrames(again, 1));
    manager.close(again);
}

} // namespace

} // namespace vistrel::test

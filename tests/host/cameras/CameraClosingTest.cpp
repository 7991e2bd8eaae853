// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What the user interface waits for when cameras are closed, lost and looked for, and what not.
#include "AravisHooks.h"
#include "CameraFixtures.h"

#include <gmock/gmock.h>

namespace vistrel::test {

namespace {

/// A manager of its own, which a test may let go.
struct ClosedCamera : testing::Test {
    void* open()
    {
        void* camera = manager->open(QString::fromLatin1(CameraManager::simulatedId), error);
        EXPECT_NE(camera, nullptr) << error.toStdString();
        return camera;
    }

    int argc = 1;
    char program[8] = "test";
    char* argv[2] = {program, nullptr};
    QCoreApplication application{argc, argv};
    LogCapture log;
    SimulatedDevices devices;
    SimulatedSearches& searches = SimulatedSearches::watched();
    QString error;
    std::unique_ptr<CameraManager> manager = std::make_unique<CameraManager>();
    const std::thread::id thisThread = std::this_thread::get_id();
};

TEST_F(ClosedCamera, IsGoneWhenItAnswered)
{
    manager->close(open());
    EXPECT_EQ(devices.alive, 0);
    open();
    manager.reset();
    EXPECT_EQ(devices.alive, 0);
}

TEST_F(ClosedCamera, IsLetGoOfOnAnotherThread)
{
    manager->close(open());
    EXPECT_NE(devices.lastLetGoOn.load(), thisThread);
}

TEST_F(ClosedCamera, ThatIsLostIsNotWaitedFor)
{
    devices.gate.close();
    void* camera = open();
    devices.breakConnection();
    ASSERT_TRUE(waitUntil([&] { return manager->cameraParameters(camera) == nullptr; }));
    EXPECT_EQ(devices.alive, 1);
    EXPECT_THAT(log.text(), testing::HasSubstr("the connection broke"));
    manager.reset();
    EXPECT_EQ(devices.alive, 1);
    devices.gate.open();
    while (devices.alive > 0)
        std::this_thread::yield();
    EXPECT_NE(devices.lastLetGoOn.load(), thisThread);
}

TEST_F(ClosedCamera, ThatIsLostUnnoticedIsNotWaitedForByTheManagerThatGoes)
{
    devices.gate.close();
    open();
    devices.breakConnection();
    manager.reset();
    EXPECT_EQ(devices.alive, 1);
}

TEST_F(ClosedCamera, ThatHangsIsNotWaitedForForEver)
{
    devices.gate.close();
    manager->close(open());
    EXPECT_EQ(devices.alive, 1);
    EXPECT_EQ(manager->openedCameraCount(), 0U);
}

TEST_F(ClosedCamera, ThatIsStillBeingLetGoOfLeavesTheNextManagerWorking)
{
    devices.gate.close();
    open();
    devices.breakConnection();
    manager = std::make_unique<CameraManager>();
    open();
    devices.gate.open();
    while (devices.alive > 1)
        std::this_thread::yield();
    EXPECT_FALSE(manager->discover().empty());
}

TEST_F(ClosedCamera, ThatIsRestartedIsLookedForOnAnotherThread)
{
    void* camera = open();
    searches.inThisThread = 0;
    searches.blind = 5;
    ASSERT_TRUE(manager->restartWithDefaults(camera));
    ASSERT_TRUE(waitUntil([&] { return manager->openedCameraCount() == 1; }));
    EXPECT_EQ(searches.inThisThread, 0);
    EXPECT_GE(searches.elsewhere, 6);
    EXPECT_EQ(log.text(), "");
}

TEST_F(ClosedCamera, ThatIsStillLookedForIsForgottenWhenTheManagerGoes)
{
    void* camera = open();
    searches.blind = 1'000'000;
    ASSERT_TRUE(manager->restartWithDefaults(camera));
    ASSERT_TRUE(waitUntil([&] { return searches.elsewhere > 1; }));
    manager.reset();
    const int before = searches.elsewhere;
    QDeadlineTimer later(std::chrono::milliseconds(300));
    waitUntil([&] { return later.hasExpired(); });
    EXPECT_LE(searches.elsewhere, before + 1); // one may have been under way
}

} // namespace

} // namespace vistrel::test

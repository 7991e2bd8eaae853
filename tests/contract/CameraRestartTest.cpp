// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Restarting a camera: its waits are real ones, which the tests shorten where they can.
#include "CameraFixture.h"

#include "core/HostSingletons.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QElapsedTimer>
#include <QtCore/QTimer>

#include <csignal>

using testing::_;
using testing::InSequence;
using testing::Return;

namespace {

/// A handle that the manager lists without a camera behind it.
int nothing = 0;
void* const deadHandle = &nothing;

class CameraRestart : public CameraTest {
protected:
    /// Restarts, and says what came back and how the object reads afterwards.
    QString restarted() { return boundValue("(cam.restart_with_default_settings(), str(cam))"); }

    /// The host does this when it is told to restart the camera.
    template<class Action>
    void whenRestarted(Action action)
    {
        run("pass"); // starts the interpreter
        EXPECT_CALL(delegate, restartCameraWithDefaults(&camera)).WillOnce([action](void*) {
            action();
        });
    }

    /// Closes the camera: its handle is dead, and no other one gets its address.
    void close()
    {
        closed = std::move(cameras);
        cameras.clear();
    }

    std::vector<std::unique_ptr<FakeCamera>> closed;
};

TEST_F(CameraRestart, BindsTheObjectToTheNewHandleOfTheSameSerialNumber)
{
    whenRestarted([this] {
        close();
        addCamera(QStringLiteral("other"), QStringLiteral("1"));
        addCamera(QStringLiteral("CAM-A1"), QStringLiteral("12345678"));
    });
    EXPECT_EQ(restarted(), QStringLiteral("(True, 'camera(CAM-A1, sn: 12345678)')"));
}

TEST_F(CameraRestart, UsesTheNewHandleFromThenOn)
{
    whenRestarted([this] {
        close();
        addCamera(QStringLiteral("CAM-A1"), QStringLiteral("12345678"));
    });
    EXPECT_CALL(delegate, setCameraAcquisition(false, _)).WillOnce([this](bool, void* handle) {
        EXPECT_EQ(handle, cameras[0].get());
        return true;
    });
    EXPECT_EQ(runBound("assert cam.restart_with_default_settings() is True\n"
                       "cam.stop_acquisition()"),
              QString());
}

TEST_F(CameraRestart, TakesTheFirstOfTwoCamerasOfTheSameSerialNumber)
{
    whenRestarted([this] {
        close();
        addCamera(QStringLiteral("first"), QStringLiteral("12345678"));
        addCamera(QStringLiteral("second"), QStringLiteral("12345678"));
    });
    EXPECT_EQ(restarted(), QStringLiteral("(True, 'camera(first, sn: 12345678)')"));
}

TEST_F(CameraRestart, WaitsTwiceBeforeTheFirstLookAndHandlesEvents)
{
    QElapsedTimer clock;
    bool handled = false;
    whenRestarted([&] {
        clock.start();
        QTimer::singleShot(0, QCoreApplication::instance(), [&handled] { handled = true; });
    });
    qint64 elapsed = 0;
    ON_CALL(cameraManager, openedCameras()).WillByDefault([&] {
        elapsed = clock.isValid() ? clock.elapsed() : 0;
        return QList<void*>{&camera};
    });
    EXPECT_EQ(restarted(), QStringLiteral("(True, 'camera(CAM-A1, sn: 12345678)')"));
    EXPECT_TRUE(handled);
    EXPECT_GE(elapsed, 990);
}

TEST_F(CameraRestart, LooksAgainUntilTheCameraIsBack)
{
    int looks = 0;
    whenRestarted([&] {
        ON_CALL(cameraManager, openedCameras()).WillByDefault([this, &looks] {
            return ++looks < 3 ? QList<void*>() : QList<void*>{&camera};
        });
    });
    EXPECT_EQ(restarted(), QStringLiteral("(True, 'camera(CAM-A1, sn: 12345678)')"));
    EXPECT_EQ(looks, 3);
}

TEST_F(CameraRestart, TheSerialNumberIsComparedExactly)
{
    camera.info.serialNumber = QStringLiteral("AB-1");
    int looks = 0;
    whenRestarted([&] {
        cameras[0]->info.serialNumber = QStringLiteral("ab-1");
        ON_CALL(cameraManager, openedCameras()).WillByDefault([this, &looks] {
            if (++looks == 2)
                cameras[0]->info.serialNumber = QStringLiteral("AB-1");
            return QList<void*>{&camera};
        });
    });
    EXPECT_EQ(restarted(), QStringLiteral("(True, 'camera(CAM-A1, sn: AB-1)')"));
    EXPECT_EQ(looks, 2);
}

TEST_F(CameraRestart, DeadAndNullHandlesInTheListArePassedOver)
{
    whenRestarted([this] {
        ON_CALL(cameraManager, openedCameras())
            .WillByDefault(Return(QList<void*>{deadHandle, nullptr, &camera}));
    });
    EXPECT_EQ(restarted(), QStringLiteral("(True, 'camera(CAM-A1, sn: 12345678)')"));
}

TEST_F(CameraRestart, IsFalseAtOnceWhenTheObjectIsBoundToNoOpenCamera)
{
    run("pass");
    EXPECT_CALL(delegate, restartCameraWithDefaults(_)).Times(0);
    bool waited = false;
    QTimer::singleShot(0, QCoreApplication::instance(), [&waited] { waited = true; });
    EXPECT_EQ(value("vistrel.Camera().restart_with_default_settings()"), QStringLiteral("False"));
    runBound("import emb\nemb.cam = cam");
    cameras.clear();
    EXPECT_EQ(value("__import__('emb').cam.restart_with_default_settings()"),
              QStringLiteral("False"));
    EXPECT_FALSE(waited);
    QCoreApplication::processEvents(); // while there is somebody to tell
}

TEST_F(CameraRestart, GivesUpAfterSixtyLooksAndKeepsTheOldHandle)
{
    int looks = 0;
    QElapsedTimer clock;
    whenRestarted([&] {
        clock.start();
        ON_CALL(cameraManager, openedCameras()).WillByDefault([&looks] {
            ++looks;
            return QList<void*>();
        });
    });
    EXPECT_EQ(restarted(), QStringLiteral("(False, 'camera(CAM-A1, sn: 12345678)')"));
    EXPECT_EQ(looks, 60);
    EXPECT_GE(clock.elapsed(), 30'400);
}

TEST_F(CameraRestart, ACameraThatVanishesLeavesADisconnectedObject)
{
    // The application ends: every wait comes back at once, and so does the script.
    whenRestarted([this] {
        QTimer::singleShot(0, QCoreApplication::instance(), [this] { close(); });
        QTimer::singleShot(10, QCoreApplication::instance(), [] { QCoreApplication::exit(); });
    });
    EXPECT_EQ(restarted(), QStringLiteral("(False, 'camera(disconnected)')"));
}

TEST_F(CameraRestart, AHostThatGoesDuringTheWaitIsAnError)
{
    whenRestarted([] {
        QTimer::singleShot(0, QCoreApplication::instance(),
                           [] { vistrel::installCameraManager(nullptr); });
    });
    EXPECT_EQ(boundError("cam.restart_with_default_settings()"),
              QStringLiteral("Exception: the host's cameras are not available"));
}

TEST_F(CameraRestart, ARunStartedDuringTheWaitIsRefused)
{
    QString refusal;
    whenRestarted([this, &refusal] {
        QTimer::singleShot(0, QCoreApplication::instance(), [this, &refusal] {
            testing::NiceMock<MockEnvironment> another;
            refusal = plugin->runScript(QStringLiteral("cam = None"), &another, {}, nullptr,
                                        nullptr, nullptr);
        });
    });
    // The script goes on, in its own environment.
    EXPECT_CALL(environment, resolvePath(QStringLiteral("x")));
    EXPECT_EQ(boundValue("(cam.restart_with_default_settings(), cam.save_settings_to_file('x'))"),
              QStringLiteral("(True, None)"));
    EXPECT_EQ(refusal,
              QStringLiteral("a script cannot be started from within the run of another one"));
}

TEST_F(CameraRestart, AnInterruptEndsTheWaitAtTheNextLook)
{
    whenRestarted([this] {
        close();
        QTimer::singleShot(0, QCoreApplication::instance(), [] { std::raise(SIGINT); });
    });
    EXPECT_EQ(boundError("cam.restart_with_default_settings()"),
              QStringLiteral("KeyboardInterrupt"));
}

TEST_F(CameraRestart, AnInterruptThatCameBeforeLeavesTheCameraAlone)
{
    run("pass");
    EXPECT_CALL(delegate, restartCameraWithDefaults(_)).Times(0);
    ON_CALL(cameraManager, cameraParameters(&camera)).WillByDefault([this](void*) {
        std::raise(SIGINT);
        return &camera.parameters;
    });
    EXPECT_EQ(boundError("cam.restart_with_default_settings()"),
              QStringLiteral("KeyboardInterrupt"));
}

TEST_F(CameraRestart, TheObjectMayBeMadeAnewAndItsNameGoneMeanwhile)
{
    whenRestarted(
        [] { QTimer::singleShot(0, QCoreApplication::instance(), [] { std::raise(SIGINT); }); });
    EXPECT_EQ(runBound("import gc, signal\n"
                       "def meanwhile(*_):\n"
                       "    global cam\n"
                       "    cam.close_device()\n"
                       "    cam.__init__()\n"
                       "    kept.append(str(cam))\n"
                       "    del cam\n"
                       "    gc.collect()\n"
                       "kept = []\n"
                       "signal.signal(signal.SIGINT, meanwhile)\n"
                       "print(cam.restart_with_default_settings(), kept, end='')\n"),
              QString());
    EXPECT_EQ(output, QStringLiteral("True ['camera(disconnected)']"));
}

TEST_F(CameraRestart, TakesNoArguments)
{
    EXPECT_TRUE(
        boundError("cam.restart_with_default_settings(1)").startsWith(QLatin1String("TypeError")));
}

} // namespace

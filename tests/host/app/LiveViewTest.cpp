// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Cameras in views, by the simulated camera.
#include "AppFixture.h"

#include "app/LiveStream.h"

#include <CxCameraParameters.h>

#include <QtCore/QThread>
#include <QtCore/QTimer>

#include <thread>

using namespace vistrel;

namespace {

class LiveView : public HostTest {
protected:
    void SetUp() override
    {
        QString error;
        camera = host.cameras().open(QString::fromLatin1(CameraManager::simulatedId), error);
        ASSERT_NE(camera, nullptr) << qPrintable(error);
    }

    /// Starts the camera and returns its view's id.
    int start()
    {
        EXPECT_TRUE(app.setCameraAcquisition(true, camera));
        return app.activeViewId();
    }

    /// Waits for the next frame in a view.
    bool nextFrame(int id) { return environment.waitForNextFrame(app.view(id), 30.0); }

    void* camera = nullptr;
};

} // namespace

TEST_F(LiveView, IsNamedAfterItsCamera)
{
    const ImageView* view = app.imageView(start());
    const SxCameraInfo& info = host.cameras().cameraParameters(camera)->cameraInfo();
    ASSERT_FALSE(info.serialNumber.isEmpty());
    EXPECT_TRUE(view->windowTitle().contains(info.deviceName));
    EXPECT_TRUE(view->windowTitle().contains(info.serialNumber));
}

TEST_F(LiveView, ShowsFrameAfterFrame)
{
    const int id = start();
    EXPECT_EQ(app.viewImage(id), nullptr);
    for (int i = 0; i < 3; ++i)
        ASSERT_TRUE(nextFrame(id));
    EXPECT_GE(app.view(id)->frameCount(), 3U);
    ASSERT_NE(app.viewImage(id), nullptr);
    EXPECT_GT(app.viewImage(id)->picBuf()->width, 0U);
    EXPECT_NE(app.viewImage(id)->acquisitionInfo(), nullptr);
}

TEST_F(LiveView, AndItsCameraAreLeftAloneByOtherThreads)
{
    const LogLines log;
    std::thread([this] { EXPECT_FALSE(app.setCameraAcquisition(true, camera)); }).join();
    EXPECT_EQ(app.activeViewId(), -1);
    start();
    std::thread([this] { EXPECT_FALSE(app.setCameraAcquisition(false, camera)); }).join();
    EXPECT_TRUE(host.cameras().isStreaming(camera));
    std::thread([this] { app.restartCameraWithDefaults(camera); }).join();
    EXPECT_NE(host.cameras().cameraParameters(camera), nullptr);
    EXPECT_EQ(log.errors().size(), 3);
}

TEST_F(LiveView, IsActivatedWhenItsCameraIsStartedAgain)
{
    const int live = start();
    openView();
    EXPECT_EQ(start(), live);
}

TEST_F(LiveView, KeepsTheLastPictureWhenTheCameraStops)
{
    const int id = start();
    ASSERT_TRUE(nextFrame(id));
    EXPECT_TRUE(app.setCameraAcquisition(false, camera));
    EXPECT_FALSE(host.cameras().isStreaming(camera));
    const quint64 frames = app.view(id)->frameCount();
    EXPECT_FALSE(environment.waitForNextFrame(app.view(id), -1.0));
    EXPECT_EQ(app.view(id)->frameCount(), frames);
    EXPECT_NE(app.viewImage(id), nullptr);
}

TEST_F(LiveView, ShowsTheFrameThatWaitsWhenTheCameraStops)
{
    const int id = start();
    const LiveStream* stream = app.imageView(id)->stream();
    while (stream->overwrittenFrames() == 0)
        QThread::msleep(5); // no events: nobody takes frames
    EXPECT_EQ(app.viewImage(id), nullptr);
    app.setCameraAcquisition(false, camera);
    EXPECT_NE(app.viewImage(id), nullptr);
    EXPECT_EQ(app.view(id)->frameCount(), 1U);
}

TEST_F(LiveView, GoesOnAfterAStop)
{
    const int id = start();
    ASSERT_TRUE(nextFrame(id));
    app.setCameraAcquisition(false, camera);
    EXPECT_EQ(start(), id);
    EXPECT_TRUE(nextFrame(id));
}

TEST_F(LiveView, IsNotOpenedForAnUnknownCamera)
{
    int noCamera = 0;
    for (void* handle : {static_cast<void*>(nullptr), static_cast<void*>(&noCamera)}) {
        EXPECT_FALSE(app.setCameraAcquisition(true, handle));
        EXPECT_FALSE(app.setCameraAcquisition(false, handle));
    }
    EXPECT_EQ(app.activeViewId(), -1);
}

TEST_F(LiveView, NeedsNoStreamToBeStopped)
{
    EXPECT_TRUE(app.setCameraAcquisition(false, camera));
    EXPECT_EQ(app.activeViewId(), -1);
}

TEST_F(LiveView, StopsTheStreamWhenItIsClosed)
{
    const int first = start();
    ASSERT_TRUE(nextFrame(first));
    app.view(first)->closeMdiView();
    EXPECT_FALSE(host.cameras().isStreaming(camera));
    const int second = start();
    EXPECT_NE(second, first);
    EXPECT_TRUE(nextFrame(second));
}

TEST_F(LiveView, KeepsItsPictureWhenTheCameraIsClosed)
{
    const int id = start();
    ASSERT_TRUE(nextFrame(id));
    host.cameras().close(camera);
    EXPECT_NE(app.viewImage(id), nullptr);
    EXPECT_EQ(app.imageView(id)->stream()->camera(), nullptr);
    EXPECT_FALSE(app.imageView(id)->isStreaming());
    EXPECT_FALSE(app.setCameraAcquisition(true, camera));
}

TEST_F(LiveView, KeepsItsPictureWhenTheCameraIsRestartedAndGoesOnWithIt)
{
    const int id = start();
    ASSERT_TRUE(nextFrame(id));
    app.restartCameraWithDefaults(camera);
    EXPECT_FALSE(app.imageView(id)->isStreaming());
    EXPECT_FALSE(app.setCameraAcquisition(true, camera));
    ASSERT_TRUE(handleEventsUntil([this] { return host.cameras().openedCameraCount() == 1; }));
    EXPECT_NE(app.viewImage(id), nullptr);
    camera = host.cameras().openedCameras().constFirst();
    EXPECT_EQ(start(), id);
    EXPECT_TRUE(nextFrame(id));
}

TEST_F(LiveView, OverwritesAndCountsFramesThatNobodyTakes)
{
    const int id = start();
    const LiveStream* stream = app.imageView(id)->stream();
    while (stream->overwrittenFrames() < 3)
        QThread::msleep(5);
    EXPECT_TRUE(nextFrame(id));
    const qint32 number = app.viewImage(id)->picBuf()->frameNumber;
    EXPECT_GT(number, 2);
    EXPECT_LT(app.view(id)->frameCount(), static_cast<quint64>(number));
}

TEST_F(LiveView, ThatIsClosedEndsAWaitForItsFrame)
{
    const int id = start();
    ASSERT_TRUE(nextFrame(id));
    app.setCameraAcquisition(false, camera);
    QTimer::singleShot(0, &app, [this, id] { app.view(id)->closeMdiView(); });
    EXPECT_FALSE(environment.waitForNextFrame(app.view(id), 3600.0));
}

TEST_F(LiveView, ThatIsClosedInTheMidstOfFramesEndsAWait)
{
    const int id = start();
    QTimer::singleShot(0, &app, [this, id] { app.view(id)->closeMdiView(); });
    bool sawFrame = true;
    while (app.view(id)) // a frame may come before the end
        sawFrame = environment.waitForNextFrame(app.view(id), -1.0);
    EXPECT_FALSE(sawFrame);
}

TEST_F(LiveView, EndsAWaitWhenItsCameraStops)
{
    const int id = start();
    CxMdiView* view = app.view(id);
    int waits = 0;
    QTimer::singleShot(50, &app, [this] { app.setCameraAcquisition(false, camera); });
    while (environment.waitForNextFrame(view, -1.0))
        ++waits;
    EXPECT_FALSE(host.cameras().isStreaming(camera));
    EXPECT_LE(static_cast<quint64>(waits), view->frameCount()); // two may come in one wait
}

TEST_F(LiveView, EndsAWaitWhenItsCameraIsClosed)
{
    const int id = start();
    QTimer::singleShot(50, &app, [this] { host.cameras().close(camera); });
    while (environment.waitForNextFrame(app.view(id), -1.0)) {
    }
    EXPECT_EQ(host.cameras().openedCameraCount(), 0U);
}

TEST_F(LiveView, MayBeClosedByWhoeverSeesItsFrame)
{
    const int id = start();
    QObject::connect(app.imageView(id), &ImageView::frameTaken, &app,
                     [this, id] { app.view(id)->closeMdiView(); });
    EXPECT_FALSE(nextFrame(id));
    EXPECT_TRUE(handleEventsUntil([this] { return !host.cameras().isStreaming(camera); }));
}

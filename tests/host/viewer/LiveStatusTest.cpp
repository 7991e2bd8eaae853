// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What the window tells of the active view's camera.
#include "../app/AppFixture.h"

#include "app/LiveStream.h"
#include "viewer/cameras/LiveStatus.h"

#include <CxCameraParameters.h>

#include <QtCore/QRegularExpression>
#include <QtCore/QThread>

namespace vistrel {

namespace {

using namespace std::chrono_literals;

class StatusOfACamera : public HostTest {
protected:
    void SetUp() override
    {
        QString error;
        camera = host.cameras().open(QString::fromLatin1(CameraManager::simulatedId), error);
        ASSERT_NE(camera, nullptr) << qPrintable(error);
    }
    /// Whether the text becomes one of that pattern.
    bool reaches(const char* pattern)
    {
        const QRegularExpression wanted(QString::fromLatin1(pattern));
        return handleEventsUntil([&] { return wanted.match(status.text()).hasMatch(); });
    }

    void* camera = nullptr;
    LiveStatus status{host};
};

} // namespace

TEST_F(StatusOfACamera, TellsFrameRateLossesAndFrameNumber)
{
    EXPECT_EQ(status.text(), QString());
    ASSERT_TRUE(app.setCameraAcquisition(true, camera));
    EXPECT_TRUE(reaches("^[1-9][0-9.]* frames/s, [0-9]+ dropped, [0-9]+ not shown, frame [1-9]"));
    app.setCameraAcquisition(false, camera);
    EXPECT_TRUE(handleEventsUntil([this] { return status.text().isEmpty(); }));
}

TEST_F(StatusOfACamera, CountsFramesThatTheScreenWasTooSlowFor)
{
    ASSERT_TRUE(app.setCameraAcquisition(true, camera));
    const LiveStream* stream = app.liveView(camera)->stream();
    while (stream->overwrittenFrames() < 2)
        QThread::msleep(5); // no events: nobody takes frames
    EXPECT_TRUE(reaches("[1-9][0-9]* not shown"));
}

TEST_F(StatusOfACamera, IsThatOfTheActiveView)
{
    ASSERT_TRUE(app.setCameraAcquisition(true, camera));
    ASSERT_TRUE(reaches("frames/s"));
    openView();
    EXPECT_EQ(status.text(), QString());
    app.activateView(app.liveView(camera)->id());
    EXPECT_TRUE(reaches("frames/s"));
}

TEST_F(StatusOfACamera, EndsWithTheCamera)
{
    ASSERT_TRUE(app.setCameraAcquisition(true, camera));
    ASSERT_TRUE(reaches("frames/s"));
    host.cameras().close(camera);
    EXPECT_TRUE(handleEventsUntil([this] { return status.text().isEmpty(); }));
}

TEST(FrameRate, IsThatOfTheLastTwoSeconds)
{
    FrameRateMeter meter;
    const FrameRateMeter::Clock::time_point start{};
    EXPECT_EQ(meter.rate(), 0.0);
    meter.note(0, start);
    EXPECT_EQ(meter.rate(), 0.0);
    meter.note(50, start + 1s);
    EXPECT_DOUBLE_EQ(meter.rate(), 50.0);
    meter.note(150, start + 2s);
    EXPECT_DOUBLE_EQ(meter.rate(), 75.0);
    meter.note(250, start + 3s);
    EXPECT_DOUBLE_EQ(meter.rate(), 100.0);
}

TEST(FrameRate, BeginsAnewWithAnotherStream)
{
    FrameRateMeter meter;
    const FrameRateMeter::Clock::time_point start{};
    meter.note(500, start);
    meter.note(3, start + 500ms);
    EXPECT_EQ(meter.rate(), 0.0);
    meter.note(13, start + 1s);
    EXPECT_DOUBLE_EQ(meter.rate(), 20.0);
}

} // namespace vistrel

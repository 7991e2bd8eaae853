// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Views with processing chains and recordings, by still pictures and the simulated camera.
#include "AppFixture.h"

#include "app/LiveStream.h"

#include <CxCameraParameters.h>
#include <CxChain.h>
#include <CxChainManager.h>
#include <CxChainable.h>
#include <CxRTTI.h>

#include <QtCore/QFileInfo>
#include <QtCore/QTemporaryDir>
#include <QtCore/QThread>
#include <QtXml/QDomDocument>

#include <opencv2/videoio.hpp>

using namespace vistrel;

namespace {

class ViewChain : public HostTest {
protected:
    /// Adds an element by its name for people, as plugins do it.
    static CxChainable* add(CxMdiView* view, const char* name)
    {
        const auto classes =
            CxRTTI::instance()->classesForInterface(QStringLiteral("CxChainable"), true);
        for (const QString& className : classes) {
            if (CxRTTI::customNameForClass(className) != QLatin1String(name))
                continue;
            QObject* const object = CxRTTI::createInstanceOfClass(className);
            auto* const element = qobject_cast<CxChainable*>(object);
            insert(view->chainEnd(), element);
            return element;
        }
        ADD_FAILURE() << "no element " << name;
        return nullptr;
    }

    static void insert(CxChainable* end, CxChainable* element)
    {
        CxChain* const chain = end->chain();
        const bool wasRunning = !chain->stopped();
        if (wasRunning)
            chain->stop();
        QDomDocument document;
        element->configure(document.createElement(QStringLiteral("conf")));
        element->setEnabled(true);
        CxChainManager::instance()->insertBefore(chain, element, end);
        if (wasRunning)
            chain->start();
    }

    /// Opens a view on a picture that is darker on the left.
    int openGradient()
    {
        auto image = makeImage(4, 1, 0);
        for (int x = 0; x < 4; ++x)
            image->picBuf()->data[x] = static_cast<quint8>(x);
        EXPECT_TRUE(app.newViewWithImage(image.release(), QStringLiteral("gradient")));
        return app.activeViewId();
    }
    int startCamera()
    {
        QString error;
        camera = host.cameras().open(QString::fromLatin1(CameraManager::simulatedId), error);
        EXPECT_TRUE(app.setCameraAcquisition(true, camera)) << qPrintable(error);
        return app.activeViewId();
    }
    bool nextFrame(int id) { return environment.waitForNextFrame(app.view(id), 30.0); }

    QString path(const char* name) const { return folder.filePath(QLatin1String(name)); }
    static int picturesIn(const QString& file)
    {
        cv::VideoCapture player(file.toStdString());
        int pictures = 0;
        for (cv::Mat picture; player.read(picture);)
            ++pictures;
        return pictures;
    }

    void* camera = nullptr;
    QTemporaryDir folder;
};

} // namespace

TEST_F(ViewChain, EndsWithTheViewsOwnElement)
{
    CxMdiView* const view = app.view(openView());
    ASSERT_NE(view->chainEnd(), nullptr);
    ASSERT_NE(view->chainEnd()->chain(), nullptr);
    EXPECT_FALSE(view->chainEnd()->chain()->stopped());
    EXPECT_NE(app.view(openView())->chainEnd(), view->chainEnd());
}

TEST_F(ViewChain, ProcessesAPictureThatStandsStillAtOnce)
{
    const int id = openGradient();
    add(app.view(id), "Flip");
    EXPECT_EQ(firstByte(app.viewImage(id)), 3);
}

TEST_F(ViewChain, ProcessesItAnewFromTheOriginalWhenTheChainChanges)
{
    const int id = openGradient();
    CxChainable* const first = add(app.view(id), "Flip");
    add(app.view(id), "Flip");
    EXPECT_EQ(firstByte(app.viewImage(id)), 0);
    first->setEnabled(false);
    EXPECT_EQ(firstByte(app.viewImage(id)), 3);
    for (const ChainElement* element : app.imageView(id)->chain().elements())
        app.imageView(id)->chain().remove(element);
    EXPECT_EQ(firstByte(app.viewImage(id)), 0);
}

TEST_F(ViewChain, ProcessesThePictureThatAScriptSets)
{
    const int id = openView();
    add(app.view(id), "Threshold");
    app.setViewImage(id, makeImage(2, 2, 200).release());
    EXPECT_EQ(firstByte(app.viewImage(id)), 255);
}

TEST_F(ViewChain, OfACopyIsEmpty)
{
    const int id = openGradient();
    add(app.view(id), "Flip");
    ASSERT_TRUE(app.duplicateView(id));
    EXPECT_EQ(firstByte(app.viewImage(app.activeViewId())), 3);
    EXPECT_TRUE(app.imageView(app.activeViewId())->chain().elements().empty());
}

TEST_F(ViewChain, ProcessesTheFramesOfACamera)
{
    const int id = startCamera();
    ASSERT_TRUE(nextFrame(id));
    const unsigned width = app.viewImage(id)->picBuf()->width;
    add(app.view(id), "Threshold");
    ASSERT_TRUE(nextFrame(id));
    ASSERT_TRUE(nextFrame(id));
    const SxPicBuf& buffer = *app.viewImage(id)->picBuf();
    EXPECT_EQ(buffer.width, width);
    for (quint64 i = 0; i < buffer.dataSize(); ++i)
        ASSERT_TRUE(buffer.data[i] == 0 || buffer.data[i] == 255) << i;
}

TEST_F(ViewChain, KeepsTheLastFrameWhenItChangesAfterTheCameraHasStopped)
{
    const int id = startCamera();
    ASSERT_TRUE(nextFrame(id));
    app.setCameraAcquisition(false, camera);
    const CxImageData* const shown = app.viewImage(id);
    add(app.view(id), "Threshold");
    EXPECT_EQ(app.viewImage(id), shown);
}

TEST_F(ViewChain, TakesTwoHundredInsertionsWhileACameraStreams)
{
    const int id = startCamera();
    for (int i = 0; i < 200; ++i) {
        add(app.view(id), "Flip");
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(app.imageView(id)->chain().elements().size(), 200U);
    EXPECT_TRUE(nextFrame(id));
}

TEST_F(ViewChain, MayRunWhenTheViewIsClosed)
{
    const int id = startCamera();
    add(app.view(id), "Median");
    ASSERT_TRUE(nextFrame(id));
    app.view(id)->closeMdiView();
    EXPECT_TRUE(handleEventsUntil([&] { return app.view(id) == nullptr; }));
}

TEST_F(ViewChain, MayRunWhenTheHostEnds)
{
    add(app.view(startCamera()), "Median");
    while (host.cameras().statistics(camera).framesTaken == 0)
        QThread::msleep(5);
}

TEST_F(ViewChain, ThatIsStoppedShowsNoFrames)
{
    const int id = startCamera();
    ASSERT_TRUE(nextFrame(id));
    app.view(id)->chainEnd()->chain()->stop();
    QCoreApplication::processEvents();
    const quint64 frames = app.view(id)->frameCount();
    EXPECT_FALSE(environment.waitForNextFrame(app.view(id), 0.3));
    EXPECT_EQ(app.view(id)->frameCount(), frames);
    app.view(id)->chainEnd()->chain()->start();
    EXPECT_TRUE(nextFrame(id));
}

TEST_F(ViewChain, IsRecordedAsItIsShown)
{
    const int id = startCamera();
    add(app.view(id), "Threshold");
    ASSERT_TRUE(nextFrame(id));
    EXPECT_FALSE(app.view(id)->isRecording());
    ASSERT_TRUE(app.view(id)->startRecording(path("a.avi")));
    EXPECT_TRUE(app.view(id)->isRecording());
    for (int i = 0; i < 4; ++i)
        ASSERT_TRUE(nextFrame(id));
    app.view(id)->stopRecording();
    EXPECT_FALSE(app.view(id)->isRecording());
    EXPECT_GE(picturesIn(path("a.avi")), 3);
    cv::VideoCapture player(path("a.avi").toStdString());
    cv::Mat picture;
    ASSERT_TRUE(player.read(picture));
    EXPECT_EQ(picture.cols, static_cast<int>(app.viewImage(id)->picBuf()->width));
    const cv::Mat between = (picture > 80) & (picture < 170); // edges alone
    EXPECT_LT(cv::mean(between)[0], 30);
}

TEST_F(ViewChain, IsRecordedAtTheCamerasFrameRate)
{
    const int id = startCamera();
    ASSERT_TRUE(host.cameras().cameraParameters(camera)->setParamDirect(
        QStringLiteral("framerate"), CxValue::fromFloat(12.5F), nullptr,
        CxCameraParameters::NoRefresh));
    ASSERT_TRUE(app.view(id)->startRecording(path("a.avi")));
    ASSERT_TRUE(nextFrame(id));
    ASSERT_TRUE(nextFrame(id));
    app.view(id)->stopRecording();
    EXPECT_NEAR(cv::VideoCapture(path("a.avi").toStdString()).get(cv::CAP_PROP_FPS), 12.5, 0.02);
}

TEST_F(ViewChain, OfAStillPictureIsRecordedPictureByPicture)
{
    const int id = openView();
    ASSERT_TRUE(app.view(id)->startRecording(path("a.avi")));
    for (int i = 0; i < 3; ++i)
        app.setViewImage(id, makeImage(8, 4, 50 * i).release());
    app.view(id)->stopRecording();
    EXPECT_EQ(picturesIn(path("a.avi")), 4); // the first was there at the start
}

TEST_F(ViewChain, OfAStillPictureIsRecordedWholeHoweverFastPicturesAreSet)
{
    const LogLines log;
    const int id = openView();
    app.setViewImage(id, nullptr);
    ASSERT_TRUE(app.view(id)->startRecording(path("a.avi")));
    for (int i = 0; i < 60; ++i)
        app.setViewImage(id, makeImage(1280, 1024, 4 * i).release());
    app.view(id)->stopRecording();
    EXPECT_EQ(picturesIn(path("a.avi")), 60);
    EXPECT_TRUE(log.errors().isEmpty());
}

TEST_F(ViewChain, IsNotRecordedTwiceAtOnce)
{
    const LogLines log;
    CxMdiView* const view = app.view(openView());
    ASSERT_TRUE(view->startRecording(path("a.avi")));
    EXPECT_FALSE(view->startRecording(path("b.avi")));
    EXPECT_TRUE(view->isRecording());
    EXPECT_FALSE(app.view(openView())->startRecording(path("a.avi")));
    view->stopRecording();
    EXPECT_EQ(picturesIn(path("a.avi")), 1);
    EXPECT_FALSE(QFileInfo::exists(path("b.avi")));
    EXPECT_TRUE(view->startRecording(path("b.avi")));
    EXPECT_EQ(log.errors().size(), 2);
}

TEST_F(ViewChain, MayBeToldToStopRecordingWithoutARecording)
{
    CxMdiView* const view = app.view(openView());
    view->stopRecording();
    EXPECT_FALSE(view->isRecording());
}

TEST_F(ViewChain, RefusesARecordingThatCannotBeMadeAndLogsWhy)
{
    const LogLines log;
    CxMdiView* const view = app.view(openView());
    EXPECT_FALSE(view->startRecording(path("a.mkv")));
    EXPECT_FALSE(view->startRecording(QStringLiteral("/proc/a.avi")));
    EXPECT_FALSE(view->isRecording());
    ASSERT_EQ(log.errors().size(), 2);
    EXPECT_TRUE(
        log.errors().first().contains(QStringLiteral("a.mkv\" is not recorded: films are")));
}

TEST_F(ViewChain, EndsItsFilmWhenTheViewIsClosed)
{
    const int id = startCamera();
    ASSERT_TRUE(app.view(id)->startRecording(path("a.mp4")));
    ASSERT_TRUE(nextFrame(id)); // may have passed before the start
    for (int i = 0; i < 3; ++i)
        ASSERT_TRUE(nextFrame(id));
    app.view(id)->closeMdiView();
    EXPECT_GE(picturesIn(path("a.mp4")), 3);
}

TEST(ViewRecording, EndsItsFilmWhenTheHostEnds)
{
    const QTemporaryDir folder;
    const QString film = folder.filePath(QStringLiteral("a.mp4"));
    {
        HostApplication host;
        QString error;
        void* const camera =
            host.cameras().open(QString::fromLatin1(CameraManager::simulatedId), error);
        ASSERT_TRUE(host.delegate().setCameraAcquisition(true, camera)) << qPrintable(error);
        CxMdiView* const view = host.delegate().view(host.delegate().activeViewId());
        ASSERT_TRUE(view->startRecording(film)); // the first frame may have passed before
        ASSERT_TRUE(handleEventsUntil([view] { return view->frameCount() >= 3; }));
    }
    cv::VideoCapture player(film.toStdString());
    cv::Mat picture;
    EXPECT_TRUE(player.read(picture) && player.read(picture));
}

TEST_F(ViewChain, RecordsOnWhenTheCameraStopsAndGoesOn)
{
    const int id = startCamera();
    ASSERT_TRUE(app.view(id)->startRecording(path("a.avi")));
    ASSERT_TRUE(nextFrame(id)); // may have passed before the start
    ASSERT_TRUE(nextFrame(id));
    app.setCameraAcquisition(false, camera);
    EXPECT_TRUE(app.view(id)->isRecording());
    app.setCameraAcquisition(true, camera);
    ASSERT_TRUE(nextFrame(id));
    app.view(id)->stopRecording();
    EXPECT_GE(picturesIn(path("a.avi")), 2);
}

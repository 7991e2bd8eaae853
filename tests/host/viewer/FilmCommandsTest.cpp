// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Recording of the active view by the window's commands.
#include "DialogClicker.h"
#include "FileDialogFiller.h"

#include "../app/AppFixture.h"

#include "app/MainWindow.h"
#include "viewer/cameras/FilmCommands.h"

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtGui/QAction>

#include <gmock/gmock.h>

#include <opencv2/videoio.hpp>

namespace vistrel {

using testing::HasSubstr;

namespace {

class Recording : public HostTest {
protected:
    void SetUp() override
    {
        qobject_cast<MainWindow*>(app.mainWindow())->show();
        QString error;
        camera = host.cameras().open(QString::fromLatin1(CameraManager::simulatedId), error);
        ASSERT_NE(camera, nullptr) << qPrintable(error);
    }
    ImageView& startView()
    {
        EXPECT_TRUE(app.setCameraAcquisition(true, camera));
        return *app.liveView(camera);
    }
    /// Lets the command ask for a name and answers.
    void record(const QString& name)
    {
        FileDialogFiller filler({name});
        films.recordAction()->trigger();
    }
    static RecordingMark& markOf(const ImageView& view)
    {
        return *view.findChild<RecordingMark*>();
    }
    /// Waits for frames that begin from now on: the one that is on its way to the view already may
    /// have passed the recorder by.
    static bool takeFrames(const ImageView& view, quint64 more)
    {
        const quint64 before = view.frameCount() + 1;
        return handleEventsUntil([&] { return view.frameCount() >= before + more; });
    }
    QString file(const char* name) const { return m_folder.filePath(QString::fromLatin1(name)); }
    static int framesIn(const QString& path)
    {
        cv::VideoCapture film(path.toStdString());
        cv::Mat frame;
        int count = 0;
        while (film.read(frame))
            ++count;
        return count;
    }

    QTemporaryDir m_folder;
    void* camera = nullptr;
    FilmCommands films{host};
};

} // namespace

TEST_F(Recording, NeedsAView)
{
    EXPECT_FALSE(films.recordAction()->isEnabled());
    EXPECT_FALSE(films.endAction()->isEnabled());
    startView();
    EXPECT_TRUE(films.recordAction()->isEnabled());
    EXPECT_FALSE(films.endAction()->isEnabled());
}

TEST_F(Recording, AsksForANameAndEndsWithAFilmThatCanBePlayed)
{
    const ImageView& view = startView();
    ASSERT_TRUE(takeFrames(view, 1));
    record(file("bench.avi"));
    EXPECT_TRUE(view.isRecording());
    EXPECT_FALSE(films.recordAction()->isEnabled());
    ASSERT_TRUE(takeFrames(view, 5));
    films.endAction()->trigger();
    EXPECT_FALSE(view.isRecording());
    EXPECT_TRUE(films.recordAction()->isEnabled());
    EXPECT_GE(framesIn(file("bench.avi")), 5);
}

TEST_F(Recording, IsAFilmOfTheUsualKindUnlessTheNameSaysOtherwise)
{
    const ImageView& view = startView();
    record(file("plain"));
    ASSERT_TRUE(takeFrames(view, 2));
    films.endAction()->trigger();
    EXPECT_GE(framesIn(file("plain.mp4")), 1);
}

TEST_F(Recording, IsMarkedInItsViewWithTheTimeSinceItBegan)
{
    const ImageView& view = startView();
    ASSERT_TRUE(takeFrames(view, 1));
    EXPECT_FALSE(markOf(view).isVisible());
    record(file("marked.avi"));
    EXPECT_TRUE(markOf(view).isVisible());
    EXPECT_THAT(markOf(view).text().toStdString(), HasSubstr("00:00"));
    const QRegularExpression laterTime(QStringLiteral("00:0[1-9]|00:[1-5]"));
    EXPECT_TRUE(handleEventsUntil([&] { return markOf(view).text().contains(laterTime); }));
    films.endAction()->trigger();
    EXPECT_FALSE(markOf(view).isVisible());
}

TEST_F(Recording, OfAScriptIsMarkedToo)
{
    ImageView& view = startView();
    ASSERT_TRUE(view.startRecording(file("script.avi")));
    EXPECT_TRUE(handleEventsUntil([&] { return markOf(view).isVisible(); }));
    EXPECT_TRUE(handleEventsUntil([&] { return films.endAction()->isEnabled(); }));
}

TEST_F(Recording, EndsProperlyWhenItsViewIsClosed)
{
    ImageView& view = startView();
    record(file("closed.avi"));
    ASSERT_TRUE(takeFrames(view, 3));
    view.closeMdiView();
    EXPECT_GE(framesIn(file("closed.avi")), 3);
    EXPECT_FALSE(films.endAction()->isEnabled());
}

TEST_F(Recording, IsNotBegunWhenTheDialogIsGivenUp)
{
    const ImageView& view = startView();
    record(QString());
    EXPECT_FALSE(view.isRecording());
}

TEST_F(Recording, SaysWhyItCannotBegin)
{
    const ImageView& view = startView();
    DialogClicker clicker({QStringLiteral("OK")});
    record(file("film.xyz"));
    EXPECT_FALSE(view.isRecording());
    EXPECT_THAT(clicker.texts().join(u'\n').toStdString(), HasSubstr("film.xyz"));
}

} // namespace vistrel

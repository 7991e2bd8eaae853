// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The keys of the commands for cameras and films.
#include "FileDialogFiller.h"
#include "ViewerFixture.h"

#include "app/ImageView.h"
#include "viewer/cameras/CameraList.h"
#include "viewer/cameras/CameraPanel.h"
#include "viewer/cameras/ParameterPanel.h"

#include <CxCameraParameters.h>

#include <QtWidgets/QDockWidget>
#include <QtWidgets/QLineEdit>

namespace vistrel {

namespace {

class CameraCommands : public ViewerTest {
protected:
    CameraCommands()
    {
        QString error;
        camera = manager().open(QString::fromLatin1(CameraManager::simulatedId), error);
        EXPECT_NE(camera, nullptr) << qPrintable(error);
        m_viewer->cameras().list().follow();
        useWindow();
    }
    /// Keys go to the window that is in use, which a dialog is no more.
    void useWindow()
    {
        m_viewer->window().activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&m_viewer->window()));
    }
    CameraManager& manager() { return m_viewer->host().cameras(); }
    ImageView* view() { return delegate().liveView(camera); }

    void* camera = nullptr;
};

} // namespace

TEST_F(CameraCommands, StartStopAndCloseByKey)
{
    press(Qt::Key_F6);
    EXPECT_TRUE(manager().isStreaming(camera));
    press(Qt::SHIFT | Qt::Key_F6);
    EXPECT_FALSE(manager().isStreaming(camera));
    press(Qt::CTRL | Qt::SHIFT | Qt::Key_F6);
    EXPECT_EQ(manager().openedCameraCount(), 0U);
}

TEST_F(CameraCommands, OpenByKey)
{
    manager().close(camera);
    m_viewer->cameras().list().follow();
    press(Qt::ALT | Qt::Key_F6);
    EXPECT_TRUE(handleEventsUntil([this] { return manager().openedCameraCount() == 1; }));
}

TEST_F(CameraCommands, GoToTheParametersByKeyAlsoInAHiddenPanel)
{
    CameraPanel& panel = m_viewer->cameras();
    auto* dock = qobject_cast<QDockWidget*>(panel.parentWidget());
    dock->hide();
    press(Qt::Key_F7);
    EXPECT_TRUE(panel.isVisible());
    EXPECT_TRUE(panel.parameters().filter().hasFocus());
}

TEST_F(CameraCommands, SetTheRegionByKey)
{
    press(Qt::SHIFT | Qt::Key_F8);
    EXPECT_EQ(manager().cameraParameters(camera)->currentROIRectParams(), QRect(0, 0, 2048, 2048));
    press(Qt::Key_F6);
    press(Qt::Key_F8);
    EXPECT_TRUE(view()->drawsRectangle());
}

TEST_F(CameraCommands, SaveSettingsByKey)
{
    const QString path = m_folder.filePath(QStringLiteral("kept.json"));
    FileDialogFiller filler({path});
    press(Qt::CTRL | Qt::SHIFT | Qt::Key_F7);
    EXPECT_TRUE(QFile::exists(path));
}

TEST_F(CameraCommands, RecordByKey)
{
    press(Qt::Key_F6);
    FileDialogFiller filler({m_folder.filePath(QStringLiteral("film.avi"))});
    press(Qt::Key_F12);
    EXPECT_TRUE(view()->isRecording());
    useWindow();
    press(Qt::SHIFT | Qt::Key_F12);
    EXPECT_FALSE(view()->isRecording());
}

} // namespace vistrel

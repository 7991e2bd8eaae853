// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A camera that is lost while the window shows it: a simulated one over loopback that is killed.
#include "ShownFeatures.h"

#include "../app/AppFixture.h"
#include "../cameras/CameraProcess.h"

#include "viewer/cameras/CameraList.h"
#include "viewer/cameras/CameraPanel.h"

#include <QtGui/QAction>

#include <gmock/gmock.h>

namespace vistrel {

using testing::HasSubstr;

namespace {

class LostCamera : public HostTest {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(onlyOne.tryLock(120000)) << "another test holds the network camera";
        process.emplace("127.0.0.1", "VISTREL02");
        panel.show();
        ASSERT_TRUE(handleEventsUntil([this] { return openThroughPanel(); }))
            << qPrintable(panel.message());
        camera = panel.list().currentCamera();
    }
    void TearDown() override
    {
        for (void* handle : host.cameras().openedCameras())
            host.cameras().close(handle);
    }
    /// Looks for the camera until it is there and open.
    bool openThroughPanel()
    {
        if (!cameraItem()) {
            panel.command(CameraPanel::Find)->trigger();
            return false;
        }
        panel.list().setCurrentItem(cameraItem());
        panel.command(CameraPanel::Open)->trigger();
        return panel.list().currentCamera() != nullptr;
    }
    QTreeWidgetItem* cameraItem()
    {
        const QList<QTreeWidgetItem*> items = panel.list().findItems(
            process->serialNumber, Qt::MatchExactly, CameraList::SerialNumber);
        return items.isEmpty() ? nullptr : items.constFirst();
    }

    QLockFile onlyOne{test::networkCameraLock()};
    std::optional<test::CameraProcess> process;
    CameraPanel panel{host};
    void* camera = nullptr;
};

} // namespace

TEST_F(LostCamera, LeavesItsPlaceInTheListAndTakesItsParametersAlong)
{
    ASSERT_NE(panel.parameters().row(QStringLiteral("width")), nullptr);
    ASSERT_TRUE(app.setCameraAcquisition(true, camera));
    process->kill();
    EXPECT_TRUE(handleEventsUntil([this] { return panel.parameters().camera() == nullptr; }));
    EXPECT_EQ(panel.parameters().row(QStringLiteral("width")), nullptr);
    EXPECT_EQ(cameraItem()->text(CameraList::State), QStringLiteral("connection lost"));
    EXPECT_THAT(panel.message().toStdString(), HasSubstr("The connection to camera"));
    EXPECT_FALSE(panel.command(CameraPanel::Stop)->isEnabled());
}

TEST_F(LostCamera, ExplainsAValueThatDidNotReachIt)
{
    ASSERT_NE(panel.parameters().row(QStringLiteral("width")), nullptr);
    process->kill();
    enter(panel.parameters(), QStringLiteral("width"), QStringLiteral("256"));
    EXPECT_THAT(textsOf(panel.parameters(), QStringLiteral("width")), HasSubstr("Not set to 256"));
    EXPECT_TRUE(handleEventsUntil([this] { return panel.parameters().camera() == nullptr; }));
}

} // namespace vistrel

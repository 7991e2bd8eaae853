// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The list of cameras and what its buttons do, on the simulated camera.
#include "DialogClicker.h"
#include "FileDialogFiller.h"
#include "ShownFeatures.h"

#include "../app/AppFixture.h"

#include "app/LiveStream.h"
#include "app/MainWindow.h"
#include "chains/Flip.h"
#include "viewer/cameras/CameraList.h"
#include "viewer/cameras/CameraPanel.h"
#include "viewer/cameras/DrawnRegion.h"

#include <CxCameraParameters.h>

#include <QtCore/QFile>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QTemporaryDir>
#include <QtGui/QAction>

#include <gmock/gmock.h>

namespace vistrel {

using testing::AllOf;
using testing::HasSubstr;

namespace {

class CameraDock : public HostTest {
protected:
    CameraDock()
    {
        auto* window = qobject_cast<MainWindow*>(app.mainWindow());
        window->show();
        panel.resize(420, 900);
        panel.show();
        // It looks for cameras by itself.
        EXPECT_TRUE(reaches(QStringLiteral("found")));
    }

    void click(CameraPanel::Command command)
    {
        for (QToolButton* button : panel.findChildren<QToolButton*>()) {
            if (button->defaultAction() == panel.command(command))
                return QTest::mouseClick(button, Qt::LeftButton);
        }
        ADD_FAILURE() << "no button for command " << command;
    }
    bool isOffered(CameraPanel::Command command) { return panel.command(command)->isEnabled(); }
    QTreeWidgetItem* item(const QString& id)
    {
        for (int row = 0; row < panel.list().topLevelItemCount(); ++row) {
            QTreeWidgetItem* candidate = panel.list().topLevelItem(row);
            if (candidate->data(CameraList::Model, Qt::UserRole).toString() == id)
                return candidate;
        }
        return nullptr;
    }
    QString state() { return item(sim) ? item(sim)->text(CameraList::State) : QString(); }
    bool reaches(const QString& wanted)
    {
        return handleEventsUntil([&] { return state() == wanted; });
    }
    /// Finds and opens the simulated camera by clicks.
    void open()
    {
        panel.list().showFound({{sim, QString(), QStringLiteral("Fake"), QStringLiteral("1")}});
        panel.list().setCurrentItem(item(sim));
        click(CameraPanel::Open);
        ASSERT_TRUE(reaches(QStringLiteral("open"))) << qPrintable(panel.message());
        camera = host.cameras().openedCameras().constFirst();
    }
    /// The view that shows it, with its first frame.
    ImageView& startView()
    {
        click(CameraPanel::Start);
        ImageView* view = app.liveView(camera);
        EXPECT_TRUE(handleEventsUntil([&] { return view->image() != nullptr; }));
        return *view;
    }
    CxCameraParameters& parameters() { return *host.cameras().cameraParameters(camera); }
    /// Drags the mouse over the picture between two of its pixels.
    static void drag(ImageView& view, const QPoint& from, const QPoint& to)
    {
        const auto pointOf = [&](const QPoint& pixel) {
            return view.zoomPan().placeOf(QRect(pixel, QSize(1, 1))).center().toPoint();
        };
        QTest::mousePress(&view, Qt::LeftButton, {}, pointOf(from));
        QTest::mouseMove(&view, pointOf(to));
        QTest::mouseRelease(&view, Qt::LeftButton, {}, pointOf(to));
    }
    QString file(const QString& name) const { return m_folder.filePath(name); }

    const QString sim = QString::fromLatin1(CameraManager::simulatedId);
    QTemporaryDir m_folder;
    void* camera = nullptr;
    CameraPanel panel{host};
};

} // namespace

TEST_F(CameraDock, LooksForCamerasWhenItIsFirstSeen)
{
    EXPECT_EQ(state(), QStringLiteral("found"));
    EXPECT_EQ(panel.message(), QString());
    panel.hide();
    panel.show();
    EXPECT_TRUE(isOffered(CameraPanel::Find)); // and not again
}

TEST_F(CameraDock, HasRoomForAllItsButtons)
{
    panel.resize(320, 900); // narrower than the window makes it
    for (const QToolButton* button : panel.findChildren<QToolButton*>()) {
        const QAction* action = button->defaultAction();
        const bool isCommand = action && action->parent() == &panel;
        EXPECT_TRUE(button->isVisible() || !isCommand) << qPrintable(action->text());
    }
}

TEST_F(CameraDock, ListsTheCamerasThatAreFound)
{
    panel.list().showFound({});
    click(CameraPanel::Find);
    EXPECT_FALSE(isOffered(CameraPanel::Find)); // while it looks
    ASSERT_TRUE(reaches(QStringLiteral("found")));
    EXPECT_EQ(item(sim)->text(CameraList::Model), QStringLiteral("Fake"));
    EXPECT_FALSE(item(sim)->text(CameraList::SerialNumber).isEmpty());
    EXPECT_TRUE(isOffered(CameraPanel::Find));
    EXPECT_THAT(panel.message().toStdString(), HasSubstr("found"));
}

TEST_F(CameraDock, OpensStartsStopsAndClosesByItsButtons)
{
    open();
    EXPECT_FALSE(isOffered(CameraPanel::Open));
    click(CameraPanel::Start);
    EXPECT_TRUE(host.cameras().isStreaming(camera));
    EXPECT_EQ(state(), QStringLiteral("live"));
    EXPECT_NE(app.liveView(camera), nullptr);
    click(CameraPanel::Stop);
    EXPECT_FALSE(host.cameras().isStreaming(camera));
    EXPECT_EQ(state(), QStringLiteral("open"));
    click(CameraPanel::Close);
    EXPECT_EQ(host.cameras().openedCameraCount(), 0U);
    EXPECT_EQ(state(), QStringLiteral("found"));
    EXPECT_TRUE(isOffered(CameraPanel::Open));
    EXPECT_FALSE(isOffered(CameraPanel::Start));
}

TEST_F(CameraDock, OpensAndStartsByDoubleClicks)
{
    panel.list().showFound({{sim, QString(), QStringLiteral("Fake"), QStringLiteral("1")}});
    const auto doubleClick = [this] {
        const QPoint place = panel.list().visualItemRect(item(sim)).center();
        QTest::mouseClick(panel.list().viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(panel.list().viewport(), Qt::LeftButton, {}, place);
    };
    doubleClick();
    ASSERT_TRUE(reaches(QStringLiteral("open")));
    doubleClick();
    EXPECT_TRUE(reaches(QStringLiteral("live")));
}

TEST_F(CameraDock, SaysWhyACameraIsNotOpened)
{
    panel.list().showFound({{QStringLiteral("nowhere"), {}, QStringLiteral("Gone"), {}}});
    click(CameraPanel::Open);
    ASSERT_TRUE(
        handleEventsUntil([this] { return panel.message().contains(QStringLiteral("nowhere")); }));
    EXPECT_THAT(panel.message().toStdString(), HasSubstr("camera nowhere was not found"));
    EXPECT_TRUE(isOffered(CameraPanel::Open));
}

TEST_F(CameraDock, FollowsWhatScriptsDo)
{
    QString error;
    panel.list().setCurrentItem(item(sim)); // there may be real ones
    camera = host.cameras().open(sim, error);
    ASSERT_TRUE(reaches(QStringLiteral("open")));
    EXPECT_NE(panel.parameters().row(QStringLiteral("width")), nullptr);
    app.setCameraAcquisition(true, camera);
    EXPECT_TRUE(reaches(QStringLiteral("live")));
    host.cameras().close(camera);
    EXPECT_TRUE(reaches(QStringLiteral("found")));
    EXPECT_EQ(panel.parameters().camera(), nullptr);
}

TEST_F(CameraDock, TurnsToTheCameraOfTheActiveView)
{
    open();
    startView();
    panel.list().showFound({{QStringLiteral("other"), {}, QStringLiteral("Other"), {}},
                            {sim, {}, QStringLiteral("Fake"), QStringLiteral("1")}});
    panel.list().setCurrentItem(item(QStringLiteral("other")));
    EXPECT_EQ(panel.parameters().camera(), nullptr);
    openView();
    app.activateView(app.liveView(camera)->id());
    EXPECT_EQ(panel.list().currentCamera(), camera);
    EXPECT_EQ(panel.parameters().camera(), camera);
}

TEST_F(CameraDock, SetsTheRegionThatIsDrawnInThePicture)
{
    open();
    parameters().setROIRectParams(100, 200, 512, 512, true);
    ImageView& view = startView();
    click(CameraPanel::DrawRegion);
    EXPECT_TRUE(view.drawsRectangle());
    drag(view, QPoint(64, 32), QPoint(320, 288));
    const QRect region = parameters().currentROIRectParams();
    EXPECT_NEAR(region.x(), 164, 3);
    EXPECT_NEAR(region.y(), 232, 3);
    EXPECT_NEAR(region.width(), 256, 5);
    EXPECT_NEAR(region.height(), 256, 5);
    EXPECT_TRUE(host.cameras().isStreaming(camera));
    EXPECT_EQ(panel.message(), QStringLiteral("The camera sends %1 x %2 pixels from (%3, %4) on.")
                                   .arg(region.width())
                                   .arg(region.height())
                                   .arg(region.x())
                                   .arg(region.y()));
    EXPECT_TRUE(handleEventsUntil([&] { return view.pictureSize() == region.size(); }));
}

TEST_F(CameraDock, SetsTheRegionOfTheCameraInWhosePictureItIsDrawn)
{
    open();
    parameters().setROIRectParams(0, 0, 512, 512, true);
    ImageView& view = startView();
    panel.list().showFound({{QStringLiteral("other"), {}, QStringLiteral("Other"), {}},
                            {sim, {}, QStringLiteral("Fake"), QStringLiteral("1")}});
    panel.list().setCurrentItem(item(sim));
    click(CameraPanel::DrawRegion);
    panel.list().setCurrentItem(item(QStringLiteral("other")));
    drag(view, QPoint(64, 32), QPoint(320, 288));
    EXPECT_NEAR(parameters().currentROIRectParams().width(), 256, 5);
    EXPECT_THAT(panel.message().toStdString(), HasSubstr("The camera sends"));
}

TEST_F(CameraDock, SaysThatTheCameraIsGoneWhenARegionIsDrawnTooLate)
{
    open();
    ImageView& view = startView();
    click(CameraPanel::DrawRegion);
    host.cameras().close(camera);
    drag(view, QPoint(64, 32), QPoint(320, 288));
    EXPECT_THAT(panel.message().toStdString(), HasSubstr("not open any more"));
}

TEST_F(CameraDock, LeavesACameraAloneThatAScriptHasJustClosed)
{
    open();
    host.cameras().close(camera); // the list looks again a little later
    for (const auto command : {CameraPanel::WholeSensor, CameraPanel::Stop, CameraPanel::Close,
                               CameraPanel::FilterParameters})
        panel.command(command)->trigger();
    EXPECT_TRUE(reaches(QStringLiteral("found")));
}

TEST_F(CameraDock, LeavesTheRegionWhenNothingIsDrawn)
{
    open();
    ImageView& view = startView();
    const QRect before = parameters().currentROIRectParams();
    click(CameraPanel::DrawRegion);
    EXPECT_THAT(panel.message().toStdString(), HasSubstr("Draw the region"));
    QTest::keyClick(&view, Qt::Key_Escape);
    EXPECT_FALSE(view.drawsRectangle());
    EXPECT_EQ(panel.message(), QString());
    EXPECT_EQ(parameters().currentROIRectParams(), before);
}

TEST_F(CameraDock, RefusesARegionOnAPictureThatAnElementHasTurned)
{
    open();
    ImageView& view = startView();
    view.chain().insertBefore(std::make_unique<Flip>(), nullptr);
    const QRect before = parameters().currentROIRectParams();
    click(CameraPanel::DrawRegion);
    drag(view, QPoint(64, 32), QPoint(320, 288));
    EXPECT_THAT(panel.message().toStdString(), HasSubstr("switch Flip off"));
    EXPECT_EQ(parameters().currentROIRectParams(), before);
}

TEST_F(CameraDock, GoesBackToTheWholeSensor)
{
    open();
    click(CameraPanel::WholeSensor);
    EXPECT_EQ(parameters().currentROIRectParams(), QRect(0, 0, 2048, 2048));
    EXPECT_EQ(panel.message(),
              QStringLiteral("The camera sends 2048 x 2048 pixels from (0, 0) on."));
}

TEST_F(CameraDock, SavesAndLoadsTheSettings)
{
    open();
    ASSERT_TRUE(parameters().setParamDirect(QStringLiteral("gain_db"), CxValue::fromInt(6), nullptr,
                                            CxCameraParameters::NoRefresh));
    FileDialogFiller filler({file(QStringLiteral("bench")), file(QStringLiteral("bench.json"))});
    click(CameraPanel::SaveSettings);
    EXPECT_TRUE(QFile::exists(file(QStringLiteral("bench.json"))));
    parameters().setParamDirect(QStringLiteral("gain_db"), CxValue::fromInt(1), nullptr,
                                CxCameraParameters::NoRefresh);
    click(CameraPanel::LoadSettings);
    CxValue gain;
    parameters().getParamDirect(QStringLiteral("gain_db"), gain, nullptr);
    EXPECT_EQ(gain.toFloat(), 6.0F);
    EXPECT_THAT(panel.message().toStdString(),
                AllOf(HasSubstr("bench.json"), HasSubstr("were set")));
}

TEST_F(CameraDock, TellsWhichSettingsCouldNotBeSet)
{
    open();
    const QString path = file(QStringLiteral("odd.json"));
    ASSERT_TRUE(parameters().saveParamValuesToFile(path, CxCameraParam::Guru));
    QFile settings(path);
    ASSERT_TRUE(settings.open(QIODevice::ReadWrite));
    QJsonObject object = QJsonDocument::fromJson(settings.readAll()).object();
    QJsonObject values = object.value(u"parameters").toObject();
    values.insert(QStringLiteral("GainRaw"), 77);
    values.insert(QStringLiteral("NoSuchNode"), 1);
    object.insert(QStringLiteral("parameters"), values);
    settings.resize(0);
    settings.write(QJsonDocument(object).toJson());
    settings.close();
    FileDialogFiller filler({path});
    DialogClicker clicker({QStringLiteral("OK")});
    click(CameraPanel::LoadSettings);
    EXPECT_THAT(clicker.texts().join(u'\n').toStdString(),
                AllOf(HasSubstr("2 setting"), HasSubstr("GainRaw cannot be set to 77"),
                      HasSubstr("NoSuchNode")));
}

TEST_F(CameraDock, SaysWhySettingsWereNotReadOrWritten)
{
    open();
    QFile broken(file(QStringLiteral("broken.json")));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("{");
    broken.close();
    FileDialogFiller filler({broken.fileName(), QString()});
    click(CameraPanel::LoadSettings);
    EXPECT_THAT(panel.message().toStdString(),
                AllOf(HasSubstr("settings cannot be loaded"), HasSubstr("broken at byte")));
    click(CameraPanel::LoadSettings); // given up: nothing new is said
    EXPECT_THAT(panel.message().toStdString(), HasSubstr("broken at byte"));
}

TEST(RegionOnSensor, AddsTheOffsetAndCountsPixelsThatAreJoined)
{
    const QRect now(100, 50, 400, 200);
    EXPECT_EQ(regionOnSensor(QRect(10, 20, 30, 40), QSize(400, 200), now), QRect(110, 70, 30, 40));
    EXPECT_EQ(regionOnSensor(QRect(10, 20, 30, 40), QSize(200, 100), now), QRect(120, 90, 60, 80));
}

TEST(RegionOnSensor, HoldsTheRectangleInsideThePicture)
{
    EXPECT_EQ(regionOnSensor(QRect(-10, -10, 1000, 20), QSize(64, 32), QRect(0, 0, 64, 32)),
              QRect(0, 0, 64, 10));
    EXPECT_TRUE(regionOnSensor(QRect(70, 5, 10, 10), QSize(64, 32), QRect(0, 0, 64, 32)).isEmpty());
}

TEST(RegionOnSensor, IsEmptyForAPictureOfAnotherRegion)
{
    EXPECT_TRUE(
        regionOnSensor(QRect(1, 1, 9, 9), QSize(300, 200), QRect(0, 0, 400, 200)).isEmpty());
}

} // namespace vistrel

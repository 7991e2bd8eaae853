// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The camera object: binding, text form, start and stop of the live stream.
#include "PluginTest.h"

using testing::_;
using testing::InSequence;
using testing::Return;

namespace {

class CameraObject : public PluginTest {
protected:
    static constexpr char notAvailable[] = "Exception: Camera not available";
    static constexpr char notFound[] = "Exception: Camera not found";

    /// What str() gives after a script has worked on `cam`.
    QString textAfter(const std::string& script)
    {
        EXPECT_EQ(run(("cam = vistrel.Camera()\n" + script + "\nprint(cam, end='')").c_str()),
                  QString());
        return output;
    }
};

TEST_F(CameraObject, IsUnboundWhenNewWhateverTheArguments)
{
    EXPECT_EQ(value("vistrel.Camera()"), QStringLiteral("camera(disconnected)"));
    EXPECT_EQ(value("vistrel.Camera(1, 'x', key=2)"), QStringLiteral("camera(disconnected)"));
}

TEST_F(CameraObject, OpensTheFirstCameraByDefault)
{
    addCamera(QStringLiteral("CAM-A1"), QStringLiteral("12345678"));
    addCamera(QStringLiteral("CAM-B2"), QStringLiteral("87654321"));
    EXPECT_EQ(textAfter("cam.open_device()"), QStringLiteral("camera(CAM-A1, sn: 12345678)"));
    EXPECT_EQ(textAfter("cam.open_device(1)"), QStringLiteral("camera(CAM-B2, sn: 87654321)"));
}

TEST_F(CameraObject, AnIndexOutsideTheListIsNotAvailable)
{
    EXPECT_EQ(error("vistrel.Camera().open_device()"), QLatin1String(notAvailable));
    addCamera(QStringLiteral("CAM-A1"), QStringLiteral("1"));
    EXPECT_EQ(error("vistrel.Camera().open_device(-1)"), QLatin1String(notAvailable));
    EXPECT_EQ(error("vistrel.Camera().open_device(1)"), QLatin1String(notAvailable));
}

TEST_F(CameraObject, ErrorsAreOfTheBaseClassItself)
{
    run("try: vistrel.Camera().open_device()\n"
        "except Exception as e: print(type(e) is Exception, end='')");
    EXPECT_EQ(output, QStringLiteral("True"));
}

TEST_F(CameraObject, SearchByTextIgnoresCase)
{
    FakeCamera& camera = addCamera(QStringLiteral("CAM"), QStringLiteral("AB-12F"));
    camera.info.userId = QStringLiteral("Top Left Ä");
    camera.info.instancePath = QStringLiteral("/USB/Port-1");
    const QString bound = QStringLiteral("camera(CAM, sn: AB-12F)");
    EXPECT_EQ(textAfter("cam.open_device_by_SN('ab-12f')"), bound);
    EXPECT_EQ(textAfter("cam.open_device_by_user_id('top left ä')"), bound);
    EXPECT_EQ(textAfter("cam.open_device_by_path('/usb/PORT-1')"), bound);
}

TEST_F(CameraObject, SearchComparesItsOwnFieldOnly)
{
    FakeCamera& camera = addCamera(QStringLiteral("CAM"), QStringLiteral("serial"));
    camera.info.userId = QStringLiteral("user");
    camera.info.instancePath = QStringLiteral("path");
    EXPECT_EQ(error("vistrel.Camera().open_device_by_SN('user')"), QLatin1String(notFound));
    EXPECT_EQ(error("vistrel.Camera().open_device_by_user_id('path')"), QLatin1String(notFound));
    EXPECT_EQ(error("vistrel.Camera().open_device_by_path('serial')"), QLatin1String(notFound));
}

TEST_F(CameraObject, TheFirstOfTwoCamerasWithOneUserIdIsBound)
{
    addCamera(QStringLiteral("A"), QStringLiteral("1")).info.userId = QStringLiteral("twin");
    addCamera(QStringLiteral("B"), QStringLiteral("2")).info.userId = QStringLiteral("twin");
    EXPECT_EQ(textAfter("cam.open_device_by_user_id('twin')"), QStringLiteral("camera(A, sn: 1)"));
}

TEST_F(CameraObject, SearchSkipsHandlesThatDoNotResolve)
{
    FakeCamera& gone = addCamera(QStringLiteral("gone"), QStringLiteral("7"));
    FakeCamera& here = addCamera(QStringLiteral("here"), QStringLiteral("7"));
    run("pass");
    ON_CALL(cameraManager, cameraParameters(&gone)).WillByDefault(Return(nullptr));
    ON_CALL(cameraManager, cameraParameters(&here)).WillByDefault(Return(&here.parameters));
    EXPECT_EQ(textAfter("cam.open_device_by_SN('7')"), QStringLiteral("camera(here, sn: 7)"));
}

TEST_F(CameraObject, AMatchingNullHandleIsNotBound)
{
    FakeCamera& camera = addCamera(QStringLiteral("A"), QStringLiteral("1"));
    ON_CALL(cameraManager, openedCameras()).WillByDefault(Return(QList<void*>{nullptr}));
    ON_CALL(cameraManager, cameraParameters(nullptr)).WillByDefault(Return(&camera.parameters));
    EXPECT_EQ(error("vistrel.Camera().open_device_by_SN('1')"), QLatin1String(notFound));
}

TEST_F(CameraObject, AFailedOpenKeepsThePreviousBinding)
{
    addCamera(QStringLiteral("A"), QStringLiteral("1"));
    EXPECT_EQ(textAfter("cam.open_device()\n"
                        "for call in (lambda: cam.open_device(5), "
                        "lambda: cam.open_device_by_SN('nope')):\n"
                        "    try: call()\n"
                        "    except Exception: pass"),
              QStringLiteral("camera(A, sn: 1)"));
}

TEST_F(CameraObject, CloseUnbindsAndTellsTheHostNothing)
{
    addCamera(QStringLiteral("A"), QStringLiteral("1"));
    EXPECT_CALL(delegate, setCameraAcquisition(_, _)).Times(0);
    EXPECT_EQ(textAfter("cam.open_device()\nassert cam.close_device() is None\ncam.close_device()"),
              QStringLiteral("camera(disconnected)"));
    EXPECT_EQ(cameras.size(), 1U);
}

TEST_F(CameraObject, ReadsAsDisconnectedAfterTheHostHasClosedTheCamera)
{
    addCamera(QStringLiteral("A"), QStringLiteral("1"));
    run("import emb\nemb.cam = vistrel.Camera()\nemb.cam.open_device()");
    EXPECT_EQ(value("__import__('emb').cam"), QStringLiteral("camera(A, sn: 1)"));
    cameras.clear();
    EXPECT_EQ(value("__import__('emb').cam"), QStringLiteral("camera(disconnected)"));
}

TEST_F(CameraObject, SeveralObjectsMayBeBoundToOneCamera)
{
    addCamera(QStringLiteral("A"), QStringLiteral("1"));
    EXPECT_EQ(textAfter("cam.open_device()\nother = vistrel.Camera()\nother.open_device()\n"
                        "other.close_device()"),
              QStringLiteral("camera(A, sn: 1)"));
}

TEST_F(CameraObject, TheCountIsThatOfTheHostNotOfObjects)
{
    EXPECT_CALL(cameraManager, openedCameraCount()).WillOnce(Return(3U));
    EXPECT_EQ(value("[vistrel.Camera(), vistrel.get_number_devices()][1]"), QStringLiteral("3"));
}

TEST_F(CameraObject, NoOperationAsksForTheThread)
{
    addCamera(QStringLiteral("A"), QStringLiteral("1"));
    EXPECT_CALL(environment, isGuiThread()).Times(0);
    EXPECT_EQ(errorOffGuiThread("cam = vistrel.Camera(); cam.open_device(); "
                                "cam.start_acquisition(); caught.append(Exception(str(cam)))"),
              QStringLiteral("Exception: camera(A, sn: 1)"));
}

TEST_F(CameraObject, StartReturnsTheActiveViewReadAfterwards)
{
    FakeCamera& camera = addCamera(QStringLiteral("A"), QStringLiteral("1"));
    run("pass");
    const InSequence order;
    EXPECT_CALL(delegate, setCameraAcquisition(true, &camera)).WillOnce(Return(true));
    EXPECT_CALL(delegate, activeViewId()).WillOnce(Return(9));
    run("cam = vistrel.Camera()\ncam.open_device()\nprint(cam.start_acquisition(), end='')");
    EXPECT_EQ(output, QStringLiteral("9"));
}

TEST_F(CameraObject, StartReturnsMinusOneWhenTheHostRefuses)
{
    EXPECT_CALL(delegate, setCameraAcquisition(true, nullptr)).WillOnce(Return(false));
    EXPECT_EQ(value("vistrel.Camera().start_acquisition()"), QStringLiteral("-1"))
        << "an unbound object hands its null handle to the host";
}

TEST_F(CameraObject, StopIgnoresTheHostsResult)
{
    FakeCamera& camera = addCamera(QStringLiteral("A"), QStringLiteral("1"));
    EXPECT_CALL(delegate, setCameraAcquisition(false, &camera)).WillOnce(Return(false));
    run("cam = vistrel.Camera()\ncam.open_device()\nprint(cam.stop_acquisition(), end='')");
    EXPECT_EQ(output, QStringLiteral("None"));
    EXPECT_CALL(delegate, setCameraAcquisition(false, nullptr)).WillOnce(Return(false));
    EXPECT_EQ(value("vistrel.Camera().stop_acquisition()"), QStringLiteral("None"))
        << "an unbound object hands its null handle to the host";
}

TEST_F(CameraObject, MethodsStandInTheOrderOfTheTable)
{
    EXPECT_EQ(value("' '.join(n for n in vars(vistrel.Camera) if not n.startswith('__'))"),
              QStringLiteral("open_device open_device_by_user_id open_device_by_SN "
                             "open_device_by_path close_device get_device_info_string set_param "
                             "get_param set_roi get_roi start_acquisition stop_acquisition "
                             "save_settings_to_file load_settings_from_file "
                             "ask_user_capture_image restart_with_default_settings"));
}

TEST_F(CameraObject, UnknownAttributesAreAttributeErrors)
{
    EXPECT_TRUE(error("vistrel.Camera().nonsense").startsWith(QLatin1String("AttributeError")));
}

TEST_F(CameraObject, WrongArgumentsAreTypeErrors)
{
    EXPECT_TRUE(error("vistrel.Camera().open_device('x')").startsWith(QLatin1String("TypeError")));
    EXPECT_TRUE(
        error("vistrel.Camera().open_device_by_SN(5)").startsWith(QLatin1String("TypeError")));
    EXPECT_TRUE(error("vistrel.Camera.open_device(5)").startsWith(QLatin1String("TypeError")));
}

} // namespace

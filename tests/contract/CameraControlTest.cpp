// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Who a camera is, its region of interest, its settings files.
#include "CameraFixture.h"

using testing::_;
using testing::InSequence;
using testing::IsNull;
using testing::Return;

namespace {

class CameraDevice : public CameraTest {};

TEST_F(CameraDevice, InfoStringsAreTheFieldsOfTheRecord)
{
    camera.info.instancePath = QStringLiteral("/usb/1");
    camera.info.deviceType = QStringLiteral("USB3Vision");
    camera.info.userId = QStringLiteral("links oben ä");
    camera.info.modelId = -4711;
    EXPECT_EQ(boundValue("[cam.get_device_info_string('device_' + k) for k in "
                         "('sn', 'inst_path', 'type', 'name', 'user_id', 'model_id')]"),
              QStringLiteral("['12345678', '/usb/1', 'USB3Vision', 'CAM-A1', 'links oben ä', "
                             "'-4711']"));
}

TEST_F(CameraDevice, AnUnknownKeyReadsEmpty)
{
    for (const char* key : {"bogus", "", "Device_SN", "device_sn:info", "sn"}) {
        EXPECT_EQ(boundValue("repr(cam.get_device_info_string('" + std::string(key) + "'))"),
                  QStringLiteral("''"))
            << key;
    }
}

TEST_F(CameraDevice, InfoStringsNeverAskForParameters)
{
    listParam(QStringLiteral("device_sn"), CxValue::fromString(QStringLiteral("of the host")));
    EXPECT_CALL(camera.parameters, findParam(_, _)).Times(0);
    EXPECT_CALL(camera.parameters, getParamDirect(_, _, _)).Times(0);
    EXPECT_EQ(boundValue("cam.get_device_info_string('device_sn')"), QStringLiteral("12345678"));
}

TEST_F(CameraDevice, InfoStringsLookForTheCameraBeforeTheArguments)
{
    expectSilentNull("vistrel.Camera().get_device_info_string('device_sn')");
    expectSilentNull("vistrel.Camera().get_device_info_string()");
    EXPECT_TRUE(boundError("cam.get_device_info_string()").startsWith(QLatin1String("TypeError")));
    EXPECT_TRUE(boundError("cam.get_device_info_string(1)").startsWith(QLatin1String("TypeError")));
    EXPECT_TRUE(
        boundError("cam.get_device_info_string('a\\0')").startsWith(QLatin1String("ValueError")));
}

class CameraRoi : public CameraTest {};

TEST_F(CameraRoi, IsATupleThatCanBeSetAgain)
{
    ON_CALL(camera.parameters, currentROIRectParams())
        .WillByDefault(Return(QRect(0, 0, 1280, 1024)));
    EXPECT_CALL(camera.parameters, setROIRectParams(0, 0, 1280, 1024, true));
    EXPECT_EQ(boundValue("(cam.get_roi(), cam.set_roi(*cam.get_roi()))"),
              QStringLiteral("((0, 0, 1280, 1024), None)"));
}

TEST_F(CameraRoi, IsPlaceAndSize)
{
    ON_CALL(camera.parameters, currentROIRectParams())
        .WillByDefault(Return(QRect(QPoint(10, 20), QPoint(12, 24))));
    EXPECT_EQ(boundValue("cam.get_roi()"), QStringLiteral("(10, 20, 3, 5)"));
}

TEST_F(CameraRoi, OfAHostThatCannotTellHasNoSize)
{
    ON_CALL(camera.parameters, currentROIRectParams()).WillByDefault(Return(QRect()));
    EXPECT_EQ(boundValue("cam.get_roi()"), QStringLiteral("(0, 0, 0, 0)"));
}

TEST_F(CameraRoi, AnyNumbersGoToTheHostInTheirOrder)
{
    EXPECT_CALL(camera.parameters, setROIRectParams(-1, 2147483647, 0, -2147483647 - 1, true));
    EXPECT_EQ(boundValue("cam.set_roi(-1, 2**31 - 1, 0, -2**31)"), QStringLiteral("None"));
}

TEST_F(CameraRoi, LooksForTheCameraBeforeTheArguments)
{
    expectSilentNull("vistrel.Camera().get_roi()");
    expectSilentNull("vistrel.Camera().set_roi(0, 0, 1, 1)");
    expectSilentNull("vistrel.Camera().set_roi('x')");
    EXPECT_CALL(camera.parameters, setROIRectParams(_, _, _, _, _)).Times(0);
    for (const char* call : {"set_roi()", "set_roi(1, 2, 3)", "set_roi((1, 2, 3, 4))",
                             "set_roi(1, 2, 3, 'x')", "get_roi(1)", "set_roi(1, 2, 3, 4, 5)"}) {
        EXPECT_TRUE(boundError("cam." + std::string(call)).startsWith(QLatin1String("TypeError")))
            << call;
    }
    EXPECT_TRUE(
        boundError("cam.set_roi(1, 2, 3, 2**31)").startsWith(QLatin1String("OverflowError")));
}

TEST_F(CameraRoi, IsNotSetWhenTheCameraGoesWhileAnArgumentIsConverted)
{
    EXPECT_CALL(camera.parameters, setROIRectParams(_, _, _, _, _)).Times(0);
    expectSilentNull("cam = vistrel.Camera()\ncam.open_device()\n"
                     "class Closing:\n"
                     "    def __index__(self): cam.close_device(); return 1\n"
                     "cam.set_roi(Closing(), 0, 1, 1)");
}

class CameraSettings : public CameraTest {
protected:
    CameraSettings()
    {
        run("pass");
        ON_CALL(environment, resolvePath(QStringLiteral("größe.json")))
            .WillByDefault(Return(QStringLiteral("/data/größe.json")));
    }

    static constexpr auto everything = CxCameraParam::ExVisibility(3);
    const QString resolved = QStringLiteral("/data/größe.json");
};

TEST_F(CameraSettings, AreSavedUnderTheResolvedPathWhateverTheHostReturns)
{
    const InSequence order;
    EXPECT_CALL(environment, resolvePath(QStringLiteral("größe.json")));
    EXPECT_CALL(camera.parameters, saveParamValuesToFile(resolved, everything))
        .WillOnce(Return(false));
    EXPECT_EQ(boundValue("cam.save_settings_to_file('größe.json')"), QStringLiteral("None"));
}

TEST_F(CameraSettings, AreLoadedFromTheResolvedPathWhateverTheHostReturns)
{
    const InSequence order;
    EXPECT_CALL(environment, resolvePath(QStringLiteral("größe.json")));
    EXPECT_CALL(camera.parameters, loadParamValuesFromFile(resolved, everything, IsNull(), true))
        .WillOnce(Return(false));
    EXPECT_EQ(boundValue("cam.load_settings_from_file('größe.json')"), QStringLiteral("None"));
}

TEST_F(CameraSettings, LookAtTheArgumentsBeforeTheCamera)
{
    EXPECT_CALL(environment, resolvePath(_)).Times(0);
    for (const std::string method : {"save_settings_to_file", "load_settings_from_file"}) {
        expectSilentNull(("vistrel.Camera()." + method + "('x')").c_str());
        EXPECT_TRUE(error(("vistrel.Camera()." + method + "()").c_str())
                        .startsWith(QLatin1String("TypeError")));
        EXPECT_TRUE(boundError("cam." + method + "(5)").startsWith(QLatin1String("TypeError")));
        EXPECT_TRUE(
            boundError("cam." + method + "('a\\0')").startsWith(QLatin1String("ValueError")));
        EXPECT_TRUE(boundError("cam." + method + "('\\udc80')")
                        .startsWith(QLatin1String("UnicodeEncodeError")));
    }
}

class CameraControl : public CameraTest {};

TEST_F(CameraControl, WorksOnAnyThread)
{
    EXPECT_CALL(environment, isGuiThread()).Times(0);
    EXPECT_EQ(
        errorOffGuiThread("cam = vistrel.Camera(); cam.open_device(); cam.get_roi(); "
                          "cam.set_roi(0, 0, 1, 1); cam.save_settings_to_file('x'); "
                          "cam.load_settings_from_file('x'); cam.stop_acquisition(); "
                          "cam.ask_user_capture_image(); "
                          "caught.append(Exception(cam.get_device_info_string('device_sn')))"),
        QStringLiteral("Exception: 12345678"));
}

TEST_F(CameraControl, FailsSilentlyAfterTheHostHasClosedTheCamera)
{
    runBound("import emb\nemb.cam = cam");
    cameras.clear();
    for (const char* call :
         {"get_device_info_string('device_sn')", "get_roi()", "set_roi(0, 0, 1, 1)",
          "save_settings_to_file('x')", "load_settings_from_file('x')"}) {
        expectSilentNull(("import emb\nemb.cam." + std::string(call)).c_str());
    }
}

} // namespace

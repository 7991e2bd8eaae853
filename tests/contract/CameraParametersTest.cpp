// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Parameters of a camera by name: what is sent to the host, what comes back.
#include "CameraFixture.h"

using testing::_;
using testing::A;
using testing::AllOf;
using testing::DoAll;
using testing::InSequence;
using testing::IsNull;
using testing::NotNull;
using testing::Pointee;
using testing::Return;
using testing::SetArgPointee;
using testing::SetArgReferee;

namespace {

const QString gain = QStringLiteral("gain_db");
const QString other = QStringLiteral("other");
constexpr auto refreshLater = CxCameraParameters::RefreshLater;

class CameraSetParam : public CameraTest {
protected:
    /// Expects that set_param(name, value) sends a value like that.
    template<class Matcher>
    void expectSent(const QString& name, const std::string& value, const Matcher& sent)
    {
        EXPECT_CALL(camera.parameters, setParamDirect(name, sent, NotNull(), refreshLater))
            .Times(1)
            .RetiresOnSaturation();
        EXPECT_EQ(boundValue("cam.set_param('" + name.toStdString() + "', " + value + ")"),
                  QStringLiteral("0"))
            << value;
    }
};

TEST_F(CameraSetParam, ReturnsTheStatusThatTheHostWrites)
{
    EXPECT_CALL(camera.parameters, setParamDirect(_, _, Pointee(0), refreshLater))
        .WillOnce(DoAll(SetArgPointee<2>(-7), Return(true)));
    EXPECT_EQ(boundValue("cam.set_param('other', 1)"), QStringLiteral("-7"));
}

TEST_F(CameraSetParam, ReturnsZeroWhenTheHostWritesNoneWhateverItReturns)
{
    EXPECT_CALL(camera.parameters, setParamDirect(_, _, _, _)).WillOnce(Return(false));
    EXPECT_EQ(boundValue("cam.set_param('other', 1)"), QStringLiteral("0"));
}

TEST_F(CameraSetParam, LooksTheParameterUpThenReadsItsTypeThenSets)
{
    Param& param = listParam(gain, CxValue::fromFloat(0));
    run("pass");
    const InSequence order;
    EXPECT_CALL(camera.parameters, findParam(gain, false)).WillOnce(Return(&param));
    EXPECT_CALL(param, paramValue()).WillOnce(Return(CxValue::fromFloat(2)));
    EXPECT_CALL(camera.parameters, setParamDirect(gain, IsFloat(3.0F), NotNull(), refreshLater));
    EXPECT_EQ(boundValue("cam.set_param('gain_db', 3)"), QStringLiteral("0"));
}

TEST_F(CameraSetParam, ABoolOnAFloatParameterIsSentAsOne)
{
    listParam(gain, CxValue::fromFloat(0));
    expectSent(gain, "True", IsFloat(1.0F));
    expectSent(gain, "False", IsFloat(0.0F));
}

TEST_F(CameraSetParam, ABoolOnAnUnknownParameterIsSentAsAnInteger)
{
    expectSent(other, "True", IsInt(1));
    expectSent(other, "False", IsInt(0));
}

TEST_F(CameraSetParam, AFloatOnAnIntegerParameterIsSentAsAnInteger)
{
    listParam(other, CxValue::fromInt(5));
    expectSent(other, "1e4", IsInt(10000));
}

TEST_F(CameraSetParam, EveryValueTakesTheTypeOfTheParameter)
{
    const QString name = QStringLiteral("p");
    listParam(name, CxValue::fromInt(0));
    expectSent(name, "-3", IsInt(-3));
    expectSent(name, "'12'", IsInt(12));
    listParam(name, CxValue::fromFloat(0));
    expectSent(name, "7", IsFloat(7.0F));
    expectSent(name, "'2.5'", IsFloat(2.5F));
    listParam(name, CxValue::fromBool(false));
    expectSent(name, "True", IsBool(true));
    expectSent(name, "2", IsBool(true));
    expectSent(name, "0.0", IsBool(false));
    expectSent(name, "'true'", AllOf(IsBool(true), ReadsAs("true")));
    expectSent(name, "'on'", AllOf(IsBool(false), ReadsAs("on")));
    listParam(name, CxValue::fromString({}));
    expectSent(name, "8", IsText(QStringLiteral("8")));
    expectSent(name, "2.5", IsText(QStringLiteral("2.5")));
    expectSent(name, "'on'", IsText(QStringLiteral("on")));
}

TEST_F(CameraSetParam, AParameterWithoutAValueIsSentWhatItHas)
{
    listParam(other, CxValue());
    EXPECT_CALL(camera.parameters, setParamDirect(other, _, NotNull(), refreshLater))
        .WillOnce([](const QString&, const CxValue& value, int*, auto) {
            EXPECT_EQ(value.type(), CxValue::Empty);
            return true;
        });
    EXPECT_EQ(boundValue("cam.set_param('other', 5)"), QStringLiteral("0"));
}

TEST_F(CameraSetParam, AnUnknownParameterIsSentTheValueAsItIs)
{
    expectSent(other, "-2147483648", IsInt(-2147483647 - 1));
    expectSent(other, "2.5", IsFloat(2.5F));
    expectSent(other, "'größe'", IsText(QStringLiteral("größe")));
    expectSent(other, "''", IsText(QString()));
}

TEST_F(CameraSetParam, SubclassesCountAsTheirBase)
{
    expectSent(other, "type('I', (int,), {})(4)", IsInt(4));
    expectSent(other, "type('F', (float,), {})(4)", IsFloat(4.0F));
    expectSent(other, "type('S', (str,), {})(4)", IsText(QStringLiteral("4")));
}

TEST_F(CameraSetParam, TheNameIsNotTakenApart)
{
    listParam(gain, CxValue::fromFloat(0));
    EXPECT_CALL(camera.parameters, findParam(QStringLiteral("gain_db:max"), false));
    expectSent(QStringLiteral("gain_db:max"), "5", IsInt(5));
}

TEST_F(CameraSetParam, ATextMayHoldNulAndOneWithoutUtf8IsSentEmpty)
{
    const QChar characters[] = {QLatin1Char('a'), QChar(0), QLatin1Char('b')};
    expectSent(other, "'a\\0b'", IsText(QString(characters, 3)));
    expectSent(other, "'a\\udc80'", IsText(QString()));
}

TEST_F(CameraSetParam, OfAnIntWiderThan32BitsTheLowOnesAreSent)
{
    expectSent(other, "2**32 + 5", IsInt(5));
    expectSent(other, "2**31", IsInt(-2147483647 - 1));
}

TEST_F(CameraSetParam, AnIntBeyondTheMachinesIsAnOverflowAndNothingIsSent)
{
    EXPECT_CALL(camera.parameters, setParamDirect(_, _, _, _)).Times(0);
    EXPECT_TRUE(
        boundError("cam.set_param('other', 2**63)").startsWith(QLatin1String("OverflowError")));
    EXPECT_TRUE(
        boundError("cam.set_param('other', -10**400)").startsWith(QLatin1String("OverflowError")));
}

TEST_F(CameraSetParam, AValueOfAnotherTypeIsRefusedAndNothingIsSent)
{
    listParam(gain, CxValue::fromFloat(0));
    EXPECT_CALL(camera.parameters, findParam(_, _)).Times(0);
    EXPECT_CALL(camera.parameters, setParamDirect(_, _, _, _)).Times(0);
    for (const char* value : {"None", "[1]", "b'1'", "1j", "{}", "cam", "int"}) {
        EXPECT_EQ(boundError("cam.set_param('gain_db', " + std::string(value) + ")"),
                  QLatin1String(unsupportedType))
            << value;
    }
}

TEST_F(CameraSetParam, ErrorsAreOfTheBaseClassItself)
{
    EXPECT_EQ(runBound("try: cam.set_param('x', None)\n"
                       "except Exception as e: print(type(e) is Exception, end='')"),
              QString());
    EXPECT_EQ(output, QStringLiteral("True"));
}

class CameraGetParam : public CameraTest {
protected:
    void readsAs(const CxValue& value, const char* expected)
    {
        listParam(other, value);
        EXPECT_EQ(boundValue("repr(cam.get_param('other'))"), QString::fromUtf8(expected));
    }

    /// The host answers a direct read of that very name only.
    void answerDirectly(const QString& name, const CxValue& value)
    {
        EXPECT_CALL(camera.parameters, getParamDirect(name, _, IsNull()))
            .WillOnce(DoAll(SetArgReferee<1>(value), Return(true)));
    }
};

TEST_F(CameraGetParam, ReturnsTheTypeOfTheValue)
{
    readsAs(CxValue::fromInt(-2147483647 - 1), "-2147483648");
    readsAs(CxValue::fromFloat(0.1F), "0.10000000149011612");
    readsAs(CxValue::fromBool(true), "True");
    readsAs(CxValue::fromBool(false), "False");
    readsAs(CxValue::fromString(QStringLiteral("größe")), "'größe'");
    readsAs(CxValue::fromString({}), "''");
    readsAs(CxValue(), "None");
}

TEST_F(CameraGetParam, ReadsTheLimitsAndTheIncrement)
{
    Param& param = listParam(gain, CxValue::fromFloat(1));
    EXPECT_CALL(param, paramValue()).Times(0);
    EXPECT_CALL(param, minimum()).WillOnce(Return(CxValue::fromFloat(-2)));
    EXPECT_CALL(param, maximum()).WillOnce(Return(CxValue::fromFloat(24)));
    EXPECT_CALL(param, increment()).WillOnce(Return(CxValue::fromFloat(0.5F)));
    EXPECT_EQ(boundValue("[cam.get_param('gain_db:' + e) for e in ('min', 'max', 'inc')]"),
              QStringLiteral("[-2.0, 24.0, 0.5]"));
}

TEST_F(CameraGetParam, TheEndingInfoReadsTheValue)
{
    Param& param = listParam(gain, CxValue::fromFloat(1));
    EXPECT_CALL(camera.parameters, findParam(gain, false)).WillOnce(Return(&param));
    EXPECT_EQ(boundValue("cam.get_param('gain_db:info')"), QStringLiteral("1.0"));
}

TEST_F(CameraGetParam, AnotherEndingIsPassedWholeToTheHost)
{
    listParam(gain, CxValue::fromFloat(1));
    for (const char* key :
         {"gain_db:xyz", "gain_db:MAX", "gain_db:max:min", "gain_db:", "a::max"}) {
        EXPECT_CALL(camera.parameters, findParam(QString::fromUtf8(key), false));
        answerDirectly(QString::fromUtf8(key), CxValue::fromInt(3));
        EXPECT_EQ(boundValue("cam.get_param('" + std::string(key) + "')"), QStringLiteral("3"))
            << key;
    }
}

TEST_F(CameraGetParam, ALimitOfAnUnknownParameterIsAskedForByItsWholeKey)
{
    EXPECT_CALL(camera.parameters, findParam(QStringLiteral("Gain"), false));
    answerDirectly(QStringLiteral("Gain:max"), CxValue::fromFloat(6));
    EXPECT_EQ(boundValue("cam.get_param('Gain:max')"), QStringLiteral("6.0"));
}

TEST_F(CameraGetParam, AParameterThatTheCameraLacksIsRefusedUnread)
{
    Param& param = listParam(gain, CxValue::fromFloat(1));
    ON_CALL(param, isUnsupported()).WillByDefault(Return(true));
    EXPECT_CALL(param, paramValue()).Times(0);
    EXPECT_CALL(param, maximum()).Times(0);
    EXPECT_CALL(camera.parameters, getParamDirect(_, _, _)).Times(0);
    EXPECT_EQ(boundError("cam.get_param('gain_db')"), QLatin1String(notSupported));
    EXPECT_EQ(boundError("cam.get_param('gain_db:max')"), QLatin1String(notSupported));
}

TEST_F(CameraGetParam, AnUnknownNameThatTheHostCannotReadIsRefused)
{
    EXPECT_CALL(camera.parameters, getParamDirect(other, _, IsNull()))
        .WillOnce(DoAll(SetArgReferee<1>(CxValue::fromInt(1)), Return(false)));
    EXPECT_EQ(boundError("cam.get_param('other')"), QLatin1String(notSupported));
}

TEST_F(CameraGetParam, WhoTheCameraIsReadsAsText)
{
    camera.info.instancePath = QStringLiteral("/usb/1");
    camera.info.deviceType = QStringLiteral("USB3Vision");
    camera.info.userId = QStringLiteral("links oben ä");
    EXPECT_CALL(camera.parameters, getParamDirect(_, _, _)).Times(0);
    EXPECT_EQ(boundValue("[cam.get_param('device_' + k) for k in "
                         "('sn', 'inst_path', 'type', 'name', 'user_id')]"),
              QStringLiteral("['12345678', '/usb/1', 'USB3Vision', 'CAM-A1', 'links oben ä']"));
}

TEST_F(CameraGetParam, TheModelIdIsTheNumberOfANewValue)
{
    camera.info.modelId = 4711;
    EXPECT_EQ(boundValue("repr(cam.get_param('device_model_id'))"), QStringLiteral("0"));
}

TEST_F(CameraGetParam, AListedParameterWinsOverADeviceName)
{
    listParam(QStringLiteral("device_sn"), CxValue::fromString(QStringLiteral("of the host")));
    EXPECT_EQ(boundValue("cam.get_param('device_sn')"), QStringLiteral("of the host"));
}

TEST_F(CameraGetParam, DeviceNamesAreComparedWholeAndCaseSensitively)
{
    for (const char* key : {"Device_SN", "device_sn:info", "device_sn:max", "device_sn "}) {
        answerDirectly(QString::fromUtf8(key), CxValue::fromInt(3));
        EXPECT_EQ(boundValue("cam.get_param('" + std::string(key) + "')"), QStringLiteral("3"))
            << key;
    }
}

TEST_F(CameraGetParam, FailsSilentlyOnAnUnboundObject)
{
    run("pass");
    EXPECT_CALL(camera.parameters, findParam(_, _)).Times(0);
    expectSilentNull("vistrel.Camera().get_param('gain_db')");
    expectSilentNull("vistrel.Camera().set_param('gain_db', 1)");
    expectSilentNull("vistrel.Camera().set_param('gain_db', None)");
}

TEST_F(CameraGetParam, FailsSilentlyAfterTheHostHasClosedTheCamera)
{
    runBound("import emb\nemb.cam = cam");
    cameras.clear();
    expectSilentNull("import emb\nemb.cam.get_param('gain_db')");
    expectSilentNull("import emb\nemb.cam.set_param('gain_db', 1)");
    EXPECT_EQ(value("__import__('emb').cam"), QStringLiteral("camera(disconnected)"));
}

TEST_F(CameraGetParam, WrongArgumentsAreRefusedByTheParser)
{
    EXPECT_CALL(camera.parameters, findParam(_, _)).Times(0);
    for (const char* call :
         {"get_param()", "get_param(1)", "get_param('a', 'b')", "get_param(b'a')", "set_param('a')",
          "set_param(1, 2)", "set_param('a', 1, 2)"}) {
        EXPECT_TRUE(boundError("cam." + std::string(call)).startsWith(QLatin1String("TypeError")))
            << call;
    }
    EXPECT_TRUE(boundError("cam.get_param('a\\0b')").startsWith(QLatin1String("ValueError")));
    EXPECT_TRUE(
        boundError("cam.get_param('\\udc80')").startsWith(QLatin1String("UnicodeEncodeError")));
}

} // namespace

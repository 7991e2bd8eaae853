// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Parameters under the host's names, on simulated cameras with several descriptions.
#include "DescribedCamera.h"

#include "cameras/CameraParameters.h"

#include <gmock/gmock.h>

#include <unistd.h>

#include <array>
#include <atomic>
#include <cmath>
#include <limits>

namespace vistrel::test {

namespace {

using testing::AllOf;
using testing::HasSubstr;

constexpr int status(ParameterStatus value) { return static_cast<int>(value); }

/// The simulated camera as it is.
struct KnownParameters : CameraTest {
    CxCameraParameters* parameters() { return manager.cameraParameters(camera); }
    CxCameraParam* parameter(const char* name)
    {
        return parameters()->findParam(QString::fromLatin1(name), false);
    }
    void* camera = openSimulated();
    LogCapture log;
};

TEST_F(KnownParameters, AreFoundByTheirExactName)
{
    for (const QString& name : parameterNames())
        EXPECT_NE(parameters()->findParam(name, false), nullptr) << name.toStdString();
    EXPECT_EQ(parameter("GAIN_DB"), nullptr);
    EXPECT_EQ(parameter("GainRaw"), nullptr);
    EXPECT_EQ(parameter("gain_db:max"), nullptr);
    EXPECT_EQ(parameter(""), nullptr);
}

TEST_F(KnownParameters, HaveValuesInTheHostsTypes)
{
    EXPECT_EQ(parameter("exposure_time_us")->paramValue().type(), CxValue::Int);
    EXPECT_EQ(parameter("gain_db")->paramValue().type(), CxValue::Float); // an integer there
    EXPECT_EQ(parameter("framerate")->paramValue().type(), CxValue::Float);
    EXPECT_EQ(parameter("width")->paramValue().toInt(), 512);
    EXPECT_EQ(parameter("image_data_format")->paramValue().type(), CxValue::Int);
    EXPECT_EQ(parameter("auto_gain")->paramValue().type(), CxValue::Bool);
    EXPECT_EQ(log.text(), "");
}

TEST_F(KnownParameters, HaveTheLimitsOfTheNode)
{
    CxCameraParam* exposure = parameter("exposure_time_us");
    EXPECT_EQ(exposure->minimum().toInt(), 10);
    EXPECT_EQ(exposure->maximum().toInt(), 10'000'000);
    EXPECT_EQ(exposure->increment().toInt(), 1);
    CxCameraParam* gain = parameter("gain_db");
    EXPECT_EQ(gain->minimum().type(), CxValue::Float);
    EXPECT_EQ(gain->maximum().toFloat(), 10.0F);
    EXPECT_EQ(gain->increment().toFloat(), 1.0F);
    EXPECT_EQ(parameter("framerate")->increment().type(), CxValue::Empty);
    for (const char* name : {"auto_gain", "trigger_mode", "image_data_format"}) {
        EXPECT_EQ(parameter(name)->minimum().type(), CxValue::Empty) << name;
        EXPECT_EQ(parameter(name)->maximum().type(), CxValue::Empty) << name;
        EXPECT_EQ(parameter(name)->increment().type(), CxValue::Empty) << name;
    }
}

TEST_F(KnownParameters, ThatTheCameraLacksAreMarkedAndHaveNoValue)
{
    for (const char* name : {"black_level", "acq_timing_mode", "reverse_x"}) {
        ASSERT_NE(parameter(name), nullptr) << name;
        EXPECT_TRUE(parameter(name)->isUnsupported()) << name;
        EXPECT_EQ(parameter(name)->paramValue().type(), CxValue::Empty) << name;
        EXPECT_EQ(parameter(name)->maximum().type(), CxValue::Empty) << name;
        EXPECT_EQ(write(camera, name, CxValue::fromInt(1)), status(ParameterStatus::Unknown));
    }
    EXPECT_FALSE(parameter("gain_db")->isUnsupported());
    EXPECT_THAT(log.text(), HasSubstr("black_level"));
}

TEST_F(KnownParameters, AreWrittenAndReadByTheirName)
{
    EXPECT_EQ(write(camera, "gain_db", CxValue::fromFloat(7.0F)), 0);
    EXPECT_EQ(read(camera, "gain_db").toFloat(), 7.0F);
    EXPECT_EQ(read(camera, "GainRaw").toInt(), 7);
    EXPECT_EQ(write(camera, "exposure_time_us", CxValue::fromInt(2500)), 0);
    EXPECT_EQ(read(camera, "exposure_time_us").toInt(), 2500);
    EXPECT_EQ(write(camera, "auto_gain", CxValue::fromBool(true)), 0);
    EXPECT_EQ(read(camera, "GainAuto").toString(), u"Continuous");
    EXPECT_TRUE(parameter("auto_gain")->paramValue().toBool());
    EXPECT_EQ(write(camera, "auto_gain", CxValue::fromBool(false)), 0);
    EXPECT_FALSE(parameter("auto_gain")->paramValue().toBool());
    EXPECT_EQ(log.text(), "");
}

TEST_F(KnownParameters, ARefusedValueIsLoggedWithParameterValueLimitsAndStep)
{
    EXPECT_EQ(write(camera, "gain_db", CxValue::fromFloat(10.5F)),
              status(ParameterStatus::OutOfRange));
    EXPECT_EQ(read(camera, "gain_db").toFloat(), 0.0F);
    EXPECT_THAT(log.text(), HasSubstr("parameter gain_db cannot be set to 10.5: it takes values "
                                      "from 0 to 10 in steps of 1"));
    EXPECT_EQ(write(camera, "exposure_time_us", CxValue::fromInt(9)),
              status(ParameterStatus::OutOfRange));
    EXPECT_THAT(log.text(), AllOf(HasSubstr("exposure_time_us cannot be set to 9"),
                                  HasSubstr("from 10 to 10000000")));
    for (const float number :
         {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity()})
        EXPECT_NE(write(camera, "framerate", CxValue::fromFloat(number)), 0);
}

TEST_F(KnownParameters, NoValueIsRefusedWithAWholeSentence)
{
    EXPECT_EQ(write(camera, "width", CxValue()), status(ParameterStatus::WrongType));
    EXPECT_THAT(log.text(), HasSubstr("parameter width cannot be set: there is no value"));
}

TEST_F(KnownParameters, ATextThatIsNoNumberIsRefusedAndTheLineSaysSo)
{
    const CxValue text = CxValue::fromString(QStringLiteral("loud"));
    ASSERT_EQ(write(camera, "gain_db", CxValue::fromInt(7)), 0);
    ASSERT_EQ(write(camera, "image_data_format", CxValue::fromInt(4)), 0);
    for (const char* name : {"width", "exposure_time_us", "image_data_format", "trigger_mode"})
        EXPECT_NE(write(camera, name, CxValue::fromInt(text.toInt())), 0) << name;
    for (const char* name : {"gain_db", "framerate"})
        EXPECT_EQ(write(camera, name, CxValue::fromFloat(text.toFloat())),
                  status(ParameterStatus::WrongType))
            << name;
    EXPECT_EQ(read(camera, "gain_db").toFloat(), 7.0F);
    EXPECT_EQ(read(camera, "image_data_format").toInt(), 4);
    EXPECT_EQ(read(camera, "width").toInt(), 512);
    EXPECT_THAT(log.text(),
                AllOf(HasSubstr("image_data_format cannot be set to -2147483648 (what a text that "
                                "is no number reads as): its entries are"),
                      HasSubstr("gain_db cannot be set to nan (what a text that is no number")));
}

TEST_F(KnownParameters, ATextThatIsNoSwitchIsRefusedWithTheTextsThatAre)
{
    ASSERT_EQ(write(camera, "auto_gain", CxValue::fromBool(true)), 0);
    ASSERT_EQ(write(camera, "TestBoolean", CxValue::fromBool(true)), 0);
    for (const char* text : {"on", "Continuous", "", "truee"}) {
        const QString wrong = QString::fromLatin1(text);
        EXPECT_EQ(write(camera, "auto_gain", CxValue::boolOfText(wrong)),
                  status(ParameterStatus::WrongType));
        EXPECT_EQ(write(camera, "TestBoolean", CxValue::fromString(wrong)),
                  status(ParameterStatus::WrongType));
    }
    EXPECT_TRUE(parameter("auto_gain")->paramValue().toBool());
    EXPECT_TRUE(read(camera, "TestBoolean").toBool());
    EXPECT_THAT(log.text(),
                AllOf(HasSubstr("auto_gain cannot be set to on: it takes true or false, 1 or 0"),
                      HasSubstr("TestBoolean cannot be set to truee: it takes true or false")));
    for (const char* text : {"false", "False ", "0"})
        EXPECT_EQ(write(camera, "auto_gain", CxValue::boolOfText(QString::fromLatin1(text))), 0);
    EXPECT_FALSE(parameter("auto_gain")->paramValue().toBool());
}

TEST_F(KnownParameters, AnEnumerationTakesItsConstantsAndRefusesOthersWithAList)
{
    EXPECT_EQ(write(camera, "image_data_format", CxValue::fromInt(4)), 0);
    EXPECT_EQ(read(camera, "PixelFormat").toString(), u"Mono16");
    EXPECT_EQ(read(camera, "image_data_format").toInt(), 4);
    for (const int wrong : {1, 99, -1}) // a format that this camera does not have, and no formats
        EXPECT_EQ(write(camera, "image_data_format", CxValue::fromInt(wrong)),
                  status(ParameterStatus::OutOfRange));
    EXPECT_EQ(read(camera, "image_data_format").toInt(), 4);
    EXPECT_THAT(log.text(), AllOf(HasSubstr("image_data_format cannot be set to 99"),
                                  HasSubstr("IMAGE_DATA_FORMAT_RGB8 (5)"),
                                  testing::Not(HasSubstr("IMAGE_DATA_FORMAT_MONO10"))));
}

TEST_F(KnownParameters, TheTriggerModeIsASwitchAndASource)
{
    EXPECT_EQ(read(camera, "trigger_mode").toInt(), 0);
    EXPECT_EQ(write(camera, "trigger_mode", CxValue::fromInt(1)), 0);
    EXPECT_EQ(read(camera, "TriggerMode").toString(), u"On");
    EXPECT_EQ(read(camera, "TriggerSource").toString(), u"Software");
    EXPECT_EQ(read(camera, "trigger_mode").toInt(), 1);
    EXPECT_EQ(write(camera, "trigger_mode", CxValue::fromInt(2)), 0);
    EXPECT_EQ(read(camera, "TriggerSource").toString(), u"Line0");
    EXPECT_EQ(read(camera, "trigger_mode").toInt(), 2);
    EXPECT_EQ(write(camera, "trigger_mode", CxValue::fromInt(0)), 0);
    EXPECT_EQ(read(camera, "trigger_mode").toInt(), 0);
    EXPECT_EQ(write(camera, "trigger_mode", CxValue::fromInt(3)),
              status(ParameterStatus::OutOfRange));
    EXPECT_THAT(log.text(), HasSubstr("TRIGGER_MODE_HARDWARE (2)"));
}

TEST_F(KnownParameters, ASoftwareTriggerTakesAFrame)
{
    ASSERT_EQ(write(camera, "trigger_mode", CxValue::fromInt(1)), 0);
    start(camera);
    EXPECT_EQ(write(camera, "TriggerSoftware", CxValue::fromInt(1)), 0);
    EXPECT_FALSE(collector.take(1).empty());
}

TEST_F(KnownParameters, TheWidthMayBeSetWhileTheCameraStreams)
{
    start(camera);
    ASSERT_FALSE(collector.take(1).empty());
    EXPECT_EQ(write(camera, "width", CxValue::fromInt(640)), 0);
    EXPECT_TRUE(waitUntil([&] {
        const auto frames = collector.take(1);
        return !frames.empty() && frames.back()->picBuf()->width == 640;
    }));
}

TEST_F(KnownParameters, GiveTheirPropertiesBehindAColon)
{
    EXPECT_EQ(read(camera, "exposure_time_us:unit").toString(), u"us");
    EXPECT_EQ(read(camera, "exposure_time_us:max").toInt(), 10'000'000);
    EXPECT_EQ(read(camera, "GainRaw:max").toInt(), 10);
    EXPECT_EQ(read(camera, "GainRaw:min").toInt(), 0);
    EXPECT_EQ(read(camera, "GainRaw:inc").toInt(), 1);
    EXPECT_EQ(read(camera, "TriggerMode:entries").toString(), u"Off, On");
    EXPECT_EQ(read(camera, "trigger_mode:entries").toString(),
              u"TRIGGER_MODE_OFF (0), TRIGGER_MODE_SOFTWARE (1), TRIGGER_MODE_HARDWARE (2)");
    EXPECT_EQ(log.text(), "");
    for (const char* name :
         {"gain_db:xyz", "gain_db:", ":max", "NoSuchNode:max", "GainRaw:minimum"}) {
        EXPECT_EQ(read(camera, name).type(), CxValue::Empty) << name;
        EXPECT_THAT(log.text(), HasSubstr(name));
    }
    EXPECT_EQ(write(camera, "gain_db:max", CxValue::fromInt(1)), status(ParameterStatus::Unknown));
}

TEST_F(KnownParameters, PropertiesThatAParameterLacksAreEmpty)
{
    for (const char* name : {"width:entries", "trigger_mode:min", "TriggerMode:max", "GainRaw:unit",
                             "DeviceID:inc", "gain_db:unit"}) {
        CxValue value = CxValue::fromInt(1);
        EXPECT_TRUE(parameters()->getParamDirect(QLatin1String(name), value, nullptr)) << name;
        EXPECT_EQ(value.type(), CxValue::Empty) << name;
    }
    EXPECT_EQ(log.text(), "");
}

TEST_F(KnownParameters, TheCamerasOwnFeaturesAreListedByCategory)
{
    EXPECT_EQ(read(camera, "Root:type").toString(), u"category");
    EXPECT_TRUE(read(camera, "Root:entries").toString().contains(u"AcquisitionControl"));
    EXPECT_TRUE(read(camera, "AcquisitionControl:entries").toString().contains(u"TriggerSoftware"));
    EXPECT_EQ(read(camera, "TriggerSoftware:type").toString(), u"command");
    EXPECT_EQ(read(camera, "TriggerMode:type").toString(), u"enumeration");
    EXPECT_EQ(read(camera, "TestBoolean:type").toString(), u"boolean");
    EXPECT_EQ(read(camera, "ExposureTimeAbs:type").toString(), u"float");
    EXPECT_EQ(read(camera, "Width:type").toString(), u"integer");
    EXPECT_EQ(read(camera, "DeviceID:type").toString(), u"string");
    EXPECT_EQ(log.text(), "");
}

TEST_F(KnownParameters, NamesAndTextsWithZerosAreNotCutShort)
{
    const QString name = QStringLiteral("GainRaw") + QChar(u'\0') + QStringLiteral("x");
    CxValue value;
    int result = 0;
    EXPECT_FALSE(parameters()->getParamDirect(name, value, &result));
    EXPECT_EQ(result, status(ParameterStatus::Unknown));
    EXPECT_FALSE(parameters()->setParamDirect(name, CxValue::fromInt(3), &result,
                                              CxCameraParameters::RefreshLater));
    EXPECT_EQ(read(camera, "GainRaw").toInt(), 0);
    const QString text = QStringLiteral("a") + QChar(u'\0') + QStringLiteral("b");
    EXPECT_EQ(write(camera, "TestStringReg", CxValue::fromString(text)),
              status(ParameterStatus::WrongType));
    EXPECT_EQ(write(camera, "PixelFormat", CxValue::fromString(text)),
              status(ParameterStatus::WrongType));
}

TEST_F(KnownParameters, NodesOfEveryKindAreReached)
{
    EXPECT_EQ(write(camera, "TestBoolean", CxValue::fromBool(true)), 0);
    EXPECT_EQ(read(camera, "TestBoolean").type(), CxValue::Bool);
    EXPECT_TRUE(read(camera, "TestBoolean").toBool());
    EXPECT_EQ(read(camera, "TestRegister").toInt(), 321);
    EXPECT_EQ(write(camera, "TestBoolean", CxValue::fromInt(0)), 0);
    EXPECT_EQ(read(camera, "TestRegister").toInt(), 123);
    EXPECT_EQ(write(camera, "TestStringReg", CxValue::fromString(QStringLiteral("größe"))), 0);
    EXPECT_EQ(read(camera, "TestStringReg").toString(), u"größe");
    EXPECT_NE(write(camera, "TestStringReg", CxValue::fromString(QString(40, u'x'))), 0);
    EXPECT_EQ(read(camera, "TestStringReg").toString(), u"größe");
    EXPECT_EQ(write(camera, "TriggerSoftware", CxValue::fromInt(1)), 0);
    EXPECT_EQ(write(camera, "TriggerSoftware", CxValue::fromInt(0)),
              status(ParameterStatus::WrongType));
}

TEST_F(KnownParameters, AnIntegerBeyond32BitsIsGivenAsText)
{
    const auto large = CxValue::fromString(QStringLiteral("4294967295"));
    EXPECT_EQ(write(camera, "TestRegister", large), 0);
    EXPECT_EQ(read(camera, "TestRegister").type(), CxValue::String);
    EXPECT_EQ(read(camera, "TestRegister").toString(), u"4294967295");
    EXPECT_EQ(read(camera, "TestRegister:max").toString(), u"4294967295");
    EXPECT_EQ(write(camera, "TestRegister", CxValue::fromString(QStringLiteral("4294967296"))),
              status(ParameterStatus::OutOfRange));
}

/// A camera whose sizes go in steps, and whose limits depend on each other.
struct SteppedCamera : DescribedCameraTest {
    SteppedCamera()
        : DescribedCameraTest({
            {"<pValue>WidthRegister</pValue>\n\t\t<Min>1</Min>\n\t\t<pMax>SensorWidth</pMax>\n"
             "\t\t<Inc>1</Inc>",
             "<pValue>WidthRegister</pValue><Min>16</Min><pMax>RoomX</pMax><Inc>16</Inc>"},
            {"<pValue>OffsetXRegister</pValue>\n\t\t<Min>0</Min>\n\t\t<pMax>SensorWidth</pMax>\n"
             "\t\t<Inc>1</Inc>",
             "<pValue>OffsetXRegister</pValue><Min>0</Min><pMax>RestX</pMax><Inc>4</Inc>"},
            {"<Integer Name=\"SensorHeight\"",
             "<IntSwissKnife Name=\"RoomX\"><pVariable Name=\"S\">SensorWidth</pVariable>"
             "<pVariable Name=\"O\">OffsetX</pVariable><Formula>S-O</Formula></IntSwissKnife>"
             "<IntSwissKnife Name=\"RestX\"><pVariable Name=\"S\">SensorWidth</pVariable>"
             "<pVariable Name=\"W\">Width</pVariable><Formula>S-W</Formula></IntSwissKnife>"
             "<Integer Name=\"SensorHeight\""},
            {"<Min>10.0</Min>\n\t\t<Max>10000000.0</Max>", "<Min>10.5</Min><Max>29.97</Max>"},
        })
    {
    }
    void setRegion(const QRect& rect)
    {
        manager.cameraParameters(camera)->setROIRectParams(rect.x(), rect.y(), rect.width(),
                                                           rect.height(), true);
    }
    QRect region() { return manager.cameraParameters(camera)->currentROIRectParams(); }
};

TEST_F(SteppedCamera, ALimitThatMovesWithAnotherParameterIsReadAnew)
{
    EXPECT_EQ(read(camera, "width:max").toInt(), 2048);
    EXPECT_EQ(write(camera, "offset_x", CxValue::fromInt(1024)), 0);
    EXPECT_EQ(read(camera, "width:max").toInt(), 1024);
    EXPECT_EQ(read(camera, "offset_x:max").toInt(), 2048 - 512);
    EXPECT_EQ(write(camera, "width", CxValue::fromInt(1040)), status(ParameterStatus::OutOfRange));
    EXPECT_THAT(log.text(), HasSubstr("from 16 to 1024 in steps of 16"));
}

TEST_F(SteppedCamera, AValueBetweenTheStepsIsRefused)
{
    EXPECT_EQ(write(camera, "width", CxValue::fromInt(100)), status(ParameterStatus::OutOfRange));
    EXPECT_EQ(read(camera, "width").toInt(), 512);
    EXPECT_THAT(log.text(),
                AllOf(HasSubstr("width cannot be set to 100"), HasSubstr("steps of 16")));
    EXPECT_EQ(write(camera, "Width", CxValue::fromInt(100)), status(ParameterStatus::OutOfRange));
    EXPECT_EQ(write(camera, "width", CxValue::fromInt(112)), 0);
}

TEST_F(SteppedCamera, WholeNumbersHaveLimitsThatTheCameraTakes)
{
    EXPECT_EQ(read(camera, "exposure_time_us:min").toInt(), 11);
    EXPECT_EQ(read(camera, "exposure_time_us:max").toInt(), 29);
    EXPECT_EQ(write(camera, "exposure_time_us", CxValue::fromInt(11)), 0);
    EXPECT_EQ(write(camera, "exposure_time_us", CxValue::fromInt(29)), 0);
}

TEST_F(SteppedCamera, ALimitThatFloatsCannotHoldMayBeSet)
{
    const CxValue greatest = read(camera, "ExposureTimeAbs:max");
    ASSERT_GT(static_cast<double>(greatest.toFloat()), 0.0);
    EXPECT_EQ(write(camera, "ExposureTimeAbs", greatest), 0) << log.text();
    EXPECT_NE(write(camera, "ExposureTimeAbs", CxValue::fromFloat(29.98F)), 0);
}

TEST_F(SteppedCamera, ARegionGrowsToTheStepsThatHoldIt)
{
    setRegion({10, 20, 100, 30});
    EXPECT_EQ(region(), QRect(8, 20, 112, 30));
    setRegion(region());
    EXPECT_EQ(region(), QRect(8, 20, 112, 30));
    EXPECT_EQ(log.text(), "");
}

TEST_F(SteppedCamera, ARegionAtTheFarEdgeIsAsWideAsFits)
{
    setRegion({2022, 0, 26, 8});
    EXPECT_EQ(region(), QRect(2020, 0, 16, 8));
    setRegion({2044, 2047, 4, 1});
    EXPECT_EQ(region(), QRect(2032, 2047, 16, 1));
    setRegion({0, 0, 2048, 2048});
    EXPECT_EQ(region(), QRect(0, 0, 2048, 2048));
    EXPECT_EQ(log.text(), "");
}

TEST_F(SteppedCamera, NoRegionHasToBeReachedOverAnotherOne)
{
    setRegion({1024, 0, 1024, 100});
    setRegion({0, 0, 1040, 100});
    setRegion({1008, 0, 1040, 100});
    EXPECT_EQ(region(), QRect(1008, 0, 1040, 100));
    EXPECT_EQ(log.text(), "");
}

TEST_F(SteppedCamera, ARegionIsSetAndTheStreamGoesOn)
{
    start(camera);
    ASSERT_FALSE(collector.take(1).empty());
    setRegion({100, 100, 320, 200});
    EXPECT_TRUE(manager.isStreaming(camera));
    EXPECT_TRUE(waitUntil([&] {
        const auto frames = collector.take(1);
        return !frames.empty() && frames.back()->picBuf()->width == 320
               && frames.back()->picBuf()->height == 200;
    }));
}

TEST_F(SteppedCamera, ARegionCountsPixelsOfTheSensorAlsoWhereTheyAreJoined)
{
    ASSERT_EQ(write(camera, "binning_horizontal", CxValue::fromInt(2)), 0);
    ASSERT_EQ(write(camera, "binning_vertical", CxValue::fromInt(4)), 0);
    setRegion({64, 80, 640, 400});
    EXPECT_EQ(region(), QRect(64, 80, 640, 400));
    EXPECT_EQ(read(camera, "Width").toInt(), 320);
    EXPECT_EQ(read(camera, "Height").toInt(), 100);
    EXPECT_EQ(read(camera, "OffsetX").toInt(), 32);
    EXPECT_EQ(log.text(), "");
}

TEST_F(SteppedCamera, HugeAndNegativeRegionsAreRefused)
{
    constexpr int most = std::numeric_limits<int>::max();
    constexpr int least = std::numeric_limits<int>::min();
    CxCameraParameters* parameters = manager.cameraParameters(camera);
    for (const auto& wrong : std::to_array<std::array<int, 4>>({{most, 0, most, 10},
                                                                {0, 0, most, most},
                                                                {least, 0, 10, 10},
                                                                {0, 0, 10, least},
                                                                {0, 0, 0, 10}})) {
        parameters->setROIRectParams(wrong[0], wrong[1], wrong[2], wrong[3], true);
        EXPECT_EQ(region(), QRect(0, 0, 512, 512));
    }
    EXPECT_THAT(log.text(), HasSubstr("(0, 0, 2147483647, 2147483647)"));
}

/// A camera that tells the size of its sensor by the greatest picture only.
struct CameraWithoutSensorSize : DescribedCameraTest {
    CameraWithoutSensorSize()
        : DescribedCameraTest({{"SensorWidth", "WidthMax"}, {"SensorHeight", "HeightMax"}})
    {
    }
};

TEST_F(CameraWithoutSensorSize, RefusesARegionPastItAndStreamsOn)
{
    std::atomic<pid_t> streamThread = 0; // another one after each start
    const auto sink = [&](std::unique_ptr<CxImageData>) { streamThread = gettid(); };
    ASSERT_TRUE(manager.start(camera, sink, error)) << error.toStdString();
    ASSERT_TRUE(waitUntil([&] { return streamThread != 0; }));
    const pid_t before = streamThread.exchange(0);
    CxCameraParameters* parameters = manager.cameraParameters(camera);
    for (const QRect& wrong : {QRect(2000, 0, 100, 10), QRect(0, 0, 10, 2049)})
        parameters->setROIRectParams(wrong.x(), wrong.y(), wrong.width(), wrong.height(), true);
    EXPECT_EQ(parameters->currentROIRectParams(), QRect(0, 0, 512, 512));
    EXPECT_THAT(log.text(), HasSubstr("the sensor has 2048 x 2048 pixels"));
    streamThread = 0;
    ASSERT_TRUE(waitUntil([&] { return streamThread != 0; }));
    EXPECT_EQ(streamThread, before);
    parameters->setROIRectParams(0, 0, 2048, 2048, true);
    EXPECT_EQ(parameters->currentROIRectParams(), QRect(0, 0, 2048, 2048));
    manager.stop(camera);
}

/// A camera with a feature that comes and goes.
struct MoodyCamera : DescribedCameraTest {
    MoodyCamera()
        : DescribedCameraTest({
            {"<Description>Raw gain.</Description>",
             "<Description>Raw gain.</Description><pIsAvailable>TestRegister</pIsAvailable>"},
        })
    {
    }
};

TEST_F(MoodyCamera, AParameterThatIsNotAvailableNowIsSupportedAndReadsAsEmpty)
{
    CxCameraParameters* parameters = manager.cameraParameters(camera);
    EXPECT_EQ(write(camera, "TestRegister", CxValue::fromInt(0)), 0);
    CxCameraParam* gain = parameters->findParam(QStringLiteral("gain_db"), false);
    EXPECT_FALSE(gain->isUnsupported());
    EXPECT_EQ(gain->paramValue().type(), CxValue::Empty);
    EXPECT_EQ(write(camera, "gain_db", CxValue::fromInt(1)),
              status(ParameterStatus::NotAccessible));
    EXPECT_EQ(write(camera, "TestRegister", CxValue::fromInt(1)), 0);
    EXPECT_EQ(write(camera, "gain_db", CxValue::fromInt(1)), 0);
    EXPECT_EQ(gain->paramValue().toFloat(), 1.0F);
}

TEST_F(MoodyCamera, AParameterThatCannotBeReadBreaksNoListing)
{
    EXPECT_EQ(write(camera, "TestRegister", CxValue::fromInt(0)), 0);
    int values = 0;
    for (const QString& name : parameterNames()) {
        CxCameraParam* parameter = manager.cameraParameters(camera)->findParam(name, false);
        ASSERT_NE(parameter, nullptr);
        values += parameter->paramValue().type() != CxValue::Empty ? 1 : 0;
        parameter->minimum();
        parameter->maximum();
        parameter->increment();
    }
    EXPECT_GE(values, 8);
}

/// A camera of the newer names.
struct ModernCamera : DescribedCameraTest {
    ModernCamera()
        : DescribedCameraTest({
            {"Name=\"ExposureTimeAbs\"", "Name=\"ExposureTime\""},
            {"Name=\"GainRaw\"", "Name=\"Gain\""},
            {"<Boolean Name=\"TestBoolean\"", "<Boolean Name=\"AcquisitionFrameRateEnable\""},
        })
    {
    }
};

TEST_F(ModernCamera, IsSpokenToByTheSameNames)
{
    EXPECT_EQ(write(camera, "exposure_time_us", CxValue::fromInt(300)), 0);
    EXPECT_EQ(read(camera, "ExposureTime").toFloat(), 300.0F);
    EXPECT_EQ(write(camera, "gain_db", CxValue::fromInt(3)), 0);
    EXPECT_EQ(read(camera, "Gain").toInt(), 3);
    EXPECT_EQ(read(camera, "gain_db:unit").toString(), u"dB");
    EXPECT_EQ(write(camera, "acq_timing_mode", CxValue::fromInt(1)), 0);
    EXPECT_TRUE(read(camera, "AcquisitionFrameRateEnable").toBool());
    EXPECT_EQ(read(camera, "acq_timing_mode").toInt(), 1);
    EXPECT_EQ(write(camera, "acq_timing_mode", CxValue::fromInt(0)), 0);
    EXPECT_EQ(read(camera, "acq_timing_mode").toInt(), 0);
    EXPECT_EQ(write(camera, "acq_timing_mode", CxValue::fromInt(2)),
              status(ParameterStatus::OutOfRange));
}

/// A camera that computes an exposure which is no number.
struct ConfusedCamera : DescribedCameraTest {
    ConfusedCamera()
        : DescribedCameraTest(
            {{"<FormulaFrom>TO</FormulaFrom>", "<FormulaFrom>SQRT(0.0-1.0-TO)</FormulaFrom>"}})
    {
    }
};

TEST_F(ConfusedCamera, HasNoValueForWhatIsNoNumber)
{
    ASSERT_TRUE(std::isnan(read(camera, "ExposureTimeAbs").toFloat()));
    EXPECT_EQ(read(camera, "exposure_time_us").type(), CxValue::Empty);
    start(camera);
    const auto frames = collector.take(1);
    ASSERT_FALSE(frames.empty());
    EXPECT_EQ(frames.front()->acquisitionInfo()->exposureTimeUs, 0);
}

/// A camera whose gain is a number with a fraction.
struct DecibelCamera : DescribedCameraTest {
    DecibelCamera()
        : DescribedCameraTest({{"<Integer Name=\"GainRaw\"", "<Float Name=\"Gain\""},
                               {"<Max>10</Max>\n\t</Integer>", "<Max>10</Max>\n\t</Float>"}})
    {
    }
};

TEST_F(DecibelCamera, WritesItsGainIntoTheRecordInDecibels)
{
    ASSERT_EQ(write(camera, "gain_db", CxValue::fromInt(3)), 0);
    start(camera);
    const auto frames = collector.take(1);
    ASSERT_FALSE(frames.empty());
    EXPECT_EQ(frames.front()->acquisitionInfo()->gainDb, 3.0F);
}

} // namespace

} // namespace vistrel::test

// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Nodes by name, pixel formats and the region of interest, on the simulated camera.
#include "CameraFixtures.h"

#include "cameras/CameraParameters.h"

#include <gmock/gmock.h>

#include <array>

namespace vistrel::test {

namespace {

using testing::AllOf;
using testing::HasSubstr;

constexpr int status(ParameterStatus value) { return static_cast<int>(value); }

struct CameraNodes : CameraTest {
    void* camera = openSimulated();
    LogCapture log;
};

TEST_F(CameraNodes, EveryKindOfNodeIsReadAsItsType)
{
    EXPECT_EQ(read(camera, "Width").type(), CxValue::Int);
    EXPECT_EQ(read(camera, "Width").toInt(), 512);
    EXPECT_EQ(read(camera, "ExposureTimeAbs").type(), CxValue::Float);
    EXPECT_EQ(read(camera, "DeviceModelName").type(), CxValue::String);
    EXPECT_EQ(read(camera, "DeviceModelName").toString(), u"Fake");
    EXPECT_EQ(read(camera, "PixelFormat").type(), CxValue::String);
    EXPECT_EQ(read(camera, "PixelFormat").toString(), u"Mono8");
    EXPECT_EQ(log.text(), "");
}

TEST_F(CameraNodes, WhatIsWrittenIsReadBack)
{
    EXPECT_EQ(write(camera, "ExposureTimeAbs", CxValue::fromFloat(2500.0F)), 0);
    EXPECT_FLOAT_EQ(read(camera, "ExposureTimeAbs").toFloat(), 2500.0F);
    EXPECT_EQ(write(camera, "GainRaw", CxValue::fromInt(7)), 0);
    EXPECT_EQ(read(camera, "GainRaw").toInt(), 7);
    EXPECT_EQ(write(camera, "PixelFormat", CxValue::fromString(QStringLiteral("RGB8"))), 0);
    EXPECT_EQ(read(camera, "PixelFormat").toString(), u"RGB8");
    EXPECT_EQ(write(camera, "PixelFormat", CxValue::fromInt(0x01080001)), 0);
    EXPECT_EQ(read(camera, "PixelFormat").toString(), u"Mono8");
    EXPECT_EQ(log.text(), "");
}

TEST_F(CameraNodes, NumbersOfEveryTypeAreTaken)
{
    EXPECT_EQ(write(camera, "GainRaw", CxValue::fromFloat(4.0F)), 0);
    EXPECT_EQ(read(camera, "GainRaw").toInt(), 4);
    EXPECT_EQ(write(camera, "GainRaw", CxValue::fromBool(true)), 0);
    EXPECT_EQ(read(camera, "GainRaw").toInt(), 1);
    EXPECT_EQ(write(camera, "GainRaw", CxValue::fromString(QStringLiteral("5"))), 0);
    EXPECT_EQ(read(camera, "GainRaw").toInt(), 5);
    EXPECT_EQ(write(camera, "ExposureTimeAbs", CxValue::fromInt(300)), 0);
    EXPECT_FLOAT_EQ(read(camera, "ExposureTimeAbs").toFloat(), 300.0F);
}

TEST_F(CameraNodes, AValueOutOfRangeIsRefusedAndLogged)
{
    EXPECT_EQ(write(camera, "GainRaw", CxValue::fromInt(11)), status(ParameterStatus::OutOfRange));
    EXPECT_EQ(read(camera, "GainRaw").toInt(), 0);
    EXPECT_THAT(log.text(), AllOf(HasSubstr("GainRaw"), HasSubstr("11"), HasSubstr("10")));
    const float before = read(camera, "ExposureTimeAbs").toFloat();
    EXPECT_EQ(write(camera, "ExposureTimeAbs", CxValue::fromFloat(1.0F)),
              status(ParameterStatus::OutOfRange));
    EXPECT_EQ(read(camera, "ExposureTimeAbs").toFloat(), before);
}

TEST_F(CameraNodes, AReadOnlyNodeIsRefusedAndLogged)
{
    EXPECT_EQ(write(camera, "SensorWidth", CxValue::fromInt(100)),
              status(ParameterStatus::NotAccessible));
    EXPECT_EQ(read(camera, "SensorWidth").toInt(), 2048);
    EXPECT_THAT(log.text(), AllOf(HasSubstr("SensorWidth"), HasSubstr("100")));
}

TEST_F(CameraNodes, AnUnknownEntryIsRefusedWithTheEntriesThereAre)
{
    EXPECT_EQ(write(camera, "PixelFormat", CxValue::fromString(QStringLiteral("Mono9"))),
              status(ParameterStatus::OutOfRange));
    EXPECT_EQ(read(camera, "PixelFormat").toString(), u"Mono8");
    EXPECT_THAT(log.text(), AllOf(HasSubstr("PixelFormat"), HasSubstr("Mono9"), HasSubstr("RGB8")));
}

TEST_F(CameraNodes, AWrongTypeIsRefused)
{
    const auto text = CxValue::fromString(QStringLiteral("much"));
    EXPECT_EQ(write(camera, "GainRaw", text), status(ParameterStatus::WrongType));
    EXPECT_EQ(write(camera, "ExposureTimeAbs", text), status(ParameterStatus::WrongType));
    EXPECT_EQ(write(camera, "GainRaw", CxValue()), status(ParameterStatus::WrongType));
    EXPECT_THAT(log.text(), AllOf(HasSubstr("GainRaw"), HasSubstr("much")));
}

TEST_F(CameraNodes, AnUnknownNameIsRefusedAndLeavesTheValueAlone)
{
    CxValue value = CxValue::fromInt(42);
    int result = 0;
    EXPECT_FALSE(manager.cameraParameters(camera)->getParamDirect(QStringLiteral("NoSuchNode"),
                                                                  value, &result));
    EXPECT_EQ(result, status(ParameterStatus::Unknown));
    EXPECT_EQ(value.toInt(), 42);
    EXPECT_EQ(write(camera, "NoSuchNode", value), status(ParameterStatus::Unknown));
    EXPECT_THAT(log.text(), HasSubstr("NoSuchNode"));
}

TEST_F(CameraNodes, ACommandIsExecutedAndHasNoValue)
{
    EXPECT_EQ(write(camera, "TriggerSoftware", CxValue::fromBool(true)), 0);
    CxValue value;
    EXPECT_FALSE(manager.cameraParameters(camera)->getParamDirect(QStringLiteral("TriggerSoftware"),
                                                                  value, nullptr));
    EXPECT_EQ(value.type(), CxValue::Empty);
}

TEST_F(CameraNodes, TheRegionIsSetAndFramesFollow)
{
    CxCameraParameters* parameters = manager.cameraParameters(camera);
    EXPECT_EQ(parameters->currentROIRectParams(), QRect(0, 0, 512, 512));
    parameters->setROIRectParams(10, 20, 300, 200, true);
    EXPECT_EQ(parameters->currentROIRectParams(), QRect(10, 20, 300, 200));
    start(camera);
    const auto frames = collector.take(1);
    ASSERT_FALSE(frames.empty());
    EXPECT_EQ(frames.front()->picBuf()->width, 300U);
    EXPECT_EQ(frames.front()->picBuf()->height, 200U);
    EXPECT_EQ(log.text(), "");
}

TEST_F(CameraNodes, ARegionPastTheSensorIsRefusedAndLogged)
{
    CxCameraParameters* parameters = manager.cameraParameters(camera);
    for (const QRect& wrong : {QRect(0, 0, 2049, 10), QRect(2000, 0, 100, 10), QRect(-1, 0, 10, 10),
                               QRect(0, 0, 0, 0)}) {
        parameters->setROIRectParams(wrong.x(), wrong.y(), wrong.width(), wrong.height(), true);
        EXPECT_EQ(parameters->currentROIRectParams(), QRect(0, 0, 512, 512));
    }
    EXPECT_THAT(log.text(), AllOf(HasSubstr("(2000, 0, 100, 10)"), HasSubstr("2048 x 2048")));
}

TEST_F(CameraNodes, ALargerRegionMayBeSetWhileTheCameraStreams)
{
    start(camera);
    const auto before = collector.take(1);
    manager.cameraParameters(camera)->setROIRectParams(0, 0, 1024, 768, true);
    EXPECT_TRUE(manager.isStreaming(camera));
    int lastNumber = before.back()->picBuf()->frameNumber;
    bool consecutive = true;
    EXPECT_TRUE(waitUntil([&] {
        const auto frames = collector.take(1);
        for (const auto& frame : frames)
            consecutive = consecutive && frame->picBuf()->frameNumber == ++lastNumber;
        return !frames.empty() && frames.back()->picBuf()->width == 1024;
    }));
    EXPECT_TRUE(consecutive);
    EXPECT_EQ(log.text(), "");
}

struct FormatCase {
    const char* node;
    quint32 transportFormat;
    quint32 channels;
    quint32 bpc;
    ExImageDataType type;
    ExColorFilterArray colorFilter;
    bool isRgb;
};

constexpr auto formats = std::to_array<FormatCase>({
    {"Mono8", 0x01080001, 1, 8, ExImageDataType::UInt8, ExColorFilterArray::None, false},
    {"Mono16", 0x01100007, 1, 16, ExImageDataType::UInt16, ExColorFilterArray::None, false},
    {"RGB8", 0x02180014, 3, 8, ExImageDataType::UInt8, ExColorFilterArray::None, true},
    {"BayerGR8", 0x01080008, 1, 8, ExImageDataType::UInt8, ExColorFilterArray::GRBG, false},
    {"BayerRG8", 0x01080009, 1, 8, ExImageDataType::UInt8, ExColorFilterArray::RGGB, false},
    {"BayerGB8", 0x0108000A, 1, 8, ExImageDataType::UInt8, ExColorFilterArray::GBRG, false},
    {"BayerBG8", 0x0108000B, 1, 8, ExImageDataType::UInt8, ExColorFilterArray::BGGR, false},
});

void expectPicture(const CxImageData& frame, SxPicBuf& picture, const FormatCase& format)
{
    EXPECT_EQ(picture.channels, format.channels);
    EXPECT_EQ(picture.bpc, format.bpc);
    EXPECT_EQ(picture.dataType, format.type);
    EXPECT_EQ(picture.colorFilterArray, format.colorFilter);
    EXPECT_EQ(picture.isRgb, format.isRgb);
    EXPECT_EQ(frame.acquisitionInfo()->transportFormat, format.transportFormat);
    const auto* pixels = picture.data;
    const auto isLit = [](quint8 byte) { return byte != 0; };
    EXPECT_TRUE(std::any_of(pixels, pixels + picture.dataSize(), isLit));
}

TEST_F(CameraNodes, FramesComeInEveryPixelFormat)
{
    manager.cameraParameters(camera)->setROIRectParams(0, 0, 101, 51, true);
    for (const FormatCase& format : formats) {
        SCOPED_TRACE(format.node);
        const auto name = CxValue::fromString(QString::fromLatin1(format.node));
        ASSERT_EQ(write(camera, "PixelFormat", name), 0);
        start(camera);
        const auto frames = collector.take(1);
        manager.stop(camera);
        collector.take(0);
        ASSERT_FALSE(frames.empty());
        expectPicture(*frames.front(), *frames.front()->picBuf(), format);
    }
}

TEST_F(CameraNodes, ThePixelFormatMayBeSetWhileTheCameraStreams)
{
    start(camera);
    ASSERT_FALSE(collector.take(1).empty());
    ASSERT_EQ(write(camera, "PixelFormat", CxValue::fromString(QStringLiteral("Mono16"))), 0);
    EXPECT_TRUE(waitUntil([&] {
        const auto frames = collector.take(1);
        return !frames.empty() && frames.back()->picBuf()->bpc == 16;
    }));
}

} // namespace

} // namespace vistrel::test

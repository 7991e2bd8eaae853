// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Attributes of the image object and its array interface.
#include "PluginTest.h"

#include <KvCore.h>

namespace {

class ImageAttributes : public PluginTest {
protected:
    SxPicBuf& bind(std::unique_ptr<CxImageData> newImage)
    {
        run("pass");
        image = std::move(newImage);
        plugin->addImageVariable(QStringLiteral("p"), image.get());
        return *image->picBuf();
    }

    std::unique_ptr<CxImageData> image;
};

/// Names that read the buffer, in the order in which they are compared.
constexpr char bufferNames[] =
    "width height bpc channels frame_number nframe acq_nframe time_stamp tsSec tsUSec rgb size "
    "bp bp_size frm black_level padding_x AbsoluteOffsetX AbsoluteOffsetY data_saturation "
    "data_sign_mode __array_interface__";
constexpr char recordNames[] =
    "transport_frm exposure_time_us gain_db wb_red wb_green wb_blue color_filter_array "
    "tof_phases_count tof_multiple_phases_in_buffer tof_phase_id";

TEST_F(ImageAttributes, ReadTheBuffer)
{
    SxPicBuf& buffer = bind(makeImage(5, 3, 1, ExImageDataType::UInt16, 12));
    buffer.frameNumber = 41;
    buffer.acqFrameNumber = -42;
    buffer.timestampUs = 12'345'678'901;
    buffer.blackLevel = 64;
    EXPECT_EQ(value("(p.width, p.height, p.bpc, p.channels, p.frame_number, p.nframe, "
                    "p.acq_nframe, p.time_stamp, p.tsSec, p.tsUSec, p.rgb, p.size, p.black_level, "
                    "p.padding_x, p.AbsoluteOffsetX, p.AbsoluteOffsetY)"),
              QStringLiteral("(5, 3, 12, 1, 41, 41, -42, 12345678901, 12345, 678901, False, 312, "
                             "64, 2, 0, 0)"));
    EXPECT_EQ(value("p.bp"), QString::number(reinterpret_cast<quintptr>(buffer.data)));
    EXPECT_EQ(value("p.bp_size"), QStringLiteral("36"));
}

TEST_F(ImageAttributes, PassTheCoreLibrarysCodesOn)
{
    SxPicBuf& buffer = bind(makeImage(5, 3, 3, ExImageDataType::Int16, 16));
    EXPECT_EQ(value("(p.frm, p.data_sign_mode)"),
              QStringLiteral("(%1, %2)")
                  .arg(kvCore_GetKvImgFormatForPicBufInfo(buffer))
                  .arg(kvCore_GetKvDataSmFromDataType(buffer.dataType)));
}

TEST_F(ImageAttributes, ReadTheAcquisitionRecord)
{
    bind(makeImage(5, 3, 1, ExImageDataType::UInt8, 8));
    SxAcquisitionInfo info;
    info.transportFormat = 0x81080001;
    info.exposureTimeUs = -5;
    info.gainDb = 1.5F;
    info.whiteBalanceRed = 0.5F;
    info.whiteBalanceGreen = 1.25F;
    info.whiteBalanceBlue = 2.0F;
    info.colorFilterArray = ExColorFilterArray::GBRG;
    info.tofPhaseId = 2;
    info.tofPhasesCount = 4;
    image->setAcquisitionInfo(&info);
    EXPECT_EQ(value("(p.transport_frm, p.exposure_time_us, p.gain_db, p.wb_red, p.wb_green, "
                    "p.wb_blue, p.tof_phases_count, p.tof_multiple_phases_in_buffer, "
                    "p.tof_phase_id)"),
              QStringLiteral("(2164785153, -5, 1.5, 0.5, 1.25, 2.0, 4, 0, 2)"));
    EXPECT_EQ(value("p.color_filter_array"),
              QString::number(kvCore_GetKvCfaFromColorFilterArray(ExColorFilterArray::GBRG)));
}

TEST_F(ImageAttributes, OfAnEmptyObjectAllRaiseButTheBoundMethod)
{
    EXPECT_EQ(run(("raised = []\n"
                   "for name in '"
                   + std::string(bufferNames) + " " + recordNames
                   + "'.split():\n"
                     "    try: getattr(vistrel.Image(), name)\n"
                     "    except Exception as e: raised.append((type(e), str(e)))\n"
                     "print(len(raised), set(raised) == {(Exception, "
                     "'Vistrel image object is empty')}, end='')\n")
                      .c_str()),
              QString());
    EXPECT_EQ(output, QStringLiteral("32 True"));
    EXPECT_EQ(value("callable(vistrel.Image().tobytes)"), QStringLiteral("True"));
}

TEST_F(ImageAttributes, OfTheRecordRaiseWithoutOne)
{
    bind(makeImage(5, 3, 1, ExImageDataType::UInt8, 8));
    EXPECT_EQ(run(("for name in '" + std::string(recordNames)
                   + "'.split():\n"
                     "    try: getattr(p, name)\n"
                     "    except Exception as e: print(e)\n")
                      .c_str()),
              QString());
    EXPECT_EQ(output.count(QStringLiteral("Vistrel image object is empty\n")), 10);
}

TEST_F(ImageAttributes, TimeStampIsSecondsAndMicroseconds)
{
    SxPicBuf& buffer = bind(makeImage(1, 1, 1, ExImageDataType::UInt8, 8));
    for (const qint64 stamp :
         {qint64{0}, qint64{999'999}, qint64{1'000'000}, qint64{9'007'199'254'740'993}}) {
        buffer.timestampUs = stamp;
        EXPECT_EQ(value("p.tsSec * 1000000 + p.tsUSec == p.time_stamp"), QStringLiteral("True"));
    }
}

TEST_F(ImageAttributes, NegativeTimeStampsAreDividedAsUnsigned)
{
    bind(makeImage(1, 1, 1, ExImageDataType::UInt8, 8)).timestampUs = -1;
    EXPECT_EQ(value("(p.tsSec, p.tsUSec) == divmod(2**64 - 1, 1000000)"), QStringLiteral("True"));
}

TEST_F(ImageAttributes, SaturationComesFromTheBitsOrFromTheRecord)
{
    SxPicBuf& buffer = bind(makeImage(1, 1, 1, ExImageDataType::UInt8, 8));
    EXPECT_EQ(value("p.data_saturation"), QStringLiteral("255.0"));
    buffer.bpc = 12;
    EXPECT_EQ(value("p.data_saturation"), QStringLiteral("4095.0"));
    buffer.saturation = 0.75F;
    EXPECT_EQ(value("p.data_saturation"), QStringLiteral("4095.0"));
    buffer.dataType = ExImageDataType::Float;
    EXPECT_EQ(value("p.data_saturation"), QStringLiteral("0.75"));
    buffer.dataType = ExImageDataType::Double;
    EXPECT_EQ(value("p.data_saturation"), QStringLiteral("0.75"));
}

TEST_F(ImageAttributes, ArrayInterfaceOfAMonoPictureIsWidthFirst)
{
    const SxPicBuf& buffer = bind(makeImage(5, 3, 1, ExImageDataType::UInt16, 12));
    EXPECT_EQ(value("p.__array_interface__"),
              QStringLiteral("{'shape': (5, 3), 'typestr': '|u2', 'data': (%1, 0), "
                             "'strides': (2, 12), 'version': 3}")
                  .arg(reinterpret_cast<quintptr>(buffer.data)));
}

TEST_F(ImageAttributes, ArrayInterfaceOfAColourPictureHasTheChannelsLast)
{
    bind(makeImage(5, 3, 3, ExImageDataType::UInt8, 8));
    EXPECT_EQ(value("[p.__array_interface__[k] for k in ('shape', 'strides', 'version')]"),
              QStringLiteral("[(5, 3, 3), (3, 16, 1), 3]"));
}

TEST_F(ImageAttributes, ArrayInterfaceOfPackedPixelsIsTwoDimensional)
{
    SxPicBuf& buffer = bind(makeImage(5, 3, 3, ExImageDataType::UInt16, 16));
    buffer.dataType = ExImageDataType::Packed565;
    EXPECT_EQ(value("[p.__array_interface__[k] for k in ('shape', 'typestr', 'strides')]"),
              QStringLiteral("[(5, 3), '|u2', (2, 32)]"));
}

TEST_F(ImageAttributes, ArrayInterfaceNamesEveryElementType)
{
    SxPicBuf& buffer = bind(makeImage(2, 2, 1, ExImageDataType::UInt8, 8));
    const QStringList codes{QStringLiteral("|u8"),
                            QStringLiteral("|i1"),
                            QStringLiteral("|u1"),
                            QStringLiteral("|i2"),
                            QStringLiteral("|u2"),
                            QStringLiteral("|i4"),
                            QStringLiteral("|u4"),
                            QStringLiteral("|i8"),
                            QStringLiteral("|u8"),
                            QStringLiteral("|f4"),
                            QStringLiteral("|f8"),
                            QStringLiteral("|u2"),
                            QString()};
    for (qsizetype type = 0; type < codes.size(); ++type) {
        buffer.dataType = static_cast<ExImageDataType>(type);
        EXPECT_EQ(value("p.__array_interface__['typestr']"), codes[type]) << type;
    }
}

TEST_F(ImageAttributes, TheDictionaryHoldsTheOnlyReferenceToItsTuple)
{
    bind(makeImage(2, 2, 1, ExImageDataType::UInt8, 8));
    EXPECT_EQ(value("__import__('sys').getrefcount(p.__array_interface__['data'])"),
              value("__import__('sys').getrefcount(dict(a=tuple([1, 2]))['a'])"));
}

TEST_F(ImageAttributes, NamesThatAreMadeUpAtRunTimeAreFoundToo)
{
    bind(makeImage(5, 3, 1, ExImageDataType::UInt8, 8));
    EXPECT_EQ(value("[getattr(p, ''.join(n)) for n in (['wi', 'dth'], ['hei', 'ght'])]"),
              QStringLiteral("[5, 3]"));
    EXPECT_EQ(value("getattr(p, ''.join(['get_', 'width']))()"), QStringLiteral("5"));
}

TEST_F(ImageAttributes, OtherNamesAreAttributeErrors)
{
    bind(makeImage(5, 3, 1, ExImageDataType::UInt8, 8));
    EXPECT_TRUE(error("p.Width").startsWith(QLatin1String("AttributeError")));
    EXPECT_TRUE(error("p.widt").startsWith(QLatin1String("AttributeError")));
    EXPECT_TRUE(error("getattr(p, 'width\\0')").startsWith(QLatin1String("AttributeError")));
    EXPECT_TRUE(error("p.width = 5").startsWith(QLatin1String("AttributeError")));
    EXPECT_TRUE(
        error("vistrel.Image.__getattribute__(p, 5)").startsWith(QLatin1String("TypeError")));
}

TEST_F(ImageAttributes, NumpySharesThePixelsAndKeepsTheObjectAlive)
{
    EXPECT_EQ(run("import gc, numpy\n"
                  "i = vistrel.Image()\n"
                  "i.alloc(50, 40, 3, 16)\n"
                  "a = numpy.asarray(i)\n"
                  "assert a.shape == (50, 40, 3) and a.dtype == numpy.uint16\n"
                  "a[7, 5] = (1, 2, 3)\n"
                  "assert bytes(i)[5 * 300 + 7 * 6:][:6] == bytes((1, 0, 2, 0, 3, 0))\n"
                  "del i\n"
                  "gc.collect()\n"
                  "a[:] = 9\n"
                  "assert int(a.sum()) == 9 * a.size\n"),
              QString());
}

} // namespace

// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The image object: allocation, accessors, text form, exports, copies.
#include "PluginTest.h"

#include "../host/core/PictureMemory.h"

#include <CxPicBufAPI.h>

#include <QtCore/QPointer>

#include <cstdlib>

using testing::_;
using testing::Return;

namespace {

constexpr char emptyText[] = "Vistrel image object is empty";

class ImageObject : public PluginTest {
protected:
    /// Binds a host image under the name `p`.
    CxImageData& bind(std::unique_ptr<CxImageData> image)
    {
        run("pass");
        bound = std::move(image);
        plugin->addImageVariable(QStringLiteral("p"), bound.get());
        return *bound;
    }

    /// What an expression gives on a picture `i` that was allocated with these numbers.
    QString allocated(const char* numbers, const char* expression)
    {
        EXPECT_EQ(run(("i = vistrel.Image()\ni.alloc(" + std::string(numbers) + ")\nprint("
                       + expression + ", end='')")
                          .c_str()),
                  QString());
        return output;
    }

    QString allocError(const char* numbers)
    {
        return error(("vistrel.Image().alloc(" + std::string(numbers) + ")").c_str());
    }

    std::unique_ptr<CxImageData> bound;
};

TEST_F(ImageObject, IsEmptyWhenNewWhateverTheArguments)
{
    EXPECT_EQ(value("vistrel.Image()"), QLatin1String(emptyText));
    EXPECT_EQ(value("vistrel.Image(5, name='x')"), QLatin1String(emptyText));
}

TEST_F(ImageObject, MethodsOfAnEmptyObjectGiveTheInterpretersOwnError)
{
    for (const char* method :
         {"get_width", "get_height", "get_channels", "get_bpc", "get_frame_number",
          "get_time_stamp", "get_bytes_per_pixel", "get_image_data_numpy", "new_copy"})
        expectSilentNull(("vistrel.Image()." + std::string(method) + "()").c_str());
}

TEST_F(ImageObject, ExportsOfAnEmptyObjectNameIt)
{
    const QString named = QStringLiteral("Exception: ") + QLatin1String(emptyText);
    EXPECT_EQ(error("bytes(vistrel.Image())"), named);
    EXPECT_EQ(error("vistrel.Image().get_image_data_raw()"), named);
    EXPECT_EQ(error("vistrel.Image().tobytes()"), named);
    EXPECT_EQ(error("vistrel.Image().width"), named);
}

TEST_F(ImageObject, AllocRefusesNumbersBelowOne)
{
    const QString refusal = QStringLiteral("Exception: argument out of range");
    EXPECT_EQ(allocError("0, 10, 1, 8"), refusal);
    EXPECT_EQ(allocError("10, 0, 1, 8"), refusal);
    EXPECT_EQ(allocError("10, 10, 0, 8"), refusal);
    EXPECT_EQ(allocError("10, 10, 1, 0"), refusal);
    EXPECT_EQ(allocError("10, 10, 1, -1"), refusal);
    EXPECT_EQ(allocError("-10, 10, 1, 33"), refusal) << "the range of all four comes first";
}

TEST_F(ImageObject, AllocRefusesMoreThan32Bits)
{
    EXPECT_EQ(allocError("10, 10, 1, 33"),
              QStringLiteral("Exception: number of bits out of range"));
}

TEST_F(ImageObject, AllocChoosesTheSmallestElementForTheBits)
{
    const char* const interface = "(i.bpc, i.__array_interface__['typestr'])";
    EXPECT_EQ(allocated("2, 2, 1, 1", interface), QStringLiteral("(1, '|u1')"));
    EXPECT_EQ(allocated("2, 2, 1, 8", interface), QStringLiteral("(8, '|u1')"));
    EXPECT_EQ(allocated("2, 2, 1, 9", interface), QStringLiteral("(9, '|u2')"));
    EXPECT_EQ(allocated("2, 2, 1, 16", interface), QStringLiteral("(16, '|u2')"));
    EXPECT_EQ(allocated("2, 2, 1, 17", interface), QStringLiteral("(17, '|u4')"));
    EXPECT_EQ(allocated("10, 10, 1, 32", interface), QStringLiteral("(32, '|u4')"));
}

TEST_F(ImageObject, AllocMarksThreeAndFourChannelsAsRgb)
{
    EXPECT_EQ(allocated("10, 10, 3, 12", "i"),
              QStringLiteral("Vistrel image, width: 10, height: 10, channels: 3, bit per channel "
                             "(bpc): 12, type: unsigned int RGB"));
    EXPECT_EQ(allocated("1, 1, 4, 8", "i.rgb"), QStringLiteral("True"));
    EXPECT_EQ(allocated("1, 1, 2, 8", "i.rgb"), QStringLiteral("False"));
    EXPECT_EQ(allocated("1, 1, 5, 8", "i.rgb"), QStringLiteral("False"));
}

TEST_F(ImageObject, AllocatedPixelsAreZero)
{
    EXPECT_EQ(allocated("33, 17, 3, 8", "set(bytes(i))"), QStringLiteral("{0}"));
}

TEST_F(ImageObject, AllocWithoutMemoryKeepsThePreviousImage)
{
    EXPECT_EQ(run("i = vistrel.Image()\n"
                  "i.alloc(4, 3, 1, 8)\n"
                  "for numbers in ((2**31 - 1, 2**31 - 1, 4, 32), (0, 1, 1, 8), (1, 1, 1, 40)):\n"
                  "    try: i.alloc(*numbers)\n"
                  "    except Exception as e: print(e)\n"
                  "print(i.width, i.height)\n"),
              QString());
    EXPECT_EQ(output, QStringLiteral("cannot allocate new image, out of memory\n"
                                     "argument out of range\n"
                                     "number of bits out of range\n"
                                     "4 3\n"));
}

TEST_F(ImageObject, AFailingAllocatorIsRefusedEverywhere)
{
    CxImageData& image = bind(makeImage(4, 3, 3, ExImageDataType::UInt8, 8));
    const vistrel::test::NoPictureMemory none;
    EXPECT_EQ(allocError("4, 3, 1, 8"),
              QStringLiteral("Exception: cannot allocate new image, out of memory"));
    EXPECT_EQ(error("p.get_image_data_numpy()"),
              QStringLiteral("Exception: Cannot allocate image"));
    EXPECT_EQ(error("p.new_copy()"),
              QStringLiteral("Exception: cannot allocate new image, out of memory"));
    EXPECT_EQ(image.picBuf()->width, 4U);
}

/// An image of a view, and an eye on the last copy that a script took of it.
class WatchedImage : public CxImageData {
public:
    QObject* clone(int flags, int reserved) override
    {
        QObject* copy = CxImageData::clone(flags, reserved);
        ++copies;
        lastCopy = qobject_cast<CxImageData*>(copy);
        return copy;
    }

    int copies = 0;
    QPointer<CxImageData> lastCopy;
};

TEST_F(ImageObject, AllocReleasesTheImageThatItOwned)
{
    WatchedImage source;
    ON_CALL(delegate, viewImage(_)).WillByDefault(Return(&source));
    run("import emb\nemb.kept = vistrel.get_view_image(1)");
    ASSERT_FALSE(source.lastCopy.isNull());
    run("import emb\nemb.kept.alloc(1, 1, 1, 8)");
    EXPECT_TRUE(source.lastCopy.isNull());
}

TEST_F(ImageObject, ABorrowedImageIsForgottenNotDeleted)
{
    CxImageData& image = bind(makeImage(4, 3, 1, ExImageDataType::UInt8, 8));
    const QPointer<CxImageData> watch(&image);
    EXPECT_EQ(run("p.alloc(1, 1, 1, 8)\nassert p.width == 1\ndel p"), QString());
    EXPECT_FALSE(watch.isNull());
}

TEST_F(ImageObject, AnOwnedImageGoesWithItsObject)
{
    WatchedImage source;
    ON_CALL(delegate, viewImage(_)).WillByDefault(Return(&source));
    run("i = vistrel.get_view_image(1)");
    EXPECT_EQ(source.copies, 1);
    EXPECT_TRUE(source.lastCopy.isNull());
}

TEST_F(ImageObject, ASecondInitEmptiesTheObjectAndKeepsItsPixelsForArrayViews)
{
    EXPECT_EQ(run("import numpy\n"
                  "i = vistrel.Image()\n"
                  "i.alloc(4, 3, 1, 8)\n"
                  "view = numpy.asarray(i)\n"
                  "i.__init__()\n"
                  "view[:] = 7\n"
                  "print(i, view.sum(), end='')"),
              QString());
    EXPECT_EQ(output, QLatin1String(emptyText) + QStringLiteral(" 84"));
}

TEST_F(ImageObject, AccessorsReadTheRecord)
{
    SxPicBuf& buffer = *bind(makeImage(640, 480, 1, ExImageDataType::UInt16, 12)).picBuf();
    buffer.frameNumber = -3;
    buffer.timestampUs = -9'000'000'000'000;
    EXPECT_EQ(value("(p.get_width(), p.get_height(), p.get_channels(), p.get_bpc(), "
                    "p.get_frame_number(), p.get_time_stamp(), p.get_bytes_per_pixel())"),
              QStringLiteral("(640, 480, 1, 12, -3, -9000000000000, 2)"));
}

TEST_F(ImageObject, BytesPerPixelFollowTheElementType)
{
    SxPicBuf& buffer = *bind(makeImage(2, 2, 3, ExImageDataType::UInt8, 8)).picBuf();
    EXPECT_EQ(value("p.get_bytes_per_pixel()"), QStringLiteral("3"));
    buffer.dataType = ExImageDataType::Packed565;
    EXPECT_EQ(value("p.get_bytes_per_pixel()"), QStringLiteral("2"));
    buffer.dataType = ExImageDataType::Double;
    buffer.channels = 2;
    EXPECT_EQ(value("p.get_bytes_per_pixel()"), QStringLiteral("16"));
}

TEST_F(ImageObject, TextFormNamesEveryElementType)
{
    SxPicBuf& buffer = *bind(makeImage(640, 480, 1, ExImageDataType::UInt16, 12)).picBuf();
    EXPECT_EQ(value("p"), QStringLiteral("Vistrel image, width: 640, height: 480, channels: 1, bit "
                                         "per channel (bpc): 12, type: unsigned int"));
    const QStringList words{QStringLiteral("N/A"),
                            QStringLiteral("int"),
                            QStringLiteral("unsigned int"),
                            QStringLiteral("int"),
                            QStringLiteral("unsigned int"),
                            QStringLiteral("int"),
                            QStringLiteral("unsigned int"),
                            QStringLiteral("int"),
                            QStringLiteral("unsigned int"),
                            QStringLiteral("float"),
                            QStringLiteral("float"),
                            QStringLiteral("packed565"),
                            QString()};
    for (qsizetype type = 0; type < words.size(); ++type) {
        buffer.dataType = static_cast<ExImageDataType>(type);
        EXPECT_EQ(value("str(p).split('type: ')[1]"), words[type]) << type;
    }
    buffer.isRgb = true;
    EXPECT_EQ(value("str(p).split('type: ')[1]"), QStringLiteral(" RGB"));
}

TEST_F(ImageObject, ThreeWaysToTheBytesAreOne)
{
    SxPicBuf& buffer = *bind(makeImage(5, 3, 1, ExImageDataType::UInt8, 8)).picBuf();
    for (quint64 i = 0; i < buffer.dataSize(); ++i)
        buffer.data[i] = static_cast<quint8>(i);
    EXPECT_EQ(value("bytes(p) == p.tobytes() == p.get_image_data_raw() == p.__bytes__()"),
              QStringLiteral("True"));
    EXPECT_EQ(value("len(bytes(p)) == p.bp_size == bytes(p)[-1] + 1"), QStringLiteral("True"))
        << "the padding of the lines is part of the bytes";
}

TEST_F(ImageObject, NumpyPictureIsTheObjectItselfUnlessRedAndBlueMustBeSwapped)
{
    SxPicBuf& buffer = *bind(makeImage(2, 1, 3, ExImageDataType::UInt8, 8)).picBuf();
    EXPECT_EQ(value("(p.get_image_data_numpy(True) is p, p.get_image_data_numpy() is p)"),
              QStringLiteral("(True, False)"));
    buffer.isRgb = false;
    EXPECT_EQ(value("p.get_image_data_numpy() is p"), QStringLiteral("True"));
}

TEST_F(ImageObject, NumpyPictureHasRedAndBlueSwappedAndTheAcquisitionRecord)
{
    CxImageData& image = bind(makeImage(2, 1, 3, ExImageDataType::UInt8, 8));
    const quint8 pixels[] = {1, 2, 3, 4, 5, 6};
    std::copy(std::begin(pixels), std::end(pixels), image.picBuf()->data);
    SxAcquisitionInfo info;
    info.exposureTimeUs = 1234;
    image.setAcquisitionInfo(&info);
    EXPECT_EQ(value("list(bytes(p.get_image_data_numpy())[:6])"),
              QStringLiteral("[3, 2, 1, 6, 5, 4]"));
    EXPECT_EQ(value("p.get_image_data_numpy().exposure_time_us"), QStringLiteral("1234"));
    EXPECT_EQ(value("list(bytes(p)[:6])"), QStringLiteral("[1, 2, 3, 4, 5, 6]"));
}

TEST_F(ImageObject, WrongArgumentsAreErrorsOfTheParser)
{
    for (const char* call :
         {"alloc()", "alloc(1, 2, 3)", "alloc(1, 2, 3, 4, 5)", "alloc('1', 2, 3, 4)",
          "get_image_data_numpy(1, 2)", "from_file()", "from_file(5)", "get_width(1)"}) {
        const QString last = error(("vistrel.Image()." + std::string(call)).c_str());
        EXPECT_TRUE(last.startsWith(QLatin1String("TypeError: "))) << call << qPrintable(last);
    }
}

TEST_F(ImageObject, AnyTruthValueKeepsTheOrder)
{
    bind(makeImage(2, 1, 3, ExImageDataType::UInt8, 8));
    EXPECT_EQ(value("[p.get_image_data_numpy(x) is p for x in ('yes', [], 0.5, None)]"),
              QStringLiteral("[True, False, True, False]"));
}

TEST_F(ImageObject, ANewCopyIsIndependent)
{
    bind(makeImage(4, 3, 1, ExImageDataType::UInt8, 8)).picBuf()->frameNumber = 17;
    EXPECT_EQ(value("[c := p.new_copy(), c.frame_number, c.bp != p.bp][1:]"),
              QStringLiteral("[17, True]"));
}

TEST_F(ImageObject, MethodsStandInTheOrderOfTheTable)
{
    EXPECT_EQ(value("' '.join(n for n in vars(vistrel.Image) if n == '__bytes__' or n[0] != '_')"),
              QStringLiteral(
                  "__bytes__ alloc from_file from_array get_width get_height get_channels get_bpc "
                  "get_frame_number get_time_stamp get_image_data_raw get_image_data_numpy "
                  "get_bytes_per_pixel get_pixel_value set_pixel_value draw_pixel_line "
                  "draw_pixel_rect save_to_file to_rgb extract_channel convert_bpc new_copy crop "
                  "resize copy_to copy_rect_to resize_to tesize_rect_to add subtract "
                  "divide_by_value measure_rect measure_row_profiles_in_rect "
                  "measure_column_profiles_in_rect"));
}

TEST_F(ImageObject, AnImageWithoutABufferBehavesAsAnEmptyObject)
{
    class Bufferless : public CxImageData {
    public:
        SxPicBuf* picBuf() override { return nullptr; }
    };
    bind(std::make_unique<Bufferless>());
    EXPECT_EQ(value("p"), QLatin1String(emptyText));
    EXPECT_EQ(error("p.width"), QStringLiteral("Exception: ") + QLatin1String(emptyText));
    EXPECT_TRUE(error("p.get_width()").startsWith(QLatin1String("SystemError")));
    EXPECT_TRUE(error("p.get_image_data_numpy()").startsWith(QLatin1String("SystemError")));
}

} // namespace

// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The image object: derived pictures, copies between pictures, arithmetic.
#include "PluginTest.h"

#include "../host/core/PictureMemory.h"

namespace {

/// Pictures with a value in each channel that tells its place.
constexpr char prelude[] = R"(
def made(w, h, channels=1, bpc=8, value=lambda x, y, c: x + 10 * y + 100 * c):
    i = vistrel.Image()
    i.alloc(w, h, channels, bpc)
    for y in range(h):
        for x in range(w):
            for c in range(channels):
                i.set_pixel_value(value(x, y, c), x, y, c)
    return i
def flat(v, w=2, h=2, channels=1, bpc=8):
    return made(w, h, channels, bpc, lambda x, y, c: v)
def rows(i, c=0):
    return [[i.get_pixel_value(x, y, c) for x in range(i.width)] for y in range(i.height)]
def form(i):
    return (i.width, i.height, i.channels, i.bpc, i.__array_interface__['typestr'][1:], i.rgb)
)";

class ImageConversions : public PluginTest {
protected:
    /// What an expression that uses the prelude's names prints.
    QString valueOf(const std::string& expression)
    {
        EXPECT_EQ(run((prelude + ("print(" + expression) + ", end='')").c_str()), QString())
            << expression;
        return output;
    }

    /// What an expression prints after statements.
    QString valueAfter(const std::string& statements, const std::string& expression)
    {
        EXPECT_EQ(run((prelude + statements + "\nprint(" + expression + ", end='')").c_str()),
                  QString())
            << statements;
        return output;
    }

    QString errorOf(const std::string& statement) { return error((prelude + statement).c_str()); }
};

const QString outOfMemory = QStringLiteral("Exception: cannot allocate new image, out of memory");
const QString channelOutOfRange = QStringLiteral("Exception: channel number out of range");
const QString bitsOutOfRange = QStringLiteral("Exception: number of bits out of range");
const QString noImage = QStringLiteral("Exception: the object passed is not a vistrel.Image");

TEST_F(ImageConversions, EmptyObjectsGiveTheInterpretersOwnError)
{
    for (const char* call :
         {"to_rgb()", "extract_channel(0)", "convert_bpc(8)", "crop(0, 0, 1, 1)", "resize(1, 1)",
          "divide_by_value(2)", "copy_to(full)", "resize_to(full)", "add(full)", "subtract(full)",
          "copy_rect_to(0, 0, 1, 1, full, 0, 0)", "tesize_rect_to(0, 0, 1, 1, full, 0, 0, 1, 1)"})
        expectSilentNull(
            (prelude + ("full = flat(1)\nvistrel.Image()." + std::string(call))).c_str());
}

TEST_F(ImageConversions, AnEmptyOtherImageGivesTheInterpretersOwnError)
{
    for (const char* call :
         {"copy_to(none)", "resize_to(none)", "add(none)", "subtract(none)",
          "copy_rect_to(0, 0, 1, 1, none, 0, 0)", "tesize_rect_to(0, 0, 1, 1, none, 0, 0, 1, 1)"})
        expectSilentNull(
            (prelude + ("none = vistrel.Image()\nflat(1)." + std::string(call))).c_str());
}

TEST_F(ImageConversions, StrangersInThePlaceOfAnImageAreRefused)
{
    for (const char* stranger : {"None", "5", "'image'", "vistrel", "vistrel.Image", "[flat(1)]"}) {
        const std::string other = stranger;
        for (const std::string& call :
             {"copy_to(" + other + ")", "resize_to(" + other + ")", "add(" + other + ")",
              "subtract(" + other + ")", "copy_rect_to(0, 0, 1, 1, " + other + ", 0, 0)",
              "tesize_rect_to(0, 0, 1, 1, " + other + ", 0, 0, 1, 1)"})
            EXPECT_EQ(errorOf("flat(1)." + call), noImage) << call;
    }
}

TEST_F(ImageConversions, EveryNewPictureNeedsMemory)
{
    run((std::string(prelude) + "import emb\nemb.kept = flat(1)").c_str());
    const vistrel::test::NoPictureMemory none;
    for (const char* call :
         {"to_rgb()", "extract_channel(0)", "convert_bpc(8)", "crop(0, 0, 1, 1)", "resize(1, 1)"})
        EXPECT_EQ(error(("import emb\nemb.kept." + std::string(call)).c_str()), outOfMemory)
            << call;
}

TEST_F(ImageConversions, NewPicturesDoNotTouchTheirSource)
{
    EXPECT_EQ(valueAfter("i = made(4, 3, 3)\n"
                         "before = bytes(i)\n"
                         "news = [i.to_rgb(), i.extract_channel(1), i.convert_bpc(10),\n"
                         "        i.crop(0, 0, 2, 2), i.resize(8, 8, 0, 0, 0, 0)]\n"
                         "for n in news: n.set_pixel_value(99, 1, 1)",
                         "bytes(i) == before, len({n.bp for n in news} | {i.bp})"),
              QStringLiteral("True 6"));
}

TEST_F(ImageConversions, ToRgbGivesFourChannelsOf8Bits)
{
    for (const char* picture : {"made(4, 3)", "made(4, 3, 2)", "made(4, 3, 3)", "made(4, 3, 4)",
                                "made(4, 3, 1, 12)", "made(4, 3, 3, 16)", "made(4, 3, 1, 32)"}) {
        EXPECT_EQ(valueOf("form(" + std::string(picture) + ".to_rgb())"),
                  QStringLiteral("(4, 3, 4, 8, 'u1', True)"))
            << picture;
        EXPECT_TRUE(valueOf(std::string(picture) + ".to_rgb()")
                        .endsWith(QLatin1String("type: unsigned int RGB")));
    }
}

TEST_F(ImageConversions, ToRgbKeepsColoursAndGreys)
{
    EXPECT_EQ(valueOf("[flat(70).to_rgb().get_pixel_value(1, 1, c) for c in range(4)]"),
              QStringLiteral("[70, 70, 70, 255]"));
    EXPECT_EQ(valueOf("[made(2, 1, 3, 8, lambda x, y, c: 50 * (c + 1)).to_rgb()"
                      ".get_pixel_value(1, 0, c) for c in range(4)]"),
              QStringLiteral("[50, 100, 150, 255]"));
}

TEST_F(ImageConversions, ExtractChannelGivesOneChannelOfTheSameSizeAndType)
{
    EXPECT_EQ(valueOf("form(made(4, 3, 3).extract_channel(0))"),
              QStringLiteral("(4, 3, 1, 8, 'u1', False)"));
    EXPECT_EQ(valueOf("form(made(4, 3, 4, 12).extract_channel(3))"),
              QStringLiteral("(4, 3, 1, 12, 'u2', False)"));
    EXPECT_EQ(valueOf("rows(made(3, 2, 3).extract_channel(1))"),
              QStringLiteral("[[100, 101, 102], [110, 111, 112]]"));
}

TEST_F(ImageConversions, ChannelsThatAreNotThereAreRefused)
{
    EXPECT_EQ(errorOf("made(2, 2, 3).extract_channel(3)"), channelOutOfRange);
    EXPECT_EQ(errorOf("made(2, 2, 3).extract_channel(-1)"), channelOutOfRange);
    EXPECT_EQ(errorOf("made(2, 2, 1).extract_channel(2**31 - 1)"), channelOutOfRange);
}

TEST_F(ImageConversions, ConvertBpcRefusesBitsOutside1To32)
{
    for (const char* bits : {"0", "33", "-1", "2**31 - 1", "-2**31"})
        EXPECT_EQ(errorOf("flat(1).convert_bpc(" + std::string(bits) + ")"), bitsOutOfRange)
            << bits;
}

TEST_F(ImageConversions, ConvertBpcChoosesTheSmallestElementAndKeepsTheRest)
{
    EXPECT_EQ(valueOf("[form(flat(1, channels=3).convert_bpc(b))[2:] for b in (1, 8, 10, 16, 17, "
                      "32)]"),
              QStringLiteral("[(3, 1, 'u1', True), (3, 8, 'u1', True), (3, 10, 'u2', True), "
                             "(3, 16, 'u2', True), (3, 17, 'u4', True), (3, 32, 'u4', True)]"));
}

TEST_F(ImageConversions, ConvertBpcScalesUnlessItIsToldNotTo)
{
    EXPECT_EQ(valueOf("[rows(flat(255, 1, 1).convert_bpc(*a)) for a in ((16,), (16, True), "
                      "(16, False), (12, False))]"),
              QStringLiteral("[[[65535]], [[65535]], [[255]], [[255]]]"));
    EXPECT_EQ(valueOf("rows(flat(4095, 1, 1, bpc=12).convert_bpc(8))"), QStringLiteral("[[255]]"));
    EXPECT_EQ(valueOf("rows(flat(200, 1, 1, bpc=12).convert_bpc(8, False))"),
              QStringLiteral("[[200]]"));
}

TEST_F(ImageConversions, ValuesAboveTheBitsAreRefusedAfterTheConversion)
{
    EXPECT_EQ(errorOf("flat(512, 1, 1, bpc=12).convert_bpc(9, False)"),
              QStringLiteral("Exception: new image contained values over max bpc"));
    EXPECT_EQ(valueOf("rows(flat(511, 1, 1, bpc=12).convert_bpc(9, False))"),
              QStringLiteral("[[511]]"));
}

TEST_F(ImageConversions, CropGivesARectangleOfTheSameType)
{
    EXPECT_EQ(valueOf("form(made(20, 12, 3).crop(0, 0, 10, 10))"),
              QStringLiteral("(10, 10, 3, 8, 'u1', True)"));
    EXPECT_EQ(valueOf("rows(made(6, 5).crop(2, 1, 3, 2))"),
              QStringLiteral("[[12, 13, 14], [22, 23, 24]]"));
    EXPECT_EQ(valueOf("rows(made(6, 5, 1, 12).crop(4, 4, 1, 1))"), QStringLiteral("[[44]]"));
}

TEST_F(ImageConversions, WhatTheHostDoesNotWriteIsBlack)
{
    run("pass");
    const vistrel::test::UsedPictureMemory used;
    EXPECT_EQ(valueOf("rows(made(3, 2).crop(2, 1, 3, 2))"),
              QStringLiteral("[[12, 0, 0], [0, 0, 0]]"));
    EXPECT_EQ(valueOf("set(bytes(flat(9).crop(100, 100, 4, 4)))"), QStringLiteral("{0}"));
    EXPECT_EQ(valueOf("set(bytes(flat(9).resize(4, 4, 100, 100, 1, 1)))"), QStringLiteral("{0}"));
    EXPECT_EQ(valueOf("set(bytes(flat(9).resize(5, 5, -1, -1, 0, 0))) - {9, 0}"),
              QStringLiteral("set()"));
}

TEST_F(ImageConversions, WhatLiesOutsideTheSourceStaysBlackInACrop)
{
    EXPECT_EQ(valueOf("rows(made(3, 2).crop(2, 1, 3, 2))"),
              QStringLiteral("[[12, 0, 0], [0, 0, 0]]"));
    EXPECT_EQ(valueOf("sum(map(sum, rows(flat(9).crop(100, 100, 4, 4))))"), QStringLiteral("0"));
    EXPECT_EQ(valueOf("sum(map(sum, rows(flat(9).crop(2**31 - 1, 2**31 - 1, 4, 4))))"),
              QStringLiteral("0"));
    EXPECT_EQ(valueOf("sum(map(sum, rows(flat(9).crop(-2**31, -2**31, 4, 4))))"),
              QStringLiteral("0"));
}

TEST_F(ImageConversions, SizesThatNoPictureHasCannotBeAllocated)
{
    for (const char* size :
         {"0, 5", "5, 0", "-1, 5", "5, -1", "-2**31, -2**31", "2**31 - 1, 2**31 - 1"}) {
        const std::string text = size;
        EXPECT_EQ(errorOf("flat(1).crop(0, 0, " + text + ")"), outOfMemory) << size;
        EXPECT_EQ(errorOf("flat(1).resize(" + text + ")"), outOfMemory) << size;
        EXPECT_EQ(errorOf("flat(1).resize(" + text + ", 0, 0, 0, 0)"), outOfMemory) << size;
    }
}

TEST_F(ImageConversions, ResizeAloneScalesTheTopLeftPixelUp)
{
    EXPECT_EQ(valueAfter("i = vistrel.Image()\n"
                         "i.alloc(640, 480, 1, 8)\n"
                         "i.draw_pixel_line(200, 1, 0, 639, 479)\n"
                         "i.set_pixel_value(33, 0, 0)\n"
                         "j = i.resize(100, 100)",
                         "form(j), {v for row in rows(j) for v in row}"),
              QStringLiteral("(100, 100, 1, 8, 'u1', False) {33}"));
}

TEST_F(ImageConversions, ResizeWithZerosScalesTheWholePicture)
{
    EXPECT_EQ(valueAfter("i = made(4, 2, 1, 8, lambda x, y, c: 0 if x < 2 else 200)\n"
                         "j = i.resize(100, 100, 0, 0, 0, 0)",
                         "form(j)[:2], j.get_pixel_value(2, 50), j.get_pixel_value(97, 50)"),
              QStringLiteral("(100, 100) 0 200"));
    EXPECT_EQ(valueOf("rows(flat(7, 4, 6, 3).resize(2, 2, 0, 0, 0, 0), 2)"),
              QStringLiteral("[[7, 7], [7, 7]]"));
    EXPECT_EQ(valueOf("rows(made(4, 4, 1, 8, lambda x, y, c: 10 * y).resize(1, 1, 0, 3, 0, 1))"),
              QStringLiteral("[[30]]"))
        << "a width of 0 goes with a height";
}

TEST_F(ImageConversions, CopyToFillsAnImageOfTheSameSizeAndType)
{
    EXPECT_EQ(valueAfter("i = made(4, 3, 3)\nj = flat(0, 4, 3, 3)\nr = i.copy_to(j)",
                         "r, rows(j, 2) == rows(i, 2)"),
              QStringLiteral("None True"));
}

TEST_F(ImageConversions, InPlaceMethodsLeaveAPictureThatDiffersAsItIs)
{
    for (const char* other :
         {"flat(5, 3, 2)", "flat(5, 2, 3)", "flat(5, channels=3)", "flat(5, bpc=12)"}) {
        EXPECT_EQ(valueAfter("i = flat(9)\nj = " + std::string(other)
                                 + "\nbefore = bytes(i), bytes(j)\n"
                                   "results = i.copy_to(j), i.add(j), i.subtract(j)\n",
                             "results, (bytes(i), bytes(j)) == before"),
                  QStringLiteral("(None, None, None) True"))
            << other;
    }
}

TEST_F(ImageConversions, CopyRectToWritesTheRectangleOnly)
{
    EXPECT_EQ(
        valueAfter("i = made(4, 3)\nj = flat(0, 4, 3)\nr = i.copy_rect_to(1, 1, 2, 1, j, 2, 0)",
                   "r, rows(j)"),
        QStringLiteral("None [[0, 0, 11, 12], [0, 0, 0, 0], [0, 0, 0, 0]]"));
}

TEST_F(ImageConversions, CopyRectToIsClippedToBothPictures)
{
    EXPECT_EQ(valueAfter("i = made(4, 3)\nj = flat(0, 3, 2)\ni.copy_rect_to(3, 2, 9, 9, j, 1, 1)",
                         "rows(j)"),
              QStringLiteral("[[0, 0, 0], [0, 23, 0]]"));
    EXPECT_EQ(valueAfter("i = made(4, 3)\nj = flat(0, 3, 2)\ni.copy_rect_to(0, 0, 9, 9, j, 1, 1)",
                         "rows(j)"),
              QStringLiteral("[[0, 0, 0], [0, 0, 1]]"));
}

TEST_F(ImageConversions, RectanglesOutsideWriteNothingOutside)
{
    for (const char* rect : {"9, 9, 2, 2, j, 0, 0", "0, 0, 2, 2, j, 9, 9", "0, 0, -1, -1, j, 0, 0",
                             "2**31 - 1, 2**31 - 1, 2**31 - 1, 2**31 - 1, j, 2**31 - 1, 2**31 - 1",
                             "-2**31, -2**31, 5, 5, j, 0, 0", "0, 0, 0, 0, j, -2**31, -2**31"})
        EXPECT_EQ(valueAfter("i = flat(9, 4, 3)\nj = flat(0, 4, 3)\nr = i.copy_rect_to("
                                 + std::string(rect) + ")",
                             "r, set(bytes(j))"),
                  QStringLiteral("None {0}"))
            << rect;
}

TEST_F(ImageConversions, AnImageCanBeCopiedIntoItself)
{
    EXPECT_EQ(valueAfter("i = made(4, 1)\n"
                         "i.copy_to(i)\n"
                         "i.copy_rect_to(0, 0, 3, 1, i, 1, 0)\n",
                         "rows(i)"),
              QStringLiteral("[[0, 0, 1, 2]]"));
    EXPECT_EQ(valueAfter("i = flat(100)\ni.add(i)\nj = flat(7)\nj.subtract(j)\nj.resize_to(j)",
                         "rows(i), rows(j)"),
              QStringLiteral("[[200, 200], [200, 200]] [[0, 0], [0, 0]]"));
}

TEST_F(ImageConversions, ResizeToKeepsTheTargetsGeometry)
{
    EXPECT_EQ(valueAfter("i = flat(7, 8, 6)\nj = flat(0, 3, 2)\nr = i.resize_to(j)",
                         "r, form(j)[:2], rows(j)"),
              QStringLiteral("None (3, 2) [[7, 7, 7], [7, 7, 7]]"));
}

TEST_F(ImageConversions, TesizeRectToScalesIntoTheRectangleOnly)
{
    EXPECT_EQ(valueAfter("i = made(8, 6, 1, 8, lambda x, y, c: 50 if x < 4 else 90)\n"
                         "j = flat(1, 4, 3)\n"
                         "r = i.tesize_rect_to(4, 0, 4, 6, j, 1, 1, 2, 2)",
                         "r, rows(j)"),
              QStringLiteral("None [[1, 1, 1, 1], [1, 90, 90, 1], [1, 90, 90, 1]]"));
}

TEST_F(ImageConversions, TesizeRectToStaysWithinTheTarget)
{
    for (const char* rect :
         {"0, 0, 4, 3, j, 2, 2, 2**31 - 1, 2**31 - 1", "9, 9, 4, 3, j, 0, 0, 4, 3",
          "0, 0, -4, -3, j, 0, 0, 4, 3", "0, 0, 4, 3, j, 0, 0, -4, -3",
          "0, 0, 4, 3, j, -2**31, -2**31, 2**31 - 1, 2**31 - 1",
          "2**31 - 1, 0, 2**31 - 1, 2, j, 0, 0, 1, 1"})
        EXPECT_EQ(valueAfter("i = flat(9, 4, 3)\nj = flat(0, 4, 3)\nr = i.tesize_rect_to("
                                 + std::string(rect) + ")",
                             "r, set(v for row in rows(j) for v in row) <= {0, 9}, form(j)[:2]"),
                  QStringLiteral("None True (4, 3)"))
            << rect;
}

TEST_F(ImageConversions, SumsEndAtTheLargestValueOfTheBits)
{
    EXPECT_EQ(valueAfter("i = flat(200)\nr = i.add(flat(100))", "r, rows(i)[0]"),
              QStringLiteral("None [255, 255]"));
    EXPECT_EQ(valueAfter("i = flat(4000, bpc=12)\ni.add(flat(100, bpc=12))", "rows(i)[0]"),
              QStringLiteral("[4095, 4095]"));
    EXPECT_EQ(valueAfter("i = flat(20)\ni.add(flat(22))", "rows(i)[0]"),
              QStringLiteral("[42, 42]"));
}

TEST_F(ImageConversions, DifferencesEndAtZero)
{
    EXPECT_EQ(valueAfter("i = flat(50)\nr = i.subtract(flat(60))", "r, rows(i)[0]"),
              QStringLiteral("None [0, 0]"));
    EXPECT_EQ(valueAfter("i = flat(60)\ni.subtract(flat(50))", "rows(i)[0]"),
              QStringLiteral("[10, 10]"));
}

TEST_F(ImageConversions, DivisionByZeroChangesNothing)
{
    EXPECT_EQ(valueAfter("i = flat(60)\nr = i.divide_by_value(0)", "r, rows(i)[0]"),
              QStringLiteral("None [60, 60]"));
    EXPECT_EQ(valueAfter("i = flat(60)\nr = i.divide_by_value(4)", "r, rows(i)[0]"),
              QStringLiteral("None [15, 15]"));
}

TEST_F(ImageConversions, ArgumentsOfAnotherKindAreRefusedByTheInterpreter)
{
    for (const char* call : {"extract_channel()", "convert_bpc('8')", "crop(1, 2, 3)", "resize(1)",
                             "copy_to()", "copy_rect_to(1, 2, 3, 4, 5)", "divide_by_value(2.5)"})
        EXPECT_TRUE(errorOf("flat(1)." + std::string(call)).startsWith(QLatin1String("TypeError")))
            << call;
    EXPECT_TRUE(errorOf("flat(1).crop(2**31, 0, 1, 1)").startsWith(QLatin1String("OverflowError")));
}

} // namespace

// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The image object: single pixels, lines and outlines.
#include "PluginTest.h"

namespace {

class ImagePixels : public PluginTest {
protected:
    /// Binds a black picture under the name `p`.
    SxPicBuf& bind(unsigned width, unsigned height, unsigned channels, ExImageDataType type,
                   unsigned bpc)
    {
        run("pass");
        bound = makeImage(width, height, channels, type, bpc);
        plugin->addImageVariable(QStringLiteral("p"), bound.get());
        return *bound->picBuf();
    }

    /// The pixels (x, y) of a script's picture `p` that are not 0, line by line.
    QString drawn(const char* call)
    {
        EXPECT_EQ(run((std::string(call)
                       + "\nprint([(x, y) for y in range(p.height) for x in range(p.width)"
                         " if p.get_pixel_value(x, y)], end='')")
                          .c_str()),
                  QString());
        return output;
    }

    std::unique_ptr<CxImageData> bound;
};

TEST_F(ImagePixels, EmptyObjectsGiveTheInterpretersOwnError)
{
    for (const char* call : {"get_pixel_value(0, 0)", "set_pixel_value(1, 0, 0)",
                             "draw_pixel_line(1, 0, 0, 0, 0)", "draw_pixel_rect(1, 0, 0, 0, 0)"})
        expectSilentNull(("vistrel.Image()." + std::string(call)).c_str());
}

TEST_F(ImagePixels, CoordinatesOutsideThePictureAreRefusedInTheOrderOfTheChecks)
{
    bind(7, 5, 3, ExImageDataType::UInt8, 8);
    const QString x = QStringLiteral("Exception: x-coordinate out of range");
    const QString y = QStringLiteral("Exception: y-coordinate out of range");
    const QString channel = QStringLiteral("Exception: channel number out of range");
    EXPECT_EQ(error("p.get_pixel_value(7, 0)"), x);
    EXPECT_EQ(error("p.get_pixel_value(-1, 0)"), x);
    EXPECT_EQ(error("p.get_pixel_value(-2**31, 5, 3)"), x);
    EXPECT_EQ(error("p.get_pixel_value(0, 5)"), y);
    EXPECT_EQ(error("p.get_pixel_value(0, -1, -1)"), y);
    EXPECT_EQ(error("p.get_pixel_value(0, 0, 3)"), channel);
    EXPECT_EQ(error("p.get_pixel_value(6, 4, -1)"), channel);
    EXPECT_EQ(error("p.set_pixel_value(1, 7, 0)"), x);
    EXPECT_EQ(error("p.set_pixel_value(1, 2**31 - 1, 9, 9)"), x);
    EXPECT_EQ(error("p.set_pixel_value(1, 0, 5)"), y);
    EXPECT_EQ(error("p.set_pixel_value(1, 0, 0, 3)"), channel);
    EXPECT_EQ(value("set(bytes(p))"), QStringLiteral("{0}")) << "nothing is written";
}

TEST_F(ImagePixels, EndsOutsideThePictureAreRefusedInTheOrderOfTheChecks)
{
    bind(7, 5, 1, ExImageDataType::UInt8, 8);
    for (const std::string method : {"p.draw_pixel_line", "p.draw_pixel_rect"}) {
        const auto refusal = [&](const char* arguments) {
            return error((method + "(9, " + arguments + ")").c_str());
        };
        EXPECT_EQ(refusal("7, 0, 0, 5"), QStringLiteral("Exception: x1-coordinate out of range"));
        EXPECT_EQ(refusal("-1, -1, -1, -1, -1"),
                  QStringLiteral("Exception: x1-coordinate out of range"));
        EXPECT_EQ(refusal("6, 5, 7, 0"), QStringLiteral("Exception: y1-coordinate out of range"));
        EXPECT_EQ(refusal("6, 4, 7, 5"), QStringLiteral("Exception: x2-coordinate out of range"));
        EXPECT_EQ(refusal("6, 4, 0, -1, 1"),
                  QStringLiteral("Exception: y2-coordinate out of range"));
        EXPECT_EQ(refusal("6, 4, 0, 0, 1"),
                  QStringLiteral("Exception: channel number out of range"));
    }
    EXPECT_EQ(value("set(bytes(p))"), QStringLiteral("{0}")) << "nothing is drawn";
}

TEST_F(ImagePixels, NumbersThatFitNoIntegerAreRefusedByTheInterpreter)
{
    bind(7, 5, 1, ExImageDataType::UInt8, 8);
    EXPECT_TRUE(error("p.get_pixel_value(2**31, 0)").startsWith(QLatin1String("OverflowError")));
    EXPECT_TRUE(error("p.set_pixel_value(2**63, 0, 0)").startsWith(QLatin1String("OverflowError")));
    EXPECT_TRUE(error("p.set_pixel_value('1', 0, 0)").startsWith(QLatin1String("TypeError")));
    EXPECT_TRUE(error("p.get_pixel_value(0)").startsWith(QLatin1String("TypeError")));
}

TEST_F(ImagePixels, ObjectsThatStandForAnIntegerAreTakenAsOne)
{
    bind(7, 5, 3, ExImageDataType::UInt8, 8);
    const char* const answer = "[i for i in (True, type('I', (), {'__index__': lambda s: 1})(),"
                               "             type('J', (int,), {})(1))"
                               " if p.set_pixel_value(9, i, i, i) is None"
                               " and (p.get_pixel_value(i, 1, 1), p.get_pixel_value(1, i, i),"
                               "      p.set_pixel_value(i, 1, 1, 1), p.get_pixel_value(1, 1, 1))"
                               " != (9, 9, None, 1)]";
    EXPECT_EQ(value(answer), QStringLiteral("[]"));
    for (const char* call : {"get_pixel_value(1.0, 0)", "get_pixel_value(0, 0, 0, 0)",
                             "set_pixel_value(1, 0, 0, 0, 0)", "draw_pixel_line(1, 2, 3, 4, 5.5)"})
        EXPECT_TRUE(
            error(("p." + std::string(call)).c_str()).startsWith(QLatin1String("TypeError")))
            << call;
}

TEST_F(ImagePixels, ValuesAreCutToTheElementsWidth)
{
    const char* const wide = "[p.set_pixel_value(v, 1, 1) or p.get_pixel_value(1, 1) "
                             "for v in (300, -1, -5, 2**33 + 7, 2**31, -2**63)]";
    bind(3, 3, 1, ExImageDataType::UInt8, 8);
    EXPECT_EQ(value(wide), QStringLiteral("[44, 255, 251, 7, 0, 0]"));
    bind(3, 3, 1, ExImageDataType::UInt16, 16);
    EXPECT_EQ(value(wide), QStringLiteral("[300, 65535, 65531, 7, 0, 0]"));
    bind(3, 3, 1, ExImageDataType::Int32, 32);
    EXPECT_EQ(value(wide), QStringLiteral("[300, -1, -5, 7, -2147483648, 0]"));
    bind(3, 3, 1, ExImageDataType::UInt32, 32);
    EXPECT_EQ(value(wide), QStringLiteral("[300, 4294967295, 4294967291, 7, 2147483648, 0]"));
}

TEST_F(ImagePixels, OtherElementTypesReadAsZeroAndStayUnwritten)
{
    for (const ExImageDataType type :
         {ExImageDataType::None, ExImageDataType::Int8, ExImageDataType::Int16,
          ExImageDataType::Int64, ExImageDataType::UInt64, ExImageDataType::Float,
          ExImageDataType::Double, ExImageDataType::Packed565}) {
        SxPicBuf& buffer = bind(4, 3, 1, type, 16);
        const auto size = static_cast<std::size_t>(buffer.dataSize());
        std::fill_n(buffer.data, size, quint8{0x11});
        EXPECT_EQ(value("(p.get_pixel_value(1, 1), p.set_pixel_value(5, 1, 1), "
                        "p.draw_pixel_line(5, 0, 0, 3, 2), p.draw_pixel_rect(5, 0, 0, 3, 2))"),
                  QStringLiteral("(0, None, None, None)"));
        EXPECT_EQ(std::count(buffer.data, buffer.data + size, quint8{0x11}),
                  static_cast<std::ptrdiff_t>(size));
    }
}

TEST_F(ImagePixels, AChannelIsWrittenAtItsPlaceInTheHostsPicture)
{
    const SxPicBuf& buffer = bind(5, 3, 3, ExImageDataType::UInt8, 8);
    ASSERT_EQ(buffer.stride, 16U) << "a line with padding";
    run("p.set_pixel_value(9, 4, 2, 1)");
    EXPECT_EQ(buffer.data[2 * 16 + 4 * 3 + 1], 9);
    EXPECT_EQ(value("sum(bytes(p))"), QStringLiteral("9"));
    EXPECT_EQ(value("[p.get_pixel_value(4, 2, c) for c in range(3)]"), QStringLiteral("[0, 9, 0]"));
}

TEST_F(ImagePixels, TwoEquallyNearPixelsAreDecidedByAStepAside)
{
    bind(5, 3, 1, ExImageDataType::UInt8, 8);
    EXPECT_EQ(drawn("p.draw_pixel_line(1, 0, 0, 4, 2)"),
              QStringLiteral("[(0, 0), (1, 1), (2, 1), (3, 2), (4, 2)]"));
}

TEST_F(ImagePixels, ALineToItselfIsOnePixel)
{
    bind(5, 5, 1, ExImageDataType::UInt16, 12);
    EXPECT_EQ(drawn("p.draw_pixel_line(1, 3, 3, 3, 3)"), QStringLiteral("[(3, 3)]"));
}

/// Walks the rule of the line once more, with nothing but additions and a set of pixels.
constexpr char everyLine[] = R"(
def walk(x1, y1, x2, y2):
    ax, ay = abs(x2 - x1), abs(y2 - y1)
    sx, sy = (x2 > x1) - (x2 < x1), (y2 > y1) - (y2 < y1)
    x, y, pixels = x1, y1, []
    if 2 * ax > 2 * ay:
        e = 2 * ay - ax
        while True:
            pixels.append((x, y))
            if x == x2: return pixels
            if e >= 0:
                y += sy
                e -= 2 * ax
            x += sx
            e += 2 * ay
    e = 2 * ax - ay
    while True:
        pixels.append((x, y))
        if y == y2: return pixels
        if e >= 0:
            x += sx
            e -= 2 * ay
        y += sy
        e += 2 * ax

W, H = 12, 10
size = p.get_bytes_per_pixel() // 2
stride = p.__array_interface__['strides'][1]
cells = [(x, y) for y in range(H) for x in range(W)]
wrong = lines = 0
for x1, y1 in cells:
    for x2, y2 in cells:
        p.draw_pixel_line(200, x1, y1, x2, y2, 1)
        expected = bytearray(stride * H)
        for x, y in walk(x1, y1, x2, y2):
            expected[y * stride + (x * 2 + 1) * size] = 200
        lines += 1
        wrong += bytes(p)[:stride * H] != bytes(expected)
        p.draw_pixel_line(0, x1, y1, x2, y2, 1)
print(lines, wrong, sum(bytes(p)), end='')
)";

TEST_F(ImagePixels, EveryLineOfAGridIsTheWalkOfTheRuleInEveryType)
{
    for (const ExImageDataType type : {ExImageDataType::UInt8, ExImageDataType::UInt16,
                                       ExImageDataType::Int32, ExImageDataType::UInt32}) {
        bind(12, 10, 2, type, 8);
        EXPECT_EQ(run(everyLine), QString());
        EXPECT_EQ(output, QStringLiteral("14400 0 0"));
    }
}

TEST_F(ImagePixels, AnOutlineIsTheSameFromAnyTwoOppositeCorners)
{
    bind(7, 7, 1, ExImageDataType::UInt8, 8);
    EXPECT_EQ(drawn("p.draw_pixel_rect(1, 1, 1, 3, 4)"),
              QStringLiteral("[(1, 1), (2, 1), (3, 1), (1, 2), (3, 2), (1, 3), (3, 3), (1, 4), "
                             "(2, 4), (3, 4)]"));
    EXPECT_EQ(run("pictures = set()\n"
                  "for corners in ((5, 5, 1, 1), (1, 1, 5, 5), (1, 5, 5, 1), (5, 1, 1, 5)):\n"
                  "    i = vistrel.Image()\n"
                  "    i.alloc(7, 7, 1, 8)\n"
                  "    i.draw_pixel_rect(9, *corners)\n"
                  "    pictures.add(bytes(i))\n"
                  "print(len(pictures), sum(pictures.pop()), end='')\n"),
              QString());
    EXPECT_EQ(output, QStringLiteral("1 144")) << "16 pixels of 9";
}

TEST_F(ImagePixels, AnOutlineWithoutWidthIsALine)
{
    bind(5, 5, 1, ExImageDataType::UInt8, 8);
    EXPECT_EQ(drawn("p.draw_pixel_rect(1, 2, 1, 2, 3)"),
              QStringLiteral("[(2, 1), (2, 2), (2, 3)]"));
}

TEST_F(ImagePixels, AnOutlineIsDrawnInItsChannelOnly)
{
    bind(4, 4, 3, ExImageDataType::UInt8, 8);
    EXPECT_EQ(value("(p.draw_pixel_rect(7, 0, 0, 3, 3, 2), "
                    "[sum(bytes(p)[c:12 * 4:3]) for c in range(3)])"),
              QStringLiteral("(None, [0, 0, 84])"));
}

} // namespace

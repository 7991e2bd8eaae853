// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The image object: pictures from nested lists.
#include "PluginTest.h"

namespace {

constexpr char prelude[] = R"(
import struct
def listed(values):
    i = vistrel.Image()
    try:
        i.from_array(values)
    except SystemError:
        pass
    return i
def form(i):
    return (i.width, i.height, i.channels, i.bpc, i.__array_interface__['typestr'][1:], i.rgb)
def lines(i):
    code = {'u1': 'B', 'u2': 'H', 'f4': 'f'}[form(i)[4]]
    n = i.width * i.channels
    return [list(struct.unpack_from(str(n) + code, bytes(i), y * i.__array_interface__['strides'][1]))
            for y in range(i.height)]
)";

class ImageListImport : public PluginTest {
protected:
    QString linesOf(const std::string& list) { return valueOf("lines(listed(" + list + "))"); }
    QString formOf(const std::string& list) { return valueOf("form(listed(" + list + "))"); }

    QString valueOf(const std::string& expression)
    {
        EXPECT_EQ(run((prelude + ("print(" + expression) + ", end='')").c_str()), QString())
            << expression;
        return output;
    }

    /// The error of a list that makes no picture; the previous one must stay.
    QString refusal(const std::string& list)
    {
        EXPECT_EQ(run(("i = vistrel.Image()\n"
                       "i.alloc(5, 4, 1, 8)\n"
                       "try: i.from_array("
                       + list
                       + ")\n"
                         "except BaseException as e: print(type(e).__name__, e, sep=': ', end='')\n"
                         "assert (i.width, i.height) == (5, 4)\n")
                          .c_str()),
                  QString())
            << list;
        return output;
    }
};

TEST_F(ImageListImport, EmptyListsAreNamed)
{
    EXPECT_EQ(refusal("[]"), QStringLiteral("Exception: list passed is empty"));
    EXPECT_EQ(refusal("[[]]"), QStringLiteral("Exception: array rows are empty"));
    EXPECT_EQ(refusal("[[], [1]]"), QStringLiteral("Exception: array rows are empty"));
    EXPECT_EQ(refusal("[[[]]]"), QStringLiteral("Exception: array channels are empty"));
}

TEST_F(ImageListImport, OtherFirstValuesAreRefused)
{
    for (const char* list :
         {"['1']", "[None, 1]", "[[None]]", "[[(1, 2)]]", "[[['a']]]", "[[[[1]]]]", "[1j]", "[{}]"})
        EXPECT_EQ(refusal(list), QStringLiteral("Exception: unsupported data type")) << list;
}

TEST_F(ImageListImport, MoreChannelsThanAPictureHasCannotBeAllocated)
{
    EXPECT_EQ(refusal("[[[1] * 65536]]"), QStringLiteral("Exception: Cannot allocate image"));
    EXPECT_TRUE(log.last().endsWith(QLatin1String("w1 h1 c65536 bpc16")));
}

TEST_F(ImageListImport, AListThatHoldsItselfIsRefused)
{
    EXPECT_EQ(error("l = []\nl.append(l)\nvistrel.Image().from_array(l)"),
              QStringLiteral("Exception: unsupported data type"));
    EXPECT_EQ(linesOf("(lambda l: [l.append(l), l][1])([[1, 2], [3]])"),
              QStringLiteral("[[1, 2], [3, 0], [0, 0]]"));
}

TEST_F(ImageListImport, TheDepthGivesTheGeometry)
{
    EXPECT_EQ(formOf("[1, 2, 999]"), QStringLiteral("(1, 3, 1, 10, 'u2', False)"));
    EXPECT_EQ(formOf("[[1, 2], [3, 4], [5, 999]]"), QStringLiteral("(2, 3, 1, 10, 'u2', False)"));
    EXPECT_EQ(formOf("[[[1, 2, 999]] * 4] * 2"), QStringLiteral("(4, 2, 3, 10, 'u2', True)"));
    EXPECT_EQ(formOf("[[[1.0, 2.0, 3.0]]]"), QStringLiteral("(1, 1, 3, 32, 'f4', False)"));
}

TEST_F(ImageListImport, IntegersAreNarrowedTo8Bits)
{
    EXPECT_EQ(formOf("[[1, 2], [3, 4]]"), QStringLiteral("(2, 2, 1, 8, 'u1', False)"));
    EXPECT_EQ(linesOf("[[1, 2], [3, 4]]"), QStringLiteral("[[1, 2], [3, 4]]"));
    EXPECT_EQ(formOf("[[True, False]]"), QStringLiteral("(2, 1, 1, 8, 'u1', False)"));
}

TEST_F(ImageListImport, IntegersAreCutTo16Bits)
{
    EXPECT_EQ(linesOf("[[70000]]"), QStringLiteral("[[4464]]"));
    EXPECT_EQ(linesOf("[[-1, 65536 + 300]]"), QStringLiteral("[[65535, 300]]"));
}

TEST_F(ImageListImport, AValueOfAnotherKindIsLeftOutAndTheLineMovesUp)
{
    EXPECT_EQ(linesOf("[[0.5, 'x', 1.5]]"), QStringLiteral("[[0.5, 1.5, 0.0]]"));
    EXPECT_EQ(linesOf("[[1, 2.5, True, None, 4]]"), QStringLiteral("[[1, 1, 4, 0, 0]]"));
    EXPECT_EQ(linesOf("[[0.5, 1, 2.5]]"), QStringLiteral("[[0.5, 2.5, 0.0]]"))
        << "an int is no float";
}

TEST_F(ImageListImport, AFlatListsOtherItemsLeaveTheirLine)
{
    EXPECT_EQ(linesOf("[1, 'x', 3, [4], 5]"), QStringLiteral("[[1], [0], [3], [0], [5]]"));
}

TEST_F(ImageListImport, LinesThatAreNoListsAreSkipped)
{
    EXPECT_EQ(linesOf("[[1, 2], 5, (6, 7), [8, 9]]"),
              QStringLiteral("[[1, 2], [0, 0], [0, 0], [8, 9]]"));
    EXPECT_EQ(linesOf("[[[1, 2]], 5, [[8, 9]]]"), QStringLiteral("[[1, 2], [0, 0], [8, 9]]"));
}

TEST_F(ImageListImport, LongLinesAreCutAndShortOnesFilledUp)
{
    EXPECT_EQ(linesOf("[[1, 2], [3, 4, 5, 6], [7], []]"),
              QStringLiteral("[[1, 2], [3, 4], [7, 0], [0, 0]]"));
}

TEST_F(ImageListImport, PixelsThatAreNoListsMoveTheLineUpAndChannelsStayInPlace)
{
    EXPECT_EQ(linesOf("[[[1, 2, 3], [4, 5, 6]], [[7, 8, 9], [10, 11, 12]]]"),
              QStringLiteral("[[1, 2, 3, 4, 5, 6], [7, 8, 9, 10, 11, 12]]"));
    EXPECT_EQ(linesOf("[[[1, 2], 'x', [3, 4]]]"), QStringLiteral("[[1, 2, 3, 4, 0, 0]]"));
    EXPECT_EQ(linesOf("[[[1, 2], [None, 4], [5]]]"), QStringLiteral("[[1, 2, 0, 4, 5, 0]]"));
    EXPECT_EQ(linesOf("[[[1, 2], [3, 4, 5]], [[6, 7], [8, 9], [10, 11]]]"),
              QStringLiteral("[[1, 2, 3, 4], [6, 7, 8, 9]]"));
}

TEST_F(ImageListImport, SubclassesCount)
{
    EXPECT_EQ(valueOf("lines(listed(type('L', (list,), {})([type('L', (list,), {})(["
                      "type('I', (int,), {})(7), 8])])))"),
              QStringLiteral("[[7, 8]]"));
    EXPECT_EQ(valueOf("lines(listed([[type('F', (float,), {})(7), 8.0]]))"),
              QStringLiteral("[[7.0, 8.0]]"));
}

TEST_F(ImageListImport, AListSubclassWithAnInterfaceIsReadAsAnArray)
{
    EXPECT_EQ(error("class L(list): __array_interface__ = {}\n"
                    "vistrel.Image().from_array(L([[1]]))\n"),
              QStringLiteral("Exception: No shape provided in __array_interface__"));
}

TEST_F(ImageListImport, FillsThePictureAndStillRaises)
{
    EXPECT_EQ(run("i = vistrel.Image()\n"
                  "try: i.from_array([[1, 2], [3, 4]])\n"
                  "except SystemError as e:\n"
                  "    print('from_array' in str(e), 'returned a result with an e' in str(e))\n"
                  "    print(type(e.__cause__).__name__, e.__cause__)\n"
                  "print(i.width, i.height, i.get_pixel_value(1, 1), end='')\n"),
              QString());
    EXPECT_EQ(output, QStringLiteral("True True\n"
                                     "AttributeError 'list' object has no attribute "
                                     "'__array_interface__'\n"
                                     "2 2 4"));
}

TEST_F(ImageListImport, RaisesTheSameErrorInAWarmLoopAndThePictureIsThereEachTime)
{
    EXPECT_EQ(run("def fill(i):\n"
                  "    texts = set()\n"
                  "    for n in range(1, 301):\n"
                  "        try:\n"
                  "            i.from_array([[n % 200, n % 200]])\n"
                  "            texts.add('no error')\n"
                  "        except SystemError as e:\n"
                  "            texts.add(str(e))\n"
                  "        assert i.get_pixel_value(1, 0) == n % 200\n"
                  "    return texts\n"
                  "def outside():\n"
                  "    i = vistrel.Image()\n"
                  "    try: i.from_array([[1]])\n"
                  "    except SystemError as e: return str(e)\n"
                  "i = vistrel.Image()\n"
                  "texts = fill(i)\n"
                  "cut = lambda text: text.split(' at 0x')[0] + text.split('>')[-1]\n"
                  "print(len(texts), [cut(t) for t in texts] == [cut(outside())], end='')\n"),
              QString());
    EXPECT_EQ(output, QStringLiteral("1 True"));
}

} // namespace

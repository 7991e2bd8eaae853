// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The image object: pictures from arrays and from nested lists.
#include "PluginTest.h"

#include "../host/core/PictureMemory.h"

#include <cstdlib>

namespace {

/// An object with an interface of one's own choice, and memory for it.
constexpr char prelude[] = R"(
import ctypes
memory = (ctypes.c_uint8 * 64)(*range(64))
address = ctypes.addressof(memory)
class Source:
    pass
def source(**entries):
    whole = dict(shape=(2, 3), typestr='|u1', data=(address, False), version=3)
    whole.update(entries)
    s = Source()
    s.__array_interface__ = {k: v for k, v in whole.items() if v != 'missing'}
    return s
def imported(s):
    i = vistrel.Image()
    i.from_array(s)
    return i
def form(i):
    return (i.width, i.height, i.channels, i.bpc, i.__array_interface__['typestr'][1:], i.rgb)
def lines(i, code='B'):
    import struct
    n = i.width * i.channels
    size = struct.calcsize(code)
    return [list(struct.unpack_from(str(n) + code, bytes(i), y * i.__array_interface__['strides'][1]))
            for y in range(i.height)]
)";

class ImageImport : public PluginTest {
protected:
    /// What an expression that uses the prelude's names prints.
    QString valueOf(const std::string& expression)
    {
        EXPECT_EQ(run((prelude + ("print(" + expression) + ", end='')").c_str()), QString())
            << expression;
        return output;
    }

    /// The error of filling an object that holds a picture, which must still be there afterwards.
    QString refusal(const std::string& argument)
    {
        EXPECT_EQ(run((std::string(prelude)
                       + "i = vistrel.Image()\n"
                         "i.alloc(5, 4, 1, 8)\n"
                         "i.set_pixel_value(77, 4, 3)\n"
                         "try: i.from_array("
                       + argument
                       + ")\n"
                         "except BaseException as e: print(type(e).__name__, e, sep=': ', end='')\n"
                         "assert (i.width, i.height, i.get_pixel_value(4, 3)) == (5, 4, 77)\n")
                          .c_str()),
                  QString())
            << argument;
        return output;
    }

    /// The same with an interface dictionary of which these entries differ from a good one's.
    QString refusalWith(const std::string& entries) { return refusal("source(" + entries + ")"); }
};

const QString badShape = QStringLiteral("Exception: unsupported shape in __array_interface__");
const QString badType = QStringLiteral("Exception: unsupported data type in __array_interface__");
const QString badStrides = QStringLiteral("Exception: unsupported strides in __array_interface__");
const QString nullData = QStringLiteral("Exception: Null data provided in __array_interface__");
const QString cannotAllocate = QStringLiteral("Exception: Cannot allocate image");
const QString noPixels =
    QStringLiteral("Exception: object passed doesn't support neither buffer protocol, nor "
                   "__array_interface__, and is not list.");

TEST_F(ImageImport, OtherObjectsAreRefusedAlsoThoseWithTheBufferProtocol)
{
    for (const char* argument :
         {"None", "5", "'text'", "b'bytes'", "bytearray(4)", "((1, 2), (3, 4))", "memoryview(b'')"})
        EXPECT_EQ(refusal(argument), noPixels) << argument;
}

TEST_F(ImageImport, AnInterfaceThatIsNoDictionaryIsASilentNull)
{
    for (const char* interface : {"None", "[1]", "'shape'"}) {
        const QString text =
            refusal("type('S', (), {'__array_interface__': " + std::string(interface) + "})()");
        EXPECT_TRUE(text.startsWith(QLatin1String("SystemError: "))
                    && text.contains(QLatin1String("returned NULL without setting an")))
            << qPrintable(text);
    }
}

TEST_F(ImageImport, ADictionarySubclassIsTaken)
{
    EXPECT_EQ(valueOf("form(imported(type('S', (), {'__array_interface__': type('D', (dict,), {})("
                      "source().__array_interface__)})()))"),
              QStringLiteral("(3, 2, 1, 8, 'u1', False)"));
}

TEST_F(ImageImport, MissingEntriesAreNamed)
{
    EXPECT_EQ(refusalWith("shape='missing'"),
              QStringLiteral("Exception: No shape provided in __array_interface__"));
    EXPECT_EQ(refusalWith("typestr='missing'"),
              QStringLiteral("Exception: No typestr provided in __array_interface__"));
    EXPECT_EQ(refusalWith("data='missing'"),
              QStringLiteral("Exception: No data provided in __array_interface__"));
    EXPECT_EQ(refusalWith("shape='missing', typestr='missing', data='missing'"),
              QStringLiteral("Exception: No shape provided in __array_interface__"));
}

TEST_F(ImageImport, TheShapeIsHeightFirst)
{
    EXPECT_EQ(valueOf("form(imported(source(shape=(5,))))"),
              QStringLiteral("(1, 5, 1, 8, 'u1', False)"));
    EXPECT_EQ(valueOf("lines(imported(source(shape=(2, 3))))"),
              QStringLiteral("[[0, 1, 2], [3, 4, 5]]"));
    EXPECT_EQ(valueOf("lines(imported(source(shape=(2, 2, 3))))"),
              QStringLiteral("[[0, 1, 2, 3, 4, 5], [6, 7, 8, 9, 10, 11]]"));
}

TEST_F(ImageImport, ShapesThatAreNoneAreRefused)
{
    for (const char* shape : {"()", "(1, 2, 3, 4)", "[2, 3]", "6", "None", "(2, 2.5)", "(2, '3')",
                              "(2, None)", "(2**63, 1)", "(-2**70,)", "(2.0,)"})
        EXPECT_EQ(refusalWith(std::string("shape=") + shape), badShape) << shape;
}

TEST_F(ImageImport, SizesThatNoPictureHasCannotBeAllocated)
{
    for (const char* shape :
         {"(0, 3)", "(3, 0)", "(2, 2, 0)", "(-1,)", "(2, -3)", "(2, 2, -1)", "(2**31, 1)",
          "(2**32 + 2, 3)", "(2**62, 2**62, 2**62)", "(2**31 - 1, 2**31 - 1, 2**31 - 1)",
          "(2**31 - 1, 2**31 - 1)", "(-2**63, -2**63)"})
        EXPECT_EQ(refusalWith(std::string("shape=") + shape), cannotAllocate) << shape;
}

TEST_F(ImageImport, AFailedAllocationIsLoggedWithTheGeometry)
{
    refusalWith("shape=(2, 0, 3), typestr='<u2', strides=(6, -7, 2)");
    ASSERT_FALSE(log.isEmpty());
    EXPECT_TRUE(log.last().endsWith(
        QLatin1String("ArrInt = cannot allocate image with dimensions: w0 h2 c3 ystr-7 xstr6 cstr2 "
                      "bpc16")))
        << qPrintable(log.last());
}

TEST_F(ImageImport, WithoutMemoryArraysAndListsAreRefused)
{
    EXPECT_EQ(run("i = vistrel.Image()\ni.alloc(5, 4, 1, 8)\nimport emb\nemb.kept = i"), QString());
    const vistrel::test::NoPictureMemory none;
    EXPECT_EQ(error((std::string(prelude) + "import emb\nemb.kept.from_array(source())").c_str()),
              cannotAllocate);
    EXPECT_EQ(error("import emb\nemb.kept.from_array([[[1, 2, 3]] * 4])"), cannotAllocate);
    EXPECT_TRUE(log.last().endsWith(QLatin1String(
        "fx_pyimages_CreateFromList = cannot allocate image with dimensions: w4 h1 c3 bpc16")))
        << qPrintable(log.last());
    EXPECT_EQ(value("(__import__('emb').kept.width, __import__('emb').kept.height)"),
              QStringLiteral("(5, 4)"));
}

int allocationsLeft = 0;

TEST_F(ImageImport, WithoutMemoryForANarrowerCopyThePictureStaysWide)
{
    run("pass");
    const vistrel::test::PictureMemory scarce([](std::size_t bytes, std::size_t, bool) -> void* {
        return allocationsLeft-- > 0 ? std::calloc(1, bytes) : nullptr;
    });
    for (const char* type : {"<u2", "<i4", "<f8"}) {
        allocationsLeft = 1;
        EXPECT_EQ(valueOf("form(imported(source(shape=(2, 3), typestr='" + std::string(type)
                          + "')))[4:] == ('" + std::string(type).substr(1) + "', False)"),
                  QStringLiteral("True"))
            << type;
    }
    allocationsLeft = 1;
    EXPECT_EQ(run("i = vistrel.Image()\n"
                  "try: i.from_array([[1, 2]])\n"
                  "except SystemError: print(i.__array_interface__['typestr'], end='')\n"),
              QString());
    EXPECT_EQ(output, QStringLiteral("|u2"));
}

TEST_F(ImageImport, ElementTypesAreRefusedAndLoggedWhenTheirSizeIsUnknown)
{
    for (const char* typestr : {"", "u", "u1", "<u3", "<i9", "<f2", "<f1", "|ux", "<u0"}) {
        log.clear();
        EXPECT_EQ(refusalWith("typestr='" + std::string(typestr) + "'"), badType) << typestr;
        ASSERT_FALSE(log.isEmpty()) << typestr;
        EXPECT_TRUE(log.last().endsWith(QStringLiteral("ArrInt = unsupported data type provided: ")
                                        + QLatin1String(typestr)))
            << qPrintable(log.last());
    }
}

TEST_F(ImageImport, ATypestrThatIsNoTextIsRefused)
{
    for (const char* typestr : {"None", "b'|u1'", "11", "('|u1',)", "'\\ud800u1'"})
        EXPECT_EQ(refusalWith(std::string("typestr=") + typestr), badType) << typestr;
}

TEST_F(ImageImport, OtherKindsMakeAPictureWithoutATypeAndCopyNothing)
{
    for (const char* typestr : {"|b1", "<c8", "|Ox", "|V0"})
        EXPECT_EQ(valueOf("[(str(i)[-9:], i.width, i.height, set(bytes(i))) for i in "
                          "[imported(source(typestr='"
                          + std::string(typestr) + "'))]]"),
                  QStringLiteral("[('type: N/A', 3, 2, {0})]"))
            << typestr;
}

TEST_F(ImageImport, TheByteOrderIsNotLookedAt)
{
    EXPECT_EQ(valueOf("lines(imported(source(shape=(1, 2), typestr='>u2')), 'H') == "
                      "lines(imported(source(shape=(1, 2), typestr='<u2')), 'H') == "
                      "[[256, 770]]"),
              QStringLiteral("True"));
}

TEST_F(ImageImport, StridesAreReadAsPixelLineChannel)
{
    EXPECT_EQ(valueOf("lines(imported(source(shape=(2, 3), strides=(1, 10))))"),
              QStringLiteral("[[0, 1, 2], [10, 11, 12]]"));
    EXPECT_EQ(valueOf("lines(imported(source(shape=(2, 2, 2), strides=(2, 20, 30))))"),
              QStringLiteral("[[0, 30, 2, 32], [20, 50, 22, 52]]"));
    EXPECT_EQ(valueOf("lines(imported(source(shape=(3,), strides=(7,))))"),
              QStringLiteral("[[0], [7], [14]]"));
    EXPECT_EQ(valueOf("lines(imported(source(data=(address + 40, True), strides=(-1, -10))))"),
              QStringLiteral("[[40, 39, 38], [30, 29, 28]]"));
}

TEST_F(ImageImport, StridesThatAreNoTupleAreNotLookedAt)
{
    for (const char* strides : {"None", "[1, 10]", "5", "'ab'"})
        EXPECT_EQ(valueOf("lines(imported(source(strides=" + std::string(strides) + ")))"),
                  QStringLiteral("[[0, 1, 2], [3, 4, 5]]"))
            << strides;
}

TEST_F(ImageImport, StridesOfAWrongLengthOrTypeAreRefused)
{
    for (const char* strides :
         {"()", "(1,)", "(1, 2, 3)", "(1, 2.5)", "('1', 3)", "(None, 3)", "(2**64, 1)"})
        EXPECT_EQ(refusalWith(std::string("strides=") + strides), badStrides) << strides;
}

TEST_F(ImageImport, OffsetsAreAddedUpIn32Bits)
{
    EXPECT_EQ(valueOf("lines(imported(source(strides=(2**32 + 1, 2**32 - 10), "
                      "data=(address + 20, True))))"),
              QStringLiteral("[[20, 21, 22], [10, 11, 12]]"));
}

TEST_F(ImageImport, DataMustBeATupleWithAnAddress)
{
    const QString noTuple = QStringLiteral("Exception: Data in __array_interface__ not as tuple");
    for (const char* data : {"None", "address", "[address, False]", "memory"})
        EXPECT_EQ(refusalWith(std::string("data=") + data), noTuple) << data;
    for (const char* data : {"(0, False)", "()", "(None, False)", "('0', False)", "(-1, False)",
                             "(2**64, False)", "(1.5, False)"})
        EXPECT_EQ(refusalWith(std::string("data=") + data), nullData) << data;
    EXPECT_EQ(valueOf("lines(imported(source(data=(address,))))"),
              QStringLiteral("[[0, 1, 2], [3, 4, 5]]"));
}

TEST_F(ImageImport, MemoryThatCannotBeReadIsRefusedInsteadOfRead)
{
    const QString outside = QStringLiteral("Exception: the array reaches outside its memory");
    for (const char* entries :
         {"data=(1, False)", "data=(2**64 - 1, False)", "data=(2**64 - 5, False)",
          "data=(2**63, True)", "shape=(2**27,), strides=(2**30,)",
          "data=(8, False), strides=(1, 10)", "strides=(-2**40 - 2**30, 1)"})
        EXPECT_EQ(refusalWith(entries), outside) << entries;
    // The picture itself takes 8 GiB, which not every machine gives.
    for (const char* entries : {"shape=(2**31 - 1,)", "shape=(2**31 - 1,), strides=(2**30,)"})
        EXPECT_THAT(refusalWith(entries), testing::AnyOf(outside, cannotAllocate)) << entries;
}

TEST_F(ImageImport, AnArraysPartWhosePixelsAreReadFarOutsideItIsRefused)
{
    // The steps of a part are (line, pixel) to numpy, and (pixel, line) here: a wide part is read
    // as a tall one. The array ends where the readable memory does.
    const std::string part = "import mmap, numpy\n"
                             "block = mmap.mmap(-1, 2**24)\n"
                             "libc = ctypes.CDLL(None)\n"
                             "whole = numpy.frombuffer(block, 'u1')\n"
                             "start = whole.__array_interface__['data'][0]\n"
                             "assert libc.mprotect(ctypes.c_void_p(start + 2**20), "
                             "ctypes.c_size_t(2**24 - 2**20), 0) == 0\n"
                             "lines = whole[:2**20].reshape(256, 4096)\n";
    EXPECT_EQ(error((prelude + part + "vistrel.Image().from_array(lines[:, :4000])").c_str()),
              QStringLiteral("Exception: the array reaches outside its memory"));
    EXPECT_EQ(
        run((prelude + part + "i = imported(lines[:256, :256])\nprint(i.width, i.height, end='')")
                .c_str()),
        QString());
    EXPECT_EQ(output, QStringLiteral("256 256"));
}

TEST_F(ImageImport, ADictionaryThatChangesWhileItIsReadDoesNoHarm)
{
    const std::string changing = "s = source(strides=(1, 10))\n"
                                 "class Size:\n"
                                 "    def __index__(self):\n"
                                 "        s.__array_interface__.update(shape=(), strides=())\n"
                                 "        return 3\n"
                                 "s.__array_interface__['shape'] = (2, Size())\n";
    EXPECT_EQ(error((prelude + changing + "vistrel.Image().from_array(s)").c_str()), badStrides);
}

TEST_F(ImageImport, AnErrorOfAnEntryIsNotTheScripts)
{
    EXPECT_EQ(refusalWith("shape=(2, type('S', (), {'__index__': lambda self: 1 // 0})())"),
              badShape);
}

TEST_F(ImageImport, ASquareImageCanBeASource)
{
    EXPECT_EQ(run("i = vistrel.Image()\n"
                  "i.alloc(4, 4, 1, 8)\n"
                  "i.set_pixel_value(5, 3, 1)\n"
                  "j = vistrel.Image()\n"
                  "j.from_array(i)\n"
                  "i.from_array(i)\n"
                  "print(bytes(i) == bytes(j), i.get_pixel_value(3, 1), end='')\n"),
              QString());
    EXPECT_EQ(output, QStringLiteral("True 5"));
}

TEST_F(ImageImport, AWideImageAsSourceIsRefusedBeforeItIsReadOutside)
{
    EXPECT_EQ(run("wide = vistrel.Image()\n"
                  "wide.alloc(40, 3, 1, 8)\n"
                  "i = vistrel.Image()\n"
                  "i.alloc(5, 4, 1, 8)\n"
                  "for source in (wide, vistrel.Image()):\n"
                  "    try: i.from_array(source)\n"
                  "    except Exception as e: print(e)\n"
                  "print(i.width, i.height, end='')\n"),
              QString());
    EXPECT_EQ(output, QStringLiteral("the array reaches outside its memory\n") + noPixels.mid(11)
                          + QStringLiteral("\n5 4"));
}

TEST_F(ImageImport, EveryTypeIsNarrowedToTheSmallestThatHoldsItsValues)
{
    EXPECT_EQ(run((std::string(prelude) + R"(
import numpy
def narrowed(type, *values):
    i = imported(numpy.array([values], type))
    back = lines(i, {'u1': 'B', 'u2': 'H', 'u4': 'I', 'u8': 'Q', 'i1': 'b', 'i2': 'h',
                     'i4': 'i', 'i8': 'q', 'f4': 'f'}[form(i)[4]])[0]
    assert back == list(values), (type, values, back)
    return form(i)[4] + ':' + str(i.bpc)
print(narrowed('u1', 7, 255))
print(narrowed('u2', 7, 255), narrowed('u2', 256, 7), narrowed('u2', 4095), narrowed('u2', 65535))
print(narrowed('u4', 255), narrowed('u4', 1023), narrowed('u4', 65536), narrowed('u4', 2**32 - 1))
print(narrowed('u8', 255), narrowed('u8', 65535), narrowed('u8', 2**20), narrowed('u8', 2**32 - 1))
print(narrowed('i1', 127), narrowed('i2', 255), narrowed('i4', 200), narrowed('i8', 3))
print(narrowed('i2', 257), narrowed('i2', 32767), narrowed('i4', 1025), narrowed('i4', 65535))
print(narrowed('i4', 65537), narrowed('i8', 4096), narrowed('i8', 2**31), narrowed('i8', 2**33))
print(narrowed('i1', -1)), print(narrowed('i2', -1, 100)), print(narrowed('i4', -1, 100))
# The sign takes a bit too.
print(narrowed('i8', -3, 1000), narrowed('i4', -1, 2**20), narrowed('i8', -1, 2**20))
print(narrowed('f4', 0.5, -2.0), narrowed('f8', 0.5, -2.0, 70000.0))
)")
                      .c_str()),
              QString());
    EXPECT_EQ(output, QStringLiteral("u1:8\n"
                                     "u1:8 u2:10 u2:12 u2:16\n"
                                     "u1:8 u2:10 u4:18 u4:32\n"
                                     "u1:8 u2:16 u4:22 u4:32\n"
                                     "u1:8 u1:8 u1:8 u1:8\n"
                                     "u2:10 u2:16 u2:12 u2:16\n"
                                     "u4:18 u2:12 u4:32 u8:34\n"
                                     "i1:8\ni1:8\ni1:8\n"
                                     "i2:12 i4:22 i4:22\n"
                                     "f4:32 f4:4\n"));
}

TEST_F(ImageImport, TheBoundsOfSignedValuesAreOneMoreThanTheBitsHold)
{
    EXPECT_EQ(run((std::string(prelude)
                   + "import numpy\n"
                     "for v in (255, 256, 257, 65535, 65536, 65537):\n"
                     "    i = imported(numpy.full((1, 1), v, 'i4'))\n"
                     "    print(v, i.bpc, form(i)[4], i.get_pixel_value(0, 0))\n")
                      .c_str()),
              QString());
    EXPECT_EQ(output, QStringLiteral("255 8 u1 255\n"
                                     "256 8 u1 255\n"
                                     "257 10 u2 257\n"
                                     "65535 16 u2 65535\n"
                                     "65536 16 u2 65535\n"
                                     "65537 18 u4 65537\n"));
}

TEST_F(ImageImport, ANumpyArrayIsWidthAfterHeightAndNarrowed)
{
    EXPECT_EQ(run((std::string(prelude)
                   + "import numpy\n"
                     "a = numpy.arange(480 * 640).reshape(480, 640) % 251\n"
                     "i = imported(a.astype('<u2'))\n"
                     "print(form(i), numpy.array_equal(numpy.asarray(i).T, a))\n"
                     "i = imported(a.astype('<u2') * 16)\n"
                     "print(form(i), numpy.array_equal(numpy.asarray(i).T, a * 16))\n")
                      .c_str()),
              QString());
    EXPECT_EQ(output, QStringLiteral("(640, 480, 1, 8, 'u1', False) True\n"
                                     "(640, 480, 1, 12, 'u2', False) True\n"));
}

TEST_F(ImageImport, ThreeChannelsOf8Or16BitsAreMarkedAsRgb)
{
    EXPECT_EQ(run((std::string(prelude)
                   + "import numpy\n"
                     "for t, c, v in (('u1', 3, 1), ('u2', 3, 999), ('u2', 3, 1), "
                     "('i2', 3, 5), ('u4', 3, 70000), ('f4', 3, 1), ('u1', 4, 1)):\n"
                     "    print(form(imported(numpy.full((2, 2, c), v, t)))[2:])\n")
                      .c_str()),
              QString());
    EXPECT_EQ(output, QStringLiteral("(3, 8, 'u1', True)\n"
                                     "(3, 10, 'u2', True)\n"
                                     "(3, 8, 'u1', True)\n"
                                     "(3, 8, 'u1', True)\n"
                                     "(3, 18, 'u4', False)\n"
                                     "(3, 32, 'f4', False)\n"
                                     "(4, 8, 'u1', False)\n"));
}

} // namespace

// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The import of arrays and lists: what is asked of the host for the picture and for the narrower
// copy of it, whatever the host finds in the pixels.
#include "PluginTest.h"
#include "RecordedPictures.h"

namespace {

using Calls = std::vector<std::string>;

class ImportOperations : public PluginTest {
protected:
    ImportOperations() { run("pass"); }

    /// The calls for an array of 2 x 3 pixels, which becomes `i` and stays.
    Calls callsFor(const std::string& typestr, const std::string& shape = "(2, 3)")
    {
        return callsOf("import ctypes\n"
                       "memory = (ctypes.c_uint8 * 256)()\n"
                       "class Source: pass\n"
                       "source = Source()\n"
                       "source.__array_interface__ = dict(shape="
                       + shape + ", typestr='" + typestr
                       + "', data=(ctypes.addressof(memory), False))\n"
                         "i.from_array(source)\n");
    }
    Calls callsForList(const std::string& list)
    {
        return callsOf("try: i.from_array(" + list + ")\nexcept SystemError: pass\n");
    }

    /// The element type and bits of the narrower copy that is asked for; empty without one.
    std::string narrowed(const std::string& typestr)
    {
        for (const std::string& call : callsFor(typestr)) {
            // What need not be cleared is the copy.
            unsigned bits = 0;
            unsigned type = 0;
            const bool isCopy = call.ends_with(" false false 0");
            if (isCopy
                && std::sscanf(call.c_str(), "AllocFor 3 2 0 1 %u 0 %u 1 0", &bits, &type) == 2)
                return std::to_string(type) + " of " + std::to_string(bits);
        }
        return {};
    }

    std::string narrowedOfDepth(const std::string& typestr, unsigned depth)
    {
        pictures.bitDepth = depth;
        return narrowed(typestr);
    }
    std::string narrowedOfLargest(const std::string& typestr, quint64 largest)
    {
        pictures.largestAbsolute = largest;
        return narrowed(typestr);
    }

    RecordedPictures pictures;

private:
    Calls callsOf(const std::string& script)
    {
        pictures.calls.clear();
        EXPECT_EQ(
            run(("import emb\ni = vistrel.Image()\nemb.kept = getattr(emb, 'kept', []) + [i]\n"
                 + script + "print(i.__array_interface__['typestr'], i.bpc, end='')")
                    .c_str()),
            QString())
            << script;
        return pictures.calls;
    }
};

TEST_F(ImportOperations, APictureOfBytesIsAllocatedClearedAndKept)
{
    EXPECT_EQ(callsFor("|u1"), Calls{"AllocFor 3 2 0 1 8 0 2 1 0 false true 0"});
    EXPECT_EQ(callsFor("|u1", "(4, 5, 3)"), Calls{"AllocFor 5 4 0 3 8 0 2 1 0 true true 0"});
    EXPECT_EQ(callsFor("|i1", "(7,)").front(), "AllocFor 1 7 0 1 8 0 1 1 0 false true 0");
}

TEST_F(ImportOperations, ANarrowerCopyTakesThePlaceOfThePicture)
{
    EXPECT_EQ(callsFor("<u2", "(2, 2, 3)"),
              (Calls{"AllocFor 2 2 0 3 16 0 4 1 0 true true 0", "DetectColorBitDepth new1 16 true",
                     "AllocFor 2 2 0 3 8 0 2 1 0 true false 0",
                     "ConvertPicToDifBpc new1 new2 false", "Free new1 true"}));
    EXPECT_EQ(output, QStringLiteral("|u1 8"));
}

TEST_F(ImportOperations, ACopyThatCannotBeConvertedIsFreedAndThePictureKept)
{
    pictures.succeeds = false;
    EXPECT_EQ(callsFor("<i4").back(), "Free new2 true");
    EXPECT_EQ(output, QStringLiteral("|i4 32"));
    pictures.bitDepth = 12;
    EXPECT_EQ(callsFor("<u8").back(), "Free new4 true");
    EXPECT_EQ(output, QStringLiteral("|u8 12")) << "the depth was detected all the same";
}

TEST_F(ImportOperations, WithoutMemoryForACopyThePictureIsKept)
{
    pictures.allocationsLeft = 1;
    EXPECT_EQ(callsFor("<f8"), (Calls{"AllocFor 3 2 0 1 64 0 10 1 0 false true 0",
                                      "AllocFor 3 2 0 1 4 0 9 1 0 false false 0"}));
    EXPECT_EQ(output, QStringLiteral("|f8 64"));
}

TEST_F(ImportOperations, UnsignedTypesAreNarrowedByTheDepthThatTheHostDetects)
{
    EXPECT_EQ(narrowedOfDepth("<u2", 8), "2 of 8");
    EXPECT_EQ(narrowedOfDepth("<u4", 8), "2 of 8");
    EXPECT_EQ(narrowedOfDepth("<u8", 8), "2 of 8");
    for (const unsigned depth : {7U, 9U, 16U}) {
        const std::string words = "4 of " + std::to_string(depth);
        EXPECT_EQ(narrowedOfDepth("<u2", depth), "");
        EXPECT_EQ(narrowedOfDepth("<u4", depth), words);
        EXPECT_EQ(narrowedOfDepth("<u8", depth), words);
    }
    for (const unsigned depth : {17U, 32U}) {
        EXPECT_EQ(narrowedOfDepth("<u4", depth), "");
        EXPECT_EQ(narrowedOfDepth("<u8", depth), "6 of " + std::to_string(depth));
    }
    EXPECT_EQ(narrowedOfDepth("<u8", 33), "");
}

TEST_F(ImportOperations, SignedTypesWithNegativeValuesStaySigned)
{
    pictures.hasNegativeValues = true;
    EXPECT_EQ(callsFor("|i1").back(), "DetectNegativePixelValue new1");
    for (const char* type : {"<i2", "<i4", "<i8"})
        EXPECT_EQ(narrowedOfDepth(type, 8), "1 of 8") << type;
    EXPECT_EQ(narrowedOfDepth("<i2", 10), "");
    EXPECT_EQ(narrowedOfDepth("<i4", 16), "3 of 16");
    EXPECT_EQ(narrowedOfDepth("<i8", 7), "3 of 7");
    EXPECT_EQ(narrowedOfDepth("<i4", 17), "");
    EXPECT_EQ(narrowedOfDepth("<i8", 17), "5 of 17");
    EXPECT_EQ(narrowedOfDepth("<i8", 32), "5 of 32");
    EXPECT_EQ(narrowedOfDepth("<i8", 33), "");
}

TEST_F(ImportOperations, SignedTypesWithoutNegativeValuesAreNarrowedByTheLargest)
{
    for (const char* type : {"|i1", "<i2", "<i4", "<i8"}) {
        EXPECT_EQ(narrowedOfLargest(type, 0), "2 of 8") << type;
        EXPECT_EQ(narrowedOfLargest(type, 256), "2 of 8") << type;
    }
    EXPECT_EQ(narrowedOfLargest("|i1", 257), "2 of 10") << "the unsigned type of the same width";
    for (const char* type : {"<i2", "<i4", "<i8"}) {
        EXPECT_EQ(narrowedOfLargest(type, 257), "4 of 10") << type;
        EXPECT_EQ(narrowedOfLargest(type, 1024), "4 of 10") << type;
        EXPECT_EQ(narrowedOfLargest(type, 1025), "4 of 12") << type;
    }
    EXPECT_EQ(narrowedOfLargest("<i4", 65536), "4 of 16");
    EXPECT_EQ(narrowedOfLargest("<i4", 65537), "6 of 18");
    EXPECT_EQ(narrowedOfLargest("<i8", quint64{1} << 32), "6 of 32");
    EXPECT_EQ(narrowedOfLargest("<i8", (quint64{1} << 32) + 1), "8 of 34");
    EXPECT_EQ(narrowedOfLargest("<i8", quint64{1} << 63), "8 of 64");
}

TEST_F(ImportOperations, DoublesBecomeFloatsAndOtherTypesStay)
{
    EXPECT_EQ(narrowed("<f8"), "9 of 4");
    for (const char* type : {"|u1", "<f4", "|b1"})
        EXPECT_EQ(callsFor(type).size(), 1U) << type;
}

TEST_F(ImportOperations, ListsAreWordsOrFloatsThatAreNarrowedInTheSameWay)
{
    EXPECT_EQ(callsForList("[[1, 2, 3]]"),
              (Calls{"AllocFor 3 1 0 1 16 0 4 1 0 false true 0", "DetectColorBitDepth new1 16 true",
                     "AllocFor 3 1 0 1 8 0 2 1 0 false false 0",
                     "ConvertPicToDifBpc new1 new2 false", "Free new1 true"}));
    EXPECT_EQ(callsForList("[[[1, 2, 3]]]").front(), "AllocFor 1 1 0 3 16 0 4 1 0 true true 0");
    EXPECT_EQ(callsForList("[[[1.5, 2.0, 3.0]]]"),
              Calls{"AllocFor 1 1 0 3 32 0 9 1 0 false true 0"});
    EXPECT_EQ(callsForList("[1, 2]").front(), "AllocFor 1 2 0 1 16 0 4 1 0 false true 0");
}

} // namespace

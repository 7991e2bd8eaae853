// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The image and graph objects: which of the host's operations on pictures a method calls, in which
// order and with what, and what it makes of the host's answers.
#include "PluginTest.h"
#include "RecordedPictures.h"

namespace {

using Calls = std::vector<std::string>;
using Stats = CxHistoData::CxPixelStats;

class PictureOperations : public PluginTest {
protected:
    PictureOperations()
    {
        run("pass");
        bind("p", first);
        bind("q", second);
    }

    /// Binds a picture of 8-bit red, green, blue whose record has all that new ones may inherit.
    void bind(const char* name, std::unique_ptr<CxImageData>& image)
    {
        image = makeImage(6, 5, 3, ExImageDataType::UInt8, 8);
        SxPicBuf& buffer = *image->picBuf();
        buffer.isRgb = true;
        buffer.blackLevel = 7;
        buffer.colorFilterArray = ExColorFilterArray::GBRG;
        pictures.names[buffer.data] = name;
        plugin->addImageVariable(QLatin1String(name), image.get());
    }

    /// The calls of a script; what it makes is kept beyond its end when it puts it into `kept`.
    Calls callsOf(const std::string& script)
    {
        pictures.calls.clear();
        EXPECT_EQ(
            run(("import emb\nkept = emb.kept = getattr(emb, 'kept', [])\n" + script).c_str()),
            QString())
            << script;
        return pictures.calls;
    }
    /// The calls of a method whose result is kept.
    Calls callsOfNew(const std::string& call) { return callsOf("kept.append(" + call + ")"); }

    /// The calls of a method that raises; its error is in `output`.
    Calls callsOfFailing(const std::string& call)
    {
        return callsOf("try: " + call
                       + "\nexcept Exception as e: print(type(e).__name__, e, sep=': ', end='')");
    }

    RecordedPictures pictures;
    std::unique_ptr<CxImageData> first;
    std::unique_ptr<CxImageData> second;
};

const QString outOfMemory = QStringLiteral("Exception: cannot allocate new image, out of memory");

TEST_F(PictureOperations, AllocAsksForClearedInterleavedMemoryWithTheBitsItWasGiven)
{
    EXPECT_EQ(callsOf("i = vistrel.Image()\ni.alloc(4, 3, 3, 12)\nkept.append(i)"),
              Calls{"Alloc 4 3 3 4 0 0 12 1 0 true true 0"});
    EXPECT_EQ(callsOf("i = vistrel.Image()\ni.alloc(4, 3, 2, 17)\nkept.append(i)"),
              Calls{"Alloc 4 3 2 6 0 0 17 1 0 false true 0"});
}

TEST_F(PictureOperations, ThePictureForArraysIsACopyWithRedAndBlueSwapped)
{
    EXPECT_EQ(callsOfNew("p.get_image_data_numpy()"),
              (Calls{"AllocFor 6 5 18 3 8 7 2 1 3 true false 0", "CopyPicBuf new3 p true",
                     "SwapRedAndBlue new3"}));
    EXPECT_EQ(callsOfNew("p.get_image_data_numpy(True)"), Calls());
}

TEST_F(PictureOperations, ToRgbBuildsItsRecordFromScratch)
{
    EXPECT_EQ(callsOfNew("p.to_rgb()"),
              (Calls{"AllocFor 6 5 0 4 8 0 2 1 0 true false 0", "ConvertPicToRGB p new3"}));
}

TEST_F(PictureOperations, ExtractChannelKeepsTheRecordButChannelsAndColourOrder)
{
    EXPECT_EQ(callsOfNew("p.extract_channel(2)"),
              (Calls{"AllocFor 6 5 0 1 8 7 2 1 3 false false 0", "ExtractChannel p new3 2"}));
}

TEST_F(PictureOperations, ConvertBpcScalesByDefaultAndChecksTheResult)
{
    const std::string allocated = "AllocFor 6 5 0 3 10 7 4 1 3 true false 0";
    EXPECT_EQ(callsOfNew("p.convert_bpc(10)"),
              (Calls{allocated, "ConvertPicToDifBpc p new3 true", "CheckPicValidData new3"}));
    EXPECT_EQ(callsOfNew("p.convert_bpc(10, 0)"),
              (Calls{allocated, "ConvertPicToDifBpc p new4 false", "CheckPicValidData new4"}));
}

TEST_F(PictureOperations, ConvertBpcFreesAPictureWhoseValuesAreOverTheBits)
{
    pictures.areValuesValid = false;
    EXPECT_EQ(callsOfFailing("p.convert_bpc(20)").back(), "Free new3 true");
    EXPECT_EQ(output, QStringLiteral("Exception: new image contained values over max bpc"));
}

TEST_F(PictureOperations, CropCopiesTheRectangleWithoutLookingAtIt)
{
    EXPECT_EQ(callsOfNew("p.crop(-9, 2**31 - 1, 70, 1)"),
              (Calls{"AllocFor 70 1 0 3 8 7 2 1 3 true false 0",
                     "CopyRect new3 0 0 p -9 2147483647 70 1"}));
}

TEST_F(PictureOperations, ResizeTakesOnePixelUnlessItIsToldOtherwise)
{
    const std::string allocated = "AllocFor 9 8 0 3 8 7 2 1 3 true false 0";
    EXPECT_EQ(callsOfNew("p.resize(9, 8)"),
              (Calls{allocated, "ResizeRect p 0 0 1 1 new3 0 0 9 8"}));
    EXPECT_EQ(callsOfNew("p.resize(9, 8, -1, 2, 0, 0)"),
              (Calls{allocated, "ResizeRect p -1 2 6 5 new4 0 0 9 8"}));
    EXPECT_EQ(callsOfNew("p.resize(9, 8, 1, 2, 3)"),
              (Calls{allocated, "ResizeRect p 1 2 3 1 new5 0 0 9 8"}));
    EXPECT_EQ(callsOfNew("p.resize(9, 8, 1, 2, -3, 0)"),
              (Calls{allocated, "ResizeRect p 1 2 -3 5 new6 0 0 9 8"}));
}

TEST_F(PictureOperations, MethodsInPlaceAreOneCallEach)
{
    EXPECT_EQ(callsOf("p.copy_to(q)"), Calls{"CopyPicBuf q p true"});
    EXPECT_EQ(callsOf("p.copy_rect_to(1, 2, 3, 4, q, 5, 6)"), Calls{"CopyRect q 5 6 p 1 2 3 4"});
    EXPECT_EQ(callsOf("p.resize_to(q)"), Calls{"Resize p q"});
    EXPECT_EQ(callsOf("p.tesize_rect_to(1, 2, 3, 4, q, 5, 6, 7, 8)"),
              Calls{"ResizeRect p 1 2 3 4 q 5 6 7 8"});
    EXPECT_EQ(callsOf("p.add(q)"), Calls{"Add p q"});
    EXPECT_EQ(callsOf("p.subtract(q)"), Calls{"Subtract p q"});
    EXPECT_EQ(callsOf("p.divide_by_value(0)"), Calls{"DivideByValue p 0"});
}

TEST_F(PictureOperations, WhatTheHostReportsOfThemIsNotLookedAt)
{
    pictures.succeeds = false;
    callsOf("print([p.copy_to(q), p.copy_rect_to(1, 2, 3, 4, q, 5, 6), p.resize_to(q),\n"
            "       p.tesize_rect_to(1, 2, 3, 4, q, 5, 6, 7, 8), p.add(q), p.subtract(q),\n"
            "       p.divide_by_value(1)] == [None] * 7, end=' ')\n"
            "kept += [p.to_rgb(), p.extract_channel(0), p.convert_bpc(8), p.crop(0, 0, 2, 2),\n"
            "         p.resize(2, 2), p.get_image_data_numpy()]\n"
            "print(all(i.width in (2, 6) for i in kept), end='')");
    EXPECT_EQ(output, QStringLiteral("True True"));
}

TEST_F(PictureOperations, WithoutMemoryNothingElseIsCalled)
{
    pictures.allocationsLeft = 0;
    for (const char* call :
         {"to_rgb()", "extract_channel(0)", "convert_bpc(8)", "crop(0, 0, 2, 2)", "resize(2, 2)"}) {
        EXPECT_EQ(callsOfFailing(std::string("p.") + call).size(), 1U) << call;
        EXPECT_EQ(output, outOfMemory) << call;
    }
    EXPECT_EQ(callsOfFailing("p.get_image_data_numpy()").size(), 1U);
    EXPECT_EQ(output, QStringLiteral("Exception: Cannot allocate image"));
}

TEST_F(PictureOperations, ARectangleIsMeasuredWithItsLastPixelAndTheFlagsOfTheHost)
{
    EXPECT_EQ(callsOf("p.measure_rect()"), Calls{"measureHistogram p (0, 0, 5, 4) 2"});
    EXPECT_EQ(callsOf("p.measure_rect(1, 2, 3, 2)"), Calls{"measureHistogram p (1, 2, 3, 3) 2"});
    EXPECT_EQ(callsOf("p.measure_rect(1, 2, 0, -7, True)"),
              Calls{"measureHistogram p (1, 2, 5, 4) 10"});
    EXPECT_EQ(callsOf("p.measure_rect(-4, 90, 100, 1, 0)"),
              Calls{"measureHistogram p (-4, 90, 95, 90) 2"});
    EXPECT_EQ(callsOf("p.measure_row_profiles_in_rect(1)"),
              Calls{"measureProfiles true p (1, 0, 5, 4)"});
    EXPECT_EQ(callsOf("p.measure_column_profiles_in_rect(1, 2, 3, 2)"),
              Calls{"measureProfiles false p (1, 2, 3, 3)"});
}

TEST_F(PictureOperations, StatisticsComeInTheHostsOrderUnderItsNames)
{
    pictures.histogram.channelNames = {QStringLiteral("größe"), QStringLiteral("b")};
    pictures.histogram.stats = {Stats{1, 2, 3, 4, 5}, Stats{6, 7, 8, 0.5, 10}};
    callsOf("print(p.measure_rect(), end='')");
    EXPECT_EQ(output,
              QStringLiteral("[{'name': 'größe', 'mean': 3.0, 'stdev': 4.0, 'variance': 16.0, "
                             "'rms': 5.0, 'min': 1.0, 'max': 2.0}, {'name': 'b', 'mean': 8.0, "
                             "'stdev': 0.5, 'variance': 0.25, 'rms': 10.0, 'min': 6.0, 'max': "
                             "7.0}]"));
}

TEST_F(PictureOperations, ProfilesAreTurnedFromChannelsToLines)
{
    pictures.profiles.channelNames = {QStringLiteral("a"), QStringLiteral("b")};
    pictures.profiles.stats = {{Stats{1}, Stats{2}, Stats{3}}, {Stats{4}, Stats{5}, Stats{6}}};
    for (const char* what : {"row", "column"}) {
        callsOf("print([[(s['name'], s['min']) for s in line] for line in p.measure_"
                + std::string(what) + "_profiles_in_rect()], end='')");
        EXPECT_EQ(output, QStringLiteral("[[('a', 1.0), ('b', 4.0)], [('a', 2.0), ('b', 5.0)], "
                                         "[('a', 3.0), ('b', 6.0)]]"));
    }
}

TEST_F(PictureOperations, ListsOfTheHostThatDifferInLengthDoNoHarm)
{
    pictures.histogram.stats = {Stats{1}};
    pictures.profiles.channelNames = {QStringLiteral("a")};
    pictures.profiles.stats = {{Stats{1}, Stats{2}}, {Stats{3}}};
    callsOf("print(p.measure_rect()[0]['name'] == '', [[s['min'] for s in line]\n"
            "      for line in p.measure_row_profiles_in_rect()], end='')");
    EXPECT_EQ(output, QStringLiteral("True [[1.0, 3.0], [2.0, 0.0]]"));
}

TEST_F(PictureOperations, AMeasurementThatFailsIsAnErrorWithoutAPartOfTheResult)
{
    pictures.succeeds = false;
    pictures.histogram.stats = {Stats{1}};
    pictures.profiles.stats = {{Stats{1}}};
    callsOfFailing("p.measure_rect()");
    EXPECT_EQ(output, QStringLiteral("Exception: Cannot measure data"));
    for (const char* call : {"row", "column"}) {
        callsOfFailing("p.measure_" + std::string(call) + "_profiles_in_rect()");
        EXPECT_EQ(output, QStringLiteral("Exception: Cannot measure profile data"));
    }
}

TEST_F(PictureOperations, AChartSwapsRedAndBlueBeforeAndAfterItIsDrawn)
{
    first->picBuf()->colorFilterArray = ExColorFilterArray::None;
    EXPECT_EQ(callsOf("vistrel.Graph().draw_into_image(p)"),
              (Calls{"SwapRedAndBlue p", "SwapRedAndBlue p"}));
    first->picBuf()->isRgb = false;
    EXPECT_EQ(callsOfFailing("vistrel.Graph().draw_into_image(p)"), Calls());
}

} // namespace

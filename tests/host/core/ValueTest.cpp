// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Values of parameters and codes of formats.
#include <CxValue.h>
#include <KvCore.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

constexpr qint32 leastInt = std::numeric_limits<qint32>::min();
constexpr qint32 greatestInt = std::numeric_limits<qint32>::max();

TEST(Value, TypeCodesAreThoseOfTheBinaryInterface)
{
    EXPECT_EQ(CxValue().type(), 0);
    EXPECT_EQ(CxValue::fromInt(1).type(), 1);
    EXPECT_EQ(CxValue::fromFloat(1.0F).type(), 2);
    EXPECT_EQ(CxValue::fromBool(true).type(), 3);
    EXPECT_EQ(CxValue::fromString(QStringLiteral("a")).type(), 4);
}

TEST(Value, AnEmptyOneIsZeroInEveryType)
{
    const CxValue empty{};
    EXPECT_EQ(empty.toInt(), 0);
    EXPECT_EQ(empty.toFloat(), 0.0F);
    EXPECT_FALSE(empty.toBool());
    EXPECT_EQ(empty.toString(), QString());
}

TEST(Value, AnIntegerConverts)
{
    const CxValue value = CxValue::fromInt(-7);
    EXPECT_EQ(value.toInt(), -7);
    EXPECT_EQ(value.toFloat(), -7.0F);
    EXPECT_TRUE(value.toBool());
    EXPECT_EQ(value.toString(), QStringLiteral("-7"));
    EXPECT_FALSE(CxValue::fromInt(0).toBool());
    EXPECT_EQ(CxValue::fromInt(leastInt).toString(), QStringLiteral("-2147483648"));
}

TEST(Value, AFloatIsRoundedTowardsZeroAndHeldAtTheRangesEnds)
{
    EXPECT_EQ(CxValue::fromFloat(2.9F).toInt(), 2);
    EXPECT_EQ(CxValue::fromFloat(-2.9F).toInt(), -2);
    EXPECT_EQ(CxValue::fromFloat(3e9F).toInt(), greatestInt);
    EXPECT_EQ(CxValue::fromFloat(-3e9F).toInt(), leastInt);
    EXPECT_EQ(CxValue::fromFloat(std::numeric_limits<float>::infinity()).toInt(), greatestInt);
    EXPECT_EQ(CxValue::fromFloat(std::nanf("")).toInt(), CxValue::noInteger);
}

TEST(Value, AFloatPrintsAsTheShortestTextThatReadsBack)
{
    for (const float number : {0.1F, 1.0F / 3.0F, 16777215.0F, 1e-30F, -2.5F, 0.0F})
        EXPECT_EQ(CxValue::fromFloat(number).toString().toFloat(), number);
    EXPECT_EQ(CxValue::fromFloat(0.1F).toString(), QStringLiteral("0.1"));
    EXPECT_EQ(CxValue::fromFloat(2.5F).toString(), QStringLiteral("2.5"));
}

TEST(Value, ABooleanConverts)
{
    EXPECT_EQ(CxValue::fromBool(true).toInt(), 1);
    EXPECT_EQ(CxValue::fromBool(true).toFloat(), 1.0F);
    EXPECT_EQ(CxValue::fromBool(true).toString(), QStringLiteral("true"));
    EXPECT_EQ(CxValue::fromBool(false).toString(), QStringLiteral("false"));
    EXPECT_FALSE(CxValue::fromBool(false).toBool());
}

TEST(Value, ATextIsReadAsADecimalNumberWithAPoint)
{
    const auto text = [](const char* characters) {
        return CxValue::fromString(QString::fromLatin1(characters));
    };
    EXPECT_EQ(text("42").toInt(), 42);
    EXPECT_EQ(text("-12.7").toInt(), -12);
    EXPECT_EQ(text("1.5").toFloat(), 1.5F);
    EXPECT_EQ(text("0").toInt(), 0);
    EXPECT_EQ(text("0").toFloat(), 0.0F);
    EXPECT_EQ(text("99999999999").toInt(), greatestInt);
    EXPECT_EQ(text("12 apples").toString(), QStringLiteral("12 apples"));
}

TEST(Value, ATextThatIsNoNumberIsNeverZero)
{
    for (const char* characters : {"12 apples", "RGB8", "1,5", "loud", "", "nan"}) {
        const CxValue text = CxValue::fromString(QString::fromLatin1(characters));
        EXPECT_EQ(text.toInt(), CxValue::noInteger) << characters;
        EXPECT_TRUE(std::isnan(text.toFloat())) << characters;
    }
}

TEST(Value, ATextIsTrueWhenItReadsTrueOrAsANumberOtherThanZero)
{
    for (const char* text : {"true", "True", "1", "0.5"})
        EXPECT_TRUE(CxValue::fromString(QString::fromLatin1(text)).toBool()) << text;
    for (const char* text : {"false", "", "0", "yes"})
        EXPECT_FALSE(CxValue::fromString(QString::fromLatin1(text)).toBool()) << text;
}

TEST(Value, ABooleanKeepsTheTextOfWhichItWasMade)
{
    for (const char* text : {"true", "off", "", "7"}) {
        const QString characters = QString::fromLatin1(text);
        const CxValue value = CxValue::boolOfText(characters);
        EXPECT_EQ(value.type(), CxValue::Bool);
        EXPECT_EQ(value.toBool(), CxValue::fromString(characters).toBool()) << text;
        EXPECT_EQ(value.toString(), characters);
    }
    EXPECT_EQ(CxValue::boolOfText({}).toString(), QString());
}

TEST(Value, AnIntegerMayCarryNothingButItsText)
{
    const CxValue value = CxValue::integerWithText(QStringLiteral("815"));
    EXPECT_EQ(value.type(), CxValue::Int);
    EXPECT_EQ(value.toInt(), 0);
    EXPECT_EQ(value.toString(), QStringLiteral("815"));
}

SxPicBufInfo layout(ExImageDataType type, quint32 channels,
                    ExColorFilterArray filter = ExColorFilterArray::None)
{
    SxPicBufInfo info;
    info.dataType = type;
    info.channels = channels;
    info.colorFilterArray = filter;
    return info;
}

TEST(FormatCode, FollowsElementTypeChannelsAndColourFilter)
{
    using enum ExImageDataType;
    const auto code = kvCore_GetKvImgFormatForPicBufInfo;
    const auto filter = ExColorFilterArray::GRBG;
    EXPECT_EQ(code(layout(None, 1)), 0);
    EXPECT_EQ(code(layout(UInt8, 1)), 1);
    EXPECT_EQ(code(layout(Int16, 1)), 2);
    EXPECT_EQ(code(layout(UInt8, 3)), 3);
    EXPECT_EQ(code(layout(UInt16, 3)), 4);
    EXPECT_EQ(code(layout(UInt8, 4)), 5);
    EXPECT_EQ(code(layout(UInt16, 4)), 6);
    EXPECT_EQ(code(layout(Packed565, 3)), 7);
    EXPECT_EQ(code(layout(UInt32, 1)), 8);
    EXPECT_EQ(code(layout(Float, 3)), 9);
    EXPECT_EQ(code(layout(Double, 1)), 9);
    EXPECT_EQ(code(layout(UInt8, 1, filter)), 10);
    EXPECT_EQ(code(layout(UInt16, 1, filter)), 11);
    EXPECT_EQ(code(layout(UInt8, 2)), 0);
    EXPECT_EQ(code(layout(UInt32, 3)), 0);
    EXPECT_EQ(code(layout(UInt64, 1)), 0);
    EXPECT_EQ(code(layout(static_cast<ExImageDataType>(12), 1)), 0);
}

TEST(FormatCode, OfColourFiltersCountsThemInOrder)
{
    using enum ExColorFilterArray;
    int expected = 0;
    for (const auto filter : {None, RGGB, GRBG, GBRG, BGGR})
        EXPECT_EQ(kvCore_GetKvCfaFromColorFilterArray(filter), expected++);
    EXPECT_EQ(kvCore_GetKvCfaFromColorFilterArray(static_cast<ExColorFilterArray>(9)), 0);
}

TEST(FormatCode, OfSignModesTellsUnsignedSignedAndFloat)
{
    using enum ExImageDataType;
    for (const auto type : {None, UInt8, UInt16, UInt32, UInt64, Packed565})
        EXPECT_EQ(kvCore_GetKvDataSmFromDataType(type), 0);
    for (const auto type : {Int8, Int16, Int32, Int64})
        EXPECT_EQ(kvCore_GetKvDataSmFromDataType(type), 1);
    for (const auto type : {Float, Double})
        EXPECT_EQ(kvCore_GetKvDataSmFromDataType(type), 2);
}

} // namespace

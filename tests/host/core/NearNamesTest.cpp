// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Names that somebody may have meant, and work that is shown.
#include "core/NearNames.h"
#include "core/LongWork.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using namespace vistrel;

const QStringList known = {"exposure_time_us", "gain_db",         "width",
                           "height",           "ExposureTimeAbs", "AcquisitionFrameRate"};

TEST(NearNames, FindsWrongMissingExtraAndExchangedLetters)
{
    for (const char* misspelt : {"widht", "widt", "widthh", "vidth"})
        EXPECT_EQ(nearNames(misspelt, known).value(0), QStringLiteral("width")) << misspelt;
}

TEST(NearNames, DoNotCountCaseAndUnderscores)
{
    EXPECT_EQ(nearNames("GainDb", known).value(0), QStringLiteral("gain_db"));
    EXPECT_EQ(nearNames("exposure_time_abs", known).value(0), QStringLiteral("ExposureTimeAbs"));
}

TEST(NearNames, FindsNamesOfWhichOnlyAPartIsWritten)
{
    EXPECT_EQ(nearNames("FrameRate", known), QStringList{"AcquisitionFrameRate"});
    EXPECT_EQ(nearNames("exposure", known).size(), 2);
    EXPECT_EQ(nearNames("exposre", known).size(), 2);
}

TEST(NearNames, AreAtMostThreeTheLikeliestFirst)
{
    const QStringList names = nearNames("test1", {"test", "tests", "test2", "test12", "test1x"});
    EXPECT_EQ(names.size(), 3);
    EXPECT_EQ(nearNames("tset", {"tester", "test"}).value(0), QStringLiteral("test"));
}

TEST(NearNames, AreNoneForAWordLikeNoOther)
{
    EXPECT_TRUE(nearNames("qqqqqq", known).isEmpty());
    EXPECT_TRUE(nearNames("", known).isEmpty());
    EXPECT_TRUE(nearNames(QString(100000, u'w'), known).isEmpty());
    EXPECT_EQ(nearNamesAsked("qqqqqq", known), QString());
}

TEST(NearNames, AreAskedInOneSentence)
{
    EXPECT_EQ(nearNamesAsked("widht", {"width"}), QStringLiteral("; did you mean width?"));
    EXPECT_EQ(nearNamesAsked("gain", {"gain_a", "gain_b", "gain_c"}),
              QStringLiteral("; did you mean gain_a, gain_b or gain_c?"));
}

class LongWorks : public testing::Test {
protected:
    void SetUp() override
    {
        told.clear();
        LongWork::watch([](const QString& what) { told.append(what); });
    }
    void TearDown() override { LongWork::watch(nullptr); }

    static inline QStringList told;
};

TEST_F(LongWorks, AreToldWhenTheyBeginAndEnd)
{
    {
        const LongWork work("Saving");
        EXPECT_EQ(told, QStringList{"Saving"});
    }
    EXPECT_EQ(told, (QStringList{"Saving", ""}));
}

TEST_F(LongWorks, WithinEachOtherShowTheInnerOneAndThenTheOuterAgain)
{
    const LongWork outer("Restarting");
    {
        const LongWork inner("Looking");
    }
    EXPECT_EQ(told, (QStringList{"Restarting", "Looking", "Restarting"}));
}

TEST_F(LongWorks, MayEndInAnyOrder)
{
    auto first = std::make_unique<LongWork>("First");
    const LongWork second("Second");
    first.reset();
    EXPECT_EQ(told, (QStringList{"First", "Second", "Second"}));
}

TEST_F(LongWorks, AreNoTroubleWhenNobodyWatches)
{
    LongWork::watch(nullptr);
    const LongWork work("Saving");
    EXPECT_TRUE(told.isEmpty());
}

} // namespace

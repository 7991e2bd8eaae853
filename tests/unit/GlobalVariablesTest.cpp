// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The store of shared variables, without Python.
#include "FuncApp/GlobalVariables.h"

#include <CxImageData.h>

#include <QtCore/QPointer>

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

using namespace global_variables;

namespace {

CxImageData* stored(const char* name)
{
    return readImage(QString::fromUtf8(name), std::identity());
}

TEST(GlobalVariables, AreEmptyAtFirst)
{
    EXPECT_TRUE(g_mapGlobalVarInt.isEmpty());
    EXPECT_TRUE(g_mapGlobalVarString.isEmpty());
    EXPECT_TRUE(g_mapGlobalVarImg.isEmpty());
}

TEST(GlobalVariables, ReadingAnUnknownNameMakesNoEntry)
{
    EXPECT_EQ(readInt(QStringLiteral("a"), std::identity()), -1);
    EXPECT_EQ(readString(QStringLiteral("a"), std::identity()), QString());
    EXPECT_EQ(stored("a"), nullptr);
    EXPECT_TRUE(g_mapGlobalVarInt.isEmpty() && g_mapGlobalVarString.isEmpty()
                && g_mapGlobalVarImg.isEmpty());
}

TEST(GlobalVariables, ANameWithANullImageStays)
{
    CxImageData image;
    setImage(QStringLiteral("a"), &image);
    const QPointer<CxImageData> first = stored("a");
    setImage(QStringLiteral("a"), nullptr);
    EXPECT_TRUE(first.isNull());
    EXPECT_TRUE(g_mapGlobalVarImg.contains(QStringLiteral("a")));
    setImage(QStringLiteral("b"), nullptr);
    EXPECT_FALSE(g_mapGlobalVarImg.contains(QStringLiteral("b")));
}

TEST(GlobalVariables, AnImageIsReplacedByACopyAndTheOldOneDeleted)
{
    CxImageData image;
    setImage(QStringLiteral("a"), &image);
    const QPointer<CxImageData> first = stored("a");
    EXPECT_NE(first, &image);
    setImage(QStringLiteral("a"), first);
    EXPECT_EQ(stored("a"), first) << "the stored image itself changes nothing";
    setImage(QStringLiteral("a"), &image);
    EXPECT_TRUE(first.isNull());
    EXPECT_NE(stored("a"), nullptr);
    setImage(QStringLiteral("a"), nullptr);
}

TEST(GlobalVariables, WhoeverHearsOfTheDeletionMayUseTheStore)
{
    CxImageData image;
    image.picBuf()->width = 1;
    setImage(QStringLiteral("a"), &image);
    bool wasFree = false;
    QObject::connect(stored("a"), &QObject::destroyed, [&wasFree] {
        wasFree = g_lockGlobalVars.tryLock();
        if (wasFree)
            g_lockGlobalVars.unlock();
    });
    setImage(QStringLiteral("a"), &image);
    EXPECT_TRUE(wasFree);
    setImage(QStringLiteral("a"), nullptr);
}

class FailingImage : public CxImageData {
public:
    QObject* copy(QObject*) override { throw std::runtime_error("no copy"); }
};

TEST(GlobalVariables, ACopyThatThrowsFreesTheLockAndLeavesANullImage)
{
    CxImageData image;
    FailingImage failing;
    setImage(QStringLiteral("a"), &image);
    EXPECT_THROW(setImage(QStringLiteral("a"), &failing), std::runtime_error);
    EXPECT_THROW(setImage(QStringLiteral("b"), &failing), std::runtime_error);
    EXPECT_EQ(stored("a"), nullptr);
    EXPECT_FALSE(g_mapGlobalVarImg.contains(QStringLiteral("b")));
}

TEST(GlobalVariables, TheLockIsHeldUntilTheResultIsMade)
{
    const bool wasFree = readInt(QStringLiteral("a"), [](int) {
        const bool isFree = g_lockGlobalVars.tryLock();
        if (isFree)
            g_lockGlobalVars.unlock();
        return isFree;
    });
    EXPECT_FALSE(wasFree);
    EXPECT_TRUE(g_lockGlobalVars.tryLock());
    g_lockGlobalVars.unlock();
}

} // namespace

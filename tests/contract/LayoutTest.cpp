// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The order of virtual operations and of record fields, which host and plugin share in binary form.
#include <CxImageData.h>
#include <CxMdiView.h>
#include <CxScriptLangInterface.h>
#include <IxAppDelegate.h>
#include <IxScriptEnvironment.h>

#include <gtest/gtest.h>

#include <cstring>

namespace {

/// The position of a virtual operation in its table. The Itanium ABI keeps 1 plus the offset in the
/// table in a pointer to a virtual member function.
template<class Member>
std::ptrdiff_t slot(Member member)
{
    std::ptrdiff_t word = 0;
    std::memcpy(&word, &member, sizeof(word));
    return (word - 1) / static_cast<std::ptrdiff_t>(sizeof(void*));
}

TEST(Layout, ScriptLanguageInterface)
{
    using I = CxScriptLangInterface;
    // The destructor takes the first two places.
    EXPECT_EQ(slot(&I::init), 2);
    EXPECT_EQ(slot(&I::languageVersion), 3);
    EXPECT_EQ(slot(&I::runScript), 4);
    EXPECT_EQ(slot(&I::addImageVariable), 5);
}

TEST(Layout, ScriptEnvironment)
{
    using I = IxScriptEnvironment;
    EXPECT_EQ(slot(&I::apiParamDefs), 0);
    EXPECT_EQ(slot(&I::apiParamEnumVals), 1);
    EXPECT_EQ(slot(&I::isApiParamName), 2);
    EXPECT_EQ(slot(&I::workingDirectory), 3);
    EXPECT_EQ(slot(&I::resolvePath), 4);
    EXPECT_EQ(slot(&I::isGuiThread), 5);
    EXPECT_EQ(slot(&I::addMenuItem), 6);
    EXPECT_EQ(slot(&I::waitForNextFrame), 7);
    EXPECT_EQ(slot(&I::wait), 8);
    EXPECT_EQ(slot(&I::functionHelp), 9);
    EXPECT_EQ(slot(&I::methodHelp), 10);
}

TEST(Layout, ApplicationDelegateBeginsWithTheMainWindowAndKeepsTheOrder)
{
    using I = IxAppDelegate;
    EXPECT_EQ(slot(&I::mainWindow), 0);
    const std::ptrdiff_t order[] = {slot(&I::mainWindow),       slot(&I::menu),
                                    slot(&I::showNotification), slot(&I::activeViewId),
                                    slot(&I::activateView),     slot(&I::tileViews),
                                    slot(&I::setFullScreen),    slot(&I::view),
                                    slot(&I::duplicateView),    slot(&I::openFile),
                                    slot(&I::newViewWithImage), slot(&I::setViewImage),
                                    slot(&I::viewImage),        slot(&I::playSound)};
    EXPECT_TRUE(std::is_sorted(std::begin(order), std::end(order), std::less_equal<>()));
}

TEST(Layout, ViewHasRecordingSideBySideAndTheChainEndTwoFurtherOn)
{
    using I = CxMdiView;
    EXPECT_EQ(slot(&I::stopRecording), slot(&I::startRecording) + 1);
    EXPECT_EQ(slot(&I::chainEnd), slot(&I::stopRecording) + 3);
}

TEST(Layout, CopyFollowsCloneInTheImage)
{
    EXPECT_EQ(slot(&CxImageData::copy), slot(&CxImageData::clone) + 1);
}

TEST(Layout, PictureBufferBeginsWithItsInfoAndKeepsTheOrderOfFields)
{
    SxPicBuf buffer;
    const auto at = [&buffer](const void* field) {
        return static_cast<const char*>(field) - reinterpret_cast<const char*>(&buffer);
    };
    EXPECT_EQ(at(static_cast<SxPicBufInfo*>(&buffer)), 0);
    EXPECT_EQ(at(&buffer.data), 40);
    EXPECT_LT(at(&buffer.data), at(&buffer.acqFrameNumber));
    EXPECT_LT(at(&buffer.acqFrameNumber), at(&buffer.timestampUs));
    EXPECT_EQ(at(&buffer.frameNumber), at(&buffer.timestampUs) + 8);
    EXPECT_EQ(at(&buffer.saturation), at(&buffer.frameNumber) + 4);
}

TEST(Layout, ElementTypesHaveTheirNumbers)
{
    EXPECT_EQ(static_cast<int>(ExImageDataType::None), 0);
    EXPECT_EQ(static_cast<int>(ExImageDataType::UInt8), 2);
    EXPECT_EQ(static_cast<int>(ExImageDataType::UInt64), 8);
    EXPECT_EQ(static_cast<int>(ExImageDataType::Float), 9);
    EXPECT_EQ(static_cast<int>(ExImageDataType::Packed565), 11);
    EXPECT_EQ(sizeof(ExImageDataType), 4U);
    EXPECT_EQ(sizeof(ExDataStorageFormat), 4U);
    EXPECT_EQ(sizeof(ExColorFilterArray), 4U);
}

} // namespace

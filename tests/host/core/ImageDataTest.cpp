// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Images as owners of their pixels, and the objects behind the host's singletons.
#include "CoreFixtures.h"
#include "core/HostSingletons.h"
#include "core/ImageFormats.h"

#include <CxCameraManager.h>
#include <CxChainManager.h>
#include <CxMdiView.h>
#include <CxRTTI.h>
#include <IxAppDelegate.h>

#include <gtest/gtest.h>

namespace {

using namespace vistrel::test;

std::unique_ptr<CxImageData> cloneOf(CxImageData& image)
{
    return std::unique_ptr<CxImageData>(qobject_cast<CxImageData*>(image.clone(0, 0)));
}

TEST(Image, IsEmptyWhenMade)
{
    CxImageData image;
    ASSERT_NE(image.picBuf(), nullptr);
    EXPECT_EQ(image.picBuf()->data, nullptr);
    EXPECT_EQ(image.acquisitionInfo(), nullptr);
}

TEST(Image, FreesThePreviousPixelsWhenItGetsOthers)
{
    // The address sanitizer reports memory that is lost here or freed twice.
    const auto image = newImage({.width = 16, .height = 16});
    image->setPicBuf(newBuffer({.width = 4, .height = 4}));
    EXPECT_EQ(image->picBuf()->width, 4U);
    image->setPicBuf(*image->picBuf());
    image->picBuf()->data[15] = 1;
    EXPECT_EQ(image->picBuf()->data[15], 1);
}

TEST(Image, CopiesTheAcquisitionRecordAndTakesItAway)
{
    CxImageData image;
    SxAcquisitionInfo record;
    record.gainDb = 3.5F;
    image.setAcquisitionInfo(&record);
    record.gainDb = 0.0F;
    ASSERT_NE(image.acquisitionInfo(), nullptr);
    EXPECT_EQ(image.acquisitionInfo()->gainDb, 3.5F);
    image.setAcquisitionInfo(nullptr);
    EXPECT_EQ(image.acquisitionInfo(), nullptr);
}

TEST(Image, ACloneHasPixelsAndMetadataOfItsOwn)
{
    const auto image =
        newImage({.width = 5, .height = 4, .channels = 3, .isRgb = true, .stride = 24});
    fill<quint8>(*image->picBuf(), {1, 2, 3, 4, 5, 6, 7});
    image->picBuf()->timestampUs = 77;
    SxAcquisitionInfo record;
    record.exposureTimeUs = 1234;
    image->setAcquisitionInfo(&record);

    const auto clone = cloneOf(*image);
    ASSERT_NE(clone, nullptr);
    EXPECT_NE(clone->picBuf()->data, image->picBuf()->data);
    EXPECT_EQ(valuesIn<quint8>(*clone->picBuf()), valuesIn<quint8>(*image->picBuf()));
    EXPECT_EQ(clone->picBuf()->stride, 24U);
    EXPECT_TRUE(clone->picBuf()->isRgb);
    EXPECT_EQ(clone->picBuf()->timestampUs, 77);
    ASSERT_NE(clone->acquisitionInfo(), nullptr);
    EXPECT_NE(clone->acquisitionInfo(), image->acquisitionInfo());
    EXPECT_EQ(clone->acquisitionInfo()->exposureTimeUs, 1234);
}

TEST(Image, AnImageWithoutMetadataOrPixelsIsClonedToo)
{
    CxImageData empty;
    const auto clone = cloneOf(empty);
    ASSERT_NE(clone, nullptr);
    EXPECT_EQ(clone->picBuf()->data, nullptr);
    EXPECT_EQ(clone->acquisitionInfo(), nullptr);
}

TEST(Image, WithoutMemoryThereIsNoClone)
{
    const auto image = newImage({.width = 5, .height = 4});
    const NoPictureMemory none;
    EXPECT_EQ(image->clone(0, 0), nullptr);
    EXPECT_EQ(image->copy(nullptr), nullptr);
}

TEST(Image, ACopyBelongsToItsParent)
{
    const auto image = newImage({.width = 5, .height = 4});
    QObject parent;
    const QObject* const copy = image->copy(&parent);
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy->parent(), &parent);
    EXPECT_EQ(cloneOf(*image)->parent(), nullptr);
}

class ClosableView : public CxMdiView {
public:
    bool startRecording(QString) override { return false; }
    void stopRecording() override {}
    bool isRecording() const override { return false; }
    quint64 frameCount() const override { return 0; }
    CxChainable* chainEnd() override { return nullptr; }
    int closeRequests = 0;

private:
    void requestClose() override { ++closeRequests; }
};

TEST(View, ClosingAsksTheConcreteWindow)
{
    ClosableView view;
    view.closeMdiView();
    EXPECT_EQ(view.closeRequests, 1);
}

TEST(Singletons, AreNullUntilInstalledAndAfterwards)
{
    vistrel::ImageFormatManager formats;
    EXPECT_EQ(CxImageFormatManager::instance(), nullptr);
    {
        const vistrel::InstalledImageFormatManager installed(formats);
        EXPECT_EQ(CxImageFormatManager::instance(), &formats);
    }
    EXPECT_EQ(CxImageFormatManager::instance(), nullptr);
}

/// Something to point at: the host hands these pointers on and never looks behind them.
template<typename Object>
Object* anyPointer()
{
    static std::uintptr_t place = 0;
    return reinterpret_cast<Object*>(&place);
}

TEST(Singletons, EachIsInstalledByItself)
{
    vistrel::installAppDelegate(anyPointer<IxAppDelegate>());
    vistrel::installCameraManager(anyPointer<CxCameraManager>());
    vistrel::installChainManager(anyPointer<CxChainManager>());
    vistrel::installClassRegistry(anyPointer<CxRTTI>());
    EXPECT_EQ(IxAppDelegate::instance(), anyPointer<IxAppDelegate>());
    EXPECT_EQ(CxCameraManager::instance(), anyPointer<CxCameraManager>());
    EXPECT_EQ(CxChainManager::instance(), anyPointer<CxChainManager>());
    EXPECT_EQ(CxRTTI::instance(), anyPointer<CxRTTI>());
    vistrel::installCameraManager(nullptr);
    EXPECT_EQ(CxCameraManager::instance(), nullptr);
    EXPECT_NE(IxAppDelegate::instance(), nullptr);
}

} // namespace

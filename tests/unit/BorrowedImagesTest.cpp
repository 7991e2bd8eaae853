// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Pointers to images that become null with them.
#include "FuncImage/BorrowedImages.h"

#include <CxImageData.h>

#include <gtest/gtest.h>

namespace {

class BorrowedImages : public testing::Test {
protected:
    ~BorrowedImages() override { borrowed_images::forgetAll(); }

    std::unique_ptr<CxImageData> image = std::make_unique<CxImageData>();
    CxImageData* pointer = image.get();
};

TEST_F(BorrowedImages, APointerBecomesNullWithItsImage)
{
    borrowed_images::watch(pointer);
    EXPECT_EQ(pointer, image.get());
    image.reset();
    EXPECT_EQ(pointer, nullptr);
}

TEST_F(BorrowedImages, AForgottenPointerIsLeftAlone)
{
    borrowed_images::watch(pointer);
    borrowed_images::forget(pointer);
    image.reset();
    EXPECT_NE(pointer, nullptr);
}

TEST_F(BorrowedImages, ForgettingOneLeavesTheOthers)
{
    CxImageData* other = image.get();
    borrowed_images::watch(pointer);
    borrowed_images::watch(other);
    borrowed_images::forget(pointer);
    image.reset();
    EXPECT_NE(pointer, nullptr);
    EXPECT_EQ(other, nullptr);
}

TEST_F(BorrowedImages, APointerMayBeWatchedAgain)
{
    for (int turn = 0; turn < 3; ++turn) {
        borrowed_images::watch(pointer);
        borrowed_images::forget(pointer);
    }
    borrowed_images::watch(pointer);
    image.reset();
    EXPECT_EQ(pointer, nullptr);
}

TEST_F(BorrowedImages, ForgettingWhatIsNotWatchedDoesNothing)
{
    borrowed_images::forget(pointer);
    EXPECT_EQ(pointer, image.get());
}

TEST_F(BorrowedImages, AfterForgettingAllTheyAreLeftAloneAndNewOnesAreWatched)
{
    borrowed_images::watch(pointer);
    borrowed_images::forgetAll();
    CxImageData* later = image.get();
    borrowed_images::watch(later);
    image.reset();
    EXPECT_NE(pointer, nullptr);
    EXPECT_EQ(later, nullptr);
}

} // namespace

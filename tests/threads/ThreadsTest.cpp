// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Shared variables and borrowed images, used by several threads at once.
#include "CountedImage.h"
#include "FuncApp/GlobalVariables.h"
#include "FuncImage/BorrowedImages.h"

#include <CxImageData.h>

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <thread>
#include <vector>

namespace {

constexpr int threadCount = 4;
constexpr int turns = 1000;

/// Calls `work` with its number in each of several threads and waits for all.
void onThreads(const std::function<void(int)>& work)
{
    std::vector<std::thread> threads;
    for (int number = 1; number <= threadCount; ++number)
        threads.emplace_back(work, number);
    for (std::thread& thread : threads)
        thread.join();
}

QString nameOf(int turn) { return QStringLiteral("name %1").arg(turn % 3); }

TEST(Threads, IntegersAndTextsAreAlwaysOneThatWasStored)
{
    onThreads([](int number) {
        for (int turn = 0; turn < turns; ++turn) {
            global_variables::setInt(nameOf(turn), number);
            global_variables::setString(nameOf(turn), QString::number(number));
            const int value = global_variables::readInt(nameOf(turn), std::identity());
            const QString text =
                global_variables::readString(nameOf(turn), [](const QString& t) { return t; });
            EXPECT_TRUE(value >= 1 && value <= threadCount);
            EXPECT_TRUE(text.toInt() >= 1 && text.toInt() <= threadCount);
        }
    });
}

TEST(Threads, ImagesAreWholeWhileTheyAreReadAndNoneIsLostOrDeletedTwice)
{
    onThreads([](int number) {
        CxImageData own;
        own.picBuf()->width = own.picBuf()->height = static_cast<quint32>(number);
        for (int turn = 0; turn < turns; ++turn) {
            global_variables::setImage(nameOf(turn), turn % 7 == 0 ? nullptr : &own);
            global_variables::readImage(nameOf(turn), [](CxImageData* image) {
                EXPECT_TRUE(image == nullptr || image->picBuf()->width == image->picBuf()->height);
                return 0;
            });
        }
    });
    for (int i = 0; i < 3; ++i)
        global_variables::setImage(nameOf(i), nullptr);
    EXPECT_EQ(countedImages(), 0);
}

TEST(Threads, ABorrowerSeesAnImageGoThatAnotherThreadDeletes)
{
    for (int turn = 0; turn < turns / 10; ++turn) {
        auto image = std::make_unique<CxImageData>();
        CxImageData* borrowed = image.get();
        borrowed_images::watch(borrowed);
        std::thread deleting([&image] { image.reset(); });
        while (std::atomic_ref(borrowed).load(std::memory_order_relaxed) != nullptr)
            std::this_thread::yield();
        deleting.join();
    }
    borrowed_images::forgetAll();
}

TEST(Threads, EachBorrowerOfAnImageThatGoesSeesIt)
{
    onThreads([](int) {
        for (int turn = 0; turn < turns; ++turn) {
            auto image = std::make_unique<CxImageData>();
            CxImageData* first = image.get();
            CxImageData* second = image.get();
            CxImageData* forgetful = image.get();
            borrowed_images::watch(first);
            borrowed_images::watch(second);
            borrowed_images::watch(forgetful);
            borrowed_images::forget(forgetful);
            image.reset();
            EXPECT_EQ(first, nullptr);
            EXPECT_EQ(second, nullptr);
            EXPECT_NE(forgetful, nullptr);
        }
    });
    borrowed_images::forgetAll();
}

} // namespace

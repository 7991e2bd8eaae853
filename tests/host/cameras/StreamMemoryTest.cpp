// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A stream for whose images there is no memory.
#include "CameraFixtures.h"

#include <cstdlib>
#include <new>
#include <utility>

namespace {

/// Whether the thread finds no memory for its next image.
thread_local bool nextImageFails = false;

} // namespace

void* operator new(std::size_t size)
{
    if (size == sizeof(CxImageData) && std::exchange(nextImageFails, false))
        throw std::bad_alloc();
    if (void* const memory = std::malloc(size))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace vistrel::test {

namespace {

struct CameraStreaming : CameraTest {};

TEST_F(CameraStreaming, DropsFramesForWhoseImagesThereIsNoMemoryAndLogsTheFirst)
{
    const LogCapture log;
    void* camera = openSimulated();
    const FrameSink keep = collector.sink();
    const auto keepAndFailTwice = [&keep, failures = 2](auto frame) mutable {
        keep(std::move(frame));
        nextImageFails = failures-- > 0; // on the stream's thread
    };
    ASSERT_TRUE(manager.start(camera, keepAndFailTwice, error)) << error.toStdString();
    const auto frames = collector.take(3);
    ASSERT_GE(frames.size(), 3U);
    EXPECT_EQ(frames[2]->picBuf()->frameNumber, 2);
    EXPECT_GE(frames[2]->picBuf()->acqFrameNumber, frames[0]->picBuf()->acqFrameNumber + 4);
    EXPECT_GE(manager.statistics(camera).framesDropped, 2U);
    manager.close(camera);
    const std::string line = "there is no memory for it";
    const auto first = log.text().find(line);
    EXPECT_NE(first, std::string::npos) << log.text();
    EXPECT_EQ(log.text().find(line, first + 1), std::string::npos) << log.text();
}

} // namespace

} // namespace vistrel::test

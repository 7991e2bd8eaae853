// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Frames of 2048 x 2048 bytes through a running chain with one element, against the same calls of
// OpenCV in a bare loop.
#include "chains/ClassRegistry.h"

#include <CxImageData.h>
#include <CxPicBufAPI.h>

#include <QtXml/QDomDocument>

#include <benchmark/benchmark.h>
#include <opencv2/imgproc.hpp>

#include <array>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <vector>

namespace {

using namespace vistrel;

constexpr int side = 2048;

cv::Mat scene()
{
    cv::Mat picture(side, side, CV_8U);
    cv::randu(picture, 0, 256);
    return picture;
}

std::unique_ptr<CxImageData> newFrame()
{
    SxPicBuf buffer;
    CxPicBufAPI::AllocPicBufFromHeap(buffer, side, side, 1, ExImageDataType::UInt8, 0, 0, 8,
                                     ExDataStorageFormat::Interleaved, ExColorFilterArray::None,
                                     false, false, 0);
    scene().copyTo(cv::Mat(side, side, CV_8U, buffer.data, buffer.stride));
    auto frame = std::make_unique<CxImageData>();
    frame->setPicBuf(buffer);
    return frame;
}

/// Frames that come out of the chain go in again, as many as it takes without dropping one.
class Circulation {
public:
    static constexpr int frames = 2; // as many as may wait

    explicit Circulation(Chain& chain)
    {
        for (int i = 0; i < frames; ++i)
            m_free.push_back(newFrame());
        chain.end().setOutput([this](std::unique_ptr<CxImageData> frame) {
            const std::scoped_lock lock(m_mutex);
            m_free.push_back(std::move(frame));
            m_changed.notify_one();
        });
    }

    std::unique_ptr<CxImageData> take()
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return !m_free.empty(); });
        std::unique_ptr<CxImageData> frame = std::move(m_free.back());
        m_free.pop_back();
        return frame;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<std::unique_ptr<CxImageData>> m_free;
};

/// An element with its defaults, and what it does in OpenCV's words.
struct Case {
    const char* row;
    const char* displayName;
    std::function<std::function<void(const cv::Mat&, cv::Mat&)>()> makeBare;
};

std::unique_ptr<ChainElement> elementOf(const Case& wanted)
{
    ClassRegistry registry;
    for (const QString& name : registry.classesForInterface(QStringLiteral("CxChainable"), true)) {
        if (registry.customName(name) == QLatin1String(wanted.displayName))
            return std::unique_ptr<ChainElement>(
                dynamic_cast<ChainElement*>(registry.createInstance(name)));
    }
    return nullptr;
}

void throughChain(benchmark::State& state, const Case& wanted)
{
    Chain chain;
    Circulation frames(chain);
    chain.insertBefore(elementOf(wanted), &chain.end());
    const FrameFunction put = chain.input();
    // All frames are under way when the clock starts: each round then waits for one to be done.
    for (int i = 0; i < Circulation::frames; ++i)
        put(frames.take());
    for ([[maybe_unused]] auto iteration : state)
        put(frames.take());
    chain.drain();
    if (chain.droppedFrames() > 0)
        state.SkipWithError("frames were dropped");
    chain.stop();
}

/// Goes round as many pictures as the chain does: two on the way and one for the result, which
/// takes the place of its source. Two of the same would stay in a processor's caches, as no stream
/// does.
void inBareLoop(benchmark::State& state, const Case& wanted)
{
    std::array<cv::Mat, Circulation::frames + 1> pictures;
    for (cv::Mat& picture : pictures)
        picture = scene();
    const auto bare = wanted.makeBare();
    std::size_t from = 0;
    for ([[maybe_unused]] auto iteration : state) {
        const std::size_t to = (from + Circulation::frames) % pictures.size();
        bare(pictures[from], pictures[to]);
        from = (from + 1) % pictures.size();
    }
}

using Bare = std::function<void(const cv::Mat&, cv::Mat&)>;

Bare bareGamma()
{
    cv::Mat table(1, 256, CV_8U);
    cv::randu(table, 0, 256);
    return [table](const cv::Mat& from, cv::Mat& to) { cv::LUT(from, table, to); };
}

Bare bareBackground()
{
    cv::Mat mean;
    scene().convertTo(mean, CV_32F);
    return [mean, background = cv::Mat()](const cv::Mat& from, cv::Mat& to) mutable {
        mean.convertTo(background, CV_8U);
        cv::absdiff(from, background, to);
        cv::accumulateWeighted(from, mean, 0.05);
    };
}

Bare bareAverage()
{
    cv::Mat mean;
    scene().convertTo(mean, CV_32F);
    return [mean](const cv::Mat& from, cv::Mat& to) mutable {
        cv::accumulateWeighted(from, mean, 0.125);
        mean.convertTo(to, CV_8U);
    };
}

const std::vector<Case>& cases()
{
    static const std::vector<Case> all{
        {"chain_blur", "Gaussian Blur",
         [] {
             return [](const cv::Mat& from, cv::Mat& to) { cv::GaussianBlur(from, to, {}, 1.0); };
         }},
        {"chain_flip", "Flip",
         [] { return [](const cv::Mat& from, cv::Mat& to) { cv::flip(from, to, 1); }; }},
        {"chain_rotate", "Rotate",
         [] {
             return [](const cv::Mat& from, cv::Mat& to) {
                 cv::rotate(from, to, cv::ROTATE_90_CLOCKWISE);
             };
         }},
        {"chain_threshold", "Threshold",
         [] {
             return [](const cv::Mat& from, cv::Mat& to) {
                 cv::threshold(from, to, 127.5, 255, cv::THRESH_BINARY);
             };
         }},
        {"chain_gamma", "Gamma", bareGamma},
        {"chain_median", "Median",
         [] { return [](const cv::Mat& from, cv::Mat& to) { cv::medianBlur(from, to, 3); }; }},
        {"chain_background", "Background Subtraction", bareBackground},
        {"chain_average", "Frame Average", bareAverage},
    };
    return all;
}

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    for (const Case& each : cases()) {
        const auto name = [&each](const char* part) { return std::string(each.row) + "/" + part; };
        benchmark::RegisterBenchmark(name("ours").c_str(), throughChain, each)->UseRealTime();
        benchmark::RegisterBenchmark(name("theirs").c_str(), inBareLoop, each)->UseRealTime();
    }
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}

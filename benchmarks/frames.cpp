// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A bare loop over the frames of Aravis' simulated camera at a given rate: prints the seconds of
// one. camera_frames.py does the same from a script.
#include <arv.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr int size = 2048;
constexpr int bufferCount = 8;
constexpr guint64 patienceUs = 60'000'000;

using Clock = std::chrono::steady_clock;

[[noreturn]] void fail(const char* what)
{
    std::fprintf(stderr, "benchmark_frames: %s\n", what);
    std::exit(1);
}

void takeFrame(ArvStream* stream)
{
    ArvBuffer* buffer = arv_stream_timeout_pop_buffer(stream, patienceUs);
    if (!buffer || arv_buffer_get_status(buffer) != ARV_BUFFER_STATUS_SUCCESS)
        fail("no frame came");
    arv_stream_push_buffer(stream, buffer);
}

double secondsOfFrame(ArvStream* stream, double seconds)
{
    takeFrame(stream);
    const auto begin = Clock::now();
    const auto elapsed = [begin] {
        return std::chrono::duration<double>(Clock::now() - begin).count();
    };
    int frames = 0;
    for (; elapsed() < seconds; ++frames)
        takeFrame(stream);
    return elapsed() / frames;
}

} // namespace

int main()
{
    const char* seconds = std::getenv("VISTREL_BENCHMARK_SECONDS");
    const char* frameRate = std::getenv("VISTREL_BENCHMARK_RATE");
    arv_enable_interface("Fake");
    ArvCamera* camera = arv_camera_new("Fake_1", nullptr);
    if (!camera || !seconds || !frameRate)
        fail("there is no simulated camera, or no VISTREL_BENCHMARK_SECONDS or _RATE");
    arv_camera_set_region(camera, 0, 0, size, size, nullptr);
    arv_camera_set_frame_rate(camera, std::atof(frameRate), nullptr);
    ArvStream* stream = arv_camera_create_stream(camera, nullptr, nullptr, nullptr);
    const guint frameBytes = arv_camera_get_payload(camera, nullptr);
    for (int i = 0; i < bufferCount; ++i)
        arv_stream_push_buffer(stream, arv_buffer_new_allocate(frameBytes));
    arv_camera_start_acquisition(camera, nullptr);
    std::printf("%.9g\n", secondsOfFrame(stream, std::atof(seconds)));
    arv_camera_stop_acquisition(camera, nullptr);
    g_object_unref(stream);
    g_object_unref(camera);
}

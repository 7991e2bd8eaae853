// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Memory, threads and files of a process that runs scripts for a long time. VISTREL_ENDURANCE
// multiplies how long that is; each test prints what it has found.
#include "HostedPlugin.h"
#include "ProcessFigures.h"

#include <QtCore/QDeadlineTimer>
#include <QtCore/QThread>
#include <QtWidgets/QApplication>

#include <gtest/gtest.h>

#include <sys/prctl.h>

#include <chrono>
#include <iostream>

namespace {

/// Bytes of an image's own record, which images do not give back.
constexpr double recordBytes = 32;
/// The interpreter and the C library take memory in steps of this size; some may fall into a test.
constexpr double slack = 3 << 20;
/// Threads that nobody waits for, such as those that let go of a camera, end within this.
constexpr std::chrono::seconds patience{60};

int times(int count)
{
    bool isNumber = false;
    const int factor = qEnvironmentVariableIntValue("VISTREL_ENDURANCE", &isNumber);
    return isNumber ? count * factor : count;
}

class Endurance : public testing::Test {
protected:
    void run(const QString& script)
    {
        plugin.run(script, [](const QString&, bool) {});
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    /// The figures when what was begun has ended: threads and files are no more than they were.
    static ProcessFigures figuresInTheEnd(const ProcessFigures& before)
    {
        for (const QDeadlineTimer limit(patience);; QThread::msleep(20)) {
            const ProcessFigures now = ProcessFigures::now();
            const bool isSettled = now.threads <= before.threads && now.files <= before.files;
            if (isSettled || limit.hasExpired())
                return now;
        }
    }

    /// Runs a script that makes `perRun` things so often, half as often before, and expects that
    /// nothing but `keptBytes` of each is kept.
    void expectToKeep(double keptBytes, const QString& script, int runs, int perRun)
    {
        for (int i = 0; i < runs / 2 + 1; ++i) // fills caches, and what grows to its size once
            run(script);
        const ProcessFigures before = ProcessFigures::now();
        for (int i = 0; i < runs; ++i)
            run(script);
        const ProcessFigures after = figuresInTheEnd(before);
        const double count = double{1} * runs * perRun;
        std::cout << count << " times: " << (after.bytes - before.bytes) / count
                  << " bytes each, threads " << before.threads << " -> " << after.threads
                  << ", files " << before.files << " -> " << after.files << '\n';
        EXPECT_LE(after.bytes - before.bytes, keptBytes * count + slack);
        EXPECT_LE(after.threads, before.threads);
        EXPECT_LE(after.files, before.files);
    }

    vistrel::HostApplication host;
    HostedPlugin plugin{host.environment()};
};

TEST_F(Endurance, RunsKeepNothing)
{
    expectToKeep(0, QStringLiteral("number = 1 + 1"), times(20'000), 1);
}

TEST_F(Endurance, RunsWithNamesFunctionsOutputAndErrorsThatAreCaughtKeepNothing)
{
    expectToKeep(0,
                 QStringLiteral("import json, vistrel\n"
                                "class Own: pass\n"
                                "def work(n): return [Own() for _ in range(n)]\n"
                                "print(len(work(20)), json.dumps([1, 2]))\n"
                                "try: vistrel.Image().crop(0, 0, 0, 0)\n"
                                "except SystemError: pass\n"),
                 times(2'000), 1);
}

TEST_F(Endurance, ImagesKeepTheirRecordAlone)
{
    expectToKeep(recordBytes,
                 QStringLiteral("import vistrel\n"
                                "for _ in range(10_000):\n"
                                "    image = vistrel.Image()\n"
                                "    image.alloc(64, 64, 1, 8)\n"),
                 times(10), 10'000);
}

TEST_F(Endurance, ChartsAndTheirPicturesKeepTheirRecordsAlone)
{
    // Two records: one of the chart, one of the picture.
    expectToKeep(2 * recordBytes,
                 QStringLiteral("import vistrel\n"
                                "for _ in range(20):\n"
                                "    graph, image = vistrel.Graph(), vistrel.Image()\n"
                                "    image.alloc(160, 120, 4, 8)\n"
                                "    series = graph.add_series()\n"
                                "    for x in range(50): graph.series_add_point(series, x, x * x)\n"
                                "    graph.draw_into_image(image)\n"),
                 times(10), 20);
}

TEST_F(Endurance, ViewsThatComeAndGoKeepNothingBesideTheRecordsOfTheirImages)
{
    expectToKeep(2 * recordBytes,
                 QStringLiteral("import vistrel\n"
                                "image = vistrel.Image()\n"
                                "image.alloc(64, 64, 3, 8)\n"
                                "view = vistrel.new_view_with_image(image)\n"
                                "vistrel.add_chain_object('Gaussian Blur', {'sigma': 2.0})\n"
                                "vistrel.set_view_image(image, view)\n"
                                "assert vistrel.get_view_image(view).width == 64\n"
                                "vistrel.set_global_variable_img('kept', image)\n"
                                "vistrel.close_view(view)\n"),
                 times(300), 1);
}

TEST_F(Endurance, FramesKeepTheRecordOfTheirImageAlone)
{
    QString error;
    ASSERT_TRUE(host.cameras().open(QStringLiteral("sim"), error)) << qPrintable(error);
    run(QStringLiteral("import sys, vistrel\n"
                       "camera = vistrel.Camera()\n"
                       "camera.open_device()\n"
                       "camera.set_roi(0, 0, 64, 64)\n"
                       "camera.set_framerate(camera.get_framerate_maximum())\n"
                       "sys.view = camera.start_acquisition()\n"));
    expectToKeep(recordBytes,
                 QStringLiteral("import sys, vistrel\n"
                                "for _ in range(500):\n"
                                "    assert vistrel.wait_for_next_frame(30.0, sys.view)\n"
                                "    vistrel.get_view_image(sys.view)\n"),
                 times(6), 500);
}

TEST_F(Endurance, StreamsThatStartAndStopKeepNothingBesideTheRecords)
{
    QString error;
    ASSERT_TRUE(host.cameras().open(QStringLiteral("sim"), error)) << qPrintable(error);
    expectToKeep(2 * recordBytes,
                 QStringLiteral("import vistrel\n"
                                "camera = vistrel.Camera()\n"
                                "camera.open_device()\n"
                                "camera.set_roi(0, 0, 64, 64)\n"
                                "view = camera.start_acquisition()\n"
                                "assert vistrel.wait_for_next_frame(30.0, view)\n"
                                "camera.stop_acquisition()\n"
                                "vistrel.close_view(view)\n"),
                 times(20), 1);
}

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    prctl(PR_SET_THP_DISABLE, 1, 0, 0,
          0); // the kernel would round memory up to 2 MiB when it likes
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}

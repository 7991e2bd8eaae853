// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What the viewer's window costs and how long it keeps its user waiting.
// Usage: benchmark_viewer SECONDS LINES
#include "viewer/window/Viewer.h"

#include "app/ImageView.h"
#include "app/MainWindow.h"
#include "viewer/scripts/EditorTabs.h"
#include "viewer/scripts/ScriptEditor.h"

#include <CxCameraParameters.h>

#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTextStream>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMdiArea>
#include <QtWidgets/QMdiSubWindow>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <ctime>
#include <thread>

namespace {

using namespace vistrel;
using Clock = std::chrono::steady_clock;

constexpr int side = 2048;
constexpr float pictureRate = 25.0F;
constexpr int rounds = 3;
constexpr int settlingMs = 500;
constexpr int drainingMs = 2000;   // the last lines are shown a thousand at a time
constexpr int patienceMs = 60'000; // on a machine that is busy with other things

[[noreturn]] void fail(const QString& reason)
{
    qCritical().noquote() << reason;
    std::exit(1);
}

void report(const char* name, double figure)
{
    QTextStream(stdout) << QStringLiteral("{\"name\": \"%1\", \"ours\": %2}\n")
                               .arg(QLatin1String(name))
                               .arg(figure);
}

double threadSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

void set(CxCameraParameters& parameters, const char* name, const CxValue& value)
{
    if (!parameters.setParamDirect(QLatin1String(name), value, nullptr,
                                   CxCameraParameters::NoRefresh))
        fail(QStringLiteral("the camera has no %1").arg(QLatin1String(name)));
}

void* openLargeCamera(CameraManager& cameras, const char* format)
{
    QString error;
    void* const camera = cameras.open(QString::fromLatin1(CameraManager::simulatedId), error);
    if (!camera)
        fail(error);
    CxCameraParameters& parameters = *cameras.cameraParameters(camera);
    set(parameters, "PixelFormat", CxValue::fromString(QString::fromLatin1(format)));
    set(parameters, "width", CxValue::fromInt(side));
    set(parameters, "height", CxValue::fromInt(side));
    set(parameters, "framerate", CxValue::fromFloat(pictureRate));
    return camera;
}

/// Counts how often something in a view is painted.
class PaintCounter : public QObject {
public:
    explicit PaintCounter(const ImageView& view)
        : m_view(view)
    {
        qApp->installEventFilter(this);
    }

    quint64 count() const { return m_count; }

    bool eventFilter(QObject* object, QEvent* event) override
    {
        auto* const widget = qobject_cast<QWidget*>(object);
        const bool isInView = widget && (widget == &m_view || m_view.isAncestorOf(widget));
        m_count += isInView && event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

private:
    const ImageView& m_view;
    quint64 m_count = 0;
};

/// The share of a core that the GUI thread needs for a live view in a window that is filled by it.
/// It is counted by pictures: a machine that is too busy for the full rate flatters nothing.
double shareOfLiveView(Viewer& viewer, const char* format, int milliseconds)
{
    AppDelegate& delegate = viewer.host().delegate();
    void* const camera = openLargeCamera(viewer.host().cameras(), format);
    if (!delegate.setCameraAcquisition(true, camera))
        fail(QStringLiteral("the camera does not start"));
    ImageView& view = *delegate.imageView(delegate.activeViewId());
    viewer.window().area()->activeSubWindow()->showMaximized();
    QTest::qWait(settlingMs);
    const PaintCounter paints(view);
    const quint64 picturesBefore = view.frameCount();
    const double before = threadSeconds();
    QTest::qWait(milliseconds);
    const auto shown = [&] { return std::min(view.frameCount() - picturesBefore, paints.count()); };
    if (!QTest::qWaitFor([&] { return shown() > 0; }, patienceMs))
        fail(QStringLiteral("no picture was painted"));
    const double used = threadSeconds() - before;
    const auto pictures = static_cast<double>(shown());
    viewer.host().cameras().close(camera);
    view.closeMdiView();
    return used / pictures * static_cast<double>(pictureRate);
}

/// Asks the GUI thread again and again for an answer, from a thread of its own.
class Asker {
public:
    Asker()
        : m_thread([this] { ask(); })
    {
    }
    ~Asker()
    {
        m_isOver = true;
        while (!m_hasEnded) // its last question wants an answer
            QCoreApplication::processEvents();
        m_thread.join();
    }

    double longestSeconds() const { return m_longest; }

private:
    void ask()
    {
        while (!m_isOver) {
            const auto start = Clock::now();
            QMetaObject::invokeMethod(
                qApp, [] {}, Qt::BlockingQueuedConnection);
            const std::chrono::duration<double> waited = Clock::now() - start;
            m_longest = std::max<double>(m_longest, waited.count());
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        m_hasEnded = true;
    }

    std::atomic<bool> m_isOver = false;
    std::atomic<bool> m_hasEnded = false;
    std::atomic<double> m_longest = 0.0;
    std::thread m_thread;
};

/// The longest that the window does not answer while a script prints lines and just afterwards.
double longestSilence(Viewer& viewer, int lines)
{
    viewer.scripts().tabs().current()->setText(
        QStringLiteral("for i in range(%1): print('line', i)").arg(lines));
    const Asker asker;
    viewer.scripts().runCurrent();
    QTest::qWait(drainingMs);
    const double longest = asker.longestSeconds();
    const QString last = QStringLiteral("line %1\n").arg(lines - 1);
    if (!QTest::qWaitFor([&] { return viewer.scripts().outputText().endsWith(last); }, patienceMs))
        fail(QStringLiteral("the output did not arrive: ") + viewer.scripts().errorText());
    return longest;
}

} // namespace

int main(int argc, char** argv)
{
    const QTemporaryDir settings; // the user's own stay as they are
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    QCoreApplication::setOrganizationName(QStringLiteral("vistrel-benchmark"));
    const QApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    Viewer viewer;
    QString error;
    if (!viewer.loadPlugin(QStringLiteral(VISTREL_PLUGIN_FILE), error))
        fail(error);
    viewer.show();
    viewer.window().resize(1600, 1000);
    double silence = longestSilence(viewer, arguments.at(2).toInt());
    for (int round = 1; round < rounds; ++round)
        silence = std::min(silence, longestSilence(viewer, arguments.at(2).toInt()));
    report("flood", silence);
    const int milliseconds = arguments.at(1).toInt() * 1000;
    report("live_view", shareOfLiveView(viewer, "Mono8", milliseconds));
    report("live_view_colours", shareOfLiveView(viewer, "RGB8", milliseconds));
    report("live_view_raw", shareOfLiveView(viewer, "BayerRG8", milliseconds));
}

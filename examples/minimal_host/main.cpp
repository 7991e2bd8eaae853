// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A host as small as one can be: minimal_host PLUGIN SCRIPT runs a script file, without any user
// interface, with one view that shows the picture that a script has put there. docs/host.md tells
// what each operation has to promise.
#include <CxImageData.h>
#include <CxScriptLangInterface.h>
#include <IxAppDelegate.h>
#include <IxScriptEnvironment.h>

// What IxAppDelegate::instance() returns; your application has its own way to say that.
#include <core/HostSingletons.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QEventLoop>
#include <QtCore/QFile>
#include <QtCore/QPluginLoader>
#include <QtCore/QThread>
#include <QtCore/QTimer>

#include <cstdio>
#include <memory>

namespace {

/// The services of a run.
class Environment : public IxScriptEnvironment {
public:
    QList<SxApiParamDef>& apiParamDefs() override { return m_texts; }
    QList<SxApiParamEnumVal>& apiParamEnumVals() override { return m_numbers; }
    bool isApiParamName(const QString&) override { return false; } // there are no cameras
    QString workingDirectory() override { return QDir::currentPath(); }
    QString resolvePath(const QString& path) override { return QDir().absoluteFilePath(path); }
    bool isGuiThread() override
    {
        return QThread::currentThread() == QCoreApplication::instance()->thread();
    }
    void addMenuItem(QMenu*, const QString&, const QString&, const QString&) override {}
    bool waitForNextFrame(CxMdiView*, double) override { return false; }
    void wait(double seconds) override
    {
        QEventLoop events;
        QTimer::singleShot(static_cast<int>(seconds * 1000), &events, &QEventLoop::quit);
        events.exec();
    }
    const char* functionHelp(const char*, const char*) override { return nullptr; }
    const char* methodHelp(const char*, const char*) override { return nullptr; }

private:
    QList<SxApiParamDef> m_texts{{"STATION", "minimal"}};
    QList<SxApiParamEnumVal> m_numbers{{"ANSWER", 42}};
};

/// The application: one view, number 0, once a picture has been put there.
class Application : public IxAppDelegate {
public:
    QWidget* mainWindow() override { return nullptr; }
    QMenu* menu(int) override { return nullptr; }
    void showNotification(const QString& text) override { qInfo("%s", qUtf8Printable(text)); }
    int activeViewId() override { return m_image ? 0 : -1; }
    void activateView(int) override {}
    void tileViews() override {}
    void setFullScreen(bool) override {}
    CxMdiView* view(int) override { return nullptr; }
    bool duplicateView(int) override { return false; }
    bool openFile(const QString&, bool) override { return false; }
    bool newViewWithImage(CxImageData* image, const QString&) override
    {
        m_image.reset(image); // on success the image is the host's
        return true;
    }
    void setViewImage(int id, CxImageData* image) override
    {
        std::unique_ptr<CxImageData> taken(image); // the host's in every case
        if (id == activeViewId())
            m_image.swap(taken);
    }
    CxImageData* viewImage(int id) override { return id == 0 ? m_image.get() : nullptr; }
    void playSound(const QString&) override {}
    bool setCameraAcquisition(bool, void*) override { return false; }
    void restartCameraWithDefaults(void*) override {}
    SxPicBuf* captureImageDialog(QWidget*, void*, const QString&, const QString&, bool, int*,
                                 int) override
    {
        return nullptr;
    }

private:
    std::unique_ptr<CxImageData> m_image;
};

void onOutput(const QString& text, bool)
{
    std::fputs(qUtf8Printable(text), stdout);
    std::fflush(stdout); // as it is written, not at the end
}

int failed(const QString& why)
{
    std::fprintf(stderr, "minimal_host: %s\n", qUtf8Printable(why));
    return 2;
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication qt(argc, argv);
    if (argc != 3)
        return failed("name the plugin file and a script");
    QFile script(QString::fromLocal8Bit(argv[2]));
    if (!script.open(QIODevice::ReadOnly))
        return failed(script.errorString());

    Application application;
    const vistrel::InstalledAppDelegate installed(application);
    Environment environment;

    QPluginLoader loader(QString::fromLocal8Bit(argv[1]));
    auto* loaded = qobject_cast<CxScriptLangInterface*>(loader.instance());
    // Deleted here, before the services that scripts use, which ends the interpreter.
    const std::unique_ptr<CxScriptLangInterface> plugin(loaded);
    if (!plugin || !plugin->init())
        return failed(loader.errorString());

    const QString errors = plugin->runScript(QString::fromUtf8(script.readAll()), &environment,
                                             QString(), nullptr, nullptr, onOutput);
    std::fputs(qUtf8Printable(errors), stderr);
    return errors.isEmpty() ? 0 : 1;
}

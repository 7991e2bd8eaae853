// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The base of all contract tests.
#include "PluginTest.h"

#include "core/HostSingletons.h"

#include <CxPicBufAPI.h>

#include <QtCore/QThread>
#include <QtWidgets/QApplication>

using testing::ReturnArg;
using testing::ReturnRef;

QString PluginTest::output;
QStringList PluginTest::pieces;
QStringList PluginTest::log;

PluginTest::PluginTest()
    : loader(QStringLiteral(VISTREL_PLUGIN_FILE))
{
    qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString& message) { log.append(message); });
    ON_CALL(environment, apiParamDefs()).WillByDefault(ReturnRef(stringConstants));
    ON_CALL(environment, apiParamEnumVals()).WillByDefault(ReturnRef(integerConstants));
    ON_CALL(environment, resolvePath).WillByDefault(ReturnArg<0>());
    ON_CALL(environment, isGuiThread()).WillByDefault([] {
        return QThread::currentThread() == QCoreApplication::instance()->thread();
    });
    ON_CALL(cameraManager, openedCameras()).WillByDefault([this] {
        QList<void*> handles;
        for (const auto& camera : cameras)
            handles.append(camera.get());
        return handles;
    });
    ON_CALL(cameraManager, cameraParameters).WillByDefault([this](void* handle) {
        for (const auto& camera : cameras) {
            if (camera.get() == handle)
                return &camera->parameters;
        }
        return static_cast<testing::NiceMock<MockCameraParameters>*>(nullptr);
    });
    vistrel::installAppDelegate(&delegate);
    vistrel::installCameraManager(&cameraManager);
    vistrel::installImageFormatManager(&formats);
    vistrel::installClassRegistry(&classes);
    vistrel::installChainManager(&chains);
    plugin = qobject_cast<CxScriptLangInterface*>(loader.instance());
    if (plugin == nullptr || !plugin->init())
        ADD_FAILURE() << "the plugin does not load: " << qPrintable(loader.errorString());
}

PluginTest::~PluginTest()
{
    destroyPlugin();
    vistrel::installAppDelegate(nullptr);
    vistrel::installCameraManager(nullptr);
    vistrel::installImageFormatManager(nullptr);
    vistrel::installClassRegistry(nullptr);
    vistrel::installChainManager(nullptr);
    qInstallMessageHandler(nullptr);
}

void PluginTest::destroyPlugin() { delete std::exchange(plugin, nullptr); }

QString PluginTest::run(const char* script)
{
    output.clear();
    pieces.clear();
    return plugin->runScript(QString::fromUtf8(script), &environment, QString(), nullptr, nullptr,
                             [](const QString& text, bool) {
                                 output += text;
                                 pieces.append(text);
                             });
}

QString PluginTest::value(const char* expression)
{
    const QString errors = run(("print(" + std::string(expression) + ", end='')").c_str());
    EXPECT_EQ(errors, QString()) << expression;
    return output;
}

QString PluginTest::error(const char* script)
{
    const QString errors = run(script).trimmed();
    return errors.section(QLatin1Char('\n'), -1);
}

void PluginTest::expectSilentNull(const char* script)
{
    // "an error" before Python 3.10, "an exception" since.
    const QString last = error(script);
    EXPECT_TRUE(last.startsWith(QLatin1String("SystemError: "))) << script << qPrintable(last);
    EXPECT_TRUE(last.contains(QLatin1String("returned NULL without setting an e")))
        << script << qPrintable(last);
}

QString PluginTest::errorOffGuiThread(const char* expression)
{
    const std::string script = "import threading\n"
                               "caught = []\n"
                               "def work():\n"
                               "    try:\n"
                               "        "
                               + std::string(expression)
                               + "\n"
                                 "    except BaseException as error:\n"
                                 "        caught.append(error)\n"
                                 "thread = threading.Thread(target=work)\n"
                                 "thread.start()\n"
                                 "thread.join()\n"
                                 "print(type(caught[0]).__name__, caught[0], sep=': ', end='')\n";
    EXPECT_EQ(run(script.c_str()), QString());
    return output;
}

FakeCamera& PluginTest::addCamera(const QString& name, const QString& serialNumber)
{
    FakeCamera& camera = *cameras.emplace_back(std::make_unique<FakeCamera>());
    camera.info.deviceName = name;
    camera.info.serialNumber = serialNumber;
    ON_CALL(camera.parameters, cameraInfo()).WillByDefault(ReturnRef(camera.info));
    return camera;
}

std::unique_ptr<CxImageData> makeImage(unsigned width, unsigned height, unsigned channels,
                                       ExImageDataType type, unsigned bpc)
{
    SxPicBuf buffer;
    CxPicBufAPI::AllocPicBufFromHeap(buffer, width, height, channels, type, 0, 0, bpc,
                                     ExDataStorageFormat::Interleaved, ExColorFilterArray::None,
                                     channels >= 3, true, 0);
    auto image = std::make_unique<CxImageData>();
    image->setPicBuf(buffer);
    return image;
}

int main(int argc, char** argv)
{
    testing::InitGoogleMock(&argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}

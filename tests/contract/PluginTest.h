// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The base of all contract tests: the plugin file that ships, loaded as a host loads it, over
// mocks.
#pragma once

#include "MockHost.h"
#include "QtPrinting.h"

#include <CxScriptLangInterface.h>

#include <QtCore/QPluginLoader>
#include <QtCore/QStringList>

#include <memory>

/// Cameras that the mock manager lists.
struct FakeCamera {
    SxCameraInfo info;
    testing::NiceMock<MockCameraParameters> parameters;
};

/// Every test is a process of its own, so each starts its own interpreter with its first run.
class PluginTest : public testing::Test {
protected:
    PluginTest();
    ~PluginTest() override;

    /// Runs a script as the host does. Its output is in `output` and `pieces`; the result is what
    /// it wrote to standard error.
    QString run(const char* script);
    /// What print(expression) writes, without the line end; a failure of the test on any error.
    QString value(const char* expression);
    /// The last line of the error that a script ends with.
    QString error(const char* script);
    /// The script ends in the interpreter's own report of a null result without an exception.
    void expectSilentNull(const char* script);
    /// What error() gives for an expression that runs on a Python thread of its own.
    QString errorOffGuiThread(const char* expression);

    /// Destroys the plugin object, which stops the interpreter.
    void destroyPlugin();

    /// Adds a camera to the list of opened ones; its address is its handle.
    FakeCamera& addCamera(const QString& name, const QString& serialNumber);

    testing::NiceMock<MockEnvironment> environment;
    testing::NiceMock<MockDelegate> delegate;
    testing::NiceMock<MockCameraManager> cameraManager;
    testing::NiceMock<MockFormatManager> formats;
    testing::NiceMock<MockClassRegistry> classes;
    testing::NiceMock<MockChainManager> chains;

    QList<IxScriptEnvironment::SxApiParamDef> stringConstants;
    QList<IxScriptEnvironment::SxApiParamEnumVal> integerConstants;
    std::vector<std::unique_ptr<FakeCamera>> cameras;

    QPluginLoader loader;
    CxScriptLangInterface* plugin = nullptr;
    static QString output;
    static QStringList pieces;
    static QStringList log; ///< what went to Qt's log
};

/// A cleared picture as the host makes it.
std::unique_ptr<CxImageData> makeImage(unsigned width, unsigned height, unsigned channels,
                                       ExImageDataType type, unsigned bpc);

// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Runs a script on a host whose camera answers at once: what is measured is the plugin.
// Usage: benchmark_camera SCRIPT
#include "HostedPlugin.h"

#include <CxCameraManager.h>
#include <CxCameraParameters.h>

#include <QtCore/QFile>
#include <QtWidgets/QApplication>

#include <cstdio>

namespace {

const QString gain = QStringLiteral("gain_db");

class Gain final : public CxCameraParam {
public:
    CxValue paramValue() override { return CxValue::fromFloat(3.0F); }
    CxValue minimum() override { return {}; }
    CxValue maximum() override { return {}; }
    CxValue increment() override { return {}; }
    bool isUnsupported() const override { return false; }
};

/// A camera with one parameter.
class Parameters final : public CxCameraParameters {
public:
    const SxCameraInfo& cameraInfo() const override { return m_info; }
    CxCameraParam* findParam(const QString& name, bool) override
    {
        return name == gain ? &m_gain : nullptr;
    }
    bool getParamDirect(const QString&, CxValue&, int*) override { return false; }
    bool setParamDirect(const QString&, const CxValue&, int*, ExCommitRefreshGuiMode) override
    {
        return true;
    }
    QRect currentROIRectParams() override { return {}; }
    void setROIRectParams(int, int, int, int, bool) override {}
    bool saveParamValuesToFile(const QString&, CxCameraParam::ExVisibility) override
    {
        return false;
    }
    bool loadParamValuesFromFile(const QString&, CxCameraParam::ExVisibility, QList<QString>*,
                                 bool) override
    {
        return false;
    }
    void notifyShadingChanged() override {}

private:
    SxCameraInfo m_info;
    Gain m_gain;
};

class Cameras final : public CxCameraManager {
public:
    QList<void*> openedCameras() override { return {&m_camera}; }
    unsigned openedCameraCount() override { return 1; }
    CxCameraParameters* cameraParameters(void* handle) override
    {
        return handle == &m_camera ? &m_camera : nullptr;
    }

private:
    Parameters m_camera;
};

class Environment final : public vistrel::ScriptEnvironment {
public:
    bool isApiParamName(const QString& name) override { return name == gain; }
};

QString textOf(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        fail(file.errorString());
    return QString::fromUtf8(file.readAll());
}

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const vistrel::HostApplication host;
    Cameras cameras;
    const vistrel::InstalledCameraManager installed(cameras);
    Environment environment;
    HostedPlugin plugin(environment);
    plugin.run(textOf(QCoreApplication::arguments().at(1)),
               [](const QString& text, bool) { std::fputs(qUtf8Printable(text), stdout); });
}

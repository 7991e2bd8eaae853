// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// An environment that does nothing, for tests that need one without caring which.
#pragma once

#include <IxScriptEnvironment.h>

/// Paths stay as they are, every thread is the GUI thread, there is no help.
class PlainEnvironment : public IxScriptEnvironment {
public:
    QList<SxApiParamDef>& apiParamDefs() override { return m_defs; }
    QList<SxApiParamEnumVal>& apiParamEnumVals() override { return m_values; }
    bool isApiParamName(const QString&) override { return false; }
    QString workingDirectory() override { return {}; }
    QString resolvePath(const QString& path) override { return path; }
    bool isGuiThread() override { return true; }
    void addMenuItem(QMenu*, const QString&, const QString&, const QString&) override {}
    bool waitForNextFrame(CxMdiView*, double) override { return false; }
    void wait(double) override {}
    const char* functionHelp(const char*, const char*) override { return nullptr; }
    const char* methodHelp(const char*, const char*) override { return nullptr; }

private:
    QList<SxApiParamDef> m_defs;
    QList<SxApiParamEnumVal> m_values;
};

// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// One call of the program: everything is made ready, then the scripts run.
#pragma once

#include "app/DialogAnswers.h"
#include "app/HostApplication.h"
#include "app/ScriptEngine.h"
#include "app/ScriptRuns.h"
#include "run/CommandLine.h"

#include <CxImageData.h>

#include <memory>
#include <vector>

namespace vistrel {

class Session {
public:
    /// Checks and opens all that the command line names. Throws UsageError.
    explicit Session(const CommandLine& commandLine);

    /// Runs the scripts, then what is to be chosen in the menu; whether nothing failed and none of
    /// them wrote to standard error.
    bool run();

private:
    struct NamedImage {
        QString name;
        std::unique_ptr<CxImageData> image;
    };

    void openCamera(const QString& id);
    void openFile(const QString& file);
    void loadImage(const QString& name, const QString& file);
    bool bindImages();
    bool runScript(const QString& script);
    void choose(const QString& entry);
    void finishRun(const QString& errors);

    std::vector<QString> m_scripts;
    QStringList m_chosenEntries;
    bool m_failed = false;
    HostApplication m_host;
    DialogAnswers m_answers;
    std::vector<NamedImage> m_images;
    ScriptEngine m_engine; // last but one: the interpreter ends before what it uses
    ScriptRuns m_runs{m_engine, m_host.environment()};
};

} // namespace vistrel

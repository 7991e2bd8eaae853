// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// vistrel-run: runs Python scripts in the reference host, without a screen.
#include "app/ScriptEngine.h"
#include "cameras/CameraManager.h"
#include "core/LongWork.h"
#include "run/CommandLine.h"
#include "run/ProcessSetup.h"
#include "run/Session.h"
#include "run/StandardStreams.h"
#include "run/UsageError.h"

#include <QtCore/QFile>
#include <QtWidgets/QApplication>

#include <algorithm>

namespace {

using namespace vistrel;

enum ExitStatus : int { Succeeded = 0, Failed = 1, WrongUsage = 2 };

void listCameras()
{
    for (const CameraListing& camera : CameraManager().discover()) {
        const QStringList fields = {camera.id, camera.vendor, camera.model, camera.serialNumber};
        writeOutput(fields.join(u'\t') + u'\n');
    }
}

void showVersion(const QString& pluginFile)
{
    writeOutput(QStringLiteral("vistrel-run %1\nQt %2\n")
                    .arg(QCoreApplication::applicationVersion(), QString::fromLatin1(qVersion())));
    ScriptEngine engine;
    QString error;
    if (!engine.load(pluginFile, error))
        throw UsageError(error);
    writeOutput(engine.languageVersion() + u'\n');
}

ExitStatus perform(const CommandLine& commandLine)
{
    switch (commandLine.task) {
    case CommandLine::Task::ShowHelp:
        writeOutput(CommandLine::helpText());
        return Succeeded;
    case CommandLine::Task::ShowVersion:
        showVersion(commandLine.plugin);
        return Succeeded;
    case CommandLine::Task::ListCameras:
        listCameras();
        return Succeeded;
    case CommandLine::Task::RunScripts:
        break;
    }
    return Session(commandLine).run() ? Succeeded : Failed;
}

ExitStatus perform(const QStringList& arguments)
{
    if (arguments.size() < 2) {
        writeError(CommandLine::shortText());
        return WrongUsage;
    }
    try {
        return perform(CommandLine::parse(arguments));
    } catch (const UsageError& error) {
        writeError(QStringLiteral("vistrel-run: ") + error.reason());
        return WrongUsage;
    } catch (const OutputFailure& failure) {
        reportOutputFailure(failure);
        return Failed;
    }
}

} // namespace

int main(int argc, char* argv[])
{
    setUpProcess();
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments.append(QFile::decodeName(argv[i]));
    // Qt would take options of its own away, --plugin among them: it sees the name only.
    int argumentsForQt = std::min(argc, 1);
    const QApplication application(argumentsForQt, argv);
    setUpNumbers();
    QCoreApplication::setApplicationName(QStringLiteral("vistrel-run"));
    QCoreApplication::setApplicationVersion(QStringLiteral(VISTREL_VERSION));
    // A script's last dialog must not end the event loops that later waits run.
    QGuiApplication::setQuitOnLastWindowClosed(false);
    LongWork::watch(showProgress);
    return perform(arguments);
}

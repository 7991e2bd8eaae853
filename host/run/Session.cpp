// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Preparation and runs.
#include "run/Session.h"

#include "app/ImageFile.h"
#include "app/MainWindow.h"
#include "app/ScriptMenu.h"
#include "run/ProcessSetup.h"
#include "run/ScriptSource.h"
#include "run/StandardStreams.h"
#include "run/UsageError.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtCore/QFileInfo>
#include <QtGui/QAction>
#include <QtWidgets/QMenu>

#include <chrono>
#include <utility>

namespace vistrel {

namespace {

/// What still plays after the last script is heard, unless it takes that long.
constexpr auto longestSound = std::chrono::seconds(10);

bool outputFailed = false;

/// Receives the scripts' output. The first failure is reported, and ends every run that writes.
void onOutput(const QString& text)
{
    try {
        writeOutput(text);
    } catch (const OutputFailure& failure) {
        if (!std::exchange(outputFailed, true))
            reportOutputFailure(failure);
        throw;
    }
}

std::vector<QString> readScripts(const QStringList& files)
{
    std::vector<QString> texts;
    for (const QString& file : files)
        texts.push_back(readScript(file));
    return texts;
}

/// The log says why a picture was not read, and names it.
[[noreturn]] void refusePicture(const KeptLog& log)
{
    throw UsageError(log.lines().join(QLatin1String("; ")));
}

/// What events and closed views have left behind.
void handlePendingEvents()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

Session::Session(const CommandLine& commandLine)
    : m_scripts(readScripts(commandLine.scripts))
    , m_chosenEntries(commandLine.chosenEntries)
    , m_answers(commandLine.answers)
{
    m_runs.setPythonHome(commandLine.pythonHome);
    m_runs.setOutput(onOutput);
    QObject::connect(&m_runs, &ScriptRuns::ended,
                     [this](const QString&, const QString& errors) { finishRun(errors); });
    QObject::connect(&m_runs, &ScriptRuns::refused, [this] { m_failed = true; });
    QString error;
    if (!m_engine.load(commandLine.plugin, error))
        throw UsageError(error);
    for (const auto& [name, file] : commandLine.images)
        loadImage(name, file);
    for (const QString& file : commandLine.openFiles)
        openFile(file);
    for (const QString& id : commandLine.cameras)
        openCamera(id);
    m_host.environment().setWorkingDirectory(commandLine.workingDirectory);
}

void Session::openCamera(const QString& id)
{
    QString error;
    if (!m_host.cameras().open(id, error))
        throw UsageError(error);
}

void Session::openFile(const QString& file)
{
    const KeptLog log;
    if (!m_host.delegate().openFile(QFileInfo(file).absoluteFilePath(), false))
        refusePicture(log);
}

void Session::loadImage(const QString& name, const QString& file)
{
    const KeptLog log;
    std::unique_ptr<CxImageData> image = readImageFile(QFileInfo(file).absoluteFilePath());
    if (!image)
        refusePicture(log);
    m_images.push_back({name, std::move(image)});
}

bool Session::run()
{
    if (!bindImages())
        return false;
    for (const QString& script : m_scripts)
        runScript(script);
    for (const QString& entry : m_chosenEntries)
        choose(entry);
    m_host.delegate().sounds().waitUntilSilent(longestSound);
    return !m_failed && !outputFailed;
}

bool Session::bindImages()
{
    if (m_images.empty())
        return true;
    // The interpreter, which takes the images, starts with the first run.
    if (!runScript(QString()))
        return false;
    for (const NamedImage& named : m_images)
        m_engine.addImage(named.name, *named.image);
    return true;
}

bool Session::runScript(const QString& script)
{
    const bool succeeded = m_runs.run(script);
    handlePendingEvents();
    return succeeded;
}

void Session::choose(const QString& entry)
{
    QAction* action = findScriptEntry(*m_host.delegate().menu(MainWindow::ScriptsMenu), entry);
    if (action) {
        action->trigger();
    } else {
        m_failed = true;
        writeError(QStringLiteral("vistrel-run: the script menu has no entry ") + entry);
    }
    handlePendingEvents();
}

void Session::finishRun(const QString& errors)
{
    m_failed = m_failed || !errors.isEmpty();
    if (!errors.isEmpty())
        writeError(errors);
    // The first thing that a newcomer's script meets.
    if (errors.contains(QLatin1String("Exception: Camera not "))
        && m_host.cameras().openedCameraCount() == 0)
        writeError(QStringLiteral("vistrel-run: no camera is open; open one with --camera ID, the "
                                  "simulated one with --camera sim"));
}

} // namespace vistrel

// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Options and what is wrong with them.
#include "run/CommandLine.h"

#include "run/UsageError.h"

#include <QtCore/QCommandLineParser>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QRegularExpression>

namespace vistrel {

namespace {

constexpr QLatin1String standardInput("-");

const QCommandLineOption openOption("open", "Open an image file in a view first (repeatable).",
                                    "FILE");
const QCommandLineOption cameraOption("camera",
                                      "Open a camera first (repeatable); \"sim\" is the simulated "
                                      "one.",
                                      "ID");
const QCommandLineOption listCamerasOption("list-cameras",
                                           "Print id, vendor, model and serial number of the "
                                           "cameras found, and exit.");
const QCommandLineOption imageOption("image", "Give scripts an image under a name (repeatable).",
                                     "NAME=FILE");
const QCommandLineOption answerOption("answer",
                                      "The next dialog's answer: the button to press or the line "
                                      "to enter (repeatable). A dialog without one is dismissed.",
                                      "TEXT");
const QCommandLineOption chooseOption("choose",
                                      "After the scripts, choose an entry that they have added to "
                                      "the menu: its title, or MENU/TITLE (repeatable).",
                                      "ENTRY");
const QCommandLineOption cwdOption("cwd",
                                   "Folder of relative paths in scripts (default: the first "
                                   "script's folder).",
                                   "DIR");
const QCommandLineOption pythonHomeOption("python-home", "Folder of the Python installation.",
                                          "DIR");
const QCommandLineOption pluginOption("plugin", "Another plugin binary.", "FILE");
const QCommandLineOption versionOption("version", "Print the versions, and exit.");
const QCommandLineOption helpOption({"h", "help"}, "Print this text, and exit.");

constexpr char examples[] = R"(
Examples:
  vistrel-run --camera sim capture.py
  vistrel-run --open board.png --image mask=mask.png --cwd results measure.py report.py
  vistrel-run --camera sim --answer 4711 --answer OK inspect.py
)";

constexpr char firstSteps[] = R"(Usage: vistrel-run [options] SCRIPT...

Runs Python scripts for cameras and images, without a screen.

Examples:
  vistrel-run --camera sim capture.py    # with the simulated camera
  vistrel-run --list-cameras             # what is connected

All options: vistrel-run --help
)";

void addOptions(QCommandLineParser& parser)
{
    parser.setApplicationDescription(
        "Runs Python scripts in the reference host, without a screen, one after the other.");
    parser.addOptions({openOption, cameraOption, listCamerasOption, imageOption, answerOption,
                       chooseOption, cwdOption, pythonHomeOption, pluginOption, versionOption,
                       helpOption});
    parser.addPositionalArgument("SCRIPT", "Python file; - reads standard input.", "SCRIPT...");
}

QString tr(const char* text) { return QCoreApplication::translate("CommandLine", text); }

QString existingFolder(const QString& path)
{
    if (!QFileInfo(path).isDir())
        throw UsageError(tr("there is no folder %1").arg(path));
    return QFileInfo(path).absoluteFilePath();
}

std::pair<QString, QString> namedImage(const QString& argument)
{
    static const QRegularExpression pattern(
        QStringLiteral("^([\\p{L}_][\\p{L}\\p{M}\\p{N}_]*)=(.+)$"),
        QRegularExpression::UseUnicodePropertiesOption
            | QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch match = pattern.match(argument);
    if (!match.hasMatch())
        throw UsageError(tr("--image takes NAME=FILE, not %1").arg(argument));
    return {match.captured(1), match.captured(2)};
}

CommandLine::Task taskOf(const QCommandLineParser& parser)
{
    if (parser.isSet(helpOption))
        return CommandLine::Task::ShowHelp;
    if (parser.isSet(versionOption))
        return CommandLine::Task::ShowVersion;
    if (parser.isSet(listCamerasOption))
        return CommandLine::Task::ListCameras;
    return CommandLine::Task::RunScripts;
}

QStringList scriptsOf(const QCommandLineParser& parser)
{
    QStringList scripts = parser.positionalArguments();
    if (scripts.isEmpty())
        throw UsageError(tr("no script was given"));
    if (scripts.count(standardInput) > 1)
        throw UsageError(tr("standard input can be read only once"));
    return scripts;
}

QString folderOf(const QString& script)
{
    return script == standardInput ? QDir::currentPath() : QFileInfo(script).absolutePath();
}

void checkPythonHome(const QString& home)
{
    // Python takes two folders too, separated by a colon.
    for (const QString& folder : home.split(u':', Qt::SkipEmptyParts))
        existingFolder(folder);
}

} // namespace

CommandLine CommandLine::parse(const QStringList& arguments)
{
    QCommandLineParser parser;
    addOptions(parser);
    if (!parser.parse(arguments))
        throw UsageError(parser.errorText());

    CommandLine result;
    result.task = taskOf(parser);
    result.plugin = parser.value(pluginOption);
    if (result.task != Task::RunScripts)
        return result;
    result.scripts = scriptsOf(parser);
    result.openFiles = parser.values(openOption);
    result.cameras = parser.values(cameraOption);
    for (const QString& image : parser.values(imageOption))
        result.images.append(namedImage(image));
    result.answers = parser.values(answerOption);
    result.chosenEntries = parser.values(chooseOption);
    result.workingDirectory = parser.isSet(cwdOption) ? existingFolder(parser.value(cwdOption))
                                                      : folderOf(result.scripts.constFirst());
    result.pythonHome = parser.value(pythonHomeOption);
    checkPythonHome(result.pythonHome);
    return result;
}

QString CommandLine::shortText() { return QString::fromLatin1(firstSteps); }

QString CommandLine::helpText()
{
    QCommandLineParser parser;
    addOptions(parser);
    return parser.helpText() + QString::fromLatin1(examples);
}

} // namespace vistrel

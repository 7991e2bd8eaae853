// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The command line of vistrel-run.
#pragma once

#include <QtCore/QList>
#include <QtCore/QStringList>

#include <utility>

namespace vistrel {

struct CommandLine {
    enum class Task { RunScripts, ListCameras, ShowVersion, ShowHelp };

    Task task = Task::RunScripts;
    QStringList scripts; ///< files; "-" is standard input
    QStringList openFiles;
    QStringList cameras;
    QList<std::pair<QString, QString>> images; ///< name and file
    QStringList answers;                       ///< of dialogs, in their order
    QStringList chosenEntries;                 ///< of the script menu
    QString workingDirectory;                  ///< absolute
    QString pythonHome;                        ///< empty: the interpreter's own
    QString plugin;                            ///< empty: the one beside the program

    /// Reads arguments, of which the first is the program's name. Throws UsageError.
    static CommandLine parse(const QStringList& arguments);
    /// What --help shows.
    static QString helpText();
    /// What a call without arguments shows: how it goes, in a few lines.
    static QString shortText();
};

} // namespace vistrel

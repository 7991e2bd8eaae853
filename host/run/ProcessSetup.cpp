// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Streams, locale, platform and log of the process.
#include "run/ProcessSetup.h"

#include "run/StandardStreams.h"

#include <QtCore/QMutex>
#include <QtCore/QtGlobal>

#include <fcntl.h>
#include <langinfo.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <clocale>
#include <cstring>
#include <optional>

namespace vistrel {

namespace {

QMutex keptLinesMutex;
std::optional<QStringList> keptLines;

bool keep(const QString& line)
{
    const QMutexLocker lock(&keptLinesMutex);
    if (keptLines)
        keptLines->append(line);
    return keptLines.has_value();
}

/// What Qt says where there is no desktop, and nobody here needs to know or is told better.
constexpr std::array noDesktopLines = {
    QLatin1String("PulseAudioService: pa_context_connect() failed"),
    QLatin1String("QStandardPaths: XDG_RUNTIME_DIR not set"),
    QLatin1String("This plugin does not support propagateSizeHints"),
};

bool isNoise(QtMsgType type, const QString& line)
{
    const auto startsLine = [&line](QLatin1String text) { return line.startsWith(text); };
    return type == QtDebugMsg
           || std::any_of(noDesktopLines.begin(), noDesktopLines.end(), startsLine);
}

void onLogLine(QtMsgType type, const QMessageLogContext&, const QString& line)
{
    if (!isNoise(type, line) && !keep(line))
        writeError(line);
}

/// A stream that was closed by the caller would give its number to the next file that is opened,
/// and output would go there. What is opened instead refuses to be written.
void occupyClosedStreams()
{
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(stream, F_GETFD) < 0)
            static_cast<void>(open("/dev/null", O_RDONLY));
    }
}

/// Qt takes file names and arguments for UTF-8, and grumbles when the locale says otherwise.
void useUtf8()
{
    std::setlocale(LC_ALL, "");
    if (std::strcmp(nl_langinfo(CODESET), "UTF-8") == 0)
        return;
    const bool allIsSet = !qEnvironmentVariableIsEmpty("LC_ALL");
    qputenv(allIsSet ? "LC_ALL" : "LC_CTYPE", "C.UTF-8");
}

} // namespace

void setUpProcess()
{
    occupyClosedStreams();
    useUtf8();
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(onLogLine);
}

void setUpNumbers() { std::setlocale(LC_NUMERIC, "C"); }

KeptLog::KeptLog()
    : m_standardError(fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 0))
{
    const QMutexLocker lock(&keptLinesMutex);
    keptLines.emplace();
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    dup2(nowhere, STDERR_FILENO);
    close(nowhere);
}

KeptLog::~KeptLog()
{
    const QMutexLocker lock(&keptLinesMutex);
    keptLines.reset();
    dup2(m_standardError, STDERR_FILENO);
    close(m_standardError);
}

QStringList KeptLog::lines() const
{
    const QMutexLocker lock(&keptLinesMutex);
    return keptLines.value_or(QStringList());
}

} // namespace vistrel

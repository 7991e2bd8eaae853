// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// System calls under the standard streams.
#include "run/StandardStreams.h"

#include "app/InterruptWatch.h"

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstring>

namespace vistrel {

namespace {

/// Waits for the stream's reader; false when the user interrupted it.
bool waitUntilWritable(int descriptor)
{
    std::array<pollfd, 2> waited{{{descriptor, POLLOUT, 0}, {-1, POLLIN, 0}}};
    if (poll(waited.data(), 1, 0) != 0)
        return true; // writable, or broken: then writing says how
    const InterruptWatch interrupts;
    waited[1].fd = interrupts.descriptor();
    while (poll(waited.data(), waited.size(), -1) < 0 && errno == EINTR) {
    }
    return waited[1].revents == 0;
}

/// Writes as much as goes without waiting: a pipe that is writable takes that many bytes.
ssize_t writePiece(int descriptor, const char* bytes, qsizetype size)
{
    return write(descriptor, bytes, std::min<std::size_t>(PIPE_BUF, std::size_t(size)));
}

std::atomic<bool> progressIsShown{false};

bool canShowProgress()
{
    static const bool can = isatty(STDERR_FILENO) != 0 && qgetenv("TERM") != "dumb"
                            && !qEnvironmentVariableIsEmpty("TERM");
    return can;
}

/// Back to the line's beginning, and nothing in it.
constexpr char clearLine[] = "\r\033[K";

bool mayBeTriedAgain(int error) { return error == EINTR || error == EAGAIN; }

/// Returns 0 or the system's error number.
int writeAll(int descriptor, const QByteArray& bytes)
{
    qsizetype done = 0;
    while (done < bytes.size() && waitUntilWritable(descriptor)) {
        const ssize_t written =
            writePiece(descriptor, bytes.constData() + done, bytes.size() - done);
        if (written < 0 && !mayBeTriedAgain(errno))
            return errno;
        done += std::max<ssize_t>(written, 0);
    }
    return 0;
}

void clearProgress()
{
    if (progressIsShown.exchange(false))
        writeAll(STDERR_FILENO, clearLine);
}

} // namespace

void showProgress(const QString& text)
{
    if (!canShowProgress())
        return;
    clearProgress();
    if (text.isEmpty())
        return;
    writeAll(STDERR_FILENO, text.toUtf8() + " ...");
    progressIsShown = true;
}

void writeOutput(const QString& text)
{
    clearProgress();
    const int error = writeAll(STDOUT_FILENO, text.toUtf8());
    if (error != 0)
        throw OutputFailure(std::strerror(error));
}

void writeError(const QString& text)
{
    clearProgress();
    const QByteArray bytes = text.toUtf8();
    writeAll(STDERR_FILENO, bytes.endsWith('\n') ? bytes : bytes + '\n');
}

void reportOutputFailure(const OutputFailure& failure)
{
    writeError(QStringLiteral("vistrel-run: cannot write standard output: ")
               + QString::fromUtf8(failure.what()));
}

} // namespace vistrel

// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Prints the bytes that a run leaves behind, as one JSON line for each kind of run.
// Usage: benchmark_memory RUNS
#include "HostedPlugin.h"

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>
#include <QtCore/QTextStream>
#include <QtWidgets/QApplication>

namespace {

/// Bytes of the process that are backed by no file. Taken from the page tables: the counters of
/// getrusage() lag behind by more than what is looked for here.
double anonymousBytes()
{
    QFile file(QStringLiteral("/proc/self/smaps_rollup"));
    if (!file.open(QIODevice::ReadOnly))
        fail(file.errorString());
    static const QRegularExpression pattern(QStringLiteral("Anonymous: +(\\d+) kB"));
    const QRegularExpressionMatch match = pattern.match(QString::fromLatin1(file.readAll()));
    if (!match.hasMatch())
        fail(QStringLiteral("the kernel does not tell the process's anonymous memory"));
    return match.captured(1).toDouble() * 1024;
}

void repeat(HostedPlugin& plugin, const QString& script, int runs)
{
    for (int i = 0; i < runs; ++i)
        plugin.run(script, [](const QString&, bool) {});
}

double growthOfARun(HostedPlugin& plugin, const QString& script, int runs)
{
    // Fills caches and lets the interpreter's table of names reach its size, which takes thousands.
    repeat(plugin, script, runs);
    const double before = anonymousBytes();
    repeat(plugin, script, runs);
    return (anonymousBytes() - before) / runs;
}

/// Bytes of an image's own record, which images do not give back.
constexpr double recordSize = 32;

} // namespace

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const int runs = QCoreApplication::arguments().at(1).toInt();
    vistrel::HostApplication host;
    HostedPlugin plugin(host.environment());
    const double plain = growthOfARun(plugin, QStringLiteral("number = 1 + 1"), runs);
    const double making = growthOfARun(
        plugin, QStringLiteral("import vistrel\nimg = vistrel.Image()\nimg.alloc(64, 64, 1, 8)"),
        runs);
    QTextStream(stdout) << QStringLiteral("{\"name\": \"growth_plain\", \"ours\": %1}\n").arg(plain)
                        << QStringLiteral(
                               "{\"name\": \"growth_image\", \"ours\": %1, \"theirs\": %2}\n")
                               .arg(making)
                               .arg(recordSize);
}

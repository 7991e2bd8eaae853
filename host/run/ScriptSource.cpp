// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Reads and checks script texts.
#include "run/ScriptSource.h"

#include "run/UsageError.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QStringDecoder>

#include <unistd.h>

namespace vistrel {

namespace {

QString tr(const char* text) { return QCoreApplication::translate("ScriptSource", text); }

[[noreturn]] void refuse(const QString& name, const QString& reason)
{
    throw UsageError(tr("cannot read script %1: %2").arg(name, reason));
}

QByteArray readAll(QFile& file, const QString& name)
{
    QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        refuse(name, file.errorString());
    return bytes;
}

QByteArray readFile(const QString& name)
{
    if (name.isEmpty())
        throw UsageError(tr("the name of a script is empty"));
    if (QFileInfo(name).isDir())
        refuse(name, tr("it is a folder"));
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        refuse(name, file.errorString());
    return readAll(file, name);
}

QByteArray readStandardInput(const QString& name)
{
    QFile file;
    if (!file.open(STDIN_FILENO, QIODevice::ReadOnly | QIODevice::Unbuffered))
        refuse(name, file.errorString());
    return readAll(file, name);
}

} // namespace

QString readScript(const QString& file)
{
    const bool isInput = file == QLatin1String("-");
    const QString name = isInput ? tr("from standard input") : file;
    const QByteArray bytes = isInput ? readStandardInput(name) : readFile(name);
    if (bytes.contains('\0'))
        refuse(name, tr("it holds NUL bytes"));

    QStringDecoder decode(QStringDecoder::Utf8); // leaves a byte order mark out
    QString text = decode(bytes);
    if (decode.hasError())
        refuse(name, tr("it is not UTF-8"));
    return text;
}

} // namespace vistrel

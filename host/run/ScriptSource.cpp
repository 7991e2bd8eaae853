// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Where a script's text comes from.
#include "run/ScriptSource.h"

#include "app/ScriptFile.h"
#include "run/UsageError.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>

#include <unistd.h>

namespace vistrel {

namespace {

QString tr(const char* text) { return QCoreApplication::translate("ScriptSource", text); }

std::optional<QString> readStandardInput(QString& error)
{
    QFile file;
    const bool isOpen = file.open(STDIN_FILENO, QIODevice::ReadOnly | QIODevice::Unbuffered);
    const QByteArray bytes = isOpen ? file.readAll() : QByteArray();
    if (file.error() == QFileDevice::NoError)
        return scriptText(bytes, error);
    error = file.errorString();
    return {};
}

} // namespace

QString readScript(const QString& file)
{
    if (file.isEmpty())
        throw UsageError(tr("the name of a script is empty"));
    const bool isInput = file == QLatin1String("-");
    const QString name = isInput ? tr("from standard input") : file;
    QString error;
    const std::optional<QString> text =
        isInput ? readStandardInput(error) : readScriptFile(file, error);
    if (!text)
        throw UsageError(tr("cannot read script %1: %2").arg(name, error));
    return *text;
}

} // namespace vistrel

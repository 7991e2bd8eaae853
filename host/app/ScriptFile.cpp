// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Reads and checks script texts.
#include "app/ScriptFile.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QObject>
#include <QtCore/QStringDecoder>

namespace vistrel {

std::optional<QString> readScriptFile(const QString& path, QString& error)
{
    if (QFileInfo(path).isDir()) {
        error = QObject::tr("it is a folder");
        return {};
    }
    QFile file(path);
    const QByteArray bytes = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    if (file.error() != QFileDevice::NoError) {
        error = file.errorString();
        return {};
    }
    return scriptText(bytes, error);
}

std::optional<QString> scriptText(const QByteArray& bytes, QString& error)
{
    if (bytes.contains('\0')) {
        error = QObject::tr("it holds NUL bytes");
        return {};
    }
    QStringDecoder decode(QStringDecoder::Utf8); // leaves a byte order mark out
    QString text = decode(bytes);
    if (decode.hasError()) {
        error = QObject::tr("it is not UTF-8");
        return {};
    }
    return text;
}

} // namespace vistrel

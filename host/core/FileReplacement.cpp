// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Files that are written as a whole or not at all.
#include "core/FileReplacement.h"

#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>

namespace vistrel {

namespace {

/// A full disk may take a part: only the next attempt says why it takes no more.
bool writeAll(QFileDevice& file, const QByteArray& bytes)
{
    for (qsizetype done = 0; done < bytes.size();) {
        const qint64 written = file.write(bytes.constData() + done, bytes.size() - done);
        if (written <= 0)
            return false;
        done += written;
    }
    return true;
}

} // namespace

bool isNoFile(const QString& path, QString& error)
{
    const QFileInfo existing(path);
    const bool isElse = existing.exists() && !existing.isFile();
    if (isElse)
        error = QStringLiteral("there is something of that name that is no file");
    return isElse;
}

bool replaceFile(const QString& path, const QByteArray& bytes, QString& error)
{
    if (isNoFile(path, error))
        return false;
    QSaveFile file(path);
    // Without a buffer: commit() does not see that one could not be written, and would put an empty
    // file in the old one's place.
    if (file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && writeAll(file, bytes)
        && file.commit())
        return true;
    error = file.errorString();
    return false;
}

} // namespace vistrel

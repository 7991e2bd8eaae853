// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Which Python the plugin runs under.
#include "PythonVersion.h"

#include "PythonApi.h"

#include <QtCore/QVersionNumber>

namespace python {

namespace {

QVersionNumber runningVersion()
{
    return QVersionNumber::fromString(QString::fromUtf8(Py_GetVersion()));
}

} // namespace

bool isAtLeast(int major, int minor)
{
    static const QVersionNumber version = runningVersion();
    return version >= QVersionNumber(major, minor);
}

QString versionOfLibraryFolder()
{
    const QVersionNumber version = runningVersion();
    return QStringLiteral("%1.%2").arg(version.majorVersion()).arg(version.minorVersion());
}

QString languageVersionOf(const char* versionText)
{
    const QString text = QString::fromUtf8(versionText);
    const qsizetype blank = text.indexOf(QLatin1Char(' '));
    return QStringLiteral("Python ") + (blank > 0 ? text.left(blank) : text);
}

} // namespace python

// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Versions as the libraries themselves give them.
#include "viewer/window/AboutText.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QStringList>
#include <QtCore/QtGlobal>

#include <Qsci/qsciglobal.h>
#include <arv.h>
#include <opencv2/core/utility.hpp>

namespace vistrel {

QString aboutText(const QString& languageVersion)
{
    const QString aravis = QStringLiteral("Aravis %1.%2.%3")
                               .arg(arv_get_major_version())
                               .arg(arv_get_minor_version())
                               .arg(arv_get_micro_version());
    const QStringList lines = {
        QStringLiteral("vistrel-viewer ") + QCoreApplication::applicationVersion(),
        languageVersion,
        QStringLiteral("Qt ") + QString::fromLatin1(qVersion()),
        QStringLiteral("OpenCV ") + QString::fromStdString(cv::getVersionString()),
        aravis,
        QStringLiteral("QScintilla ") + QStringLiteral(QSCINTILLA_VERSION_STR),
    };
    return lines.join(u'\n');
}

} // namespace vistrel

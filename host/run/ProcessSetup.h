// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What has to be right in the process before and around Qt.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QtGlobal>

namespace vistrel {

/// Before QApplication: standard streams that are there, UTF-8 in every locale, a platform that
/// needs no screen, log lines on standard error.
void setUpProcess();
/// After QApplication, which sets the locale: numbers keep their point.
void setUpNumbers();

/// Keeps log lines back while it lives, for a message that names the reason itself. What libraries
/// write straight to standard error meanwhile is dropped: image codecs complain there in words of
/// their own. One at a time.
class KeptLog {
public:
    KeptLog();
    ~KeptLog();
    Q_DISABLE_COPY_MOVE(KeptLog)

    /// The lines so far; any thread may have written them.
    QStringList lines() const;

private:
    const int m_standardError; // where standard error went before
};

} // namespace vistrel

// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Why the program cannot do what its command line asks for.
#pragma once

#include <QtCore/QString>

#include <exception>

namespace vistrel {

/// Thrown before the first script runs, shown in one line. Ends the program with status 2.
class UsageError : public std::exception {
public:
    explicit UsageError(const QString& reason)
        : m_reason(reason)
    {
    }
    const QString& reason() const { return m_reason; }
    const char* what() const noexcept override { return "wrong usage"; }

private:
    QString m_reason;
};

} // namespace vistrel

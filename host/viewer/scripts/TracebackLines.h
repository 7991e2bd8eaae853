// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Which lines of a script an error text speaks of.
#pragma once

#include <QtCore/QString>

#include <optional>

namespace vistrel {

/// A place in a source text.
struct SourcePlace {
    QString file; ///< "<string>" for the script that ran, else a path
    int line;     ///< counted from 1

    bool isScript() const { return file == QLatin1String("<string>"); }
    bool operator==(const SourcePlace&) const = default;
};

/// The place that a line of a traceback names (`File "<string>", line 3, in f`), if it names one.
std::optional<SourcePlace> sourcePlaceOf(const QString& line);

/// The place in the script that ran where the error is: the last one that the text names.
std::optional<SourcePlace> errorPlaceOf(const QString& errors);

} // namespace vistrel

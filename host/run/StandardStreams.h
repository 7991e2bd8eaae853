// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Standard output and error of the program: UTF-8, every piece at once, no buffer in between.
#pragma once

#include <QtCore/QString>

#include <stdexcept>

namespace vistrel {

/// Standard output cannot be written (a full disk, a closed pipe); what() says why.
class OutputFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Writes a text to standard output. Throws OutputFailure. When the user interrupts the program
/// while the reader makes it wait, what is left of the text is dropped: the script goes on to its
/// KeyboardInterrupt.
void writeOutput(const QString& text);

/// Writes a text to standard error and ends it with a new line if it has none. There is nobody left
/// to tell when that fails.
void writeError(const QString& text);

/// Shows a passing line on standard error when that is a terminal that can; an empty text takes it
/// away, and so does whatever is written next.
void showProgress(const QString& text);

/// Says on standard error why output failed.
void reportOutputFailure(const OutputFailure& failure);

} // namespace vistrel

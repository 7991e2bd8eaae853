// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Starts the embedded interpreter.
#pragma once

#include <QtCore/QString>

class IxScriptEnvironment;

namespace interpreter {

/// Why the interpreter cannot be started with a Python home, as a text for the user; empty when it
/// can. Py_Initialize ends the whole process when it finds no standard library, so look first.
/// @param pythonHome  as runScript gets it; empty: $PYTHONHOME, when it is set, is looked at.
QString reasonNotToStart(const QString& pythonHome);

/// Starts the interpreter with the built-in modules `emb` and `vistrel`, publishes the
/// environment's constants in `__main__` and imports both modules. Its output is not captured.
/// An interpreter that runs already is used as it is.
/// @param owner  who may stop it.
void start(const QString& pythonHome, IxScriptEnvironment& env, const void* owner);

/// Stops the interpreter if it was started for that owner.
void stop(const void* owner);

/// Whether it runs.
bool isRunning();

} // namespace interpreter

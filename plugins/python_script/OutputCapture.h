// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The built-in module `emb`: an object that stands in for sys.stdout and sys.stderr during a run.
#pragma once

#include "PythonApi.h"

#include <functional>
#include <string>

/// Every text that a script writes to a redirected stream goes to that stream's sink. All functions
/// need the interpreter lock; a stream has at most one redirection at a time.
///
/// A sink may throw: the exception is kept, the script is ended with a SystemExit, every later
/// write of the run fails the same way, and the runner throws it anew once the interpreter's frames
/// are gone. Exceptions that cross these frames would leave the interpreter broken.
namespace emb {

using Sink = std::function<void(std::string)>;

/// The module's initialiser for PyImport_AppendInittab.
PyObject* PyInit_emb();

/// Redirects a stream to a sink, or gives a redirected one another sink. Does nothing when the
/// module could not be initialised.
void set_stdout(Sink sink);
void set_stderr(Sink sink);

/// Puts the stream back that was there before the first redirection; does nothing without one.
void reset_stdout();
void reset_stderr();

/// Whether a sink threw in this run; sets the SystemExit of its writes then.
bool raiseSinkFailure();

/// Throws what a sink threw, once; returns when none did.
void rethrowSinkFailure();

} // namespace emb

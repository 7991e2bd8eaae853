// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Memory that fails on demand: the test program's own operator new comes before that of the
// library, and Python's allocators are wrapped.
#pragma once

namespace failing_memory {

enum class Kind { Cpp, Python };

/// Lets one allocation on this thread fail, once: that after so many more of its kind. Python's
/// allocators can be asked from the first run on.
void arm(Kind kind, int successes);

/// Whether it has failed since. From then on all succeed.
bool disarm();

} // namespace failing_memory

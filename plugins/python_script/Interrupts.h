// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Ctrl-C while a script waits in the host.
#pragma once

namespace python {

/// Whether no Ctrl-C is pending; when one is, its error is set. Looked at right before a wait: the
/// interpreter would look only after it, and the host cannot see an interrupt that came before.
bool isUninterrupted();

} // namespace python

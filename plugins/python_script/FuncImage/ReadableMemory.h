// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Asks the system whether memory can be read: an address that a script has given may lead anywhere.
#pragma once

#include <QtGlobal>

namespace readable_memory {

/// Whether the process can read all of the `size` bytes, at least one, from an address on; costs
/// half a microsecond a page. True where the system does not tell.
bool isReadable(quintptr begin, quint64 size);

/// The same for the first and the last byte only, in two microseconds.
bool hasReadableEnds(quintptr begin, quint64 size);

} // namespace readable_memory

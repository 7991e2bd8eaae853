// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Copying rectangles whose corners are 64 bits wide.
#pragma once

#include "core/PixelRect.h"

#include <SxPicBuf.h>

namespace vistrel {

/// Copies what lies inside both pictures of the rectangle `from`, moved by (dx, dy). The pictures
/// have the same pixels and may be one. Returns false when nothing is left.
bool copyClipped(const SxPicBuf& target, const SxPicBuf& source, const PixelRect& from, qint64 dx,
                 qint64 dy);

} // namespace vistrel

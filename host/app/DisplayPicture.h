// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Turns a picture of any depth into what a screen can show.
#pragma once

#include "core/ValueRange.h"

#include <QtGui/QImage>

namespace vistrel {

/// An 8-bit copy of a part of a picture. Any thread.
/// @param pixels   the part; what lies outside the picture is left out. The colours at the edges of
///                 raw pictures are right where the part begins at even pixels, but for the
///                 outermost two.
/// @param largest  size of the copy where the part is larger than that; pixels are averaged then.
/// @return a null image when nothing is left of the part, or when there is no memory.
QImage displayPicture(const SxPicBuf& buffer, const ValueRange& range, const QRect& pixels,
                      const QSize& largest);

} // namespace vistrel

// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// New pictures that are derived from others, by the host's pixel operations. Free of Python.
#pragma once

#include "FuncImage/ImageCopies.h"

struct SxPicBuf;

namespace image_conversions {

using image_copies::NewImage;

/// 8-bit red, green, blue, alpha.
NewImage toRgb(const SxPicBuf& source);
/// One channel, of the same type and depth. Refused for a channel that is not there.
NewImage channelOf(const SxPicBuf& source, int channel);
/// Another number of significant bits, 1 to 32, in the smallest unsigned type that holds them; with
/// `scale` full scale stays full scale. Refused when a value does not fit.
NewImage withBpc(const SxPicBuf& source, int bpc, bool scale);
/// A rectangle; what lies outside the source stays black.
NewImage cropped(const SxPicBuf& source, int x, int y, int w, int h);
/// A rectangle of the source, scaled to another size. A w or h of 0 is the whole width or height.
NewImage resized(const SxPicBuf& source, int newWidth, int newHeight, int x, int y, int w, int h);

} // namespace image_conversions

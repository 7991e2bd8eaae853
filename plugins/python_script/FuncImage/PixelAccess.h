// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Single channel values of a picture and lines of one channel value, free of Python.
#pragma once

#include "Refusal.h"

struct SxPicBuf;

/// Element types with pixels that can be written: unsigned 8 and 16 bit, signed and unsigned 32
/// bit. Others read as 0 and are left unwritten.

/// Stores a channel value, cut to the element's width. No range check.
void fx_setPicPixelValue(SxPicBuf& buffer, int x, int y, int channel, long long value);

/// Draws the line from (x1, y1) to (x2, y2) with both ends. No range check.
void fx_drawPicPixelLine(SxPicBuf& buffer, int x1, int y1, int x2, int y2, int channel,
                         long long value);

namespace pixel_access {

/// A channel value.
long long valueAt(const SxPicBuf& buffer, int x, int y, int channel);

/// Draws the outline of the rectangle with these two corners. No range check.
void drawRect(SxPicBuf& buffer, int x1, int y1, int x2, int y2, int channel, long long value);

/// The error of the first coordinate that lies outside the picture; null when none does.
const char* rangeError(const SxPicBuf& buffer, int x, int y, int channel);
const char* rangeError(const SxPicBuf& buffer, int x1, int y1, int x2, int y2, int channel);

} // namespace pixel_access

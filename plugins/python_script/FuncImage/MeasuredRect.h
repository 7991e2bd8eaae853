// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The rectangle that a measurement's arguments stand for.
#pragma once

#include <SxPicBufInfo.h>

#include <QtCore/QRect>

/// x and y are the top-left pixel. A width or height below 1 reaches to the picture's right or
/// bottom edge. Nothing is clipped: the host decides about rectangles outside the picture.
QRect measuredRect(const SxPicBufInfo& info, int x, int y, int w, int h);

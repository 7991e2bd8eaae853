// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A pixel's values for people.
#pragma once

#include <QtCore/QPoint>
#include <QtCore/QString>

struct SxPicBuf;

namespace vistrel {

/// Place and values of all channels of a pixel as they are stored, "x 3, y 4: 4095" or "x 3, y 4:
/// R 10, G 20, B 30"; an empty text outside the picture. The red, green and blue parts of packed
/// pictures are given in their own depth.
QString pixelText(const SxPicBuf& buffer, const QPoint& pixel);

} // namespace vistrel

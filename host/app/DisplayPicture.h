// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Turns a picture of any depth into what a screen can show.
#pragma once

#include <QtGui/QImage>

struct SxPicBuf;

namespace vistrel {

/// An 8-bit copy of a picture, black to full scale of its significant bits; a null image when the
/// buffer has no pixels or there is no memory for the copy. Any thread.
QImage displayPicture(const SxPicBuf& buffer);

} // namespace vistrel

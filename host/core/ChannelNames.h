// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What people call the channels of a picture.
#pragma once

#include <SxPicBuf.h>

#include <QtCore/QList>
#include <QtCore/QString>

namespace vistrel {

/// A name for each channel, in the channels' order: "Mono", or "Red", "Green", "Blue" (, "Alpha"),
/// or numbers. A packed picture has red, green and blue.
QList<QString> channelNames(const SxPicBuf& buffer);

} // namespace vistrel

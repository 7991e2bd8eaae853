// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Error texts of the image object.
#pragma once

namespace image_messages {

inline constexpr char emptyObject[] = "Vistrel image object is empty";
inline constexpr char notAnImage[] = "the object passed is not a vistrel.Image";
inline constexpr char argumentOutOfRange[] = "argument out of range";
inline constexpr char bitsOutOfRange[] = "number of bits out of range";
inline constexpr char channelOutOfRange[] = "channel number out of range";
inline constexpr char outOfMemory[] = "cannot allocate new image, out of memory";
inline constexpr char cannotAllocate[] = "Cannot allocate image";
inline constexpr char cannotOpenFile[] = "cannot open file";

} // namespace image_messages

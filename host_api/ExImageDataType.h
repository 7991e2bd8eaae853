// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Element types, storage formats and colour filter patterns of pixel data.
#pragma once

#include <QtCore/QtGlobal>

/// Type of one channel value. The numbers are part of the binary interface.
enum class ExImageDataType : quint32 {
    None = 0,
    Int8 = 1,
    UInt8 = 2,
    Int16 = 3,
    UInt16 = 4,
    Int32 = 5,
    UInt32 = 6,
    Int64 = 7,
    UInt64 = 8,
    Float = 9,
    Double = 10,
    Packed565 = 11, ///< one 16-bit word a pixel: 5 bits, 6 bits, 5 bits
};

/// How pixels lie in memory.
enum class ExDataStorageFormat : quint32 {
    Unknown = 0,
    Interleaved = 1, ///< all channels of a pixel side by side, the only one in use
};

/// Colour filter of raw sensor data: the two first pixels of the first line, then of the second.
/// GenICam's PixelFormat names the same four patterns.
enum class ExColorFilterArray : quint32 {
    None = 0,
    RGGB = 1,
    GRBG = 2,
    GBRG = 3,
    BGGR = 4,
};

// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A picture buffer: geometry, pixel memory and the metadata of the frame.
#pragma once

#include "SxPicBufInfo.h"

/// A plain record: copying it copies the pointer, not the pixels, and destroying it frees nothing.
/// Memory comes from CxPicBufAPI and goes back there, or to the CxImageData that took it over.
/// The field order and widths are part of the binary interface.
struct SxPicBuf : SxPicBufInfo {
    SxPicBuf();

    quint8* data = nullptr; ///< first byte of the first line; null: no pixel memory

    void* allocation = nullptr; ///< what the host's heap gave; null for foreign memory
    quint64 allocatedBytes = 0; ///< size of that block
    qint32 acqFrameNumber = 0;  ///< number that the camera gave the frame
    qint64 timestampUs = 0;     ///< microseconds on the camera's clock
    qint32 frameNumber = 0;     ///< number within the host's stream, from 0
    float saturation = 0.0F;    ///< value of a saturated pixel, for floating-point data

    /// Bytes of the pixel memory: stride times height, 0 without memory.
    quint64 dataSize() const;
};

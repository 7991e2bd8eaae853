// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Turns what came over the wire into a picture buffer and an acquisition record.
#pragma once

#include <SxPicBuf.h>

#include <arv.h>

#include <cstddef>
#include <optional>

namespace vistrel {

/// A frame in memory that belongs to somebody else.
struct RawFrame {
    ArvPixelFormat pixelFormat = 0;
    quint32 width = 0;
    quint32 height = 0;
    std::size_t linePadding = 0; ///< bytes behind each line
    const void* data = nullptr;
    std::size_t size = 0; ///< bytes at `data`
};

/// Looks into a finished buffer, which keeps the pixels.
RawFrame rawFrame(ArvBuffer* buffer);

/// The picture that holds a frame of that format, with a stride of 0; nothing when the format is
/// not supported: planes, YUV. Pixels that are packed on the wire get two bytes each.
std::optional<SxPicBufInfo> pictureInfo(ArvPixelFormat format, quint32 width, quint32 height);

/// Why a frame did not become a picture.
enum class ConvertResult { Done, UnsupportedFormat, TooShort, NoMemory };

/// Copies a frame into newly allocated memory. Only when it is done `picture` has any.
ConvertResult convertFrame(const RawFrame& frame, SxPicBuf& picture);

} // namespace vistrel

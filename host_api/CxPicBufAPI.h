// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Allocation of picture buffers and operations on their pixels.
#pragma once

#include "SxPicBuf.h"

/// Static operations; each may be called on any thread as long as nobody else uses the buffers.
/// No operation throws.
class CxPicBufAPI {
public:
    CxPicBufAPI() = delete;

    /// Allocates pixel memory for the given geometry and fills the whole record. On failure (no
    /// memory, a size of 0, a size that no address space holds) `buffer.data` stays null.
    /// @param blackLevel  value of a black pixel.
    /// @param stride      bytes a line, 0: the next multiple of 4.
    /// @param zeroed      asks for black pixels; without it only the padding of lines is cleared.
    /// @param alignment   of the first line in bytes, a power of two; 0: the heap's choice.
    static void AllocPicBufFromHeap(SxPicBuf& buffer, unsigned width, unsigned height,
                                    unsigned channels, ExImageDataType dataType,
                                    unsigned blackLevel, unsigned stride, unsigned bpc,
                                    ExDataStorageFormat storageFormat,
                                    ExColorFilterArray colorFilterArray, bool isRgb, bool zeroed,
                                    unsigned long alignment);
    /// The same with the geometry as a record; a stride of 0 lets the allocator choose.
    static void AllocPicBufFromHeap(SxPicBuf& buffer, const SxPicBufInfo& info, bool zeroed,
                                    unsigned long alignment);
    /// Gives pixel memory back and clears the pointer. With `resetInfo` the whole record is reset.
    /// Memory that came from elsewhere is left alone.
    static void FreePicBuf(SxPicBuf& buffer, bool resetInfo);

    /// Copies pixels between buffers of the same width, height and pixel format, whose strides may
    /// differ. With `copyMetadata` the frame's numbers and time stamp go along. Returns false and
    /// changes nothing when they do not fit together.
    static bool CopyPicBuf(SxPicBuf& target, const SxPicBuf& source, bool copyMetadata);
    /// Exchanges the first and the third channel of every pixel in place, and turns `isRgb` over,
    /// so that the record still says what lies in memory. Returns false and changes nothing for
    /// fewer than 3 channels, for packed pixels, and for a record that holds no whole line.
    static bool SwapRedAndBlue(SxPicBuf& buffer);

    // Conversions and arithmetic. Each returns false and leaves its target unchanged when the
    // buffers do not fit together; rectangles are clipped to both pictures.

    /// Converts any picture to 8-bit red, green, blue, alpha of the same size.
    static bool ConvertPicToRGB(const SxPicBuf& source, SxPicBuf& target);
    /// Copies one channel into a picture of one channel.
    static bool ExtractChannel(const SxPicBuf& source, SxPicBuf& target, unsigned channel);
    /// Converts between numbers of significant bits; with `scale` full scale stays full scale,
    /// without it values are kept and cut off at the target's range.
    static bool ConvertPicToDifBpc(const SxPicBuf& source, SxPicBuf& target, bool scale);
    /// Copies a rectangle of w x h pixels from (x, y) to (targetX, targetY).
    static bool CopyRect(SxPicBuf& target, int targetX, int targetY, const SxPicBuf& source, int x,
                         int y, int w, int h);
    /// Scales a whole picture to the size of the target.
    static bool Resize(const SxPicBuf& source, SxPicBuf& target);
    /// Scales a rectangle into a rectangle of the target; a w or h of 0 means the whole source.
    static bool ResizeRect(const SxPicBuf& source, int x, int y, int w, int h, SxPicBuf& target,
                           int targetX, int targetY, int targetW, int targetH);
    /// target += other, saturating at the target's significant bits.
    static bool Add(SxPicBuf& target, const SxPicBuf& other);
    /// target -= other, saturating at 0 for unsigned values.
    static bool Subtract(SxPicBuf& target, const SxPicBuf& other);
    /// Divides every value; a divisor of 0 is refused.
    static bool DivideByValue(SxPicBuf& target, int divisor);

    // Looking at values.

    /// Whether no value needs more than the buffer's significant bits.
    static bool CheckPicValidData(const SxPicBuf& buffer);
    /// Number of bits that the largest value needs, as the depth in use: 8, 10, 12, 14, 16, then
    /// even steps to 32. With `update` the buffer's bpc is set to it.
    static unsigned DetectColorBitDepth(SxPicBuf& buffer, unsigned maxBpc, bool update);
    /// Whether any value is below 0.
    static bool DetectNegativePixelValue(const SxPicBuf& buffer);
    /// Largest absolute value of an integer picture.
    static quint64 DetectMaxAbsValue(const SxPicBuf& buffer);
};

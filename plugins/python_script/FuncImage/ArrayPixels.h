// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Where the elements of foreign pixel memory lie, and copying them. Free of Python.
#pragma once

#include <SxPicBuf.h>

/// Foreign pixels, and where each element lies: at y, x and channel times these steps in bytes.
struct ArraySource {
    qint64 width = 1;
    qint64 height = 1;
    qint64 channels = 1;
    /// None: an element type that has no counterpart; such pixels are not copied.
    ExImageDataType dataType = ExImageDataType::None;
    quint32 elementSize = 1;
    qint64 lineStep = 0;
    qint64 pixelStep = 0;
    qint64 channelStep = 0;
    const quint8* data = nullptr;

    /// Sets the steps of elements that lie side by side. Sizes that no picture can have may give
    /// any steps.
    void setContiguousSteps();
};

namespace array_pixels {

inline constexpr char outsideMemory[] = "the array reaches outside its memory";

/// Offsets from the source's address: of its first byte, and of the one after its last.
struct Reach {
    qint64 first;
    qint64 last;
};

/// How far a source reaches whose sizes are above 0 and below 2^31. Elements side by side may fill
/// any memory; offsets from other steps are added up in 32 bits, so they reach 2 GiB to either side
/// and wrap around there.
Reach reachOf(const ArraySource& source);

/// Copies the elements into a buffer of the source's size and type. False, and nothing copied, when
/// the process cannot read the memory: at both ends of elements side by side, anywhere within the
/// reach of others, whose steps are easily mistaken.
bool copy(const ArraySource& source, const SxPicBuf& target);

} // namespace array_pixels

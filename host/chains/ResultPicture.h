// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Memory for the picture that an element makes.
#pragma once

#include <SxPicBuf.h>

class CxImageData;

namespace vistrel {

/// Two pictures take turns: an element writes its result here, then exchanges it for the frame's
/// pixels, which are the memory of the next result. So frames of one size cost no allocation.
class ResultPicture {
public:
    ResultPicture() = default;
    ~ResultPicture();
    ResultPicture(const ResultPicture&) = delete;
    ResultPicture& operator=(const ResultPicture&) = delete;

    /// The buffer with another geometry, which is not cleared. Throws std::bad_alloc when there is
    /// no memory for it.
    SxPicBuf& shaped(SxPicBufInfo info);
    SxPicBuf& buffer() { return m_buffer; }

    /// Gives the result to the image, which keeps its frame's numbers, and takes its memory.
    void exchange(CxImageData& image);

private:
    SxPicBuf m_buffer;
};

} // namespace vistrel

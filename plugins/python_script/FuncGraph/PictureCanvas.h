// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Qt painting straight into the pixels of a picture.
#pragma once

#include <QtGui/QImage>

struct SxPicBuf;

namespace picture_canvas {

/// Why a picture cannot be painted on: it takes 8-bit red, green, blue (, alpha). Null when it can.
const char* formatError(const SxPicBuf& buffer);

} // namespace picture_canvas

/// The pixels as a QImage that shares them. While a canvas lives, red and blue of the picture are
/// exchanged: four channels then lie as QImage::Format_RGB32 wants them. Three channels already did
/// before, so that red and blue of what is painted come out exchanged in such pictures: scripts
/// know that, it is kept.
class PictureCanvas {
public:
    explicit PictureCanvas(SxPicBuf& buffer);
    /// Brings the channels back into their order; paint devices must be closed by then.
    ~PictureCanvas();
    PictureCanvas(const PictureCanvas&) = delete;
    PictureCanvas& operator=(const PictureCanvas&) = delete;

    /// A null image when the picture has no pixels.
    QImage& image() { return m_image; }

private:
    SxPicBuf& m_buffer;
    QImage m_image;
};

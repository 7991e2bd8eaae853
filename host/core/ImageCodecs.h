// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What the codecs module offers: picture buffers out of and into the bytes of image files.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

struct SxPicBuf;

namespace vistrel {

/// The formats that can be written. Those with the same name on disk differ in what they hold.
enum class ImageFileFormat { Png, Tiff, Jpeg, Bmp, Pbm, Pgm, Ppm, Pnm };

/// Decoder and encoder of image files. It lives as long as the process. No operation throws; each
/// may be called on any thread.
class ImageCodecs {
public:
    /// Reads a whole file's content, of whatever known format it is. Pixels are taken as they lie
    /// in the file: neither an orientation tag nor a colour profile is applied. Colour comes as
    /// red, green, blue (, alpha).
    /// @param picture  receives a buffer from CxPicBufAPI, which belongs to the caller.
    /// Returns false with the reason in `error` when it cannot be read to its end.
    virtual bool decode(const QByteArray& bytes, SxPicBuf& picture, QString& error) = 0;

    /// Makes a whole file's content. Values go into the file as they are; what the format cannot
    /// hold is converted if nothing is lost by it. Only for JPEG and BMP, which take 8 bits, are
    /// unsigned values of more significant bits scaled down.
    /// Returns false with the reason in `error`, which names the formats that would do.
    virtual bool encode(const SxPicBuf& picture, ImageFileFormat format, QByteArray& bytes,
                        QString& error) = 0;

protected:
    ~ImageCodecs() = default;
};

/// Name and type of the one function that the module exports; it never returns null.
inline constexpr char imageCodecsEntry[] = "vistrel_imageCodecs";
using ImageCodecsEntry = ImageCodecs* (*)();

} // namespace vistrel

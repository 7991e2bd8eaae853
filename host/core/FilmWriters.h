// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What the film module offers: writing films, picture by picture.
#pragma once

#include <QtCore/QString>

#include <memory>

struct SxPicBuf;

namespace vistrel {

/// A film that is being written. Destroying it ends the file properly. One thread at a time.
class FilmWriter {
public:
    virtual ~FilmWriter() = default;

    /// Appends a picture as a screen shows it: 8 bits, full scale to full scale, raw data with its
    /// colours. One of another size than the first is fitted into the film's size with its
    /// proportions kept, between black borders. Returns false with the reason in `error`.
    virtual bool write(const SxPicBuf& picture, QString& error) = 0;
};

/// Maker of films. It lives as long as the process. No operation throws; each may be called on any
/// thread.
class FilmWriters {
public:
    /// Begins a film in a file, whose ending names the format: .avi or .mp4. An existing file is
    /// replaced. Sides of an odd number of pixels get one more, and those below 16 are filled up
    /// with black: encoders bear no others.
    /// @param framesPerSecond  above 0; fractions are kept to hundredths.
    /// Returns null with the reason in `error`.
    virtual std::unique_ptr<FilmWriter> open(const QString& path, unsigned width, unsigned height,
                                             double framesPerSecond, QString& error) = 0;

protected:
    ~FilmWriters() = default;
};

/// Name and type of the one function that the module exports; it never returns null.
inline constexpr char filmWritersEntry[] = "vistrel_filmWriters";
using FilmWritersEntry = FilmWriters* (*)();

} // namespace vistrel

// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Loading and saving images by the host's file formats, free of Python.
#pragma once

#include "Refusal.h"

#include <QtCore/QString>

#include <memory>

class CxImageData;

/// Paths are absolute. All throw python::HostUnavailable when the host has no file formats.
namespace image_files {

/// Makes the folder in which a file is to lie; a failure shows when the file is written.
void makeFolderOf(const QString& path);

/// Writes an image. False only when no format goes by the file's name: whether the host could write
/// it is not looked at, the host logs that itself.
bool save(CxImageData& image, const QString& path);

/// Reads an image. Refused when no reader is found; null when one was found and failed.
Outcome<std::unique_ptr<CxImageData>> load(const QString& path);

} // namespace image_files

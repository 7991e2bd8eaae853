// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Readers and writers of image files: PNG, TIFF, JPEG, BMP and the PNM family.
#pragma once

#include <CxImageFormatManager.h>

namespace vistrel {

/// Chooses the format by the file's ending, in whatever case. The work is done by the codecs
/// module, which is loaded with the first file. Loaders and savers may be used on any thread, each
/// by one at a time.
class ImageFormatManager : public CxImageFormatManager {
public:
    IxImageLoader* loaderForFile(const QString& path) override;
    IxImageSaver* saverForFile(const QString& path) override;
};

} // namespace vistrel

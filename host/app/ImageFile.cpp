// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Reads and copies images.
#include "app/ImageFile.h"

#include <CxImageData.h>
#include <CxImageFormatManager.h>

namespace vistrel {

std::unique_ptr<CxImageData> readImageFile(const QString& path)
{
    const std::unique_ptr<IxImageLoader> loader(
        CxImageFormatManager::instance()->loaderForFile(path));
    return loader && loader->load() ? copyOfImage(loader->loadedObject()) : nullptr;
}

std::unique_ptr<CxImageData> copyOfImage(QObject* image)
{
    auto* original = qobject_cast<CxImageData*>(image);
    QObject* copy = original ? original->clone(0, 0) : nullptr;
    return std::unique_ptr<CxImageData>(qobject_cast<CxImageData*>(copy));
}

} // namespace vistrel

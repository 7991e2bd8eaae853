// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Loading and saving images by the host's file formats.
#include "FuncImage/ImageFiles.h"

#include "FuncImage/ImageCopies.h"
#include "FuncImage/ImageMessages.h"
#include "HostServices.h"

#include <CxImageData.h>
#include <CxImageFormatManager.h>

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

namespace image_files {

void makeFolderOf(const QString& path) { QDir(QString()).mkpath(QFileInfo(path).absolutePath()); }

bool save(CxImageData& image, const QString& path)
{
    const std::unique_ptr<IxImageSaver> saver(host_services::imageFormats().saverForFile(path));
    if (!saver)
        return false;
    saver->save(&image, 0);
    return true;
}

Outcome<std::unique_ptr<CxImageData>> load(const QString& path)
{
    const std::unique_ptr<IxImageLoader> loader(host_services::imageFormats().loaderForFile(path));
    if (!loader)
        return Refusal{image_messages::cannotOpenFile};
    if (!loader->load())
        return std::unique_ptr<CxImageData>();
    auto* const loaded = qobject_cast<CxImageData*>(loader->loadedObject());
    return loaded != nullptr ? image_copies::cloneOrNull(*loaded) : nullptr;
}

} // namespace image_files

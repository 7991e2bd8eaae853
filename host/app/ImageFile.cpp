// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Reads and copies images.
#include "app/ImageFile.h"

#include "core/Log.h"

#include <CxImageData.h>
#include <CxImageFormatManager.h>

#include <QtCore/QFileInfo>

namespace vistrel {

namespace {

/// Scripts get no reason from a failed open: it stands in the log.
void logMissingLoader(const QString& path)
{
    const QString reason = QFileInfo(path).isFile()
                               ? QObject::tr("no picture format goes by its name")
                               : QObject::tr("there is no such file");
    logError(QObject::tr("Cannot open \"%1\": %2").arg(path, reason));
}

} // namespace

std::unique_ptr<CxImageData> readImageFile(const QString& path)
{
    const std::unique_ptr<IxImageLoader> loader(
        CxImageFormatManager::instance()->loaderForFile(path));
    if (!loader) {
        logMissingLoader(path);
        return nullptr;
    }
    return loader->load() ? copyOfImage(loader->loadedObject()) : nullptr;
}

std::unique_ptr<CxImageData> copyOfImage(QObject* image)
{
    auto* original = qobject_cast<CxImageData*>(image);
    QObject* copy = original ? original->clone(0, 0) : nullptr;
    return std::unique_ptr<CxImageData>(qobject_cast<CxImageData*>(copy));
}

} // namespace vistrel

// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A folder of its own for image files, which are saved and loaded through the registry of formats.
#pragma once

#include "CoreFixtures.h"
#include "core/ImageFormats.h"

#include <QtCore/QTemporaryDir>

#include <gtest/gtest.h>

namespace vistrel::test {

class FileFixture : public ::testing::Test {
protected:
    QString path(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)); }

    bool save(const char* name, CxImageData& image)
    {
        const std::unique_ptr<IxImageSaver> saver(m_formats.saverForFile(path(name)));
        return saver != nullptr && saver->save(&image, 0);
    }

    /// What the file holds, null when there is no reader or it fails.
    std::unique_ptr<CxImageData> load(const char* name)
    {
        const std::unique_ptr<IxImageLoader> loader(m_formats.loaderForFile(path(name)));
        if (loader == nullptr || !loader->load())
            return nullptr;
        auto* const image = qobject_cast<CxImageData*>(loader->loadedObject());
        return std::unique_ptr<CxImageData>(qobject_cast<CxImageData*>(image->clone(0, 0)));
    }

    QTemporaryDir m_folder;
    ImageFormatManager m_formats;
    LogLines m_log;
};

} // namespace vistrel::test

// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Readers and writers of image files, chosen by the file's name.
#pragma once

#include "IxImageLoader.h"
#include "IxImageSaver.h"

#include <QtCore/QString>

/// The registry of file formats. Any thread.
class CxImageFormatManager {
public:
    /// The registry; never null while the host is up.
    static CxImageFormatManager* instance();

    /// A reader for a file, owned by the caller; null when the file does not exist or no format
    /// goes by that name. Whether the content can be read shows when it loads.
    virtual IxImageLoader* loaderForFile(const QString& path) = 0;
    /// A writer for a file, owned by the caller; null when no format goes by that name.
    virtual IxImageSaver* saverForFile(const QString& path) = 0;

protected:
    ~CxImageFormatManager() = default;
};

// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A reader of one image file.
#pragma once

class QObject;

/// Made for one file by CxImageFormatManager and deleted by the caller.
class IxImageLoader {
public:
    virtual ~IxImageLoader() = default;

    /// Reads the file; false when it cannot be read. The reason goes to the log.
    virtual bool load() = 0;
    /// What was read, a CxImageData for pictures; null before a successful load. It belongs to the
    /// loader and goes with it.
    virtual QObject* loadedObject() = 0;
};

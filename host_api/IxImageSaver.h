// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A writer of one image file.
#pragma once

class CxImageData;

/// Made for one file by CxImageFormatManager and deleted by the caller.
class IxImageSaver {
public:
    virtual ~IxImageSaver() = default;

    /// Writes the image, which stays the caller's; false when it cannot be written. The reason
    /// goes to the log. An existing file is replaced only by a complete one.
    /// @param image    not null.
    /// @param options  reserved, 0.
    virtual bool save(CxImageData* image, int options) = 0;
};

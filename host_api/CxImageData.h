// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The host's image: a picture buffer that it owns, and the record of how it was taken.
#pragma once

#include "SxAcquisitionInfo.h"
#include "SxPicBuf.h"

#include <QtCore/QObject>

#include <memory>

/// An image on the heap. Whoever owns it deletes it; it has no parent. It is not locked: one thread
/// at a time. An image may be made and deleted on any thread.
class CxImageData : public QObject {
    Q_OBJECT

public:
    CxImageData();
    ~CxImageData() override;

    /// Hands a buffer to the image, which owns its pixel memory from now on and frees the previous
    /// one. The buffer must have been allocated by CxPicBufAPI.
    void setPicBuf(const SxPicBuf& buffer);

    /// The image's buffer; never null. It belongs to the image and lives as long.
    virtual SxPicBuf* picBuf();
    /// How the image was taken; null when it came from no camera. It belongs to the image.
    virtual const SxAcquisitionInfo* acquisitionInfo() const;
    /// Copies a record into the image; null removes the one it has.
    virtual void setAcquisitionInfo(const SxAcquisitionInfo* info);
    /// A deep copy with pixels, frame metadata and acquisition record, owned by the caller; null
    /// when there is no memory for it. Both arguments are reserved and 0.
    virtual QObject* clone(int flags, int reserved);
    /// A deep copy like clone(), made a child of `parent` when that is not null.
    virtual QObject* copy(QObject* parent);

private:
    struct Private;
    std::unique_ptr<Private> d;
};

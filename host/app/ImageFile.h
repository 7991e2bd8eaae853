// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Images as objects of their own: from a file, from another image.
#pragma once

#include <QtCore/QString>

#include <memory>

class CxImageData;
class QObject;

namespace vistrel {

/// Reads an image file by the format manager; null when it cannot be read, with the reason in the
/// log. Any thread.
std::unique_ptr<CxImageData> readImageFile(const QString& path);

/// A deep copy; null for null, for what is no image, and when there is no memory for it.
std::unique_ptr<CxImageData> copyOfImage(QObject* image);

} // namespace vistrel

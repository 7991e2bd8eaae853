// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Loads the codecs module when a file is first opened or saved: its libraries take tens of
// milliseconds and of mebibytes, which a process that touches no file should not pay.
#pragma once

#include <QtCore/QString>

namespace vistrel {

class ImageCodecs;

/// The codecs of the module that lies beside the host's library; null with the reason in `error`
/// when it cannot be loaded. Any thread.
ImageCodecs* imageCodecs(QString& error);

/// Loads the module from a file. It stays loaded.
ImageCodecs* loadImageCodecs(const QString& path, QString& error);

} // namespace vistrel

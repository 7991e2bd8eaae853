// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The texts that say who a camera is, by the keys that scripts use. Free of Python.
#pragma once

#include <QtCore/QString>

#include <optional>

class CxCameraParameters;

namespace device_info {

/// The text under a key such as "device_sn"; nothing for other keys. Case-sensitive.
std::optional<QString> text(const CxCameraParameters& camera, const QString& key);

/// Whether the text under that key is a decimal number.
bool isNumber(const QString& key);

} // namespace device_info

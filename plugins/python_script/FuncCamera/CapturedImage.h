// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Lets the user take an image with a camera. Free of Python.
#pragma once

#include <QtCore/QString>

namespace captured_image {

/// Shows the host's capture dialog and opens a view on the image that was taken.
///
/// @param cameraHandle    goes to the host as it is, null included.
/// @param title, message  texts of the dialog; empty ones stand for the usual texts. The view gets
///                        the same title.
/// @param value           a number for the dialog; a negative one means that there is none.
/// Returns the id of the view, -1 when none was opened. Throws python::HostUnavailable.
int showInView(void* cameraHandle, const QString& title, const QString& message, int value);

} // namespace captured_image

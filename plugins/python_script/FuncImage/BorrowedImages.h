// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Images of the host that image objects borrow: their pointers become null when an image goes.
#pragma once

class CxImageData;

/// A host may delete an image that a script still holds. Looking whether it is there would cost
/// every access; here the image tells when it goes, and an access stays one load. Free of Python;
/// any thread, as images may be deleted on any.
namespace borrowed_images {

/// From now on `pointer`, which points to an image, becomes null when that image is deleted. It
/// must live until forget() or forgetAll().
void watch(CxImageData*& pointer);

/// Ends that. Does nothing for a pointer that is not watched any more.
void forget(CxImageData*& pointer);

/// Ends it for all pointers: they go with the interpreter. No image has a tie to this code then, so
/// that the plugin may be unloaded before them.
void forgetAll();

} // namespace borrowed_images

// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What the module's functions for views and files do with the host, free of Python.
#pragma once

#include "Refusal.h"

#include <QtCore/QString>

#include <memory>

class CxImageData;

/// Plain workers. Paths are absolute; a negative view id means the active view where a function
/// says so. All throw python::HostUnavailable when the host is not there.
namespace view_actions {

/// The view id that scripts need not give.
inline constexpr int activeView = -1;

/// The id of the view that shows the file; a silent refusal when the host cannot open it.
Outcome<int> openFile(const QString& path);

/// Saves the active view's image. The target folder is made first, whether there is an image or
/// not. A silent refusal when there is no image or no format goes by that name.
Outcome<bool> saveActiveView(const QString& path);

/// The duplicate's id, or -1. The host resolves a negative id.
int duplicateView(int viewId);

/// Negative: the active view. An unknown view is ignored.
void closeView(int viewId);

/// An independent copy of a view's image. Negative: the active view.
Outcome<std::unique_ptr<CxImageData>> takeViewImage(int viewId);

/// Shows a copy of the image in a view. Negative: the active view.
Outcome<bool> putViewImage(CxImageData& image, int viewId);

/// Opens a view on a copy of the image. An empty title stands for "Image from script". The view's
/// id, or -1 when the host opens none.
Outcome<int> newViewWithImage(CxImageData& image, const QString& title);

/// Negative view: the active one. Whether a frame came within `timeout` seconds.
Outcome<bool> waitForNextFrame(double timeout, int viewId);

/// Negative view: the active one. Whether the view now records to the file.
bool startRecording(const QString& path, int viewId);

/// Negative: the active view. An unknown view is ignored.
void stopRecording(int viewId);

} // namespace view_actions

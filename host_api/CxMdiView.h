// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// One view window of the host: it shows an image or a camera's stream.
#pragma once

#include <QtCore/QString>

class CxChainable;

/// A view. It belongs to the host, which may close it whenever events are handled: look it up by
/// its id (IxAppDelegate::view) for every use. GUI thread only.
class CxMdiView {
public:
    /// Closes the window; the view object is gone soon after.
    void closeMdiView();

    /// Starts recording what the view shows to a film file. Returns false when it cannot.
    virtual bool startRecording(QString path) = 0;
    /// Ends the recording; does nothing when there is none.
    virtual void stopRecording() = 0;
    /// Whether a recording is on.
    virtual bool isRecording() const = 0;
    /// Number of camera frames that the view has taken so far; 0 for a view without a camera.
    virtual quint64 frameCount() const = 0;
    /// The view's own element at the end of its processing chain; null when it has no chain.
    virtual CxChainable* chainEnd() = 0;

protected:
    virtual ~CxMdiView() = default;

private:
    /// What closing means for the concrete window.
    virtual void requestClose() = 0;
};

// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A processing chain: the way of a view's frames from the camera to the screen.
#pragma once

/// Belongs to the host. GUI thread.
class CxChain {
public:
    /// Whether no frames go through it now.
    virtual bool stopped() const = 0;
    /// Stops it and waits for the frame that is under way.
    virtual void stop() = 0;
    virtual void start() = 0;

protected:
    ~CxChain() = default;
};

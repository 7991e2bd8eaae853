// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The view's own element at the end of its chain.
#pragma once

#include "chains/ChainElement.h"
#include "chains/FrameWorker.h"

#include <functional>
#include <mutex>

namespace vistrel {

/// Hands finished pictures to whoever shows and records them. It has no settings and cannot be
/// switched off.
class ChainEnd : public ChainElement {
    Q_OBJECT
    Q_CLASSINFO("customName", "View")

public:
    /// Where a picture comes from: a stream does not wait, who sets a single picture does.
    enum class Origin { Stream, Still };
    /// Looks at every picture before it is shown. It must not throw, and must be quick with those
    /// of a stream.
    using Observer = std::function<void(CxImageData&, Origin)>;

    ChainEnd();

    /// Who receives the frames; null: nobody. When it returns the former one is not called any
    /// more. Any thread.
    void setOutput(FrameFunction output);
    /// Who looks at the pictures; null: nobody. When it returns the former one is not called any
    /// more. Any thread.
    void setObserver(Observer observer);

    /// A finished frame. Any thread.
    void deliver(std::unique_ptr<CxImageData> frame);
    /// Shows a still picture to the observer alone. Any thread.
    void observe(CxImageData& image);

private:
    QString apply(CxImageData& image) override;

    std::mutex m_mutex; // held during the calls of the functions
    FrameFunction m_output;
    Observer m_observer;
};

} // namespace vistrel

// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The window that shows an image or a camera's stream.
#pragma once

#include "app/PictureWidget.h"
#include "chains/Chain.h"

#include <CxMdiView.h>

#include <atomic>
#include <memory>

class CxImageData;

namespace vistrel {

class FilmRecorder;
class LiveStream;

/// Content of a window in the main window's area. GUI thread, if not said otherwise.
class ImageView : public PictureWidget, public CxMdiView {
    Q_OBJECT

public:
    ImageView(int id, const QString& title);
    /// Stops its stream and ends its recording.
    ~ImageView() override;

    int id() const { return m_id; }
    /// What the view shows; null when that is nothing. It belongs to the view. Any thread, but the
    /// GUI thread may replace it.
    CxImageData* image() const { return m_shown.load(std::memory_order_acquire); }
    /// Shows a picture that stands still, as the view's chain makes it. It is kept, and processed
    /// anew whenever the chain has changed.
    void setImage(std::unique_ptr<CxImageData> image);

    /// The way of the view's pictures; its end is the view.
    Chain& chain() { return m_chain; }

    /// Shows a camera's frames from now on.
    void setStream(std::unique_ptr<LiveStream> stream);
    /// The view's stream, running or not; null when the view has none.
    LiveStream* stream() const { return m_stream.get(); }
    bool isStreaming() const;
    /// Shows the newest frame of the stream if there is one that it has not shown yet.
    void takeFrame();
    /// Whether the window has been closed; the object follows when events are handled.
    bool isClosed() const { return m_closed; }

    /// Records the pictures that come out of the chain, at the camera's frame rate, or 25 pictures
    /// a second where there is none. A picture that stands still is recorded when it is set, and at
    /// the start. False, with a line in the log, when the film cannot be made, and when a recording
    /// is on already, which goes on.
    bool startRecording(QString path) override;
    /// Returns when the film is complete.
    void stopRecording() override;
    bool isRecording() const override;
    quint64 frameCount() const override { return m_frameCount; }
    CxChainable* chainEnd() override { return &m_chain.end(); }

    QSize sizeHint() const override;

Q_SIGNALS:
    /// The view has just shown another frame of its stream.
    void frameTaken();
    /// The view's camera does not stream any more.
    void streamStopped();
    /// The window is being closed; the view must not be used any more.
    void closing();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void requestClose() override;
    void processStill(std::unique_ptr<CxImageData> source);
    void processAgain();
    void show(std::unique_ptr<CxImageData> image);
    void endWork();

    const int m_id;
    Chain m_chain;
    std::unique_ptr<CxImageData> m_source; // of m_image, if that has been processed
    std::unique_ptr<CxImageData> m_image;
    bool m_isStill = false;                     // m_image is no frame of the stream
    std::atomic<CxImageData*> m_shown{nullptr}; // m_image for other threads
    std::unique_ptr<LiveStream> m_stream;
    std::shared_ptr<FilmRecorder> m_recorder; // shared with the end of the chain
    quint64 m_frameCount = 0;
    bool m_closed = false;
};

} // namespace vistrel

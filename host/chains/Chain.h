// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A processing chain: the way of a view's pictures through its elements.
#pragma once

#include "chains/ChainEnd.h"

#include <CxChain.h>

#include <QtCore/QObject>

#include <memory>
#include <mutex>
#include <vector>

class QMetaObject;

namespace vistrel {

/// Frames of a stream go through the elements on a thread of the chain's own, one after the other,
/// and then to its end. A frame that comes while others wait pushes the oldest of them out, so a
/// slow element costs frames, and neither the camera's thread nor the GUI thread ever waits.
///
/// The list of elements may be changed at any time, also while frames stream: the chain is stopped
/// around the change, which waits for the frame under way, and started again. GUI thread, if not
/// said otherwise. A new chain runs.
class Chain : public QObject, public CxChain {
    Q_OBJECT

public:
    Chain();
    /// Stops; the elements go too.
    ~Chain() override;

    bool stopped() const override { return !m_running; }
    /// Frames that wait are dropped, and so are those that come until start().
    void stop() override;
    void start() override;

    /// The view's own element; never null.
    ChainEnd& end() { return m_end; }
    /// The elements before the end, in the order in which pictures go through them. They belong to
    /// the chain.
    std::vector<ChainElement*> elements() const;
    /// Whether pictures are changed at all.
    bool hasEnabledElements() const;

    /// Puts an element in front of another one of the chain; behind all others when there is no
    /// such one.
    void insertBefore(std::unique_ptr<ChainElement> element, const CxChainable* before);
    /// Takes an element out and deletes it; nothing when it is not in the chain.
    void remove(const ChainElement* element);
    /// Moves an element to a place, 0 being the first; beyond the last one is the last one.
    void move(const ChainElement* element, std::size_t place);

    /// Where frames are handed in. It may be called on any thread, also after the chain is gone.
    FrameFunction input() const;
    /// Returns when all frames have reached the end that were handed in before.
    void drain();
    /// Frames that were handed in and did not reach the end. Any thread.
    quint64 droppedFrames() const { return m_worker->dropped(); }

    /// Takes one picture through the elements at once, here. Elements that look back begin anew.
    void processAlone(CxImageData& image);

Q_SIGNALS:
    /// The list of elements, or the settings of one, are other ones now.
    void changed();
    /// Pictures go through the chain again, perhaps in another way than before.
    void started();

private:
    friend class ChainChange;
    using Elements = std::vector<std::unique_ptr<ChainElement>>;

    void work(std::unique_ptr<CxImageData> frame);
    Elements::iterator placeOf(const CxChainable* element);
    void resetFrom(const ChainElement* element);

    bool m_running = true;
    Elements m_elements; // changed while the worker stands still
    ChainEnd m_end;
    std::mutex m_processing; // held while a picture goes through the elements
    std::shared_ptr<FrameWorker> m_worker;
};

/// Stops a running chain for a change of one of its elements, and starts it again at the end.
class ChainChange {
public:
    /// @param chain  null: there is nothing to stop.
    ChainChange(Chain* chain, const ChainElement* element);
    ~ChainChange();
    ChainChange(const ChainChange&) = delete;
    ChainChange& operator=(const ChainChange&) = delete;

private:
    Chain* m_chain;
    const ChainElement* m_element;
    bool m_wasRunning;
};

/// The name for people that a class gives itself by Q_CLASSINFO("customName", ...); its own name
/// without one.
QString customNameOf(const QMetaObject& metaObject);

} // namespace vistrel

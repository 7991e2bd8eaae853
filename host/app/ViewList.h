// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The open views: who has which id, which one is active.
#pragma once

#include <atomic>
#include <mutex>
#include <vector>

class CxImageData;

namespace vistrel {

class ImageView;

/// Knows the views but does not own them. GUI thread, if not said otherwise.
class ViewList {
public:
    /// An id that no view has had before.
    int takeId() { return m_nextId++; }

    /// Adds a view and makes it the active one.
    void add(ImageView* view);
    /// Removes a view. If it was the active one, the one that was active before it is active again.
    void remove(ImageView* view);
    void clear();
    /// Makes a view the active one.
    void setActive(ImageView* view);

    /// The view with that id, null when there is none.
    ImageView* find(int id) const;
    /// The active view, null when there is none.
    ImageView* active() const;
    /// All views, the active one last.
    const std::vector<ImageView*>& all() const { return m_views; }

    /// Id of the active view, -1 when there is none. Any thread.
    int activeId() const { return m_activeId.load(); }
    /// What the view with that id shows; null when that is nothing or there is no such view. Any
    /// thread.
    CxImageData* imageOf(int id) const;

private:
    int m_nextId = 0;
    std::vector<ImageView*> m_views; // in the order in which they were active last
    std::atomic<int> m_activeId{-1};
    // Held by whoever changes m_views and by readers on other threads; the GUI thread, the only
    // one to change it, reads without.
    mutable std::mutex m_mutex;
};

} // namespace vistrel

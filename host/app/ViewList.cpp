// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Order and look-up of the views.
#include "app/ViewList.h"

#include "app/ImageView.h"

#include <algorithm>

namespace vistrel {

void ViewList::add(ImageView* view)
{
    const std::scoped_lock lock(m_mutex);
    m_views.push_back(view);
    m_activeId = view->id();
}

void ViewList::remove(ImageView* view)
{
    const std::scoped_lock lock(m_mutex);
    std::erase(m_views, view);
    m_activeId = m_views.empty() ? -1 : m_views.back()->id();
}

void ViewList::clear()
{
    const std::scoped_lock lock(m_mutex);
    m_views.clear();
    m_activeId = -1;
}

void ViewList::setActive(ImageView* view)
{
    const std::scoped_lock lock(m_mutex);
    const auto position = std::find(m_views.begin(), m_views.end(), view);
    if (position == m_views.end())
        return;
    std::rotate(position, position + 1, m_views.end());
    m_activeId = view->id();
}

ImageView* ViewList::find(int id) const
{
    const auto hasId = [id](const ImageView* view) { return view->id() == id; };
    const auto position = std::find_if(m_views.begin(), m_views.end(), hasId);
    return position == m_views.end() ? nullptr : *position;
}

ImageView* ViewList::active() const { return m_views.empty() ? nullptr : m_views.back(); }

CxImageData* ViewList::imageOf(int id) const
{
    const std::scoped_lock lock(m_mutex);
    const ImageView* view = find(id);
    return view ? view->image() : nullptr;
}

} // namespace vistrel

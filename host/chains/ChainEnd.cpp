// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The view's own element at the end of its chain.
#include "chains/ChainEnd.h"

#include <CxImageData.h>

namespace vistrel {

ChainEnd::ChainEnd()
    : ChainElement({})
{
}

void ChainEnd::setOutput(FrameFunction output)
{
    const std::scoped_lock lock(m_mutex);
    m_output.swap(output);
}

void ChainEnd::setObserver(Observer observer)
{
    const std::scoped_lock lock(m_mutex);
    m_observer.swap(observer);
}

void ChainEnd::deliver(std::unique_ptr<CxImageData> frame)
{
    const std::scoped_lock lock(m_mutex);
    if (m_observer)
        m_observer(*frame, Origin::Stream);
    if (m_output)
        m_output(std::move(frame));
}

void ChainEnd::observe(CxImageData& image)
{
    const std::scoped_lock lock(m_mutex);
    if (m_observer)
        m_observer(image, Origin::Still);
}

QString ChainEnd::apply(CxImageData&) { return {}; }

} // namespace vistrel

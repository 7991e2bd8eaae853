// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The list of elements, and the way of a picture through it.
#include "chains/Chain.h"

#include <CxImageData.h>

#include <QtCore/QMetaClassInfo>

#include <algorithm>

namespace vistrel {

namespace {

/// One that waits besides the one under way keeps the elements busy; more would only be older.
constexpr std::size_t waitingFrames = 2;

} // namespace

Chain::Chain()
    : m_worker(std::make_shared<FrameWorker>(
        waitingFrames, FrameWorker::WhenFull::DropOldest,
        [this](std::unique_ptr<CxImageData> frame) { work(std::move(frame)); }))
{
    m_end.m_chain = this;
    m_worker->start();
}

Chain::~Chain() { m_worker->stop(); }

void Chain::stop()
{
    m_running = false;
    m_worker->stop();
}

void Chain::start()
{
    m_running = true;
    m_worker->start();
    Q_EMIT started();
}

std::vector<ChainElement*> Chain::elements() const
{
    std::vector<ChainElement*> elements;
    for (const auto& element : m_elements)
        elements.push_back(element.get());
    return elements;
}

bool Chain::hasEnabledElements() const
{
    const auto isEnabled = [](const auto& element) { return element->isEnabled(); };
    return std::any_of(m_elements.begin(), m_elements.end(), isEnabled);
}

void Chain::insertBefore(std::unique_ptr<ChainElement> element, const CxChainable* before)
{
    const ChainElement* const inserted = element.get();
    const ChainChange change(this, inserted);
    element->m_chain = this;
    m_elements.insert(placeOf(before), std::move(element));
}

void Chain::remove(const ChainElement* element)
{
    const auto place = placeOf(element);
    if (place == m_elements.end())
        return;
    const ChainElement* const follower =
        place + 1 == m_elements.end() ? nullptr : (place + 1)->get();
    const ChainChange change(this, follower);
    m_elements.erase(place);
}

void Chain::move(const ChainElement* element, std::size_t place)
{
    const auto from = placeOf(element);
    if (from == m_elements.end())
        return;
    const auto to =
        m_elements.begin() + static_cast<std::ptrdiff_t>(std::min(place, m_elements.size() - 1));
    const ChainChange change(this, nullptr);
    if (from < to)
        std::rotate(from, from + 1, to + 1);
    else
        std::rotate(to, from, from + 1);
    resetFrom(std::min(from, to)->get());
}

FrameFunction Chain::input() const
{
    return
        [worker = m_worker](std::unique_ptr<CxImageData> frame) { worker->put(std::move(frame)); };
}

void Chain::drain() { m_worker->drain(); }

void Chain::processAlone(CxImageData& image)
{
    const std::scoped_lock lock(m_processing);
    for (const auto& element : m_elements) {
        element->reset();
        element->process(image);
    }
}

void Chain::work(std::unique_ptr<CxImageData> frame)
{
    {
        const std::scoped_lock lock(m_processing);
        for (const auto& element : m_elements)
            element->process(*frame);
    }
    m_end.deliver(std::move(frame));
}

Chain::Elements::iterator Chain::placeOf(const CxChainable* element)
{
    const auto isIt = [element](const auto& owned) { return owned.get() == element; };
    return std::find_if(m_elements.begin(), m_elements.end(), isIt);
}

void Chain::resetFrom(const ChainElement* element)
{
    for (auto place = placeOf(element); place != m_elements.end(); ++place)
        (*place)->reset();
}

ChainChange::ChainChange(Chain* chain, const ChainElement* element)
    : m_chain(chain)
    , m_element(element)
    , m_wasRunning(chain && !chain->stopped())
{
    if (m_wasRunning)
        m_chain->stop();
}

ChainChange::~ChainChange()
{
    if (!m_chain)
        return;
    m_chain->resetFrom(m_element);
    Q_EMIT m_chain->changed();
    if (m_wasRunning)
        m_chain->start();
}

QString customNameOf(const QMetaObject& metaObject)
{
    const int place = metaObject.indexOfClassInfo("customName");
    return QString::fromLatin1(place < 0 ? metaObject.className()
                                         : metaObject.classInfo(place).value());
}

} // namespace vistrel

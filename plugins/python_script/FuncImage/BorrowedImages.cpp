// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Images of the host that image objects borrow.
#include "FuncImage/BorrowedImages.h"

#include <CxImageData.h>

#include <atomic>
#include <mutex>
#include <unordered_map>
#include <unordered_set>

namespace borrowed_images {

namespace {

/// The pointers to each image that is borrowed, or has been and still lives: scripts read the same
/// shared image again and again, and a connection costs more than the rest of it.
class Borrowers {
public:
    void add(CxImageData*& pointer);
    void remove(CxImageData*& pointer);
    void clear();

private:
    void drop(const QObject* image);

    std::mutex m_mutex;
    std::unordered_map<const QObject*, std::unordered_set<CxImageData**>> m_pointers;
    /// Receiver of all connections: they go with it.
    std::unique_ptr<QObject> m_receiver = std::make_unique<QObject>();
};

void Borrowers::add(CxImageData*& pointer)
{
    const std::scoped_lock lock(m_mutex);
    const auto [entry, isNew] = m_pointers.try_emplace(pointer);
    entry->second.insert(&pointer);
    if (isNew) {
        QObject::connect(
            pointer, &QObject::destroyed, m_receiver.get(),
            [this](const QObject* image) { drop(image); }, Qt::DirectConnection);
    }
}

void Borrowers::remove(CxImageData*& pointer)
{
    const std::scoped_lock lock(m_mutex);
    const auto entry = m_pointers.find(pointer);
    if (entry != m_pointers.end())
        entry->second.erase(&pointer);
}

void Borrowers::clear()
{
    const std::scoped_lock lock(m_mutex);
    m_pointers.clear();
    m_receiver = std::make_unique<QObject>();
}

void Borrowers::drop(const QObject* image)
{
    const std::scoped_lock lock(m_mutex);
    const auto entry = m_pointers.find(image);
    if (entry == m_pointers.end())
        return;
    for (CxImageData** pointer : entry->second)
        std::atomic_ref(*pointer).store(nullptr, std::memory_order_relaxed);
    m_pointers.erase(entry);
}

/// Never destroyed: at the end of the process the host's images may still go.
Borrowers& borrowers()
{
    static Borrowers& instance = *new Borrowers;
    return instance;
}

} // namespace

void watch(CxImageData*& pointer) { borrowers().add(pointer); }

void forget(CxImageData*& pointer) { borrowers().remove(pointer); }

void forgetAll() { borrowers().clear(); }

} // namespace borrowed_images

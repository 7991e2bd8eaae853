// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Keeps what goes on in the order in which it began.
#include "core/LongWork.h"

#include <utility>
#include <vector>

namespace vistrel {

namespace {

LongWork::Watcher currentWatcher = nullptr;

std::vector<const QString*>& goingOn()
{
    static std::vector<const QString*> works;
    return works;
}

void tell()
{
    if (currentWatcher != nullptr)
        currentWatcher(goingOn().empty() ? QString() : *goingOn().back());
}

} // namespace

LongWork::LongWork(QString what)
    : m_what(std::move(what))
{
    goingOn().push_back(&m_what);
    tell();
}

LongWork::~LongWork()
{
    std::erase(goingOn(), &m_what);
    tell();
}

LongWork::Watcher LongWork::watch(Watcher watcher)
{
    return std::exchange(currentWatcher, watcher);
}

} // namespace vistrel

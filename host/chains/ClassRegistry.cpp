// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// All classes that plugins may find, and the look-up.
#include "chains/ClassRegistry.h"

#include "chains/BackgroundSubtraction.h"
#include "chains/Flip.h"
#include "chains/FrameAverage.h"
#include "chains/Gamma.h"
#include "chains/GaussianBlur.h"
#include "chains/Median.h"
#include "chains/Rotate.h"
#include "chains/Threshold.h"

#include <algorithm>

namespace vistrel {

// A new element is one line here.
ClassRegistry::ClassRegistry()
{
    add<GaussianBlur>();
    add<Flip>();
    add<Rotate>();
    add<Threshold>();
    add<Gamma>();
    add<Median>();
    add<BackgroundSubtraction>();
    add<FrameAverage>();
    addKnown<ChainEnd>();
}

QList<QString> ClassRegistry::classesForInterface(const QString& interfaceName, bool instantiable)
{
    QList<QString> names;
    for (const Entry& entry : m_entries) {
        if (entry.interfaces.contains(interfaceName) && (entry.make != nullptr || !instantiable))
            names.append(entry.name);
    }
    return names;
}

QString ClassRegistry::customName(const QString& className)
{
    const Entry* const entry = find(className);
    return entry != nullptr ? entry->customName : className;
}

QObject* ClassRegistry::createInstance(const QString& className)
{
    const Entry* const entry = find(className);
    return entry != nullptr && entry->make != nullptr ? entry->make() : nullptr;
}

const ClassRegistry::Entry* ClassRegistry::find(const QString& className) const
{
    const auto hasName = [&className](const Entry& entry) { return entry.name == className; };
    const auto place = std::find_if(m_entries.begin(), m_entries.end(), hasName);
    return place == m_entries.end() ? nullptr : &*place;
}

} // namespace vistrel

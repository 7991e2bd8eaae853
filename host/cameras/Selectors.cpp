// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The selectors of a camera: features of which each entry shows other values of some others.
#include "cameras/Selectors.h"

#include <utility>

namespace vistrel {

namespace {

NodeResult noSelector(const QString& name)
{
    return {ParameterStatus::Unknown, QStringLiteral("the camera has no selector %1").arg(name)};
}

} // namespace

Selectors::Selectors(const CameraNodes& nodes)
{
    for (const auto& [selector, category] : nodes.features(ARV_GC_VISIBILITY_INVISIBLE)) {
        const auto selected = CameraNodes::selectedBy(ARV_GC_NODE(selector));
        if (!selected.empty())
            m_selectors.append(CameraNodes::nameOf(selector));
        for (ArvGcFeatureNode* feature : selected)
            m_direct[CameraNodes::nameOf(feature)].append(CameraNodes::nameOf(selector));
    }
}

QStringList Selectors::of(const QString& feature) const
{
    QStringList found;
    add(feature, found);
    found.removeAll(feature); // a description may lead round in circles
    return found;
}

QStringList Selectors::all() const
{
    QStringList found;
    for (const QString& selector : m_selectors) {
        add(selector, found);
        found.append(selector);
    }
    found.removeDuplicates();
    return found;
}

void Selectors::add(const QString& feature, QStringList& found) const
{
    for (const QString& selector : m_direct.value(feature)) {
        if (found.contains(selector))
            continue;
        const qsizetype place = found.size();
        found.append(selector);
        add(selector, found);
        found.move(place, found.size() - 1); // after those that select it
    }
}

SelectorPositions::SelectorPositions(const CameraNodes& nodes, QStringList selectors)
    : m_nodes(nodes)
    , m_selectors(std::move(selectors))
{
}

NodeValues SelectorPositions::current() const
{
    NodeValues position;
    for (const QString& name : m_selectors) {
        NodeValue value;
        ArvGcNode* node = m_nodes.find(name);
        if (node && m_nodes.read(node, value).done())
            position.emplace(name, value);
    }
    return position;
}

std::vector<NodeValues> SelectorPositions::all(std::size_t most) const
{
    std::vector<NodeValues> found;
    NodeValues position;
    if (!collect(0, position, most, found))
        found.clear();
    return found;
}

// What a selector offers may depend on where those before it stand.
bool SelectorPositions::collect(qsizetype selector, NodeValues& position, std::size_t most,
                                std::vector<NodeValues>& found) const
{
    if (selector == m_selectors.size()) {
        found.push_back(position);
        return found.size() <= most;
    }
    const QString& name = m_selectors[selector];
    for (const NodeValue& entry : entriesOf(name, most)) {
        if (!set(name, entry).done())
            return false;
        position[name] = entry;
        if (!collect(selector + 1, position, most, found))
            return false;
    }
    return !found.empty();
}

std::vector<NodeValue> SelectorPositions::entriesOf(const QString& selector, std::size_t most) const
{
    ArvGcNode* node = m_nodes.find(selector);
    std::vector<NodeValue> values;
    if (!node || !m_nodes.connected())
        return values;
    for (const QString& entry : m_nodes.entries(node))
        values.emplace_back(entry);
    const NodeLimits limits = m_nodes.limits(node);
    const qint64* least = std::get_if<qint64>(&limits.minimum);
    const qint64* greatest = std::get_if<qint64>(&limits.maximum);
    const qint64* step = std::get_if<qint64>(&limits.increment);
    if (!least || !greatest || !step || *step < 1 || *greatest < *least)
        return values;
    const quint64 steps = (quint64(*greatest) - quint64(*least)) / quint64(*step);
    for (quint64 i = 0; i <= steps && steps < most; ++i)
        values.emplace_back(*least + static_cast<qint64>(i) * *step);
    return values;
}

NodeResult SelectorPositions::moveTo(const NodeValues& position) const
{
    for (const auto& [name, entry] : position) {
        if (!m_selectors.contains(name))
            return noSelector(name);
    }
    NodeResult result;
    for (const QString& name : m_selectors) {
        const auto entry = position.find(name);
        if (result.done() && entry != position.end())
            result = set(name, entry->second);
    }
    return result;
}

NodeResult SelectorPositions::set(const QString& selector, const NodeValue& entry) const
{
    ArvGcNode* node = m_nodes.find(selector);
    if (!node)
        return noSelector(selector);
    NodeValue current;
    NodeResult result = m_nodes.read(node, current);
    if (result.done() && valueText(current) != valueText(entry))
        result = m_nodes.write(node, entry);
    return result;
}

} // namespace vistrel

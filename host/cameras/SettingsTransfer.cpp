// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Taking all settings of a camera, and giving them back to it.
#include "cameras/SettingsTransfer.h"

#include "cameras/ParameterNames.h"
#include "cameras/Selectors.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vistrel {

namespace {

/// More than limits ever depend on each other; a camera that rounds what it is given has an end
/// too.
constexpr int mostPasses = 8;
/// Enough for every gain, line and trigger; a table of brightness has thousands, each to be read
/// on its own.
constexpr std::size_t mostPositions = 64;

/// What reaches a camera, and which camera it is, stays when settings move to another one.
bool belongsToConnection(const QString& name)
{
    static const QStringList beginnings = {
        QStringLiteral("Gev"),          QStringLiteral("TL"),         QStringLiteral("UserSet"),
        QStringLiteral("File"),         QStringLiteral("Action"),     QStringLiteral("Ptp"),
        QStringLiteral("DeviceUserID"), QStringLiteral("DeviceLink"),
    };
    const auto begins = [&name](const QString& beginning) { return name.startsWith(beginning); };
    return std::any_of(beginnings.begin(), beginnings.end(), begins);
}

bool isSetting(ArvGcNode* node)
{
    return !ARV_IS_GC_COMMAND(node) && !ARV_IS_GC_CATEGORY(node)
           && !belongsToConnection(CameraNodes::nameOf(ARV_GC_FEATURE_NODE(node)));
}

bool isFinite(const NodeValue& value)
{
    const double* number = std::get_if<double>(&value);
    return !number || std::isfinite(*number);
}

bool isSame(const NodeValue& one, const NodeValue& other)
{
    if (asNumber(one) && asNumber(other) && !std::holds_alternative<QString>(other))
        return asNumber(one) == asNumber(other);
    return valueText(one) == valueText(other);
}

/// Not all cameras list in their categories what the host has names for.
std::vector<ArvGcFeatureNode*> settingsOf(const CameraNodes& nodes, ArvGcVisibility visibility)
{
    std::vector<ArvGcFeatureNode*> features;
    for (const CategorisedNode& feature : nodes.features(visibility))
        features.push_back(feature.node);
    for (const ParameterName& parameter : knownParameters()) {
        for (const QString& name : parameter.nodes) {
            if (ArvGcNode* node = nodes.find(name))
                features.push_back(ARV_GC_FEATURE_NODE(node));
        }
    }
    return features;
}

QStringList settingNames(const CameraNodes& nodes, CxCameraParam::ExVisibility visibility)
{
    QStringList names;
    for (ArvGcFeatureNode* feature : settingsOf(nodes, CameraNodes::cameraVisibility(visibility))) {
        if (isSetting(ARV_GC_NODE(feature)))
            names.append(CameraNodes::nameOf(feature));
    }
    names.removeDuplicates();
    return names;
}

/// What can be both read and written now.
NodeValues readAll(const CameraNodes& nodes, const QStringList& names)
{
    NodeValues values;
    for (const QString& name : names) {
        NodeValue value;
        ArvGcNode* node = nodes.find(name);
        if (node && nodes.connected() && nodes.isWritable(node) && nodes.read(node, value).done()
            && isFinite(value))
            values.emplace(name, value);
    }
    return values;
}

/// Of features that depend on the same selectors, at each position of these. None when there are
/// not several.
std::vector<SelectedValues> readSelected(const CameraNodes& nodes, const QStringList& selectors,
                                         const QStringList& names)
{
    std::vector<SelectedValues> selected;
    const SelectorPositions bank(nodes, selectors);
    const NodeValues before = bank.current();
    const std::vector<NodeValues> positions = bank.all(mostPositions);
    for (const NodeValues& position : positions) {
        if (positions.size() > 1 && bank.moveTo(position).done())
            selected.push_back({position, readAll(nodes, names)});
    }
    bank.moveTo(before);
    return selected;
}

/// One value on its way into the camera.
struct Transfer {
    QString name;
    NodeValue wanted;
    ArvGcNode* node;
    NodeResult result;
};

/// Whether a write went through that changed something.
bool writeIfDifferent(const CameraNodes& nodes, Transfer& transfer)
{
    NodeValue current;
    transfer.result = nodes.read(transfer.node, current);
    if (transfer.result.done() && isSame(current, transfer.wanted))
        return false;
    transfer.result = nodes.write(transfer.node, transfer.wanted);
    return transfer.result.done();
}

/// Values that belong together: those that a camera has once, or has at one position of selectors.
class Batch {
public:
    /// Of the values, selectors are written first, in their order.
    Batch(const CameraNodes& nodes, const NodeValues& position, NodeValues values,
          const QStringList& selectors)
        : m_nodes(nodes)
        , m_position(position)
    {
        for (const QString& selector : selectors) {
            if (const auto value = values.extract(selector))
                add(value.key(), value.mapped());
        }
        m_selectors = m_transfers.size();
        for (const auto& [name, value] : values)
            add(name, value);
    }

    /// Whether that changed something besides selectors, which every batch moves.
    bool write(const SelectorPositions& selectors)
    {
        bool changed = false;
        const NodeResult moved = selectors.moveTo(m_position);
        for (std::size_t i = 0; i < m_transfers.size(); ++i) {
            Transfer& transfer = m_transfers[i];
            if (!transfer.node)
                continue;
            if (!moved.done())
                transfer.result = moved;
            else if (writeIfDifferent(m_nodes, transfer) && i >= m_selectors)
                changed = true;
        }
        return changed;
    }
    QStringList refusals() const
    {
        QStringList lines;
        for (const Transfer& transfer : m_transfers) {
            if (!transfer.result.done())
                lines.append(QStringLiteral("parameter %1%2 cannot be set to %3: %4")
                                 .arg(transfer.name, positionText(), valueText(transfer.wanted),
                                      transfer.result.reason));
        }
        return lines;
    }

private:
    void add(const QString& name, const NodeValue& value)
    {
        ArvGcNode* node = m_nodes.find(name);
        Transfer transfer{name, value, node && isSetting(node) ? node : nullptr, {}};
        if (!transfer.node)
            transfer.result = {ParameterStatus::Unknown,
                               QStringLiteral("the camera has no such setting")};
        m_transfers.push_back(transfer);
    }
    QString positionText() const
    {
        QString text;
        for (const auto& [selector, entry] : m_position)
            text += QStringLiteral(" at %1 %2").arg(selector, valueText(entry));
        return text;
    }

    const CameraNodes& m_nodes;
    const NodeValues& m_position;
    std::vector<Transfer> m_transfers;
    std::size_t m_selectors = 0;
};

} // namespace

CameraValues currentSettings(const CameraNodes& nodes, CxCameraParam::ExVisibility visibility)
{
    const Selectors selectors(nodes);
    std::map<QStringList, QStringList> groups; // by the selectors on which they depend
    QStringList once;
    for (const QString& name : settingNames(nodes, visibility)) {
        const QStringList needed =
            selectors.all().contains(name) ? QStringList() : selectors.of(name);
        (needed.isEmpty() ? once : groups[needed]).append(name);
    }
    CameraValues settings;
    for (const auto& [needed, names] : groups) {
        const std::vector<SelectedValues> selected = readSelected(nodes, needed, names);
        settings.selected.insert(settings.selected.end(), selected.begin(), selected.end());
        if (selected.empty())
            once += names;
    }
    settings.values = readAll(nodes, once);
    return settings;
}

// What there is once comes last, so that the selectors stand where they are to.
QStringList applySettings(const CameraNodes& nodes, const CameraValues& settings)
{
    const QStringList selectors = Selectors(nodes).all();
    const SelectorPositions bank(nodes, selectors);
    const NodeValues before = bank.current();
    const NodeValues nowhere;
    std::vector<Batch> batches;
    for (const SelectedValues& selected : settings.selected)
        batches.emplace_back(nodes, selected.position, selected.values, selectors);
    Batch once(nodes, nowhere, settings.values, selectors);
    bool changed = true;
    for (int pass = 0; changed && pass < mostPasses; ++pass) {
        changed = false;
        for (Batch& batch : batches)
            changed = batch.write(bank) || changed;
        bank.moveTo(before);
        changed = once.write(bank) || changed;
    }
    batches.push_back(std::move(once));
    QStringList lines;
    for (const Batch& batch : batches)
        lines += batch.refusals();
    return lines;
}

} // namespace vistrel

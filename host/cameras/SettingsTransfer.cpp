// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Taking all settings of a camera, and giving them back to it.
#include "cameras/SettingsTransfer.h"

#include "cameras/ParameterNames.h"

#include <algorithm>
#include <cmath>

namespace vistrel {

namespace {

/// More than limits ever depend on each other; a camera that rounds what it is given has an end
/// too.
constexpr int mostPasses = 8;

ArvGcVisibility cameraVisibility(CxCameraParam::ExVisibility visibility)
{
    switch (visibility) {
    case CxCameraParam::Beginner:
        return ARV_GC_VISIBILITY_BEGINNER;
    case CxCameraParam::Expert:
        return ARV_GC_VISIBILITY_EXPERT;
    case CxCameraParam::Guru:
        break;
    }
    return ARV_GC_VISIBILITY_GURU;
}

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

QString nameOf(ArvGcFeatureNode* node)
{
    return QString::fromUtf8(arv_gc_feature_node_get_name(node));
}

bool isSetting(ArvGcNode* node)
{
    return !ARV_IS_GC_COMMAND(node) && !ARV_IS_GC_CATEGORY(node)
           && !belongsToConnection(nameOf(ARV_GC_FEATURE_NODE(node)));
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
    std::vector<ArvGcFeatureNode*> features = nodes.features(visibility);
    for (const ParameterName& parameter : knownParameters()) {
        for (const QString& name : parameter.nodes) {
            if (ArvGcNode* node = nodes.find(name))
                features.push_back(ARV_GC_FEATURE_NODE(node));
        }
    }
    return features;
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

std::vector<Transfer> transfersOf(const CameraNodes& nodes,
                                  const std::map<QString, NodeValue>& values)
{
    std::vector<Transfer> transfers;
    for (const auto& [name, value] : values) {
        ArvGcNode* node = nodes.find(name);
        Transfer transfer{name, value, node && isSetting(node) ? node : nullptr, {}};
        if (!transfer.node)
            transfer.result = {ParameterStatus::Unknown,
                               QStringLiteral("the camera has no such setting")};
        transfers.push_back(transfer);
    }
    return transfers;
}

} // namespace

std::map<QString, NodeValue> currentSettings(const CameraNodes& nodes,
                                             CxCameraParam::ExVisibility visibility)
{
    std::map<QString, NodeValue> values;
    for (ArvGcFeatureNode* feature : settingsOf(nodes, cameraVisibility(visibility))) {
        ArvGcNode* node = ARV_GC_NODE(feature);
        NodeValue value;
        if (nodes.connected() && isSetting(node) && nodes.isWritable(node)
            && nodes.read(node, value).done() && isFinite(value))
            values.emplace(nameOf(feature), value);
    }
    return values;
}

QStringList applySettings(const CameraNodes& nodes, const std::map<QString, NodeValue>& values)
{
    std::vector<Transfer> transfers = transfersOf(nodes, values);
    bool changed = true;
    for (int pass = 0; changed && pass < mostPasses; ++pass) {
        changed = false;
        for (Transfer& transfer : transfers)
            changed = (transfer.node && writeIfDifferent(nodes, transfer)) || changed;
    }
    QStringList lines;
    for (const Transfer& transfer : transfers) {
        if (!transfer.result.done())
            lines.append(
                QStringLiteral("parameter %1 cannot be set to %2: %3")
                    .arg(transfer.name, valueText(transfer.wanted), transfer.result.reason));
    }
    return lines;
}

} // namespace vistrel

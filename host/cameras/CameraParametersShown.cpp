// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Parameters as they are shown to people: what they are, what they are set to, what they take.
#include "cameras/CameraParameters.h"
#include "cameras/CameraStream.h"

namespace vistrel {

namespace {

FeatureKind kindOf(ArvGcNode* node)
{
    const QString type = CameraNodes::typeName(node);
    if (type == u"command")
        return FeatureKind::Command;
    if (type == u"enumeration")
        return FeatureKind::Enumeration;
    if (type == u"boolean")
        return FeatureKind::Switch;
    if (type == u"float")
        return FeatureKind::Float;
    return type == u"integer" ? FeatureKind::Integer : FeatureKind::Text;
}

/// In the host's type, which may be another one than the camera's.
FeatureKind kindOf(const MappedParameter& parameter)
{
    if (parameter.hasNamedValues())
        return FeatureKind::Enumeration;
    if (parameter.type() == CxValue::Bool)
        return FeatureKind::Switch;
    return parameter.type() == CxValue::Float ? FeatureKind::Float : FeatureKind::Integer;
}

/// The name for people, unless it is the name again, and what the camera says of it.
QString helpOf(ArvGcFeatureNode* node)
{
    const QString name = CameraNodes::nameOf(node);
    const QString display = QString::fromUtf8(arv_gc_feature_node_get_display_name(node));
    QString text = QString::fromUtf8(arv_gc_feature_node_get_description(node)).simplified();
    if (text.isEmpty())
        text = QString::fromUtf8(arv_gc_feature_node_get_tooltip(node)).simplified();
    if (display.isEmpty() || display == name)
        return text;
    return text.isEmpty() ? display : QStringLiteral("%1: %2").arg(display, text);
}

/// By its text: a 32-bit 0.1 is meant to be 0.1, and is not when it is widened.
NodeValue shown(const CxValue& value)
{
    if (value.type() == CxValue::Float)
        return value.toString().toDouble();
    return nodeValue(value);
}

/// The parameter's name need not be read again and again.
QList<FeatureEntry> shownEntries(const MappedParameter& parameter)
{
    QList<FeatureEntry> entries;
    for (const ParameterEnumValue& value : parameter.values())
        entries.append({value.name.mid(parameter.name().size() + 1), qint64{value.value}});
    return entries;
}

QList<FeatureEntry> shownEntries(const QStringList& names)
{
    QList<FeatureEntry> entries;
    for (const QString& name : names)
        entries.append({name, name});
    return entries;
}

} // namespace

std::vector<FeatureDescription>
CameraParameters::describeFeatures(CxCameraParam::ExVisibility visibility) const
{
    std::vector<FeatureDescription> features;
    for (const auto& parameter : m_parameters) {
        if (ArvGcNode* node = parameter->node())
            features.push_back({parameter->name(), QString(), helpOf(ARV_GC_FEATURE_NODE(node)),
                                parameter->unit(), kindOf(*parameter)});
    }
    for (const auto& [node, category] : m_nodes.features(CameraNodes::cameraVisibility(visibility)))
        features.push_back({CameraNodes::nameOf(node), category, helpOf(node),
                            CameraNodes::unit(ARV_GC_NODE(node)), kindOf(ARV_GC_NODE(node))});
    return features;
}

FeatureState CameraParameters::featureState(const QString& name) const
{
    FeatureState state;
    MappedParameter* parameter = supported(name);
    ArvGcNode* node = nodeNamed(name);
    if (!node || !m_nodes.connected()) {
        state.reason = node ? CameraNodes::disconnected().reason : unknown(name).reason;
        return state;
    }
    // A running stream is paused for what is locked by it.
    state.isWritable = m_nodes.isWritable(node) || (m_stream.running() && m_nodes.isLocked(node));
    if (parameter)
        readShown(*parameter, state);
    else
        readShown(node, state);
    return state;
}

void CameraParameters::readShown(MappedParameter& parameter, FeatureState& state) const
{
    CxValue value;
    const NodeResult result = parameter.read(value);
    state.reason = result.reason;
    if (result.done())
        state.value = shown(value);
    state.limits = {shown(parameter.minimum()), shown(parameter.maximum()),
                    shown(parameter.increment())};
    state.entries = shownEntries(parameter);
}

void CameraParameters::readShown(ArvGcNode* node, FeatureState& state) const
{
    if (ARV_IS_GC_COMMAND(node))
        return;
    state.reason = m_nodes.read(node, state.value).reason;
    state.limits = m_nodes.limits(node);
    if (ARV_IS_GC_ENUMERATION(node))
        state.entries = shownEntries(m_nodes.entries(node));
}

NodeResult CameraParameters::setFeature(const QString& name, const NodeValue& value)
{
    // As a text every number comes through whole, which the host's numbers of 32 bits do not allow.
    const bool* on = std::get_if<bool>(&value);
    return set(name, on ? CxValue::fromBool(*on) : CxValue::fromString(valueText(value)));
}

NodeResult CameraParameters::setRegion(const QRect& region)
{
    return changeRegion(region.x(), region.y(), region.width(), region.height());
}

NodeResult CameraParameters::setWholeSensor()
{
    NodeResult result = CameraNodes::disconnected();
    if (m_nodes.connected())
        whileStreamPaused([&] { result = m_region.writeWhole(); });
    if (!result.done())
        logLine(QStringLiteral("the whole sensor cannot be set: %1").arg(result.reason));
    return result;
}

} // namespace vistrel

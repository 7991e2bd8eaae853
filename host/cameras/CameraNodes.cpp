// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Finding, reading and describing nodes.
#include "cameras/CameraNodes.h"

#include "cameras/AravisHandles.h"
#include "cameras/CameraConnection.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace vistrel {

namespace {

ParameterStatus statusOf(const ArvFailure& failure)
{
    if (failure.is(ARV_GC_ERROR, ARV_GC_ERROR_OUT_OF_RANGE)
        || failure.is(ARV_GC_ERROR, ARV_GC_ERROR_ENUM_ENTRY_NOT_FOUND))
        return ParameterStatus::OutOfRange;
    if (failure.is(ARV_GC_ERROR, ARV_GC_ERROR_READ_ONLY)
        || failure.is(ARV_DEVICE_ERROR, ARV_DEVICE_ERROR_PROTOCOL_ERROR_ACCESS_DENIED)
        || failure.is(ARV_DEVICE_ERROR, ARV_DEVICE_ERROR_PROTOCOL_ERROR_WRITE_PROTECT))
        return ParameterStatus::NotAccessible;
    return isMissingAnswer(failure) ? ParameterStatus::Disconnected : ParameterStatus::Refused;
}

/// The readers know what they are called for.
template<class Interface>
Interface* as(ArvGcNode* node)
{
    return reinterpret_cast<Interface*>(node);
}

NodeValue readEnumeration(ArvGcNode* node, GError** error)
{
    return QString::fromUtf8(
        arv_gc_enumeration_get_string_value(as<ArvGcEnumeration>(node), error));
}

NodeValue readBoolean(ArvGcNode* node, GError** error)
{
    return arv_gc_boolean_get_value(as<ArvGcBoolean>(node), error) != FALSE;
}

NodeValue readFloat(ArvGcNode* node, GError** error)
{
    return arv_gc_float_get_value(as<ArvGcFloat>(node), error);
}

NodeValue readInteger(ArvGcNode* node, GError** error)
{
    return qint64{arv_gc_integer_get_value(as<ArvGcInteger>(node), error)};
}

NodeValue readString(ArvGcNode* node, GError** error)
{
    return QString::fromUtf8(arv_gc_string_get_value(as<ArvGcString>(node), error));
}

/// One limit, or no value when it cannot be told.
template<class Number, class Interface, class Getter>
NodeValue limit(Interface* node, Getter getter, const CameraNodes& nodes)
{
    if (!nodes.connected())
        return {};
    ArvFailure failure;
    const Number number = getter(node, failure.receive());
    return nodes.resultOf(failure).done() ? NodeValue(number) : NodeValue();
}

/// Aravis reads the ends of the type where a node has no limit of its own.
NodeValue unlessEndless(const NodeValue& value)
{
    const double* number = std::get_if<double>(&value);
    const bool endless = number && !(std::abs(*number) < std::numeric_limits<double>::max());
    return endless ? NodeValue() : value;
}

/// And the smallest number for a step.
NodeValue unlessTiny(const NodeValue& value)
{
    const double* number = std::get_if<double>(&value);
    const bool tiny = number && !(*number > std::numeric_limits<double>::min());
    return tiny ? NodeValue() : value;
}

NodeLimits floatLimits(ArvGcFloat* node, const CameraNodes& nodes)
{
    return {unlessEndless(limit<double>(node, arv_gc_float_get_min, nodes)),
            unlessEndless(limit<double>(node, arv_gc_float_get_max, nodes)),
            unlessTiny(limit<double>(node, arv_gc_float_get_inc, nodes))};
}

NodeLimits integerLimits(ArvGcInteger* node, const CameraNodes& nodes)
{
    return {limit<qint64>(node, arv_gc_integer_get_min, nodes),
            limit<qint64>(node, arv_gc_integer_get_max, nodes),
            limit<qint64>(node, arv_gc_integer_get_inc, nodes)};
}

const char* unitOf(ArvGcNode* node)
{
    if (ARV_IS_GC_FLOAT(node))
        return arv_gc_float_get_unit(ARV_GC_FLOAT(node));
    return ARV_IS_GC_INTEGER(node) ? arv_gc_integer_get_unit(ARV_GC_INTEGER(node)) : nullptr;
}

/// Aravis does not look at access modes meanwhile.
class UncheckedAccess {
public:
    explicit UncheckedAccess(ArvDevice* device)
        : m_device(device)
    {
        arv_device_set_access_check_policy(m_device, ARV_ACCESS_CHECK_POLICY_DISABLE);
    }
    ~UncheckedAccess()
    {
        arv_device_set_access_check_policy(m_device, ARV_ACCESS_CHECK_POLICY_ENABLE);
    }
    UncheckedAccess(const UncheckedAccess&) = delete;
    UncheckedAccess& operator=(const UncheckedAccess&) = delete;

private:
    ArvDevice* m_device;
};

QStringList textsOf(const GSList* list)
{
    QStringList texts;
    for (; list; list = list->next)
        texts.append(QString::fromUtf8(static_cast<const char*>(list->data)));
    return texts;
}

/// Walks the tree of categories; a description may be wrong and lead round in circles.
class FeatureWalk {
public:
    FeatureWalk(const CameraNodes& nodes, ArvGcVisibility visibility)
        : m_nodes(nodes)
        , m_visibility(visibility)
    {
    }
    void visit(const QString& name)
    {
        ArvGcNode* node = m_seen.contains(name) ? nullptr : m_nodes.find(name);
        if (!node)
            return;
        m_seen.append(name);
        if (ARV_IS_GC_CATEGORY(node))
            visitAll(name, m_nodes.entries(node));
        else if (isShown(ARV_GC_FEATURE_NODE(node)))
            features.push_back({ARV_GC_FEATURE_NODE(node), m_category});
    }

    std::vector<CategorisedNode> features;

private:
    void visitAll(const QString& category, const QStringList& names)
    {
        for (const QString& name : names) {
            m_category = category;
            visit(name);
        }
    }
    bool isShown(ArvGcFeatureNode* node) const
    {
        return arv_gc_feature_node_get_visibility(node) >= m_visibility;
    }

    const CameraNodes& m_nodes;
    const ArvGcVisibility m_visibility;
    QString m_category;
    QStringList m_seen;
};

} // namespace

CameraNodes::CameraNodes(ArvDevice* device, CameraConnection& connection)
    : m_device(device)
    , m_connection(connection)
{
}

// Aravis would read a name up to its first zero, and find another node.
ArvGcNode* CameraNodes::find(const QString& name) const
{
    if (name.contains(QChar::Null))
        return nullptr;
    ArvGcNode* node = arv_device_get_feature(m_device, name.toUtf8().constData());
    return node && ARV_IS_GC_FEATURE_NODE(node) ? node : nullptr;
}

bool CameraNodes::isImplemented(ArvGcNode* node) const
{
    ArvFailure failure;
    const bool implemented =
        connected()
        && arv_gc_feature_node_is_implemented(ARV_GC_FEATURE_NODE(node), failure.receive());
    return resultOf(failure).done() && implemented;
}

bool CameraNodes::isWritable(ArvGcNode* node) const
{
    const auto mode = arv_gc_feature_node_get_actual_access_mode(ARV_GC_FEATURE_NODE(node));
    return mode != ARV_GC_ACCESS_MODE_RO && usable(node).done();
}

bool CameraNodes::isLocked(ArvGcNode* node) const
{
    ArvFailure failure;
    const bool locked =
        connected() && arv_gc_feature_node_is_locked(ARV_GC_FEATURE_NODE(node), failure.receive());
    return resultOf(failure).done() && locked;
}

// An enumeration is also an integer and a text to Aravis: it comes first.
CameraNodes::Reader CameraNodes::readerOf(ArvGcNode* node)
{
    if (ARV_IS_GC_ENUMERATION(node))
        return readEnumeration;
    if (ARV_IS_GC_BOOLEAN(node))
        return readBoolean;
    if (ARV_IS_GC_FLOAT(node))
        return readFloat;
    if (ARV_IS_GC_INTEGER(node))
        return readInteger;
    return ARV_IS_GC_STRING(node) ? readString : nullptr;
}

NodeResult CameraNodes::read(ArvGcNode* node, NodeValue& value) const
{
    const Reader reader = readerOf(node);
    if (!reader)
        return {ParameterStatus::WrongType, QStringLiteral("it has no value")};
    return readUsable(node, reader, value);
}

NodeResult CameraNodes::readUsable(ArvGcNode* node, Reader reader, NodeValue& value) const
{
    if (NodeResult reason = usable(node); !reason.done())
        return reason;
    ArvFailure failure;
    NodeValue read = reader(node, failure.receive());
    if (failure)
        return resultOf(failure);
    value = std::move(read);
    return {};
}

bool CameraNodes::isReadable(ArvGcNode* node)
{
    return arv_gc_feature_node_get_actual_access_mode(ARV_GC_FEATURE_NODE(node))
           != ARV_GC_ACCESS_MODE_WO;
}

NodeResult CameraNodes::readKnown(ArvGcNode* node, Reader reader, NodeValue& value) const
{
    const UncheckedAccess scope(m_device);
    return readUsable(node, reader, value);
}

NodeLimits CameraNodes::limits(ArvGcNode* node) const
{
    if (ARV_IS_GC_ENUMERATION(node))
        return {};
    if (ARV_IS_GC_FLOAT(node))
        return floatLimits(ARV_GC_FLOAT(node), *this);
    return ARV_IS_GC_INTEGER(node) ? integerLimits(ARV_GC_INTEGER(node), *this) : NodeLimits();
}

QStringList CameraNodes::entries(ArvGcNode* node) const
{
    if (ARV_IS_GC_CATEGORY(node))
        return textsOf(arv_gc_category_get_features(ARV_GC_CATEGORY(node)));
    if (!ARV_IS_GC_ENUMERATION(node) || !connected())
        return {};
    ArvFailure failure;
    guint count = 0;
    const char** entries = arv_gc_enumeration_dup_available_string_values(
        ARV_GC_ENUMERATION(node), &count, failure.receive());
    QStringList names;
    for (guint i = 0; i < count; ++i)
        names.append(QString::fromUtf8(entries[i]));
    g_free(entries);
    m_connection.judge(failure);
    return names;
}

QString CameraNodes::nameOf(ArvGcFeatureNode* node)
{
    return QString::fromUtf8(arv_gc_feature_node_get_name(node));
}

QString CameraNodes::typeName(ArvGcNode* node)
{
    if (ARV_IS_GC_CATEGORY(node))
        return QStringLiteral("category");
    if (ARV_IS_GC_COMMAND(node))
        return QStringLiteral("command");
    if (ARV_IS_GC_ENUMERATION(node))
        return QStringLiteral("enumeration");
    if (ARV_IS_GC_BOOLEAN(node))
        return QStringLiteral("boolean");
    if (ARV_IS_GC_FLOAT(node))
        return QStringLiteral("float");
    if (ARV_IS_GC_INTEGER(node))
        return QStringLiteral("integer");
    return ARV_IS_GC_STRING(node) ? QStringLiteral("string") : QString();
}

QString CameraNodes::unit(ArvGcNode* node)
{
    return ARV_IS_GC_ENUMERATION(node) ? QString() : QString::fromUtf8(unitOf(node));
}

ArvGcVisibility CameraNodes::cameraVisibility(CxCameraParam::ExVisibility visibility)
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

std::vector<CategorisedNode> CameraNodes::features(ArvGcVisibility visibility) const
{
    FeatureWalk walk(*this, visibility);
    walk.visit(QStringLiteral("Root"));
    return std::move(walk.features);
}

std::vector<ArvGcFeatureNode*> CameraNodes::selectedBy(ArvGcNode* node)
{
    std::vector<ArvGcFeatureNode*> selected;
    if (!ARV_IS_GC_SELECTOR(node))
        return selected;
    const GSList* list = arv_gc_selector_get_selected_features(ARV_GC_SELECTOR(node));
    for (; list; list = list->next) {
        if (list->data && ARV_IS_GC_FEATURE_NODE(list->data))
            selected.push_back(ARV_GC_FEATURE_NODE(list->data));
    }
    return selected;
}

NodeResult CameraNodes::resultOf(const ArvFailure& failure) const
{
    if (!failure)
        return {};
    m_connection.judge(failure);
    return {statusOf(failure), failure.message()};
}

bool CameraNodes::connected() const { return m_connection.alive(); }

NodeResult CameraNodes::disconnected()
{
    return {ParameterStatus::Disconnected, QStringLiteral("the connection broke")};
}

NodeResult CameraNodes::usable(ArvGcNode* node) const
{
    if (!connected())
        return disconnected();
    ArvFailure failure;
    const bool available =
        arv_gc_feature_node_is_available(ARV_GC_FEATURE_NODE(node), failure.receive());
    if (failure)
        return resultOf(failure);
    if (available)
        return {};
    return {ParameterStatus::NotAccessible, QStringLiteral("it is not available now")};
}

} // namespace vistrel

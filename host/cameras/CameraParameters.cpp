// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The parameters of one opened camera, by the host's names and by the camera's own.
#include "cameras/CameraParameters.h"

#include "cameras/CameraStream.h"
#include "cameras/SettingsFile.h"
#include "cameras/SettingsTransfer.h"
#include "core/Log.h"
#include "core/LongWork.h"
#include "core/NearNames.h"

#include <QtCore/QStringList>

#include <utility>

namespace vistrel {

namespace {

const QString loadUserSet = QStringLiteral("UserSetLoad");
const QString userSetSelector = QStringLiteral("UserSetSelector");

// A camera refuses these while it runs, and the buffers of a running stream would not fit.
bool changesFrameSize(const QString& node)
{
    static const QStringList names = {
        QStringLiteral("Width"),
        QStringLiteral("Height"),
        QStringLiteral("PixelFormat"),
        QStringLiteral("BinningHorizontal"),
        QStringLiteral("BinningVertical"),
        QStringLiteral("DecimationHorizontal"),
        QStringLiteral("DecimationVertical"),
    };
    return names.contains(node);
}

NodeResult unknownProperty()
{
    return {ParameterStatus::Unknown,
            QStringLiteral("what can be asked of a parameter is :min, :max, :inc, :unit, :entries "
                           "and :type")};
}

CxValue joined(const QStringList& entries)
{
    return entries.isEmpty() ? CxValue() : CxValue::fromString(entries.join(QStringLiteral(", ")));
}

CxValue text(const QString& text) { return text.isEmpty() ? CxValue() : CxValue::fromString(text); }

/// What can be asked of a parameter besides its value.
struct Properties {
    std::function<CxValue()> minimum;
    std::function<CxValue()> maximum;
    std::function<CxValue()> increment;
    std::function<CxValue()> unit;
    std::function<CxValue()> entries;
};

Properties propertiesOf(MappedParameter& parameter)
{
    return {[&] { return parameter.minimum(); }, [&] { return parameter.maximum(); },
            [&] { return parameter.increment(); }, [&] { return text(parameter.unit()); },
            [&] { return joined(parameter.entries()); }};
}

Properties propertiesOf(const CameraNodes& nodes, ArvGcNode* node)
{
    return {[&nodes, node] { return hostValue(nodes.limits(node).minimum); },
            [&nodes, node] { return hostValue(nodes.limits(node).maximum); },
            [&nodes, node] { return hostValue(nodes.limits(node).increment); },
            [node] { return text(CameraNodes::unit(node)); },
            [&nodes, node] { return joined(nodes.entries(node)); }};
}

/// Nothing for a property that there is not.
const std::function<CxValue()>* propertyNamed(const Properties& properties, const QString& name)
{
    if (name == u"min")
        return &properties.minimum;
    if (name == u"max")
        return &properties.maximum;
    if (name == u"inc")
        return &properties.increment;
    if (name == u"unit")
        return &properties.unit;
    return name == u"entries" ? &properties.entries : nullptr;
}

/// A text was made a number where it was sent: the line must still tell what may have been meant.
QString valueShown(const CxValue& value)
{
    const QString text = value.toString();
    return isNoNumber(value)
               ? QStringLiteral("%1 (what a text that is no number reads as)").arg(text)
               : text;
}

void report(const NodeResult& result, int* status)
{
    if (status)
        *status = static_cast<int>(result.status);
}

} // namespace

CameraParameters::CameraParameters(ArvDevice* device, CameraConnection& connection,
                                   CameraStream& stream, SxCameraInfo info)
    : m_stream(stream)
    , m_info(std::move(info))
    , m_nodes(device, connection)
    , m_region(m_nodes)
{
    for (const ParameterName& name : knownParameters()) {
        m_parameters.push_back(MappedParameter::make(name, m_nodes));
        m_parametersByName.insert(name.name, m_parameters.back().get());
    }
}

CameraParameters::~CameraParameters() = default;

CxCameraParam* CameraParameters::findParam(const QString& name, bool)
{
    return m_parametersByName.value(name);
}

bool CameraParameters::getParamDirect(const QString& name, CxValue& value, int* status)
{
    const qsizetype colon = name.indexOf(u':');
    const NodeResult result =
        colon < 0 ? read(name, value) : readProperty(name.left(colon), name.mid(colon + 1), value);
    report(result, status);
    if (!result.done())
        logLine(QStringLiteral("parameter %1 cannot be read: %2").arg(name, result.reason));
    return result.done();
}

bool CameraParameters::setParamDirect(const QString& name, const CxValue& value, int* status,
                                      ExCommitRefreshGuiMode)
{
    const NodeResult result = set(name, value);
    report(result, status);
    return result.done();
}

NodeResult CameraParameters::set(const QString& name, const CxValue& value)
{
    NodeResult result = write(name, value);
    if (result.done())
        m_stream.refreshRecordedSettings();
    else if (value.type() == CxValue::Empty) // what a parameter gives that cannot be read
        logLine(QStringLiteral("parameter %1 cannot be set: %2").arg(name, result.reason));
    else
        logLine(QStringLiteral("parameter %1 cannot be set to %2: %3")
                    .arg(name, valueShown(value), result.reason));
    return result;
}

QRect CameraParameters::currentROIRectParams()
{
    QRect rect;
    const NodeResult result = m_region.read(rect);
    if (!result.done())
        logLine(QStringLiteral("the region cannot be read: %1").arg(result.reason));
    return rect;
}

void CameraParameters::setROIRectParams(int x, int y, int width, int height, bool)
{
    changeRegion(x, y, width, height);
}

NodeResult CameraParameters::changeRegion(int x, int y, int width, int height)
{
    NodeResult result = CameraNodes::disconnected();
    if (m_nodes.connected())
        result = m_region.check(x, y, width, height);
    if (result.done())
        whileStreamPaused([&] { result = m_region.write(x, y, width, height); });
    if (!result.done())
        logLine(QStringLiteral("the region cannot be set to (%1, %2, %3, %4): %5")
                    .arg(QString::number(x), QString::number(y), QString::number(width),
                         QString::number(height), result.reason));
    return result;
}

bool CameraParameters::keepsDefaults() const
{
    ArvGcNode* load = m_nodes.find(loadUserSet);
    return load && m_nodes.find(userSetSelector) && m_nodes.isImplemented(load);
}

CameraValues CameraParameters::settings(CxCameraParam::ExVisibility visibility) const
{
    return currentSettings(m_nodes, visibility);
}

void CameraParameters::restoreDefaults(const CameraValues& fallback)
{
    NodeResult result;
    if (!m_nodes.connected()) {
        result = CameraNodes::disconnected(); // once, not for each value
    } else if (keepsDefaults()) {
        result = m_nodes.write(m_nodes.find(userSetSelector), QStringLiteral("Default"));
        if (result.done())
            result = m_nodes.write(m_nodes.find(loadUserSet), true);
    } else {
        for (const QString& line : apply(fallback))
            logLine(line);
    }
    if (!result.done())
        logLine(QStringLiteral("the defaults cannot be set: %1").arg(result.reason));
}

bool CameraParameters::saveParamValuesToFile(const QString& path,
                                             CxCameraParam::ExVisibility visibility)
{
    const LongWork work(QStringLiteral("Saving the settings of %1").arg(m_info.deviceName));
    const CameraSettings settings{m_info.deviceName, m_info.serialNumber,
                                  this->settings(visibility)};
    QString error = CameraNodes::disconnected().reason;
    if (m_nodes.connected() && writeSettingsFile(path, settings, error))
        return true;
    logLine(QStringLiteral("settings cannot be saved to %1: %2").arg(path, error));
    return false;
}

bool CameraParameters::loadParamValuesFromFile(const QString& path, CxCameraParam::ExVisibility,
                                               QList<QString>* messages, bool logErrors)
{
    const auto report = [&](const QString& line) {
        if (messages)
            messages->append(line);
        if (logErrors)
            logLine(line);
    };
    const LongWork work(QStringLiteral("Loading settings into %1").arg(m_info.deviceName));
    QString error;
    const std::optional<CameraSettings> settings = readSettingsFile(path, error);
    if (settings && settings->model != m_info.deviceName)
        error = QStringLiteral("they are of a camera %1").arg(settings->model);
    if (!m_nodes.connected())
        error = CameraNodes::disconnected().reason;
    if (!error.isEmpty()) {
        report(QStringLiteral("settings cannot be loaded from %1: %2").arg(path, error));
        return false;
    }
    for (const QString& line : apply(settings->values))
        report(line);
    return true;
}

// Nobody shows the presets but whoever asks for them, so there is nobody to tell.
void CameraParameters::notifyShadingChanged() {}

MappedParameter* CameraParameters::supported(const QString& name) const
{
    MappedParameter* parameter = m_parametersByName.value(name);
    return parameter && parameter->node() ? parameter : nullptr;
}

ArvGcNode* CameraParameters::nodeNamed(const QString& name) const
{
    const MappedParameter* parameter = supported(name);
    return parameter ? parameter->node() : m_nodes.find(name);
}

NodeResult CameraParameters::unknown(const QString& name) const
{
    QStringList known;
    for (const auto& parameter : m_parameters) {
        if (parameter->node())
            known.append(parameter->name());
    }
    for (const CategorisedNode& feature : m_nodes.features(ARV_GC_VISIBILITY_GURU))
        known.append(CameraNodes::nameOf(feature.node));
    return {ParameterStatus::Unknown,
            QStringLiteral("the camera has no such parameter") + nearNamesAsked(name, known)};
}

NodeResult CameraParameters::read(const QString& name, CxValue& value) const
{
    if (const MappedParameter* parameter = supported(name))
        return parameter->read(value);
    ArvGcNode* node = nodeNamed(name);
    NodeValue raw;
    NodeResult result = node ? m_nodes.read(node, raw) : unknown(name);
    if (result.done())
        value = hostValue(raw);
    return result;
}

NodeResult CameraParameters::readProperty(const QString& name, const QString& property,
                                          CxValue& value) const
{
    MappedParameter* parameter = supported(name);
    ArvGcNode* node = nodeNamed(name);
    if (!m_nodes.connected())
        return CameraNodes::disconnected();
    if (!node)
        return unknown(name);
    if (property == u"type") {
        value = CxValue::fromString(CameraNodes::typeName(node));
        return {};
    }
    const Properties all = parameter ? propertiesOf(*parameter) : propertiesOf(m_nodes, node);
    const auto* ask = propertyNamed(all, property);
    if (!ask)
        return unknownProperty();
    value = (*ask)();
    return {};
}

NodeResult CameraParameters::write(const QString& name, const CxValue& value)
{
    ArvGcNode* node = nodeNamed(name);
    if (!m_nodes.connected())
        return CameraNodes::disconnected();
    if (!node)
        return unknown(name);
    NodeResult result;
    const auto change = [&] {
        MappedParameter* parameter = supported(name);
        result = parameter ? parameter->write(value) : m_nodes.write(node, nodeValue(value));
    };
    if (mustPauseFor(node))
        whileStreamPaused(change);
    else
        change();
    return result;
}

bool CameraParameters::mustPauseFor(ArvGcNode* node) const
{
    if (!m_stream.running())
        return false;
    return changesFrameSize(CameraNodes::nameOf(ARV_GC_FEATURE_NODE(node)))
           || m_nodes.isLocked(node);
}

QStringList CameraParameters::apply(const CameraValues& values)
{
    QStringList lines;
    whileStreamPaused([&] { lines = applySettings(m_nodes, values); });
    m_stream.refreshRecordedSettings();
    return lines;
}

void CameraParameters::whileStreamPaused(const std::function<void()>& change)
{
    if (!m_stream.running())
        return change();
    m_stream.pause();
    change();
    QString error;
    if (!m_stream.resume(error))
        logLine(error);
}

void CameraParameters::logLine(const QString& text) const
{
    logError(QStringLiteral("camera %1: %2").arg(m_info.deviceName, text));
}

} // namespace vistrel

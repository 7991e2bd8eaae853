// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The part of the sensor that a camera sends.
#include "cameras/RegionOfInterest.h"

#include <algorithm>

namespace vistrel {

namespace {

/// Whole numbers that a node takes.
struct Steps {
    qint64 least = 0;
    qint64 greatest = 0;
    qint64 step = 1;

    qint64 atMost(qint64 number) const
    {
        const qint64 held = std::clamp(number, least, std::max(least, greatest));
        return held - (held - least) % step;
    }
    qint64 atLeast(qint64 number) const
    {
        const qint64 lower = atMost(number);
        return lower < number && lower + step <= greatest ? lower + step : lower;
    }
};

Steps stepsOf(const CameraNodes& nodes, ArvGcNode* node)
{
    constexpr qint64 endless = 1LL << 40;
    const NodeLimits limits = nodes.limits(node);
    return {asInteger(limits.minimum).value_or(0), asInteger(limits.maximum).value_or(endless),
            std::max<qint64>(1, asInteger(limits.increment).value_or(1))};
}

} // namespace

RegionOfInterest::RegionOfInterest(const CameraNodes& nodes)
    : m_nodes(nodes)
    , m_x(axis("OffsetX", "Width", "SensorWidth", "WidthMax",
               {"BinningHorizontal", "DecimationHorizontal"}))
    , m_y(axis("OffsetY", "Height", "SensorHeight", "HeightMax",
               {"BinningVertical", "DecimationVertical"}))
{
}

NodeResult RegionOfInterest::read(QRect& region) const
{
    Span x;
    Span y;
    NodeResult result = readAxis(m_x, x);
    if (result.done())
        result = readAxis(m_y, y);
    if (result.done())
        region = QRect(static_cast<int>(x.start), static_cast<int>(y.start),
                       static_cast<int>(x.length), static_cast<int>(y.length));
    return result;
}

NodeResult RegionOfInterest::write(int left, int top, int width, int height) const
{
    const Span x{left, width};
    const Span y{top, height};
    QRect before;
    NodeResult result = read(before);
    if (!result.done())
        return result;
    result = writeAxis(m_x, x);
    if (result.done())
        result = writeAxis(m_y, y);
    if (!result.done() && m_nodes.connected()) {
        writeAxis(m_x, {before.x(), before.width()});
        writeAxis(m_y, {before.y(), before.height()});
    }
    return result;
}

// Some cameras do not tell the sensor's size, but all of them bound what they are given.
NodeResult RegionOfInterest::writeWhole() const
{
    constexpr int moreThanAnySensor = 1 << 24;
    return write(0, 0, moreThanAnySensor, moreThanAnySensor);
}

RegionOfInterest::Axis RegionOfInterest::axis(const char* offset, const char* size,
                                              const char* sensor, const char* greatest,
                                              std::initializer_list<const char*> joined) const
{
    const auto find = [this](const char* name) {
        ArvGcNode* node = m_nodes.find(QString::fromLatin1(name));
        return node && m_nodes.isImplemented(node) ? node : nullptr;
    };
    ArvGcNode* const whole = find(sensor);
    Axis axis{find(offset), find(size), whole ? whole : find(greatest), !whole, {}};
    for (const char* name : joined) {
        if (ArvGcNode* node = find(name))
            axis.joined.push_back(node);
    }
    return axis;
}

NodeResult RegionOfInterest::readNumber(ArvGcNode* node, qint64& number) const
{
    NodeValue value;
    NodeResult result = m_nodes.read(node, value);
    if (result.done())
        number = asInteger(value).value_or(0);
    return result;
}

NodeResult RegionOfInterest::factor(const Axis& axis, qint64& number) const
{
    number = 1;
    for (ArvGcNode* node : axis.joined) {
        qint64 joined = 1;
        if (NodeResult result = readNumber(node, joined); !result.done())
            return result;
        number *= std::max<qint64>(1, joined);
    }
    return {};
}

NodeResult RegionOfInterest::readAxis(const Axis& axis, Span& span) const
{
    if (!axis.size)
        return {ParameterStatus::Unknown, QStringLiteral("the camera has no region")};
    qint64 joined = 1;
    NodeResult result = factor(axis, joined);
    if (result.done())
        result = readNumber(axis.size, span.length);
    if (result.done() && axis.offset)
        result = readNumber(axis.offset, span.start);
    span = {span.start * joined, span.length * joined};
    return result;
}

NodeResult RegionOfInterest::writeAxis(const Axis& axis, const Span& wanted) const
{
    qint64 joined = 1;
    if (NodeResult result = factor(axis, joined); !result.done())
        return result;
    const qint64 start = wanted.start / joined;
    const qint64 end = (wanted.start + wanted.length + joined - 1) / joined;
    return place(axis, {start, end - start});
}

// The bounds of size and offset depend on each other; with the offset out of the way every order
// of old and new regions is good.
NodeResult RegionOfInterest::place(const Axis& axis, const Span& wanted) const
{
    NodeResult result;
    qint64 start = 0;
    if (axis.offset) {
        const Steps steps = stepsOf(m_nodes, axis.offset); // whose end is that of the old size
        start = Steps{steps.least, wanted.start, steps.step}.atMost(wanted.start);
        result = m_nodes.write(axis.offset, steps.least);
    }
    const Steps sizes = stepsOf(m_nodes, axis.size);
    const qint64 length = wanted.start + wanted.length - start;
    // Some cameras bound the size by the whole sensor whatever the offset is.
    const qint64 room = std::max(sizes.greatest - start, sizes.least);
    if (result.done())
        result = m_nodes.write(axis.size, Steps{sizes.least, room, sizes.step}.atLeast(length));
    if (result.done() && axis.offset)
        result = m_nodes.write(axis.offset, stepsOf(m_nodes, axis.offset).atMost(start));
    return result;
}

NodeResult RegionOfInterest::sensorLength(const Axis& axis, qint64& length) const
{
    qint64 joined = 1;
    NodeResult result = readNumber(axis.sensor, length);
    if (result.done() && axis.sensorIsJoined)
        result = factor(axis, joined);
    length *= joined;
    return result;
}

NodeResult RegionOfInterest::check(int left, int top, int width, int height) const
{
    const Span x{left, width};
    const Span y{top, height};
    if (x.start < 0 || y.start < 0 || x.length < 1 || y.length < 1)
        return {ParameterStatus::OutOfRange,
                QStringLiteral("it must begin on the sensor and hold a pixel")};
    if (!m_x.sensor || !m_y.sensor)
        return {};
    qint64 sensorWidth = 0;
    qint64 sensorHeight = 0;
    NodeResult result = sensorLength(m_x, sensorWidth);
    if (result.done())
        result = sensorLength(m_y, sensorHeight);
    if (result.done() && (x.start + x.length > sensorWidth || y.start + y.length > sensorHeight))
        return {ParameterStatus::OutOfRange,
                QStringLiteral("the sensor has %1 x %2 pixels").arg(sensorWidth).arg(sensorHeight)};
    return result;
}

} // namespace vistrel

// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Reads one pixel of any type.
#include "app/PixelText.h"

#include "core/ChannelNames.h"
#include "core/Packed565.h"
#include "core/PicBufView.h"

#include <SxPicBuf.h>

#include <QtCore/QStringList>

#include <cstring>

namespace vistrel {

namespace {

template<typename Value>
QString valueText(const quint8* address)
{
    Value value;
    std::memcpy(&value, address, sizeof value);
    return QString::number(value);
}

/// The text of the value with that index in a pixel; empty for types without values.
QString channelText(const quint8* pixel, ExImageDataType type, quint32 channel)
{
    switch (type) {
    case ExImageDataType::Int8:
        return valueText<qint8>(pixel + channel);
    case ExImageDataType::UInt8:
        return valueText<quint8>(pixel + channel);
    case ExImageDataType::Int16:
        return valueText<qint16>(pixel + channel * sizeof(qint16));
    case ExImageDataType::UInt16:
        return valueText<quint16>(pixel + channel * sizeof(quint16));
    case ExImageDataType::Int32:
        return valueText<qint32>(pixel + channel * sizeof(qint32));
    case ExImageDataType::UInt32:
        return valueText<quint32>(pixel + channel * sizeof(quint32));
    case ExImageDataType::Int64:
        return valueText<qint64>(pixel + channel * sizeof(qint64));
    case ExImageDataType::UInt64:
        return valueText<quint64>(pixel + channel * sizeof(quint64));
    case ExImageDataType::Float:
        return valueText<float>(pixel + channel * sizeof(float));
    case ExImageDataType::Double:
        return valueText<double>(pixel + channel * sizeof(double));
    case ExImageDataType::None:
    case ExImageDataType::Packed565:
        break;
    }
    return {};
}

QStringList packedTexts(const quint8* pixel)
{
    quint16 word = 0;
    std::memcpy(&word, pixel, sizeof word);
    QStringList texts;
    for (std::size_t colour = 0; colour < packed565::colors; ++colour)
        texts.append(QString::number(packed565::valueOf(word, colour)));
    return texts;
}

QStringList channelTexts(const SxPicBuf& buffer, const quint8* pixel)
{
    QStringList texts;
    for (quint32 channel = 0; channel < buffer.channels; ++channel)
        texts.append(channelText(pixel, buffer.dataType, channel));
    return texts;
}

/// The values of colours stand behind the colours' letters.
QString valuesText(const SxPicBuf& buffer, const quint8* pixel)
{
    QStringList texts = isPacked(buffer) ? packedTexts(pixel) : channelTexts(buffer, pixel);
    const QStringList names = channelNames(buffer);
    const bool areColours = names.size() == 3 || names.size() == 4;
    for (qsizetype i = 0; areColours && i < texts.size(); ++i)
        texts[i].prepend(names.value(i).first(1) + u' ');
    return texts.join(QStringLiteral(", "));
}

} // namespace

QString pixelText(const SxPicBuf& buffer, const QPoint& pixel)
{
    const bool isInside = pixel.x() >= 0 && pixel.y() >= 0
                          && static_cast<quint32>(pixel.x()) < buffer.width
                          && static_cast<quint32>(pixel.y()) < buffer.height;
    if (!buffer.data || !isInside)
        return {};
    const quint8* const address = buffer.data + static_cast<quint64>(pixel.y()) * buffer.stride
                                  + static_cast<quint64>(pixel.x()) * buffer.bytesPerPixel();
    return QStringLiteral("x %1, y %2: %3")
        .arg(pixel.x())
        .arg(pixel.y())
        .arg(valuesText(buffer, address));
}

} // namespace vistrel

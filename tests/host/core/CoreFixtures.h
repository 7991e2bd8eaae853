// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures and log lines for tests of the host's core.
#pragma once

#include "PictureMemory.h"

#include <CxImageData.h>
#include <CxPicBufAPI.h>

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QtGlobal>

#include <cstring>
#include <initializer_list>
#include <memory>
#include <mutex>
#include <vector>

namespace vistrel::test {

/// The layout of a picture in the order in which tests think of it.
struct Layout {
    unsigned width = 1;
    unsigned height = 1;
    unsigned channels = 1;
    ExImageDataType type = ExImageDataType::UInt8;
    unsigned bpc = 8;
    bool isRgb = false;
    unsigned stride = 0;
};

inline SxPicBuf newBuffer(const Layout& layout)
{
    SxPicBuf buffer;
    CxPicBufAPI::AllocPicBufFromHeap(buffer, layout.width, layout.height, layout.channels,
                                     layout.type, 0, layout.stride, layout.bpc,
                                     ExDataStorageFormat::Interleaved, ExColorFilterArray::None,
                                     layout.isRgb, true, 0);
    return buffer;
}

inline std::unique_ptr<CxImageData> newImage(const Layout& layout)
{
    auto image = std::make_unique<CxImageData>();
    image->setPicBuf(newBuffer(layout));
    return image;
}

inline std::size_t valuesPerLine(const SxPicBuf& buffer)
{
    return buffer.dataType == ExImageDataType::Packed565
               ? buffer.width
               : std::size_t{buffer.width} * buffer.channels;
}

/// Gives every value of the picture, line by line, to function(value&).
template<typename Element, typename Function>
void forEachValue(const SxPicBuf& buffer, Function function)
{
    for (std::size_t y = 0; y < buffer.height; ++y) {
        for (std::size_t i = 0; i < valuesPerLine(buffer); ++i) {
            quint8* const place = buffer.data + y * buffer.stride + i * sizeof(Element);
            Element value{};
            std::memcpy(&value, place, sizeof value);
            function(value);
            std::memcpy(place, &value, sizeof value);
        }
    }
}

/// Writes the values in turn, from the start again when they are used up.
template<typename Element>
void fill(const SxPicBuf& buffer, const std::vector<Element>& values)
{
    std::size_t next = 0;
    forEachValue<Element>(buffer, [&](Element& value) { value = values[next++ % values.size()]; });
}

template<typename Element>
std::vector<Element> valuesIn(const SxPicBuf& buffer)
{
    std::vector<Element> values;
    forEachValue<Element>(buffer, [&](const Element& value) { values.push_back(value); });
    return values;
}

/// Collects what is logged for as long as it lives. Read it when the threads that log have ended.
class LogLines {
public:
    LogLines()
        : m_previous(qInstallMessageHandler(&collect))
    {
        lines().clear();
    }
    ~LogLines() { qInstallMessageHandler(m_previous); }
    LogLines(const LogLines&) = delete;
    LogLines& operator=(const LogLines&) = delete;

    static QStringList& lines()
    {
        static QStringList collected;
        return collected;
    }
    static QString joined() { return lines().join(QLatin1Char('\n')); }

private:
    static void collect(QtMsgType, const QMessageLogContext&, const QString& line)
    {
        static std::mutex oneAtATime; // several threads may log
        const std::lock_guard lock(oneAtATime);
        lines() << line;
    }
    QtMessageHandler m_previous;
};

} // namespace vistrel::test

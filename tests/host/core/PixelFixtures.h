// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Random pictures of every kind, read and written value by value, for tests of pixel operations.
#pragma once

#include "CoreFixtures.h"
#include "core/PicBufView.h"

#include <CxPicBufAPI.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <type_traits>
#include <vector>

namespace vistrel::test {

/// A buffer that is freed at the end.
class Picture {
public:
    explicit Picture(const Layout& layout)
        : m_buffer(newBuffer(layout))
    {
    }
    ~Picture() { CxPicBufAPI::FreePicBuf(m_buffer, true); }
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    SxPicBuf& operator*() { return m_buffer; }
    SxPicBuf* operator->() { return &m_buffer; }

    /// Everything that lies in memory, the ends of the lines included.
    std::vector<quint8> bytes() const
    {
        return {m_buffer.data, m_buffer.data + m_buffer.dataSize()};
    }

private:
    SxPicBuf m_buffer;
};

inline const std::vector<ExImageDataType>& allTypes()
{
    using Type = ExImageDataType;
    static const std::vector<Type> types{Type::Int8,  Type::UInt8,  Type::Int16,    Type::UInt16,
                                         Type::Int32, Type::UInt32, Type::Int64,    Type::UInt64,
                                         Type::Float, Type::Double, Type::Packed565};
    return types;
}

/// Layouts of a type with 1 to 5 channels, odd sizes, and lines that end with nothing, with a gap,
/// and so that the next one begins on an odd address.
inline std::vector<Layout> layoutsOf(ExImageDataType type)
{
    std::vector<Layout> layouts;
    for (unsigned channels = 1; channels <= 5; ++channels) {
        Layout layout{.width = 7 + 2 * channels, .height = 5, .channels = channels, .type = type};
        SxPicBufInfo info;
        info.dataType = type;
        info.channels = channels;
        layout.bpc = type == ExImageDataType::Packed565 ? 6 : elementBits(info);
        const unsigned line = layout.width * info.bytesPerPixel();
        for (const unsigned stride : {0U, line + 16, line + 5}) {
            layout.stride = stride;
            layouts.push_back(layout);
        }
    }
    return layouts;
}

template<class Function>
void forEachLayout(Function function)
{
    for (const ExImageDataType type : allTypes()) {
        for (const Layout& layout : layoutsOf(type)) {
            SCOPED_TRACE(testing::Message() << "type " << static_cast<int>(type) << ", channels "
                                            << layout.channels << ", stride " << layout.stride);
            function(layout);
        }
    }
}

/// The value with that number on its line.
template<class Element>
Element valueAt(const SxPicBuf& buffer, std::size_t y, std::size_t i)
{
    Element value{};
    std::memcpy(&value, buffer.data + y * buffer.stride + i * sizeof value, sizeof value);
    return value;
}

template<class Element>
void setValueAt(const SxPicBuf& buffer, std::size_t y, std::size_t i, Element value)
{
    std::memcpy(buffer.data + y * buffer.stride + i * sizeof value, &value, sizeof value);
}

/// Random values over the whole range, with the extremes among them.
template<class Element>
Element randomValue(std::mt19937_64& random)
{
    const quint64 bits = random();
    if constexpr (std::is_floating_point_v<Element>)
        return static_cast<Element>(static_cast<qint64>(bits % 200001) - 100000) / Element{64};
    else if (bits % 16 == 0)
        return std::numeric_limits<Element>::max();
    else if (bits % 16 == 1)
        return std::numeric_limits<Element>::min();
    else
        return static_cast<Element>(bits >> 32 ^ bits << 8);
}

inline void fillRandomly(const SxPicBuf& buffer, unsigned seed)
{
    std::mt19937_64 random(seed);
    std::generate(buffer.data, buffer.data + buffer.dataSize(),
                  [&] { return static_cast<quint8>(random()); });
    visitElementType(buffer.dataType, [&](auto element) {
        forEachValue<decltype(element)>(
            buffer, [&](auto& value) { value = randomValue<decltype(element)>(random); });
    });
}

} // namespace vistrel::test

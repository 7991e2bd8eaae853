// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Pixels of 16 bits: 5 of red (the high ones), 6 of green, 5 of blue.
#pragma once

#include <QtCore/QtGlobal>

#include <array>
#include <cstddef>

namespace vistrel::packed565 {

constexpr std::size_t colors = 3;

/// The largest value of red, green and blue.
constexpr std::array<unsigned, colors> largest{31, 63, 31};
constexpr std::array<unsigned, colors> shift{11, 5, 0};

constexpr unsigned valueOf(quint16 word, std::size_t color)
{
    return (word >> shift[color]) & largest[color];
}

constexpr quint16 wordOf(unsigned red, unsigned green, unsigned blue)
{
    return static_cast<quint16>((red << shift[0]) | (green << shift[1]) | (blue << shift[2]));
}

/// Applies function(value, color) to each colour; the results must not exceed the largest values.
template<class Function>
constexpr quint16 changed(quint16 word, Function function)
{
    return wordOf(function(valueOf(word, 0), 0), function(valueOf(word, 1), 1),
                  function(valueOf(word, 2), 2));
}

} // namespace vistrel::packed565

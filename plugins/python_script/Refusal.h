// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The outcome of an operation that a script asked for: a value, or why there is none.
#pragma once

#include <utility>
#include <variant>

/// Why an operation was refused: a fixed text, or null where the script is to see the interpreter's
/// own report of a null result without an exception.
struct Refusal {
    const char* message = nullptr;
};

/// A refusal without a text of its own.
inline constexpr Refusal silentRefusal{};

/// A value or a refusal.
template<class T>
class Outcome {
public:
    Outcome(T value)
        : m_state(std::in_place_index<0>, std::move(value))
    {
    }
    Outcome(Refusal refusal)
        : m_state(std::in_place_index<1>, refusal)
    {
    }

    explicit operator bool() const { return m_state.index() == 0; }
    T& value() { return std::get<0>(m_state); }
    Refusal refusal() const { return std::get<1>(m_state); }

private:
    std::variant<T, Refusal> m_state;
};

// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Distances between names.
#include "core/NearNames.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace vistrel {

namespace {

constexpr qsizetype mostNames = 3;
constexpr qsizetype longestName = 100; // nobody misspells more, and the work grows with the square
constexpr qsizetype shortestPart = 4;  // fewer letters are in too many names

QString compared(const QString& name) { return name.toLower().remove(u'_'); }

/// Letters to change, add, take away or exchange with their neighbour (optimal string alignment).
int distance(const QString& one, const QString& other)
{
    const qsizetype width = other.size() + 1;
    std::vector<int> cells(static_cast<std::size_t>((one.size() + 1) * width));
    const auto cell = [&](qsizetype row, qsizetype column) -> int& {
        return cells[static_cast<std::size_t>(row * width + column)];
    };
    for (qsizetype row = 0; row <= one.size(); ++row) {
        for (qsizetype column = 0; column < width; ++column) {
            if (row == 0 || column == 0) {
                cell(row, column) = static_cast<int>(row + column);
                continue;
            }
            const bool same = one[row - 1] == other[column - 1];
            int least = std::min({cell(row - 1, column) + 1, cell(row, column - 1) + 1,
                                  cell(row - 1, column - 1) + (same ? 0 : 1)});
            if (row > 1 && column > 1 && one[row - 1] == other[column - 2]
                && one[row - 2] == other[column - 1])
                least = std::min(least, cell(row - 2, column - 2) + 1);
            cell(row, column) = least;
        }
    }
    return cells.back();
}

bool holds(const QString& one, const QString& other)
{
    return std::min(one.size(), other.size()) >= shortestPart
           && (one.contains(other) || other.contains(one));
}

/// The same to a name or, one letter farther, to its beginning: names are long, and people write a
/// part of them.
int distanceToBeginning(const QString& wanted, const QString& name)
{
    int least = distance(wanted, name);
    if (wanted.size() < shortestPart)
        return least;
    for (qsizetype length = wanted.size() - 1; length <= wanted.size() + 1; ++length)
        least = std::min(least, distance(wanted, name.left(length)) + 1);
    return least;
}

} // namespace

QStringList nearNames(const QString& misspelt, const QStringList& known)
{
    const QString wanted = compared(misspelt);
    if (wanted.isEmpty() || wanted.size() > longestName)
        return {};
    const auto tolerated = static_cast<int>(std::max<qsizetype>(wanted.size() / 3, 1));
    std::vector<std::pair<int, QString>> near;
    for (const QString& name : known) {
        const QString candidate = compared(name);
        const int letters = distanceToBeginning(wanted, candidate.left(longestName));
        if (letters <= tolerated || holds(wanted, candidate))
            near.emplace_back(letters, name);
    }
    std::stable_sort(near.begin(), near.end(),
                     [](const auto& one, const auto& other) { return one.first < other.first; });
    QStringList names;
    for (const auto& entry : near) {
        if (names.size() < mostNames && !names.contains(entry.second))
            names.append(entry.second);
    }
    return names;
}

QString nearNamesAsked(const QString& misspelt, const QStringList& known)
{
    QStringList names = nearNames(misspelt, known);
    if (names.isEmpty())
        return {};
    const QString last = names.takeLast();
    const QString list =
        names.isEmpty() ? last : names.join(QStringLiteral(", ")) + QStringLiteral(" or ") + last;
    return QStringLiteral("; did you mean %1?").arg(list);
}

} // namespace vistrel

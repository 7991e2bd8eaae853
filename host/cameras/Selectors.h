// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The selectors of a camera: features of which each entry shows other values of some others.
#pragma once

#include "cameras/CameraNodes.h"
#include "cameras/CameraValues.h"

#include <QtCore/QHash>

namespace vistrel {

/// Which feature a camera has several times, as its description tells.
class Selectors {
public:
    /// Looks through all features of the camera.
    explicit Selectors(const CameraNodes& nodes);

    /// All selectors on which a feature depends, one that selects another before that; none when
    /// the camera has the feature once.
    QStringList of(const QString& feature) const;
    /// All selectors of the camera, in that order.
    QStringList all() const;

private:
    void add(const QString& feature, QStringList& found) const;

    QStringList m_selectors;
    QHash<QString, QStringList> m_direct; ///< of a feature
};

/// Moves selectors that belong together. GUI thread.
class SelectorPositions {
public:
    /// @param nodes      outlive this object.
    /// @param selectors  one that selects another before that.
    SelectorPositions(const CameraNodes& nodes, QStringList selectors);

    /// Where they stand; without those that cannot be read now.
    NodeValues current() const;
    /// All positions that the selectors take together. None when they are more than `most`, or one
    /// of the selectors cannot be moved. Leaves them somewhere.
    std::vector<NodeValues> all(std::size_t most) const;
    /// Nothing is written to a selector that stands there already.
    NodeResult moveTo(const NodeValues& position) const;

private:
    bool collect(qsizetype selector, NodeValues& position, std::size_t most,
                 std::vector<NodeValues>& found) const;
    std::vector<NodeValue> entriesOf(const QString& selector, std::size_t most) const;
    NodeResult set(const QString& selector, const NodeValue& entry) const;

    const CameraNodes& m_nodes;
    const QStringList m_selectors;
};

} // namespace vistrel

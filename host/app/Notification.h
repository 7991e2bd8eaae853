// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A passing message in a corner of a window.
#pragma once

#include <QtCore/QSequentialAnimationGroup>
#include <QtWidgets/QLabel>

#include <chrono>

namespace vistrel {

/// Lies over its window, takes no clicks, and fades away; a newer text replaces the one that is
/// there.
class Notification : public QLabel {
    Q_OBJECT

public:
    /// @param window  becomes the parent.
    /// @param stay    how long a text stays as it is.
    /// @param fade    how long it takes to go then.
    explicit Notification(QWidget& window, std::chrono::milliseconds stay = std::chrono::seconds(4),
                          std::chrono::milliseconds fade = std::chrono::milliseconds(800));

    /// Shows a text, which is taken as plain.
    void announce(const QString& text);

    bool eventFilter(QObject* object, QEvent* event) override;

private:
    void place();

    QSequentialAnimationGroup m_passing;
};

} // namespace vistrel

// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Work that takes a person's patience, for whoever shows that something is going on.
#pragma once

#include <QtCore/QString>

namespace vistrel {

/// Something that may take seconds, from the object's beginning to its end. GUI thread.
class LongWork {
public:
    /// Is told of what goes on now, the work begun last; an empty text when nothing does.
    using Watcher = void (*)(const QString& what);

    /// @param what  for people, without a full stop: "Looking for cameras".
    explicit LongWork(QString what);
    ~LongWork();
    Q_DISABLE_COPY_MOVE(LongWork)

    /// Sets who is told, null for nobody; returns who was told before.
    static Watcher watch(Watcher watcher);

private:
    QString m_what;
};

} // namespace vistrel

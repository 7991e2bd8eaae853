// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What takes a person's patience, in the status bar.
#pragma once

#include "core/LongWork.h"

#include <QtWidgets/QWidget>

class QLabel;

namespace vistrel {

/// Names the long work that is under way, beside a bar that moves; hidden while there is none. One
/// at a time. GUI thread.
class WorkStatus : public QWidget {
    Q_OBJECT

public:
    explicit WorkStatus(QWidget* parent = nullptr);
    ~WorkStatus() override;

private:
    void showWork(const QString& what);

    QLabel* m_text;
    LongWork::Watcher m_before;
};

} // namespace vistrel

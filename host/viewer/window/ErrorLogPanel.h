// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The error lines of the program, for reading.
#pragma once

#include <QtWidgets/QTreeWidget>

namespace vistrel {

class ErrorLog;

class ErrorLogPanel : public QTreeWidget {
    Q_OBJECT

public:
    /// The log must outlive the panel.
    explicit ErrorLogPanel(ErrorLog& log, QWidget* parent = nullptr);

private:
    void showLines();

    ErrorLog& m_log;
};

} // namespace vistrel

// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The line below the editor that searches its text.
#pragma once

#include <QtWidgets/QWidget>

class QLineEdit;

namespace vistrel {

class EditorTabs;

/// Searches the current script. Hidden until it is asked for, and by Escape.
class FindBar : public QWidget {
    Q_OBJECT

public:
    /// The tabs must outlive the bar.
    explicit FindBar(EditorTabs& tabs, QWidget* parent = nullptr);

    /// Shows the bar with the selected text, ready for typing.
    void open();
    void findNext() { find(true); }
    void findPrevious() { find(false); }

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void find(bool forward);

    EditorTabs& m_tabs;
    QLineEdit* m_text;
};

} // namespace vistrel

// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The processing chain of the active view, for changing.
#pragma once

#include <QtCore/QPointer>
#include <QtWidgets/QWidget>

#include <vector>

class QAction;
class QLabel;
class QListWidget;
class QMenu;
class QToolBar;

namespace vistrel {

class AppDelegate;
class Chain;
class ChainElement;
class ElementForm;

/// Shows the elements of the active view in the order in which pictures go through them, whoever
/// has added them, and the settings of the selected one. Every change takes effect at once, also
/// while frames stream. GUI thread.
class ChainPanel : public QWidget {
    Q_OBJECT

public:
    /// The delegate must outlive the panel.
    explicit ChainPanel(AppDelegate& delegate, QWidget* parent = nullptr);

private:
    using Work = void (ChainPanel::*)();

    void layOut();
    void fillTools();
    void fillMenuOfElements(QMenu& menu);
    QAction* addTool(const QString& text, const QKeySequence& keys, Work work);
    void followView(int id);
    void showChain();
    void showRows();
    void showTitle();
    void showSelected();
    void addElement(const QString& className);
    void removeSelected();
    void moveUp() { moveSelected(-1); }
    void moveDown() { moveSelected(1); }
    void moveSelected(int by);
    void switchElement(int row);
    ChainElement* selected() const;

    AppDelegate& m_delegate;
    QPointer<Chain> m_chain; // of the active view
    QString m_viewTitle;
    std::vector<QPointer<ChainElement>> m_elements; // as the list shows them
    QLabel* m_title;
    QToolBar* m_tools;
    QListWidget* m_list;
    ElementForm* m_form;
    QAction* m_remove = nullptr;
    QAction* m_up = nullptr;
    QAction* m_down = nullptr;
};

} // namespace vistrel

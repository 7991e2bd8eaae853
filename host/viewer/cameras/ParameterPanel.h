// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A camera's features: seen, changed, and kept fresh.
#pragma once

#include "cameras/CameraFeatures.h"

#include <QtCore/QElapsedTimer>
#include <QtCore/QStringList>
#include <QtCore/QTimer>
#include <QtWidgets/QWidget>

#include <vector>

class QComboBox;
class QLabel;
class QLineEdit;
class QScrollArea;
class QVBoxLayout;

namespace vistrel {

class CameraManager;
class ParameterGroup;
class ParameterRow;

/// Made from what the camera tells. The rows in sight are read anew after each change, because one
/// feature's limits may move with another, and every second, because scripts and the camera itself
/// change them too: a few at a time, so that a slow camera does not hold the window up.
class ParameterPanel : public QWidget {
    Q_OBJECT

public:
    /// The manager must outlive the panel.
    explicit ParameterPanel(CameraManager& cameras, QWidget* parent = nullptr);
    ~ParameterPanel() override;

    /// Null, or a handle of no opened camera: none.
    void showCamera(void* cameraHandle);
    void* camera() const { return m_camera; }

    QLineEdit& filter() { return *m_filter; }
    /// The row of a feature, null when there is none or its heading has never been open. The host's
    /// names come first.
    ParameterRow* row(const QString& name) const;
    /// Reads all rows in sight now.
    void refresh();
    /// Reads them when the event loop gets to it.
    void refreshSoon();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void layOut();
    void restoreVisibility();
    void rebuild();
    void rememberOpenGroups();
    QVBoxLayout& emptyArea();
    void addGroup(const QString& category, std::vector<FeatureDescription> features);
    void applyFilter();
    void change(ParameterRow* row, const NodeValue& value);
    void readRow(ParameterRow* row);
    std::vector<ParameterRow*> rowsInSight() const;
    void work();

    CameraManager& m_cameras;
    void* m_camera = nullptr;
    QLineEdit* m_filter;
    QComboBox* m_visibility;
    QScrollArea* m_area;
    QLabel* m_nothing;
    std::vector<ParameterGroup*> m_groups;
    QStringList m_openGroups; ///< headings, also of cameras that were shown before
    std::vector<ParameterRow*> m_stale;
    QElapsedTimer m_sinceRound;
    QTimer m_timer;
};

} // namespace vistrel

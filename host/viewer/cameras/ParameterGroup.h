// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The features under one heading, which opens and closes.
#pragma once

#include "cameras/CameraFeatures.h"

#include <QtWidgets/QWidget>

#include <vector>

class QToolButton;

namespace vistrel {

class ParameterRow;

/// Rows are made when they are first shown: a camera may have hundreds of features.
class ParameterGroup : public QWidget {
    Q_OBJECT

public:
    ParameterGroup(const QString& title, std::vector<FeatureDescription> features,
                   QWidget* parent = nullptr);

    QString title() const;
    /// As the user left it; a filter opens it, too.
    bool isOpen() const;
    void setOpen(bool open);
    /// Shows only features whose name or help has this text, with the heading open; all of them,
    /// as the user left the heading, for an empty one.
    void filter(const QString& text);

    /// Those that have been made.
    const std::vector<ParameterRow*>& rows() const { return m_rows; }

Q_SIGNALS:
    /// Other rows are in sight.
    void rowsShown();
    void entered(vistrel::ParameterRow* row, const vistrel::NodeValue& value);

private:
    void makeRows();
    void showRows();

    std::vector<FeatureDescription> m_features;
    QToolButton* m_heading;
    QWidget* m_body;
    std::vector<ParameterRow*> m_rows;
    QString m_filter;
};

} // namespace vistrel

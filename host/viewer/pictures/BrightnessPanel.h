// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Brightness and histogram of the active view.
#pragma once

#include <QtCore/QPointer>
#include <QtCore/QTimer>
#include <QtWidgets/QWidget>

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QLabel;
class QPushButton;

namespace vistrel {

class AppDelegate;
class HistogramPlot;
class ImageView;
struct ValueRange;

/// Follows the active view. A live view's histogram is counted a few times a second, and only while
/// the panel is in sight.
class BrightnessPanel : public QWidget {
    Q_OBJECT

public:
    /// The delegate must outlive the panel.
    explicit BrightnessPanel(AppDelegate& delegate);

    HistogramPlot& plot() { return *m_plot; }

    /// Lets the user draw the region of the active view that is counted.
    void askForRegion();
    /// Counts the whole picture again.
    void clearRegion();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void arrange();
    void connectInputs();
    void followActiveView();
    void refreshSoon();
    void refresh();
    void showBrightness();
    void setValueBoxes(const ValueRange& range);
    void choose(const ValueRange& range);
    void chooseMode(int index);

    AppDelegate& m_delegate;
    QPointer<ImageView> m_view; // null when there is none
    QTimer m_refresh;
    QComboBox* m_mode;
    QDoubleSpinBox* m_black;
    QDoubleSpinBox* m_white;
    HistogramPlot* m_plot;
    QCheckBox* m_logarithmic;
    QPushButton* m_drawRegion;
    QPushButton* m_wholePicture;
    QLabel* m_counted;
};

} // namespace vistrel

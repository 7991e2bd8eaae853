// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What the status bar says about the views.
#pragma once

#include <QtCore/QObject>

class QLabel;
class QStatusBar;

namespace vistrel {

class AppDelegate;
class ImageView;

/// Shows the pixel below the mouse, in any view, and the zoom of the active view.
class PictureStatus : public QObject {
    Q_OBJECT

public:
    /// Both must outlive the object.
    PictureStatus(AppDelegate& delegate, QStatusBar& bar);

private:
    void follow(ImageView& view);
    void showZoom();

    AppDelegate& m_delegate;
    QLabel* m_pixel; // the bar's
    QLabel* m_zoom;
};

} // namespace vistrel

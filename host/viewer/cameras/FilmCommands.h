// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Recording of the active view, and the mark of every view that is recorded.
#pragma once

#include <QtCore/QElapsedTimer>
#include <QtCore/QObject>
#include <QtCore/QTimer>
#include <QtWidgets/QLabel>

class QAction;

namespace vistrel {

class HostApplication;
class ImageView;

/// A red mark with the time since the recording began, in the corner of a view. It follows the
/// view: scripts record, too, and a full disk ends a recording.
class RecordingMark : public QLabel {
    Q_OBJECT

public:
    /// The view's.
    explicit RecordingMark(ImageView& view);

    void follow();

private:
    ImageView& m_view;
    QElapsedTimer m_time;
    QTimer m_timer;
};

/// Its actions are enabled while they make sense.
class FilmCommands : public QObject {
    Q_OBJECT

public:
    /// The host must outlive the commands.
    explicit FilmCommands(HostApplication& host);

    QAction* recordAction() const { return m_record; }
    QAction* endAction() const { return m_end; }

private:
    void record();
    void end();
    void follow();
    ImageView* activeView() const;

    HostApplication& m_host;
    QAction* m_record;
    QAction* m_end;
    QTimer m_timer;
};

} // namespace vistrel

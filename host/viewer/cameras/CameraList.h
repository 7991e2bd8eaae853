// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The cameras that were found, and what each of them does.
#pragma once

#include "cameras/CameraManager.h"

#include <QtCore/QTimer>
#include <QtWidgets/QTreeWidget>

#include <map>
#include <set>
#include <vector>

namespace vistrel {

/// Follows the camera manager: scripts start and stop cameras, too. One camera is the current one.
class CameraList : public QTreeWidget {
    Q_OBJECT

public:
    enum Column : int { Model, SerialNumber, UserId, State };

    /// The manager must outlive the list.
    explicit CameraList(CameraManager& cameras, QWidget* parent = nullptr);

    /// What a search has found. Cameras that were opened are in the list without it.
    void showFound(std::vector<CameraListing> found);
    /// Asks the manager what the cameras do.
    void follow();

    /// Id of the current camera; empty when there is none.
    QString currentId() const;
    /// Its handle; null when it is not open.
    void* currentCamera() const;
    void setCurrentCamera(void* cameraHandle);

    QSize sizeHint() const override;

Q_SIGNALS:
    /// Another camera is the current one, or a camera does something else now.
    void changed();

private:
    struct Entry {
        CameraListing listing;
        QString userId;
        QString state;
        void* handle = nullptr; ///< null when it is not open

        bool operator==(const Entry& other) const;
    };

    std::vector<Entry> entriesNow();
    void noteOpened(void* handle);
    void showEntries();
    void noteLoss(void* handle);

    CameraManager& m_cameras;
    std::vector<CameraListing> m_known;
    std::vector<Entry> m_entries;         ///< as they are shown
    std::map<QString, QString> m_userIds; ///< by id: only an open camera tells it
    std::set<QString> m_lost;             ///< until they are found again
    QTimer m_timer;
};

} // namespace vistrel

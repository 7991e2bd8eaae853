// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The cameras that were found, and what each of them does.
#include "viewer/cameras/CameraList.h"

#include <CxCameraParameters.h>

#include <QtCore/QSignalBlocker>
#include <QtWidgets/QHeaderView>

#include <algorithm>
#include <tuple>
#include <utility>

namespace vistrel {

namespace {

constexpr int followEveryMs = 250;
constexpr int rowsInSight = 4;

} // namespace

bool CameraList::Entry::operator==(const Entry& other) const
{
    const auto all = [](const Entry& entry) {
        const CameraListing& camera = entry.listing;
        return std::tie(camera.id, camera.model, camera.serialNumber, entry.userId, entry.state,
                        entry.handle);
    };
    return all(*this) == all(other);
}

CameraList::CameraList(CameraManager& cameras, QWidget* parent)
    : QTreeWidget(parent)
    , m_cameras(cameras)
{
    setHeaderLabels({tr("Model"), tr("Serial number"), tr("User id"), tr("State")});
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    connect(this, &QTreeWidget::currentItemChanged, this, &CameraList::changed);
    connect(&m_cameras, &CameraManager::cameraLost, this, &CameraList::noteLoss);
    connect(&m_timer, &QTimer::timeout, this, &CameraList::follow);
    m_timer.start(followEveryMs);
    follow();
}

void CameraList::showFound(std::vector<CameraListing> found)
{
    m_known = std::move(found);
    m_lost.clear();
    follow();
}

void CameraList::follow()
{
    std::vector<Entry> entries = entriesNow();
    if (entries == m_entries)
        return;
    m_entries = std::move(entries);
    showEntries();
    Q_EMIT changed();
}

std::vector<CameraList::Entry> CameraList::entriesNow()
{
    for (void* handle : m_cameras.openedCameras())
        noteOpened(handle);
    std::vector<Entry> entries;
    for (const CameraListing& camera : m_known)
        entries.push_back({camera, m_userIds[camera.id], tr("found"), nullptr});
    for (Entry& entry : entries) {
        if (m_lost.count(entry.listing.id) > 0)
            entry.state = tr("connection lost");
        for (void* handle : m_cameras.openedCameras())
            if (m_cameras.idOf(handle) == entry.listing.id)
                entry.handle = handle;
        if (entry.handle)
            entry.state = m_cameras.isStreaming(entry.handle) ? tr("live") : tr("open");
    }
    return entries;
}

void CameraList::noteOpened(void* handle)
{
    const SxCameraInfo& info = m_cameras.cameraParameters(handle)->cameraInfo();
    const QString id = m_cameras.idOf(handle);
    m_userIds[id] = info.userId;
    m_lost.erase(id);
    const bool isKnown = std::any_of(m_known.begin(), m_known.end(),
                                     [&id](const auto& known) { return known.id == id; });
    if (!isKnown)
        m_known.push_back({id, QString(), info.deviceName, info.serialNumber});
}

void CameraList::showEntries()
{
    const QString current = currentId();
    const QSignalBlocker quiet(this);
    clear();
    for (const Entry& entry : m_entries) {
        const CameraListing& listing = entry.listing;
        auto* item = new QTreeWidgetItem(
            this, {listing.model, listing.serialNumber, entry.userId, entry.state});
        item->setData(Model, Qt::UserRole, listing.id);
        item->setToolTip(Model, listing.id);
        if (listing.id == current || !currentItem())
            setCurrentItem(item);
    }
    for (int column = Model; column < State; ++column)
        resizeColumnToContents(column);
}

void CameraList::noteLoss(void* handle)
{
    for (const Entry& entry : m_entries)
        if (entry.handle == handle)
            m_lost.insert(entry.listing.id);
    follow();
}

QString CameraList::currentId() const
{
    return currentItem() ? currentItem()->data(Model, Qt::UserRole).toString() : QString();
}

void* CameraList::currentCamera() const
{
    const QString id = currentId();
    for (const Entry& entry : m_entries)
        if (entry.listing.id == id)
            return entry.handle;
    return nullptr;
}

void CameraList::setCurrentCamera(void* cameraHandle)
{
    follow();
    for (std::size_t row = 0; row < m_entries.size(); ++row)
        if (m_entries[row].handle == cameraHandle)
            setCurrentItem(topLevelItem(static_cast<int>(row)));
}

QSize CameraList::sizeHint() const
{
    const int row = std::max(sizeHintForRow(0), fontMetrics().height());
    return {QTreeWidget::sizeHint().width(),
            header()->sizeHint().height() + rowsInSight * row + 2 * frameWidth()};
}

} // namespace vistrel

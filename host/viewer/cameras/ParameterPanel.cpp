// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A camera's features: seen, changed, and kept fresh.
#include "viewer/cameras/ParameterPanel.h"

#include "cameras/CameraManager.h"
#include "viewer/cameras/ParameterGroup.h"
#include "viewer/cameras/ParameterRow.h"

#include <QtCore/QSettings>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QScrollArea>
#include <QtWidgets/QScrollBar>

#include <algorithm>
#include <utility>

namespace vistrel {

namespace {

const char* const visibilityKey = "cameraVisibility";

/// How long rows are read at a stretch, how often, and how long a round is good for.
constexpr qint64 stretchMs = 12;
constexpr int pauseMs = 50;
constexpr qint64 freshMs = 1000;

/// The features below each heading; they come in the headings' order.
std::vector<std::pair<QString, std::vector<FeatureDescription>>>
byCategory(std::vector<FeatureDescription> features)
{
    std::vector<std::pair<QString, std::vector<FeatureDescription>>> groups;
    for (FeatureDescription& feature : features) {
        if (groups.empty() || groups.back().first != feature.category)
            groups.emplace_back(feature.category, std::vector<FeatureDescription>());
        groups.back().second.push_back(std::move(feature));
    }
    return groups;
}

} // namespace

ParameterPanel::ParameterPanel(CameraManager& cameras, QWidget* parent)
    : QWidget(parent)
    , m_cameras(cameras)
    , m_filter(new QLineEdit(this))
    , m_visibility(new QComboBox(this))
    , m_area(new QScrollArea(this))
    , m_nothing(new QLabel(tr("Open a camera to see its parameters."), this))
    , m_openGroups({QString()})
{
    layOut();
    restoreVisibility();
    connect(m_filter, &QLineEdit::textChanged, this, &ParameterPanel::applyFilter);
    connect(m_visibility, &QComboBox::activated, this, [this](int index) {
        QSettings().setValue(QLatin1String(visibilityKey), index);
        rebuild();
    });
    connect(m_area->verticalScrollBar(), &QScrollBar::valueChanged, this,
            &ParameterPanel::refreshSoon);
    connect(&m_cameras, &CameraManager::cameraClosing, this, [this](void* closing) {
        if (closing == m_camera)
            showCamera(nullptr);
    });
    connect(&m_timer, &QTimer::timeout, this, &ParameterPanel::work);
    rebuild();
}

ParameterPanel::~ParameterPanel() = default;

void ParameterPanel::layOut()
{
    m_filter->setPlaceholderText(tr("Filter parameters"));
    m_filter->setClearButtonEnabled(true);
    m_visibility->addItems({tr("Beginner"), tr("Expert"), tr("Guru")});
    m_visibility->setToolTip(tr("How much of the camera is shown"));
    m_nothing->setAlignment(Qt::AlignCenter);
    m_nothing->setWordWrap(true);
    m_nothing->setEnabled(false);
    m_area->setWidgetResizable(true);
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_area->setFrameShape(QFrame::NoFrame);
    auto* upper = new QHBoxLayout;
    upper->addWidget(m_filter, 1);
    upper->addWidget(m_visibility);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 0);
    layout->addLayout(upper);
    layout->addWidget(m_nothing, 1);
    layout->addWidget(m_area, 1);
}

void ParameterPanel::restoreVisibility()
{
    m_visibility->setCurrentIndex(QSettings().value(QLatin1String(visibilityKey), 0).toInt());
}

void ParameterPanel::showCamera(void* cameraHandle)
{
    if (std::exchange(m_camera, cameraHandle) != cameraHandle)
        rebuild();
}

void ParameterPanel::rebuild()
{
    rememberOpenGroups();
    m_groups.clear();
    m_stale.clear();
    QVBoxLayout& layout = emptyArea();
    const CameraFeatures* features = m_cameras.features(m_camera);
    m_nothing->setVisible(!features);
    m_area->setVisible(features);
    if (!features)
        return;
    const auto level = static_cast<CxCameraParam::ExVisibility>(m_visibility->currentIndex() + 1);
    for (auto& [category, descriptions] : byCategory(features->describeFeatures(level)))
        addGroup(category, std::move(descriptions));
    layout.addStretch(1);
    applyFilter();
}

// They are likely to be wanted of the next camera, too.
void ParameterPanel::rememberOpenGroups()
{
    for (const ParameterGroup* group : m_groups) {
        m_openGroups.removeAll(group->objectName());
        if (group->isOpen())
            m_openGroups.append(group->objectName());
    }
}

QVBoxLayout& ParameterPanel::emptyArea()
{
    auto* content = new QWidget;
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    // Its rows may be the ones whose signal has led here.
    if (QWidget* old = m_area->takeWidget())
        old->deleteLater();
    m_area->setWidget(content);
    return *layout;
}

void ParameterPanel::addGroup(const QString& category, std::vector<FeatureDescription> features)
{
    const QString title = category.isEmpty() ? tr("Common") : category;
    auto* group = new ParameterGroup(title, std::move(features), m_area->widget());
    group->setObjectName(category);
    m_area->widget()->layout()->addWidget(group);
    m_groups.push_back(group);
    connect(group, &ParameterGroup::rowsShown, this, &ParameterPanel::refreshSoon);
    connect(group, &ParameterGroup::entered, this, &ParameterPanel::change);
    group->setOpen(m_openGroups.contains(category));
}

void ParameterPanel::applyFilter()
{
    for (ParameterGroup* group : m_groups)
        group->filter(m_filter->text().trimmed());
}

ParameterRow* ParameterPanel::row(const QString& name) const
{
    for (const ParameterGroup* group : m_groups)
        for (ParameterRow* row : group->rows())
            if (row->feature().name == name)
                return row;
    return nullptr;
}

void ParameterPanel::change(ParameterRow* row, const NodeValue& value)
{
    CameraFeatures* features = m_cameras.features(m_camera);
    if (!features)
        return;
    const NodeResult result = features->setFeature(row->feature().name, value);
    const bool isCommand = row->feature().kind == FeatureKind::Command;
    if (result.done())
        row->showRefusal({});
    else if (isCommand)
        row->showRefusal(tr("Not executed: %1.").arg(result.reason));
    else
        row->showRefusal(tr("Not set to %1: %2.").arg(valueText(value), result.reason));
    readRow(row);
    refreshSoon();
}

void ParameterPanel::readRow(ParameterRow* row)
{
    if (const CameraFeatures* features = m_cameras.features(m_camera))
        row->showState(features->featureState(row->feature().name));
}

std::vector<ParameterRow*> ParameterPanel::rowsInSight() const
{
    std::vector<ParameterRow*> rows;
    for (const ParameterGroup* group : m_groups)
        std::copy_if(group->rows().begin(), group->rows().end(), std::back_inserter(rows),
                     [](const ParameterRow* row) { return row->isInSight(); });
    return rows;
}

void ParameterPanel::refresh()
{
    m_stale.clear();
    for (ParameterRow* row : rowsInSight())
        readRow(row);
}

void ParameterPanel::refreshSoon()
{
    m_stale.clear();
    m_sinceRound.invalidate();
    if (m_timer.isActive())
        m_timer.start(0);
}

void ParameterPanel::work()
{
    QElapsedTimer stretch;
    stretch.start();
    if (m_stale.empty() && (!m_sinceRound.isValid() || m_sinceRound.hasExpired(freshMs))) {
        m_stale = rowsInSight();
        // What has never been read comes first, and is taken from the end.
        std::stable_partition(m_stale.begin(), m_stale.end(),
                              [](const ParameterRow* row) { return row->isRead(); });
        m_sinceRound.start();
    }
    while (!m_stale.empty() && !stretch.hasExpired(stretchMs)) {
        ParameterRow* const row = m_stale.back();
        m_stale.pop_back();
        readRow(row);
    }
    m_timer.start(pauseMs);
}

void ParameterPanel::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    m_timer.start(0);
}

void ParameterPanel::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    m_timer.stop();
}

} // namespace vistrel

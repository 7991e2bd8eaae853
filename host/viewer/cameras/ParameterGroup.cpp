// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The features under one heading, which opens and closes.
#include "viewer/cameras/ParameterGroup.h"

#include "viewer/cameras/ParameterRow.h"

#include <QtWidgets/QToolButton>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>
#include <utility>

namespace vistrel {

namespace {

bool matches(const FeatureDescription& feature, const QString& text)
{
    return feature.name.contains(text, Qt::CaseInsensitive)
           || feature.help.contains(text, Qt::CaseInsensitive);
}

} // namespace

ParameterGroup::ParameterGroup(const QString& title, std::vector<FeatureDescription> features,
                               QWidget* parent)
    : QWidget(parent)
    , m_features(std::move(features))
    , m_heading(new QToolButton(this))
    , m_body(new QWidget(this))
{
    m_heading->setText(title);
    m_heading->setCheckable(true);
    m_heading->setAutoRaise(true);
    m_heading->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_heading->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    QFont bold = m_heading->font();
    bold.setBold(true);
    m_heading->setFont(bold);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_heading);
    layout->addWidget(m_body);
    auto* rows = new QVBoxLayout(m_body);
    rows->setContentsMargins(0, 0, 0, 4);
    rows->setSpacing(0);
    connect(m_heading, &QToolButton::toggled, this, &ParameterGroup::showRows);
    showRows();
}

QString ParameterGroup::title() const { return m_heading->text(); }

bool ParameterGroup::isOpen() const { return m_heading->isChecked(); }

void ParameterGroup::setOpen(bool open) { m_heading->setChecked(open); }

void ParameterGroup::filter(const QString& text)
{
    m_filter = text;
    const bool hasSome = std::any_of(m_features.begin(), m_features.end(),
                                     [&](const auto& feature) { return matches(feature, text); });
    setVisible(hasSome);
    showRows();
}

void ParameterGroup::makeRows()
{
    for (const FeatureDescription& feature : m_features) {
        auto* row = new ParameterRow(feature, m_body);
        m_body->layout()->addWidget(row);
        m_rows.push_back(row);
        connect(row, &ParameterRow::entered, this,
                [this, row](const NodeValue& value) { Q_EMIT entered(row, value); });
    }
}

void ParameterGroup::showRows()
{
    const bool open = m_heading->isChecked() || !m_filter.isEmpty();
    m_heading->setArrowType(open ? Qt::DownArrow : Qt::RightArrow);
    if (open && m_rows.empty())
        makeRows();
    for (ParameterRow* row : m_rows)
        row->setVisible(matches(row->feature(), m_filter));
    m_body->setVisible(open);
    Q_EMIT rowsShown();
}

} // namespace vistrel

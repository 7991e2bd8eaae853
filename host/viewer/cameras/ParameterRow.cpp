// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// One feature of a camera in the panel.
#include "viewer/cameras/ParameterRow.h"

#include "viewer/cameras/ValueEditor.h"

#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>

#include <utility>

namespace vistrel {

namespace {

constexpr int nameShare = 2;
constexpr int editorShare = 3;
constexpr int narrowestName = 90;
constexpr int unitWidth = 34;
constexpr QRgb redOnLight = 0xffb3261e;
constexpr QRgb redOnDark = 0xffff8a80;
constexpr int darkestLight = 128;

} // namespace

QColor warningColour(const QPalette& palette)
{
    const bool isDark = palette.color(QPalette::Window).lightness() < darkestLight;
    return QColor(isDark ? redOnDark : redOnLight);
}

ParameterRow::ParameterRow(FeatureDescription feature, QWidget* parent)
    : QWidget(parent)
    , m_feature(std::move(feature))
    , m_name(new QLabel(m_feature.name, this))
    , m_editor(ValueEditor::make(m_feature, this))
    , m_unit(new QLabel(m_feature.unit, this))
    , m_refusal(new QLabel(this))
{
    m_name->setMinimumWidth(narrowestName);
    m_name->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_unit->setFixedWidth(unitWidth);
    m_refusal->setWordWrap(true);
    m_refusal->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_refusal->hide();
    auto* layout = new QGridLayout(this);
    layout->setContentsMargins(6, 1, 4, 1);
    layout->setHorizontalSpacing(6);
    layout->setVerticalSpacing(1);
    layout->addWidget(m_name, 0, 0);
    layout->addWidget(m_editor, 0, 1);
    layout->addWidget(m_unit, 0, 2);
    layout->addWidget(m_refusal, 1, 0, 1, 3);
    layout->setColumnStretch(0, nameShare);
    layout->setColumnStretch(1, editorShare);
    connect(m_editor, &ValueEditor::entered, this, &ParameterRow::entered);
}

void ParameterRow::showState(const FeatureState& state)
{
    m_isRead = true;
    m_editor->showState(state);
    m_name->setEnabled(state.isWritable);
    QStringList lines{m_feature.name, m_feature.help, stateText(state)};
    lines.removeAll(QString());
    setToolTip(
        QStringLiteral("<p>%1</p>")
            .arg(lines.join(u'\n').toHtmlEscaped().replace(u'\n', QStringLiteral("</p><p>"))));
}

QString ParameterRow::stateText(const FeatureState& state) const
{
    if (!state.reason.isEmpty())
        return tr("It cannot be read: %1.").arg(state.reason);
    QStringList limits;
    if (asNumber(state.limits.minimum))
        limits.append(tr("from %1").arg(valueText(state.limits.minimum)));
    if (asNumber(state.limits.maximum))
        limits.append(tr("to %1").arg(valueText(state.limits.maximum)));
    if (asNumber(state.limits.increment))
        limits.append(tr("in steps of %1").arg(valueText(state.limits.increment)));
    if (!state.isWritable)
        return tr("The camera takes no other value now.");
    return limits.isEmpty() ? QString() : tr("It takes values %1.").arg(limits.join(u' '));
}

void ParameterRow::showRefusal(const QString& reason)
{
    QPalette colours = palette();
    colours.setColor(QPalette::WindowText, warningColour(colours));
    m_refusal->setPalette(colours);
    m_refusal->setText(reason);
    m_refusal->setVisible(!reason.isEmpty());
}

} // namespace vistrel

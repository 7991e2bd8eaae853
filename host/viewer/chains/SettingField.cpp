// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A spin box, a tick box or a list, by what the setting may be.
#include "viewer/chains/SettingField.h"

#include "chains/ElementSettings.h"

#include <QtCore/QLocale>
#include <QtCore/QSignalBlocker>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QSpinBox>

#include <utility>

namespace vistrel {

namespace {

using Changed = std::function<void(double)>;

constexpr int decimals = 3;

/// Shows 4 as "4" and not as "4.000".
class RealBox : public QDoubleSpinBox {
public:
    using QDoubleSpinBox::QDoubleSpinBox;

    QString textFromValue(double value) const override
    {
        QLocale texts = locale();
        texts.setNumberOptions(QLocale::OmitGroupSeparator);
        return texts.toString(value, 'f', QLocale::FloatingPointShortest);
    }
};

SettingField wholeField(const ElementSetting& setting, Changed changed, QWidget* parent)
{
    auto* box = new QSpinBox(parent);
    box->setRange(static_cast<int>(setting.least), static_cast<int>(setting.most));
    box->setKeyboardTracking(false);
    QObject::connect(box, &QSpinBox::valueChanged, box, std::move(changed));
    return {box, [box](double value) {
                const QSignalBlocker blocker(box);
                box->setValue(static_cast<int>(value));
            }};
}

SettingField realField(const ElementSetting& setting, Changed changed, QWidget* parent)
{
    auto* box = new RealBox(parent);
    box->setDecimals(decimals);
    box->setRange(setting.least, setting.most);
    box->setStepType(QAbstractSpinBox::AdaptiveDecimalStepType);
    box->setKeyboardTracking(false);
    QObject::connect(box, &QDoubleSpinBox::valueChanged, box, std::move(changed));
    return {box, [box](double value) {
                const QSignalBlocker blocker(box);
                box->setValue(value);
            }};
}

SettingField switchField(Changed changed, QWidget* parent)
{
    auto* box = new QCheckBox(parent);
    QObject::connect(box, &QCheckBox::toggled, box, std::move(changed));
    return {box, [box](double value) {
                const QSignalBlocker blocker(box);
                box->setChecked(value != 0.0);
            }};
}

SettingField choiceField(const ElementSetting& setting, Changed changed, QWidget* parent)
{
    auto* list = new QComboBox(parent);
    list->addItems(setting.choices);
    QObject::connect(list, &QComboBox::currentIndexChanged, list, std::move(changed));
    return {list, [list](double value) {
                const QSignalBlocker blocker(list);
                list->setCurrentIndex(static_cast<int>(value));
            }};
}

SettingField fieldOfKind(const ElementSetting& setting, Changed changed, QWidget* parent)
{
    switch (setting.kind) {
    case ElementSetting::Kind::Whole:
        return wholeField(setting, std::move(changed), parent);
    case ElementSetting::Kind::Real:
        return realField(setting, std::move(changed), parent);
    case ElementSetting::Kind::Switch:
        return switchField(std::move(changed), parent);
    default:
        return choiceField(setting, std::move(changed), parent);
    }
}

} // namespace

SettingField makeSettingField(const ElementSetting& setting, Changed changed, QWidget* parent)
{
    SettingField field = fieldOfKind(setting, std::move(changed), parent);
    field.widget->setObjectName(setting.name);
    field.widget->setToolTip(
        QObject::tr("%1; at first %2").arg(setting.allowed(), setting.text(setting.standard)));
    return field;
}

} // namespace vistrel

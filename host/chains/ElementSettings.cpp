// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Reads settings from attributes and says what is wrong with them.
#include "chains/ElementSettings.h"

#include <QtXml/QDomElement>

#include <algorithm>
#include <cmath>
#include <optional>

namespace vistrel {

namespace {

using Kind = ElementSetting::Kind;

std::optional<double> numberIn(const ElementSetting& setting, const QString& text)
{
    bool isNumber = false;
    const double value = text.toDouble(&isNumber);
    const bool isInRange = value >= setting.least && value <= setting.most; // not for no number
    const bool isWhole = setting.kind == Kind::Real || value == std::trunc(value);
    return isNumber && isInRange && isWhole ? std::optional(value) : std::nullopt;
}

std::optional<double> switchIn(const QString& text)
{
    for (const auto* const word : {"0", "false", "off", "no"}) {
        if (text.compare(QLatin1String(word), Qt::CaseInsensitive) == 0)
            return 0.0;
    }
    for (const auto* const word : {"1", "true", "on", "yes"}) {
        if (text.compare(QLatin1String(word), Qt::CaseInsensitive) == 0)
            return 1.0;
    }
    return std::nullopt;
}

std::optional<double> valueIn(const ElementSetting& setting, const QString& attribute)
{
    const QString text = attribute.trimmed();
    if (setting.kind == Kind::Switch)
        return switchIn(text);
    if (setting.kind != Kind::Choice)
        return numberIn(setting, text);
    const auto place = setting.choices.indexOf(text.toLower());
    return place >= 0 ? std::optional(static_cast<double>(place)) : std::nullopt;
}

QString namesOf(const std::vector<ElementSetting>& descriptions)
{
    QStringList names;
    for (const ElementSetting& setting : descriptions)
        names.append(setting.name);
    return names.isEmpty() ? QStringLiteral("none") : names.join(QLatin1String(", "));
}

} // namespace

QString ElementSetting::allowed() const
{
    switch (kind) {
    case Kind::Whole:
        return QStringLiteral("a whole number from %1 to %2").arg(text(least), text(most));
    case Kind::Real:
        return QStringLiteral("a number from %1 to %2").arg(text(least), text(most));
    case Kind::Switch:
        return QStringLiteral("0 or 1");
    default:
        return choices.join(QLatin1String(", "));
    }
}

QString ElementSetting::text(double value) const
{
    constexpr int digits = 15;
    return kind == Kind::Choice ? choices.at(static_cast<int>(value))
                                : QString::number(value, 'g', digits);
}

ElementSetting wholeSetting(const QString& name, int standard, int least, int most)
{
    return {name, Kind::Whole, double(standard), double(least), double(most), {}};
}

ElementSetting realSetting(const QString& name, double standard, double least, double most)
{
    return {name, Kind::Real, standard, least, most, {}};
}

ElementSetting switchSetting(const QString& name, bool standard)
{
    return {name, Kind::Switch, standard ? 1.0 : 0.0, 0.0, 1.0, {}};
}

ElementSetting choiceSetting(const QString& name, const QStringList& choices)
{
    return {name, Kind::Choice, 0.0, 0.0, double(choices.size() - 1), choices};
}

ElementSettings::ElementSettings(std::vector<ElementSetting> descriptions)
    : m_descriptions(std::move(descriptions))
{
    for (const ElementSetting& setting : m_descriptions)
        m_values.push_back(setting.standard);
}

QStringList ElementSettings::read(const QDomElement& conf)
{
    QStringList complaints;
    QStringList known;
    for (std::size_t i = 0; i < m_descriptions.size(); ++i) {
        const ElementSetting& setting = m_descriptions[i];
        known.append(setting.name);
        const QString text = conf.attribute(setting.name, setting.text(setting.standard));
        const auto value = valueIn(setting, text);
        m_values[i] = value.value_or(setting.standard);
        if (!value)
            complaints.append(
                QStringLiteral("%1=\"%2\" is not %3: it stays at %4")
                    .arg(setting.name, text, setting.allowed(), setting.text(setting.standard)));
    }
    const QDomNamedNodeMap attributes = conf.attributes();
    for (int i = 0; i < attributes.count(); ++i) {
        const QString name = attributes.item(i).nodeName();
        if (!known.contains(name))
            complaints.append(QStringLiteral("there is no setting \"%1\", only %2")
                                  .arg(name, namesOf(m_descriptions)));
    }
    return complaints;
}

void ElementSettings::write(QDomElement& conf) const
{
    for (std::size_t i = 0; i < m_descriptions.size(); ++i)
        conf.setAttribute(m_descriptions[i].name, m_descriptions[i].text(m_values[i]));
}

double ElementSettings::number(QLatin1String name) const
{
    const auto hasName = [name](const ElementSetting& setting) { return setting.name == name; };
    const auto place = std::find_if(m_descriptions.begin(), m_descriptions.end(), hasName);
    Q_ASSERT(place != m_descriptions.end());
    return m_values[static_cast<std::size_t>(place - m_descriptions.begin())];
}

} // namespace vistrel

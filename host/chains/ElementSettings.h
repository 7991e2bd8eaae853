// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The settings of a processing element: what may be set, in which range, and what is set.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <vector>

class QDomElement;

namespace vistrel {

/// What one setting may be. Made by the functions below.
struct ElementSetting {
    enum class Kind { Whole, Real, Switch, Choice };

    QString name; ///< of the attribute
    Kind kind = Kind::Real;
    double standard = 0.0; ///< the default; of a choice its place in the list
    double least = 0.0;
    double most = 0.0;
    QStringList choices;

    /// The allowed values for people: "a whole number from 0 to 100".
    QString allowed() const;
    /// A value as the text of an attribute.
    QString text(double value) const;
};

ElementSetting wholeSetting(const QString& name, int standard, int least, int most);
ElementSetting realSetting(const QString& name, double standard, double least, double most);
ElementSetting switchSetting(const QString& name, bool standard);
/// The first choice is the default.
ElementSetting choiceSetting(const QString& name, const QStringList& choices);

/// Descriptions and values. Names are those of the descriptions; another one is a programming
/// error.
class ElementSettings {
public:
    explicit ElementSettings(std::vector<ElementSetting> descriptions);

    /// Takes every setting from the attribute of its name. What is not named or wrong gets its
    /// default. Returns a line for people for each wrong value and each unknown name.
    QStringList read(const QDomElement& conf);
    /// Sets an attribute for every setting, so that read() brings the same values back.
    void write(QDomElement& conf) const;

    const std::vector<ElementSetting>& descriptions() const { return m_descriptions; }

    /// The value of the setting at that place of the descriptions.
    double valueAt(std::size_t place) const { return m_values[place]; }
    double number(QLatin1String name) const;
    int whole(QLatin1String name) const { return static_cast<int>(number(name)); }
    bool isOn(QLatin1String name) const { return number(name) != 0.0; }
    /// The place of the choice in its list.
    int choice(QLatin1String name) const { return whole(name); }

private:
    std::vector<ElementSetting> m_descriptions;
    std::vector<double> m_values; ///< one for each description
};

} // namespace vistrel

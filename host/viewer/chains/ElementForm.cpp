// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Fields in a form, made from the element's own descriptions.
#include "viewer/chains/ElementForm.h"

#include "chains/ChainElement.h"

#include <QtWidgets/QFormLayout>
#include <QtXml/QDomDocument>

namespace vistrel {

ElementForm::ElementForm(QWidget* parent)
    : QWidget(parent)
    , m_layout(new QFormLayout(this))
{
}

void ElementForm::showElement(ChainElement* element)
{
    // An element that has gone leaves null here, so that a new one in its memory is another one.
    if (!m_element || element != m_element) {
        m_element = element;
        makeFields();
    }
    showValues();
}

void ElementForm::makeFields()
{
    m_fields.clear();
    while (m_layout->rowCount() > 0)
        m_layout->removeRow(0);
    if (!m_element)
        return;
    for (const ElementSetting& setting : m_element->settings().descriptions()) {
        const auto change = [this, place = m_fields.size()](double value) {
            this->change(place, value);
        };
        m_fields.push_back(makeSettingField(setting, change, this));
        m_layout->addRow(setting.name, m_fields.back().widget);
    }
}

void ElementForm::showValues()
{
    for (std::size_t place = 0; place < m_fields.size(); ++place)
        m_fields[place].show(m_element->settings().valueAt(place));
}

void ElementForm::change(std::size_t place, double value)
{
    if (!m_element)
        return;
    const ElementSetting& setting = m_element->settings().descriptions()[place];
    QDomDocument document;
    QDomElement conf = document.createElement(QStringLiteral("conf"));
    m_element->settings().write(conf); // what is not named would get its default
    conf.setAttribute(setting.name, setting.text(value));
    m_element->configure(conf);
}

} // namespace vistrel

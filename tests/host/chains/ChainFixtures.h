// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures and configurations for tests of processing elements and chains.
#pragma once

#include "../core/PixelFixtures.h"
#include "chains/ClassRegistry.h"

#include <QtXml/QDomDocument>

#include <gtest/gtest.h>

#include <initializer_list>
#include <memory>
#include <utility>

namespace vistrel::test {

using Attributes = std::initializer_list<std::pair<const char*, const char*>>;

inline QDomElement confOf(const Attributes& attributes)
{
    QDomDocument document;
    QDomElement conf = document.createElement(QStringLiteral("conf"));
    for (const auto& [name, value] : attributes)
        conf.setAttribute(QLatin1String(name), QLatin1String(value));
    return conf;
}

/// A new element, found as plugins find it: by its name for people.
inline std::unique_ptr<ChainElement> newElement(const char* displayName, Attributes attributes = {})
{
    ClassRegistry registry;
    for (const QString& name : registry.classesForInterface(QStringLiteral("CxChainable"), true)) {
        if (registry.customName(name) != QLatin1String(displayName))
            continue;
        std::unique_ptr<QObject> object(registry.createInstance(name));
        auto* const element = dynamic_cast<ChainElement*>(object.release());
        element->configure(confOf(attributes));
        return std::unique_ptr<ChainElement>(element);
    }
    ADD_FAILURE() << "no element " << displayName;
    return nullptr;
}

template<class Element>
std::unique_ptr<CxImageData> imageOf(const Layout& layout, const std::vector<Element>& values)
{
    auto image = newImage(layout);
    fill<Element>(*image->picBuf(), values);
    return image;
}

inline std::unique_ptr<CxImageData> grey(unsigned width, unsigned height,
                                         const std::vector<quint8>& values)
{
    return imageOf<quint8>({.width = width, .height = height}, values);
}

} // namespace vistrel::test

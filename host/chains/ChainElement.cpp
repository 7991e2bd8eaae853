// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What all processing elements have in common.
#include "chains/ChainElement.h"

#include "chains/Chain.h"
#include "core/Log.h"
#include "core/PicBufView.h"

#include <CxImageData.h>

#include <QtCore/QMetaClassInfo>

namespace vistrel {

ChainElement::ChainElement(std::vector<ElementSetting> settings)
    : m_settings(std::move(settings))
{
}

CxChain* ChainElement::chain() { return m_chain; }

void ChainElement::configure(const QDomElement& conf)
{
    const ChainChange change(m_chain, this);
    for (const QString& complaint : m_settings.read(conf))
        logError(QStringLiteral("%1: %2").arg(displayName(), complaint));
    m_logged.clear();
    settingsChanged();
    reset();
}

void ChainElement::setEnabled(bool on)
{
    const ChainChange change(m_chain, this);
    m_enabled = on;
    reset();
}

QString ChainElement::displayName() const { return customNameOf(*metaObject()); }

void ChainElement::reset() { forget(); }

void ChainElement::process(CxImageData& image)
{
    if (!m_enabled || !hasPixels(*image.picBuf()))
        return;
    const QString reason = tryToApply(image);
    if (reason.isEmpty() || m_logged.contains(reason))
        return;
    m_logged.insert(reason);
    logError(QStringLiteral("%1 passes pictures on as they are: %2").arg(displayName(), reason));
}

QString ChainElement::tryToApply(CxImageData& image)
{
    try {
        return apply(image);
    } catch (...) {
        return pixelErrorText();
    }
}

} // namespace vistrel

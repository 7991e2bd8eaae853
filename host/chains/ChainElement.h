// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// What all processing elements have in common.
#pragma once

#include "chains/ElementSettings.h"

#include <CxChainable.h>

#include <QtCore/QObject>
#include <QtCore/QSet>

class CxImageData;

namespace vistrel {

class Chain;

/// An element that is one class: it names itself for people, describes its settings, and works on
/// one picture after the other.
///
///     class Negative : public ChainElement {
///         Q_OBJECT
///         Q_CLASSINFO("customName", "Negative")
///     public:
///         Q_INVOKABLE Negative();
///     private:
///         QString apply(CxImageData& image) override;
///     };
///
/// and one line in ClassRegistry.cpp. GUI thread, if not said otherwise.
class ChainElement : public QObject, public CxChainable {
    Q_OBJECT
    Q_INTERFACES(CxChainable)

public:
    CxChain* chain() override;
    /// May be called while the chain runs: it is stopped and started again around the change.
    /// Settings that "conf" does not name get their defaults.
    void configure(const QDomElement& conf) override;
    /// May be called while the chain runs, like configure().
    void setEnabled(bool on) override;
    bool isEnabled() const { return m_enabled; }

    /// The element's name for people.
    QString displayName() const;
    const ElementSettings& settings() const { return m_settings; }
    /// Forgets all frames so far, for elements that look back.
    void reset();

    /// Changes the picture, or leaves it as it is when the element is switched off or cannot work
    /// on such a picture; then one line is logged, once for each reason. On the thread that runs
    /// the chain; it does not throw.
    void process(CxImageData& image);

protected:
    explicit ChainElement(std::vector<ElementSetting> settings);

    /// Works on a picture that has pixels. Returns why it was left as it was, for people; an empty
    /// text when it was changed. May throw what OpenCV throws, as long as the picture is whole.
    virtual QString apply(CxImageData& image) = 0;
    /// See reset().
    virtual void forget() {}
    /// The settings have changed.
    virtual void settingsChanged() {}

private:
    friend class Chain;
    QString tryToApply(CxImageData& image);

    Chain* m_chain = nullptr; ///< set by the chain
    ElementSettings m_settings;
    bool m_enabled = true;
    QSet<QString> m_logged; ///< reasons that were logged since the last change of settings
};

} // namespace vistrel

// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// An input field for one setting of a processing element.
#pragma once

#include <functional>

class QWidget;

namespace vistrel {

struct ElementSetting;

/// A field that lets in what the setting may be and nothing else.
struct SettingField {
    QWidget* widget;                  ///< belongs to the parent
    std::function<void(double)> show; ///< shows a value without reporting it as a change
};

/// @param changed  is called when a person has chosen another value; while a number is being typed
///                 only when that is done.
SettingField makeSettingField(const ElementSetting& setting, std::function<void(double)> changed,
                              QWidget* parent);

} // namespace vistrel

// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A camera's shading presets.
#include "FuncCamera/ShadingPresets.h"

#include <CxCameraParameters.h>

#include <algorithm>

namespace shading_presets {

namespace {

CxShadingPreset& foundOrAdded(QList<CxShadingPreset>& presets, const QString& name)
{
    const auto found = std::find_if(presets.begin(), presets.end(),
                                    [&name](const auto& preset) { return preset.name == name; });
    if (found != presets.end())
        return *found;
    CxShadingPreset preset;
    preset.name = name;
    presets.append(preset);
    return presets.last();
}

} // namespace

void activate(CxCameraParameters& camera, const QString& name)
{
    for (const CxShadingPreset& preset : std::as_const(camera.shadingPresets)) {
        if (name.isEmpty() || preset.name == name) {
            // A copy: the list may change while the host sets the values.
            CxShadingPreset(preset).activateValuesTo(&camera);
            return;
        }
    }
}

void create(CxCameraParameters& camera, const QString& name, const QString& description,
            const QString& target)
{
    CxShadingPreset& preset = foundOrAdded(camera.shadingPresets, name);
    preset.saveCurrentValuesFrom(&camera);
    preset.description = description;
    preset.target = target;
    camera.notifyShadingChanged();
}

} // namespace shading_presets

// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Presets: what of a camera they keep, and how it gets back.
#include "cameras/ParameterNames.h"

#include <CxCameraParameters.h>
#include <CxShadingPreset.h>

namespace {

/// A value may have to wait for another one that moves its limits.
constexpr int mostPasses = 4;

CxValue currentValue(CxCameraParameters* camera, const QString& name)
{
    CxCameraParam* parameter = camera->findParam(name, false);
    return parameter && !parameter->isUnsupported() ? parameter->paramValue() : CxValue();
}

bool isSame(const CxValue& one, const CxValue& other)
{
    return one.type() == other.type() && one.toString() == other.toString();
}

} // namespace

void CxShadingPreset::saveCurrentValuesFrom(CxCameraParameters* camera)
{
    values.clear();
    for (const QString& parameter : vistrel::parameterNames()) {
        const CxValue value = currentValue(camera, parameter);
        if (value.type() != CxValue::Empty)
            values.append({parameter, value});
    }
}

void CxShadingPreset::activateValuesTo(CxCameraParameters* camera) const
{
    for (int pass = 0; pass < mostPasses; ++pass) {
        bool changed = false;
        for (const SxSavedValue& saved : values) {
            if (!isSame(currentValue(camera, saved.name), saved.value))
                changed = camera->setParamDirect(saved.name, saved.value, nullptr,
                                                 CxCameraParameters::RefreshLater)
                          || changed;
        }
        if (!changed)
            return;
    }
}

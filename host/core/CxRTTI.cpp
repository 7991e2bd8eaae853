// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The parts of the class registry that go by the one that is installed.
#include <CxRTTI.h>

QString CxRTTI::customNameForClass(const QString& className)
{
    CxRTTI* const registry = instance();
    return registry != nullptr ? registry->customName(className) : className;
}

QObject* CxRTTI::createInstanceOfClass(const QString& className)
{
    CxRTTI* const registry = instance();
    return registry != nullptr ? registry->createInstance(className) : nullptr;
}

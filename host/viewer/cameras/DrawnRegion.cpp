// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// From what was drawn on a picture to the camera's region of interest.
#include "viewer/cameras/DrawnRegion.h"

#include "chains/Chain.h"
#include "chains/Flip.h"
#include "chains/Rotate.h"

namespace vistrel {

QRect regionOnSensor(const QRect& drawn, const QSize& picture, const QRect& region)
{
    const QRect inside = drawn & QRect(QPoint(), picture);
    if (inside.isEmpty() || region.width() % picture.width() != 0
        || region.height() % picture.height() != 0)
        return {};
    const int joinedX = region.width() / picture.width();
    const int joinedY = region.height() / picture.height();
    return {region.x() + inside.x() * joinedX, region.y() + inside.y() * joinedY,
            inside.width() * joinedX, inside.height() * joinedY};
}

QString elementThatMovesPixels(const Chain& chain)
{
    for (const ChainElement* element : chain.elements()) {
        const bool moves =
            qobject_cast<const Flip*>(element) || qobject_cast<const Rotate*>(element);
        if (moves && element->isEnabled())
            return element->displayName();
    }
    return {};
}

} // namespace vistrel

// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Names of channels.
#include "core/ChannelNames.h"

#include "core/Packed565.h"
#include "core/PicBufView.h"

namespace vistrel {

QList<QString> channelNames(const SxPicBuf& buffer)
{
    const bool isPackedPicture = isPacked(buffer);
    const quint32 channels = isPackedPicture ? packed565::colors : buffer.channels;
    if (channels == 1)
        return {QStringLiteral("Mono")};
    QList<QString> names;
    if (channels == 3 || channels == 4) {
        names = {QStringLiteral("Red"), QStringLiteral("Green"), QStringLiteral("Blue")};
        if (!isPackedPicture && !buffer.isRgb)
            names.swapItemsAt(0, 2);
        if (channels == 4)
            names << QStringLiteral("Alpha");
        return names;
    }
    for (quint32 c = 1; c <= channels; ++c)
        names << QStringLiteral("Channel %1").arg(c);
    return names;
}

} // namespace vistrel

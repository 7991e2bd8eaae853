// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The interfaces that Aravis searches, and the list of the devices that it finds.
#pragma once

#include "cameras/AravisHandles.h"

#include <QtCore/QString>

#include <vector>

namespace vistrel {

/// A device as the last search saw it.
struct DeviceEntry {
    QString id;         ///< what Aravis opens it by
    QString physicalId; ///< burnt into the device: hardware address or the like
    QString address;    ///< on the network; without meaning for other devices
    QString vendor;
    QString model;
    QString serialNumber;
    QString protocol; ///< name of the interface: "GigEVision", "USB3Vision", "Fake"
};

/// Aravis as a whole, which there is once: every object of this class stands for one who uses it,
/// and the last one that goes gives back everything that Aravis holds. Its devices have been
/// released before. Any thread; a search or opening waits for the one under way.
class AravisSystem {
public:
    /// Aravis' id of its simulated camera.
    static constexpr char simulatedDevice[] = "Fake_1";

    AravisSystem();
    AravisSystem(const AravisSystem&) = delete;
    AravisSystem& operator=(const AravisSystem&) = delete;
    ~AravisSystem();

    /// Looks at the simulated camera only, which takes no time.
    static std::vector<DeviceEntry> searchSimulated();
    /// Searches all interfaces, which takes about a second.
    static std::vector<DeviceEntry> searchAll();
    /// Opens a device that a search has found; null with the reason in `failure`.
    static ObjectRef<ArvCamera> open(const DeviceEntry& entry, ArvFailure& failure);
};

} // namespace vistrel

// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The interfaces that Aravis searches, and the list of the devices that it finds.
#pragma once

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

/// Aravis as a whole; one at a time. GUI thread.
class AravisSystem {
public:
    /// Aravis' id of its simulated camera.
    static constexpr char simulatedDevice[] = "Fake_1";

    AravisSystem() = default;
    AravisSystem(const AravisSystem&) = delete;
    AravisSystem& operator=(const AravisSystem&) = delete;
    /// Gives back everything that Aravis holds; all devices have been released before.
    ~AravisSystem();

    /// Looks at the simulated camera only: returns at once.
    std::vector<DeviceEntry> searchSimulated();
    /// Searches all interfaces, which takes about a second.
    std::vector<DeviceEntry> searchAll();
};

} // namespace vistrel

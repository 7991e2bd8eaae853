// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The interfaces that Aravis searches, and the list of the devices that it finds.
#include "cameras/AravisSystem.h"

#include "core/LongWork.h"

#include <arv.h>

#include <cstring>

namespace vistrel {

namespace {

constexpr char simulatedInterface[] = "Fake";

DeviceEntry deviceEntry(unsigned index)
{
    return {QString::fromUtf8(arv_get_device_id(index)),
            QString::fromUtf8(arv_get_device_physical_id(index)),
            QString::fromUtf8(arv_get_device_address(index)),
            QString::fromUtf8(arv_get_device_vendor(index)),
            QString::fromUtf8(arv_get_device_model(index)),
            QString::fromUtf8(arv_get_device_serial_nbr(index)),
            QString::fromUtf8(arv_get_device_protocol(index))};
}

// Aravis opens by what it found last: without a fresh list a network camera is reached over the
// first interface of the machine, and no frame ever comes.
std::vector<DeviceEntry> search()
{
    arv_update_device_list();
    std::vector<DeviceEntry> devices;
    for (unsigned i = 0; i < arv_get_n_devices(); ++i)
        devices.push_back(deviceEntry(i));
    return devices;
}

} // namespace

AravisSystem::~AravisSystem() { arv_shutdown(); }

std::vector<DeviceEntry> AravisSystem::searchSimulated()
{
    for (unsigned i = 0; i < arv_get_n_interfaces(); ++i) {
        const char* interface = arv_get_interface_id(i);
        if (std::strcmp(interface, simulatedInterface) != 0)
            arv_disable_interface(interface);
    }
    arv_enable_interface(simulatedInterface);
    return search();
}

std::vector<DeviceEntry> AravisSystem::searchAll()
{
    for (unsigned i = 0; i < arv_get_n_interfaces(); ++i)
        arv_enable_interface(arv_get_interface_id(i));
    const LongWork work(QStringLiteral("Looking for cameras"));
    return search();
}

} // namespace vistrel

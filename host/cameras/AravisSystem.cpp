// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The interfaces that Aravis searches, and the list of the devices that it finds.
#include "cameras/AravisSystem.h"

#include <cstring>
#include <mutex>

namespace vistrel {

namespace {

constexpr char simulatedInterface[] = "Fake";

/// Guards the count, the switches of the interfaces and the list that a search leaves.
std::mutex systemMutex;
int users = 0;

void enableOnly(const char* wanted)
{
    for (unsigned i = 0; i < arv_get_n_interfaces(); ++i) {
        const char* interface = arv_get_interface_id(i);
        if (std::strcmp(interface, wanted) != 0)
            arv_disable_interface(interface);
    }
    arv_enable_interface(wanted);
}

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

AravisSystem::AravisSystem()
{
    const std::scoped_lock lock(systemMutex);
    ++users;
}

AravisSystem::~AravisSystem()
{
    const std::scoped_lock lock(systemMutex);
    if (--users == 0)
        arv_shutdown();
}

std::vector<DeviceEntry> AravisSystem::searchSimulated()
{
    const std::scoped_lock lock(systemMutex);
    enableOnly(simulatedInterface);
    return search();
}

// Every interface that is asked for a device of another one searches once more.
ObjectRef<ArvCamera> AravisSystem::open(const DeviceEntry& entry, ArvFailure& failure)
{
    const std::scoped_lock lock(systemMutex);
    enableOnly(entry.protocol.toUtf8().constData());
    return ObjectRef<ArvCamera>::take(
        arv_camera_new(entry.id.toUtf8().constData(), failure.receive()));
}

std::vector<DeviceEntry> AravisSystem::searchAll()
{
    const std::scoped_lock lock(systemMutex);
    for (unsigned i = 0; i < arv_get_n_interfaces(); ++i)
        arv_enable_interface(arv_get_interface_id(i));
    return search();
}

} // namespace vistrel

// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Looks into what Aravis is asked, and on which thread, by taking the place of its own functions.
#pragma once

#include <arv.h>

#include <atomic>
#include <functional>
#include <thread>

namespace vistrel::test {

/// Replaces a function of a class of Aravis while it lives. `original` calls the one before.
template<class Function>
class Hook {
public:
    Hook(Function*& place, Function* replacement)
        : m_place(place)
        , m_original(place)
    {
        place = replacement;
    }
    ~Hook() { m_place = m_original; }
    Hook(const Hook&) = delete;
    Hook& operator=(const Hook&) = delete;

    Function* original() const { return m_original; }

private:
    Function*& m_place;
    Function* const m_original;
};

/// The class structure of a type, which stays for good.
template<class Class>
Class& classOf(GType type)
{
    return *static_cast<Class*>(g_type_class_ref(type));
}

/// Watches simulated cameras of this process come and go, and may hold up their going.
class SimulatedDevices {
public:
    SimulatedDevices() { instance = this; }
    /// Devices may outlive those who opened them: waits for them.
    ~SimulatedDevices()
    {
        gate.open();
        while (alive > 0)
            std::this_thread::yield();
        instance = nullptr;
    }
    SimulatedDevices(const SimulatedDevices&) = delete;
    SimulatedDevices& operator=(const SimulatedDevices&) = delete;

    /// Does to the one opened last what the heartbeat of a network camera does.
    void breakConnection() { g_signal_emit_by_name(newest.load(), "control-lost"); }

    /// Holds up whoever lets go of a device, until it is open.
    struct Gate {
        void open() { isOpen.store(true), isOpen.notify_all(); }
        void close() { isOpen = false; }
        void pass() const { isOpen.wait(false); }
        std::atomic<bool> isOpen = true;
    } gate;
    std::atomic<int> alive = 0;
    std::atomic<GObject*> newest = nullptr;
    std::atomic<std::thread::id> lastLetGoOn;

private:
    static void onConstructed(GObject* device)
    {
        ++instance->alive;
        instance->newest = device;
        instance->m_constructed.original()(device);
    }
    static void onFinalize(GObject* device)
    {
        SimulatedDevices& self = *instance;
        self.gate.pass();
        self.lastLetGoOn = std::this_thread::get_id();
        self.m_finalize.original()(device);
        --self.alive;
    }

    inline static SimulatedDevices* instance = nullptr;
    GObjectClass& m_class = classOf<GObjectClass>(ARV_TYPE_FAKE_DEVICE);
    Hook<void(GObject*)> m_constructed{m_class.constructed, &onConstructed};
    Hook<void(GObject*)> m_finalize{m_class.finalize, &onFinalize};
};

/// Watches searches for simulated cameras, and may hide them. It stays for good: a search may be
/// under way on a thread that nobody waits for.
class SimulatedSearches {
public:
    /// Begins anew: nothing is counted or hidden yet.
    static SimulatedSearches& watched()
    {
        SimulatedSearches& searches = instance();
        searches.inThisThread = searches.elsewhere = searches.blind = 0;
        return searches;
    }
    SimulatedSearches(const SimulatedSearches&) = delete;
    SimulatedSearches& operator=(const SimulatedSearches&) = delete;

    std::atomic<int> inThisThread = 0;
    std::atomic<int> elsewhere = 0;
    std::atomic<int> blind = 0; ///< how many more searches find nothing

private:
    SimulatedSearches() = default;

    static SimulatedSearches& instance()
    {
        static SimulatedSearches& searches = *new SimulatedSearches;
        return searches;
    }
    static void onUpdate(ArvInterface* interface, GArray* devices)
    {
        SimulatedSearches& self = instance();
        ++(std::this_thread::get_id() == self.m_thread ? self.inThisThread : self.elsewhere);
        if (self.blind.fetch_sub(1) <= 0)
            self.m_update.original()(interface, devices);
    }

    const std::thread::id m_thread = std::this_thread::get_id();
    ArvInterfaceClass& m_class = classOf<ArvInterfaceClass>(ARV_TYPE_FAKE_INTERFACE);
    Hook<void(ArvInterface*, GArray*)> m_update{m_class.update_device_list, &onUpdate};
};

/// Counts the calls of this thread to network cameras that got no answer: each takes seconds. It
/// stays for good: cameras are let go of on threads that nobody waits for, by the same calls.
class UnansweredCalls {
public:
    /// Counts from 0 again.
    static const UnansweredCalls& counted()
    {
        instance().m_count = 0;
        return instance();
    }
    UnansweredCalls(const UnansweredCalls&) = delete;
    UnansweredCalls& operator=(const UnansweredCalls&) = delete;

    int count() const { return m_count; }

private:
    UnansweredCalls() = default;

    static UnansweredCalls& instance()
    {
        static UnansweredCalls& calls = *new UnansweredCalls;
        return calls;
    }
    static gboolean noted(gboolean answered)
    {
        if (!answered && std::this_thread::get_id() == instance().m_thread)
            ++instance().m_count;
        return answered;
    }
    static gboolean readMemory(ArvDevice* device, guint64 address, guint32 size, void* buffer,
                               GError** error)
    {
        return noted(instance().m_readMemory.original()(device, address, size, buffer, error));
    }
    static gboolean writeMemory(ArvDevice* device, guint64 address, guint32 size, void* buffer,
                                GError** error)
    {
        return noted(instance().m_writeMemory.original()(device, address, size, buffer, error));
    }
    static gboolean readRegister(ArvDevice* device, guint64 address, guint32* value, GError** error)
    {
        return noted(instance().m_readRegister.original()(device, address, value, error));
    }
    static gboolean writeRegister(ArvDevice* device, guint64 address, guint32 value, GError** error)
    {
        return noted(instance().m_writeRegister.original()(device, address, value, error));
    }

    using MemoryCall = gboolean(ArvDevice*, guint64, guint32, void*, GError**);

    const std::thread::id m_thread = std::this_thread::get_id();
    std::atomic<int> m_count = 0;
    ArvDeviceClass& m_class = classOf<ArvDeviceClass>(ARV_TYPE_GV_DEVICE);
    Hook<MemoryCall> m_readMemory{m_class.read_memory, &readMemory};
    Hook<MemoryCall> m_writeMemory{m_class.write_memory, &writeMemory};
    Hook<gboolean(ArvDevice*, guint64, guint32*, GError**)> m_readRegister{m_class.read_register,
                                                                           &readRegister};
    Hook<gboolean(ArvDevice*, guint64, guint32, GError**)> m_writeRegister{m_class.write_register,
                                                                           &writeRegister};
};

} // namespace vistrel::test

// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Tells the thread sanitizer where GLib and Qt hand something from one thread to another. Their
// libraries are not built for it and lock by system calls that it does not see. The functions here
// stand before those by which our code and Aravis enter these libraries, and add what each of them
// promises: all that was done before a release of an address is seen after an acquire of it.
#include <QtCore/QObject>
#include <QtCore/QThread>

#include <dlfcn.h>
#include <glib.h>
#include <opencv2/core/utility.hpp>
#include <sanitizer/tsan_interface.h>

namespace {

/// The library's function of that name.
template<typename Function>
Function* real(const char* name)
{
    return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

/// A call that waits in the event queue of another thread.
class QueuedCall : public QtPrivate::QSlotObjectBase {
public:
    explicit QueuedCall(QSlotObjectBase* slot)
        : QSlotObjectBase(&run)
        , m_slot(slot)
    {
    }

private:
    static void run(int which, QSlotObjectBase* self, QObject* receiver, void** arguments, bool*)
    {
        __tsan_acquire(self);
        auto* const call = static_cast<QueuedCall*>(self);
        if (which == Call) {
            call->m_slot->call(receiver, arguments);
            __tsan_release(self);
            __tsan_release(QThread::currentThread());
        } else if (which == Destroy) {
            call->m_slot->destroyIfLastRef();
            delete call;
        }
    }

    QSlotObjectBase* m_slot;
};

/// A loop whose parts several threads run.
class SharedLoop : public cv::ParallelLoopBody {
public:
    explicit SharedLoop(const ParallelLoopBody& body)
        : m_body(body)
    {
    }

    void operator()(const cv::Range& part) const override
    {
        __tsan_acquire(&m_sync);
        m_body(part);
        __tsan_release(&m_sync);
    }
    void begin() const { __tsan_release(&m_sync); }
    void end() const { __tsan_acquire(&m_sync); }

private:
    const ParallelLoopBody& m_body;
    mutable char m_sync = 0;
};

} // namespace

void cv::parallel_for_(const Range& range, const ParallelLoopBody& body, double stripes)
{
    static const auto next = real<void(const Range&, const ParallelLoopBody&, double)>(
        "_ZN2cv13parallel_for_ERKNS_5RangeERKNS_16ParallelLoopBodyEd");
    const SharedLoop loop(body);
    loop.begin();
    next(range, loop, stripes);
    loop.end();
}

bool QMetaObject::invokeMethodImpl(QObject* object, QtPrivate::QSlotObjectBase* slot,
                                   Qt::ConnectionType type, void* result)
{
    static const auto next = real<decltype(invokeMethodImpl)>(
        "_ZN11QMetaObject16invokeMethodImplEP7QObjectPN9QtPrivate15"
        "QSlotObjectBaseEN2Qt14ConnectionTypeEPv");
    auto* const call = new QueuedCall(slot);
    __tsan_release(call);
    return next(object, call, type, result);
}

/// Who waits for a thread sees what its calls have done.
bool QThread::wait(QDeadlineTimer deadline)
{
    static const auto next =
        real<bool(QThread*, QDeadlineTimer)>("_ZN7QThread4waitE14QDeadlineTimer");
    const bool isFinished = next(this, deadline);
    __tsan_acquire(this);
    return isFinished;
}

extern "C" {

void g_mutex_lock(GMutex* mutex)
{
    static const auto next = real<decltype(g_mutex_lock)>("g_mutex_lock");
    next(mutex);
    __tsan_acquire(mutex);
}

void g_mutex_unlock(GMutex* mutex)
{
    static const auto next = real<decltype(g_mutex_unlock)>("g_mutex_unlock");
    __tsan_release(mutex);
    next(mutex);
}

void g_cond_wait(GCond* condition, GMutex* mutex)
{
    static const auto next = real<decltype(g_cond_wait)>("g_cond_wait");
    __tsan_release(mutex);
    next(condition, mutex);
    __tsan_acquire(mutex);
}

void g_rec_mutex_lock(GRecMutex* mutex)
{
    static const auto next = real<decltype(g_rec_mutex_lock)>("g_rec_mutex_lock");
    next(mutex);
    __tsan_acquire(mutex);
}

void g_rec_mutex_unlock(GRecMutex* mutex)
{
    static const auto next = real<decltype(g_rec_mutex_unlock)>("g_rec_mutex_unlock");
    __tsan_release(mutex);
    next(mutex);
}

void g_async_queue_push(GAsyncQueue* queue, gpointer item)
{
    static const auto next = real<decltype(g_async_queue_push)>("g_async_queue_push");
    __tsan_release(queue);
    next(queue, item);
}

gpointer g_async_queue_pop(GAsyncQueue* queue)
{
    static const auto next = real<decltype(g_async_queue_pop)>("g_async_queue_pop");
    gpointer const item = next(queue);
    __tsan_acquire(queue);
    return item;
}

gpointer g_async_queue_try_pop(GAsyncQueue* queue)
{
    static const auto next = real<decltype(g_async_queue_try_pop)>("g_async_queue_try_pop");
    gpointer const item = next(queue);
    __tsan_acquire(queue);
    return item;
}

gpointer g_async_queue_try_pop_unlocked(GAsyncQueue* queue)
{
    static const auto next =
        real<decltype(g_async_queue_try_pop_unlocked)>("g_async_queue_try_pop_unlocked");
    gpointer const item = next(queue);
    __tsan_acquire(queue);
    return item;
}

gpointer g_async_queue_timeout_pop(GAsyncQueue* queue, guint64 timeout)
{
    static const auto next = real<decltype(g_async_queue_timeout_pop)>("g_async_queue_timeout_pop");
    gpointer const item = next(queue, timeout);
    __tsan_acquire(queue);
    return item;
}

} // extern "C"

// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A signal handler in front of another one.
#include "app/InterruptWatch.h"

#include "app/SignalAction.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <thread>

namespace vistrel {

namespace {

// The signal may arrive on every thread, also while the watch ends: the handler uses nothing but
// lock-free atomics, and the watch's end waits for handlers that are under way.
std::atomic<int> watchedDescriptor{-1};
std::atomic<int> handlersUnderWay{0};
std::atomic<void (*)(int)> replacedHandler{nullptr};
std::atomic<void (*)(int, siginfo_t*, void*)> replacedInfoHandler{nullptr};
static_assert(std::atomic<int>::is_always_lock_free
              && std::atomic<void (*)(int)>::is_always_lock_free);

void makeReadable(int descriptor)
{
    const eventfd_t one = 1;
    if (descriptor >= 0)
        static_cast<void>(!write(descriptor, &one, sizeof one));
}

extern "C" void onInterrupt(int signal, siginfo_t* info, void* context)
{
    const int error = errno;
    ++handlersUnderWay;
    makeReadable(watchedDescriptor.load());
    if (const auto withInfo = replacedInfoHandler.load())
        withInfo(signal, info, context);
    else if (const auto plain = replacedHandler.load())
        plain(signal);
    --handlersUnderWay;
    errno = error;
}

bool isOurs(const struct sigaction& action)
{
    return hasInfo(action) && action.sa_sigaction == &onInterrupt;
}

void setReplaced(const struct sigaction& action)
{
    replacedHandler = hasInfo(action) ? nullptr : action.sa_handler;
    replacedInfoHandler = hasInfo(action) ? action.sa_sigaction : nullptr;
}

struct sigaction currentAction()
{
    struct sigaction action = {};
    sigaction(SIGINT, nullptr, &action);
    return action;
}

} // namespace

InterruptWatch::InterruptWatch()
    : m_descriptor(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK))
    , m_outerDescriptor(watchedDescriptor.exchange(m_descriptor))
{
    const struct sigaction current = currentAction();
    if (isFunction(current) && !isOurs(current))
        install(current);
}

InterruptWatch::~InterruptWatch()
{
    if (m_installed)
        uninstall();
    watchedDescriptor = m_outerDescriptor;
    while (handlersUnderWay > 0)
        std::this_thread::yield();
    if (m_descriptor >= 0)
        close(m_descriptor);
}

void InterruptWatch::install(const struct sigaction& current)
{
    setReplaced(current);
    struct sigaction ours = current;
    ours.sa_flags |= SA_SIGINFO;
    ours.sa_sigaction = &onInterrupt;
    sigaction(SIGINT, &ours, nullptr);
    m_replaced = current;
    m_installed = true;
}

void InterruptWatch::uninstall()
{
    // A script that was run meanwhile may have set a handler of its own: that one stays.
    if (isOurs(currentAction()))
        sigaction(SIGINT, &m_replaced, nullptr);
}

} // namespace vistrel

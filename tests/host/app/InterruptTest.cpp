// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// SIGINT during waits, and whose it is between runs.
#include "AppFixture.h"

#include "app/InterruptHandover.h"
#include "app/InterruptWatch.h"

#include <QtCore/QTimer>

#include <poll.h>
#include <unistd.h>

#include <csignal>
#include <limits>
#include <optional>
#include <thread>

using namespace vistrel;

namespace {

constexpr double endless = std::numeric_limits<double>::infinity();

volatile std::sig_atomic_t calls = 0;
volatile std::sig_atomic_t infoCalls = 0;
volatile std::sig_atomic_t senderPid = 0;

extern "C" void countCall(int) { calls = calls + 1; }

extern "C" void countInfoCall(int, siginfo_t* info, void*)
{
    infoCalls = infoCalls + 1;
    senderPid = info->si_pid;
}

struct sigaction plainAction(void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    return action;
}

struct sigaction infoAction()
{
    struct sigaction action = {};
    action.sa_sigaction = &countInfoCall;
    action.sa_flags = SA_SIGINFO;
    return action;
}

struct sigaction currentAction()
{
    struct sigaction action = {};
    sigaction(SIGINT, nullptr, &action);
    return action;
}

void set(const struct sigaction& action) { sigaction(SIGINT, &action, nullptr); }

bool isReadable(int descriptor)
{
    pollfd waited{descriptor, POLLIN, 0};
    return poll(&waited, 1, 0) == 1;
}

class Interrupt : public HostTest {
protected:
    void SetUp() override
    {
        calls = 0;
        infoCalls = 0;
    }
    void TearDown() override { set(plainAction(SIG_DFL)); }

    void interruptSoon()
    {
        QTimer::singleShot(0, &app, [] { kill(getpid(), SIGINT); });
    }
};

} // namespace

TEST_F(Interrupt, EndsAWaitAndCallsTheHandlerThatWasThere)
{
    set(plainAction(&countCall));
    interruptSoon();
    environment.wait(endless);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(currentAction().sa_handler, &countCall);
}

TEST_F(Interrupt, EndsVeryLongWaitsToo)
{
    set(plainAction(&countCall));
    for (const double seconds : {1e300, 1e9, 1e8, 3e6}) {
        interruptSoon();
        environment.wait(seconds);
    }
    EXPECT_EQ(calls, 4);
}

TEST_F(Interrupt, EndsAWaitForAFrame)
{
    set(plainAction(&countCall));
    const int id = openView();
    interruptSoon();
    EXPECT_FALSE(environment.waitForNextFrame(app.view(id), 1e9));
    EXPECT_EQ(calls, 1);
}

TEST_F(Interrupt, FromAnotherThreadEndsAWait)
{
    set(plainAction(&countCall));
    std::thread sender;
    QTimer::singleShot(
        0, &app, [&sender] { sender = std::thread([] { pthread_kill(pthread_self(), SIGINT); }); });
    environment.wait(endless);
    sender.join();
    EXPECT_EQ(calls, 1);
}

TEST_F(Interrupt, ReachesAHandlerThatTakesInformation)
{
    set(infoAction());
    interruptSoon();
    environment.wait(endless);
    EXPECT_EQ(infoCalls, 1);
    EXPECT_EQ(senderPid, getpid());
    EXPECT_EQ(currentAction().sa_sigaction, &countInfoCall);
}

TEST_F(Interrupt, OfTheProgramItselfIsNotTouched)
{
    for (const auto& handler : {SIG_DFL, SIG_IGN}) {
        set(plainAction(handler));
        const InterruptWatch watch;
        EXPECT_EQ(currentAction().sa_handler, handler);
    }
}

TEST_F(Interrupt, ThatIsIgnoredEndsNoWait)
{
    set(plainAction(SIG_IGN));
    bool later = false;
    QTimer::singleShot(100, &app, [&later] { later = true; });
    interruptSoon();
    environment.wait(0.3);
    EXPECT_TRUE(later);
}

TEST_F(Interrupt, EndsTheInnermostOfNestedWaits)
{
    set(plainAction(&countCall));
    bool innerEnded = false;
    bool outerGoesOn = false;
    QTimer::singleShot(0, &app, [&] {
        interruptSoon();
        environment.wait(endless);
        innerEnded = true;
        QTimer::singleShot(50, &app, [&] {
            outerGoesOn = true;
            kill(getpid(), SIGINT);
        });
    });
    environment.wait(endless);
    EXPECT_TRUE(innerEnded);
    EXPECT_TRUE(outerGoesOn);
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(currentAction().sa_handler, &countCall);
}

TEST_F(Interrupt, HandlerThatIsSetDuringAWaitStays)
{
    set(plainAction(&countCall));
    {
        const InterruptWatch watch;
        set(infoAction());
    }
    EXPECT_EQ(currentAction().sa_sigaction, &countInfoCall);
}

TEST_F(Interrupt, HandlerThatIsSetBetweenNestedWatchesIsCalledByTheInnerOne)
{
    set(plainAction(&countCall));
    {
        const InterruptWatch outer;
        set(infoAction());
        const InterruptWatch inner;
        kill(getpid(), SIGINT);
        EXPECT_EQ(infoCalls, 1);
        EXPECT_EQ(calls, 0);
        EXPECT_TRUE(isReadable(inner.descriptor()));
        EXPECT_FALSE(isReadable(outer.descriptor()));
    }
    EXPECT_EQ(currentAction().sa_sigaction, &countInfoCall);
}

TEST_F(Interrupt, BeforeAWaitDoesNotEndIt)
{
    set(plainAction(&countCall));
    kill(getpid(), SIGINT);
    bool later = false;
    QTimer::singleShot(50, &app, [&later] { later = true; });
    environment.wait(0.2);
    EXPECT_TRUE(later);
}

TEST_F(Interrupt, BelongsToTheProgramBetweenRuns)
{
    InterruptHandover handover;
    {
        const InterruptHandover::Run run(handover);
        set(plainAction(&countCall)); // the interpreter starts
    }
    EXPECT_EQ(currentAction().sa_handler, SIG_DFL);
    {
        const InterruptHandover::Run run(handover);
        EXPECT_EQ(currentAction().sa_handler, &countCall);
    }
    EXPECT_EQ(currentAction().sa_handler, SIG_DFL);
}

TEST_F(Interrupt, ThatAScriptGaveUpStaysGivenUp)
{
    InterruptHandover handover;
    set(plainAction(&countCall));
    for (const auto& handler : {SIG_IGN, SIG_DFL}) {
        {
            const InterruptHandover::Run run(handover);
            set(plainAction(handler));
        }
        const InterruptHandover::Run next(handover);
        EXPECT_EQ(currentAction().sa_handler, handler);
    }
}

TEST_F(Interrupt, WithoutAHandlerIsLeftAloneByRuns)
{
    InterruptHandover handover;
    for (const auto& handler : {SIG_IGN, SIG_DFL}) {
        set(plainAction(handler));
        {
            const InterruptHandover::Run run(handover);
            EXPECT_EQ(currentAction().sa_handler, handler);
        }
        EXPECT_EQ(currentAction().sa_handler, handler);
    }
}

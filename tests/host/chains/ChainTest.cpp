// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Frames on their way through a chain, and changes of the chain meanwhile.
#include "ChainFixtures.h"
#include "chains/ChainManager.h"

#include <QtCore/QThread>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <new>

#include <pthread.h>

using namespace vistrel;
using namespace vistrel::test;

namespace {

/// An element of a test: it does what it is told with every picture.
class Probe : public ChainElement {
public:
    explicit Probe(std::function<void(CxImageData&)> work)
        : ChainElement({wholeSetting(QStringLiteral("number"), 1, 0, 9)})
        , m_work(std::move(work))
    {
    }
    int forgotten = 0;

private:
    QString apply(CxImageData& image) override
    {
        m_work(image);
        return {};
    }
    void forget() override { ++forgotten; }
    std::function<void(CxImageData&)> m_work;
};

quint8& firstByte(CxImageData& image) { return image.picBuf()->data[0]; }

std::unique_ptr<Probe> timesTenPlus(int digit)
{
    return std::make_unique<Probe>([digit](CxImageData& image) {
        firstByte(image) = static_cast<quint8>(firstByte(image) * 10 + digit);
    });
}

/// A door that a test opens.
class Door {
public:
    void open()
    {
        const std::scoped_lock lock(m_mutex);
        m_isOpen = true;
        m_changed.notify_all();
    }
    void pass()
    {
        std::unique_lock lock(m_mutex);
        m_reached = true;
        m_changed.notify_all();
        m_changed.wait(lock, [this] { return m_isOpen; });
    }
    void waitUntilReached()
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return m_reached; });
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_isOpen = false;
    bool m_reached = false;
};

/// While it lives no thread can be started: each would ask for more stack than there is memory.
class ThreadsThatCannotStart {
public:
    ThreadsThatCannotStart()
    {
        pthread_attr_t huge;
        pthread_getattr_default_np(&m_usual);
        pthread_getattr_default_np(&huge);
        EXPECT_EQ(pthread_attr_setstacksize(&huge, std::size_t{1} << 46), 0);
        EXPECT_EQ(pthread_setattr_default_np(&huge), 0);
        pthread_attr_destroy(&huge);
    }
    ~ThreadsThatCannotStart()
    {
        pthread_setattr_default_np(&m_usual);
        pthread_attr_destroy(&m_usual);
    }
    ThreadsThatCannotStart(const ThreadsThatCannotStart&) = delete;
    ThreadsThatCannotStart& operator=(const ThreadsThatCannotStart&) = delete;

private:
    pthread_attr_t m_usual;
};

class ChainTest : public testing::Test {
protected:
    ChainTest()
    {
        chain.end().setOutput([this](std::unique_ptr<CxImageData> frame) {
            const std::scoped_lock lock(mutex);
            arrived.push_back(firstByte(*frame));
        });
    }
    ~ChainTest() override { chain.stop(); }

    void put(int value) { chain.input()(grey(1, 1, {static_cast<quint8>(value)})); }
    std::vector<int> results()
    {
        chain.drain();
        const std::scoped_lock lock(mutex);
        return arrived;
    }
    ChainElement* append(std::unique_ptr<ChainElement> element)
    {
        ChainElement* const pointer = element.get();
        chain.insertBefore(std::move(element), &chain.end());
        return pointer;
    }

    std::mutex mutex;
    std::vector<int> arrived;
    Chain chain;
};

} // namespace

TEST_F(ChainTest, TakesFramesToItsEnd)
{
    EXPECT_FALSE(chain.stopped());
    for (const int value : {1, 2, 3}) {
        put(value);
        chain.drain();
    }
    EXPECT_EQ(results(), std::vector<int>({1, 2, 3}));
}

TEST_F(ChainTest, TakesFramesThroughItsElementsInOrder)
{
    append(timesTenPlus(1));
    append(timesTenPlus(2));
    put(0);
    EXPECT_EQ(results(), std::vector<int>({12}));
}

TEST_F(ChainTest, WorksOnAThreadOfItsOwn)
{
    std::atomic<QThread*> thread = nullptr;
    append(std::make_unique<Probe>([&](CxImageData&) { thread = QThread::currentThread(); }));
    put(1);
    chain.drain();
    EXPECT_NE(thread, nullptr);
    EXPECT_NE(thread, QThread::currentThread());
}

TEST_F(ChainTest, DropsTheOldestFramesBehindASlowElementAndHoldsNobodyUp)
{
    Door door;
    append(std::make_unique<Probe>([&](CxImageData&) { door.pass(); }));
    put(1);
    door.waitUntilReached();
    for (int value = 2; value <= 10; ++value)
        put(value); // returns though nothing moves
    EXPECT_EQ(chain.droppedFrames(), 7U);
    door.open();
    EXPECT_EQ(results(), std::vector<int>({1, 9, 10}));
}

TEST_F(ChainTest, WaitsForTheFrameUnderWayWhenItIsStopped)
{
    std::atomic<bool> done = false;
    Door reached;
    append(std::make_unique<Probe>([&](CxImageData&) {
        reached.open();
        QThread::msleep(50);
        done = true;
    }));
    put(1);
    reached.pass();
    chain.stop();
    EXPECT_TRUE(done);
    EXPECT_TRUE(chain.stopped());
}

TEST_F(ChainTest, LetsNothingThroughWhileItIsStopped)
{
    chain.stop();
    put(1);
    EXPECT_EQ(results(), std::vector<int>());
    EXPECT_EQ(chain.droppedFrames(), 1U);
    chain.start();
    put(2);
    EXPECT_EQ(results(), std::vector<int>({2}));
}

TEST_F(ChainTest, IsDrainedWhenTheFramesBeforeAreDoneThoughOthersKeepComing)
{
    constexpr int enough = 60'000; // a minute and more
    std::atomic<int> done = 0;
    std::atomic<bool> drained = false;
    append(std::make_unique<Probe>([&](CxImageData&) {
        QThread::msleep(1);
        if (++done < enough && !drained)
            put(2);
    }));
    put(1);
    chain.drain();
    EXPECT_GE(done, 1);
    EXPECT_LT(done, enough);
    drained = true;
    chain.stop(); // the last frame may be under way yet
}

TEST_F(ChainTest, DropsAFrameForWhichThereIsNoThreadAndLogsTheFirst)
{
    const LogLines log;
    {
        const ThreadsThatCannotStart none;
        put(1);
        put(2);
    }
    EXPECT_EQ(results(), std::vector<int>());
    EXPECT_EQ(chain.droppedFrames(), 2U);
    EXPECT_EQ(LogLines::lines().size(), 1);
    EXPECT_TRUE(LogLines::joined().contains(QStringLiteral("Pictures are dropped: ")));
    put(3);
    EXPECT_EQ(results(), std::vector<int>({3}));
}

TEST_F(ChainTest, DropsAFrameWhoseReceiverThrowsAndGoesOn)
{
    const LogLines log;
    std::atomic<int> received = 0;
    chain.end().setOutput([&](std::unique_ptr<CxImageData>) {
        if (++received < 3)
            throw std::bad_alloc();
    });
    for (int i = 0; i < 3; ++i) {
        put(1);
        chain.drain();
    }
    EXPECT_EQ(received, 3);
    EXPECT_EQ(chain.droppedFrames(), 2U);
    EXPECT_EQ(LogLines::lines().size(), 1) << qPrintable(LogLines::joined());
    chain.end().setOutput(nullptr);
}

TEST_F(ChainTest, TakesFramesThatComeWhenItIsGone)
{
    FrameFunction input;
    {
        const Chain other;
        input = other.input();
    }
    input(grey(1, 1, {1}));
}

TEST_F(ChainTest, InsertsInFrontOfAnyElement)
{
    const ChainElement* const last = append(timesTenPlus(2));
    chain.insertBefore(timesTenPlus(1), last);
    put(0);
    EXPECT_EQ(results(), std::vector<int>({12}));
}

TEST_F(ChainTest, RemovesMovesAndSwitchesElements)
{
    ChainElement* const one = append(timesTenPlus(1));
    ChainElement* const two = append(timesTenPlus(2));
    chain.move(one, 7); // beyond the last place is the last place
    EXPECT_EQ(chain.elements(), std::vector<ChainElement*>({two, one}));
    put(0);
    EXPECT_EQ(results(), std::vector<int>({21}));
    chain.move(one, 0);
    EXPECT_EQ(chain.elements(), std::vector<ChainElement*>({one, two}));
    one->setEnabled(false);
    put(0);
    EXPECT_EQ(results(), std::vector<int>({21, 2}));
    chain.remove(two);
    EXPECT_EQ(chain.elements(), std::vector<ChainElement*>({one}));
    EXPECT_FALSE(chain.hasEnabledElements());
    put(5);
    EXPECT_EQ(results(), std::vector<int>({21, 2, 5}));
    chain.remove(&chain.end());
    chain.move(&chain.end(), 0);
    EXPECT_EQ(chain.elements().size(), 1U);
}

TEST_F(ChainTest, TellsOfEveryChangeAndRunsOn)
{
    int changes = 0;
    int starts = 0;
    QObject::connect(&chain, &Chain::changed, &chain, [&changes] { ++changes; });
    QObject::connect(&chain, &Chain::started, &chain, [&starts] { ++starts; });
    ChainElement* const element = append(timesTenPlus(1));
    element->configure(confOf({{"number", "2"}}));
    element->setEnabled(false);
    chain.move(element, 0);
    chain.remove(element);
    EXPECT_EQ(changes, 5);
    EXPECT_EQ(starts, 5);
    EXPECT_FALSE(chain.stopped());
}

TEST_F(ChainTest, StaysStoppedThroughChanges)
{
    chain.stop();
    const ChainElement* const element = append(timesTenPlus(1));
    EXPECT_TRUE(chain.stopped());
    chain.remove(element);
    EXPECT_TRUE(chain.stopped());
}

TEST_F(ChainTest, LetsTheElementsBehindAChangeBeginAnew)
{
    auto* const first = static_cast<Probe*>(append(timesTenPlus(1)));
    auto* const last = static_cast<Probe*>(append(timesTenPlus(2)));
    first->forgotten = last->forgotten = 0;
    chain.insertBefore(timesTenPlus(3), last);
    EXPECT_EQ(first->forgotten, 0);
    EXPECT_GT(last->forgotten, 0);
}

TEST_F(ChainTest, ProcessesAPictureAloneAtOnce)
{
    append(timesTenPlus(1));
    auto image = grey(1, 1, {0});
    chain.processAlone(*image);
    EXPECT_EQ(firstByte(*image), 1);
    EXPECT_EQ(results(), std::vector<int>());
}

TEST_F(ChainTest, TakesTwoHundredInsertionsWhileFramesStream)
{
    std::atomic<bool> ending = false;
    std::thread camera([&] {
        while (!ending) {
            put(1);
            std::this_thread::yield();
        }
    });
    ChainManager manager;
    for (int i = 0; i < 200; ++i) {
        // As plugins do it.
        CxChain* const running = chain.end().chain();
        ASSERT_FALSE(running->stopped());
        running->stop();
        auto element = newElement(i % 2 == 0 ? "Flip" : "Frame Average");
        element->setEnabled(true);
        manager.insertBefore(running, element.release(), &chain.end());
        running->start();
        if (i % 50 == 49) {
            for (const ChainElement* old : chain.elements())
                chain.remove(old);
        }
    }
    EXPECT_TRUE(chain.elements().empty());
    ending = true;
    camera.join();
    const std::size_t before = results().size();
    put(1);
    EXPECT_EQ(results().size(), before + 1);
}

TEST_F(ChainTest, TakesChangesOfSettingsWhileFramesStream)
{
    std::atomic<bool> ending = false;
    std::thread camera([&] {
        while (!ending) {
            chain.input()(newImage({.width = 16, .height = 16}));
            std::this_thread::yield();
        }
    });
    ChainElement* const blur = append(newElement("Gaussian Blur"));
    for (int i = 0; i < 100; ++i) {
        blur->configure(confOf({{"sigma", i % 2 == 0 ? "1" : "2"}}));
        blur->setEnabled(i % 3 == 0);
    }
    ending = true;
    camera.join();
    EXPECT_EQ(blur->settings().number(QLatin1String("sigma")), 2.0);
}

TEST(ChainManager, OwnsWhatItInserts)
{
    const LogLines log;
    ChainManager manager;
    Chain chain;
    auto* const element = newElement("Flip").release();
    manager.insertBefore(&chain, element, &chain.end());
    EXPECT_EQ(element->chain(), static_cast<CxChain*>(&chain));
    EXPECT_EQ(chain.elements(), std::vector<ChainElement*>({element}));
    EXPECT_TRUE(LogLines::lines().isEmpty());
    EXPECT_FALSE(chain.stopped());
}

TEST(ChainManager, PutsAnElementLastWhenThereIsNoSuchPlace)
{
    ChainManager manager;
    Chain chain;
    auto* const first = newElement("Flip").release();
    auto* const second = newElement("Flip").release();
    manager.insertBefore(&chain, first, nullptr);
    manager.insertBefore(&chain, second, nullptr);
    EXPECT_EQ(chain.elements(), std::vector<ChainElement*>({first, second}));
}

TEST(ChainManager, RefusesWhatCannotGoThere)
{
    const LogLines log;
    ChainManager manager;
    Chain chain;
    Chain other;
    manager.insertBefore(nullptr, newElement("Flip").release(), nullptr); // it is deleted
    EXPECT_EQ(LogLines::lines().size(), 1);
    manager.insertBefore(&chain, nullptr, nullptr);
    auto* const element = newElement("Flip").release();
    manager.insertBefore(&chain, element, nullptr);
    manager.insertBefore(&other, element, nullptr);
    EXPECT_EQ(LogLines::lines().size(), 2);
    EXPECT_TRUE(other.elements().empty());
    EXPECT_EQ(chain.elements().size(), 1U);
}

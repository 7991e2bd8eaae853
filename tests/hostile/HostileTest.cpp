// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Scripts and hosts that mean harm or know no better: nothing may end the process.
#include "DialogUser.h"
#include "PluginTest.h"

#include "core/HostSingletons.h"
#include "core/PicBufHeap.h"

#include <cstdlib>
#include <stdexcept>

using testing::_;
using testing::Return;

namespace {

/// Calls every function, method and attribute of the module with all tuples of up to two values
/// from a pool, alloc with all sizes from another one, and prints how many calls there were.
constexpr char callEverything[] = R"py(
import itertools, sys

class Loud:
    def __index__(self): raise RuntimeError('index')
    def __bool__(self): raise RuntimeError('bool')
    def __str__(self): raise RuntimeError('str')
    def __getattr__(self, name): raise RuntimeError('getattr')

class Subtle(str):
    pass

def pool():
    filled = vistrel.Image()
    try: filled.alloc(7, 5, 3, 8)
    except Exception: pass
    return [None, True, -1, 0, 3, 2**31 - 1, -2**31, 2**63, 1.5, float('nan'), float('inf'), '',
            'x.png', 'a\0b', '\udc80', Subtle('y'), b'bytes', [], (1, 2), {}, Loud(), vistrel,
            vistrel.Image(), vistrel.Camera(), vistrel.Graph(), filled,
            vistrel.Image.__new__(vistrel.Image),
            vistrel.Camera.__new__(vistrel.Camera), vistrel.Graph.__new__(vistrel.Graph)]

def targets():
    for name, item in list(vars(vistrel).items()):
        if callable(item) and not name.startswith('__'):
            yield item
    for make in (vistrel.Image, vistrel.Camera, vistrel.Graph):
        for name in list(vars(make)):
            if name not in ('__doc__', '__module__'):
                yield getattr(make(), name, None)
                yield getattr(make, name, None)

calls = 0
for target in targets():
    for count in range(3):
        for arguments in itertools.product(pool(), repeat=count):
            calls += 1
            try:
                str(target(*arguments))
            except Exception:
                pass
for numbers in itertools.product((-1, 0, 1, 3, 8, 33, 2**31 - 1), repeat=4):
    calls += 1
    try: vistrel.Image().alloc(*numbers)
    except Exception: pass
for thing in pool():
    for name in dir(thing):
        try: repr(getattr(thing, name))
        except Exception: pass
print(calls, end='')
)py";

class Hostile : public PluginTest {
protected:
    /// Runs the script; true when it came to its end.
    void expectManyCalls()
    {
        const DialogUser user;
        EXPECT_EQ(run(callEverything), QString());
        EXPECT_GT(output.toInt(), 10'000);
        EXPECT_EQ(value("'alive'"), QStringLiteral("alive"));
    }
};

TEST_F(Hostile, EveryFunctionWithEveryOddArgumentOnAHostThatReturnsNothing) { expectManyCalls(); }

TEST_F(Hostile, TheSameOnAHostThatSaysYesToEverything)
{
    auto image = makeImage(9, 8, 3, ExImageDataType::UInt16, 12);
    testing::NiceMock<MockMdiView> view;
    addCamera(QStringLiteral("A"), QStringLiteral("1"));
    ON_CALL(delegate, viewImage(_)).WillByDefault(Return(image.get()));
    ON_CALL(delegate, view(_)).WillByDefault(Return(&view));
    ON_CALL(delegate, openFile(_, _)).WillByDefault(Return(true));
    ON_CALL(delegate, duplicateView(_)).WillByDefault(Return(true));
    ON_CALL(delegate, setCameraAcquisition(_, _)).WillByDefault(Return(true));
    ON_CALL(delegate, setViewImage(_, _)).WillByDefault([](int, CxImageData* shown) {
        delete shown;
    });
    ON_CALL(delegate, newViewWithImage(_, _)).WillByDefault([](CxImageData* shown, auto&) {
        delete shown;
        return true;
    });
    expectManyCalls();
}

TEST_F(Hostile, TheSameOnAHostThatThrows)
{
    run("pass");
    const auto fail = [](auto&&...) -> int { throw std::runtime_error("broken host"); };
    ON_CALL(delegate, activeViewId()).WillByDefault(fail);
    ON_CALL(delegate, viewImage(_)).WillByDefault([](int) -> CxImageData* {
        throw std::runtime_error("broken host");
    });
    ON_CALL(environment, resolvePath(_)).WillByDefault([](const QString&) -> QString {
        throw std::bad_alloc();
    });
    ON_CALL(cameraManager, openedCameras()).WillByDefault([]() -> QList<void*> { throw 1; });
    expectManyCalls();
}

TEST_F(Hostile, TheSameOnAHostThatIsGone)
{
    run("pass");
    vistrel::installAppDelegate(nullptr);
    vistrel::installCameraManager(nullptr);
    vistrel::installImageFormatManager(nullptr);
    expectManyCalls();
}

int allocationsLeft = 0;

void* allocateUntilNoneIsLeft(std::size_t bytes, std::size_t, bool)
{
    return allocationsLeft-- > 0 ? std::calloc(1, bytes) : nullptr;
}

TEST_F(Hostile, EachAllocationOfAPictureFailsInTurn)
{
    const char* const script = "def attempt(call):\n"
                               "    try: call()\n"
                               "    except Exception: return 'x'\n"
                               "    return '.'\n"
                               "i = vistrel.Image()\n"
                               "print(attempt(lambda: i.alloc(4, 3, 3, 8)) + attempt(i.new_copy)\n"
                               "      + attempt(i.get_image_data_numpy)\n"
                               "      + attempt(lambda: vistrel.set_view_image(i))\n"
                               "      + attempt(lambda: vistrel.new_view_with_image(i))\n"
                               "      + attempt(lambda: i.alloc(5, 3, 3, 8)), end='')\n";
    ON_CALL(delegate, setViewImage(_, _)).WillByDefault([](int, CxImageData* shown) {
        delete shown;
    });
    vistrel::setPicBufAllocator(allocateUntilNoneIsLeft);
    for (int failing = 0; failing <= 6; ++failing) {
        allocationsLeft = failing;
        EXPECT_EQ(run(script), QString()) << failing;
        // Each call takes one allocation; without its first picture there is nothing to copy.
        EXPECT_EQ(output, QString(failing, QLatin1Char('.')).leftJustified(6, QLatin1Char('x')));
    }
    vistrel::setPicBufAllocator(nullptr);
}

TEST_F(Hostile, ObjectsThatLiveOnAfterTheRunAndTheInterpreterDoNoHarm)
{
    run("import emb\nemb.kept = vistrel.Image()\nemb.kept.alloc(10, 10, 1, 8)\n"
        "class AtEnd:\n"
        "    def __init__(self, image): self.image = image\n"
        "    def __del__(self): self.image.alloc(1, 1, 1, 8); print(self.image)\n"
        "emb.last = AtEnd(emb.kept)\n");
    destroyPlugin();
    plugin = qobject_cast<CxScriptLangInterface*>(loader.instance());
    plugin->init();
    EXPECT_EQ(value("vistrel.Image()"), QStringLiteral("Vistrel image object is empty"));
}

TEST_F(Hostile, TheInterpreterStartsTenTimesInOneProcess)
{
    for (int start = 0; start < 10; ++start) {
        EXPECT_EQ(value("[i := vistrel.Image(), i.alloc(3, 2, 1, 8), i.width][2]"),
                  QStringLiteral("3"));
        destroyPlugin();
        plugin = qobject_cast<CxScriptLangInterface*>(loader.instance());
        plugin->init();
    }
}

TEST_F(Hostile, ThreadsThatAScriptLeavesBehindDoNoHarm)
{
    EXPECT_EQ(run("import threading, time\n"
                  "def work(time=time, vistrel=vistrel):\n"
                  "    while True:\n"
                  "        time.sleep(0.001)\n"
                  "        str(vistrel.Image())\n"
                  "for _ in range(4): threading.Thread(target=work, daemon=True).start()\n"),
              QString());
    EXPECT_EQ(value("__import__('time').sleep(0.05)"), QStringLiteral("None"));
}

TEST_F(Hostile, ThreadsInsideACallWhenTheInterpreterStopsDoNoHarm)
{
    EXPECT_EQ(run("import threading, time, emb\n"
                  "class Slow:\n"
                  "    def __index__(self, sleep=time.sleep):\n"
                  "        sleep(0.002)\n"
                  "        return 1\n"
                  "def work(vistrel=vistrel, slow=Slow()):\n"
                  "    while True:\n"
                  "        try: vistrel.get_view_image(slow)\n"
                  "        except Exception: pass\n"
                  "for _ in range(4): threading.Thread(target=work, daemon=True).start()\n"
                  "time.sleep(0.01)\n"),
              QString());
    destroyPlugin();
}

TEST_F(Hostile, AScriptThatRecursesWithoutEndGetsPythonsError)
{
    EXPECT_TRUE(error("def f(): return f()\nf()").startsWith(QLatin1String("RecursionError: ")));
}

TEST_F(Hostile, AScriptThatBreaksItsOwnNamespaceLeavesTheNextOneSound)
{
    run("globals().clear()");
    // Before 3.10 a namespace without __builtins__ stays without them.
    const QString errors = run("import sys\nsys.stdout.write('back')");
    EXPECT_TRUE(output == QLatin1String("back")
                || errors.contains(QLatin1String("__import__ not found")))
        << qPrintable(errors);
    run("import sys\nsys.modules.clear()");
    EXPECT_FALSE(run("undefined_name").isEmpty());
}

} // namespace

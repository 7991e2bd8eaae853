// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A camera in the hands of scripts that mean harm, on hosts that know no better: nothing may end
// the process.
#include "PluginTest.h"

#include <stdexcept>

using testing::_;
using testing::Return;

namespace {

/// Calls every method and dynamic attribute of a bound camera with all tuples of up to two values
/// from a pool, and prints how many calls there were.
constexpr char callEverything[] = R"py(
import itertools

class Loud:
    def __index__(self): raise RuntimeError('index')
    def __float__(self): raise RuntimeError('float')
    def __str__(self): raise RuntimeError('str')

class Text(str): pass
class Number(int): pass

cam = vistrel.Camera()
pool = [None, True, -1, 0, 2**31 - 1, 2**31, -2**63, 2**64, 10**400, 1.5, 1e300, float('nan'),
        float('inf'), '', 'gain_db', 'gain_db:max', 'gain_db:', ':', '::min', 'device_sn', 'a\0b',
        '\udc80', 'x' * 10000, Text('gain_db'), Number(3), b'bytes', [], (1, 2, 3, 4), {}, Loud(),
        cam, vistrel]
prefixes = ['get_', 'set_', 'is_', 'enable_', 'disable_']
endings = ['', '_maximum', '_minimum', '_increment', '_', '_maximum_maximum', ':max', '\0', '\udc80']
names = [p + m + e for p in prefixes for m in ('', 'gain_db', '_', 'x' * 1000) for e in endings]
slow = ['restart_with_default_settings']
methods = [n for n in dir(vistrel.Camera) if not n.startswith('__') and n not in slow]
calls = 0
for name in methods + names:
    for count in range(3):
        for arguments in itertools.product(pool[:18] if count == 2 else pool, repeat=count):
            calls += 1
            try:
                cam.open_device()
                str(getattr(cam, name)(*arguments))
            except Exception:
                pass
for numbers in itertools.product((-2**31, -1, 0, 2**31 - 1), repeat=4):
    try: cam.set_roi(*numbers)
    except Exception: pass
print(calls, end='')
)py";

class Parameter : public CxCameraParam {
public:
    explicit Parameter(CxValue value)
        : m_value(std::move(value))
    {
    }
    CxValue paramValue() override { return m_value; }
    CxValue minimum() override { return m_value; }
    CxValue maximum() override { return m_value; }
    CxValue increment() override { return {}; }
    bool isUnsupported() const override { return false; }

private:
    CxValue m_value;
};

class HostileCamera : public PluginTest {
protected:
    void expectManyCalls()
    {
        EXPECT_EQ(run(callEverything), QString());
        EXPECT_GT(output.toInt(), 50'000);
        EXPECT_EQ(value("'alive'"), QStringLiteral("alive"));
    }

    /// All but those that would hide methods.
    void knowEveryName()
    {
        ON_CALL(environment, isApiParamName).WillByDefault([](const QString& name) {
            return name != QLatin1String("param") && name != QLatin1String("roi")
                   && name != QLatin1String("device_info_string");
        });
    }

    void listEverything(CxCameraParam& parameter)
    {
        knowEveryName();
        ON_CALL(camera.parameters, findParam).WillByDefault(Return(&parameter));
    }

    FakeCamera& camera = addCamera(QStringLiteral("A"), QStringLiteral("1"));
};

TEST_F(HostileCamera, OnAHostThatKnowsNothing) { expectManyCalls(); }

TEST_F(HostileCamera, OnAHostThatReadsEverythingAsText)
{
    Parameter parameter(CxValue::fromString(QStringLiteral("a") + QChar(0) + QChar(0xD800)));
    listEverything(parameter);
    ON_CALL(camera.parameters, currentROIRectParams())
        .WillByDefault(Return(QRect(QPoint(-5, -5), QPoint(-7, -9))));
    expectManyCalls();
}

TEST_F(HostileCamera, OnAHostWhoseParametersAreEmpty)
{
    Parameter parameter{CxValue()};
    listEverything(parameter);
    expectManyCalls();
}

TEST_F(HostileCamera, OnAHostThatThrows)
{
    run("pass");
    knowEveryName();
    ON_CALL(camera.parameters, findParam).WillByDefault([](auto&, bool) -> CxCameraParam* {
        throw std::runtime_error("broken camera");
    });
    ON_CALL(camera.parameters, currentROIRectParams()).WillByDefault([]() -> QRect { throw 1; });
    ON_CALL(camera.parameters, setROIRectParams).WillByDefault([](int, int, int, int, bool) {
        throw std::bad_alloc();
    });
    ON_CALL(delegate, captureImageDialog).WillByDefault([](auto&&...) -> SxPicBuf* { throw 1; });
    ON_CALL(delegate, setCameraAcquisition).WillByDefault([](bool, void*) -> bool { throw 1; });
    expectManyCalls();
}

TEST_F(HostileCamera, OnAHostThatLosesItEverySecondTime)
{
    Parameter parameter(CxValue::fromFloat(1.5F));
    listEverything(parameter);
    int asked = 0;
    ON_CALL(cameraManager, cameraParameters)
        .WillByDefault([this, &asked](void*) -> CxCameraParameters* {
            return ++asked % 2 != 0 ? nullptr : &camera.parameters;
        });
    expectManyCalls();
}

TEST_F(HostileCamera, FromManyThreadsAtOnce)
{
    Parameter parameter(CxValue::fromFloat(1.5F));
    listEverything(parameter);
    EXPECT_EQ(run("import sys, threading\n"
                  "sys.setswitchinterval(1e-6)\n"
                  "cam = vistrel.Camera()\n"
                  "cam.open_device()\n"
                  "def work(cam=cam, failures=(failures := [])):\n"
                  "    for i in range(500):\n"
                  "        if cam.get_gain_db() != 1.5: failures.append(i)\n"
                  "        if getattr(cam, f'get_p{i}')() != 1.5: failures.append(i)\n"
                  "        if cam.set_gain_db(i) != 0: failures.append(i)\n"
                  "threads = [threading.Thread(target=work) for _ in range(8)]\n"
                  "for thread in threads: thread.start()\n"
                  "for thread in threads: thread.join()\n"
                  "assert failures == []\n"),
              QString());
}

TEST_F(HostileCamera, WhenItsCallableOutlivesTheInterpreter)
{
    Parameter parameter(CxValue::fromFloat(1.5F));
    listEverything(parameter);
    run("import emb\nemb.cam = vistrel.Camera()\nemb.cam.open_device()\n"
        "emb.read = emb.cam.get_gain_db\n"
        "class AtEnd:\n"
        "    def __init__(self, read): self.read = read\n"
        "    def __del__(self): self.read()\n"
        "emb.last = AtEnd(emb.read)\n");
    for (int start = 0; start < 3; ++start) {
        destroyPlugin();
        plugin = qobject_cast<CxScriptLangInterface*>(loader.instance());
        plugin->init();
        EXPECT_EQ(value("[c := vistrel.Camera(), c.open_device(), c.get_gain_db(), "
                        "c.get_param('gain_db')][2:]"),
                  QStringLiteral("[1.5, 1.5]"));
    }
}

} // namespace

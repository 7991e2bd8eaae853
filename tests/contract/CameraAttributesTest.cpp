// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Dynamic attributes of a camera: which names they are, what their callables do, what they keep.
#include "CameraFixture.h"

#include <QtCore/QMap>

#include <stdexcept>

using testing::_;
using testing::NotNull;
using testing::Return;

namespace {

const QString gain = QStringLiteral("gain_db");

class CameraAttributes : public CameraTest {
protected:
    /// Which parameter names the environment is asked for when a script looks an attribute up.
    QStringList askedFor(const std::string& attribute)
    {
        QStringList names;
        run("pass");
        ON_CALL(environment, isApiParamName).WillByDefault([&names](const QString& name) {
            names.append(name);
            return false;
        });
        run(("getattr(vistrel.Camera(), '" + attribute + "', None)").c_str());
        return names;
    }

    void expectSent(const QString& key, int number)
    {
        EXPECT_CALL(camera.parameters,
                    setParamDirect(key, IsInt(number), NotNull(), CxCameraParameters::RefreshLater))
            .WillOnce(Return(true));
    }
};

TEST_F(CameraAttributes, TheEnvironmentIsAskedForTheParameterBetweenPrefixAndEnding)
{
    const std::pair<const char*, const char*> asked[] = {
        {"set_gain_db", "gain_db"},
        {"get_gain_db", "gain_db"},
        {"is_gain_db", "gain_db"},
        {"enable_gain_db", "gain_db"},
        {"disable_gain_db", "gain_db"},
        {"get_gain_db_maximum", "gain_db"},
        {"is_gain_db_minimum", "gain_db"},
        {"set_gain_db_increment", "gain_db"},
        {"enable_a_maximum_minimum", "a_maximum"},
        {"get_gain_db_Maximum", "gain_db_Maximum"},
        {"get_gain_db_max", "gain_db_max"},
        {"get_maximum", "maximum"},
        {"get__maximum", "_maximum"},
        {"get_is_on", "is_on"},
        {"get_größe", "größe"},
        {"set_", ""},
    };
    for (const auto& [attribute, parameter] : asked) {
        EXPECT_EQ(askedFor(attribute), QStringList{QString::fromUtf8(parameter)}) << attribute;
    }
}

TEST_F(CameraAttributes, TheEnvironmentIsNotAskedForOtherNames)
{
    for (const char* attribute : {"open_device", "Get_gain_db", "SET_x", "get", "is", "xget_x", "",
                                  "gain_db", "_get_x", "disableX"}) {
        EXPECT_EQ(askedFor(attribute), QStringList()) << attribute;
    }
}

TEST_F(CameraAttributes, MethodsAreFoundByTheOrdinaryLookup)
{
    listParam(gain, CxValue::fromFloat(1.5F));
    EXPECT_EQ(boundValue("cam.get_param('gain_db')"), QStringLiteral("1.5"));
    EXPECT_EQ(boundValue("cam.open_device.__name__"), QStringLiteral("open_device"));
}

TEST_F(CameraAttributes, AParameterNamedLikeTheRestOfAMethodHidesTheMethod)
{
    listParam(QStringLiteral("param"), CxValue::fromInt(6));
    EXPECT_EQ(boundValue("cam.get_param()"), QStringLiteral("6"));
}

TEST_F(CameraAttributes, UnknownNamesAreAttributeErrors)
{
    for (const char* name : {"nonsense", "get_nonsense", "set_", "get_\\0gain_db", "get_\\udc80"}) {
        EXPECT_TRUE(boundError("getattr(cam, '" + std::string(name) + "')")
                        .startsWith(QLatin1String("AttributeError")))
            << name;
        EXPECT_EQ(boundValue("hasattr(cam, '" + std::string(name) + "')"), QStringLiteral("False"));
    }
    EXPECT_TRUE(boundError("cam.new = 1").startsWith(QLatin1String("AttributeError")));
}

TEST_F(CameraAttributes, GetAndIsReadTheValue)
{
    listParam(gain, CxValue::fromFloat(1.5F));
    EXPECT_EQ(boundValue("(cam.get_gain_db(), cam.is_gain_db(), cam.get_param('gain_db'))"),
              QStringLiteral("(1.5, 1.5, 1.5)"));
}

TEST_F(CameraAttributes, EndingsReadTheLimitsAndTheIncrement)
{
    Param& param = listParam(gain, CxValue::fromFloat(1));
    ON_CALL(param, minimum()).WillByDefault(Return(CxValue::fromFloat(-2)));
    ON_CALL(param, maximum()).WillByDefault(Return(CxValue::fromFloat(24)));
    ON_CALL(param, increment()).WillByDefault(Return(CxValue::fromFloat(0.5F)));
    EXPECT_EQ(boundValue("(cam.get_gain_db_minimum(), cam.get_gain_db_maximum(), "
                         "cam.get_gain_db_increment())"),
              QStringLiteral("(-2.0, 24.0, 0.5)"));
    EXPECT_EQ(boundValue("cam.is_gain_db_maximum() == cam.get_param('gain_db:max')"),
              QStringLiteral("True"));
}

TEST_F(CameraAttributes, SetSendsTheValueAndReturnsTheStatus)
{
    listParam(gain, CxValue::fromInt(1));
    EXPECT_CALL(camera.parameters, setParamDirect(gain, IsInt(3), NotNull(), _))
        .WillOnce([](auto&, auto&, int* status, auto) {
            *status = 2;
            return true;
        });
    EXPECT_EQ(boundValue("cam.set_gain_db(3.9)"), QStringLiteral("2"));
}

TEST_F(CameraAttributes, EnableAndDisableSendOneAndZero)
{
    listParam(gain, CxValue::fromInt(1));
    expectSent(gain, 1);
    EXPECT_EQ(boundValue("cam.enable_gain_db()"), QStringLiteral("0"));
    expectSent(gain, 0);
    EXPECT_EQ(boundValue("cam.disable_gain_db()"), QStringLiteral("0"));
}

TEST_F(CameraAttributes, EnableSendsABoolToABoolParameter)
{
    listParam(gain, CxValue::fromBool(false));
    EXPECT_CALL(camera.parameters, setParamDirect(gain, IsBool(true), NotNull(), _));
    boundValue("cam.enable_gain_db()");
}

TEST_F(CameraAttributes, SettingALimitPassesItsKeyToTheHost)
{
    listParam(gain, CxValue::fromFloat(1));
    expectSent(QStringLiteral("gain_db:max"), 5);
    boundValue("cam.set_gain_db_maximum(5)");
    expectSent(QStringLiteral("gain_db:min"), 1);
    boundValue("cam.enable_gain_db_minimum()");
    expectSent(QStringLiteral("gain_db:inc"), 0);
    boundValue("cam.disable_gain_db_increment()");
}

TEST_F(CameraAttributes, ACallableIsBoundToCameraAndName)
{
    listParam(gain, CxValue::fromFloat(1));
    const std::pair<const char*, const char*> names[] = {
        {"set_gain_db", "paramsetter"},          {"enable_gain_db", "paramsetter_bool"},
        {"disable_gain_db", "paramsetter_bool"}, {"get_gain_db", "paramgetter"},
        {"is_gain_db", "paramgetter"},
    };
    for (const auto& [attribute, record] : names) {
        const std::string look = "cam." + std::string(attribute);
        EXPECT_EQ(boundValue("(lambda f: (f.__name__, f.__doc__, type(f.__self__).__name__, "
                             "f.__self__[0] is cam, *f.__self__[1:]))("
                             + look + ")"),
                  QStringLiteral("('%1', None, 'tuple', True, '%2')")
                      .arg(QString::fromUtf8(record), QString::fromUtf8(attribute)));
    }
}

TEST_F(CameraAttributes, ASetterTakesOneArgumentTheOthersNone)
{
    listParam(gain, CxValue::fromFloat(1));
    for (const char* call : {"set_gain_db()", "set_gain_db(1, 2)", "set_gain_db(value=1)",
                             "get_gain_db(1)", "is_gain_db(1)", "enable_gain_db(True)"}) {
        EXPECT_TRUE(boundError("cam." + std::string(call)).startsWith(QLatin1String("TypeError")))
            << call;
    }
}

TEST_F(CameraAttributes, EachLookupAsksAnewAndMakesANewCallable)
{
    EXPECT_CALL(environment, isApiParamName(gain)).Times(2).WillRepeatedly(Return(true));
    EXPECT_EQ(boundValue("(lambda a, b: (a is b, a.__self__ is b.__self__))"
                         "(cam.get_gain_db, cam.get_gain_db)"),
              QStringLiteral("(False, False)"));
}

TEST_F(CameraAttributes, NamesMayComeFromAnywhere)
{
    listParam(gain, CxValue::fromFloat(1.5F));
    EXPECT_EQ(boundValue("getattr(cam, '_'.join(['get', 'gain', 'db']))()"), QStringLiteral("1.5"));
    EXPECT_EQ(boundValue("getattr(cam, type('Name', (str,), {})('get_gain_db'))()"),
              QStringLiteral("1.5"));
    EXPECT_EQ(boundValue("hasattr(cam, 'get_' + 'x' * 10**6)"), QStringLiteral("False"));
    EXPECT_TRUE(boundError("vistrel.Camera.__getattribute__(cam, 5)")
                    .startsWith(QLatin1String("TypeError")));
    EXPECT_TRUE(boundError("vistrel.Camera.__getattribute__(5, 'get_gain_db')")
                    .startsWith(QLatin1String("TypeError")));
}

TEST_F(CameraAttributes, ManyDifferentNamesKeepTheirMeaning)
{
    ON_CALL(environment, isApiParamName).WillByDefault(Return(true));
    ON_CALL(camera.parameters, getParamDirect)
        .WillByDefault([](const QString& name, CxValue& value, int*) {
            value = CxValue::fromString(name);
            return true;
        });
    EXPECT_EQ(runBound("for turn in range(3):\n"
                       "    for i in range(2000):\n"
                       "        assert getattr(cam, f'get_p{i}')() == f'p{i}'\n"
                       "        assert getattr(cam, f'get_p{i}_maximum')() == f'p{i}:max'\n"
                       "        assert cam.get_param is not None\n"),
              QString());
}

TEST_F(CameraAttributes, AnUnboundObjectReadsAndSetsNoneWithoutAnError)
{
    listParam(gain, CxValue::fromFloat(1));
    EXPECT_EQ(
        value("[(c := vistrel.Camera()).get_gain_db(), c.set_gain_db(1), c.set_gain_db(None), "
              "c.enable_gain_db()]"),
        QStringLiteral("[None, None, None, None]"));
}

TEST_F(CameraAttributes, AFailureIsASystemErrorChainedToItsReason)
{
    Param& param = listParam(gain, CxValue::fromFloat(1));
    ON_CALL(param, isUnsupported()).WillByDefault(Return(true));
    EXPECT_EQ(runBound("def reason(call):\n"
                       "    try: call()\n"
                       "    except SystemError as error:\n"
                       "        assert 'returned a result with an e' in str(error), error\n"
                       "        assert error.__cause__ is error.__context__\n"
                       "        return repr(error.__cause__)\n"
                       "print(reason(lambda: cam.get_gain_db()))\n"
                       "print(reason(lambda: cam.set_gain_db(None)))\n"
                       "print(reason(lambda: cam.set_gain_db(2**64)).split('(')[0])\n"),
              QString());
    EXPECT_EQ(output, QStringLiteral("Exception('Parameter not supported by the camera.')\n"
                                     "Exception('Unsupported camera parameter value type.')\n"
                                     "OverflowError\n"));
}

TEST_F(CameraAttributes, EveryCallInALoopFailsAlike)
{
    Param& param = listParam(gain, CxValue::fromFloat(1));
    ON_CALL(param, isUnsupported()).WillByDefault(Return(true));
    EXPECT_EQ(runBound("failures = 0\n"
                       "def fail(stored, *value):\n"
                       "    global failures\n"
                       "    try: stored(*value)\n"
                       "    except SystemError as e: failures += type(e.__cause__) is Exception\n"
                       "def loop():\n"
                       "    global failures\n"
                       "    stored = cam.set_gain_db\n"
                       "    for _ in range(300):\n"
                       "        try: cam.set_gain_db(None)\n"
                       "        except SystemError: failures += 1\n"
                       "        try: cam.get_gain_db()\n"
                       "        except SystemError: failures += 1\n"
                       "        try: stored(None)\n"
                       "        except SystemError: failures += 1\n"
                       "        fail(cam.set_gain_db, None)\n"
                       "        fail(cam.get_gain_db)\n"
                       "loop()\n"
                       "print(failures, end='')\n"),
              QString());
    EXPECT_EQ(output, QStringLiteral("1500"));
}

TEST_F(CameraAttributes, AStoredCallableMayBeCalledAgainAndAgain)
{
    listParam(gain, CxValue::fromFloat(1));
    EXPECT_CALL(camera.parameters, setParamDirect(gain, _, _, _)).Times(2000);
    EXPECT_EQ(runBound("import sys\n"
                       "read, write = cam.get_gain_db, cam.set_gain_db\n"
                       "before = sys.getrefcount(read.__self__), sys.getrefcount(cam)\n"
                       "for i in range(2000): read(); write(i)\n"
                       "assert before == (sys.getrefcount(read.__self__), sys.getrefcount(cam))\n"
                       "del cam\n"
                       "assert read() == 1.0\n"),
              QString());
}

TEST_F(CameraAttributes, AOneShotCallLeavesNothingBehind)
{
    listParam(gain, CxValue::fromFloat(1));
    EXPECT_EQ(runBound("import sys\n"
                       "callable = cam.get_gain_db\n"
                       "bound = callable.__self__\n"
                       "assert sys.getrefcount(bound) == 3, 'ours, the callable, the argument'\n"
                       "callable()\n"
                       "assert sys.getrefcount(bound) == 3\n"
                       "del callable\n"
                       "assert sys.getrefcount(bound) == 2\n"
                       "del bound\n"
                       "before = sys.getrefcount(cam)\n"
                       "cam.get_gain_db, cam.set_gain_db(1), cam.is_gain_db()\n"
                       "try: cam.set_gain_db(None)\n"
                       "except SystemError: pass\n"
                       "assert sys.getrefcount(cam) == before\n"),
              QString());
}

TEST_F(CameraAttributes, LookupsAndCallsLeakNoMemory)
{
    Param& lacking = listParam(QStringLiteral("lacking"), CxValue());
    ON_CALL(lacking, isUnsupported()).WillByDefault(Return(true));
    listParam(gain, CxValue::fromString(QStringLiteral("text")));
    EXPECT_EQ(runBound("import sys\n"
                       "def work(cam):\n"
                       "    for i in range(1500):\n"
                       "        cam.get_gain_db(), cam.set_gain_db('x'), cam.get_param('gain_db')\n"
                       "        cam.enable_gain_db, hasattr(cam, 'get_nothing')\n"
                       "        hasattr(cam, f'get_nothing_{i}'), cam.set_param('gain_db', i)\n"
                       "        for call in (cam.get_lacking, lambda: cam.set_gain_db([])):\n"
                       "            try: call()\n"
                       "            except SystemError: pass\n"
                       "work(cam)\n"
                       "before = sys.getallocatedblocks()\n"
                       "work(cam)\n"
                       "grown = sys.getallocatedblocks() - before\n"
                       "assert grown < 400, grown\n"),
              QString());
}

TEST_F(CameraAttributes, AHostThatThrowsRaises)
{
    run("pass");
    ON_CALL(environment, isApiParamName).WillByDefault([](const QString&) -> bool {
        throw std::runtime_error("broken host");
    });
    EXPECT_EQ(boundError("cam.get_gain_db"), QStringLiteral("Exception: broken host"));
    ON_CALL(environment, isApiParamName).WillByDefault(Return(true));
    ON_CALL(camera.parameters, findParam).WillByDefault([](auto&, bool) -> CxCameraParam* {
        throw std::bad_alloc();
    });
    EXPECT_EQ(boundError("cam.get_gain_db()"), QStringLiteral("Exception: out of memory"));
}

TEST_F(CameraAttributes, WorkOnAnyThread)
{
    listParam(gain, CxValue::fromFloat(1.5F));
    EXPECT_CALL(environment, isGuiThread()).Times(0);
    EXPECT_EQ(errorOffGuiThread("cam = vistrel.Camera(); cam.open_device(); cam.set_gain_db(2); "
                                "caught.append(Exception(cam.get_gain_db()))"),
              QStringLiteral("Exception: 1.5"));
}

} // namespace

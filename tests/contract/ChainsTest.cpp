// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Processing chains and recording: which operations of the host, in what order, with what.
#include "PluginTest.h"

#include "core/HostSingletons.h"

#include <QtCore/QMap>
#include <QtCore/QPointer>

#include <stdexcept>

using testing::_;
using testing::InSequence;
using testing::NiceMock;
using testing::Return;
using testing::StrictMock;

namespace {

class Chains : public PluginTest {
protected:
    Chains()
    {
        ON_CALL(delegate, activeViewId()).WillByDefault(Return(7));
        ON_CALL(delegate, view(7)).WillByDefault(Return(&view));
        ON_CALL(view, chainEnd()).WillByDefault(Return(&end));
        ON_CALL(end, chain()).WillByDefault(Return(&chain));
        ON_CALL(classes, classesForInterface(QStringLiteral("CxChainable"), true))
            .WillByDefault(Return(QList<QString>{
                QStringLiteral("CxBlur"), QStringLiteral("CxBlur2"), QStringLiteral("CxFlip")}));
        ON_CALL(classes, customName).WillByDefault([](const QString& className) {
            return className == QLatin1String("CxFlip") ? QStringLiteral("Flip")
                                                        : QStringLiteral("Gaussian Blur");
        });
        ON_CALL(classes, createInstance).WillByDefault(Return(&element));
        ON_CALL(element, configure).WillByDefault([this](const QDomElement& conf) {
            confName = conf.tagName();
            const QDomNamedNodeMap map = conf.attributes();
            for (int i = 0; i < map.count(); ++i)
                attributes[map.item(i).nodeName()] = map.item(i).nodeValue();
        });
    }

    NiceMock<MockMdiView> view;
    NiceMock<MockElement> end;
    NiceMock<MockElement> element;
    NiceMock<MockChain> chain;
    QString confName;
    QMap<QString, QString> attributes;
};

TEST_F(Chains, ARunningChainIsStoppedForTheInsertionAndStartedAgain)
{
    run("pass");
    const InSequence order;
    EXPECT_CALL(chain, stopped()).WillOnce(Return(false));
    EXPECT_CALL(chain, stop());
    EXPECT_CALL(element, configure(_));
    EXPECT_CALL(element, setEnabled(true));
    EXPECT_CALL(chains, insertBefore(&chain, &element, &end));
    EXPECT_CALL(chain, start());
    EXPECT_EQ(value("vistrel.add_chain_object('Flip', {})"), QStringLiteral("None"));
}

TEST_F(Chains, AStoppedChainStaysStopped)
{
    EXPECT_CALL(chain, stopped()).WillOnce(Return(true));
    EXPECT_CALL(chain, stop()).Times(0);
    EXPECT_CALL(chain, start()).Times(0);
    EXPECT_CALL(chains, insertBefore(&chain, &element, &end));
    EXPECT_EQ(value("vistrel.add_chain_object('Flip')"), QStringLiteral("None"));
}

TEST_F(Chains, WithoutSettingsTheElementGetsAnEmptyConf)
{
    EXPECT_EQ(value("vistrel.add_chain_object('Flip')"), QStringLiteral("None"));
    EXPECT_EQ(confName, QStringLiteral("conf"));
    EXPECT_TRUE(attributes.isEmpty());
}

TEST_F(Chains, SettingsBecomeAttributesByTheirType)
{
    EXPECT_EQ(value("vistrel.add_chain_object('Flip', {'gain': 2, 'scale': 0.5, 'mode': 'fast', "
                    "'on': True, 'off': False, 'list': [1], 'none': None})"),
              QStringLiteral("None"));
    EXPECT_EQ(attributes, (QMap<QString, QString>{{QStringLiteral("gain"), QStringLiteral("2")},
                                                  {QStringLiteral("scale"), QStringLiteral("0.5")},
                                                  {QStringLiteral("mode"), QStringLiteral("fast")},
                                                  {QStringLiteral("on"), QStringLiteral("1")},
                                                  {QStringLiteral("off"), QStringLiteral("0")}}));
}

TEST_F(Chains, SubclassesCountAsTheirTypes)
{
    EXPECT_EQ(run("class Int(int): pass\n"
                  "class Float(float): pass\n"
                  "class Text(str): pass\n"
                  "class Dict(dict): pass\n"
                  "vistrel.add_chain_object('Flip', Dict({Text('a'): Int(-3), 'b': Float(1.5), "
                  "'c': Text('µ')}))\n"),
              QString());
    EXPECT_EQ(attributes, (QMap<QString, QString>{{QStringLiteral("a"), QStringLiteral("-3")},
                                                  {QStringLiteral("b"), QStringLiteral("1.5")},
                                                  {QStringLiteral("c"), QStringLiteral("µ")}}));
}

TEST_F(Chains, IntegersAreCutTo32Bits)
{
    EXPECT_EQ(run("vistrel.add_chain_object('Flip', {'a': 2**32 + 5, 'b': 2**31})"), QString());
    EXPECT_EQ(attributes[QStringLiteral("a")], QStringLiteral("5"));
    EXPECT_EQ(attributes[QStringLiteral("b")], QStringLiteral("-2147483648"));
}

TEST_F(Chains, SettingsThatAreNoDictionaryAreRefusedBeforeAnythingElse)
{
    EXPECT_CALL(classes, classesForInterface(_, _)).Times(0);
    for (const char* call :
         {"vistrel.add_chain_object('Flip', [1, 2])", "vistrel.add_chain_object('none', None)"})
        EXPECT_EQ(error(call),
                  QStringLiteral("Exception: Config parameter is not of the dictionary type"));
}

TEST_F(Chains, AnUnknownElementIsRefused)
{
    EXPECT_CALL(classes, createInstance).Times(0);
    EXPECT_CALL(chain, stop()).Times(0);
    EXPECT_EQ(error("vistrel.add_chain_object('no such element')"),
              QStringLiteral("Exception: Cannot find chain object class"));
}

TEST_F(Chains, TheDisplayNameMatchesInAnyCaseAndTheFirstMatchWins)
{
    EXPECT_CALL(classes, createInstance(QStringLiteral("CxBlur"))).WillOnce(Return(&element));
    EXPECT_EQ(value("vistrel.add_chain_object('gaussian BLUR')"), QStringLiteral("None"));
}

TEST_F(Chains, AClassThatMakesNoInstanceIsRefused)
{
    ON_CALL(classes, createInstance).WillByDefault(Return(nullptr));
    EXPECT_EQ(error("vistrel.add_chain_object('Flip')"),
              QStringLiteral("Exception: Cannot find chain object class"));
}

TEST_F(Chains, AnInstanceThatIsNoElementIsRefusedAndLeftAlone)
{
    QPointer<QObject> other = new QObject;
    ON_CALL(classes, createInstance).WillByDefault(Return(other.data()));
    EXPECT_EQ(error("vistrel.add_chain_object('Flip')"),
              QStringLiteral("Exception: Cannot find chain object class"));
    EXPECT_FALSE(other.isNull());
    delete other;
}

TEST_F(Chains, WithoutAnActiveViewTheElementIsRefusedAndLeftAlone)
{
    ON_CALL(delegate, activeViewId()).WillByDefault(Return(-1));
    EXPECT_CALL(element, configure).Times(0);
    EXPECT_CALL(element, destroyed()).Times(0);
    EXPECT_EQ(error("vistrel.add_chain_object('Flip')"),
              QStringLiteral("Exception: No active view"));
    testing::Mock::VerifyAndClearExpectations(&element);
}

TEST_F(Chains, AViewWithoutAChainGivesTheInterpretersOwnError)
{
    ON_CALL(view, chainEnd()).WillByDefault(Return(nullptr));
    EXPECT_CALL(element, configure).Times(0);
    expectSilentNull("vistrel.add_chain_object('Flip')");
    ON_CALL(view, chainEnd()).WillByDefault(Return(&end));
    ON_CALL(end, chain()).WillByDefault(Return(nullptr));
    expectSilentNull("vistrel.add_chain_object('Flip')");
}

TEST_F(Chains, AHostWithoutAChainManagerIsAClearErrorBeforeTheChainIsTouched)
{
    vistrel::installChainManager(nullptr);
    EXPECT_CALL(chain, stop()).Times(0);
    EXPECT_EQ(error("vistrel.add_chain_object('Flip')"),
              QStringLiteral("Exception: the host's processing chains are not available"));
}

TEST_F(Chains, AnElementThatThrowsLeavesTheChainRunning)
{
    ON_CALL(chain, stopped()).WillByDefault(Return(false));
    EXPECT_CALL(element, configure).WillOnce([](const QDomElement&) {
        throw std::runtime_error("bad settings");
    });
    EXPECT_CALL(chain, stop());
    EXPECT_CALL(chain, start()).WillOnce([] { throw std::runtime_error("no start either"); });
    EXPECT_CALL(chains, insertBefore(_, _, _)).Times(0);
    EXPECT_EQ(error("vistrel.add_chain_object('Flip')"), QStringLiteral("Exception: bad settings"));
}

TEST_F(Chains, AChainThatDoesNotStartAgainIsAnError)
{
    ON_CALL(chain, stopped()).WillByDefault(Return(false));
    EXPECT_CALL(chain, start()).WillOnce([] { throw std::runtime_error("no start"); });
    EXPECT_EQ(error("vistrel.add_chain_object('Flip')"), QStringLiteral("Exception: no start"));
}

constexpr char catchCause[] = "def attempt(conf):\n"
                              "    try: vistrel.add_chain_object('Flip', conf)\n"
                              "    except SystemError as error:\n"
                              "        assert 'add_chain_object> returned a result with an e' "
                              "in str(error), error\n"
                              "        return error.__cause__\n";

TEST_F(Chains, AKeyThatIsNoTextIsSkippedAndReportedAfterTheElementIsIn)
{
    EXPECT_CALL(chains, insertBefore(&chain, &element, &end));
    EXPECT_EQ(run((std::string(catchCause) + "print(repr(attempt({'a': 1, 5: 2, 'b': 3})), end='')")
                      .c_str()),
              QString());
    EXPECT_EQ(output, QStringLiteral("TypeError('bad argument type for built-in operation')"));
    EXPECT_EQ(attributes.keys(), (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
}

TEST_F(Chains, TheErrorOfAKeyIsReportedByEveryCallOfALoop)
{
    EXPECT_CALL(chains, insertBefore(_, _, _)).Times(20);
    EXPECT_EQ(run((std::string(catchCause)
                   + "for n in range(20):\n"
                     "    assert type(attempt({5: n})) is TypeError, n\n")
                      .c_str()),
              QString());
}

TEST_F(Chains, KeysTextsAndNumbersThatCannotBeConvertedAreReportedTheLastOneFirst)
{
    EXPECT_EQ(run((std::string(catchCause)
                   + "print(type(attempt({'\\udc80': 1})).__name__,\n"
                     "      type(attempt({'a': '\\udc80'})).__name__,\n"
                     "      type(attempt({5: 1, 'b': 2**70, 'c': 1})).__name__, end='')")
                      .c_str()),
              QString());
    EXPECT_EQ(output, QStringLiteral("UnicodeEncodeError UnicodeEncodeError OverflowError"));
    EXPECT_EQ(attributes, (QMap<QString, QString>{{QStringLiteral("b"), QStringLiteral("-1")},
                                                  {QStringLiteral("c"), QStringLiteral("1")}}));
}

TEST_F(Chains, ARefusalOutdoesTheErrorOfAKey)
{
    EXPECT_EQ(error("vistrel.add_chain_object('none', {5: 1})"),
              QStringLiteral("Exception: Cannot find chain object class"));
}

TEST_F(Chains, AViewWithoutAChainShowsTheErrorOfAKey)
{
    ON_CALL(view, chainEnd()).WillByDefault(Return(nullptr));
    EXPECT_EQ(error("vistrel.add_chain_object('Flip', {5: 1})"),
              QStringLiteral("TypeError: bad argument type for built-in operation"));
}

class Recording : public Chains {};

TEST_F(Recording, StartsInTheViewWithTheResolvedPathAndTellsWhetherItDid)
{
    EXPECT_CALL(environment, resolvePath(QStringLiteral("x.avi")))
        .Times(2)
        .WillRepeatedly(Return(QStringLiteral("/data/x.avi")));
    EXPECT_CALL(view, startRecording(QStringLiteral("/data/x.avi")))
        .WillOnce(Return(true))
        .WillOnce(Return(false));
    EXPECT_EQ(value("[vistrel.record_video_to_file('x.avi', 7) for i in range(2)]"),
              QStringLiteral("[True, False]"));
}

TEST_F(Recording, EveryNegativeIdIsTheActiveView)
{
    EXPECT_CALL(view, startRecording(_)).Times(2).WillRepeatedly(Return(true));
    EXPECT_CALL(view, stopRecording()).Times(2);
    EXPECT_EQ(value("[vistrel.record_video_to_file('x.avi'), "
                    "vistrel.record_video_to_file('x.avi', -5), "
                    "vistrel.stop_video_recording(), vistrel.stop_video_recording(-5)]"),
              QStringLiteral("[True, True, None, None]"));
}

TEST_F(Recording, OfAnUnknownViewIsFalseAndStoppingItDoesNothing)
{
    EXPECT_CALL(delegate, view(999)).Times(2).WillRepeatedly(Return(nullptr));
    EXPECT_CALL(view, stopRecording()).Times(0);
    EXPECT_EQ(value("(vistrel.record_video_to_file('x.avi', 999), "
                    "vistrel.stop_video_recording(999))"),
              QStringLiteral("(False, None)"));
}

} // namespace

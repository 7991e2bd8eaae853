// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Settings of processing elements: read from attributes, and written back.
#include "ChainFixtures.h"
#include "core/HostSingletons.h"
#include "help/HelpTexts.h"

#include <QtCore/QFile>
#include <QtCore/QRegularExpression>

using namespace vistrel;
using namespace vistrel::test;

namespace {

ElementSettings someSettings()
{
    return ElementSettings(
        {wholeSetting(QStringLiteral("radius"), 3, 1, 9),
         realSetting(QStringLiteral("sigma"), 1.5, 0.5, 2.5),
         switchSetting(QStringLiteral("invert"), false),
         choiceSetting(QStringLiteral("mode"), {QStringLiteral("fast"), QStringLiteral("exact")})});
}

constexpr QLatin1String radius("radius");
constexpr QLatin1String sigma("sigma");
constexpr QLatin1String invert("invert");
constexpr QLatin1String mode("mode");

} // namespace

TEST(ElementSettings, HaveTheirDefaultsAtFirst)
{
    const ElementSettings settings = someSettings();
    EXPECT_EQ(settings.whole(radius), 3);
    EXPECT_EQ(settings.number(sigma), 1.5);
    EXPECT_FALSE(settings.isOn(invert));
    EXPECT_EQ(settings.choice(mode), 0);
}

TEST(ElementSettings, AreReadFromAttributes)
{
    ElementSettings settings = someSettings();
    EXPECT_TRUE(
        settings
            .read(confOf({{"radius", "9"}, {"sigma", "0.5"}, {"invert", "1"}, {"mode", "exact"}}))
            .isEmpty());
    EXPECT_EQ(settings.whole(radius), 9);
    EXPECT_EQ(settings.number(sigma), 0.5);
    EXPECT_TRUE(settings.isOn(invert));
    EXPECT_EQ(settings.choice(mode), 1);
}

TEST(ElementSettings, TakeNumbersAndWordsAsScriptsWriteThem)
{
    ElementSettings settings = someSettings();
    EXPECT_TRUE(
        settings
            .read(confOf(
                {{"radius", "4.0"}, {"sigma", "1"}, {"invert", "True"}, {"mode", " Exact "}}))
            .isEmpty());
    EXPECT_EQ(settings.whole(radius), 4);
    EXPECT_EQ(settings.number(sigma), 1.0);
    EXPECT_TRUE(settings.isOn(invert));
    EXPECT_EQ(settings.choice(mode), 1);
}

TEST(ElementSettings, AreDefaultsWhereTheAttributeIsMissing)
{
    ElementSettings settings = someSettings();
    settings.read(confOf({{"radius", "9"}}));
    EXPECT_TRUE(settings.read(confOf({})).isEmpty());
    EXPECT_EQ(settings.whole(radius), 3);
}

TEST(ElementSettings, AWrongValueIsNamedWithTheAllowedOnesAndLeftAtItsDefault)
{
    for (const char* const wrong : {"0", "10", "2.5", "nan", "inf", "", "many", "1e99"}) {
        ElementSettings settings = someSettings();
        const QStringList lines = settings.read(confOf({{"radius", wrong}}));
        ASSERT_EQ(lines.size(), 1) << wrong;
        EXPECT_EQ(lines.first(), QStringLiteral("radius=\"%1\" is not a whole number from 1 to 9: "
                                                "it stays at 3")
                                     .arg(QLatin1String(wrong)));
        EXPECT_EQ(settings.whole(radius), 3);
    }
}

TEST(ElementSettings, EachKindSaysWhatItAllows)
{
    ElementSettings settings = someSettings();
    const QStringList lines =
        settings.read(confOf({{"sigma", "-1"}, {"invert", "2"}, {"mode", "slow"}}));
    EXPECT_EQ(lines, QStringList({
                         QStringLiteral("sigma=\"-1\" is not a number from 0.5 to 2.5: it stays at "
                                        "1.5"),
                         QStringLiteral("invert=\"2\" is not 0 or 1: it stays at 0"),
                         QStringLiteral("mode=\"slow\" is not fast, exact: it stays at fast"),
                     }));
}

TEST(ElementSettings, AnUnknownNameIsNamedWithTheKnownOnes)
{
    ElementSettings settings = someSettings();
    EXPECT_EQ(settings.read(confOf({{"Radius", "5"}})),
              QStringList(QStringLiteral("there is no setting \"Radius\", only radius, sigma, "
                                         "invert, mode")));
    EXPECT_EQ(settings.whole(radius), 3);
    EXPECT_EQ(ElementSettings({}).read(confOf({{"a", "1"}})),
              QStringList(QStringLiteral("there is no setting \"a\", only none")));
}

TEST(ElementSettings, ReadBackWhatTheyHaveWritten)
{
    ElementSettings settings = someSettings();
    settings.read(confOf({{"radius", "7"}, {"sigma", "0.7"}, {"invert", "1"}, {"mode", "exact"}}));
    QDomElement conf = confOf({});
    settings.write(conf);
    EXPECT_EQ(conf.attribute(mode), QStringLiteral("exact"));
    ElementSettings copy = someSettings();
    EXPECT_TRUE(copy.read(conf).isEmpty());
    EXPECT_EQ(copy.whole(radius), 7);
    EXPECT_EQ(copy.number(sigma), 0.7);
    EXPECT_TRUE(copy.isOn(invert));
    EXPECT_EQ(copy.choice(mode), 1);
}

TEST(AnElement, LogsWhatIsWrongWithItsConfigurationUnderItsName)
{
    const LogLines log;
    newElement("Flip", {{"direction", "diagonal"}});
    EXPECT_TRUE(LogLines::joined().contains(
        QStringLiteral("Flip: direction=\"diagonal\" is not horizontal, vertical, both: it stays "
                       "at horizontal")))
        << qPrintable(LogLines::joined());
}

TEST(TheDocument, DescribesEverySettingOfEveryElement)
{
    QFile file(QStringLiteral(VISTREL_CHAINS_DOCUMENT));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    ClassRegistry registry;
    for (const QString& name : registry.classesForInterface(QStringLiteral("CxChainable"), true)) {
        const QString displayName = registry.customName(name);
        const auto element = newElement(displayName.toLatin1().constData());
        QString first = QStringLiteral("`%1` ").arg(displayName);
        for (const ElementSetting& setting : element->settings().descriptions()) {
            const QString row =
                QStringLiteral("| %1| `%2` | %3 | %4 | ")
                    .arg(first, setting.name, setting.allowed(), setting.text(setting.standard));
            const auto isIt = [&row](const QString& line) { return line.startsWith(row); };
            EXPECT_EQ(std::count_if(lines.begin(), lines.end(), isIt), 1) << qPrintable(row);
            first.clear();
        }
    }
}

TEST(TheHelpText, DescribesEverySettingOfEveryElementAndNoOther)
{
    const QString text = QString::fromUtf8(functionHelp("vistrel", "add_chain_object"));
    const QString elements = text.section(QStringLiteral("The elements, "), 1)
                                 .section(QStringLiteral("\nArgs:\n"), 0, 0);
    const auto count = [&elements](const QString& pattern) {
        return elements.count(QRegularExpression(pattern, QRegularExpression::MultilineOption));
    };
    ClassRegistry registry;
    int number = 0;
    for (const QString& name : registry.classesForInterface(QStringLiteral("CxChainable"), true)) {
        const QString displayName = registry.customName(name);
        QString lines = QStringLiteral("^    %1 [a-z][^\n]+\\.\n").arg(displayName);
        const auto element = newElement(displayName.toLatin1().constData());
        for (const ElementSetting& setting : element->settings().descriptions()) {
            lines += QStringLiteral("        %1: %2 \\(%3\\)[^\n]*\n(?: {12}[^\n]+\n)*")
                         .arg(setting.name, setting.allowed(), setting.text(setting.standard));
            ++number;
        }
        EXPECT_EQ(count(lines), 1) << qPrintable(lines);
    }
    EXPECT_EQ(count(QStringLiteral("^ {8}\\w+: ")), number);
}

TEST(ClassRegistry, FindsTheElementsInTheirOrder)
{
    ClassRegistry registry;
    QStringList names;
    for (const QString& name : registry.classesForInterface(QStringLiteral("CxChainable"), true))
        names.append(registry.customName(name));
    EXPECT_EQ(names, QStringList({QStringLiteral("Gaussian Blur"), QStringLiteral("Flip"),
                                  QStringLiteral("Rotate"), QStringLiteral("Threshold"),
                                  QStringLiteral("Gamma"), QStringLiteral("Median"),
                                  QStringLiteral("Background Subtraction"),
                                  QStringLiteral("Frame Average")}));
}

TEST(ClassRegistry, MakesElementsThatPluginsCanCast)
{
    ClassRegistry registry;
    for (const QString& name : registry.classesForInterface(QStringLiteral("CxChainable"), true)) {
        const std::unique_ptr<QObject> object(registry.createInstance(name));
        ASSERT_NE(object, nullptr) << qPrintable(name);
        auto* const element = qobject_cast<CxChainable*>(object.get());
        ASSERT_NE(element, nullptr) << qPrintable(name);
        EXPECT_EQ(element->chain(), nullptr);
    }
}

TEST(ClassRegistry, KnowsTheViewsElementButMakesNone)
{
    ClassRegistry registry;
    const QString name = QStringLiteral("vistrel::ChainEnd");
    EXPECT_TRUE(registry.classesForInterface(QStringLiteral("CxChainable"), false).contains(name));
    EXPECT_FALSE(registry.classesForInterface(QStringLiteral("CxChainable"), true).contains(name));
    EXPECT_EQ(registry.createInstance(name), nullptr);
    EXPECT_EQ(registry.customName(name), QStringLiteral("View"));
}

TEST(ClassRegistry, KnowsNothingOfOtherNames)
{
    ClassRegistry registry;
    const QString name = QStringLiteral("NoSuchClass");
    EXPECT_TRUE(registry.classesForInterface(name, true).isEmpty());
    EXPECT_EQ(registry.customName(name), name);
    EXPECT_EQ(registry.createInstance(name), nullptr);
}

TEST(ClassRegistry, StandsBehindTheStaticOperationsOnceInstalled)
{
    ClassRegistry registry;
    const QString name = QStringLiteral("vistrel::Flip");
    EXPECT_EQ(CxRTTI::customNameForClass(name), name);
    EXPECT_EQ(CxRTTI::createInstanceOfClass(name), nullptr);
    const InstalledClassRegistry installed(registry);
    EXPECT_EQ(CxRTTI::customNameForClass(name), QStringLiteral("Flip"));
    const std::unique_ptr<QObject> flip(CxRTTI::createInstanceOfClass(name));
    EXPECT_NE(flip, nullptr);
}

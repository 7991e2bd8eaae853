// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Settings of which a camera has one for each entry of a selector.
#include "DescribedCamera.h"

#include "cameras/CameraParameters.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

#include <gmock/gmock.h>

namespace vistrel::test {

namespace {

using testing::AllOf;
using testing::HasSubstr;

constexpr char registerEnd[] = "<Length>4</Length><AccessMode>RW</AccessMode><pPort>Device</pPort>"
                               "<Sign>Unsigned</Sign><Endianess>BigEndian</Endianess></IntReg>";

/// A camera with a source for each trigger, a table for each colour, and a long table.
struct SelectorCamera : DescribedCameraTest {
    SelectorCamera()
        : DescribedCameraTest({
            {"<pValue>TriggerSelectorInteger</pValue>",
             "<pValue>TriggerSelectorInteger</pValue><pSelected>TriggerSource</pSelected>"
             "<pSelected>TriggerMode</pSelected>"},
            {"<pFeature>TestRegister</pFeature>",
             "<pFeature>TestRegister</pFeature><pFeature>LUTSelector</pFeature>"
             "<pFeature>LUTIndex</pFeature><pFeature>LUTValue</pFeature>"
             "<pFeature>LongIndex</pFeature><pFeature>LongValue</pFeature>"},
            {"<Boolean Name=\"TestBoolean\"", tables().c_str()},
        })
    {
    }
    static const std::string& tables()
    {
        static const std::string text =
            std::string("<Enumeration Name=\"LUTSelector\">"
                        "<EnumEntry Name=\"Red\"><Value>0</Value></EnumEntry>"
                        "<EnumEntry Name=\"Green\"><Value>1</Value></EnumEntry>"
                        "<pValue>LUTSelectorInteger</pValue><pSelected>LUTIndex</pSelected>"
                        "<pSelected>LUTValue</pSelected></Enumeration>"
                        "<Integer Name=\"LUTSelectorInteger\"><Value>0</Value></Integer>"
                        "<Integer Name=\"LUTIndex\"><Value>0</Value><Min>0</Min><Max>2</Max>"
                        "<pSelected>LUTValue</pSelected></Integer>"
                        "<IntReg Name=\"LUTValue\"><Address>0x8000</Address>"
                        "<pIndex Offset=\"0x10\">LUTSelectorInteger</pIndex>"
                        "<pIndex Offset=\"4\">LUTIndex</pIndex>")
            + registerEnd
            + "<Integer Name=\"LongIndex\"><Value>0</Value><Min>0</Min><Max>4095</Max>"
              "<pSelected>LongValue</pSelected></Integer>"
              "<IntReg Name=\"LongValue\"><Address>0x9000</Address>"
              "<pIndex Offset=\"4\">LongIndex</pIndex>"
            + registerEnd + "<Boolean Name=\"TestBoolean\"";
        return text;
    }
    void set(const char* name, const char* entry)
    {
        EXPECT_EQ(write(camera, name, CxValue::fromString(QLatin1String(entry))), 0) << name;
    }
    void set(const char* name, int number)
    {
        EXPECT_EQ(write(camera, name, CxValue::fromInt(number)), 0) << name;
    }
    void setSource(const char* trigger, const char* source)
    {
        set("TriggerSelector", trigger);
        set("TriggerSource", source);
    }
    QString source(const char* trigger)
    {
        set("TriggerSelector", trigger);
        return read(camera, "TriggerSource").toString();
    }
    /// Numbers that tell colour and place.
    void fillTables(int first)
    {
        int number = first;
        for (const char* colour : {"Red", "Green"}) {
            set("LUTSelector", colour);
            for (int index = 0; index < 3; ++index) {
                set("LUTIndex", index);
                set("LUTValue", ++number);
            }
        }
    }
    std::vector<int> tablesNow()
    {
        std::vector<int> numbers;
        for (const char* colour : {"Red", "Green"}) {
            set("LUTSelector", colour);
            for (int index = 0; index < 3; ++index) {
                set("LUTIndex", index);
                numbers.push_back(read(camera, "LUTValue").toInt());
            }
        }
        return numbers;
    }
    bool save() { return parameters()->saveParamValuesToFile(path, CxCameraParam::Guru); }
    bool load()
    {
        return parameters()->loadParamValuesFromFile(path, CxCameraParam::Guru, &messages, true);
    }
    CxCameraParameters* parameters() { return manager.cameraParameters(camera); }
    QJsonObject contents() const
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return QJsonDocument::fromJson(file.readAll()).object();
    }
    void put(const QByteArray& text) const
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(text), text.size());
    }

    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("settings.json"));
    QList<QString> messages;
};

TEST_F(SelectorCamera, SettingsBringBackTheValuesOfEveryEntry)
{
    setSource("AcquisitionStart", "Line0");
    setSource("FrameStart", "Software");
    ASSERT_TRUE(save());
    setSource("FrameStart", "Line0");
    setSource("AcquisitionStart", "Software");
    EXPECT_TRUE(load());
    EXPECT_EQ(read(camera, "TriggerSelector").toString(), u"FrameStart");
    EXPECT_EQ(source("AcquisitionStart"), u"Line0");
    EXPECT_EQ(source("FrameStart"), u"Software");
    EXPECT_EQ(log.text(), "");
}

TEST_F(SelectorCamera, SettingsBringBackTablesOfTwoSelectors)
{
    fillTables(10);
    ASSERT_TRUE(save());
    fillTables(20);
    EXPECT_TRUE(load());
    EXPECT_EQ(tablesNow(), (std::vector<int>{11, 12, 13, 14, 15, 16}));
    EXPECT_EQ(log.text(), "");
}

TEST_F(SelectorCamera, SettingsSayAtWhichEntryAValueHolds)
{
    setSource("AcquisitionStart", "Software");
    setSource("FrameStart", "Line0");
    ASSERT_TRUE(save());
    QStringList sources;
    const QJsonArray selected = contents().value(QStringLiteral("selected")).toArray();
    for (const QJsonValue each : selected) {
        const QString trigger =
            each[QStringLiteral("at")][QStringLiteral("TriggerSelector")].toString();
        if (!trigger.isEmpty())
            sources.append(
                trigger + u'='
                + each[QStringLiteral("parameters")][QStringLiteral("TriggerSource")].toString());
    }
    EXPECT_EQ(sources, (QStringList{QStringLiteral("FrameStart=Line0"),
                                    QStringLiteral("AcquisitionStart=Software")}));
    const QJsonObject once = contents().value(QStringLiteral("parameters")).toObject();
    EXPECT_FALSE(once.contains(QStringLiteral("TriggerSource")));
    EXPECT_EQ(once.value(QStringLiteral("TriggerSelector")).toString(), u"FrameStart");
}

TEST_F(SelectorCamera, SavingLeavesTheSelectorsWhereTheyStand)
{
    set("TriggerSelector", "AcquisitionStart");
    set("LUTSelector", "Green");
    set("LUTIndex", 1);
    ASSERT_TRUE(save());
    EXPECT_EQ(read(camera, "TriggerSelector").toString(), u"AcquisitionStart");
    EXPECT_EQ(read(camera, "LUTSelector").toString(), u"Green");
    EXPECT_EQ(read(camera, "LUTIndex").toInt(), 1);
}

TEST_F(SelectorCamera, OfALongTableSettingsHoldTheValueAtWhichItStands)
{
    set("LongIndex", 7);
    set("LongValue", 70);
    ASSERT_TRUE(save());
    set("LongValue", 71);
    set("LongIndex", 8);
    set("LongValue", 80);
    EXPECT_TRUE(load());
    EXPECT_EQ(read(camera, "LongIndex").toInt(), 7);
    EXPECT_EQ(read(camera, "LongValue").toInt(), 70);
    set("LongIndex", 8);
    EXPECT_EQ(read(camera, "LongValue").toInt(), 80);
}

TEST_F(SelectorCamera, AFileOfTheFirstVersionHoldsValuesOfTheEntryThatItNames)
{
    setSource("AcquisitionStart", "Line0");
    setSource("FrameStart", "Line0");
    put("{\"format\": \"vistrel camera settings\", \"version\": 1, \"model\": \"Fake\", "
        "\"parameters\": {\"TriggerSelector\": \"AcquisitionStart\", "
        "\"TriggerSource\": \"Software\"}}");
    EXPECT_TRUE(load());
    EXPECT_EQ(source("AcquisitionStart"), u"Software");
    EXPECT_EQ(source("FrameStart"), u"Line0");
    EXPECT_EQ(log.text(), "");
}

TEST_F(SelectorCamera, WhatHasNoPlaceIsReportedAndTheRestIsSet)
{
    set("TriggerSelector", "AcquisitionStart");
    put("{\"format\": \"vistrel camera settings\", \"version\": 2, \"model\": \"Fake\", "
        "\"parameters\": {\"GainRaw\": 3}, \"selected\": ["
        "{\"at\": {\"TriggerSelector\": \"Nowhere\"}, \"parameters\": {\"TriggerMode\": \"On\"}},"
        "{\"at\": {\"NoSelector\": 1}, \"parameters\": {\"TriggerMode\": \"On\"}},"
        "{\"at\": {\"TriggerSelector\": \"FrameStart\"},"
        " \"parameters\": {\"TriggerSource\": \"Software\", \"TriggerMode\": \"Maybe\"}}]}");
    EXPECT_TRUE(load());
    EXPECT_EQ(messages.size(), 3);
    EXPECT_THAT(log.text(),
                AllOf(HasSubstr("TriggerMode at TriggerSelector Nowhere cannot be set to On: its "
                                "entries are FrameStart, AcquisitionStart"),
                      HasSubstr("TriggerMode at NoSelector 1 cannot be set to On"),
                      HasSubstr("TriggerMode at TriggerSelector FrameStart cannot be set to Maybe: "
                                "its entries are Off, On")));
    EXPECT_EQ(read(camera, "TriggerSelector").toString(), u"AcquisitionStart");
    EXPECT_EQ(read(camera, "GainRaw").toInt(), 3);
    EXPECT_EQ(source("FrameStart"), u"Software");
}

TEST_F(SelectorCamera, DefaultsAreRestoredAtEveryEntry)
{
    auto& settings = dynamic_cast<CameraParameters&>(*parameters());
    fillTables(30);
    const CameraValues defaults = settings.settings();
    fillTables(40);
    settings.restoreDefaults(defaults);
    EXPECT_EQ(tablesNow(), (std::vector<int>{31, 32, 33, 34, 35, 36}));
    EXPECT_EQ(log.text(), "");
}

} // namespace

} // namespace vistrel::test

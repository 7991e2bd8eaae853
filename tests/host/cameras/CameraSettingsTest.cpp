// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Settings files, shading presets and restarts with the defaults.
#include "../core/FileSizeLimit.h"
#include "DescribedCamera.h"

#include "cameras/CameraParameters.h"

#include <QtCore/QDir>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QTimer>

#include <gmock/gmock.h>

#include <sys/stat.h>

#include <functional>

namespace vistrel::test {

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

/// A camera whose width depends on its offset, and a folder for files.
struct CameraSettingsTest : DescribedCameraTest {
    CameraSettingsTest()
        : DescribedCameraTest({
            {"<pValue>WidthRegister</pValue>\n\t\t<Min>1</Min>\n\t\t<pMax>SensorWidth</pMax>",
             "<pValue>WidthRegister</pValue><Min>1</Min><pMax>RoomX</pMax>"},
            {"<pValue>OffsetXRegister</pValue>\n\t\t<Min>0</Min>\n\t\t<pMax>SensorWidth</pMax>",
             "<pValue>OffsetXRegister</pValue><Min>0</Min><pMax>RestX</pMax>"},
            {"<Integer Name=\"SensorHeight\"",
             "<IntSwissKnife Name=\"RoomX\"><pVariable Name=\"S\">SensorWidth</pVariable>"
             "<pVariable Name=\"O\">OffsetX</pVariable><Formula>S-O</Formula></IntSwissKnife>"
             "<IntSwissKnife Name=\"RestX\"><pVariable Name=\"S\">SensorWidth</pVariable>"
             "<pVariable Name=\"W\">Width</pVariable><Formula>S-W</Formula></IntSwissKnife>"
             "<Integer Name=\"SensorHeight\""},
        })
    {
    }
    CxCameraParameters* parameters() { return manager.cameraParameters(camera); }
    bool save(const QString& file = QStringLiteral("settings.json"))
    {
        return parameters()->saveParamValuesToFile(path(file), CxCameraParam::Guru);
    }
    bool load(const QString& file = QStringLiteral("settings.json"))
    {
        messages.clear();
        return parameters()->loadParamValuesFromFile(path(file), CxCameraParam::Guru, &messages,
                                                     true);
    }
    QString path(const QString& file) const { return folder.filePath(file); }
    QByteArray contents(const QString& file = QStringLiteral("settings.json")) const
    {
        QFile source(path(file));
        EXPECT_TRUE(source.open(QIODevice::ReadOnly));
        return source.readAll();
    }
    void put(const QByteArray& text, const QString& file = QStringLiteral("settings.json")) const
    {
        QFile target(path(file));
        ASSERT_TRUE(target.open(QIODevice::WriteOnly));
        ASSERT_EQ(target.write(text), text.size());
    }
    /// Saves, lets a function change the file's object, and writes it back.
    void saveChanged(const std::function<void(QJsonObject&)>& change)
    {
        ASSERT_TRUE(save());
        QJsonObject object = QJsonDocument::fromJson(contents()).object();
        change(object);
        put(QJsonDocument(object).toJson());
    }
    static void setParameter(QJsonObject& object, const QString& name, const QJsonValue& value)
    {
        QJsonObject all = object.value(QStringLiteral("parameters")).toObject();
        all.insert(name, value);
        object.insert(QStringLiteral("parameters"), all);
    }
    /// What must not change when a file is refused.
    void expectUntouched()
    {
        EXPECT_EQ(read(camera, "GainRaw").toInt(), 5);
        EXPECT_EQ(read(camera, "Width").toInt(), 512);
    }

    QTemporaryDir folder;
    QList<QString> messages;
};

struct SettingsFile : CameraSettingsTest {};
struct ShadingPreset : CameraSettingsTest {};
struct Restart : CameraSettingsTest {};

TEST_F(SettingsFile, HoldsModelVersionAndEveryWritableParameter)
{
    ASSERT_TRUE(save());
    const QJsonObject object = QJsonDocument::fromJson(contents()).object();
    EXPECT_EQ(object.value(QStringLiteral("format")).toString(), u"vistrel camera settings");
    EXPECT_EQ(object.value(QStringLiteral("version")).toInt(), 2);
    EXPECT_EQ(object.value(QStringLiteral("model")).toString(), u"Fake");
    EXPECT_EQ(object.value(QStringLiteral("serial_number")).toString(), u"1");
    const QJsonObject all = object.value(QStringLiteral("parameters")).toObject();
    for (const char* name :
         {"Width", "Height", "OffsetX", "OffsetY", "PixelFormat", "TriggerMode", "ExposureTimeAbs",
          "GainRaw", "GainAuto", "AcquisitionFrameRate", "BinningHorizontal", "TestRegister"})
        EXPECT_TRUE(all.contains(QLatin1String(name))) << name;
    for (const char* name :
         {"SensorWidth", "DeviceID", "AcquisitionStart", "PayloadSize", "TLParamsLocked", "Root"})
        EXPECT_FALSE(all.contains(QLatin1String(name))) << name;
    EXPECT_GT(contents().count('\n'), 10); // for people
    EXPECT_EQ(log.text(), "");
}

TEST_F(SettingsFile, BringsBackWhatWasChanged)
{
    write(camera, "GainRaw", CxValue::fromInt(5));
    write(camera, "PixelFormat", CxValue::fromString(QStringLiteral("RGB8")));
    write(camera, "ExposureTimeAbs", CxValue::fromFloat(1234.0F));
    ASSERT_TRUE(save());
    write(camera, "GainRaw", CxValue::fromInt(1));
    write(camera, "PixelFormat", CxValue::fromString(QStringLiteral("Mono8")));
    write(camera, "ExposureTimeAbs", CxValue::fromFloat(10.0F));
    EXPECT_TRUE(load());
    EXPECT_EQ(read(camera, "GainRaw").toInt(), 5);
    EXPECT_EQ(read(camera, "PixelFormat").toString(), u"RGB8");
    EXPECT_EQ(read(camera, "ExposureTimeAbs").toFloat(), 1234.0F);
    EXPECT_TRUE(messages.isEmpty());
    EXPECT_EQ(log.text(), "");
}

TEST_F(SettingsFile, IsLoadedInWhateverOrderDependentLimitsAskFor)
{
    parameters()->setROIRectParams(0, 0, 2048, 100, true);
    ASSERT_TRUE(save(QStringLiteral("wide.json")));
    parameters()->setROIRectParams(1948, 0, 100, 100, true);
    ASSERT_TRUE(save(QStringLiteral("right.json")));
    EXPECT_TRUE(load(QStringLiteral("wide.json")));
    EXPECT_EQ(parameters()->currentROIRectParams(), QRect(0, 0, 2048, 100));
    EXPECT_TRUE(load(QStringLiteral("right.json")));
    EXPECT_EQ(parameters()->currentROIRectParams(), QRect(1948, 0, 100, 100));
    EXPECT_EQ(log.text(), "");
}

TEST_F(SettingsFile, MayBeLoadedWhileTheCameraStreams)
{
    parameters()->setROIRectParams(0, 0, 320, 200, true);
    ASSERT_TRUE(save());
    parameters()->setROIRectParams(0, 0, 640, 480, true);
    start(camera);
    ASSERT_FALSE(collector.take(1).empty());
    EXPECT_TRUE(load());
    EXPECT_TRUE(manager.isStreaming(camera));
    EXPECT_TRUE(waitUntil([&] {
        const auto frames = collector.take(1);
        return !frames.empty() && frames.back()->picBuf()->width == 320;
    }));
}

TEST_F(SettingsFile, WhatCannotBeSetIsReportedAndTheRestIsSet)
{
    write(camera, "TestRegister", CxValue::fromInt(77));
    saveChanged([](QJsonObject& object) {
        setParameter(object, QStringLiteral("GainRaw"), 99);
        setParameter(object, QStringLiteral("NoSuchNode"), 1);
        setParameter(object, QStringLiteral("PixelFormat"), QStringLiteral("Mono9"));
        setParameter(object, QStringLiteral("AcquisitionStart"), 1);
    });
    write(camera, "TestRegister", CxValue::fromInt(1));
    EXPECT_TRUE(load());
    EXPECT_EQ(messages.size(), 4);
    EXPECT_THAT(log.text(),
                AllOf(HasSubstr("GainRaw cannot be set to 99: it takes values from 0"),
                      HasSubstr("NoSuchNode"), HasSubstr("Mono9"), HasSubstr("AcquisitionStart")));
    EXPECT_EQ(read(camera, "TestRegister").toInt(), 77);
}

TEST_F(SettingsFile, ThatIsTruncatedChangesNothing)
{
    ASSERT_TRUE(save());
    const QByteArray whole = contents();
    write(camera, "GainRaw", CxValue::fromInt(5));
    for (const qsizetype size : {qsizetype{0}, qsizetype{1}, whole.size() / 2, whole.size() - 3}) {
        put(whole.left(size));
        EXPECT_FALSE(load()) << size;
        EXPECT_EQ(messages.size(), 1);
        expectUntouched();
    }
    EXPECT_THAT(log.text(), HasSubstr("settings cannot be loaded from"));
}

TEST_F(SettingsFile, ThatIsForeignChangesNothing)
{
    const auto foreign = std::vector<std::function<void(QJsonObject&)>>{
        [](QJsonObject& object) { object.insert(QStringLiteral("model"), QStringLiteral("X100")); },
        [](QJsonObject& object) { object.insert(QStringLiteral("version"), 3); },
        [](QJsonObject& object) { object.insert(QStringLiteral("version"), 0); },
        [](QJsonObject& object) { object.insert(QStringLiteral("selected"), 5); },
        [](QJsonObject& object) {
            object.insert(QStringLiteral("selected"), QJsonArray{QJsonObject()});
        },
        [](QJsonObject& object) { object.remove(QStringLiteral("format")); },
        [](QJsonObject& object) { object.insert(QStringLiteral("parameters"), 5); },
        [](QJsonObject& object) { setParameter(object, QStringLiteral("Width"), QJsonObject()); },
    };
    for (const auto& change : foreign) {
        saveChanged(change);
        write(camera, "GainRaw", CxValue::fromInt(5));
        EXPECT_FALSE(load());
        expectUntouched();
        write(camera, "GainRaw", CxValue::fromInt(0));
    }
    EXPECT_THAT(log.text(),
                AllOf(HasSubstr("they are of a camera X100"),
                      HasSubstr("its version is not 1 to 2"),
                      HasSubstr("what is selected is no list"),
                      HasSubstr("it holds no camera settings"), HasSubstr("the value of Width")));
}

TEST_F(SettingsFile, OfHostileContentsChangesNothing)
{
    write(camera, "GainRaw", CxValue::fromInt(5));
    const QByteArray head = "{\"format\": \"vistrel camera settings\", \"version\": 1, "
                            "\"model\": \"Fake\", \"parameters\": ";
    for (const QByteArray& text : {QByteArray(100'000'000, '\xFE'), QByteArray(3'000'000, '['),
                                   head + QByteArray(1'000'000, '{'), QByteArray("[1, 2]"),
                                   QByteArray("null"), QByteArray("\0\0\0\0", 4),
                                   head + "{\"GainRaw\": 1e999}}", head + "{\"GainRaw\": [1]}}"}) {
        put(text);
        EXPECT_FALSE(load());
        expectUntouched();
    }
    EXPECT_THAT(log.text(), HasSubstr("it is too large for camera settings"));
}

TEST_F(SettingsFile, NamesAndTextsWithZerosReachNoOtherParameter)
{
    put("{\"format\": \"vistrel camera settings\", \"version\": 1, \"model\": \"Fake\", "
        "\"parameters\": {\"GainRaw\\u0000x\": 3, \"PixelFormat\": \"RGB8\\u0000\"}}");
    EXPECT_TRUE(load());
    EXPECT_EQ(messages.size(), 2);
    EXPECT_EQ(read(camera, "GainRaw").toInt(), 0);
    EXPECT_EQ(read(camera, "PixelFormat").toString(), u"Mono8");
}

TEST_F(SettingsFile, ThatIsNotThereOrCannotBeReadIsSaid)
{
    EXPECT_FALSE(load(QStringLiteral("none.json")));
    EXPECT_THAT(log.text(), HasSubstr("none.json"));
    EXPECT_FALSE(load(QStringLiteral("."))); // the folder itself
    EXPECT_EQ(messages.size(), 1);
}

TEST_F(SettingsFile, ThatCannotBeWrittenIsSaidAndNothingIsLeftBehind)
{
    EXPECT_FALSE(save(QStringLiteral("missing/settings.json")));
    EXPECT_THAT(log.text(), HasSubstr("missing/settings.json"));
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("folder")));
    EXPECT_FALSE(save(QStringLiteral("folder")));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 0);
}

TEST_F(SettingsFile, StaysWholeWhenTheDiskIsFull)
{
    put("old");
    {
        const FileSizeLimit full(1);
        EXPECT_FALSE(save());
    }
    EXPECT_THAT(log.text(), HasSubstr("File too large"));
    EXPECT_EQ(contents(), "old");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
}

TEST_F(SettingsFile, ThatIsAPipeIsNeitherWaitedForNorReplaced)
{
    const QString pipe = QStringLiteral("pipe");
    ASSERT_EQ(mkfifo(path(pipe).toUtf8().constData(), 0600), 0);
    EXPECT_FALSE(load(pipe));
    EXPECT_FALSE(save(pipe));
    EXPECT_TRUE(QFileInfo::exists(path(pipe)) && !QFileInfo(path(pipe)).isFile());
    EXPECT_THAT(log.text(), HasSubstr("pipe: there is something of that name that is no file"));
}

TEST_F(SettingsFile, ReplacesAnEarlierOne)
{
    put(QByteArray(100'000, 'x'));
    EXPECT_TRUE(save());
    EXPECT_TRUE(load());
}

TEST_F(SettingsFile, HoldsWhatItsReaderMaySee)
{
    ASSERT_TRUE(parameters()->saveParamValuesToFile(path(QStringLiteral("few.json")),
                                                    CxCameraParam::Beginner));
    EXPECT_THAT(contents(QStringLiteral("few.json")).toStdString(), HasSubstr("GainRaw"));
}

TEST_F(ShadingPreset, BringsBackTheValuesItWasTakenWith)
{
    write(camera, "gain_db", CxValue::fromInt(4));
    parameters()->setROIRectParams(0, 0, 2048, 100, true);
    CxShadingPreset preset;
    preset.saveCurrentValuesFrom(parameters());
    EXPECT_GE(preset.values.size(), 8);
    write(camera, "gain_db", CxValue::fromInt(0));
    parameters()->setROIRectParams(1948, 0, 100, 100, true);
    preset.activateValuesTo(parameters());
    EXPECT_EQ(read(camera, "gain_db").toFloat(), 4.0F);
    EXPECT_EQ(parameters()->currentROIRectParams(), QRect(0, 0, 2048, 100));
}

TEST_F(ShadingPreset, ReplacesItsValuesWhenItIsTakenAgain)
{
    CxShadingPreset preset;
    preset.saveCurrentValuesFrom(parameters());
    const auto count = preset.values.size();
    preset.saveCurrentValuesFrom(parameters());
    EXPECT_EQ(preset.values.size(), count);
}

TEST_F(ShadingPreset, WithoutValuesChangesNothing)
{
    CxShadingPreset().activateValuesTo(parameters());
    EXPECT_EQ(log.text(), "");
}

TEST_F(ShadingPreset, StaysWithItsCameraWhenThatIsClosedAndOpened)
{
    parameters()->shadingPresets.append(CxShadingPreset());
    parameters()->shadingPresets.last().name = QStringLiteral("flat");
    manager.close(camera);
    camera = openSimulated();
    ASSERT_EQ(parameters()->shadingPresets.size(), 1);
    EXPECT_EQ(parameters()->shadingPresets.first().name, u"flat");
}

TEST_F(Restart, OpensTheCameraAnewWithItsDefaultsUnderANewHandle)
{
    write(camera, "GainRaw", CxValue::fromInt(5));
    parameters()->setROIRectParams(8, 8, 100, 100, true);
    start(camera);
    ASSERT_FALSE(collector.take(1).empty());
    parameters()->shadingPresets.append(CxShadingPreset());
    EXPECT_TRUE(manager.restartWithDefaults(camera));
    EXPECT_EQ(manager.cameraParameters(camera), nullptr);
    ASSERT_TRUE(waitUntil([&] { return manager.openedCameraCount() == 1; }));
    void* const before = std::exchange(camera, manager.openedCameras().constFirst());
    EXPECT_NE(camera, before);
    EXPECT_EQ(manager.cameraParameters(before), nullptr);
    EXPECT_EQ(parameters()->cameraInfo().serialNumber, u"1");
    EXPECT_EQ(read(camera, "GainRaw").toInt(), 0);
    EXPECT_EQ(parameters()->currentROIRectParams(), QRect(0, 0, 512, 512));
    EXPECT_EQ(parameters()->shadingPresets.size(), 1);
    EXPECT_FALSE(manager.isStreaming(camera));
}

TEST_F(Restart, OfNoCameraIsRefused)
{
    int stranger = 0;
    EXPECT_FALSE(manager.restartWithDefaults(nullptr));
    EXPECT_FALSE(manager.restartWithDefaults(&stranger));
    EXPECT_EQ(manager.openedCameraCount(), 1U);
    EXPECT_THAT(log.text(), HasSubstr("a camera cannot be restarted: the camera is not open"));
}

TEST_F(Restart, GoesTogetherWithOpeningTheCameraByHand)
{
    EXPECT_TRUE(manager.restartWithDefaults(camera));
    camera = openSimulated();
    bool later = false;
    QTimer::singleShot(300, &application, [&] { later = true; });
    ASSERT_TRUE(waitUntil([&] { return later; }));
    EXPECT_EQ(manager.openedCameras(), QList<void*>{camera});
    EXPECT_EQ(log.text(), "");
}

TEST_F(Restart, IsForgottenWhenTheManagerGoes)
{
    auto own = std::make_unique<CameraManager>();
    manager.close(camera);
    void* other = own->open(QStringLiteral("sim"), error);
    ASSERT_NE(other, nullptr) << error.toStdString();
    EXPECT_TRUE(own->restartWithDefaults(other));
    own.reset();
    camera = openSimulated();
    EXPECT_EQ(manager.openedCameraCount(), 1U);
}

/// A camera that keeps its defaults in a user set; the simulated one has just the register.
struct UserSetCamera : DescribedCameraTest {
    UserSetCamera()
        : DescribedCameraTest({
            {"<Boolean Name=\"TestBoolean\"",
             "<Enumeration Name=\"UserSetSelector\"><EnumEntry Name=\"Default\"><Value>0</Value>"
             "</EnumEntry><EnumEntry Name=\"UserSet1\"><Value>1</Value></EnumEntry>"
             "<Value>1</Value></Enumeration>"
             "<Command Name=\"UserSetLoad\"><pValue>TestRegister</pValue>"
             "<CommandValue>4711</CommandValue></Command><Boolean Name=\"TestBoolean\""},
        })
    {
    }
};

TEST_F(UserSetCamera, LoadsItsOwnDefaults)
{
    CameraParameters& parameters =
        dynamic_cast<CameraParameters&>(*manager.cameraParameters(camera));
    EXPECT_TRUE(parameters.keepsDefaults());
    parameters.restoreDefaults({{{QStringLiteral("GainRaw"), qint64{3}}}, {}});
    EXPECT_EQ(read(camera, "TestRegister").toInt(), 4711);
    EXPECT_EQ(read(camera, "UserSetSelector").toString(), u"Default");
    EXPECT_EQ(read(camera, "GainRaw").toInt(), 0);
    EXPECT_EQ(log.text(), "");
}

} // namespace

} // namespace vistrel::test

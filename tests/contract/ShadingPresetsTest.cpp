// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// Shading presets: functions of the plugin file that stand in no method table, called by their
// exported names.
#include "CameraFixture.h"

#include <CxShadingPreset.h>

using testing::_;
using testing::InSequence;

namespace {

/// What happened to presets, in order.
QStringList done;
/// The one value that presets of this test save.
CxValue currentValue;

} // namespace

// A program's own definitions come before those of the host's library.
void CxShadingPreset::saveCurrentValuesFrom(CxCameraParameters* camera)
{
    values = {{camera->cameraInfo().serialNumber, currentValue}};
    done.append(QStringLiteral("save ") + name);
}

void CxShadingPreset::activateValuesTo(CxCameraParameters* camera) const
{
    done.append(QStringLiteral("activate %1 on %2").arg(name, camera->cameraInfo().serialNumber));
}

namespace {

class ShadingPresets : public CameraTest {
protected:
    ShadingPresets() { done.clear(); }

    QList<CxShadingPreset>& presets() { return camera.parameters.shadingPresets; }

    void addPreset(const QString& name)
    {
        CxShadingPreset preset;
        preset.name = name;
        presets().append(preset);
    }

    QStringList names()
    {
        QStringList list;
        for (const CxShadingPreset& preset : presets())
            list.append(preset.name);
        return list;
    }

    /// Runs a script in which activate(camera, ...) and create(camera, ...) call the functions.
    QString call(const std::string& script)
    {
        return runBound("import ctypes\n"
                        "plugin = ctypes.PyDLL('" VISTREL_PLUGIN_FILE "')\n"
                        "def exported(name):\n"
                        "    function = plugin[name]\n"
                        "    function.restype = ctypes.c_void_p\n"
                        "    function.argtypes = [ctypes.py_object, ctypes.py_object]\n"
                        "    def call(camera, *args):\n"
                        "        result = function(camera, args)\n"
                        "        if result is None: raise LookupError('null without an error')\n"
                        "        return None if result == id(None) else result\n"
                        "    return call\n"
                        "activate = exported('fx_pycam_ActivateShadingPreset')\n"
                        "create = exported('fx_pycam_CreateShadingPreset')\n"
                        + script);
    }

    /// The kind of error in which such a script ends.
    QString callError(const std::string& script)
    {
        return call(script)
            .trimmed()
            .section(QLatin1Char('\n'), -1)
            .section(QLatin1Char(':'), 0, 0);
    }

    void expectActivated(const std::string& arguments, const QStringList& expected)
    {
        done.clear();
        EXPECT_EQ(call("assert activate(cam" + arguments + ") is None"), QString()) << arguments;
        EXPECT_EQ(done, expected) << arguments;
    }
};

TEST_F(ShadingPresets, AreNoMethodsOfACamera)
{
    EXPECT_EQ(value("[n for n in dir(vistrel.Camera) + dir(vistrel) if 'preset' in n.lower()]"),
              QStringLiteral("[]"));
}

TEST_F(ShadingPresets, ActivatingWithoutANameTakesTheFirst)
{
    addPreset(QStringLiteral("B"));
    addPreset(QStringLiteral("A"));
    EXPECT_CALL(camera.parameters, notifyShadingChanged()).Times(0);
    const QStringList first{QStringLiteral("activate B on 12345678")};
    expectActivated("", first);
    expectActivated(", ''", first);
}

TEST_F(ShadingPresets, ActivatingANameTakesTheFirstThatIsEqual)
{
    for (const char* name : {"b", "Größe", "B", "B"})
        addPreset(QString::fromUtf8(name));
    expectActivated(", 'B'", {QStringLiteral("activate B on 12345678")});
    expectActivated(", 'Größe'", {QStringLiteral("activate Größe on 12345678")});
    expectActivated(", 'b'", {QStringLiteral("activate b on 12345678")});
}

TEST_F(ShadingPresets, ActivatingAnUnknownNameDoesNothing)
{
    expectActivated("", {});
    addPreset(QStringLiteral("A"));
    expectActivated(", 'a'", {});
    expectActivated(", 'A '", {});
}

TEST_F(ShadingPresets, CreatingAddsAtTheEndSavesThenNotifies)
{
    addPreset(QStringLiteral("A"));
    currentValue = CxValue::fromInt(5);
    EXPECT_CALL(camera.parameters, notifyShadingChanged()).WillOnce([this] {
        done.append(QStringLiteral("notify"));
        EXPECT_EQ(presets().last().description, QStringLiteral("grün"));
        EXPECT_EQ(presets().last().target, QStringLiteral("flat"));
    });
    EXPECT_EQ(call("assert create(cam, 'a', 'grün', 'flat') is None"), QString());
    EXPECT_EQ(names(), (QStringList{QStringLiteral("A"), QStringLiteral("a")}));
    EXPECT_EQ(done, (QStringList{QStringLiteral("save a"), QStringLiteral("notify")}));
    ASSERT_EQ(presets().last().values.size(), 1);
    EXPECT_EQ(presets().last().values[0].name, QStringLiteral("12345678"));
    EXPECT_THAT(presets().last().values[0].value, IsInt(5));
}

TEST_F(ShadingPresets, CreatingTwiceLeavesOneWithTheSecondValuesAndTexts)
{
    for (const char* name : {"first", "A", "last"})
        addPreset(QString::fromUtf8(name));
    EXPECT_CALL(camera.parameters, notifyShadingChanged()).Times(2);
    currentValue = CxValue::fromInt(1);
    EXPECT_EQ(call("create(cam, 'A', 'one', 'target')"), QString());
    currentValue = CxValue::fromInt(2);
    EXPECT_EQ(call("create(cam, 'A', 'two')"), QString());
    EXPECT_EQ(names(),
              (QStringList{QStringLiteral("first"), QStringLiteral("A"), QStringLiteral("last")}));
    EXPECT_THAT(presets()[1].values[0].value, IsInt(2));
    EXPECT_EQ(presets()[1].description, QStringLiteral("two"));
    EXPECT_EQ(presets()[1].target, QString()) << "a text that is not given is emptied";
}

TEST_F(ShadingPresets, CreatingChangesNoListThatIsShared)
{
    addPreset(QStringLiteral("A"));
    const QList<CxShadingPreset> before = presets();
    EXPECT_EQ(call("create(cam, 'A', 'new')\ncreate(cam, 'B', 'new')"), QString());
    EXPECT_EQ(presets().size(), 2);
    ASSERT_EQ(before.size(), 1);
    EXPECT_EQ(before[0].description, QString());
}

TEST_F(ShadingPresets, ActivatingLooksForTheCameraBeforeTheArguments)
{
    addPreset(QStringLiteral("A"));
    EXPECT_EQ(callError("activate(vistrel.Camera())"), QStringLiteral("LookupError"));
    EXPECT_EQ(callError("activate(vistrel.Camera(), 1, 2, 3)"), QStringLiteral("LookupError"));
    EXPECT_EQ(callError("activate(cam, 1)"), QStringLiteral("TypeError"));
    EXPECT_EQ(done, QStringList());
}

TEST_F(ShadingPresets, CreatingLooksAtTheArgumentsBeforeTheCamera)
{
    EXPECT_CALL(camera.parameters, notifyShadingChanged()).Times(0);
    EXPECT_EQ(callError("create(vistrel.Camera(), 'A')"), QStringLiteral("TypeError"));
    EXPECT_EQ(callError("create(cam, 'A')"), QStringLiteral("TypeError"));
    EXPECT_EQ(callError("create(cam, 'A', 'b', 'c', 'd')"), QStringLiteral("TypeError"));
    EXPECT_EQ(callError("create(vistrel.Camera(), 'A', 'b')"), QStringLiteral("LookupError"));
    EXPECT_EQ(presets().size(), 0);
}

TEST_F(ShadingPresets, AHostThatThrowsRaises)
{
    EXPECT_CALL(camera.parameters, notifyShadingChanged()).WillOnce([] { throw 1; });
    EXPECT_EQ(call("create(cam, 'A', 'b')").trimmed().section(QLatin1Char('\n'), -1),
              QStringLiteral("Exception: unknown error in the host"));
}

} // namespace

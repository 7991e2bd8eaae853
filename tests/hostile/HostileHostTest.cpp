// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// One operation of the host after the other fails its duty, and scripts see just that.
#include "WillingHost.h"

#include <stdexcept>

using testing::_;
using testing::Return;
using testing::ReturnRef;

namespace {

class HostileHost : public WillingHost {
protected:
    HostileHost()
        : usual(tour())
    {
    }

    /// Makes the tour on a host that has changed, and compares the lines that have changed.
    void expectChanges(const QStringList& lines)
    {
        QStringList changed;
        for (const QString& line : tour()) {
            if (!usual.contains(line))
                changed.append(line);
        }
        EXPECT_EQ(changed.join(u'\n'), lines.join(u'\n'));
        EXPECT_EQ(value("'alive'"), QStringLiteral("alive"));
    }

    const QStringList usual;
    std::unique_ptr<CxImageData> lent;
};

TEST_F(HostileHost, DoesAllItIsAskedForAtFirst)
{
    EXPECT_EQ(usual.size(), 76);
    const QString text = usual.join(u'\n');
    EXPECT_FALSE(text.contains(QLatin1String("Error")) || text.contains(QLatin1String("Exception")))
        << qPrintable(text);
    expectChanges({});
}

TEST_F(HostileHost, ThatHasNoViewIsSaid)
{
    ON_CALL(delegate, view).WillByDefault(Return(nullptr));
    expectChanges(
        {QStringLiteral("add_chain_object: Exception: No active view"),
         QStringLiteral("wait_for_next_frame: Exception: vistrel.WaitForNextFrame: view not found"),
         QStringLiteral("record_video_to_file: False")});
}

TEST_F(HostileHost, WhoseViewsShowNothingIsSaid)
{
    ON_CALL(delegate, viewImage).WillByDefault(Return(nullptr));
    expectChanges({QStringLiteral("save_to_file: SystemError"),
                   QStringLiteral("get_view_image: Exception: no view or view contains no image")});
}

TEST_F(HostileHost, ThatRefusesWhatItIsAskedForIsSaid)
{
    ON_CALL(delegate, openFile).WillByDefault(Return(false));
    ON_CALL(delegate, duplicateView).WillByDefault(Return(false));
    ON_CALL(delegate, newViewWithImage).WillByDefault(Return(false));
    ON_CALL(delegate, setCameraAcquisition).WillByDefault(Return(false));
    ON_CALL(view, startRecording).WillByDefault(Return(false));
    ON_CALL(environment, waitForNextFrame).WillByDefault(Return(false));
    expectChanges(
        {QStringLiteral("open_file: SystemError"), QStringLiteral("duplicate_view: -1"),
         QStringLiteral("wait_for_next_frame: False"), QStringLiteral("new_view_with_image: -1"),
         QStringLiteral("record_video_to_file: False"), QStringLiteral("start_acquisition: -1"),
         QStringLiteral("ask_user_capture_image: -1")});
}

TEST_F(HostileHost, WithoutMenusIsSaid)
{
    ON_CALL(delegate, menu).WillByDefault(Return(nullptr));
    expectChanges({QStringLiteral("add_menu_item: SystemError")});
}

TEST_F(HostileHost, WhoseDialogGivesNoPictureIsSaid)
{
    ON_CALL(delegate, captureImageDialog).WillByDefault(Return(nullptr));
    expectChanges({QStringLiteral("ask_user_capture_image: -1")});
}

TEST_F(HostileHost, WithoutFileFormatsIsSaid)
{
    ON_CALL(formats, loaderForFile).WillByDefault(Return(nullptr));
    ON_CALL(formats, saverForFile).WillByDefault(Return(nullptr));
    expectChanges({QStringLiteral("save_to_file: SystemError"),
                   QStringLiteral("from_file: Exception: cannot open file"),
                   QStringLiteral("Image.save_to_file: SystemError")});
}

TEST_F(HostileHost, WhoseLoadersLoadNothingLeavesImagesEmpty)
{
    ON_CALL(formats, loaderForFile).WillByDefault([](const QString&) {
        auto* const emptyHanded = new testing::NiceMock<MockLoader>;
        ON_CALL(*emptyHanded, load()).WillByDefault(Return(true));
        return emptyHanded;
    });
    expectChanges({});
    EXPECT_EQ(value("[i := vistrel.Image(), i.from_file('a.png'), str(i)][2]"),
              QStringLiteral("Vistrel image object is empty"));
}

/// What a script sees of a camera that it cannot reach, whichever way it looked for it.
const QStringList withoutCamera{
    QStringLiteral("open_device_by_user_id: Exception: Camera not found"),
    QStringLiteral("open_device_by_SN: Exception: Camera not found"),
    QStringLiteral("get_device_info_string: SystemError"),
    QStringLiteral("set_param: SystemError"),
    QStringLiteral("get_param: SystemError"),
    QStringLiteral("get_gain_db: None"),
    QStringLiteral("set_gain_db: None"),
    QStringLiteral("set_roi: SystemError"),
    QStringLiteral("get_roi: SystemError"),
    QStringLiteral("save_settings_to_file: SystemError"),
    QStringLiteral("load_settings_from_file: SystemError")};

TEST_F(HostileHost, WithoutOpenedCamerasIsSaid)
{
    ON_CALL(cameraManager, openedCameras()).WillByDefault(Return(QList<void*>()));
    expectChanges(QStringList{QStringLiteral("open_device: Exception: Camera not available")}
                  + withoutCamera);
}

TEST_F(HostileHost, WhoseCamerasAreDeadHandlesIsSaid)
{
    ON_CALL(cameraManager, cameraParameters).WillByDefault(Return(nullptr));
    expectChanges(withoutCamera);
}

TEST_F(HostileHost, WhoseCamerasHaveNoParametersIsSaid)
{
    ON_CALL(camera.parameters, findParam).WillByDefault(Return(nullptr));
    ON_CALL(camera.parameters, setParamDirect).WillByDefault(Return(false));
    expectChanges({QStringLiteral("get_param: Exception: Parameter not supported by the camera."),
                   QStringLiteral("get_gain_db: SystemError"),
                   QStringLiteral("get_gain_db_maximum: SystemError")});
}

TEST_F(HostileHost, WithoutChainElementsIsSaid)
{
    ON_CALL(classes, classesForInterface).WillByDefault(Return(QList<QString>()));
    expectChanges({QStringLiteral("add_chain_object: Exception: Cannot find chain object class")});
}

TEST_F(HostileHost, WhoseClassesMakeNothingIsSaid)
{
    ON_CALL(classes, createInstance).WillByDefault(Return(nullptr));
    expectChanges({QStringLiteral("add_chain_object: Exception: Cannot find chain object class")});
}

TEST_F(HostileHost, WhoseViewsHaveNoChainIsSaid)
{
    ON_CALL(view, chainEnd()).WillByDefault(Return(nullptr));
    expectChanges({QStringLiteral("add_chain_object: SystemError")});
}

TEST_F(HostileHost, WhoseChainsHaveNoEndIsSaid)
{
    ON_CALL(end, chain()).WillByDefault(Return(nullptr));
    expectChanges({QStringLiteral("add_chain_object: SystemError")});
}

TEST_F(HostileHost, WhoseOperationsAllThrowIsHeard)
{
    const auto fail = [] { throw std::runtime_error("broken host"); };
    ON_CALL(delegate, activeViewId()).WillByDefault([fail] { return fail(), 0; });
    ON_CALL(delegate, view).WillByDefault([fail](int) { return fail(), nullptr; });
    ON_CALL(delegate, setFullScreen).WillByDefault([fail](bool) { fail(); });
    ON_CALL(delegate, tileViews()).WillByDefault(fail);
    ON_CALL(delegate, showNotification).WillByDefault([fail](auto&) { fail(); });
    ON_CALL(environment, resolvePath).WillByDefault([fail](auto&) { return fail(), QString(); });
    ON_CALL(environment, workingDirectory()).WillByDefault([fail] { return fail(), QString(); });
    ON_CALL(environment, wait).WillByDefault([fail](double) { fail(); });
    ON_CALL(cameraManager, cameraParameters).WillByDefault([fail](void*) {
        return fail(), nullptr;
    });
    const QString throwing = QStringLiteral(
        "open_file save_to_file duplicate_view get_active_view_id close_view tile_views "
        "switch_full_screen add_chain_object wait_for_next_frame wait get_view_image "
        "set_view_image new_view_with_image record_video_to_file stop_video_recording "
        "show_notification get_working_directory play_sound open_device_by_user_id "
        "open_device_by_SN get_device_info_string set_param get_param get_gain_db set_gain_db "
        "get_gain_db_maximum set_roi get_roi start_acquisition save_settings_to_file "
        "load_settings_from_file ask_user_capture_image from_file Image.save_to_file");
    QStringList lines;
    for (const QString& name : throwing.split(u' '))
        lines.append(name + QStringLiteral(": Exception: broken host"));
    expectChanges(lines);
}

TEST_F(HostileHost, WhoseImagesVanishBetweenCallsLeavesEmptyObjects)
{
    // A host's image, gone before each call: what is left of the tour are the methods of images.
    ON_CALL(delegate, tileViews()).WillByDefault([this] { lent.reset(); });
    ON_CALL(delegate, activateView).WillByDefault([this](int) {
        lent = makeImage(6, 4, 3, ExImageDataType::UInt8, 8);
        plugin->addImageVariable(QStringLiteral("lent"), lent.get());
    });
    EXPECT_EQ(run("import __main__\n"
                  "methods = [n for n in dir(vistrel.Image) if not n.startswith('_')]\n"
                  "attributes = ['width', 'bp', 'tobytes', 'gain_db', '__array_interface__']\n"
                  "fills = ['alloc', 'from_file', 'from_array']\n"
                  "arguments = [(), (1,), (0, 0), (0, 0, 1), (0, 0, 1, 1), (1, 1, 1, 1, 1)]\n"
                  "for name in methods + attributes + ['__bytes__']:\n"
                  "    if name in fills: continue\n"
                  "    vistrel.activate_view()\n"
                  "    image = __main__.lent\n"
                  "    assert str(image) != 'Vistrel image object is empty'\n"
                  "    kept = image.get_width\n"
                  "    vistrel.tile_views()\n"
                  "    for values in arguments:\n"
                  "        try: getattr(image, name)(*values)\n"
                  "        except (SystemError, TypeError): pass\n"
                  "        except Exception as error: assert 'empty' in str(error), error\n"
                  "        else: raise AssertionError(name)\n"
                  "    try: kept()\n"
                  "    except SystemError: pass\n"
                  "    assert str(image) == 'Vistrel image object is empty'\n"
                  "print(len(methods), end='')\n"),
              QString());
    EXPECT_EQ(output, QStringLiteral("33"));
}

} // namespace

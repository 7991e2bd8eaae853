// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// A host of mocks that does all it is asked for, and a script that asks for all there is.
#include "WillingHost.h"

using testing::_;
using testing::Return;

namespace {

// No mocks: theirs take memory when they go, where its want cannot be told.
class ShownImageLoader : public IxImageLoader {
public:
    explicit ShownImageLoader(QObject& image)
        : m_image(image)
    {
    }
    bool load() override { return true; }
    QObject* loadedObject() override { return &m_image; }

private:
    QObject& m_image;
};

class NoSaver : public IxImageSaver {
public:
    bool save(CxImageData*, int) override { return true; }
};

} // namespace

WillingHost::WillingHost()
{
    listParam(QStringLiteral("gain_db"), CxValue::fromFloat(1.5F));
    ON_CALL(camera.parameters, currentROIRectParams()).WillByDefault(Return(QRect(0, 0, 8, 6)));
    ON_CALL(camera.parameters, setParamDirect).WillByDefault(Return(true));
    ON_CALL(delegate, activeViewId()).WillByDefault(Return(7));
    ON_CALL(delegate, view(7)).WillByDefault(Return(&view));
    ON_CALL(delegate, viewImage(7)).WillByDefault([this](int) { return shown.get(); });
    ON_CALL(delegate, menu(_)).WillByDefault(Return(&menu));
    ON_CALL(delegate, openFile).WillByDefault(Return(true));
    ON_CALL(delegate, duplicateView).WillByDefault(Return(true));
    ON_CALL(delegate, setCameraAcquisition).WillByDefault(Return(true));
    ON_CALL(delegate, setViewImage).WillByDefault([](int, CxImageData* image) { delete image; });
    ON_CALL(delegate, newViewWithImage).WillByDefault([](CxImageData* image, auto&) {
        delete image;
        return true;
    });
    ON_CALL(delegate, captureImageDialog).WillByDefault([](auto&&...) {
        const auto taken = makeImage(6, 4, 1, ExImageDataType::UInt8, 8);
        auto buffer = std::make_unique<SxPicBuf>(*taken->picBuf());
        *taken->picBuf() = {};
        return buffer.release();
    });
    ON_CALL(view, startRecording).WillByDefault(Return(true));
    ON_CALL(view, chainEnd()).WillByDefault(Return(&end));
    ON_CALL(end, chain()).WillByDefault(Return(&chain));
    ON_CALL(classes, classesForInterface)
        .WillByDefault(Return(QList<QString>{QStringLiteral("CxFlip")}));
    ON_CALL(classes, customName).WillByDefault(Return(QStringLiteral("Flip")));
    ON_CALL(classes, createInstance).WillByDefault(Return(&element));
    ON_CALL(formats, loaderForFile).WillByDefault([this](const QString&) {
        return new ShownImageLoader(*shown);
    });
    ON_CALL(formats, saverForFile).WillByDefault([](const QString&) { return new NoSaver; });
    ON_CALL(environment, waitForNextFrame).WillByDefault(Return(true));
    ON_CALL(environment, workingDirectory()).WillByDefault(Return(QStringLiteral("folder")));
}

const char* const WillingHost::tourScript = R"py(
def image(width=6, height=4, channels=3, bpc=8):
    made = vistrel.Image()
    made.alloc(width, height, channels, bpc)
    return made
def camera():
    made = vistrel.Camera()
    made.open_device()
    return made
def graph():
    made = vistrel.Graph()
    made.add_series()
    made.series_add_point(0, 1, 2)
    return made
i, o, square, g = image(), image(), image(4, 4, 1), graph()
try: c = camera()
except Exception: c = vistrel.Camera()
vistrel.set_global_variable_img('here', i)
calls = {
    'get_number_devices': lambda: vistrel.get_number_devices(),
    'open_file': lambda: vistrel.open_file('a.png'),
    'save_to_file': lambda: vistrel.save_to_file('a.png'),
    'duplicate_view': lambda: vistrel.duplicate_view(),
    'get_active_view_id': lambda: vistrel.get_active_view_id(),
    'activate_view': lambda: vistrel.activate_view(7),
    'close_view': lambda: vistrel.close_view(),
    'tile_views': lambda: vistrel.tile_views(),
    'switch_full_screen': lambda: vistrel.switch_full_screen(True),
    'add_chain_object': lambda: vistrel.add_chain_object('Flip', {'direction': 'both', 'rate': 0.5}),
    'wait_for_next_frame': lambda: vistrel.wait_for_next_frame(1.0),
    'wait': lambda: vistrel.wait(0.0),
    'get_view_image': lambda: vistrel.get_view_image().get_width(),
    'set_view_image': lambda: vistrel.set_view_image(i),
    'new_view_with_image': lambda: vistrel.new_view_with_image(i, 'title'),
    'record_video_to_file': lambda: vistrel.record_video_to_file('a.avi'),
    'stop_video_recording': lambda: vistrel.stop_video_recording(),
    'show_notification': lambda: vistrel.show_notification('text'),
    'add_menu_item': lambda: vistrel.add_menu_item('title', 'script', 'submenu'),
    'get_working_directory': lambda: vistrel.get_working_directory(),
    'play_sound': lambda: vistrel.play_sound('a.wav'),
    'set_global_variable_img': lambda: vistrel.set_global_variable_img('image', i),
    'get_global_variable_img': lambda: vistrel.get_global_variable_img('here').get_width(),
    'set_global_variable_int': lambda: vistrel.set_global_variable_int('int', 3),
    'get_global_variable_int': lambda: vistrel.get_global_variable_int('int'),
    'set_global_variable_string': lambda: vistrel.set_global_variable_string('string', 'text'),
    'get_global_variable_string': lambda: vistrel.get_global_variable_string('string'),
    'open_device': lambda: vistrel.Camera().open_device(),
    'open_device_by_user_id': lambda: vistrel.Camera().open_device_by_user_id(''),
    'open_device_by_SN': lambda: vistrel.Camera().open_device_by_SN('12345678'),
    'get_device_info_string': lambda: c.get_device_info_string('device_sn'),
    'set_param': lambda: c.set_param('gain_db', 1.5),
    'get_param': lambda: c.get_param('gain_db'),
    'get_gain_db': lambda: c.get_gain_db(),
    'set_gain_db': lambda: c.set_gain_db(1.5),
    'get_gain_db_maximum': lambda: c.get_gain_db_maximum(),
    'set_roi': lambda: c.set_roi(0, 0, 8, 6),
    'get_roi': lambda: c.get_roi(),
    'start_acquisition': lambda: c.start_acquisition(),
    'stop_acquisition': lambda: c.stop_acquisition(),
    'save_settings_to_file': lambda: c.save_settings_to_file('a.json'),
    'load_settings_from_file': lambda: c.load_settings_from_file('a.json'),
    'ask_user_capture_image': lambda: c.ask_user_capture_image('title', 'message', 1),
    'from_file': lambda: vistrel.Image().from_file('a.png'),
    'Image.save_to_file': lambda: i.save_to_file('a.png'),
    'alloc': lambda: vistrel.Image().alloc(6, 4, 3, 8),
    'from_array': lambda: vistrel.Image().from_array(square),
    'str': lambda: str(i),
    'bytes': lambda: len(bytes(i)),
    'width': lambda: i.width,
    '__array_interface__': lambda: i.__array_interface__['shape'],
    'get_image_data_raw': lambda: len(i.get_image_data_raw()),
    'get_image_data_numpy': lambda: i.get_image_data_numpy().get_width(),
    'get_pixel_value': lambda: i.get_pixel_value(1, 1),
    'set_pixel_value': lambda: i.set_pixel_value(1, 1, 1),
    'draw_pixel_rect': lambda: i.draw_pixel_rect(1, 1, 1, 2, 2),
    'to_rgb': lambda: i.to_rgb().get_channels(),
    'extract_channel': lambda: i.extract_channel(0).get_channels(),
    'convert_bpc': lambda: i.convert_bpc(12).get_bpc(),
    'new_copy': lambda: i.new_copy().get_width(),
    'crop': lambda: i.crop(0, 0, 2, 2).get_width(),
    'resize': lambda: i.resize(3, 2, 0, 0, 0, 0).get_width(),
    'copy_to': lambda: i.copy_to(o),
    'copy_rect_to': lambda: i.copy_rect_to(0, 0, 2, 2, o, 0, 0),
    'resize_to': lambda: i.resize_to(o),
    'tesize_rect_to': lambda: i.tesize_rect_to(0, 0, 2, 2, o, 0, 0, 1, 1),
    'add': lambda: i.add(o),
    'subtract': lambda: i.subtract(o),
    'divide_by_value': lambda: i.divide_by_value(1),
    'measure_rect': lambda: len(i.measure_rect()),
    'measure_row_profiles_in_rect': lambda: len(i.measure_row_profiles_in_rect()),
    'measure_column_profiles_in_rect': lambda: len(i.measure_column_profiles_in_rect()),
    'add_series': lambda: graph().add_series(),
    'series_add_point': lambda: g.series_add_point(0, 1, 2),
    'series_set_line_color': lambda: g.series_set_line_color(0, 1, 2, 3),
    'get_series_count': lambda: g.get_series_count(),
}
)py";

QStringList WillingHost::tour()
{
    const std::string script = std::string(tourScript) + R"py(
for name, call in calls.items():
    try: outcome = repr(call())
    except BaseException as error: outcome = f'{type(error).__name__}: {error}'
    if outcome.startswith('SystemError'): outcome = 'SystemError' # whose words differ
    print(name, outcome, sep=': ')
)py";
    EXPECT_EQ(run(script.c_str()), QString());
    return output.split(u'\n', Qt::SkipEmptyParts);
}

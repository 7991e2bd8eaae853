// SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
// SPDX-License-Identifier: GPL-3.0-or-later
// The module vistrel: its names, the main-thread rule, a host that is not there.
#include "PluginTest.h"

#include "core/HostSingletons.h"

#include <stdexcept>

using testing::_;
using testing::Return;

namespace {

class Module : public PluginTest {};

constexpr char offThread[] = "Exception: running GUI function from non-main thread";

TEST_F(Module, HoldsItsFunctionsInTheOrderOfTheTableThenTheTypes)
{
    EXPECT_EQ(value("' '.join(n for n in vars(vistrel) if not n.startswith('__'))"),
              QStringLiteral("get_number_devices open_file save_to_file duplicate_view "
                             "get_active_view_id activate_view close_view tile_views "
                             "switch_full_screen add_chain_object wait_for_next_frame wait "
                             "get_view_image set_view_image new_view_with_image "
                             "record_video_to_file stop_video_recording message_box "
                             "show_notification print_to_error_log ask_user_for_string "
                             "add_menu_item run_script get_working_directory play_sound "
                             "set_global_variable_img get_global_variable_img "
                             "set_global_variable_int get_global_variable_int "
                             "set_global_variable_string get_global_variable_string "
                             "Camera Graph Image"));
}

TEST_F(Module, IsBuiltInAndUndocumented)
{
    EXPECT_EQ(value("('vistrel' in __import__('sys').builtin_module_names, "
                    "'emb' in __import__('sys').builtin_module_names, vistrel.__doc__)"),
              QStringLiteral("(True, True, None)"));
}

TEST_F(Module, TypesCannotBeSubclassed)
{
    EXPECT_TRUE(error("class Mine(vistrel.Image): pass").startsWith(QLatin1String("TypeError")));
    EXPECT_TRUE(error("class Mine(vistrel.Graph): pass").startsWith(QLatin1String("TypeError")));
    EXPECT_TRUE(error("class Mine(vistrel.Camera): pass").startsWith(QLatin1String("TypeError")));
}

TEST_F(Module, GuiFunctionsAreRefusedOffTheGuiThread)
{
    for (const char* call :
         {"vistrel.save_to_file('x.png')", "vistrel.duplicate_view()",
          "vistrel.get_active_view_id()", "vistrel.activate_view()", "vistrel.close_view()",
          "vistrel.tile_views()", "vistrel.switch_full_screen(True)",
          "vistrel.wait_for_next_frame()", "vistrel.wait(0)",
          "vistrel.set_view_image(vistrel.Image())", "vistrel.new_view_with_image(vistrel.Image())",
          "vistrel.add_chain_object('Flip')", "vistrel.record_video_to_file('x.avi')",
          "vistrel.stop_video_recording()", "vistrel.message_box('', '')",
          "vistrel.show_notification('')", "vistrel.ask_user_for_string('', '')",
          "vistrel.add_menu_item('', '')"})
        EXPECT_EQ(errorOffGuiThread(call), QString::fromUtf8(offThread)) << call;
}

TEST_F(Module, OpenFileRefusesInItsOwnWordsBeforeItLooksAtItsArguments)
{
    EXPECT_EQ(
        errorOffGuiThread("vistrel.open_file(123)"),
        QStringLiteral("Exception: vistrel.open_file: running GUI function from non-main thread"));
}

TEST_F(Module, ARefusedCallReportsNoArgumentError)
{
    EXPECT_EQ(errorOffGuiThread("vistrel.wait('x')"), QString::fromUtf8(offThread));
    EXPECT_EQ(errorOffGuiThread("vistrel.message_box()"), QString::fromUtf8(offThread));
    EXPECT_TRUE(error("vistrel.wait('x')").startsWith(QLatin1String("TypeError")));
}

TEST_F(Module, TheEnvironmentDecidesWhichThreadMay)
{
    EXPECT_CALL(environment, isGuiThread()).WillRepeatedly(Return(false));
    EXPECT_EQ(error("vistrel.tile_views()"), QString::fromUtf8(offThread));
}

TEST_F(Module, ViewImagesAndCameraCountAreGivenOnEveryThread)
{
    auto image = makeImage(3, 2, 1, ExImageDataType::UInt8, 8);
    ON_CALL(delegate, viewImage(_)).WillByDefault(Return(image.get()));
    ON_CALL(cameraManager, openedCameraCount()).WillByDefault(Return(4U));
    EXPECT_CALL(environment, isGuiThread()).Times(0);
    EXPECT_EQ(errorOffGuiThread("caught.append(Exception(str(vistrel.get_view_image(1).width)))"),
              QStringLiteral("Exception: 3"));
    EXPECT_EQ(errorOffGuiThread("caught.append(Exception(str(vistrel.get_number_devices())))"),
              QStringLiteral("Exception: 4"));
}

TEST_F(Module, FunctionsThatTouchNoUserInterfaceRunOnEveryThread)
{
    ON_CALL(environment, workingDirectory()).WillByDefault(Return(QStringLiteral("/data")));
    EXPECT_CALL(environment, isGuiThread()).Times(0);
    EXPECT_CALL(delegate, playSound(QStringLiteral("bell.wav")));
    for (const char* call :
         {"vistrel.get_working_directory()", "vistrel.print_to_error_log('x')",
          "vistrel.play_sound('bell.wav')", "vistrel.set_global_variable_int('x', 1)",
          "vistrel.get_global_variable_int('x')", "vistrel.set_global_variable_string('x', '')",
          "vistrel.get_global_variable_string('x')",
          "vistrel.set_global_variable_img('x', vistrel.Image())",
          "vistrel.get_global_variable_img('x')"})
        EXPECT_EQ(errorOffGuiThread((std::string(call) + "; raise Exception('done')").c_str()),
                  QStringLiteral("Exception: done"))
            << call;
    EXPECT_EQ(errorOffGuiThread("vistrel.run_script('/no/such/file')"),
              QStringLiteral("Exception: given script file can't be opened."));
}

TEST_F(Module, WrongArgumentsAreTypeErrorsOfTheParser)
{
    for (const char* call : {"vistrel.open_file()",
                             "vistrel.open_file(1)",
                             "vistrel.activate_view('x')",
                             "vistrel.activate_view(1, 2)",
                             "vistrel.switch_full_screen()",
                             "vistrel.get_view_image('x')",
                             "vistrel.set_view_image()",
                             "vistrel.wait()",
                             "vistrel.get_active_view_id(1)",
                             "vistrel.wait_for_next_frame('x')",
                             "vistrel.add_chain_object()",
                             "vistrel.record_video_to_file(1)",
                             "vistrel.stop_video_recording('x')",
                             "vistrel.message_box('title')",
                             "vistrel.message_box('', '', '', '', '', '')",
                             "vistrel.show_notification()",
                             "vistrel.print_to_error_log(1)",
                             "vistrel.ask_user_for_string('title')",
                             "vistrel.add_menu_item('title')",
                             "vistrel.run_script()",
                             "vistrel.run_script(b'x')",
                             "vistrel.get_working_directory(1)",
                             "vistrel.play_sound(None)",
                             "vistrel.set_global_variable_img('x')",
                             "vistrel.get_global_variable_img(1)",
                             "vistrel.set_global_variable_int('x', 1.5)",
                             "vistrel.get_global_variable_int()",
                             "vistrel.set_global_variable_string('x', 1)",
                             "vistrel.get_global_variable_string()"})
        EXPECT_TRUE(error(call).startsWith(QLatin1String("TypeError: "))) << call;
}

TEST_F(Module, AViewIdThatDoesNotFitIsAnOverflowError)
{
    EXPECT_TRUE(error("vistrel.close_view(2**40)").startsWith(QLatin1String("OverflowError: ")));
}

TEST_F(Module, AHostThatIsNotThereIsAClearError)
{
    run("pass");
    vistrel::installAppDelegate(nullptr);
    vistrel::installCameraManager(nullptr);
    vistrel::installClassRegistry(nullptr);
    EXPECT_EQ(error("vistrel.tile_views()"),
              QStringLiteral("Exception: the host application is not available"));
    EXPECT_EQ(error("vistrel.get_number_devices()"),
              QStringLiteral("Exception: the host's cameras are not available"));
    EXPECT_EQ(error("vistrel.add_chain_object('Flip')"),
              QStringLiteral("Exception: the host's class registry is not available"));
    EXPECT_EQ(error("str(vistrel.Camera())"),
              QStringLiteral("Exception: the host's cameras are not available"));
}

TEST_F(Module, AHostThatThrowsIsAnErrorOfTheScript)
{
    ON_CALL(delegate, tileViews()).WillByDefault([] { throw std::runtime_error("no tiles"); });
    EXPECT_EQ(error("vistrel.tile_views()"), QStringLiteral("Exception: no tiles"));
    ON_CALL(delegate, tileViews()).WillByDefault([] { throw std::bad_alloc(); });
    EXPECT_EQ(error("vistrel.tile_views()"), QStringLiteral("Exception: out of memory"));
    ON_CALL(delegate, tileViews()).WillByDefault([] { throw 5; });
    EXPECT_EQ(error("vistrel.tile_views()"),
              QStringLiteral("Exception: unknown error in the host"));
}

TEST_F(Module, AHostThatThrowsWhileTheModuleIsMadeLeavesARunnableInterpreter)
{
    ON_CALL(environment, functionHelp(_, _)).WillByDefault([](const char*, const char*) {
        throw std::runtime_error("no help");
        return static_cast<const char*>(nullptr);
    });
    EXPECT_EQ(value("'vistrel' in globals()"), QStringLiteral("False"));
    EXPECT_TRUE(error("import missing_module").startsWith(QLatin1String("ModuleNotFoundError")));
}

TEST_F(Module, TheCameraCountIsTakenAsUnsigned)
{
    EXPECT_CALL(cameraManager, openedCameraCount()).WillOnce(Return(4'000'000'000U));
    EXPECT_EQ(value("vistrel.get_number_devices()"), QStringLiteral("4000000000"));
}

} // namespace

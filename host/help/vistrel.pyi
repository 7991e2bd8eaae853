# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# The one source of all help texts: help() in a script, completion in editors
# and the reference are made from it.
#
# To add a function or method, write its stub at the place it has in the
# module's table; nothing else needs to be told. The build stops with file and
# line when an entry breaks a rule:
# - all parameters are positional-only (`/`) and annotated, defaults are
#   literals, the result is annotated;
# - the doc text starts with one sentence on one line. "Args:" lists every
#   parameter in order as "name: meaning, unit"; "Returns:" stands when there is
#   a result. Types are not written there: they come from the annotations;
# - the doc text ends with "Example:", a few lines that go on from those at the
#   end of the module's text; a test runs them;
# - no quotation runs over the end of a line, so that the messages quoted under
#   "Raises:" can be searched for;
# - no line is longer than 80 columns, no text longer than 4000 characters.
# An attribute is `name: Final[type]`, followed by its doc text and example. A
# new class needs its host name in HELP_TYPES of generate_help.py.
"""The host application's views, images and cameras, for scripts.

The module is built in: it exists only in scripts that the host runs. Besides
it a script finds constants among its own names: each camera parameter's name
as an upper-case text, each value of an enumeration as an upper-case integer.

Wrong arguments raise what Python raises for built-in functions (TypeError,
OverflowError). Errors of the host are plain Exception objects with the
messages quoted below. Some failures have no message: Python then reports
SystemError, "returned NULL without setting an exception" ("an error" in the
place of "an exception" before Python 3.10).

All examples go on from these lines:

    import numpy
    import vistrel

    camera = vistrel.Camera()
    camera.open_device()
    view = camera.start_acquisition()
    vistrel.wait_for_next_frame(30.0, view)
    image = vistrel.get_view_image(view)
    graph = vistrel.Graph()
    series = graph.add_series()
"""

from typing import TYPE_CHECKING, Any, Callable, Final, final

def get_number_devices() -> int:
    """Count the cameras that are open in the host.

    May be called on any thread.

    Returns:
        the number of cameras, also those that no Camera object is bound to.

    Example:
        print(vistrel.get_number_devices(), "cameras are open")
    """

def open_file(path: str, /) -> int:
    """Open an image file in a new view and make it the active view.

    Args:
        path: the file; a relative path starts at the folder that the host
            resolves script paths against.

    Returns:
        the id of the active view, read after opening.

    Raises:
        Exception:
            "vistrel.open_file: running GUI function from non-main thread"
        SystemError: "returned NULL without setting an exception" when the
            host cannot open the file; the error log says why.

    Example:
        image.save_to_file("part.png")
        view = vistrel.open_file("part.png")
    """

def save_to_file(path: str, /) -> None:
    """Save the active view's image to a file.

    The ending of the name chooses the format. Missing folders are made, an
    existing file is replaced. A failed write is not reported to the script;
    the error log says why.

    Args:
        path: the file; resolved like that of open_file().

    Raises:
        Exception: "running GUI function from non-main thread"
        SystemError: "returned NULL without setting an exception" when no view
            is active, the active view shows no image, or no format goes by
            the name's ending.

    Example:
        vistrel.save_to_file("shown.png")
    """

def duplicate_view(view_id: int = -1, /) -> int:
    """Open a second view with a copy of a view's image and activate it.

    Args:
        view_id: id of the view to copy; -1 is the active view.

    Returns:
        the id of the new view, or -1 when there is no such view or it shows
        nothing.

    Raises:
        Exception: "running GUI function from non-main thread"

    Example:
        still = vistrel.duplicate_view(view)  # keeps this frame
    """

def get_active_view_id() -> int:
    """Get the id of the active view.

    Returns:
        the id, 0 or greater, or -1 when there is no view.

    Raises:
        Exception: "running GUI function from non-main thread"

    Example:
        if vistrel.get_active_view_id() == -1:
            raise SystemExit("open a picture first")
    """

def activate_view(view_id: int = -1, /) -> None:
    """Make a view the active one.

    Args:
        view_id: id of the view; -1 and unknown ids change nothing.

    Raises:
        Exception: "running GUI function from non-main thread"

    Example:
        vistrel.activate_view(view)
    """

def close_view(view_id: int = -1, /) -> None:
    """Close a view.

    Args:
        view_id: id of the view; -1 is the active view. An unknown id does
            nothing.

    Raises:
        Exception: "running GUI function from non-main thread"

    Example:
        shown = vistrel.new_view_with_image(image)
        vistrel.close_view(shown)
    """

def tile_views() -> None:
    """Arrange all views side by side.

    Raises:
        Exception: "running GUI function from non-main thread"

    Example:
        vistrel.new_view_with_image(image)
        vistrel.tile_views()
    """

def switch_full_screen(on: bool, /) -> None:
    """Switch the main window to full screen or back.

    Args:
        on: True for full screen, False for a normal window. Any object goes;
            its truth value counts.

    Raises:
        Exception: "running GUI function from non-main thread"

    Example:
        vistrel.switch_full_screen(True)
        vistrel.switch_full_screen(False)
    """

def add_chain_object(name: str, conf: dict[str, Any] = {}, /) -> None:
    """Put a processing element into the active view's chain.

    The element comes directly in front of the view: it gets each frame after
    the elements that were put in before it. A running stream is stopped
    meanwhile and goes on.

    The elements, what their settings may be, and the defaults in brackets:

        Gaussian Blur smooths.
            sigma: a number from 0.1 to 50 (1), in pixels.
            radius: a whole number from 0 to 150 (0), how far it looks, in
                pixels; 0: as far as sigma asks for.
        Flip mirrors.
            direction: horizontal, vertical, both (horizontal).
        Rotate turns clockwise.
            angle: 90, 180, 270 (90), in degrees.
        Threshold makes values above a level white and others 0.
            level: a number from -1 to 4294967295 (-1), in the picture's
                values; -1: half of white.
            automatic: 0 or 1 (0); 1 finds the level in each picture.
            invert: 0 or 1 (0); 1 makes white 0 and 0 white.
        Gamma changes the brightness of the middle; 0 and white stay.
            gamma: a number from 0.1 to 10 (2.2); above 1 lightens.
        Median takes single wrong pixels out.
            radius: a whole number from 1 to 50 (1), in pixels; at most 2 for
                more than 8 bits.
        Background Subtraction shows what differs from a background.
            rate: a number from 0 to 1 (0.05), the share that a frame has in
                the background from then on; 0: the first frame stays.
            difference: absolute, brighter, darker (absolute).
        Frame Average takes the mean of the frames so far.
            frames: a whole number from 2 to 1000 (8); when so many have come,
                each further one replaces its share.

    Args:
        name: the element; upper and lower case are the same.
        conf: its settings by name; the others have their defaults.
            Values are int (32 bits), float, bool or str, others are left out.
            The error log tells of a name that the element does not know, and
            of a wrong value, for which the default holds.

    Raises:
        Exception: "running GUI function from non-main thread"
        Exception: "Config parameter is not of the dictionary type"
        Exception: "Cannot find chain object class" when no element goes by
            that name.
        Exception: "No active view"
        SystemError: "returned NULL without setting an exception" when the
            view has no chain; "returned a result with an exception set" when
            a key of conf is no text, or a value cannot be converted: the
            element is put in without that setting.

    Example:
        vistrel.add_chain_object("Gaussian Blur", {"sigma": 2.5})
    """

def wait_for_next_frame(timeout: float = -1.0, view_id: int = -1, /) -> bool:
    """Wait until a view has taken its next camera frame.

    The host handles its events meanwhile, so views keep showing frames. Note
    the order of the arguments: the timeout comes first.

    Args:
        timeout: longest time to wait, in seconds; negative or not given: as
            long as the view's camera streams.
        view_id: id of the view; -1 is the active view.

    Returns:
        True when a frame came, False when none came in time or the stream
        ended.

    Raises:
        Exception: "running GUI function from non-main thread"
        Exception: "vistrel.WaitForNextFrame: view not found"

    Example:
        if not vistrel.wait_for_next_frame(30.0, view):
            raise Exception("no frame came within 30 seconds")
    """

def wait(seconds: float, /) -> None:
    """Wait while the host keeps handling its events.

    In contrast to time.sleep() views stay alive and cameras go on streaming.

    Args:
        seconds: how long, in seconds.

    Raises:
        Exception: "running GUI function from non-main thread"

    Example:
        vistrel.wait(0.2)  # the view goes on showing frames
    """

def get_view_image(view_id: int = -1, /) -> Image:
    """Get a copy of the image that a view shows now.

    The copy is independent: changing it leaves the view alone, and the view's
    next frame leaves it alone. May be called on any thread.

    Args:
        view_id: id of the view; -1 is the active view.

    Returns:
        a new image with pixels, frame numbers and camera record.

    Raises:
        Exception: "no view or view contains no image"
        Exception: "cannot allocate new image, out of memory"

    Example:
        image = vistrel.get_view_image(view)
        print(image.width, "x", image.height)
    """

def set_view_image(image: Image, view_id: int = -1, /) -> None:
    """Show an image in a view that is open.

    The view gets a copy: changing the image afterwards leaves the view alone.
    An unknown view id shows nothing and is no error.

    Args:
        image: the image to show.
        view_id: id of the view; -1 is the active view.

    Raises:
        Exception: "running GUI function from non-main thread"
        Exception: "the object passed is not a vistrel.Image"
        Exception: "cannot allocate new image, out of memory"
        SystemError: "returned NULL without setting an exception" when the
            image is empty.

    Example:
        shown = vistrel.new_view_with_image(image)
        image.divide_by_value(2)
        vistrel.set_view_image(image, shown)
    """

def new_view_with_image(
    image: Image, title: str = "Image from script", /
) -> int:
    """Show an image in a new view and make it the active view.

    The view gets a copy: changing the image afterwards leaves the view alone.

    Args:
        image: the image to show.
        title: title of the view; an empty text stands for the default.

    Returns:
        the id of the active view, or -1 when the host opened none.

    Raises:
        Exception: "running GUI function from non-main thread"
        Exception: "the object passed is not a vistrel.Image"
        Exception: "cannot allocate new image, out of memory"
        SystemError: "returned NULL without setting an exception" when the
            image is empty.

    Example:
        shown = vistrel.new_view_with_image(image, "Part 4711")
    """

def record_video_to_file(path: str, view_id: int = -1, /) -> bool:
    """Start to record what a view shows to a film file.

    Every frame that comes out of the view's chain is recorded, with 8 bits
    and at the frame rate that the camera has now; a view without a camera
    records each picture that it gets, 25 for a second of film. A picture of
    another size than the first is fitted into the film. Camera frames that
    come faster than they can be written are left out and counted in the log;
    set_view_image() waits until its picture has a place in the film.

    The film ends with stop_video_recording(), when the view or the application
    is closed, and when the disk is full. It can be played afterwards.

    Args:
        path: the film: .avi for Motion JPEG, .mp4 for MPEG-4; there are no
            others. Missing folders are made, an existing file is replaced.
            Resolved like that of open_file().
        view_id: id of the view; -1 is the active view.

    Returns:
        True when the recording has started, False when there is no such view
        or it cannot record to that file; the error log says why.

    Raises:
        Exception: "running GUI function from non-main thread"

    Example:
        if vistrel.record_video_to_file("run.avi", view):
            vistrel.wait(1.0)
            vistrel.stop_video_recording(view)
    """

def stop_video_recording(view_id: int = -1, /) -> None:
    """End a view's recording and finish its film file.

    Nothing happens when the view does not record or there is no such view.

    Args:
        view_id: id of the view; -1 is the active view.

    Raises:
        Exception: "running GUI function from non-main thread"

    Example:
        vistrel.record_video_to_file("frames.avi", view)
        for _ in range(10):
            vistrel.wait_for_next_frame(30.0, view)
        vistrel.stop_video_recording(view)
    """

def message_box(
    title: str,
    text: str,
    button1: str = "",
    button2: str = "",
    button3: str = "",
    /,
) -> int:
    """Show a message and wait until the user closes it.

    A box with one choice has the button OK: button1 only shows when button2
    is given too.

    Args:
        title: title of the window.
        text: the message; simple HTML is understood.
        button1: text of the first button; OK stands in its place when button2
            is empty.
        button2: text of the second button; none when empty.
        button3: text of the third button; none when empty.

    Returns:
        1, 2 or 3: the button that closed the box, counted by its place among
        the arguments. When the box was closed without one: the lowest number
        without a button, 0 when all three are there.

    Raises:
        Exception: "running GUI function from non-main thread"
        Exception: "the host has no user interface"

    Example:
        if vistrel.message_box("Part", "Is it in place?", "Yes", "No") != 1:
            raise SystemExit("put the part in place first")
    """

def show_notification(text: str, /) -> None:
    """Show a passing message to the user; the script goes on at once.

    Args:
        text: the message.

    Raises:
        Exception: "running GUI function from non-main thread"

    Example:
        vistrel.show_notification("12 parts measured")
    """

def print_to_error_log(text: str, /) -> None:
    """Write a line to the host's error log.

    The text stands in quotes there. May be called on any thread.

    Args:
        text: the message.

    Example:
        vistrel.print_to_error_log("part 4711 was measured twice")
    """

def ask_user_for_string(title: str, label: str, /) -> str:
    """Ask the user for a line of text and wait for the answer.

    Args:
        title: title of the window.
        label: the question above the line.

    Returns:
        the line; empty when the user cancelled.

    Raises:
        Exception: "running GUI function from non-main thread"
        Exception: "the host has no user interface"

    Example:
        part = vistrel.ask_user_for_string("Measure", "Part number:")
        if not part:
            raise SystemExit("no part number was entered")
    """

def add_menu_item(
    title: str, script: str, submenu: str = "", extra: str = "", /
) -> None:
    """Add an entry to the script menu that runs a script when chosen.

    The entry stays until the host ends. It does not replace an older one of
    the same title.

    Args:
        title: text of the entry.
        script: the script file; resolved like the path of open_file().
        submenu: title of the submenu that gets the entry, made when there is
            none of exactly that title; empty: the menu itself.
        extra: a text for the host; the reference host takes it as the
            entry's keyboard shortcut, such as "Ctrl+Shift+M". The newest
            entry with a shortcut has it; those of the application itself are
            not given away, which the error log tells.

    Raises:
        Exception: "running GUI function from non-main thread"
        SystemError: "returned NULL without setting an exception" when the
            host has no script menu.

    Example:
        vistrel.add_menu_item("Measure part", "measure.py", "Tools")
    """

def run_script(path: str, /) -> None:
    """Run another script file now, in this script's names.

    The script sees and changes the names of this one, and what it defines is
    there afterwards. Its errors, sys.exit() included, end it alone: they are
    printed, and this script goes on. So it does when the user stops the other
    one, and has to be stopped again. Scripts may run scripts to any depth
    that Python's recursion limit and the thread's stack allow. May be called
    on any thread.

    Args:
        path: the script; resolved like that of open_file().

    Raises:
        Exception: "given script file can't be opened."
        RecursionError: when scripts run each other too deep.

    Example:
        with open("limits.py", "w") as file:
            file.write("lowest = 20")
        vistrel.run_script("limits.py")
        print(lowest)  # a name of the other script
    """

def get_working_directory() -> str:
    """Get the folder at which relative paths of scripts start.

    May be called on any thread.

    Returns:
        its absolute path.

    Example:
        import os
        print(os.listdir(vistrel.get_working_directory()))
    """

def play_sound(path: str, /) -> None:
    """Play a sound file; the script goes on at once.

    A file that cannot be played is no error; the error log says why. May be
    called on any thread.

    Args:
        path: the sound; resolved like that of open_file().

    Example:
        vistrel.play_sound("ready.wav")
    """

def set_global_variable_img(name: str, image: Image, /) -> None:
    """Keep a copy of an image for other scripts and later runs.

    Shared variables live until the host ends. Images, integers and texts have
    names of their own: one name may stand for one of each. May be called on
    any thread.

    The image stored before is deleted, and objects that share it become empty
    ("Vistrel image object is empty"). Arrays made of them must not be used
    any more: an array keeps the image object alive, not its pixels.

    Args:
        name: name of the variable; upper and lower case differ.
        image: the image to copy. An empty image deletes the stored one.
            Storing the object that get_global_variable_img() returned under
            the same name changes nothing.

    Raises:
        Exception: "the object passed is not a vistrel.Image"

    Example:
        vistrel.set_global_variable_img("reference", image)
    """

def get_global_variable_img(name: str, /) -> Image | None:
    """Get the image that is stored under a name.

    The object shares the stored image, no copy is made: changed pixels are
    what the next reader sees. It becomes empty when another image is stored
    under the name; take new_copy() of what must last, above all before
    working with arrays: numpy.asarray(image.new_copy()).

    May be called on any thread.

    Args:
        name: name of the variable.

    Returns:
        the stored image, or None when there is none.

    Example:
        reference = vistrel.get_global_variable_img("reference")
        if reference is not None:
            image.subtract(reference)
    """

def set_global_variable_int(name: str, value: int, /) -> None:
    """Keep an integer for other scripts and later runs.

    May be called on any thread.

    Args:
        name: name of the variable; upper and lower case differ. Under an
            empty name nothing is stored.
        value: a number of 32 bits, with sign.

    Example:
        runs = max(vistrel.get_global_variable_int("runs"), 0)
        vistrel.set_global_variable_int("runs", runs + 1)
    """

def get_global_variable_int(name: str, /) -> int:
    """Get the integer that is stored under a name.

    May be called on any thread.

    Args:
        name: name of the variable.

    Returns:
        the number, or -1 when there is none.

    Example:
        if vistrel.get_global_variable_int("runs") == -1:
            print("this is the first run")
    """

def set_global_variable_string(name: str, value: str, /) -> None:
    """Keep a text for other scripts and later runs.

    May be called on any thread.

    Args:
        name: name of the variable; upper and lower case differ. Under an
            empty name nothing is stored.
        value: the text.

    Example:
        vistrel.set_global_variable_string("operator", "Kim")
    """

def get_global_variable_string(name: str, /) -> str:
    """Get the text that is stored under a name.

    May be called on any thread.

    Args:
        name: name of the variable.

    Returns:
        the text; empty when there is none.

    Example:
        print(vistrel.get_global_variable_string("operator") or "nobody")
    """

@final
class Camera:
    """A camera that is open in the host.

    A new object is bound to no camera; one of the open_device methods binds
    it. It owns nothing of the camera: the host opens and closes cameras, and
    several objects may be bound to one. str() of it names the camera and its
    serial number, or reads "camera(disconnected)".

    Use it on the main thread only.

    Every camera parameter is also an attribute that is called. The names are
    made of a prefix, the parameter's name and, for limits, an ending; here for
    a parameter "p":

        set_p(value)      set it; returns the status, as set_param() does
        enable_p()        set it to True
        disable_p()       set it to False
        get_p()           its value; is_p() is the same
        get_p_minimum()   its least value
        get_p_maximum()   its greatest value
        get_p_increment() the step between its values

    For example camera.set_exposure_time_us(10_000) and camera.get_gain_db().
    The parameters are those of the upper-case constants that every script
    finds (GAIN_DB is "gain_db"); names that only the camera itself knows go
    through set_param() and get_param().
    """

    # The names are the host's and the camera's: no list of them could be whole.
    if TYPE_CHECKING:
        def __getattr__(self, name: str) -> Callable[..., Any]: ...

    def open_device(self, index: int = 0, /) -> None:
        """Bind the object to an open camera by its position.

        When it fails the object stays bound to what it was bound to.

        Args:
            index: position among the open cameras, from 0, in the order in
                which they were opened; see get_number_devices().

        Raises:
            Exception: "Camera not available"

        Example:
            camera = vistrel.Camera()
            camera.open_device()
            print(camera)
        """

    def open_device_by_user_id(self, user_id: str, /) -> None:
        """Bind the object to the open camera with a user id.

        When several cameras have it, the one opened first is taken. When it
        fails the object stays bound to what it was bound to.

        Args:
            user_id: the name that a user gave the camera; upper and lower
                case are the same.

        Raises:
            Exception: "Camera not found"

        Example:
            try:
                camera.open_device_by_user_id("top view")
            except Exception:
                camera.open_device(0)
        """

    def open_device_by_SN(self, sn: str, /) -> None:
        """Bind the object to the open camera with a serial number.

        When it fails the object stays bound to what it was bound to.

        Args:
            sn: the serial number; upper and lower case are the same.

        Raises:
            Exception: "Camera not found"

        Example:
            serial = camera.get_device_info_string("device_sn")
            again = vistrel.Camera()
            again.open_device_by_SN(serial)
        """

    def open_device_by_path(self, path: str, /) -> None:
        """Bind the object to the open camera at a place of connection.

        When it fails the object stays bound to what it was bound to.

        Args:
            path: where the camera is connected, as the host names it; upper
                and lower case are the same.

        Raises:
            Exception: "Camera not found"

        Example:
            place = camera.get_device_info_string("device_inst_path")
            again = vistrel.Camera()
            again.open_device_by_path(place)
        """

    def close_device(self) -> None:
        """Release the object from its camera.

        The camera stays open in the host. An object that is bound to no
        camera may be closed too.

        Example:
            camera.close_device()
            print(camera)  # camera(disconnected)
        """

    def get_device_info_string(self, key: str, /) -> str:
        """Get a text that says who the camera is.

        Args:
            key: one of "device_name", "device_sn" (serial number),
                "device_user_id", "device_type" (kind of connection),
                "device_inst_path" (place of connection) and
                "device_model_id" (number of the model).

        Returns:
            the text; empty for every other key.

        Raises:
            SystemError: "returned NULL without setting an exception" when the
                object is bound to no open camera.

        Example:
            print(camera.get_device_info_string("device_sn"))
        """

    def set_param(self, name: str, value: int | float | str, /) -> int:
        """Set a parameter of the camera.

        Each parameter that has a constant is also an attribute that is
        called; for a parameter "p":

            set_p(value)  set it; returns the status
            enable_p()    set it to True
            disable_p()   set it to False

        A refused type or number is a SystemError there, with what is told below
        as its __cause__; on an object that is bound to no open camera nothing
        happens and the result is None.

        Args:
            name: the parameter: one of the names of the upper-case constants,
                for example EXPOSURE_TIME_US, or any name that the camera
                itself knows, for example "ExposureTimeAbs".
            value: what to set, in the parameter's unit.
                It is converted to the parameter's type: True and False go as
                1 and 0, floats lose their fraction where whole numbers are
                needed. Of an int the low 32 bits count. An enumeration with
                upper-case constants takes one of these numbers, for example
                IMAGE_DATA_FORMAT_RGB8. One of the camera's own, for example
                "PixelFormat", also takes an entry's name, as "RGB8". A text
                goes for a number where it reads as one, with a point, and for
                on and off where it reads "true", "false" or as a number; any
                other one is refused. A command is executed by 1.

        Returns:
            what the host says: 0 done, 1 no such parameter, 2 not such a
            value, 3 out of range, 4 not writable now or ever, 5 the camera
            does not answer, 6 refused for another reason. A value that is
            not taken leaves the camera as it is; the error log says why.

        Raises:
            Exception: "Unsupported camera parameter value type."
            OverflowError: an int of more than 64 bits.
            SystemError: "returned NULL without setting an exception" when the
                object is bound to no open camera.

        Example:
            if camera.set_param("exposure_time_us", 10_000) != 0:
                raise Exception("the camera does not take it")
            camera.set_exposure_time_us(10_000)  # the same as an attribute
        """

    def get_param(self, name: str, /) -> int | float | bool | str | None:
        """Get a parameter of the camera, its limits or its increment.

        Each parameter that has a constant is also an attribute that is
        called; for a parameter "p":

            get_p()            its value; is_p() is the same
            get_p_minimum()    its least value
            get_p_maximum()    its greatest value
            get_p_increment()  the step between its values

        A parameter that the camera lacks is a SystemError there, with the
        Exception below as its __cause__; on an object that is bound to no open
        camera the result is None.

        Besides parameters there are texts that say who the camera is:
        "device_sn", "device_inst_path", "device_type", "device_name" and
        "device_user_id". The model's number is to be had from
        get_device_info_string() alone; "device_model_id" reads 0 here.

        Args:
            name: the parameter, as for set_param(). The endings ":min",
                ":max" and ":inc" ask for the least and greatest value and
                the step between values; ":unit" for the unit, ":entries" for
                what an enumeration takes, ":type" for the kind of the
                camera's own feature. The features are listed by
                "Root:entries" and by the entries of each category in it.

        Returns:
            the value, in the parameter's unit.
            Its type is that of the parameter; None when there is no value,
            for example no limit. A camera that knows gain_db or black_level in
            raw steps only gives these, and no unit: "gain_db:unit" is None.

        Raises:
            Exception: "Parameter not supported by the camera."
            SystemError: "returned NULL without setting an exception" when the
                object is bound to no open camera.

        Example:
            print(camera.get_param("exposure_time_us:max"))
            print(camera.get_exposure_time_us_maximum())  # the same
        """

    def set_roi(self, x: int, y: int, width: int, height: int, /) -> None:
        """Set the region of interest: the part of the sensor that is read.

        Where the camera counts in steps, the region grows to the least one
        that holds what is asked for; get_roi() tells what became of it. A
        region that reaches past the sensor changes nothing; the error log
        says so. A running stream goes on with the new region.

        Args:
            x: left edge, in pixels of the sensor.
            y: upper edge, in pixels of the sensor.
            width: in pixels.
            height: in pixels.

        Raises:
            SystemError: "returned NULL without setting an exception" when the
                object is bound to no open camera.

        Example:
            roi = camera.get_roi()
            camera.set_roi(0, 0, 256, 256)
            camera.set_roi(*roi)  # as it was
        """

    def get_roi(self) -> tuple[int, int, int, int]:
        """Get the region of interest: the part of the sensor that is read.

        Returns:
            x, y, width and height, in pixels of the sensor.

        Raises:
            SystemError: "returned NULL without setting an exception" when the
                object is bound to no open camera.

        Example:
            x, y, width, height = camera.get_roi()
        """

    def start_acquisition(self) -> int:
        """Start the camera's live stream and activate the view that shows it.

        The host opens a view when the camera has none yet. Follow the stream
        with wait_for_next_frame() and get_view_image().

        Returns:
            the id of the view, or -1 when the camera does not start or the
            object is bound to no open camera.

        Example:
            view = camera.start_acquisition()
            if vistrel.wait_for_next_frame(30.0, view):
                image = vistrel.get_view_image(view)
        """

    def stop_acquisition(self) -> None:
        """Stop the camera's live stream.

        The view stays open on the last frame. Nothing happens when the camera
        does not stream or the object is bound to no open camera.

        Example:
            camera.stop_acquisition()
            image = vistrel.get_view_image(view)  # the last frame
        """

    def save_settings_to_file(self, path: str, /) -> None:
        """Save all parameters of the camera to a settings file.

        The file is JSON. One that is there is replaced as a whole or stays.
        What the camera has several times, such as a gain for each entry of
        "GainSelector", is saved for each; long tables, only at the entry
        where their selector stands.
        A failed write is not reported to the script; the error log says why.

        Args:
            path: the file; a relative path starts at the folder that the host
                resolves script paths against.

        Raises:
            SystemError: "returned NULL without setting an exception" when the
                object is bound to no open camera.

        Example:
            camera.save_settings_to_file("settings.json")
        """

    def load_settings_from_file(self, path: str, /) -> None:
        """Set the camera's parameters from a settings file.

        What cannot be read or set is not reported to the script; the error
        log says what and why. A file that is not whole, or of another camera
        model, changes nothing.

        Args:
            path: the file; resolved like that of save_settings_to_file().

        Raises:
            SystemError: "returned NULL without setting an exception" when the
                object is bound to no open camera.

        Example:
            camera.save_settings_to_file("before.json")
            camera.set_exposure_time_us(500)
            camera.load_settings_from_file("before.json")
        """

    def ask_user_capture_image(
        self, title: str = "", message: str = "", value: int = -1, /
    ) -> int:
        """Let the user take one image and show it in a new view.

        Opens a dialog with the camera's live image, as the camera's view
        shows it when there is one, processing elements included; the script
        goes on when the user has closed it.

        Args:
            title: of dialog and view; empty stands for "Capture Image".
            message: what the dialog tells the user; an empty text asks to
                get the image right and press the button.
            value: 0 or more: the image is also taken by itself, that many
                seconds after the dialog has shown the first one; negative or
                not given: by the button only.

        Returns:
            the id of the new view, or -1 when the user cancelled or no image
            could be taken.

        Example:
            taken = camera.ask_user_capture_image("Part", "Put it in place.")
            if taken != -1:
                image = vistrel.get_view_image(taken)
        """

    def restart_with_default_settings(self) -> bool:
        """Restart the camera with the settings that it came with.

        The camera is closed and opened anew; the host handles its events
        meanwhile. The object is bound to the restarted camera, which is
        recognised by its serial number; other objects that were bound to it
        are not, they have to open it again.

        Returns:
            True when the camera is back; it takes one second at least. False
            when it was not back after 30.5 seconds, or the object is bound to
            no open camera.

        Example:
            if not camera.restart_with_default_settings():
                raise Exception("the camera did not come back")
        """

@final
class Graph:
    """A line chart, drawn into an image or copied to the clipboard.

    A new graph has no series, a white background, black axes and a light grey
    grid; both axes fit the data. Series and points can be added, never removed:
    for a new chart make a new Graph. Calls with a wrong index do nothing.
    """

    def add_series(self) -> int:
        """Add a series without points.

        Its colour is the next one of red, blue, green, cyan, magenta, yellow,
        then the dark tones of the same six, then red again.

        Returns:
            the index of the new series, from 0.

        Raises:
            Exception: "Graph object is empty" when __init__ never ran.

        Example:
            graph = vistrel.Graph()
            series = graph.add_series()
            for x in range(100):
                graph.series_add_point(series, x, x * x)
            image = vistrel.Image()
            image.alloc(800, 600, 4, 8)
            graph.draw_into_image(image)
            image.save_to_file("parabola.png")
        """

    def series_add_point(self, series: int, x: float, y: float, /) -> None:
        """Add a point to a series.

        Points may come in any order: the chart's line goes through them from
        the smallest x to the largest. A point whose x is not finite is not
        drawn, one whose y is not finite leaves a gap in the line.

        Args:
            series: index of the series, from 0; with another one nothing
                happens.
            x: position along the x axis, in the unit of the axis.
            y: position along the y axis, in the unit of the axis.

        Raises:
            Exception: "Graph object is empty" when __init__ never ran.

        Example:
            for x in range(10):
                graph.series_add_point(series, x, x * x)
        """

    def series_set_line_color(
        self, series: int, red: int, green: int, blue: int, alpha: int = 255, /
    ) -> None:
        """Set the colour of a series' line.

        Args:
            series: index of the series, from 0; with another one nothing
                happens.
            red: 0 to 255. With a part outside of it the colour is invalid and
                is drawn black.
            green: 0 to 255.
            blue: 0 to 255.
            alpha: accepted and ignored: colours are always opaque.

        Raises:
            Exception: "Graph object is empty" when __init__ never ran.

        Example:
            graph.series_set_line_color(series, 255, 128, 0)  # orange
        """

    def get_series_count(self) -> int:
        """Get the number of series.

        Returns:
            the number of series that were added.

        Raises:
            Exception: "Graph object is empty" when __init__ never ran.

        Example:
            last = graph.get_series_count() - 1
        """

    def set_x_axis_range(self, minimum: float, maximum: float, /) -> None:
        """Set what the x axis shows, and stop fitting it to the data.

        Args:
            minimum: left end, in the unit of the points. The smaller of both
                ends is always on the left.
            maximum: right end. With a range that has no ticks (empty, not
                finite) the axis fits the data after all.

        Raises:
            Exception: "Graph object is empty" when __init__ never ran.

        Example:
            graph.set_x_axis_range(0, image.width - 1)
        """

    def set_x_axis_range_auto(self, on: bool, /) -> None:
        """Fit the x axis to the data, or show the range that was set.

        Args:
            on: True to fit the data. False takes the range of
                set_x_axis_range(), 0 to 256 when none was set. Any object
                goes; its truth value counts.

        Raises:
            Exception: "Graph object is empty" when __init__ never ran.

        Example:
            graph.set_x_axis_range_auto(True)
        """

    def set_y_axis_range(self, minimum: float, maximum: float, /) -> None:
        """Set what the y axis shows, and stop fitting it to the data.

        Args:
            minimum: lower end, in the unit of the points. The smaller of both
                ends is always at the bottom.
            maximum: upper end. With a range that has no ticks (empty, not
                finite) the axis fits the data after all.

        Raises:
            Exception: "Graph object is empty" when __init__ never ran.

        Example:
            graph.set_y_axis_range(0, 255)
        """

    def set_y_axis_range_auto(self, on: bool, /) -> None:
        """Fit the y axis to the data, or show the range that was set.

        Args:
            on: True to fit the data. False takes the range of
                set_y_axis_range(), 0 to 256 when none was set. Any object
                goes; its truth value counts.

        Raises:
            Exception: "Graph object is empty" when __init__ never ran.

        Example:
            graph.set_y_axis_range_auto(True)
        """

    def set_background_color(
        self, red: int, green: int, blue: int, alpha: int = 255, /
    ) -> None:
        """Set the colour behind the chart.

        Args:
            red: 0 to 255. With a part outside of it the colour is invalid and
                is drawn black.
            green: 0 to 255.
            blue: 0 to 255.
            alpha: accepted and ignored: colours are always opaque.

        Raises:
            Exception: "Graph object is empty" when __init__ never ran.

        Example:
            graph.set_background_color(255, 250, 230)
        """

    def set_axes_color(
        self, red: int, green: int, blue: int, alpha: int = 255, /
    ) -> None:
        """Set the colour of the axes, their ticks and the numbers beside them.

        Args:
            red: 0 to 255. With a part outside of it the colour is invalid and
                is drawn black.
            green: 0 to 255.
            blue: 0 to 255.
            alpha: accepted and ignored: colours are always opaque.

        Raises:
            Exception: "Graph object is empty" when __init__ never ran.

        Example:
            graph.set_axes_color(80, 80, 80)
        """

    def set_grid_color(
        self, red: int, green: int, blue: int, alpha: int = 255, /
    ) -> None:
        """Set the colour of the grid lines.

        Args:
            red: 0 to 255. With a part outside of it the colour is invalid and
                is drawn black.
            green: 0 to 255.
            blue: 0 to 255.
            alpha: accepted and ignored: colours are always opaque.

        Raises:
            Exception: "Graph object is empty" when __init__ never ran.

        Example:
            graph.set_grid_color(220, 220, 220)
        """

    def set_dark_color_theme(self, on: bool = True, /) -> None:
        """Switch background, axes and grid to dark colours, or back.

        The colours of series stay.

        Args:
            on: True for the dark colours, False for the ones of a new graph.
                Any object goes; its truth value counts.

        Raises:
            Exception: "Graph object is empty" when __init__ never ran.

        Example:
            graph.set_dark_color_theme()
        """

    def draw_into_image(self, image: Image, /) -> None:
        """Draw the chart over a whole image.

        The image keeps its size and format; all its pixels are painted over.
        Take one of 4 channels for right colours: in an image of 3 channels red
        and blue come out exchanged, a red line is drawn blue. Only for scripts
        on the GUI thread, which a run is on; threads that it starts are not.
        What lies more than 8388607 pixels to the right or down is not painted,
        and a line in the log says so.

        Args:
            image: 3 or 4 channels of 8 bits, as alloc() makes them.

        Raises:
            Exception: "Graph object is empty" when __init__ never ran.
            Exception: "the object passed is not a vistrel.Image"
            Exception: "Image must have RGB or RGBA format"
            Exception: "a graph is drawn and copied on the GUI thread only"
            Exception:
                "a graph cannot be drawn: the host has no user interface"
            SystemError: "returned NULL without setting an exception" when the
                image is empty.

        Example:
            chart = vistrel.Image()
            chart.alloc(800, 600, 4, 8)
            graph.draw_into_image(chart)
            vistrel.new_view_with_image(chart, "Chart")
        """

    def copy_series_data_to_clipboard(self, number: int, /) -> None:
        """Copy the points of a series to the clipboard, as a table of text.

        The first line is x, tab, y; then comes a line for each point, in the
        order added, with 16 significant digits. Spreadsheets take it as two
        columns. A clipboard that does not take the text is not reported.

        Args:
            number: which series, counted from 1, unlike everywhere else. With
                a number that no series has nothing happens.

        Raises:
            Exception: "Graph object is empty" when __init__ never ran.
            Exception: "a graph is drawn and copied on the GUI thread only"

        Example:
            graph.copy_series_data_to_clipboard(series + 1)
        """

@final
class Image:
    """A picture: pixels, frame numbers and how a camera took it.

    A new object is empty; alloc(), from_file() or from_array() fill it. str()
    of it tells geometry and pixel type; that of an empty object reads
    "Vistrel image object is empty".

    numpy.asarray(image) makes an array of it without copying pixels; the
    array's shape and its bounds are told at __array_interface__.

    Attributes can be read only. On an empty object they raise Exception
    "Vistrel image object is empty", and so do those of the camera record
    (exposure_time_us and its like) on a picture that came from no camera.
    """

    def __bytes__(self) -> bytes:
        """Copy the pixel memory.

        Lines follow each other from the top, each padded to the line stride:
        padding_x bytes at the end of a line are no pixels.

        Returns:
            bp_size bytes.

        Raises:
            Exception: "Vistrel image object is empty"

        Example:
            print(len(bytes(image)), "bytes")
        """

    def alloc(
        self, width: int, height: int, channels: int, bpc: int, /
    ) -> None:
        """Give the object a new black picture in the place of its old one.

        Values are unsigned and take 8 bits up to a bpc of 8, 16 bits up to
        16, else 32 bits. Pictures of 3 or 4 channels are marked as RGB. The
        old picture is freed, with the pixels under arrays that share it; when
        it fails the object keeps it.

        Args:
            width: pixels in a line, from 1.
            height: lines, from 1.
            channels: values in a pixel, from 1; 1 is mono, 3 or 4 colour.
            bpc: significant bits of a value (bits per channel), 1 to 32.

        Raises:
            Exception: "argument out of range"
            Exception: "number of bits out of range"
            Exception: "cannot allocate new image, out of memory"

        Example:
            image = vistrel.Image()
            image.alloc(640, 480, 1, 8)
        """

    def from_file(self, path: str, /) -> None:
        """Fill the object from an image file.

        The old picture is freed, with the pixels under arrays that share it.
        A file of a known format that cannot be read leaves the object empty
        without an error: str(image) shows it, the error log says why.

        Args:
            path: the file; a relative path starts at the folder that the host
                resolves script paths against.

        Raises:
            Exception: "cannot open file" when there is no such file or no
                format goes by its name; the object then keeps its picture.

        Example:
            image.save_to_file("part.png")
            again = vistrel.Image()
            again.from_file("part.png")
        """

    def from_array(self, source: object, /) -> None:
        """Fill the object from a nested list or from another object's pixels.

        Arrays: anything with __array_interface__. The shape is read as
        (height, width, channels), missing ones are 1; note that images export
        theirs width first. Strides are read as (pixel, line, channel), which
        does not go with the shape: pass numpy.ascontiguousarray(array), whose
        strides are None. The byte order is ignored. An image as source goes
        through the same reading, which only suits square ones; where it would
        read outside the picture it is refused.

        Lists: lines; lines of values; or lines of pixels of values. The first
        of each tells the width and the channels, the innermost first value
        the type: 16 bits for int, 32-bit float for float. Values of another
        kind are left out, what lies beyond the first line's size is ignored.
        A list fills the picture and still raises SystemError, chained to the
        AttributeError of the missing __array_interface__: catch it.

        Pixels are stored in the smallest type that holds them: 8 bits when
        none is above 255 (signed: 256), else 16 or 32 bits; doubles as
        floats. Three channels of 8 or 16 bits are marked as RGB. The old
        picture is freed, with the pixels under arrays that share it; when
        the source is refused the object keeps it.

        Args:
            source: a list, or an object with __array_interface__.

        Raises:
            Exception: "object passed doesn't support neither buffer "
                "protocol, nor __array_interface__, and is not list."
            Exception: "No shape provided in __array_interface__", and so for
                typestr and data.
            Exception: "unsupported shape in __array_interface__", and so for
                data type and strides.
            Exception: "Data in __array_interface__ not as tuple"
            Exception: "Null data provided in __array_interface__"
            Exception: "the array reaches outside its memory"
            Exception: "list passed is empty"
            Exception: "array rows are empty"
            Exception: "array channels are empty"
            Exception: "unsupported data type"
            Exception: "Cannot allocate image"
            SystemError: "returned a result with an exception set" for every
                list that is taken.
            SystemError: "returned NULL without setting an exception" when
                __array_interface__ is no dict.

        Example:
            pixels = numpy.zeros((480, 640), numpy.uint8)
            pixels[:, 320] = 255
            image = vistrel.Image()
            image.from_array(pixels)
        """

    def get_width(self) -> int:
        """Get the number of pixels in a line.

        Returns:
            the width in pixels.

        Raises:
            SystemError: "returned NULL without setting an exception" when the
                object is empty.

        Example:
            middle = image.get_width() // 2
        """

    def get_height(self) -> int:
        """Get the number of lines.

        Returns:
            the height in pixels.

        Raises:
            SystemError: "returned NULL without setting an exception" when the
                object is empty.

        Example:
            middle = image.get_height() // 2
        """

    def get_channels(self) -> int:
        """Get the number of values in a pixel.

        Returns:
            1 for mono, 3 or 4 for colour.

        Raises:
            SystemError: "returned NULL without setting an exception" when the
                object is empty.

        Example:
            if image.get_channels() == 1:
                print("mono")
        """

    def get_bpc(self) -> int:
        """Get the number of significant bits of a value (bits per channel).

        It may be less than a value takes in memory: 12 in 16 bits.

        Returns:
            the number of bits.

        Raises:
            SystemError: "returned NULL without setting an exception" when the
                object is empty.

        Example:
            white = 2 ** image.get_bpc() - 1
        """

    def get_frame_number(self) -> int:
        """Get the frame's number within the host's stream.

        Returns:
            the number, from 0.

        Raises:
            SystemError: "returned NULL without setting an exception" when the
                object is empty.

        Example:
            print("frame", image.get_frame_number())
        """

    def get_time_stamp(self) -> int:
        """Get the time at which the frame was taken.

        Returns:
            microseconds on the camera's clock.

        Raises:
            SystemError: "returned NULL without setting an exception" when the
                object is empty.

        Example:
            vistrel.wait_for_next_frame(30.0, view)
            later = vistrel.get_view_image(view)
            print(later.get_time_stamp() - image.get_time_stamp(), "us")
        """

    def get_image_data_raw(self) -> bytes:
        """Copy the pixel memory; the same as bytes(image).

        Padding at the end of lines is part of it, see padding_x.

        Returns:
            bp_size bytes.

        Raises:
            Exception: "Vistrel image object is empty"

        Example:
            with open("pixels.raw", "wb") as file:
                file.write(image.get_image_data_raw())
        """

    def get_image_data_numpy(self, keep_order: bool = False, /) -> Image:
        """Get an image whose channels are in the order that OpenCV expects.

        It makes no array: hand the result to numpy.asarray(). A picture that
        is marked as RGB comes back as a copy with red and blue exchanged, so
        that its channels are blue, green, red. Any other picture comes back
        as the object itself, which shares its pixels.

        Args:
            keep_order: True leaves the order of channels as it is and always
                gives the object itself.

        Returns:
            a new image, or the object itself.

        Raises:
            Exception: "Cannot allocate image"
            SystemError: "returned NULL without setting an exception" when the
                object is empty.

        Example:
            pixels = numpy.asarray(image.get_image_data_numpy()).T
        """

    def get_bytes_per_pixel(self) -> int:
        """Get the number of bytes that a pixel takes in memory.

        Returns:
            the bytes of all channels together.

        Raises:
            SystemError: "returned NULL without setting an exception" when the
                object is empty.

        Example:
            line_bytes = image.width * image.get_bytes_per_pixel()
        """

    def get_pixel_value(self, x: int, y: int, channel: int = 0, /) -> int:
        """Get one channel value of a pixel.

        Values of pictures that are neither unsigned 8-bit or 16-bit nor
        32-bit integers are always read as 0.

        Args:
            x: the pixel within its line, from 0.
            y: the line, from 0 at the top.
            channel: the channel, from 0.

        Returns:
            the value.

        Raises:
            Exception: "x-coordinate out of range"
            Exception: "y-coordinate out of range"
            Exception: "channel number out of range"
            SystemError: "returned NULL without setting an exception" when the
                object is empty.

        Example:
            print(image.get_pixel_value(10, 20))  # column 10, line 20
        """

    def set_pixel_value(
        self, value: int, x: int, y: int, channel: int = 0, /,
    ) -> None:
        """Set one channel value of a pixel.

        The value is cut to the bits that it takes in memory: 300 in an 8-bit
        picture becomes 44. Pictures that are neither unsigned 8-bit or 16-bit
        nor 32-bit integers are left as they are, without an error.

        Args:
            value: the new value.
            x: the pixel within its line, from 0.
            y: the line, from 0 at the top.
            channel: the channel, from 0.

        Raises:
            Exception: "x-coordinate out of range"
            Exception: "y-coordinate out of range"
            Exception: "channel number out of range"
            SystemError: "returned NULL without setting an exception" when the
                object is empty.

        Example:
            image.set_pixel_value(255, 10, 20)  # column 10, line 20
        """

    def draw_pixel_line(
        self, value: int, x1: int, y1: int, x2: int, y2: int,
        channel: int = 0, /,
    ) -> None:
        """Draw a line one pixel wide.

        Both ends are drawn. Values are cut, and types left out, as
        set_pixel_value() does.

        Args:
            value: the new value.
            x1: end one, within its line.
            y1: end one, its line.
            x2: end two, within its line.
            y2: end two, its line.
            channel: the channel that is set; others stay as they are.

        Raises:
            Exception: "x1-coordinate out of range", and so for y1, x2 and y2;
                nothing is drawn then.
            Exception: "channel number out of range"
            SystemError: "returned NULL without setting an exception" when the
                object is empty.

        Example:
            right, bottom = image.width - 1, image.height - 1
            image.draw_pixel_line(255, 0, 0, right, bottom)
        """

    def draw_pixel_rect(
        self, value: int, x1: int, y1: int, x2: int, y2: int,
        channel: int = 0, /,
    ) -> None:
        """Draw the outline of a rectangle one pixel wide.

        Any two opposite corners will do. Values are cut, and types left out,
        as set_pixel_value() does.

        Args:
            value: the new value.
            x1: corner one, within its line.
            y1: corner one, its line.
            x2: corner two, within its line.
            y2: corner two, its line.
            channel: the channel that is set; others stay as they are.

        Raises:
            Exception: "x1-coordinate out of range", and so for y1, x2 and y2;
                nothing is drawn then.
            Exception: "channel number out of range"
            SystemError: "returned NULL without setting an exception" when the
                object is empty.

        Example:
            image.draw_pixel_rect(255, 10, 10, 100, 60)
        """

    def save_to_file(self, path: str, /) -> None:
        """Save the picture to a file.

        The ending of the name chooses the format. Missing folders are made,
        an existing file is replaced. A failed write is not reported to the
        script; the error log says why.

        Args:
            path: the file; resolved like that of from_file().

        Raises:
            SystemError: "returned NULL without setting an exception" when the
                object is empty or no format goes by the name's ending.

        Example:
            image.save_to_file("results/part.png")
        """

    def to_rgb(self) -> Image:
        """Convert to 8-bit red, green, blue, alpha.

        Returns:
            a new image of the same size with 4 channels.

        Raises:
            Exception: "cannot allocate new image, out of memory"
            SystemError: "returned NULL without setting an exception" when the
                object is empty.

        Example:
            colour = image.to_rgb()
            colour.draw_pixel_line(255, 0, 9, 99, 9, 0)  # red is channel 0
        """

    def extract_channel(self, channel: int, /) -> Image:
        """Copy one channel.

        Args:
            channel: the channel, from 0.

        Returns:
            a new image with 1 channel of the same size and type.

        Raises:
            Exception: "channel number out of range"
            Exception: "cannot allocate new image, out of memory"
            SystemError: "returned NULL without setting an exception" when the
                object is empty.

        Example:
            red = image.to_rgb().extract_channel(0)
        """

    def convert_bpc(self, bpc: int, scale: bool = True, /) -> Image:
        """Convert to another number of significant bits.

        Values of the result are unsigned and take 8 bits up to a bpc of 8,
        16 bits up to 16, else 32 bits.

        Args:
            bpc: significant bits of a value (bits per channel), 1 to 32.
            scale: True scales values, so that full scale stays full scale;
                False keeps them.

        Returns:
            a new image of the same size.

        Raises:
            Exception: "number of bits out of range"
            Exception: "new image contained values over max bpc"
            Exception: "cannot allocate new image, out of memory"
            SystemError: "returned NULL without setting an exception" when the
                object is empty.

        Example:
            deep = image.convert_bpc(16)
        """

    def new_copy(self) -> Image:
        """Make an independent copy.

        Returns:
            a new image with pixels, frame numbers and camera record.

        Raises:
            Exception: "cannot allocate new image, out of memory"
            SystemError: "returned NULL without setting an exception" when the
                object is empty.

        Example:
            before = image.new_copy()
            image.divide_by_value(2)
        """

    def crop(self, x: int, y: int, w: int, h: int, /) -> Image:
        """Copy a rectangle.

        What lies outside the picture stays black.

        Args:
            x: left edge.
            y: top edge.
            w: width, from 1.
            h: height, from 1.

        Returns:
            a new image of w x h pixels of the same type.

        Raises:
            Exception: "cannot allocate new image, out of memory", also for a
                width or height below 1.
            SystemError: "returned NULL without setting an exception" when the
                object is empty.

        Example:
            part = image.crop(100, 50, 200, 100)
        """

    def resize(
        self, new_w: int, new_h: int,
        x: int = 0, y: int = 0, w: int = 1, h: int = 1, /,
    ) -> Image:
        """Scale a rectangle to another size.

        By default the rectangle is the top-left pixel alone! The whole
        picture takes zeros: resize(new_w, new_h, 0, 0, 0, 0).

        Args:
            new_w: width of the result, from 1.
            new_h: height of the result, from 1.
            x: left edge of the rectangle.
            y: top edge of the rectangle.
            w: its width; 0 is the picture's width.
            h: its height; 0 is the picture's height.

        Returns:
            a new image of new_w x new_h pixels of the same type.

        Raises:
            Exception: "cannot allocate new image, out of memory", also for a
                new width or height below 1.
            SystemError: "returned NULL without setting an exception" when the
                object is empty.

        Example:
            small = image.resize(128, 128, 0, 0, 0, 0)
        """

    def copy_to(self, target: Image, /) -> None:
        """Copy the pixels into another image of the same size and type.

        An image that differs stays as it is, without an error.

        Args:
            target: the image that is written to.

        Raises:
            Exception: "the object passed is not a vistrel.Image"
            SystemError: "returned NULL without setting an exception" when one
                of the two objects is empty.

        Example:
            target = vistrel.Image()
            target.alloc(image.width, image.height, image.channels, image.bpc)
            image.copy_to(target)
        """

    def copy_rect_to(
        self, x: int, y: int, w: int, h: int,
        target: Image, target_x: int, target_y: int, /,
    ) -> None:
        """Copy a rectangle into another image of the same type.

        What lies outside one of the two pictures is left out. An image of
        another type stays as it is, without an error.

        Args:
            x: left edge.
            y: top edge.
            w: width.
            h: height.
            target: the image that is written to.
            target_x: left edge within the target.
            target_y: top edge within the target.

        Raises:
            Exception: "the object passed is not a vistrel.Image"
            SystemError: "returned NULL without setting an exception" when one
                of the two objects is empty.

        Example:
            target = vistrel.Image()
            target.alloc(256, 128, image.channels, image.bpc)
            image.copy_rect_to(0, 0, 128, 128, target, 0, 0)
        """

    def resize_to(self, target: Image, /) -> None:
        """Scale the whole picture into another image, which keeps its size.

        An image of another type stays as it is, without an error.

        Args:
            target: the image that is written to.

        Raises:
            Exception: "the object passed is not a vistrel.Image"
            SystemError: "returned NULL without setting an exception" when one
                of the two objects is empty.

        Example:
            small = vistrel.Image()
            small.alloc(160, 120, image.channels, image.bpc)
            image.resize_to(small)
        """

    def tesize_rect_to(
        self, x: int, y: int, w: int, h: int,
        target: Image, target_x: int, target_y: int,
        target_w: int, target_h: int, /,
    ) -> None:
        """Scale a rectangle into a rectangle of another image.

        The name is spelt so. An image of another type stays as it is,
        without an error.

        Args:
            x: left edge.
            y: top edge.
            w: width.
            h: height.
            target: the image that is written to.
            target_x: left edge within the target.
            target_y: top edge within the target.
            target_w: width within the target.
            target_h: height within the target.

        Raises:
            Exception: "the object passed is not a vistrel.Image"
            SystemError: "returned NULL without setting an exception" when one
                of the two objects is empty.

        Example:
            target = vistrel.Image()
            target.alloc(256, 128, image.channels, image.bpc)
            image.tesize_rect_to(0, 0, 64, 64, target, 128, 0, 128, 128)
        """

    def add(self, other: Image, /) -> None:
        """Add another image of the same size and type to the own pixels.

        Sums end at the largest value of the significant bits. With an image
        that differs nothing changes, without an error.

        Args:
            other: the image that is added.

        Raises:
            Exception: "the object passed is not a vistrel.Image"
            SystemError: "returned NULL without setting an exception" when one
                of the two objects is empty.

        Example:
            double = image.new_copy()
            double.add(image)
        """

    def subtract(self, other: Image, /) -> None:
        """Subtract another image of the same size and type from the own pixels.

        Differences of unsigned values end at 0. With an image that differs
        nothing changes, without an error.

        Args:
            other: the image that is subtracted.

        Raises:
            Exception: "the object passed is not a vistrel.Image"
            SystemError: "returned NULL without setting an exception" when one
                of the two objects is empty.

        Example:
            vistrel.wait_for_next_frame(30.0, view)
            motion = vistrel.get_view_image(view)
            motion.subtract(image)
        """

    def divide_by_value(self, divisor: int, /) -> None:
        """Divide every value of the own pixels.

        Args:
            divisor: the number; with 0 nothing changes, without an error.

        Raises:
            SystemError: "returned NULL without setting an exception" when the
                object is empty.

        Example:
            image.divide_by_value(2)
        """

    def measure_rect(
        self, x: int = 0, y: int = 0, w: int = 0, h: int = 0,
        split_raw_colors: bool = False, /,
    ) -> list[dict[str, Any]]:
        """Measure statistics of a rectangle; by default of the whole picture.

        The dict of a channel has the keys "name", the channel's name, and
        "mean", "stdev", "variance", "rms", "min", "max", all floats; stdev is
        that of the population. The part outside the picture is left out.

        Args:
            x: left edge.
            y: top edge.
            w: width; below 1 the rectangle reaches to the right edge.
            h: height; below 1 it reaches to the bottom edge.
            split_raw_colors: True takes the positions of the colour filter of
                raw pictures as channels of their own.

        Returns:
            a dict for each channel.

        Raises:
            Exception: "Cannot measure data" when no pixel lies within.
            SystemError: "returned NULL without setting an exception" when the
                object is empty.

        Example:
            for channel in image.measure_rect(100, 100, 50, 50):
                print(channel["name"], channel["mean"], channel["stdev"])
        """

    def measure_row_profiles_in_rect(
        self, x: int = 0, y: int = 0, w: int = 0, h: int = 0, /,
    ) -> list[list[dict[str, Any]]]:
        """Measure statistics of every line of a rectangle.

        The dicts are those of measure_rect().

        Args:
            x: left edge.
            y: top edge.
            w: width; below 1 the rectangle reaches to the right edge.
            h: height; below 1 it reaches to the bottom edge.

        Returns:
            top to bottom, each a list with
                a dict for each channel.

        Raises:
            Exception: "Cannot measure profile data" when no pixel lies within.
            SystemError: "returned NULL without setting an exception" when the
                object is empty.

        Example:
            rows = image.measure_row_profiles_in_rect()
            brightness = [channels[0]["mean"] for channels in rows]
        """

    def measure_column_profiles_in_rect(
        self, x: int = 0, y: int = 0, w: int = 0, h: int = 0, /,
    ) -> list[list[dict[str, Any]]]:
        """Measure statistics of every column of a rectangle.

        The dicts are those of measure_rect().

        Args:
            x: left edge.
            y: top edge.
            w: width; below 1 the rectangle reaches to the right edge.
            h: height; below 1 it reaches to the bottom edge.

        Returns:
            left to right, each a list with
                a dict for each channel.

        Raises:
            Exception: "Cannot measure profile data" when no pixel lies within.
            SystemError: "returned NULL without setting an exception" when the
                object is empty.

        Example:
            columns = image.measure_column_profiles_in_rect(0, 100, 0, 32)
            brightness = [channels[0]["mean"] for channels in columns]
        """

    width: Final[int]
    """Pixels in a line.

    Example:
        print(image.width * image.height, "pixels")
    """
    height: Final[int]
    """Lines.

    Example:
        last_line = image.height - 1
    """
    bpc: Final[int]
    """Significant bits of a value (bits per channel).

    Example:
        white = 2 ** image.bpc - 1
    """
    channels: Final[int]
    """Values in a pixel.

    Example:
        is_colour = image.channels >= 3
    """
    frame_number: Final[int]
    """Number of the frame within the host's stream, from 0.

    Example:
        print("frame", image.frame_number)
    """
    nframe: Final[int]
    """The same as frame_number.

    Example:
        assert image.nframe == image.frame_number
    """
    acq_nframe: Final[int]
    """Number that the camera gave the frame.

    Example:
        vistrel.wait_for_next_frame(30.0, view)
        later = vistrel.get_view_image(view)
        lost = later.acq_nframe - image.acq_nframe - 1
    """
    time_stamp: Final[int]
    """Microseconds on the camera's clock.

    Example:
        print(image.time_stamp / 1e6, "seconds")
    """
    tsSec: Final[int]
    """Whole seconds of time_stamp.

    Example:
        print(f"{image.tsSec}.{image.tsUSec:06} seconds")
    """
    tsUSec: Final[int]
    """Microseconds of time_stamp beyond its whole seconds, 0 to 999999.

    Example:
        assert image.time_stamp == image.tsSec * 1_000_000 + image.tsUSec
    """
    rgb: Final[bool]
    """Whether channels are marked as red, green, blue; else blue comes first.

    It says something about pictures of 3 or 4 channels only.

    Example:
        red = 0 if image.to_rgb().rgb else 2  # the channel
    """
    size: Final[int]
    """Always 312, whatever the picture; see bp_size for the pixels' bytes.

    Example:
        assert image.size == 312
    """
    bp: Final[int]
    """Address of the first pixel, for example for ctypes.

    It holds until the object is filled anew or goes away.

    Example:
        import ctypes
        first = ctypes.c_uint8.from_address(image.bp).value
    """
    bp_size: Final[int]
    """Bytes of the pixel memory, padding at the end of lines included.

    Example:
        assert len(bytes(image)) == image.bp_size
    """
    frm: Final[int]
    """Code of the pixel layout.

    0 unknown; 1 mono of up to 8 bits, 2 up to 16 bits; 3 colour of up to 8
    bits, 4 up to 16 bits; 5 colour with alpha of up to 8 bits, 6 up to 16
    bits; 7 packed 5-6-5; 8 mono of 32 bits; 9 floating point; 10 raw data with
    a colour filter of up to 8 bits, 11 up to 16 bits.

    Example:
        if image.frm in (10, 11):
            print("raw data with a colour filter")
    """
    black_level: Final[int]
    """Value of a black pixel.

    Example:
        dark = image.black_level
    """
    padding_x: Final[int]
    """Bytes at the end of each line that are no pixels.

    Example:
        stride = image.width * image.get_bytes_per_pixel() + image.padding_x
    """
    AbsoluteOffsetX: Final[int]
    """Always 0.

    Example:
        assert image.AbsoluteOffsetX == 0
    """
    AbsoluteOffsetY: Final[int]
    """Always 0.

    Example:
        assert image.AbsoluteOffsetY == 0
    """
    transport_frm: Final[int]
    """Camera record: pixel format on the wire, as a GenICam PFNC code.

    Example:
        if image.transport_frm == 0x01080001:
            print("Mono8 on the wire")
    """
    exposure_time_us: Final[int]
    """Camera record: exposure time in microseconds.

    Example:
        print(image.exposure_time_us / 1000, "ms")
    """
    gain_db: Final[float]
    """Camera record: gain in decibels; 0.0 when the camera has raw steps.

    Example:
        factor = 10 ** (image.gain_db / 20)
    """
    data_saturation: Final[float]
    """Value of a saturated pixel.

    2 to the power of bpc minus 1 for integers (4095.0 for 12 bits), what came
    with the data for floating point.

    Example:
        share = image.measure_rect()[0]["max"] / image.data_saturation
    """
    wb_red: Final[float]
    """Camera record: white balance coefficient of red.

    Example:
        print(image.wb_red, image.wb_green, image.wb_blue)
    """
    wb_green: Final[float]
    """Camera record: white balance coefficient of green.

    Example:
        print(image.wb_red / image.wb_green)
    """
    wb_blue: Final[float]
    """Camera record: white balance coefficient of blue.

    Example:
        print(image.wb_blue / image.wb_green)
    """
    color_filter_array: Final[int]
    """Camera record: colour filter; 0 none, 1 RGGB, 2 GRBG, 3 GBRG, 4 BGGR.

    Example:
        pattern = ("none", "RGGB", "GRBG", "GBRG", "BGGR")
        print(pattern[image.color_filter_array])
    """
    tof_phases_count: Final[int]
    """Camera record: phases of a time-of-flight frame.

    Example:
        print(image.tof_phase_id, "of", image.tof_phases_count)
    """
    tof_multiple_phases_in_buffer: Final[int]
    """Camera record: always 0.

    Example:
        assert image.tof_multiple_phases_in_buffer == 0
    """
    tof_phase_id: Final[int]
    """Camera record: which phase of a time-of-flight frame this is.

    Example:
        print(image.tof_phase_id, "of", image.tof_phases_count)
    """
    data_sign_mode: Final[int]
    """Kind of values: 0 unsigned, 1 signed, 2 floating point.

    Example:
        kind = ("unsigned", "signed", "floating point")
        print(kind[image.data_sign_mode])
    """
    __array_interface__: Final[dict[str, Any]]
    """Array interface, version 3, on the picture's own pixels.

    numpy.asarray(image) uses it: the array shares memory with the picture, so
    that writing to one changes the other. The shape is width first, (x, y) or
    (x, y, channel): the pixel in column x of line y is array[x, y]. For the
    usual order of lines and columns take numpy.asarray(image).T, for colour
    numpy.asarray(image).transpose(1, 0, 2).

    An array keeps the Image object alive, but not its pixels: filling the
    object anew (alloc(), from_file()) frees them under older arrays, and so
    does the host when it deletes a picture that the object only shares: a
    variable that the host has put in, or a shared variable of which another
    image takes the place. The object is empty then, an older array must not
    be used. Take numpy.asarray(image).copy() to keep values.

    Example:
        pixels = numpy.asarray(image).T  # lines, then columns
        pixels[0, :] = 255  # the first line becomes white
    """
    tobytes: Final[Callable[[], bytes]]
    """Copy the pixel memory; image.tobytes() is the same as bytes(image).

    Example:
        with open("pixels.raw", "wb") as file:
            file.write(image.tobytes())
    """

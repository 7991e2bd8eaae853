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
# - no quotation runs over the end of a line, so that the messages quoted under
#   "Raises:" can be searched for;
# - no line is longer than 80 columns, no text longer than 4000 characters.
# An attribute is `name: Final[type]`, followed by its doc text. A new class
# needs its host name in HELP_TYPES of generate_help.py.
"""The host application's views, images and cameras, for scripts.

The module is built in: it exists only in scripts that the host runs. Besides
it a script finds constants among its own names: each camera parameter's name
as an upper-case text, each value of an enumeration as an upper-case integer.

Wrong arguments raise what Python raises for built-in functions (TypeError,
OverflowError). Errors of the host are plain Exception objects with the
messages quoted below. Some failures have no message: Python then reports
SystemError, "returned NULL without setting an exception" ("an error" in the
place of "an exception" before Python 3.10).
"""

from typing import Any, Callable, Final, final

def get_number_devices() -> int:
    """Count the cameras that are open in the host.

    May be called on any thread.

    Returns:
        the number of cameras, also those that no Camera object is bound to.
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
    """

def get_active_view_id() -> int:
    """Get the id of the active view.

    Returns:
        the id, 0 or greater, or -1 when there is no view.

    Raises:
        Exception: "running GUI function from non-main thread"
    """

def activate_view(view_id: int = -1, /) -> None:
    """Make a view the active one.

    Args:
        view_id: id of the view; -1 and unknown ids change nothing.

    Raises:
        Exception: "running GUI function from non-main thread"
    """

def close_view(view_id: int = -1, /) -> None:
    """Close a view.

    Args:
        view_id: id of the view; -1 is the active view. An unknown id does
            nothing.

    Raises:
        Exception: "running GUI function from non-main thread"
    """

def tile_views() -> None:
    """Arrange all views side by side.

    Raises:
        Exception: "running GUI function from non-main thread"
    """

def switch_full_screen(on: bool, /) -> None:
    """Switch the main window to full screen or back.

    Args:
        on: True for full screen, False for a normal window. Any object goes;
            its truth value counts.

    Raises:
        Exception: "running GUI function from non-main thread"
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
    """

def wait(seconds: float, /) -> None:
    """Wait while the host keeps handling its events.

    In contrast to time.sleep() views stay alive and cameras go on streaming.

    Args:
        seconds: how long, in seconds.

    Raises:
        Exception: "running GUI function from non-main thread"
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
    """

@final
class Camera:
    """A camera that is open in the host.

    A new object is bound to no camera; one of the open_device methods binds
    it. It owns nothing of the camera: the host opens and closes cameras, and
    several objects may be bound to one. str() of it names the camera and its
    serial number, or reads "camera(disconnected)".

    Use it on the main thread only.
    """

    def open_device(self, index: int = 0, /) -> None:
        """Bind the object to an open camera by its position.

        When it fails the object stays bound to what it was bound to.

        Args:
            index: position among the open cameras, from 0, in the order in
                which they were opened; see get_number_devices().

        Raises:
            Exception: "Camera not available"
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
        """

    def open_device_by_SN(self, sn: str, /) -> None:
        """Bind the object to the open camera with a serial number.

        When it fails the object stays bound to what it was bound to.

        Args:
            sn: the serial number; upper and lower case are the same.

        Raises:
            Exception: "Camera not found"
        """

    def open_device_by_path(self, path: str, /) -> None:
        """Bind the object to the open camera at a place of connection.

        When it fails the object stays bound to what it was bound to.

        Args:
            path: where the camera is connected, as the host names it; upper
                and lower case are the same.

        Raises:
            Exception: "Camera not found"
        """

    def close_device(self) -> None:
        """Release the object from its camera.

        The camera stays open in the host. An object that is bound to no
        camera may be closed too.
        """

    def start_acquisition(self) -> int:
        """Start the camera's live stream and activate the view that shows it.

        The host opens a view when the camera has none yet. Follow the stream
        with wait_for_next_frame() and get_view_image().

        Returns:
            the id of the view, or -1 when the camera does not start or the
            object is bound to no open camera.
        """

    def stop_acquisition(self) -> None:
        """Stop the camera's live stream.

        The view stays open on the last frame. Nothing happens when the camera
        does not stream or the object is bound to no open camera.
        """

@final
class Image:
    """A picture: pixels, frame numbers and how a camera took it.

    A new object is empty; alloc() or from_file() fill it. str() of it tells
    geometry and pixel type, or reads "Vistrel image object is empty".

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
        """

    def get_width(self) -> int:
        """Get the number of pixels in a line.

        Returns:
            the width in pixels.

        Raises:
            SystemError: "returned NULL without setting an exception" when the
                object is empty.
        """

    def get_height(self) -> int:
        """Get the number of lines.

        Returns:
            the height in pixels.

        Raises:
            SystemError: "returned NULL without setting an exception" when the
                object is empty.
        """

    def get_channels(self) -> int:
        """Get the number of values in a pixel.

        Returns:
            1 for mono, 3 or 4 for colour.

        Raises:
            SystemError: "returned NULL without setting an exception" when the
                object is empty.
        """

    def get_bpc(self) -> int:
        """Get the number of significant bits of a value (bits per channel).

        It may be less than a value takes in memory: 12 in 16 bits.

        Returns:
            the number of bits.

        Raises:
            SystemError: "returned NULL without setting an exception" when the
                object is empty.
        """

    def get_frame_number(self) -> int:
        """Get the frame's number within the host's stream.

        Returns:
            the number, from 0.

        Raises:
            SystemError: "returned NULL without setting an exception" when the
                object is empty.
        """

    def get_time_stamp(self) -> int:
        """Get the time at which the frame was taken.

        Returns:
            microseconds on the camera's clock.

        Raises:
            SystemError: "returned NULL without setting an exception" when the
                object is empty.
        """

    def get_image_data_raw(self) -> bytes:
        """Copy the pixel memory; the same as bytes(image).

        Padding at the end of lines is part of it, see padding_x.

        Returns:
            bp_size bytes.

        Raises:
            Exception: "Vistrel image object is empty"
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
        """

    def get_bytes_per_pixel(self) -> int:
        """Get the number of bytes that a pixel takes in memory.

        Returns:
            the bytes of all channels together.

        Raises:
            SystemError: "returned NULL without setting an exception" when the
                object is empty.
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
        """

    def new_copy(self) -> Image:
        """Make an independent copy.

        Returns:
            a new image with pixels, frame numbers and camera record.

        Raises:
            Exception: "cannot allocate new image, out of memory"
            SystemError: "returned NULL without setting an exception" when the
                object is empty.
        """

    width: Final[int]
    """Pixels in a line."""
    height: Final[int]
    """Lines."""
    bpc: Final[int]
    """Significant bits of a value (bits per channel)."""
    channels: Final[int]
    """Values in a pixel."""
    frame_number: Final[int]
    """Number of the frame within the host's stream, from 0."""
    nframe: Final[int]
    """The same as frame_number."""
    acq_nframe: Final[int]
    """Number that the camera gave the frame."""
    time_stamp: Final[int]
    """Microseconds on the camera's clock."""
    tsSec: Final[int]
    """Whole seconds of time_stamp."""
    tsUSec: Final[int]
    """Microseconds of time_stamp beyond its whole seconds, 0 to 999999."""
    rgb: Final[bool]
    """Whether channels are marked as red, green, blue; else blue comes first.

    It says something about pictures of 3 or 4 channels only.
    """
    size: Final[int]
    """Always 312, whatever the picture; see bp_size for the pixels' bytes."""
    bp: Final[int]
    """Address of the first pixel, for example for ctypes.

    It holds until the object is filled anew or goes away.
    """
    bp_size: Final[int]
    """Bytes of the pixel memory, padding at the end of lines included."""
    frm: Final[int]
    """Code of the pixel layout.

    0 unknown; 1 mono of up to 8 bits, 2 up to 16 bits; 3 colour of up to 8
    bits, 4 up to 16 bits; 5 colour with alpha of up to 8 bits, 6 up to 16
    bits; 7 packed 5-6-5; 8 mono of 32 bits; 9 floating point; 10 raw data with
    a colour filter of up to 8 bits, 11 up to 16 bits.
    """
    black_level: Final[int]
    """Value of a black pixel."""
    padding_x: Final[int]
    """Bytes at the end of each line that are no pixels."""
    AbsoluteOffsetX: Final[int]
    """Always 0."""
    AbsoluteOffsetY: Final[int]
    """Always 0."""
    transport_frm: Final[int]
    """Camera record: pixel format on the wire, as a GenICam PFNC code."""
    exposure_time_us: Final[int]
    """Camera record: exposure time in microseconds."""
    gain_db: Final[float]
    """Camera record: gain in decibels."""
    data_saturation: Final[float]
    """Value of a saturated pixel.

    2 to the power of bpc minus 1 for integers (4095.0 for 12 bits), what came
    with the data for floating point.
    """
    wb_red: Final[float]
    """Camera record: white balance coefficient of red."""
    wb_green: Final[float]
    """Camera record: white balance coefficient of green."""
    wb_blue: Final[float]
    """Camera record: white balance coefficient of blue."""
    color_filter_array: Final[int]
    """Camera record: colour filter; 0 none, 1 RGGB, 2 GRBG, 3 GBRG, 4 BGGR."""
    tof_phases_count: Final[int]
    """Camera record: phases of a time-of-flight frame."""
    tof_multiple_phases_in_buffer: Final[int]
    """Camera record: always 0."""
    tof_phase_id: Final[int]
    """Camera record: which phase of a time-of-flight frame this is."""
    data_sign_mode: Final[int]
    """Kind of values: 0 unsigned, 1 signed, 2 floating point."""
    __array_interface__: Final[dict[str, Any]]
    """Array interface, version 3, on the picture's own pixels.

    numpy.asarray(image) uses it: the array shares memory with the picture, so
    that writing to one changes the other. The shape is width first, (x, y) or
    (x, y, channel): the pixel in column x of line y is array[x, y]. For the
    usual order of lines and columns take numpy.asarray(image).T, for colour
    numpy.asarray(image).transpose(1, 0, 2).

    An array keeps the Image object alive, but not its pixels: filling the
    object anew (alloc(), from_file()) frees them under older arrays. Take
    numpy.asarray(image).copy() to keep values.
    """
    tobytes: Final[Callable[[], bytes]]
    """Copy the pixel memory; image.tobytes() is the same as bytes(image)."""

# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The stub and the live module tell the same: names, order, signatures, texts.

Runs inside the host with a simulated camera. The stub's path is in
VISTREL_STUB.
"""

import ast
import builtins
import difflib
import inspect
import os
import re
import types

import vistrel

HOW_TO_UPDATE = """
Left (-) is host/help/vistrel.pyi, right (+) the module. A new function or
method needs an entry in the stub, at its place in the method table; a new
attribute one in the stub and one in the lists of this test."""

# The module cannot list an image's attributes, so that they are named here once more.
PICTURE_ATTRIBUTES = [
    "width",
    "height",
    "bpc",
    "channels",
    "frame_number",
    "nframe",
    "acq_nframe",
    "time_stamp",
    "tsSec",
    "tsUSec",
    "rgb",
    "size",
    "bp",
    "bp_size",
    "frm",
    "black_level",
    "padding_x",
    "AbsoluteOffsetX",
    "AbsoluteOffsetY",
    "data_saturation",
    "data_sign_mode",
    "__array_interface__",
    "tobytes",
]
# These are read from the frame's camera record, which only camera pictures have.
RECORD_ATTRIBUTES = [
    "transport_frm",
    "exposure_time_us",
    "gain_db",
    "wb_red",
    "wb_green",
    "wb_blue",
    "color_filter_array",
    "tof_phases_count",
    "tof_multiple_phases_in_buffer",
    "tof_phase_id",
]
EMPTY = "Vistrel image object is empty"


class Stub:
    """What the stub says about the module or one class."""

    def __init__(self, source, body):
        self.source = source
        self.functions = [node for node in body if isinstance(node, ast.FunctionDef)]
        self.attributes = [node for node in body if isinstance(node, ast.AnnAssign)]

    def signatures(self):
        return [node.name + self.signature(node) for node in self.functions]

    def texts(self):
        return [text for node in self.functions for text in (node.name, ast.get_docstring(node))]

    def result_type(self, name):
        (function,) = [node for node in self.functions if node.name == name]
        return self.written(function.returns)

    def attribute_types(self):
        return {
            node.target.id: re.fullmatch(r"Final\[(.*)\]", self.written(node.annotation)).group(1)
            for node in self.attributes
        }

    def argument_types(self, name):
        (function,) = [node for node in self.functions if node.name == name]
        arguments = function.args.posonlyargs
        return {arg.arg: self.written(arg.annotation) for arg in arguments if arg.annotation}

    def signature(self, node):
        """The signature without types, written as inspect writes it."""
        names = [arg.arg for arg in node.args.posonlyargs + node.args.args]
        defaults = [repr(ast.literal_eval(default)) for default in node.args.defaults]
        required = len(names) - len(defaults)
        words = names[:required] + list(map("=".join, zip(names[required:], defaults)))
        return f"({', '.join(words + ['/'] if words else [])})"

    def written(self, node):
        return ast.get_source_segment(self.source, node)


def read_stub():
    """The stub's parts under the names of the objects that they describe."""
    with open(os.environ["VISTREL_STUB"], encoding="utf-8") as file:
        source = file.read()
    tree = ast.parse(source)
    classes = [node for node in tree.body if isinstance(node, ast.ClassDef)]
    stubs = {"vistrel": Stub(source, tree.body)}
    stubs.update((f"vistrel.{node.name}", Stub(source, node.body)) for node in classes)
    return stubs


def live_objects():
    """The module and its classes, in the module's order."""
    members = vars(vistrel).items()
    classes = [value for name, value in members if isinstance(value, type) and name != "__loader__"]
    return {"vistrel": vistrel, **{f"vistrel.{value.__name__}": value for value in classes}}


def live_functions(owner):
    """What the owner's method table holds, in its order; slots of the type are no part of it."""
    kind = types.BuiltinFunctionType if owner is vistrel else types.MethodDescriptorType
    others = ("__new__", "__loader__")
    members = vars(owner).items()
    return [value for name, value in members if isinstance(value, kind) and name not in others]


def live_texts(owner, stub):
    """Names and texts, the types taken out again after a look at them."""
    texts = []
    for function in live_functions(owner):
        texts += [function.__name__, without_types(function, stub)]
    return texts


def without_types(function, stub):
    text = function.__doc__ or ""
    result = stub.result_type(function.__name__)
    for name, kind in stub.argument_types(function.__name__).items():
        text = taken_out(text, f"\n    {name} ({kind}): ", f"\n    {name}: ")
    if result != "None":
        text = taken_out(text, f"\nReturns:\n    {result}: ", "\nReturns:\n    ")
    return text


def taken_out(text, typed, untyped):
    assert text.count(typed) == 1, f"{typed!r} is not in the text\n{text}"
    return text.replace(typed, untyped)


def assert_same(what, stub_lines, live_lines):
    """Fail with a difference that says what to do."""
    if stub_lines == live_lines:
        return
    old, new = "\n".join(stub_lines).split("\n"), "\n".join(live_lines).split("\n")
    difference = difflib.unified_diff(old, new, "stub", "module", lineterm="")
    raise AssertionError("\n".join([what, *difference, HOW_TO_UPDATE]))


def compare_functions(name, owner, stub):
    functions = live_functions(owner)
    live_names = [function.__name__ for function in functions]
    assert_same(f"functions of {name}", [node.name for node in stub.functions], live_names)
    signatures = [function.__name__ + str(inspect.signature(function)) for function in functions]
    assert_same(f"signatures of {name}", stub.signatures(), signatures)
    assert_same(f"help texts of {name}", stub.texts(), live_texts(owner, stub))


def camera_image():
    """A frame of the simulated camera."""
    camera = vistrel.Camera()
    camera.open_device()
    view_id = camera.start_acquisition()
    assert vistrel.wait_for_next_frame(30.0, view_id), "no frame came"
    image = vistrel.get_view_image(view_id)
    camera.stop_acquisition()
    return image


def compare_attributes(stub, image):
    """Each attribute of the stub answers with its type."""
    for name, kind in stub.attribute_types().items():
        value = getattr(image, name)
        written = {"dict[str, Any]": dict, "Callable[[], bytes]": types.BuiltinMethodType}
        expected = written.get(kind) or getattr(builtins, kind)
        assert type(value) is expected, f"Image.{name} is {type(value).__name__}, not {kind}"


def compare_attributes_of_an_allocated_image(stub):
    """It answers to all but those of the camera record."""
    image = vistrel.Image()
    image.alloc(4, 3, 3, 8)
    names = list(stub.attribute_types())
    refused = [name for name in names if refuses(image, name)]
    answered = [name for name in names if name not in refused]
    assert_same("attributes of any picture", answered, PICTURE_ATTRIBUTES)
    assert_same("attributes of a camera's picture", refused, RECORD_ATTRIBUTES)


def refuses(image, name):
    try:
        getattr(image, name)
    except Exception as error:
        assert (type(error), str(error)) == (Exception, EMPTY), f"Image.{name}: {error!r}"
        return True
    return False


stubs, objects = read_stub(), live_objects()
assert_same("classes", list(stubs), list(objects))
for name, owner in objects.items():
    compare_functions(name, owner, stubs[name])
compare_attributes(stubs["vistrel.Image"], camera_image())
compare_attributes_of_an_allocated_image(stubs["vistrel.Image"])

# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes hostile scripts: random but well-formed, over all that the module's stub tells of. The same
seed makes the same scripts."""

import ast
import random
from dataclasses import dataclass
from pathlib import Path
from typing import Callable, Dict, List, Optional, Tuple

STUB = Path(__file__).resolve().parents[2] / "host" / "help" / "vistrel.pyi"

# Places of the list v of hostile_tools.py, by what they hold as long as nothing goes wrong.
IMAGES, CAMERAS, GRAPHS, ANYTHING = range(0, 8), range(8, 11), range(11, 14), range(14, 24)

# What takes a second, or a window: left to chance once in this many times.
SLOW = {"restart_with_default_settings": 400, "ask_user_capture_image": 150, "message_box": 15,
        "ask_user_for_string": 15, "wait": 5, "wait_for_next_frame": 5, "record_video_to_file": 10,
        "play_sound": 10, "switch_full_screen": 20, "new_view_with_image": 4, "open_file": 4,
        "duplicate_view": 4, "run_script": 3, "add_menu_item": 10, "show_notification": 10,
        "draw_into_image": 4, "tile_views": 5, "add_chain_object": 3, "start_acquisition": 3,
        "stop_acquisition": 3, "print_to_error_log": 3}

SIZES = ["-1", "0", "0", "1", "1", "2", "2", "3", "3", "4", "5", "7", "8", "16", "40"]
VIEWS = ["-1", "-1", "0", "0", "1", "2", "3"]
CHANNELS = ["1", "1", "3", "3", "4", "2", "0"]
BITS = ["8", "8", "10", "12", "16", "32", "1", "0"]
NUMBERS = SIZES + ["-2", "9", "10", "12", "64", "255", "256", "-2**31", "2**31 - 1", "2**31", "2**32",
                   "2**32 - 1", "-2**63", "2**63", "2**64", "10**400", "True", "Number(3)"]
FLOATS = ["0.0", "1.0", "-1.0", "0.5", "3", "100.0", "1e15", "1e-300", "1e300", "-1e300", "inf",
          "-inf", "nan", "1.7e308", "10**400"]
TIMES = ["0.0", "0.001", "0.002", "0", "1e-9"]  # a script that waits for ever is no fault
TEXTS = ["''", "'a'", "'größe'", "'a\\0b'", "'\\udc80'", "Text('y')", "'x' * 5000", "'%1 %s %n'",
         "'<b>x</b>'", "'a/b'", "'🎥'"]
PATHS = ["'a.png'", "'b.tif'", "'c.bmp'", "'sub/d.jpg'", "'é.pgm'", "'film.avi'", "'film.mp4'",
         "'settings.xml'", "'broken.png'", "'nothing.png'", "'nested.py'", "'failing.py'", "'.'",
         "'/dev/full'", "'/dev/full/x.png'", "'a.png/b.png'", "'bell.wav'", "'x.unknown'"]
NAMES = ["'gain_db'", "'exposure_time_us'", "'width'", "'height'", "'offset_x'", "'framerate'",
         "'trigger_mode'", "'image_data_format'", "'acq_timing_mode'", "'black_level'", "'GainRaw'",
         "'gain_db:max'", "'width:min'", "'width:increment'", "'::'", "'device_sn'", "'none'"]
ELEMENTS = ["'Gaussian Blur'", "'Flip'", "'Rotate'", "'Threshold'", "'Gamma'", "'Median'",
            "'Background Subtraction'", "'Frame Average'", "'none'"]
SETTINGS = ["{}", "{'sigma': 2.5}", "{'angle': 90}", "{'frames': 2, 'rate': nan}", "{1: 2}",
            "{'radius': 3, 'direction': 'both', 'level': -5}", "{'gamma': '\\udc80'}"]
ODD = ["None", "True", "-1", "2**63", "1.5", "nan", "''", "'a.png'", "'a\\0b'", "'\\udc80'", "b'bytes'",
       "[]", "()", "{}", "[[1, 2], [3]]", "[[[1.5]]]", "Loud()", "vistrel", "object()", "Text('y')",
       "Number(2)", "vistrel.Image", "vistrel.Image()", "vistrel.Camera()", "vistrel.Graph()",
       "vistrel.Image.__new__(vistrel.Image)", "vistrel.Camera.__new__(vistrel.Camera)",
       "vistrel.Graph.__new__(vistrel.Graph)", "object.__new__(vistrel.Image)", "v", "slice(1, 2)",
       "memoryview(b'abc')", "iter([1])", "(lambda: 1)"]
# None whose memory an import reads beyond, because it takes steps and sizes on trust.
SOURCES = ["numpy.ones((5, 7), 'u1')", "numpy.full((4, 4, 3), 300, 'u2')", "numpy.ones((3, 2), 'f8')",
           "numpy.ones((3, 2, 4), 'i4')", "numpy.ones((3, 2), 'c8')", "numpy.ones((0, 3), 'u1')",
           "numpy.ones((4, 4)).T", "numpy.float32(1)",
           "[[1, 2], [3, 4]]", "[[[1, 2, 3]], [[4, 5, 6]]]", "[[1.5, None], 3]", "[[2**40, -1]]",
           "Interface(numpy.ones((4, 4), 'u1'), shape=(2, 2))",
           "Interface(numpy.ones((4, 4), 'u1'), shape=(-4, 4))",
           "Interface(numpy.ones((4, 4), 'u1'), shape=(2**40, 2**40))",
           "Interface(numpy.ones((4, 4), 'u1'), shape='ab')",
           "Interface(numpy.ones((4, 4)), typestr='|O8')",
           "Interface(numpy.ones((4, 4), 'u1'), typestr='\\udc80')",
           "Interface(numpy.ones((4, 4), 'u1'), strides=(1,))",
           "Interface(numpy.ones((4, 4), 'u1'), strides=(0, 0))",
           "Interface(numpy.ones((4, 4), 'u1'), data=(0, False))",
           "Interface(numpy.ones((4, 4), 'u1'), data=(8, False))",
           "Interface(numpy.ones((4, 4), 'u1'), data=(-2**63, False))",
           "Interface(numpy.ones((4, 4), 'u1'), data=None)"]
LOOKS = ["str({0})", "repr({0})", "bytes({0})", "hash({0})", "bool({0})", "len({0})", "iter({0})",
         "dir({0})", "{0} == {1}", "{0} < {1}", "copy.copy({0})", "copy.deepcopy({0})",
         "pickle.dumps({0})", "weakref.ref({0})", "memoryview({0})", "type({0})({1})", "sys.getsizeof({0})",
         "type('Own', (type({0}),), dict())()", "setattr({0}, 'width', {1})", "setattr({0}, 'own', {1})",
         "delattr({0}, 'alloc')", "{0}.__class__", "{0}.__dict__", "{0}()", "gc.get_referrers({0})",
         "{0}.__del__()", "{0}.__reduce_ex__(4)", "{0}.__getattribute__({1})", "getattr({0}, {1})",
         "pixels({0}, lambda array: array.sum())", "pixels({0}, lambda array: array.fill(3))",
         "pixels({0}, lambda array: ({1}).from_array(numpy.ascontiguousarray(array)))"]


@dataclass
class Function:
    """What the stub says of a function, method or attribute."""

    name: str
    parameters: List[Tuple[str, str]]  # name and type
    required: int
    result: str


def written(annotation: Optional[ast.expr]) -> str:
    return ast.unparse(annotation) if annotation else ""


def read_function(node: ast.FunctionDef) -> Function:
    arguments = [arg for arg in node.args.posonlyargs + node.args.args if arg.arg != "self"]
    types = [written(arg.annotation) for arg in arguments]
    return Function(node.name, list(zip([arg.arg for arg in arguments], types)),
                    len(arguments) - len(node.args.defaults), written(node.returns))


def read_stub() -> Tuple[Dict[str, List[Function]], List[str]]:
    """Functions by the name of their class ("" for the module), and the attributes of images."""
    tree = ast.parse(STUB.read_text(encoding="utf-8"))
    classes = [node for node in tree.body if isinstance(node, ast.ClassDef)]
    bodies = {"": tree.body, **{node.name: node.body for node in classes}}
    functions = {name: [read_function(node) for node in body if isinstance(node, ast.FunctionDef)]
                 for name, body in bodies.items()}
    attributes = [ast.unparse(node.target) for node in bodies["Image"]
                  if isinstance(node, ast.AnnAssign)]
    return functions, attributes


FUNCTIONS, ATTRIBUTES = read_stub()
PLACES = {"Image": IMAGES, "Camera": CAMERAS, "Graph": GRAPHS}


class Maker:
    """Texts of scripts from one seed."""

    def __init__(self, seed: int) -> None:
        self.random = random.Random(seed)
        kinds: List[Tuple[Callable[[], str], int]] = [
            (self.method, 50), (self.function, 16), (self.dynamic, 6), (self.attribute, 6),
            (self.look, 8), (self.new, 7), (self.again, 1), (self.bound, 2), (self.unbound, 1),
            (self.forget, 2), (self.late, 1)]
        self.kinds = [kind for kind, _ in kinds]
        self.weights = [weight for _, weight in kinds]

    def script(self, statements: int) -> str:
        lines = ["from hostile_tools import *", f"begin({self.random.random() < 0.4})"]
        for _ in range(statements):
            lines.append(self.threads() if self.random.random() < 0.004 else self.statement())
        return "\n".join([*lines, f"finish({self.random.choice((0, 2, 100))})", ""])

    def statement(self) -> str:
        return self.random.choices(self.kinds, self.weights)[0]()

    def threads(self) -> str:
        work = ", ".join(f"lambda: {self.statement()}" for _ in range(self.random.randint(2, 12)))
        return f"beside([{work}], {self.random.randint(1, 4)}, {self.random.random() < 0.6})"

    # Values

    def place(self, places: range) -> str:
        if self.random.random() < 0.03:
            places = ANYTHING
        return f"v[{self.random.choice(places)}]"

    def argument(self, name: str, kind: str) -> str:
        if name in ("seconds", "timeout"):
            return self.random.choice(TIMES)
        if name == "value" and kind == "int":
            return "0"  # seconds until a dialog goes on by itself
        chance = self.random.random()
        if chance < 0.06:
            return self.random.choice(ODD)
        if chance < 0.08 and kind != "str":
            value = self.random.choice(SIZES)
            return f"Evil(lambda: {self.plain()}, {value})"
        return self.fitting(name, kind)

    def fitting(self, name: str, kind: str) -> str:
        if kind in PLACES:
            return self.place(PLACES[kind])
        choices = {"int": NUMBERS, "float": FLOATS, "bool": ["True", "False", "[]", "1"],
                   "object": SOURCES, "dict[str, Any]": SETTINGS}.get(kind, TEXTS)
        if kind == "int" and self.random.random() < 0.9:
            choices = {"view_id": VIEWS, "series": VIEWS, "channel": VIEWS, "channels": CHANNELS,
                       "bpc": BITS}.get(name, SIZES)
        if kind == "object" and self.random.random() < 0.2:
            return self.place(IMAGES)
        if kind == "str":
            choices = {"path": PATHS, "script": PATHS, "name": NAMES + ELEMENTS,
                       "key": NAMES}.get(name, TEXTS)
        if "|" in kind:
            choices = NUMBERS + FLOATS + TEXTS
        return self.random.choice(choices)

    def arguments(self, function: Function) -> str:
        count = self.random.randint(function.required, len(function.parameters))
        values = [self.argument(*parameter) for parameter in function.parameters[:count]]
        if self.random.random() < 0.02:
            values = values[1:] if self.random.random() < 0.5 else [*values, "None"]
        return ", ".join(values)

    def chosen(self, functions: List[Function]) -> Function:
        while True:
            function = self.random.choice(functions)
            if self.random.randrange(SLOW.get(function.name, 1)) == 0:
                return function

    # Statements

    def kept(self, result: str, call: str) -> str:
        """A call whose result others meet, sometimes in a place that was meant for other types."""
        places = PLACES.get(result.split(" ")[0], ANYTHING)
        if result == "None" or self.random.random() < 0.3:
            return f"do(lambda: {call})"
        return f"put({self.random.choice(places)}, lambda: {call})"

    def method(self) -> str:
        owner = self.random.choices(list(PLACES), (6, 2, 2))[0]
        function = self.chosen(FUNCTIONS[owner])
        target = self.place(PLACES[owner])
        return self.kept(function.result, f"{target}.{function.name}({self.arguments(function)})")

    def plain(self) -> str:
        """What happens while an argument is read: mostly something that frees."""
        image = self.place(IMAGES)
        return self.random.choice([
            f"{image}.__init__()", f"{image}.alloc(2, 2, 1, 8)", f"{image}.alloc(0, 0, 0, 0)",
            f"{image}.from_array([[1]])", f"{self.place(GRAPHS)}.__init__()",
            f"{self.place(CAMERAS)}.__init__()", f"{self.place(CAMERAS)}.close_device()",
            "vistrel.close_view()", "vistrel.set_global_variable_img('a', None)", "gc.collect()",
            f"v.__setitem__({self.random.choice(IMAGES)}, vistrel.Image())"])

    def function(self) -> str:
        function = self.chosen(FUNCTIONS[""])
        return self.kept(function.result, f"vistrel.{function.name}({self.arguments(function)})")

    def dynamic(self) -> str:
        name = self.random.choice(NAMES).strip("'").replace(":", "_")
        prefix = self.random.choice(["get_", "set_", "is_", "enable_", "disable_"])
        value = self.argument("", "int | float | str") if prefix == "set_" else ""
        ending = self.random.choice(["", "", "_maximum", "_minimum", "_increment", "_"])
        return self.kept("object", f"{self.place(CAMERAS)}.{prefix}{name}{ending}({value})")

    def attribute(self) -> str:
        return self.kept("object", f"{self.place(IMAGES)}.{self.random.choice(ATTRIBUTES)}")

    def look(self) -> str:
        places = self.random.choice([IMAGES, IMAGES, CAMERAS, GRAPHS, ANYTHING])
        other = self.random.choice([self.place(IMAGES), self.random.choice(ODD)])
        return f"do(lambda: {self.random.choice(LOOKS).format(self.place(places), other)})"

    def new(self) -> str:
        owner = self.random.choice(list(PLACES))
        if owner == "Image" and self.random.random() < 0.7:
            shape = ", ".join(map(self.random.choice, (SIZES[3:], SIZES[3:], CHANNELS, BITS)))
            return f"put({self.random.choice(IMAGES)}, lambda: filled({shape}))"
        made = self.random.choice(["vistrel.{0}()", "vistrel.{0}()", "opened()",
                                   "vistrel.{0}.__new__(vistrel.{0})", "vistrel.{0}(None)",
                                   "object.__new__(vistrel.{0})",
                                   "vistrel.{0}.__new__(vistrel.{0}, 1, a=2)"]).format(owner)
        return f"put({self.random.choice(PLACES[owner])}, lambda: {made})"

    def again(self) -> str:
        places = self.random.choice(list(PLACES.values()))
        value = self.random.choice(["", "", self.random.choice(ODD)])
        return f"do(lambda: {self.place(places)}.__init__({value}))"

    def bound(self) -> str:
        """A method that outlives its object's picture, or its object."""
        owner = self.random.choice(list(PLACES))
        function = self.chosen(FUNCTIONS[owner])
        if function.name in SLOW:
            return self.forget()
        target = self.place(PLACES[owner])
        return (f"do(lambda: (lambda method: ({self.plain()}, method({self.arguments(function)})))"
                f"({target}.{function.name}))")

    def unbound(self) -> str:
        owner = self.random.choice(list(PLACES))
        function = self.chosen(FUNCTIONS[owner])
        if function.name in SLOW:
            return self.forget()
        target = self.random.choice(ODD)
        return f"do(lambda: vistrel.{owner}.{function.name}({target}, {self.arguments(function)}))"

    def forget(self) -> str:
        place = self.random.choice(ANYTHING)
        return f"do(lambda: v.__setitem__({place}, None))"

    def late(self) -> str:
        place = self.random.choice(ANYTHING)
        return f"do(lambda: v.__setitem__({place}, AtEnd(lambda: {self.plain()})))"

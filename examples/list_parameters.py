# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# List every parameter of the first camera with its value, its limits and its unit: first under the
# host's names, then the camera's own features, category by category.
#
#     vistrel-run --camera sim list_parameters.py

from typing import Union

import vistrel

# The host's names are constants of every script: GAIN_DB is "gain_db".
PARAMETERS = [value for name, value in list(globals().items())
              if isinstance(value, str) and name == value.upper()]


def text(value: Union[int, float, bool, str, None]) -> str:
    if value is None:
        return "-"
    return "%.7g" % value if isinstance(value, float) else str(value)


def limits(camera: vistrel.Camera, name: str) -> str:
    """What a parameter takes: a range with its step, or the entries of an enumeration."""
    entries = camera.get_param(name + ":entries")
    if entries is not None:
        return str(entries)
    least, greatest, step = (camera.get_param(name + end) for end in (":min", ":max", ":inc"))
    if least is None and greatest is None:
        return ""
    steps = "" if step is None else " in steps of " + text(step)
    return "%s to %s%s" % (text(least), text(greatest), steps)


def line(camera: vistrel.Camera, name: str) -> str:
    value = camera.get_param(name)
    unit = camera.get_param(name + ":unit") or ""
    return "  %-22s %16s %-3s  %s" % (name, text(value), unit, limits(camera, name))


def list_known(camera: vistrel.Camera) -> None:
    print("parameters")
    for name in PARAMETERS:
        try:
            print(line(camera, name))
        except Exception as error:
            print("  %-22s %16s      %s" % (name, "-", error))


def list_category(camera: vistrel.Camera, category: str) -> None:
    """Prints the features of a category, then those of the categories in it."""
    features = str(camera.get_param(category + ":entries") or "").split(", ")
    types = {name: camera.get_param(name + ":type") for name in features if name}
    if set(types.values()) != {"category"}:
        print(category)
    for name, kind in types.items():
        if kind == "command":
            print("  %-22s %16s" % (name, "(command)"))
        elif kind != "category":
            print(line(camera, name))
    for name, kind in types.items():
        if kind == "category":
            list_category(camera, name)


camera = vistrel.Camera()
camera.open_device()
print(camera)
list_known(camera)
list_category(camera, "Root")

# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
# Texts, paths and numbers do not depend on the locale that the host was started in.
import os
import sys
import tempfile

import vistrel

assert sys.getfilesystemencoding() == "utf-8"
assert ("%.2f" % 1.5, str(0.25), float("2.5"), "{:n}".format(1.5)) == ("1.50", "0.25", 2.5, "1.5")

folder = os.path.join(tempfile.mkdtemp(), "größe 画像")
os.mkdir(folder)
path = os.path.join(folder, "µ.png")
image = vistrel.Image()
image.alloc(3, 2, 1, 8)
image.save_to_file(path)
assert os.listdir(folder) == ["µ.png"]
again = vistrel.Image()
again.from_file(path)
assert again.width == 3

with open(os.path.join(folder, "ä.txt"), "w") as file:
    file.write("naïve")
with open(os.path.join(folder, "ä.txt"), "rb") as file:
    assert file.read() == "naïve".encode()

print("größe µ 画像 🎥")

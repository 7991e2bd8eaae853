# SPDX-FileCopyrightText: 2026 The Vistrel Python scripting authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""How Sphinx makes the reference; its pages come from host/help/generate_reference.py."""

project = "Vistrel Python scripting"
copyright = "2026 The Vistrel Python scripting authors"
extensions: "list[str]" = []
primary_domain = "py"
add_module_names = False
toc_object_entries_show_parents = "hide"
highlight_language = "none"  # indented blocks are tables, examples say that they are code
smartquotes = False  # the messages in quotes are what scripts compare with
html_theme = "alabaster"
html_static_path = ["_static"]
html_theme_options = {
    "description": "What scripts can do in the host",
    "page_width": "1100px",
    "sidebar_width": "260px",
}
html_sidebars = {"**": ["about.html", "searchbox.html", "localtoc.html", "navigation.html"]}
html_show_sourcelink = False
html_copy_source = False

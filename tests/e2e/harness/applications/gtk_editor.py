#!/usr/bin/python3
"""A GTK 3 text editor of one window: gtk_editor.py [TEXT]. The caret is at the end."""

import sys

import gi

gi.require_version("Gtk", "3.0")
from gi.repository import GLib, Gtk  # noqa: E402

GLib.set_prgname("gtk-editor")
window = Gtk.Window(title="GTK editor", default_width=560, default_height=240)
view = Gtk.TextView(left_margin=12, right_margin=12, top_margin=12)
view.get_buffer().set_text(sys.argv[1] if len(sys.argv) > 1 else "")
view.get_accessible().set_name("Editor")
window.add(view)
window.connect("destroy", Gtk.main_quit)
window.show_all()
view.grab_focus()
Gtk.main()

"""A window with a text view, an entry and a button, for tests that inspect other programs' text.

Prints a line whenever the caret of the focused one changes: its position in the text, the number of
characters, and its rectangle on the screen in the program's points: x, y, width, height.
"""

import gi

gi.require_version("Gtk", "3.0")
from gi.repository import GLib, Gtk, Pango


def text_caret(view):
    buffer = view.get_buffer()
    strong, _ = view.get_cursor_locations(None)
    x, y = view.buffer_to_window_coords(Gtk.TextWindowType.WIDGET, strong.x, strong.y)
    _, origin_x, origin_y = view.get_window(Gtk.TextWindowType.WIDGET).get_origin()
    position = buffer.get_iter_at_mark(buffer.get_insert()).get_offset()
    return (position, buffer.get_char_count(),
            origin_x + x, origin_y + y, strong.width, strong.height)


def entry_caret(entry):
    layout = entry.get_layout()
    index = entry.text_index_to_layout_index(
        len(entry.get_text()[:entry.get_position()].encode()))
    strong, _ = layout.get_cursor_pos(index)
    x, y = entry.get_layout_offsets()
    _, origin_x, origin_y = entry.get_window().get_origin()
    allocation = entry.get_allocation()
    return (entry.get_position(), len(entry.get_text()),
            origin_x + allocation.x + x + strong.x // Pango.SCALE,
            origin_y + allocation.y + y + strong.y // Pango.SCALE,
            strong.width // Pango.SCALE, strong.height // Pango.SCALE)


window = Gtk.Window(title="Editor", default_width=300, default_height=200)
box = Gtk.Box(orientation=Gtk.Orientation.VERTICAL)
text = Gtk.TextView(accepts_tab=False)
scrolled = Gtk.ScrolledWindow(vexpand=True)
scrolled.add(text)
entry = Gtk.Entry()
button = Gtk.Button(label="Button")
for child in (scrolled, entry, button):
    box.add(child)
window.add(box)


def print_caret():
    if window.has_toplevel_focus():
        if text.has_focus():
            print(*text_caret(text), flush=True)
        elif entry.has_focus():
            print(*entry_caret(entry), flush=True)
    return GLib.SOURCE_REMOVE


def print_later(*_):
    # Deferred until the window has been laid out.
    GLib.idle_add(print_caret, priority=GLib.PRIORITY_LOW)


text.get_buffer().connect("notify::cursor-position", print_later)
text.get_buffer().connect("changed", print_later)
entry.connect("notify::cursor-position", print_later)
entry.connect("changed", print_later)
window.connect("set-focus", print_later)
window.connect("notify::has-toplevel-focus", print_later)
window.connect("configure-event", print_later)
window.connect("destroy", Gtk.main_quit)
window.show_all()
text.grab_focus()
Gtk.main()

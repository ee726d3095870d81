"""A settings portal that says whether the desktop is light or dark: settings_portal.py light|dark

Each further line on its standard input, light or dark, changes that.
"""

import sys

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402

NAME = "org.freedesktop.portal.Desktop"
PATH = "/org/freedesktop/portal/desktop"
SETTINGS = "org.freedesktop.portal.Settings"
INTERFACE = Gio.DBusNodeInfo.new_for_xml(f"""
<node><interface name="{SETTINGS}">
  <method name="Read">
    <arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="v" direction="out"/>
  </method>
  <signal name="SettingChanged"><arg type="s"/><arg type="s"/><arg type="v"/></signal>
</interface></node>""").interfaces[0]
GROUP, KEY = "org.freedesktop.appearance", "color-scheme"
PREFERENCES = {"dark": 1, "light": 2}


class Portal:
    def __init__(self, scheme):
        self._scheme = scheme

    def export(self, bus, _name):
        self._bus = bus
        bus.register_object(PATH, INTERFACE, self._read, None, None)
        GLib.io_add_watch(sys.stdin, GLib.PRIORITY_DEFAULT, GLib.IO_IN | GLib.IO_HUP, self._change)

    def _value(self):
        return GLib.Variant("u", PREFERENCES[self._scheme])

    def _read(self, _bus, _sender, _path, _interface, _method, arguments, invocation):
        if arguments.unpack() != (GROUP, KEY):
            invocation.return_dbus_error("org.freedesktop.portal.Error.NotFound", "not set")
            return
        wrapped = GLib.Variant("v", self._value())
        invocation.return_value(GLib.Variant("(v)", (wrapped,)))

    def _change(self, source, _condition):
        line = source.readline().strip()
        if line in PREFERENCES:
            self._scheme = line
            self._bus.emit_signal(None, PATH, SETTINGS, "SettingChanged",
                                  GLib.Variant("(ssv)", (GROUP, KEY, self._value())))
        return bool(line)


def main():
    portal = Portal(sys.argv[1])
    loop = GLib.MainLoop()
    Gio.bus_own_name(Gio.BusType.SESSION, NAME, Gio.BusNameOwnerFlags.NONE, portal.export, None,
                     lambda *_: loop.quit())
    loop.run()


if __name__ == "__main__":
    main()

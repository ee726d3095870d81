"""The part of a desktop's bar that takes status notifier items: a watcher that is its own host.

It keeps the list of items until it is ended; whoever wants to see one asks the program itself.
"""

import sys

import gi

gi.require_version("Gio", "2.0")
from gi.repository import Gio, GLib  # noqa: E402

NAME = "org.kde.StatusNotifierWatcher"
INTERFACE = Gio.DBusNodeInfo.new_for_xml(f"""
<node><interface name="{NAME}">
  <method name="RegisterStatusNotifierItem"><arg type="s" direction="in"/></method>
  <method name="RegisterStatusNotifierHost"><arg type="s" direction="in"/></method>
  <property name="RegisteredStatusNotifierItems" type="as" access="read"/>
  <property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
  <property name="ProtocolVersion" type="i" access="read"/>
  <signal name="StatusNotifierItemRegistered"><arg type="s"/></signal>
  <signal name="StatusNotifierItemUnregistered"><arg type="s"/></signal>
  <signal name="StatusNotifierHostRegistered"/>
  <signal name="StatusNotifierHostUnregistered"/>
</interface></node>""").interfaces[0]


class Watcher:
    def __init__(self, has_host):
        self._items = {}
        self._has_host = has_host

    def export(self, bus, _name):
        self._bus = bus
        bus.register_object("/StatusNotifierWatcher", INTERFACE, self._call, self._get, None)

    def _call(self, _bus, sender, _path, _interface, method, arguments, invocation):
        if method == "RegisterStatusNotifierItem":
            name = arguments.unpack()[0]
            owner, path = (sender, name) if name.startswith("/") else (name, "/StatusNotifierItem")
            self._items[sender] = owner + path
            Gio.bus_watch_name_on_connection(
                self._bus, owner, Gio.BusNameWatcherFlags.NONE, None,
                lambda *_: self._items.pop(sender, None))
        invocation.return_value(None)

    def _get(self, _bus, _sender, _path, _interface, name):
        return {
            "RegisteredStatusNotifierItems": GLib.Variant("as", list(self._items.values())),
            "IsStatusNotifierHostRegistered": GLib.Variant("b", self._has_host),
            "ProtocolVersion": GLib.Variant("i", 0),
        }[name]


def main():
    watcher = Watcher(has_host="--no-host" not in sys.argv)
    loop = GLib.MainLoop()
    Gio.bus_own_name(Gio.BusType.SESSION, NAME, Gio.BusNameOwnerFlags.NONE,
                     watcher.export, None, lambda *_: loop.quit())
    loop.run()


if __name__ == "__main__":
    main()

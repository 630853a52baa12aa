"""A desktop portal that knows one setting: color-scheme. Arguments: its value, and how many seconds it takes to answer."""

import sys

from gi.repository import Gio, GLib

INTERFACE = Gio.DBusNodeInfo.new_for_xml("""
<node><interface name="org.freedesktop.portal.Settings"><method name="Read">
<arg type="s" direction="in"/><arg type="s" direction="in"/><arg type="v" direction="out"/>
</method></interface></node>""").interfaces[0]


def answer(invocation, asked):
    if asked == ("org.freedesktop.appearance", "color-scheme"):
        value = GLib.Variant("v", GLib.Variant("u", int(sys.argv[1])))
        invocation.return_value(GLib.Variant.new_tuple(GLib.Variant("v", value)))
    else:
        invocation.return_dbus_error("org.freedesktop.portal.Error.NotFound", "no such setting")
    return False


def on_call(_connection, _sender, _path, _interface, _method, parameters, invocation):
    GLib.timeout_add(int(float(sys.argv[2]) * 1000), answer, invocation, parameters.unpack())


def on_bus(connection, _name):
    connection.register_object("/org/freedesktop/portal/desktop", INTERFACE, on_call, None, None)


Gio.bus_own_name(Gio.BusType.SESSION, "org.freedesktop.portal.Desktop", Gio.BusNameOwnerFlags.NONE, on_bus, None, None)
GLib.MainLoop().run()

"""Waits until a screen reader sees an object in a program, and prints it: one `key=value` a line.

find_accessible.py PROGRAM SECONDS ROLE NAME [STATE ...]
"""

import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, Gio, GLib  # noqa: E402

STATES = ("FOCUSED", "CHECKED", "SELECTED", "ENABLED")


def announce_reader():
    """Programs describe themselves only when somebody reads it."""
    bus = Gio.bus_get_sync(Gio.BusType.SESSION)
    bus.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.freedesktop.DBus.Properties", "Set",
                  GLib.Variant("(ssv)", ("org.a11y.Status", "IsEnabled", GLib.Variant("b", True))),
                  None, Gio.DBusCallFlags.NONE, 10000, None)


def children(accessible):
    found = (accessible.get_child_at_index(index) for index in range(accessible.get_child_count()))
    return [child for child in found if child is not None]


def objects(accessible):
    yield accessible
    for child in children(accessible):
        yield from objects(child)


def has(accessible, states):
    there = accessible.get_state_set()
    return all(there.contains(getattr(Atspi.StateType, state)) for state in states)


def search(program, role, name, states):
    desktop = Atspi.get_desktop(0)
    desktop.clear_cache()
    for application in children(desktop):
        if application.get_name() != program:
            continue
        for each in objects(application):
            if each.get_name() == name and each.get_role_name() == role and has(each, ["SHOWING", *states]):
                return each
    return None


def describe(accessible):
    area = accessible.get_component_iface().get_extents(Atspi.CoordType.SCREEN)
    print(f"x={area.x}\ny={area.y}\nwidth={area.width}\nheight={area.height}")
    print(f"description={accessible.get_description()}")
    print(f"states={' '.join(state for state in STATES if has(accessible, [state]))}")


def main(program, seconds, role, name, *states):
    announce_reader()
    deadline = time.monotonic() + float(seconds)
    while True:
        try:
            found = search(program, role, name, states)
            if found is not None:
                describe(found)
                return 0
        except GLib.Error:
            pass  # the object or its program went away while it was read
        if time.monotonic() >= deadline:
            return 1
        time.sleep(0.05)


sys.exit(main(*sys.argv[1:]))

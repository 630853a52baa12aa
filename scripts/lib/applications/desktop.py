"""What is on the X server, as seen by its own protocol, and hands on its keyboard and pointer."""

import struct
import time
import zlib

from Xlib import X, XK, Xutil, display, error
from Xlib.ext import xtest
from Xlib.protocol import event

from frames import Frame, Hints
from session import wait_for

BACKGROUND = 0xC03070  # unlike anything that applications show, so that gaps are seen
MAXIMISED_STATES = ("_NET_WM_STATE_MAXIMIZED_HORZ", "_NET_WM_STATE_MAXIMIZED_VERT")
REMOVE, ADD = 0, 1
SOURCE_PAGER = 2


def png(width, height, rows):
    """A picture of 24 bits from rows of bytes in the order red, green, blue."""
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))
    header = struct.pack(">IIBBBBB", width, height, 8, 2, 0, 0, 0)
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", header) +
            chunk(b"IDAT", zlib.compress(b"".join(b"\0" + row for row in rows))) + chunk(b"IEND", b""))


class Desktop:
    def __init__(self, name):
        self.display = display.Display(name)
        self.root = self.display.screen().root
        self.root.change_attributes(background_pixel=BACKGROUND)
        self.root.clear_area()
        self.display.sync()

    def close(self):
        self.display.close()

    def atom(self, name):
        return self.display.intern_atom(name)

    def numbers(self, window, name):
        """A property's values; nothing if it is not there, or the window is gone."""
        try:
            found = window.get_full_property(self.atom(name), X.AnyPropertyType)
        except error.BadWindow:
            return []
        return list(found.value) if found else []

    def is_managed(self):
        return bool(self.numbers(self.root, "_NET_SUPPORTING_WM_CHECK"))

    def clients(self):
        return [self.display.create_resource_object("window", number)
                for number in self.numbers(self.root, "_NET_CLIENT_LIST")]

    def area(self):
        return Frame(*self.numbers(self.root, "_NET_WORKAREA")[:4])

    def find(self, window_class):
        """The ordinary window of that class that is shown; the largest, if there are several."""
        shown = [window for window in self.clients() if self.is_ordinary(window, window_class)]
        return max(shown, key=lambda window: self.frame(window)[2], default=None)

    def is_ordinary(self, window, window_class):
        try:
            names = window.get_wm_class() or ()
            kinds = self.numbers(window, "_NET_WM_WINDOW_TYPE")
            is_normal = not kinds or kinds[0] == self.atom("_NET_WM_WINDOW_TYPE_NORMAL")
            return window_class in names and is_normal and window.get_attributes().map_state == X.IsViewable
        except error.XError:
            return False

    def client_area(self, window):
        size = window.get_geometry()
        corner = self.root.translate_coords(window, 0, 0)
        return Frame(corner.x, corner.y, size.width, size.height)

    def margins(self, window):
        """What the frame has beyond the client area at its left, right, top and bottom; less than nothing for shadows."""
        outside = self.numbers(window, "_NET_FRAME_EXTENTS") or [0] * 4
        shadow = self.numbers(window, "_GTK_FRAME_EXTENTS") or [0] * 4
        return [around - within for around, within in zip(outside, shadow)]

    def frame(self, window):
        left, right, top, bottom = self.margins(window)
        inner = self.client_area(window)
        return Frame(inner.x - left, inner.y - top, inner.width + left + right, inner.height + top + bottom)

    def decoration(self, window):
        left, right, top, bottom = self.margins(window)
        return left + right, top + bottom

    def hints(self, window):
        said = window.get_wm_normal_hints()
        values = {}
        if said and said.flags & Xutil.PMinSize:
            values["minimum"] = values["base"] = (said.min_width, said.min_height)
        if said and said.flags & Xutil.PMaxSize and said.max_width and said.max_height:
            values["maximum"] = (said.max_width, said.max_height)
        if said and said.flags & Xutil.PBaseSize:
            values["base"] = (said.base_width, said.base_height)
        if said and said.flags & Xutil.PResizeInc:
            values["step"] = (max(1, said.width_inc), max(1, said.height_inc))
        if said and said.flags & Xutil.PAspect:
            values["aspects"] = tuple(aspect.num / aspect.denum for aspect in (said.min_aspect, said.max_aspect))
        return Hints(**values)

    def is_maximised(self, window, how=all):
        states = self.numbers(window, "_NET_WM_STATE")
        return how(self.atom(name) in states for name in MAXIMISED_STATES)

    def tell_manager(self, window, message, values):
        data = (32, (list(values) + [0] * 5)[:5])
        message = event.ClientMessage(window=window, client_type=self.atom(message), data=data)
        self.root.send_event(message, X.SubstructureRedirectMask | X.SubstructureNotifyMask)
        self.display.sync()

    def set_maximised(self, window, wanted):
        states = [self.atom(name) for name in MAXIMISED_STATES]
        self.tell_manager(window, "_NET_WM_STATE", [ADD if wanted else REMOVE, *states, SOURCE_PAGER])

    def ask_for(self, window, frame):
        all_four, gravity = 0xF << 8, X.StaticGravity
        self.tell_manager(window, "_NET_MOVERESIZE_WINDOW", [SOURCE_PAGER << 12 | all_four | gravity, *frame])

    def activate(self, window):
        """Whether it became the active window."""
        self.tell_manager(window, "_NET_ACTIVE_WINDOW", [SOURCE_PAGER, X.CurrentTime])
        return wait_for(lambda: window.id in self.numbers(self.root, "_NET_ACTIVE_WINDOW"), 5)

    def press(self, *keys):
        codes = [self.display.keysym_to_keycode(XK.string_to_keysym(key)) for key in keys]
        for code in codes:
            self.play(X.KeyPress, code)
        for code in reversed(codes):
            self.play(X.KeyRelease, code)

    def play(self, kind, detail=0, **where):
        xtest.fake_input(self.display, kind, detail, **where)
        self.display.sync()

    def move_pointer(self, x, y):
        self.play(X.MotionNotify, x=x, y=y)

    def drag(self, start, to, steps=40):
        """As a hand does it: at a steady pace, with a rest after the press and another at the end."""
        self.move_pointer(*start)
        self.play(X.ButtonPress, 1)
        time.sleep(0.1)
        for step in range(1, steps + 1):
            self.move_pointer(*(begin + (end - begin) * step // steps for begin, end in zip(start, to)))
            time.sleep(0.01)
        time.sleep(0.3)
        self.play(X.ButtonRelease, 1)

    def picture(self, path):
        size = self.root.get_geometry()
        seen = self.root.get_image(0, 0, size.width, size.height, X.ZPixmap, 0xFFFFFFFF).data
        colours = bytearray(size.width * size.height * 3)
        for channel in range(3):
            colours[channel::3] = seen[2 - channel::4]
        stride = size.width * 3
        path.write_bytes(png(size.width, size.height,
                             [colours[at:at + stride] for at in range(0, len(colours), stride)]))

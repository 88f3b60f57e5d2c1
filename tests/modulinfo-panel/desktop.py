"""A private desktop for a test: an X server in memory, a window manager, a pointer and a keyboard."""

import collections
import contextlib
import itertools
import os
import signal
import subprocess

from Xlib import X, XK, display, error
from Xlib.ext import xtest
from Xlib.protocol import event

from bench import LIBC, PATIENCE, wait_for

SCREEN = (1280, 1024)

LEFT_BUTTON = 1

# linux/prctl.h
PR_SET_PDEATHSIG = 1

# The key names of characters that are not their own names.
SIGNS = {"/": "slash", "-": "minus", "_": "underscore", ".": "period"}

Area = collections.namedtuple("Area", "x y width height")


class Window:
    """A window of a program, without the frame of the window manager."""

    def __init__(self, desktop, handle):
        self.desktop = desktop
        self.handle = handle

    def values(self, name):
        """The values of that property; None if it is missing or the window no longer exists."""
        try:
            found = self.handle.get_full_property(self.desktop.atom(name), X.AnyPropertyType)
        except error.BadWindow:
            return None
        return found.value if found else None

    @property
    def title(self):
        return (self.values("_NET_WM_NAME") or b"").decode()

    @property
    def frame(self):
        """The widths of the frame: left, right, top, bottom."""
        return tuple(self.values("_NET_FRAME_EXTENTS") or ())

    def area(self):
        """The area of the window on the screen."""
        size = self.handle.get_geometry()
        at = self.handle.translate_coords(self.desktop.root, 0, 0)
        return Area(-at.x, -at.y, size.width, size.height)

    def is_visible(self):
        try:
            return self.handle.get_attributes().map_state == X.IsViewable
        except error.BadWindow:
            return False


def end_with_the_test():
    """Makes this process end with the test, however the test ends."""
    LIBC.prctl(PR_SET_PDEATHSIG, signal.SIGTERM, 0, 0, 0)


class Desktop:
    """Starts with no window, the pointer in the lower right corner; ends with `end`."""

    def __init__(self, environment):
        with contextlib.ExitStack() as ends:
            self.name = self.start_server(ends)
            self.display = display.Display(self.name)
            ends.callback(self.display.close)
            self.root = self.display.screen().root
            self.run(ends, ["openbox", "--sm-disable"], env=environment | {"DISPLAY": self.name})
            wait_for(lambda: self.windows("_NET_SUPPORTING_WM_CHECK"), "the window manager")
            self.move(SCREEN[0] - 1, SCREEN[1] - 1)
            self.end = ends.pop_all().close

    @classmethod
    def start_server(cls, ends):
        """Starts a server on a free display and returns the name of that display."""
        readable, writable = os.pipe()
        with os.fdopen(readable) as names:
            cls.run(ends, ["Xvfb", "-displayfd", str(writable), "-nolisten", "tcp",
                           "-screen", "0", "{}x{}x24".format(*SCREEN)], pass_fds=[writable])
            os.close(writable)
            return ":" + names.readline().strip()

    @staticmethod
    def run(ends, command, **options):
        process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                                   preexec_fn=end_with_the_test, **options)
        ends.callback(process.wait, PATIENCE)
        ends.callback(process.terminate)

    def atom(self, name):
        return self.display.intern_atom(name)

    # Windows

    def windows(self, role="_NET_CLIENT_LIST"):
        """The windows that the desktop lists in that role."""
        handles = Window(self, self.root).values(role)
        return [Window(self, self.display.create_resource_object("window", handle))
                for handle in handles if handle] if handles else []

    def titled(self, title):
        return [window for window in self.windows() if window.title == title]

    def focused(self):
        """The window that has the focus; None if no program has it."""
        # The window manager's own record lags behind, and the next program may reuse a handle.
        handle = self.display.get_input_focus().focus
        return None if isinstance(handle, int) else Window(self, handle)

    def window(self, title):
        """The window with that title, once it is visible and has the focus."""
        def active():
            window = self.focused()
            return window if window and window.title == title and window.is_visible() else None
        return wait_for(active, f"a window {title}")

    def wait_until_gone(self, title):
        wait_for(lambda: not self.titled(title), f"the end of the window {title}")

    def popups(self, kind):
        """The visible windows of that kind without a frame: TOOLTIP, DROPDOWN_MENU, or NORMAL for
        an open list."""
        own = self.atom("_NET_WM_WINDOW_TYPE_" + kind)
        children = [Window(self, handle) for handle in self.root.query_tree().children]
        return [window for window in children
                if own in (window.values("_NET_WM_WINDOW_TYPE") or ()) and window.is_visible()]

    def wait_for_manager(self):
        """Waits until the window manager has handled all earlier requests."""
        own = self.root.create_window(0, 0, 1, 1, 0, X.CopyFromParent)
        self.root.send_event(
            event.ClientMessage(window=own, client_type=self.atom("_NET_REQUEST_FRAME_EXTENTS"),
                                data=(32, [0] * 5)),
            X.SubstructureRedirectMask | X.SubstructureNotifyMask)
        wait_for(lambda: Window(self, own).frame, "the window manager")
        own.destroy()

    # Pointer and keyboard

    def move(self, x, y):
        xtest.fake_input(self.display, X.MotionNotify, x=x, y=y)
        self.display.sync()

    def button(self, kind):
        xtest.fake_input(self.display, kind, LEFT_BUTTON)
        self.display.sync()

    def point(self, window, place):
        """Moves the pointer to that place of the window."""
        area = window.area()
        self.move(area.x + place[0], area.y + place[1])

    def click(self, window, place):
        self.point(window, place)
        self.button(X.ButtonPress)
        self.button(X.ButtonRelease)
        # The window manager grabs the pointer at every click, and replays late events at the
        # position that the pointer has by then.
        self.wait_for_manager()

    def drag(self, window, start, way):
        """Drags the part of the window's frame at that place of the screen by `way`, across and down."""
        before = window.area()
        self.move(*start)
        self.button(X.ButtonPress)
        # The window manager needs some motion to recognise a drag, and drops the motion before that.
        jitter = itertools.cycle((0, 1))

        def follows():
            self.move(start[0] + way[0] // 2 + next(jitter), start[1] + way[1] // 2)
            return window.area() != before
        wait_for(follows, "the window to follow the pointer")
        self.move(start[0] + way[0], start[1] + way[1])
        self.button(X.ButtonRelease)
        # It grabs the keyboard during a drag.
        self.wait_for_manager()

    def press(self, *names):
        """Presses keys in turn, each with its modifiers: "Tab", "Control+q"."""
        for name in names:
            *held, key = name.split("+")
            codes = [self.display.keysym_to_keycode(XK.string_to_keysym(one))
                     for one in [*(modifier + "_L" for modifier in held), key]]
            assert all(codes), f"the keyboard has no key {name}"
            for code in codes:
                xtest.fake_input(self.display, X.KeyPress, code)
            for code in reversed(codes):
                xtest.fake_input(self.display, X.KeyRelease, code)
            self.display.sync()

    def type(self, text):
        """Types the characters of a path."""
        for sign in text:
            needs_shift = sign.isupper() or sign == "_"
            self.press(("Shift+" if needs_shift else "") + SIGNS.get(sign, sign))

    # Pixels

    def pixels(self, area):
        """The pixels of an area of the screen: rows of (red, green, blue)."""
        image = self.root.get_image(area.x, area.y, area.width, area.height, X.ZPixmap, 0xFFFFFFFF)
        step = 4
        colours = [(image.data[at + 2], image.data[at + 1], image.data[at])
                   for at in range(0, len(image.data), step)]
        return [colours[at:at + area.width] for at in range(0, len(colours), area.width)]

    def pixel(self, window, place):
        """The colour at that place of the window."""
        area = window.area()
        return self.pixels(Area(area.x + place[0], area.y + place[1], 1, 1))[0][0]

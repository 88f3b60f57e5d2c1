"""`modulinfo-panel` on a private desktop, and the places of its controls."""

import subprocess

from bench import BIN, PATIENCE, Bench, wait_for
from desktop import Desktop

TITLE = "Module information"
TITLE_OF_MODULE = "TESSARA TM 151 - " + TITLE

ENGLISH = 2

# The designed height of the panel, in pixels.
PANEL_HEIGHT = 167

# The centres of the panel's controls, from its upper left corner.
READ, OPEN, SAVE, PRINT = (28, 30), (140, 30), (174, 30), (208, 30)
LANGUAGE, HELP, ABOUT = (252, 30), (286, 30), (320, 30)
STATE_PICTURE_FOOT = (32, 146)

GREEN = (0x12, 0x80, 0x5C)


class PanelOnDesktop(Bench):
    def setUp(self):
        super().setUp()
        self.program = BIN / "modulinfo-panel"
        self.folder.chmod(0o700)
        # Neither the user's display nor the user's session: without an address, the bus library
        # would look for a session by itself, and leak memory doing so.
        self.environment |= {"QT_QPA_PLATFORM": "xcb", "DBUS_SESSION_BUS_ADDRESS": "disabled:"}
        self.desktop = Desktop(self.environment)
        self.addCleanup(self.desktop.end)
        self.environment["DISPLAY"] = self.desktop.name

    def start(self, *arguments, title=TITLE):
        """Starts the program and returns it and its window, once that has the focus."""
        # The previous program may have a window with the same title.
        wait_for(lambda: not self.desktop.windows(), "the end of the previous program")
        program = subprocess.Popen([self.program, *map(str, arguments)],
                                   env=self.environment, stdin=subprocess.DEVNULL)
        self.addCleanup(self.end, program)
        return program, self.desktop.window(title)

    def start_simulated(self):
        """The same, with a healthy module that the program simulates for itself."""
        return self.start("--simulate", self.module(), "--language", ENGLISH)

    def start_read(self):
        """The same, with that module read."""
        return self.start("--simulate", self.module(), "--language", ENGLISH, "--read",
                          title=TITLE_OF_MODULE)

    @staticmethod
    def end(program):
        if program.poll() is None:
            program.terminate()
        program.wait(PATIENCE)

    def assert_ends_well(self, program):
        self.assertEqual(program.wait(PATIENCE), 0)

    def on_panel(self, window, place):
        """The place in the window of a place on the panel."""
        # Menu bar and status bar have about the same height.
        return place[0], place[1] + (window.area().height - PANEL_HEIGHT) // 2

    def click_on_panel(self, window, place):
        self.desktop.click(window, self.on_panel(window, place))

    def wait_for_state(self, window, colour):
        wait_for(lambda: self.desktop.pixel(window, self.on_panel(window, STATE_PICTURE_FOOT))
                 == colour, "the state picture")

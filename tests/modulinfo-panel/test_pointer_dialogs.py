"""The dialogs of the panel in `modulinfo-panel` under a real pointer and real keys."""

import configparser
import pathlib
import shutil
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "system"))

from bench import BIN, wait_for  # noqa: E402
from panel_on_desktop import (  # noqa: E402
    ABOUT, ENGLISH, HELP, LANGUAGE, READ, TITLE, TITLE_OF_MODULE, PanelOnDesktop)

GERMAN, FRENCH, SPANISH, POLISH = 1, 3, 4, 10

DIALOG, RESTART, BOX, NO_HELP = "Language", "MERIDEX_CONF", "Information", "Error Help File"

# The number of Tab presses from the read button.
TABS_TO_LANGUAGE, TABS_FROM_LANGUAGE_TO_ABOUT = 6, 2

# The language dialog: options by their marks, buttons by their centres.
OPTIONS = {GERMAN: (59, 25), POLISH: (253, 25)}
OK, CANCEL = (237, 209), (337, 209)

# The button of the about box.
BOX_OK = (465, 304)

# From the centre of a button to its background just inside the upper and the lower edge, and the two
# colours of the gradient there, without and with the pointer over it.
EDGES = ((-20, -11), (-20, 11))
IDLE = ((0xFD, 0xFD, 0xFD), (0xF2, 0xEF, 0xEB))
UNDER_POINTER = ((0xE1, 0xDF, 0xDB), (0xE6, 0xE4, 0xE1))

# Tolerance: so close to the edge the background is not exactly of that colour.
NEARLY = 3


class PointerDialogsTest(PanelOnDesktop):
    def start_on_port(self, *arguments, **options):
        """Starts the program at a port, so that it stores its settings."""
        if not self.simulators:
            self.port = next(iter(self.simulator(self.module())))
        return self.start("--port", self.port, *arguments, **options)

    def open_language(self):
        program, window = self.start_on_port("--language", ENGLISH)
        self.click_on_panel(window, LANGUAGE)
        return program, self.desktop.window(DIALOG)

    def stored_language(self):
        """The number in the settings; None if there is none."""
        settings = configparser.ConfigParser()
        settings.read(self.settings_file, "utf-8")
        return settings.get("Settings", "Language", fallback=None)

    def assert_chosen(self, language):
        """Checks that the dialog was closed with OK, asks for a restart and stored that language."""
        self.desktop.wait_until_gone(DIALOG)
        self.desktop.window(RESTART)
        self.desktop.press("Return")
        self.desktop.wait_until_gone(RESTART)
        self.assertEqual(self.stored_language(), str(language))
        self.desktop.window(TITLE)

    def assert_cancelled(self):
        """Checks that the dialog was closed and nothing else changed."""
        self.desktop.wait_until_gone(DIALOG)
        self.click_on_panel(self.desktop.window(TITLE), READ)
        self.desktop.window(TITLE_OF_MODULE)
        self.assertEqual(self.desktop.titled(RESTART), [])
        self.assertIsNone(self.stored_language())

    def assert_shows_the_pointer(self, window, button):
        """Checks that the background of the button changes with the pointer over it."""
        def has(gradient):
            shown = [self.desktop.pixel(window, (button[0] + x, button[1] + y)) for x, y in EDGES]
            return all(abs(one - other) <= NEARLY for colours in zip(shown, gradient)
                       for one, other in zip(*colours))
        beside = (5, 5)
        for place, gradient in ((beside, IDLE), (button, UNDER_POINTER), (beside, IDLE)):
            self.desktop.point(window, place)
            wait_for(lambda gradient=gradient: has(gradient), f"the gradient {gradient}")

    def test_a_language_selected_by_clicks_takes_effect_at_the_next_start(self):
        program, dialog = self.open_language()
        self.desktop.click(dialog, OPTIONS[GERMAN])
        self.desktop.click(dialog, OK)
        self.assert_chosen(GERMAN)
        self.desktop.press("Control+q")
        self.assert_ends_well(program)
        self.start_on_port(title="Modul-Information")

    def test_the_arrow_keys_select_a_language_and_return_means_ok(self):
        self.open_language()
        self.desktop.press("Down", "Down", "Return")
        self.assert_chosen(SPANISH)

    def test_tab_and_space_press_ok(self):
        self.open_language()
        self.desktop.press("Down", "Tab", "space")
        self.assert_chosen(FRENCH)

    def test_the_keyboard_alone_opens_the_dialogs(self):
        self.start_simulated()
        self.desktop.press(*["Tab"] * TABS_TO_LANGUAGE, "Return")
        self.desktop.window(DIALOG)
        self.desktop.press("Escape")
        self.desktop.window(TITLE)
        self.desktop.press(*["Tab"] * TABS_FROM_LANGUAGE_TO_ABOUT, "space")
        self.desktop.window(BOX)
        self.desktop.press("Return")
        self.desktop.window(TITLE)
        # Back to the button that had the focus at the start.
        back = TABS_TO_LANGUAGE + TABS_FROM_LANGUAGE_TO_ABOUT
        self.desktop.press(*["Shift+Tab"] * back, "space")
        self.desktop.window(TITLE_OF_MODULE)

    def test_missing_help_is_reported(self):
        place = self.folder / "installed"
        place.mkdir()
        for file in (self.program, *BIN.glob("MERIDEX_CONF.*"), BIN / "TessaraDevices.xml"):
            shutil.copy2(file, place)
        self.program = place / self.program.name
        _, window = self.start_simulated()
        for ask in (lambda: self.click_on_panel(window, HELP), lambda: self.desktop.press("F1")):
            ask()
            self.desktop.window(NO_HELP)
            self.desktop.press("Return")
            self.desktop.wait_until_gone(NO_HELP)
            self.desktop.window(TITLE)

    def test_escape_cancels(self):
        _, dialog = self.open_language()
        self.desktop.click(dialog, OPTIONS[POLISH])
        self.desktop.press("Escape")
        self.assert_cancelled()

    def test_a_click_on_cancel_cancels(self):
        _, dialog = self.open_language()
        self.desktop.press("Down")
        self.desktop.click(dialog, CANCEL)
        self.assert_cancelled()

    def test_the_buttons_of_the_dialogs_highlight_under_the_pointer(self):
        _, dialog = self.open_language()
        for button in (OK, CANCEL):
            self.assert_shows_the_pointer(dialog, button)
        self.desktop.press("Escape")
        self.desktop.wait_until_gone(DIALOG)
        self.click_on_panel(self.desktop.window(TITLE), ABOUT)
        self.assert_shows_the_pointer(self.desktop.window(BOX), BOX_OK)

    def test_the_about_box_blocks_the_panel_until_it_is_closed(self):
        _, window = self.start_simulated()
        ways = (lambda box: self.desktop.press("Escape"),
                lambda box: self.desktop.click(box, BOX_OK),
                lambda box: self.desktop.press("Return"))
        for way in ways:
            self.click_on_panel(window, ABOUT)
            box = self.desktop.window(BOX)
            for button in (READ, LANGUAGE):
                self.click_on_panel(window, button)
            self.desktop.window(BOX)
            way(box)
            self.desktop.wait_until_gone(BOX)
            self.desktop.window(TITLE)
        self.click_on_panel(window, READ)
        self.desktop.window(TITLE_OF_MODULE)


if __name__ == "__main__":
    unittest.main()

"""The window of `modulinfo-panel` under a real pointer and real keys."""

import json
import pathlib
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "system"))

from bench import wait_for  # noqa: E402
from panel_on_desktop import (  # noqa: E402
    ENGLISH, GREEN, OPEN, PRINT, READ, SAVE, TITLE, TITLE_OF_MODULE, PanelOnDesktop)

EVENTS = "Events - " + TITLE

# The list of ports on the panel, and its second line when it is open.
PORTS, SECOND_PORT = (90, 83), (90, 103)
ADDRESS = (300, 83)

# The colours of the busy light and of a selected row.
BUSY, SELECTED = (0x0A, 0x66, 0xC2), (0x30, 0x8C, 0xC6)


class PointerTest(PanelOnDesktop):
    def choose_file(self, title, path):
        """Types the path into the file dialog with that title."""
        self.desktop.window(title)
        self.desktop.press("Control+a")
        self.desktop.type(str(path))
        self.desktop.press("Return")
        self.desktop.wait_until_gone(title)

    def tool_tip(self):
        return wait_for(lambda: self.desktop.popups("TOOLTIP"), "a tool tip")[0]

    def test_a_click_on_the_read_button_fills_the_window(self):
        _, window = self.start_simulated()
        self.click_on_panel(window, READ)
        window = self.desktop.window(TITLE_OF_MODULE)
        self.wait_for_state(window, GREEN)

    def test_a_record_is_saved_and_opened(self):
        _, window = self.start_read()
        saved = self.folder / "Pointed_1.json"
        self.click_on_panel(window, SAVE)
        self.choose_file("Save record", saved)
        wait_for(saved.exists, "the record")
        record = json.loads(saved.read_text("utf-8"))
        self.assertEqual(record["module"]["serialNumber"], "4711")

        self.click_on_panel(self.desktop.window(TITLE_OF_MODULE), OPEN)
        self.choose_file("Open record", saved)
        opened = f"Record: {saved.name} - {TITLE}"
        self.desktop.window(opened)
        self.desktop.press("Escape")
        self.desktop.wait_until_gone(opened)
        self.desktop.window(TITLE_OF_MODULE)

    def test_the_preview_opens_and_closes(self):
        _, window = self.start_read()
        self.click_on_panel(window, PRINT)
        preview = self.desktop.window("Print: TESSARA TM 151")
        self.desktop.press("Escape")
        self.desktop.wait_until_gone(preview.title)
        self.desktop.window(TITLE_OF_MODULE)

    def test_the_window_opens_with_its_last_geometry(self):
        port = next(iter(self.simulator(self.module())))
        program, window = self.start("--port", port, "--language", ENGLISH)
        first = window.area()
        _, _, top, bottom = window.frame
        # By the title bar, then by the lower right corner.
        self.desktop.drag(window, (first.x + 200, first.y - top // 2), (-150, 120))
        moved = first._replace(x=first.x - 150, y=first.y + 120)
        wait_for(lambda: window.area() == moved, "the move")
        corner = (moved.x + moved.width, moved.y + moved.height + bottom // 2)
        self.desktop.drag(window, corner, (90, 60))
        placed = moved._replace(width=moved.width + 90, height=moved.height + 60)
        wait_for(lambda: window.area() == placed, "the size")
        for _ in range(2):
            self.desktop.press("Control+q")
            self.assert_ends_well(program)
            program, window = self.start("--port", port, "--language", ENGLISH)
            wait_for(lambda: window.area() == placed, f"the place {placed}")

    def test_an_address_is_typed(self):
        self.write_settings("[Settings]\nShowAddressSelection=1\n")
        port = next(iter(self.simulator(self.module(address=17))))
        _, window = self.start("--port", port, "--language", ENGLISH)
        self.click_on_panel(window, ADDRESS)
        self.desktop.press("Control+a")
        self.desktop.type("17")
        self.desktop.press("F5")
        self.desktop.window(TITLE_OF_MODULE)

    def test_the_shortcut_quits_the_program_during_a_read(self):
        program, window = self.start("--language", ENGLISH, "--simulate",
                                     self.module(faults=[{"kind": "noReply", "every": 1}]))
        area = window.area()
        light = (area.width - 13, area.height - 12)
        self.click_on_panel(window, READ)
        wait_for(lambda: self.desktop.pixel(window, light) == BUSY, "the light of an access")
        self.desktop.press("Control+q")
        self.assert_ends_well(program)

    def test_the_menu_quits_the_program_by_its_access_keys(self):
        program, _ = self.start_simulated()
        self.desktop.press("Alt+f")
        wait_for(lambda: self.desktop.popups("DROPDOWN_MENU"), "the menu")
        self.desktop.press("q")
        self.assert_ends_well(program)

    def test_closing_the_window_quits_the_program(self):
        program, window = self.start_read()
        area = window.area()
        self.desktop.click(window, (area.width - 10, -window.frame[2] // 2))
        self.assert_ends_well(program)

    def test_the_events_open_and_close_by_their_shortcut_and_take_clicks(self):
        program, _ = self.start_read()
        self.desktop.press("Control+e")
        events = self.desktop.window(EVENTS)
        self.desktop.click(events, (60, 40))
        wait_for(lambda: self.desktop.pixel(events, (300, 40)) == SELECTED, "the selected row")
        area = events.area()
        close = (area.width - 30, area.height - 20)
        for way in (lambda: self.desktop.press("Escape"), lambda: self.desktop.press("Control+e"),
                    lambda: self.desktop.click(events, close)):
            way()
            self.desktop.wait_until_gone(EVENTS)
            self.desktop.window(TITLE_OF_MODULE)
            self.desktop.press("Control+e")
            events = self.desktop.window(EVENTS)
        self.desktop.press("Control+q")
        self.assert_ends_well(program)

    def test_a_tool_tip_appears_and_disappears_with_the_pointer(self):
        _, window = self.start_simulated()
        sizes = set()
        for button in (READ, PRINT):
            self.desktop.point(window, self.on_panel(window, button))
            tip = self.tool_tip().area()
            pointer = window.area().x + button[0]
            self.assertTrue(tip.x - 5 <= pointer + 20 <= tip.x + tip.width, (tip, pointer))
            sizes.add(tip.width)
            self.desktop.point(window, (600, 5))
            wait_for(lambda: not self.desktop.popups("TOOLTIP"), "the end of the tool tip")
        self.assertEqual(len(sizes), 2)

    def test_a_port_is_selected_from_the_list(self):
        ports = list(self.simulator(self.module(), self.module("other.json", name="OTHER")))
        _, window = self.start("--port", ports[0], "--language", ENGLISH)
        self.click_on_panel(window, PORTS)
        wait_for(lambda: self.desktop.popups("NORMAL"), "the list of ports")
        self.click_on_panel(window, SECOND_PORT)
        # An open list grabs the pointer.
        wait_for(lambda: not self.desktop.popups("NORMAL"), "the end of the list")
        self.click_on_panel(window, READ)
        self.desktop.window("OTHER - " + TITLE)


if __name__ == "__main__":
    unittest.main()

"""`modulinfo serve`: what a client sees of the panel and does to it."""

import time
import unittest

from serve_bench import ServeBench

RUN_TIME = -32000

PLACE = {"left", "top", "width", "height"}
SEEN = {"enabled", "visible"} | PLACE
TIP = {"toolTipTitle", "toolTipText"}
KEYS = {
    "list": SEEN | {"text", "items", "index"},
    "box": SEEN | {"text"},
    "timer": {"enabled", "interval"},
    "label": SEEN | TIP | {"caption"},
    "picture": SEEN | {"picture"},
    "button": SEEN | TIP | {"caption", "picture", "gradientstartcolor", "gradientendcolor"},
    "frame": SEEN,
    "images": {"items"},
}
BUTTONS = {
    "CmdStoreParameter": "Download", "CmdDeviceInfo": "Upload", "CmdOfflineConfigure": "Offline",
    "CmdOpenDiskParameter": "Open", "CmdSave2DiskParameter": "Save",
    "CmdPrintConfiguration": "Print", "CmdHelp": "Help", "cmdSettings": "Settings",
    "CmdAbout": "About",
}
VALUES = ["LabelDeviceName", "LabelDeviceDescription", "LblFwVersion", "LblSerialNumber",
          "LblVendorID", "LblGroupID", "LblFamilyID", "LblDeviceID", "LblModulState",
          "LblChnState"]
WIDGETS = {
    "ComboComPort": "list", "ComboBaudrate": "list", "txtDevAddr": "box",
    "TimerScanDevice": "timer", "ImageDevState": "picture", "PictureDevice": "picture",
    "PictureLogo": "picture", "ImageList1": "images", "ImageListButtons": "images",
    **{name: "button" for name in BUTTONS},
    **{f"LngLabel[{index}]": "label" for index in range(9)},
    **{name: "label" for name in VALUES + ["UniLabel1", "UniLabel2", "UniLabel3", "Label1"]},
    **{name: "frame" for name in ("Frame1", "Frame2", "Frame3", "Frame14")},
}
RATES = ["2400", "4800", "9600", "14400", "19200", "28800", "38400", "56000", "57600", "76800",
         "115200"]


class Widgets(ServeBench):
    def test_every_widget_exists_with_the_keys_of_its_kind(self):
        states = self.serve().request("widgets")
        self.assertEqual(set(states), set(WIDGETS))
        for name, kind in WIDGETS.items():
            self.assertEqual(set(states[name]), KEYS[kind], name)

    def test_one_widget_has_the_same_state_as_among_all(self):
        client = self.shown()
        for name, state in client.request("widgets").items():
            self.assertEqual(client.widget(name), state, name)

    def test_the_design_values(self):
        states = self.serve().request("widgets")
        self.assertEqual((states["ComboBaudrate"]["items"], states["ComboBaudrate"]["text"],
                          states["ComboBaudrate"]["index"]), (RATES, "19200", 4))
        self.assertEqual(states["txtDevAddr"]["text"], "192")
        self.assertEqual(states["TimerScanDevice"], {"enabled": False, "interval": 4000})
        self.assertEqual([states[name]["caption"] for name in
                          ("UniLabel1", "UniLabel2", "UniLabel3", "Label1")],
                         ["Family ID :", "Device ID :", "Group ID :", "Vendor ID:"])
        self.assertFalse(states["ImageDevState"]["visible"])
        self.assertEqual(states["ImageListButtons"]["items"],
                         ["Upload", "Download", "Open", "Save", "Settings", "Print", "Offline",
                          "Help", "About"])
        for name, key in BUTTONS.items():
            state = states[name]
            self.assertEqual((state["picture"], state["enabled"], state["caption"],
                              state["width"], state["height"]), (key, True, "", 495, 495))

    def test_showing_fills_captions_and_tool_tips(self):
        client = self.shown()
        self.assertEqual(client.caption("LngLabel[3]"), "Gerätetyp:")
        self.assertEqual(client.caption("LngLabel[7]"), "Modul Status: ")
        self.assertEqual(client.widget("CmdDeviceInfo")["toolTipText"],
                         "Parameter aus Modul lesen")
        label = client.widget("LngLabel[3]")
        self.assertEqual((label["top"], label["height"]), (240, 255))

    def test_a_long_caption_gets_two_lines(self):
        client = self.serve()
        self.come_up(client)
        for language in range(1, 12):
            client.set("Language", language)
            client.request("show")
            label = client.widget("LngLabel[3]")
            two_lines = len(label["caption"]) > 14
            self.assertEqual((label["top"], label["height"]),
                             (140, 400) if two_lines else (240, 255), label["caption"])

    def test_showing_again_starts_afresh(self):
        client = self.shown("--simulate", self.module())
        for _ in range(2):
            self.assertIsNone(client.request("show"))
            self.assertEqual(client.take_events(), [("NFCReader", False)] * 2)
            self.assertEqual(client.widget("ComboComPort")["items"], ["USB Adapter OKT (COM100)"])

    def test_the_settings_decide_whether_rate_and_address_are_shown(self):
        self.write_settings("[Settings]\nShowAddressSelection=1\n")
        client = self.shown()
        self.assertTrue(client.widget("txtDevAddr")["visible"])
        self.assertFalse(client.widget("ComboBaudrate")["visible"])

    def test_buttons_that_only_notify_the_host(self):
        client = self.shown()
        for button, callback in (("CmdOpenDiskParameter", "LoadConfiguration"),
                                 ("CmdSave2DiskParameter", "SaveConfiguration"),
                                 ("CmdPrintConfiguration", "PrintConfiguration")):
            self.assertIsNone(client.press(button))
            self.assertEqual(client.take_events(), [(callback,)])

    def test_a_disabled_button_cannot_be_pressed(self):
        client = self.shown()
        client.call("DisableCmdStore")
        for button in ("CmdStoreParameter", "CmdOpenDiskParameter", "CmdPrintConfiguration"):
            self.assertIn(button, self.fails(RUN_TIME, 5, client, "press", widget=button))
        self.assertEqual(client.take_notifications(), [])

    def test_the_read_button_reads(self):
        client = self.shown("--simulate", self.module())
        self.assertIsNone(client.press("CmdDeviceInfo"))
        self.assertEqual(client.get("DataValid"), 1)
        state = client.widget("LblModulState")
        self.assertEqual((state["caption"], state["toolTipTitle"], state["toolTipText"]),
                         ("0 -> Kein Fehler", "Modul Status", "0 -> Kein Fehler"))
        image = client.widget("ImageDevState")
        self.assertEqual((image["picture"], image["visible"]), (1, True))

    def test_the_store_button_checks_the_module_first(self):
        client = self.reading(self.module())
        client.call("UnLockCmdStore")
        client.press("CmdStoreParameter")
        self.assertEqual(client.take_events()[-1], ("SetConfiguration",))
        client.set("DeviceID", 7)
        client.press("CmdStoreParameter")
        received = client.take_notifications()
        self.assertEqual([params for method, params in received if method == "message"],
                         [{"text": "Falscher Modultyp!", "style": 16, "title": "MERIDEX_CONF"}])
        self.assertNotIn(("event", {"name": "SetConfiguration", "args": []}), received)

    def test_a_line_is_selected_by_number_or_text(self):
        client = self.shown()
        for choice, rate in (({"index": 0}, 2400), ({"text": "115200"}, 115200),
                             ({"text": "115200"}, 115200)):
            self.assertIsNone(client.request("select", widget="ComboBaudrate", **choice))
            self.assertEqual(client.get("Baudrate"), rate)
            state = client.widget("ComboBaudrate")
            self.assertEqual((state["text"], state["items"][state["index"]]),
                             (str(rate), str(rate)))

    def test_an_absent_line_is_an_invalid_value(self):
        client = self.shown()
        for choice in ({"index": 11}, {"index": -1}, {"text": "19201"}, {"text": ""}):
            self.fails(RUN_TIME, 380, client, "select", widget="ComboBaudrate", **choice)
        self.fails(RUN_TIME, 380, client, "select", widget="ComboComPort", index=0)
        self.assertEqual(client.widget("ComboBaudrate")["text"], "19200")

    def test_the_selected_port_can_be_selected_again(self):
        client = self.shown("--simulate", self.module())
        for _ in range(2):
            client.request("select", widget="ComboComPort", index=0)
            self.assertEqual(client.take_events(), [("NFCReader", False)])
        self.assertEqual(client.get("ComPort"), 100)
        self.assertEqual(client.get("CommunicationObject"), "ModbusCommObject")

    def test_typing_runs_no_handler(self):
        client = self.shown()
        self.assertIsNone(client.request("type", widget="ComboBaudrate", text="300"))
        state = client.widget("ComboBaudrate")
        self.assertEqual((state["text"], state["index"]), ("300", -1))
        self.assertEqual(client.get("Baudrate"), 19200)
        client.request("type", widget="ComboBaudrate", text="9600")
        self.assertEqual(client.widget("ComboBaudrate")["index"], 2)

    def test_the_typed_address_is_read(self):
        client = self.shown("--simulate", self.module(address=7))
        client.request("type", widget="txtDevAddr", text="7")
        client.call("AutomaticConnection")
        self.assertEqual((client.get("DataValid"), client.get("DevAddr")), (1, 7))
        self.assertEqual(client.get("StatusString"), "Verbindungsaufbau")

    def test_a_tick_runs_the_handler_of_an_enabled_timer(self):
        client = self.shown("--simulate", self.module())
        self.assertIs(client.request("tick", timer="TimerScanDevice"), False)
        self.assertEqual(client.take_notifications(), [])
        client.call("AutomaticConnection")
        client.take_notifications()
        self.assertIs(client.request("tick", timer="TimerScanDevice"), True)
        self.assertEqual(client.take_events(), [("ModulActive", 4), ("StatusChange",)])

    def test_a_tick_does_nothing_while_the_host_is_busy(self):
        client = self.reading(self.module())
        client.set("DeviceActive", 4)
        client.take_notifications()
        self.assertIs(client.request("tick", timer="TimerScanDevice"), True)
        self.assertEqual(client.take_notifications(), [])
        client.set("DeviceActive", 0)
        client.take_notifications()
        client.request("tick", timer="TimerScanDevice")
        self.assertEqual(client.take_events()[0], ("ModulActive", 4))

    def test_a_wait_lasts_as_long_as_requested(self):
        client = self.serve()
        begun = time.monotonic()
        self.assertIsNone(client.request("wait", ms=0))
        self.assertIsNone(client.request("wait", ms=200))
        self.assertGreaterEqual(time.monotonic() - begun, 0.2)

    def test_the_timer_ticks_by_itself_in_a_wait_and_without_one(self):
        client = self.reading(self.module())
        client.request("wait", ms=5000)
        self.assertIn(("ModulActive", 4), client.take_events())
        client.wait_until_notified(("event", {"name": "ModulActive", "args": [4]}))

    def test_a_stopped_scan_does_not_tick(self):
        client = self.reading(self.module())
        client.set("DeviceActive", 3)
        self.assertIs(client.request("tick", timer="TimerScanDevice"), False)
        self.assertFalse(client.widget("TimerScanDevice")["enabled"])


if __name__ == "__main__":
    unittest.main()

"""`modulinfo serve`: the members of the control, as a host meets them."""

import unittest

from bench import BIN, HEALTHY, PATIENCE
from serve_bench import ServeBench

RUN_TIME = -32000
WRONG_PARAMETERS = -32602

# The interface: name, access, type.
PROPERTIES = [
    ("DeviceID", "get/set", "Long"),
    ("FamilyID", "get/set", "Long"),
    ("FirmwareVers", "get/set", "Double"),
    ("DeviceName", "get/set", "variant"),
    ("CmdLineString", "get/set", "variant"),
    ("FwVersion", "get/set", "variant"),
    ("SerialNumber", "get", "variant"),
    ("PackbLink", "get/set", "variant"),
    ("ProductLink", "get/set", "variant"),
    ("DatasheetLink", "get/set", "variant"),
    ("VersionString", "get/set", "variant"),
    ("DevAddr", "get", "Byte"),
    ("CommunicationObject", "get", "object"),
    ("DataValid", "get/set", "Long"),
    ("DeviceConnected", "get/set", "Long"),
    ("ComPort", "get/set", "Long"),
    ("DataBits", "get", "Long"),
    ("StopBits", "get", "Long"),
    ("Parity", "get", "Long"),
    ("Baudrate", "get/set", "Long"),
    ("MaxBaudrate", "get", "Long"),
    ("AppPathString", "get/set", "variant"),
    ("Language", "get/set", "Integer"),
    ("StatusString", "get/set", "variant"),
    ("ChnStatusString", "get", "variant"),
    ("ModulStatusString", "get", "variant"),
    ("DescriptionString", "set", "variant"),
    ("ManufactureLogoString", "get/set", "variant"),
    ("DeviceLogoString", "set", "variant"),
    ("DevicePictureString", "get/set", "variant"),
    ("StringsReverse", "get", "Long"),
    ("NFCReader", "get", "Long"),
    ("GetNFCMCURevison", "get", "string"),
    ("QuickSetupMode", "get", "Long"),
    ("QuickSetup", "get/set", "Long"),
    ("DeviceActive", "set", "Long"),
    ("DataTrafic", "get", "Boolean"),
    ("CheckDeviceType", "get", "Long"),
]

# Name, result, arguments, which are all Long by reference.
METHODS = [
    ("SetChnStatus", "Boolean", ["lInStatus", "lOutStatus"]),
    ("SetModuleStatus", "Boolean", ["lDevStatus", "lLedStatus"]),
    ("LockCmdStore", "variant", []),
    ("UnLockCmdStore", "variant", []),
    ("EnableCmdStore", "variant", []),
    ("DisableCmdStore", "variant", []),
    ("AutomaticConnection", "none", []),
    ("GetFWVersion", "none", []),
    ("GetDeviceInformation", "none", []),
    ("GetDeviceStatus", "none", []),
]

# Name, and the type of the one argument, by reference.
CALLBACKS = [
    ("ModulActive", ("lStatus", "Long")),
    ("StatusChange", None),
    ("SetConfiguration", None),
    ("SaveConfiguration", None),
    ("LoadConfiguration", None),
    ("PrintConfiguration", None),
    ("DataTransfer", None),
    ("NFCReader", ("bNFCReader", "Boolean")),
]

# The value of every readable property before anything has happened.
INITIAL = {
    "DeviceID": 0, "FamilyID": 0, "FirmwareVers": 0, "DeviceName": "", "CmdLineString": "",
    "FwVersion": "", "SerialNumber": 0, "PackbLink": "", "ProductLink": "", "DatasheetLink": "",
    "VersionString": "", "DevAddr": 0, "CommunicationObject": None, "DataValid": 0,
    "DeviceConnected": 0, "ComPort": 0, "DataBits": 8, "StopBits": 1, "Parity": 2, "Baudrate": 0,
    "MaxBaudrate": 0, "AppPathString": "", "Language": 0, "StatusString": "",
    "ChnStatusString": "", "ModulStatusString": "", "ManufactureLogoString": "",
    "DevicePictureString": "", "StringsReverse": 1, "NFCReader": 0, "GetNFCMCURevison": "",
    "QuickSetupMode": 0, "QuickSetup": 0, "DataTrafic": False,
}

# Property, value written, value read back.
WRITTEN = [
    ("DeviceID", 32767, 32767),
    ("DeviceID", -32768, -32768),
    ("DeviceID", "151", 151),
    ("DeviceID", 1.5, 2),
    ("DeviceID", 2.5, 2),
    ("DeviceID", True, -1),
    ("DeviceID", None, 0),
    ("FamilyID", 15, 15),
    ("FirmwareVers", 1.5, 1.5),
    ("FirmwareVers", "1.25", 1.25),
    ("FirmwareVers", 1.1, 1.100000023841858),
    ("DeviceName", "Meßumformer 温", "Meßumformer 温"),
    ("DeviceName", "\U0001f600\u0000x", "\U0001f600\u0000x"),
    ("DeviceName", 5, "5"),
    ("DeviceName", True, "True"),
    ("DeviceName", None, ""),
    ("CmdLineString", "-x", "-x"),
    ("FwVersion", "1,2", "1.200"),
    ("PackbLink", "a", "a"),
    ("ProductLink", "b", "b"),
    ("DatasheetLink", "c", "c"),
    ("VersionString", "2.3.4", "2.3.4"),
    ("DataValid", 7, 1),
    ("DataValid", 0, 0),
    ("DeviceConnected", 1, 1),
    ("DeviceConnected", -1, 0),
    ("DeviceConnected", 2, 0),
    ("ComPort", 999, 999),
    ("Baudrate", 2147483647, 2147483647),
    ("Baudrate", 300, 300),
    ("AppPathString", "/somewhere", "/somewhere"),
    ("Language", 11, 11),
    ("Language", -5, -5),
    ("StatusString", "busy", "busy"),
    ("QuickSetup", 1, 1),
    ("QuickSetup", -1, 0),
]

# Property, value written, number of the error.
REFUSED = [
    ("DeviceID", 32768, 6),
    ("DeviceID", -32769, 6),
    ("FamilyID", 32768, 6),
    ("ComPort", 32768, 6),
    ("Language", 32768, 6),
    ("Baudrate", 2147483648, 6),
    ("Baudrate", 18446744073709551615, 6),
    ("DataValid", 1e300, 6),
    ("DeviceID", "abc", 13),
    ("DeviceID", "", 13),
    ("FirmwareVers", "1.2.3", 13),
    ("Language", "German", 13),
    ("Baudrate", "19200 baud", 13),
    ("QuickSetup", "yes", 13),
    ("DeviceActive", "1x", 13),
]


class Members(ServeBench):
    def test_the_table_is_the_interface(self):
        told = {(row["name"], row["kind"]): row for row in self.serve().request("members")}
        expected = {(name, "property"): {"name": name, "kind": "property", "access": access,
                                         "types": {"value": kind}}
                    for name, access, kind in PROPERTIES}
        for name, result, arguments in METHODS:
            types = {"result": result, "arguments": [
                {"name": argument, "type": "Long", "byReference": True} for argument in arguments]}
            expected[name, "method"] = {"name": name, "kind": "method", "types": types}
        for name, argument in CALLBACKS:
            types = {"arguments": [{"name": argument[0], "type": argument[1], "byReference": True}]
                                  if argument else []}
            expected[name, "callback"] = {"name": name, "kind": "callback", "types": types}
        self.assertEqual(told, expected)

    def test_every_property_is_read_before_anything_has_happened(self):
        client = self.serve()
        readable = {name for name, access, _ in PROPERTIES if access.startswith("get")}
        self.assertEqual(readable - {"CheckDeviceType"}, set(INITIAL))
        self.assertEqual({name: client.get(name) for name in INITIAL}, INITIAL)

    def test_every_property_is_written_and_read_back(self):
        client = self.serve()
        for name, value, read in WRITTEN:
            with self.subTest(name=name, value=value):
                self.assertIsNone(client.set(name, value))
                back = client.get(name)
                self.assertEqual((back, type(back)), (read, type(read)))

    def test_a_value_that_does_not_fit_is_an_error_and_changes_nothing(self):
        client = self.serve()
        for name, value, number in REFUSED:
            with self.subTest(name=name, value=value):
                before = None if name == "DeviceActive" else client.get(name)
                self.assertTrue(
                    self.fails(RUN_TIME, number, client, "set", name=name, value=value))
                if before is not None:
                    self.assertEqual(client.get(name), before)

    def test_a_property_without_that_access_is_refused(self):
        client = self.serve()
        for name, access, _ in PROPERTIES:
            with self.subTest(name):
                if access == "get":
                    message = self.fails(WRONG_PARAMETERS, None, client, "set", name=name, value=1)
                    self.assertEqual(message, f"{name} cannot be written")
                elif access == "set":
                    message = self.fails(WRONG_PARAMETERS, None, client, "get", name=name)
                    self.assertEqual(message, f"{name} cannot be read")

    def test_each_write_of_the_status_is_reported_even_of_the_same_text(self):
        client = self.serve()
        for _ in range(2):
            client.set("StatusString", "x")
            self.assertEqual(client.take_events(), [("StatusChange",)])

    def test_the_data_trafic_is_reported(self):
        client = self.serve()
        self.assertIs(client.get("DataTrafic"), False)
        self.assertEqual(client.take_events(), [("DataTransfer",)])

    def test_what_the_host_is_doing_is_reported(self):
        client = self.serve()
        for written, raised in ((0, 0), (1, 1), (3, 3), (4, 4), (5, 5), (6, 7), (7, 8)):
            client.set("DeviceActive", written)
            self.assertEqual(client.take_events(), [("ModulActive", raised)])
        for written in (2, 8, -1):
            client.set("DeviceActive", written)
            self.assertEqual(client.take_events(), [])

    def test_offline_mode_survives_a_write_of_1_and_ends_with_0(self):
        client = self.shown()
        client.press("CmdOfflineConfigure")
        self.assertEqual(client.get("DataValid"), 2)
        client.set("DataValid", 1)
        self.assertEqual(client.get("DataValid"), 2)
        client.set("DataValid", 0)
        self.assertEqual(client.get("DataValid"), 0)

    def test_status_words_are_decoded_for_the_host(self):
        client = self.shown()
        self.assertIs(client.call("SetModuleStatus", 4, 4096), True)
        self.assertEqual(client.get("ModulStatusString"), client.caption("LblModulState"))
        self.assertIn("Simulation", client.get("ModulStatusString"))
        self.assertIs(client.call("SetChnStatus", 1, 0x80), True)
        self.assertEqual(client.get("ChnStatusString"), "1 -> Drahtbruch Sensor!")

    def test_a_status_word_out_of_range_is_an_error(self):
        client = self.shown()
        for name in ("SetChnStatus", "SetModuleStatus"):
            self.fails(RUN_TIME, 6, client, "call", name=name, args=[32768, 0])
            self.fails(RUN_TIME, 13, client, "call", name=name, args=["abc", 0])

    def test_a_method_takes_the_arguments_that_it_has(self):
        client = self.shown()
        for name, args in (("SetChnStatus", [1]), ("SetChnStatus", [1, 2, 3]),
                           ("LockCmdStore", [1])):
            message = self.fails(WRONG_PARAMETERS, None, client, "call", name=name, args=args)
            self.assertIn(name, message)
        self.assertIsNone(client.request("call", name="LockCmdStore"))

    def test_the_lock_of_the_store_button(self):
        client = self.shown()
        steps = (("LockCmdStore", False), ("EnableCmdStore", False), ("UnLockCmdStore", True),
                 ("DisableCmdStore", False), ("EnableCmdStore", True))
        for method, enabled in steps:
            self.assertIsNone(client.call(method))
            self.assertEqual(client.widget("CmdStoreParameter")["enabled"], enabled, method)

    def test_without_a_selected_object_a_query_reports_a_failed_connection(self):
        client = self.serve()
        self.assertEqual(client.get("CheckDeviceType"), 0)
        self.assertEqual(client.take_events()[-1], ("ModulActive", 3))

    def test_queries_of_a_module_that_was_read(self):
        client = self.reading(self.module())
        self.assertEqual(client.get("CheckDeviceType"), 1)
        client.set("DeviceID", 7)
        self.assertEqual(client.get("CheckDeviceType"), 0)
        client.take_notifications()
        self.assertIsNone(client.call("GetDeviceInformation"))
        self.assertEqual(client.get("DeviceID"), HEALTHY["deviceId"])
        client.set("FwVersion", "")
        self.assertIsNone(client.call("GetFWVersion"))
        self.assertEqual(client.get("FwVersion"), HEALTHY["firmware"])
        self.assertEqual(client.get("StatusString"), "Lese Daten")
        self.assertIsNone(client.call("GetDeviceStatus"))
        self.assertEqual(client.get("StatusString"), "")

    def test_the_serial_number_keeps_all_its_digits(self):
        client = self.reading(self.module(serialNumber="18446744073709551615"))
        identity = client.send("get", name="SerialNumber")
        line = client.lines.get(timeout=PATIENCE).decode()
        self.assertEqual(
            line, f'{{"jsonrpc":"2.0","id":{identity},"result":18446744073709551615}}\n')

    def test_the_property_and_the_callback_of_the_reader_have_one_name(self):
        client = self.reading(self.module(link="nfc-twn4"))
        self.assertEqual(client.get("NFCReader"), 1)
        client.call("AutomaticConnection")
        self.assertIn(("NFCReader", True), client.take_events())

    def test_a_file_that_is_not_a_picture_is_an_error(self):
        client = self.shown()
        client.set("AppPathString", f"{self.folder}/")
        # What only begins like a picture is not one either.
        for content in ("text", "BM", "<svg", "<svg><g></svg>"):
            (self.folder / "logo.png").write_text(content, encoding="utf-8")
            message = self.fails(RUN_TIME, 481, client, "set", name="DeviceLogoString",
                                 value="logo.png")
            self.assertIn("logo.png", message)

    def test_a_logo_is_found_and_shown(self):
        logo = self.folder / "logo.svg"
        logo.write_text("<svg xmlns='http://www.w3.org/2000/svg'/>", encoding="utf-8")
        client = self.shown()
        client.set("AppPathString", f"{self.folder}/")
        client.set("DeviceLogoString", "logo.svg")
        self.assertEqual(client.widget("PictureDevice")["picture"], str(logo))
        client.set("DeviceLogoString", "none.svg")
        self.assertIsNone(client.widget("PictureDevice")["picture"])

    def test_a_description_appears_on_the_panel(self):
        client = self.shown()
        client.set("DescriptionString", "Pt100, four wires")
        state = client.widget("LabelDeviceDescription")
        self.assertEqual((state["caption"], state["toolTipText"]),
                         ("Pt100, four wires", "Pt100, four wires"))

    def test_the_host_chooses_the_folder_of_the_language_files(self):
        client = self.serve()
        client.request("show")
        (_, message), = client.take_notifications("message")
        self.assertEqual((message["text"], message["style"]),
                         ("Error language file! Set to default!", 48))
        client.set("AppPathString", str(BIN))
        client.set("Language", 2)
        client.request("show")
        self.assertEqual(client.take_notifications("message"), [])


if __name__ == "__main__":
    unittest.main()

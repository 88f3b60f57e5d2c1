"""What `modulinfo read` prints of a healthy module."""

import json
import unittest

from bench import HEALTHY, Bench

TEXT = """\
COM-Port:          USB Adapter OKT (COM100)
Gerätetyp:         TESSARA TM 151
Beschreibung:
Firmware Version:  1.100
Seriennummer:      4711
Vendor ID:         49
Group ID :         1
Family ID :        15
Device ID :        151
Modul Status:      0 -> Kein Fehler
Kanal Status:      80 -> Kein Fehler
ProductLink:       https://example.invalid/tessara/tm-151
DatasheetLink:     https://example.invalid/tessara/tm-151/datasheet-de.pdf
PackbLink:         https://example.invalid/tessara/tm-151/leaflet.pdf
"""

OBJECT = {
    "port": "COM100",
    "adapter": "USB Adapter OKT (COM100)",
    "baudrate": 19200,
    "address": 192,
    "vendorId": 49,
    "groupId": 1,
    "familyId": 15,
    "deviceId": 151,
    "deviceName": "TESSARA TM 151",
    "description": "",
    "firmwareVersion": "1.100",
    "serialNumber": 4711,
    "moduleStatus": "0 -> Kein Fehler",
    "channelStatus": "80 -> Kein Fehler",
    "statePicture": 1,
    "links": {
        "product": "https://example.invalid/tessara/tm-151",
        "datasheet": "https://example.invalid/tessara/tm-151/datasheet-de.pdf",
        "packb": "https://example.invalid/tessara/tm-151/leaflet.pdf",
    },
    "statusString": "",
    "dataValid": 1,
}


class Read(Bench):
    def read_json(self, *arguments):
        return json.loads(self.succeed("read", "--json", "--language", 1, *arguments))

    def test_text_of_a_simulated_module(self):
        self.assertEqual(self.succeed("read", "--simulate", self.module(), "--language", 1), TEXT)

    def test_text_through_a_running_simulator(self):
        self.simulator(self.module())
        self.assertEqual(self.succeed("read", "--port", "COM100", "--language", 1), TEXT)

    def test_text_through_a_port_entered_by_hand(self):
        ports = self.simulator(self.module())
        self.write_settings(
            f"[Ports]\nCOM9\\Device={ports['COM100']}\nCOM9\\Name=\\Device\\Silabser9\n")
        self.assertEqual(self.succeed("read", "--port", "COM9", "--language", 1),
                         TEXT.replace("COM100", "COM9"))

    def test_json_is_one_object_and_nothing_else(self):
        self.assertEqual(self.read_json("--simulate", self.module()), OBJECT)

    def test_json_through_a_running_simulator(self):
        self.simulator(self.module())
        self.assertEqual(self.read_json("--port", "com100"), OBJECT)

    def test_each_of_several_simulated_ports_is_read(self):
        self.simulator(self.module("a.json", serialNumber="1"),
                       self.module("b.json", serialNumber="2"))
        self.assertEqual(self.read_json("--port", "COM100")["serialNumber"], 1)
        self.assertEqual(self.read_json("--port", "COM101")["serialNumber"], 2)

    def test_a_port_is_not_confused_with_one_whose_number_begins_with_the_same_digits(self):
        ports = self.simulator(self.module("a.json", serialNumber="1"),
                               self.module("b.json", serialNumber="2"))
        self.write_settings(f"[Ports]\nCOM10\\Device={ports['COM101']}\n")
        self.assertEqual(self.read_json("--port", "COM10")["serialNumber"], 2)

    def test_the_largest_serial_number_keeps_all_its_digits(self):
        module = self.module(serialNumber="18446744073709551615")
        self.assertIn('"serialNumber": 18446744073709551615,',
                      self.succeed("read", "--json", "--simulate", module))

    def test_padding_of_the_name_is_not_printed(self):
        module = self.module(name="TM  151", namePadding="blank")
        self.assertEqual(self.read_json("--simulate", module)["deviceName"], "TM  151")

    def test_a_name_beyond_ascii_is_utf8(self):
        module = self.module(name="Meßumformer ±5")
        self.assertEqual(self.read_json("--simulate", module)["deviceName"], "Meßumformer ±5")

    def test_faults_of_the_module_are_decoded(self):
        module = self.module(status=HEALTHY["status"] | {"80": 4, "81": 1, "84": 4096})
        read = self.read_json("--simulate", module)
        self.assertEqual(read["moduleStatus"], "USB-Power; 4 -> Simulation")
        self.assertEqual(read["channelStatus"], "1 -> Drahtbruch Sensor!")
        self.assertEqual(read["statePicture"], 2)

    def test_the_error_word_is_read_for_a_module_with_the_error_bit(self):
        module = self.module(status=HEALTHY["status"] | {"80": 2, "82": 16})
        self.assertEqual(self.read_json("--simulate", module)["moduleStatus"],
                         "10 -> Fehler RAM Mess-System")

    def test_a_module_that_the_catalogue_does_not_know_is_read(self):
        # Without an entry the status words are read from register 0.
        module = self.module(deviceId=9999, registers={"0": 0})
        read = self.read_json("--simulate", module)
        self.assertEqual(read["deviceId"], 9999)
        self.assertEqual(read["links"], {"product": "", "datasheet": "", "packb": ""})
        self.assertEqual(read["dataValid"], 1)

    def test_another_address_shows_no_status(self):
        read = self.read_json("--simulate", self.module(address=7), "--address", 7)
        self.assertEqual(read["address"], 7)
        self.assertEqual((read["moduleStatus"], read["channelStatus"]), ("", ""))
        self.assertEqual(read["statusString"], "Verbindungsaufbau")

    def test_the_address_is_shown_if_the_settings_show_it(self):
        self.write_settings("[Settings]\nShowAddressSelection=1\nShowBaudrateSelection=1\n")
        text = self.succeed("read", "--simulate", self.module(address=7), "--address", 7,
                            "--baudrate", 57600, "--language", 1)
        self.assertIn("Adresse:           7\n", text)
        self.assertIn("Baudrate:          57600\n", text)

    def test_the_language_of_the_settings_is_used(self):
        self.write_settings("[Settings]\nLanguage=1\n")
        self.assertEqual(self.succeed("read", "--simulate", self.module()), TEXT)

    def test_the_language_option_overrides_the_settings(self):
        self.write_settings("[Settings]\nLanguage=1\n")
        text = self.succeed("read", "--simulate", self.module(), "--language", 2)
        self.assertIn("datasheet-en.pdf", text)
        self.assertNotIn("Gerätetyp", text)

    def test_values_are_aligned_in_wide_scripts(self):
        text = self.succeed("read", "--simulate", self.module(), "--language", 9)
        columns = {sum(2 if ord(sign) >= 0x2E80 else 1 for sign in line[:line.index(value)])
                   for line in text.splitlines()
                   for value in ("USB Adapter", "TESSARA TM", "4711") if value in line}
        self.assertEqual(len(columns), 1, text)

    def test_the_trace_goes_to_standard_error_and_into_the_object(self):
        done = self.run_modulinfo("read", "--simulate", self.module(), "--json", "--trace")
        calls = [call for call in json.loads(done.stdout)["trace"]
                 if not call["operation"].startswith("Init")]
        self.assertEqual([call["operation"] for call in calls],
                         ["ConnectWithSerialDevice", "ReadDeviceIdentifier"]
                         + ["ReadInputRegisters"] * 8 + ["CloseSerialConnection"])
        identification = calls[1]
        self.assertEqual(identification["object"], "ModbusCommObject")
        self.assertEqual(identification["args"], [192])
        self.assertEqual(identification["result"], [49, 1, 15, 151])
        self.assertGreaterEqual(identification["ms"], 0)
        self.assertIn("ModbusCommObject.ReadDeviceIdentifier(192) = [49, 1, 15, 151]", done.stderr)

    def test_the_chosen_port_is_kept_in_the_settings(self):
        self.simulator(self.module())
        self.succeed("read", "--port", "COM100")
        self.assertEqual(self.succeed("settings", "get", "COM Port"), "100\n")

    def test_a_simulated_module_leaves_the_settings_alone(self):
        self.write_settings("[Settings]\nCOM%20Port=3\n")
        self.succeed("read", "--simulate", self.module())
        self.assertEqual(self.succeed("settings", "get", "COM Port"), "3\n")


if __name__ == "__main__":
    unittest.main()

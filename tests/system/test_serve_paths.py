"""`modulinfo serve` with modules on all four paths."""

import unittest

import hart_bench
from bench import HEALTHY, wait_for
from serve_bench import ServeBench

# The path, its module, its line in the port list, and the object that serves it.
PATHS = {
    "serial": ("USB Adapter OKT (COM100)", "ModbusCommObject", 100, 0),
    "hart": ("USB Hart Adapter Viator (COM100)", "HartCommObject", 100, 0),
    "nfc-usb": ("NFC-USB-ZORVEN-ADAPTER", "NfcCommObject", 999, 1),
    "nfc-twn4": ("TWN4 NFC-Adapter (COM100)", "NfcCommObject", 100, 1),
}


class Paths(hart_bench.HartBench, ServeBench):
    def module_of(self, path, **changes):
        if path == "hart":
            return self.hart(**changes)
        return self.module(**({} if path == "serial" else {"link": path}), **changes)

    def each_path(self):
        for path, row in PATHS.items():
            client = self.shown("--simulate", self.module_of(path), "--trace")
            yield (client, path, *row)
            self.end_in_order(client)

    def test_the_line_of_the_path_is_listed_and_selected(self):
        for client, _, line, comm_object, port, nfc in self.each_path():
            state = client.widget("ComboComPort")
            self.assertEqual((state["items"], state["index"], state["text"]), ([line], 0, line))
            self.assertEqual((client.get("CommunicationObject"), client.get("ComPort"),
                              client.get("NFCReader")), (comm_object, port, nfc))

    def test_a_module_is_read(self):
        for client, path, _, comm_object, port, nfc in self.each_path():
            self.assertIsNone(client.call("AutomaticConnection"))
            received = client.take_notifications()
            objects = {params["object"] for method, params in received if method == "device"}
            self.assertEqual(objects, {comm_object})
            self.assertEqual(
                [params["args"] for method, params in received
                 if method == "device" and params["operation"] == "ConnectWithSerialDevice"],
                [[port, 19200]])
            self.assertEqual(received[-1], ("event", {"name": "NFCReader", "args": [bool(nfc)]}))
            self.assertEqual(client.get("DataValid"), 1)
            self.check_identification(client, path)

    def check_identification(self, client, path):
        if path == "hart":
            healthy = hart_bench.HEALTHY
            self.assertIn(healthy["serialNumber"], client.caption("LblSerialNumber"))
            self.assertEqual(client.get("SerialNumber"), 0)
            self.assertIn(healthy["firmware"], client.get("FwVersion"))
            self.assertIn(healthy["name"], client.get("DeviceName"))
            self.assertEqual(client.caption("LblVendorID"), "176")
            return
        self.assertEqual(client.get("SerialNumber"), int(HEALTHY["serialNumber"]))
        self.assertEqual(client.get("FwVersion"), HEALTHY["firmware"])
        self.assertEqual(client.get("DeviceName").rstrip("\0 "), HEALTHY["name"])
        self.assertEqual((client.get("FamilyID"), client.get("DeviceID")), (15, 151))

    def test_a_scan_keeps_the_panel_current(self):
        for client, path, *_ in self.each_path():
            client.call("AutomaticConnection")
            client.call("SetModuleStatus", 4, 4096)
            self.assertIn("USB-Power; ", client.caption("LblModulState"))
            client.take_notifications()
            self.assertIs(client.request("tick", timer="TimerScanDevice"), True)
            self.assertEqual([params["args"] for _, params in client.take_notifications("event")
                              if params["name"] == "ModulActive"], [[4]])
            self.assertEqual(client.caption("LblModulState"),
                             "NFC" if path.startswith("nfc") else "0 -> Kein Fehler")

    def test_a_module_that_does_not_answer_is_reported(self):
        for path in PATHS:
            with self.subTest(path):
                module = self.module_of(path, faults=[{"kind": "exception", "code": 4,
                                                       "every": 1}])
                client = self.shown("--simulate", module)
                client.call("AutomaticConnection")
                self.assertEqual(client.get("StatusString"), "Fehler Verbindung!")
                self.assertEqual(client.take_events()[-1], ("ModulActive", 3))
                self.assertEqual(client.get("DataValid"), 0)

    def test_a_person_changes_the_path_between_two_reads(self):
        self.simulator(self.module("a.json", serialNumber="1"), self.hart(),
                       self.module("b.json", link="nfc-twn4", serialNumber="3"))
        client = self.shown()
        lines = wait_for(lambda: client.widget("ComboComPort")["items"], "ports")
        self.assertEqual(len(lines), 3)
        for line in lines + lines[::-1]:
            client.request("select", widget="ComboComPort", text=line)
            client.call("AutomaticConnection")
            self.assertEqual(client.get("DataValid"), 1, line)
            self.assertEqual(client.get("CommunicationObject"),
                             "HartCommObject" if "Hart" in line else
                             "NfcCommObject" if "NFC" in line else "ModbusCommObject")

    def test_the_port_that_the_host_names_is_selected(self):
        self.simulator(self.module("a.json", serialNumber="1"),
                       self.module("b.json", serialNumber="2"))
        client = self.serve()
        client.set("ComPort", 101)
        self.come_up(client)
        client.call("AutomaticConnection")
        self.assertEqual(client.get("SerialNumber"), 2)
        self.assertEqual(self.succeed("settings", "get", "COM Port"), "101\n")

    def test_the_simulated_module_is_listed_with_the_other_ports(self):
        self.simulator(self.module("a.json"))
        self.write_settings("[Ports]\nCOM9\\Device=/dev/null\nCOM9\\Name=\\Device\\Silabser9\n")
        client = self.shown("--simulate", self.module("b.json"))
        lines = client.widget("ComboComPort")["items"]
        self.assertIn("USB Adapter OKT (COM9)", lines)
        self.assertIn("USB Adapter OKT (COM100)", lines)


if __name__ == "__main__":
    unittest.main()

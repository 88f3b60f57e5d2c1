"""`modulinfo ports`: the ports, and the device of each."""

import fcntl
import json
import os
import subprocess
import unittest

from bench import PATIENCE, SAMPLES, Bench

CONTROLLER = "/devices/pci0000:00/0000:00:14.0/usb1"


def adapter(tty, serial, socket):
    """A programming adapter as a device description for umockdev."""
    device = f"{CONTROLLER}/1-{socket}"
    interface = f"{device}/1-{socket}:1.0"
    serial_port = f"{interface}/{tty}"
    return f"""\
P: {device}
E: SUBSYSTEM=usb
E: DEVTYPE=usb_device
A: idVendor=10c4\\n
A: idProduct=ea60\\n
A: serial={serial}\\n

P: {interface}
E: SUBSYSTEM=usb
E: DEVTYPE=usb_interface
A: bInterfaceNumber=00\\n

P: {serial_port}
E: SUBSYSTEM=usb-serial
E: DRIVER=cp210x
L: driver=../../../../../../../bus/usb-serial/drivers/cp210x

P: {serial_port}/tty/{tty}
N: {tty}
E: DEVNAME=/dev/{tty}
E: SUBSYSTEM=tty
"""


CONSOLE = """\
P: /devices/virtual/tty/tty0
E: SUBSYSTEM=tty
"""


class Ports(Bench):
    def enter_port(self, device, name="Silabser9", more=""):
        self.write_settings(f"[Ports]\nCOM9\\Device={device}\nCOM9\\Name=\\Device\\{name}\n{more}")

    def listed(self):
        """The objects of the JSON list by their ports; including the real ports of this machine."""
        return {port["port"]: port for port in json.loads(self.succeed("ports", "--json"))["ports"]}

    def state(self, device):
        self.enter_port(device)
        return self.listed()["COM9"]["state"]

    def on_machine(self, *devices):
        """The JSON list on a machine that has these devices and no others."""
        bed = self.folder / "machine.umockdev"
        bed.write_text("\n".join([CONSOLE, *devices]), encoding="utf-8")
        linked = subprocess.run(["ldd", self.modulinfo], capture_output=True, encoding="utf-8",
                                timeout=PATIENCE, check=True).stdout
        # The sanitizer must come before the library that makes the machine.
        sanitizer = [line.split()[2] for line in linked.splitlines() if "libasan" in line]
        preload = ":".join([*sanitizer, "libumockdev-preload.so.0"])
        # umockdev-run does not look at the locale for the character set of its arguments.
        done = subprocess.run(
            ["umockdev-run", "-d", bed, "--", "env", f"LD_PRELOAD={preload}",
             self.modulinfo, "ports", "--json"],
            env=self.environment | {"CHARSET": "UTF-8"}, stdin=subprocess.DEVNULL, capture_output=True,
            encoding="utf-8", timeout=PATIENCE, check=False)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        return json.loads(done.stdout)["ports"]

    def test_a_port_entered_by_hand(self):
        with self.silent_port() as device:
            self.enter_port(device)
            self.assertEqual(self.listed()["COM9"], {
                "label": "USB Adapter OKT (COM9)", "port": "COM9", "state": "free",
                "deviceName": "\\Device\\Silabser9", "device": device, "driver": None,
                "usb": None})

    def test_the_table_shows_the_same(self):
        with self.silent_port() as device:
            self.enter_port(device)
            first = self.succeed("ports").splitlines()[0]
            self.assertEqual(first.split("  "), ["USB Adapter OKT (COM9)", "free", device])

    def test_a_port_of_a_running_simulator(self):
        device = self.simulator(self.module())["COM100"]
        port = self.listed()["COM100"]
        self.assertEqual((port["label"], port["device"], port["state"]),
                         ("USB Adapter OKT (COM100)", device, "free"))

    def test_the_port_of_a_simulated_module_has_the_adapter_for_its_path(self):
        samples = {"COM100": "tessara-tm-151", "COM101": "hart-healthy",
                   "COM102": "nfc-twn4-healthy"}
        self.simulator(*(SAMPLES / f"{sample}.json" for sample in samples.values()))
        ports = self.listed()
        self.assertEqual({name: ports[name]["label"] for name in samples}, {
            "COM100": "USB Adapter OKT (COM100)",
            "COM101": "USB Hart Adapter Viator (COM101)",
            "COM102": "TWN4 NFC-Adapter (COM102)"})
        self.assertEqual({name: ports[name]["usb"] for name in samples}, {
            "COM100": None, "COM101": None,
            "COM102": {"vendor": "09D8", "product": "0420", "serial": "SIM102", "interface": 0}})

    def test_two_simulated_readers_have_one_line_each(self):
        self.simulator(*[SAMPLES / "nfc-twn4-healthy.json"] * 2)
        readers = [line.split("  ")[0] for line in self.succeed("ports").splitlines()
                   if line.startswith("TWN4")]
        self.assertEqual(readers, ["TWN4 NFC-Adapter (COM100)", "TWN4 NFC-Adapter (COM101)"])

    def test_a_port_in_use(self):
        with self.silent_port() as device:
            holder = os.open(device, os.O_RDWR | os.O_NOCTTY)
            fcntl.flock(holder, fcntl.LOCK_EX)
            self.assertEqual(self.state(device), "in use")
            os.close(holder)
            self.assertEqual(self.state(device), "free")

    def test_a_port_without_permission(self):
        with self.silent_port() as device:
            self.enter_port(device)
            os.chmod(device, 0)
            done = self.run_modulinfo("ports", **self.bound_by_modes())
            self.assertIn("USB Adapter OKT (COM9)  denied", done.stdout)

    def test_devices_that_are_not_ports(self):
        self.assertEqual(self.state("/dev/no-such-port"), "absent")
        self.assertEqual(self.state("/dev/null"), "no serial port")

    def test_a_port_with_an_unrecognised_adapter_is_listed_separately(self):
        with self.silent_port() as device:
            self.enter_port(device, "Serial9")
            self.assertIsNone(self.listed()["COM9"]["label"])
            self.enter_port(device, "Serial9", "[Settings]\nShowAllComPorts=1\n")
            self.assertEqual(self.listed()["COM9"]["label"], "Serial Port (COM9)")

    def test_an_adapter_with_its_driver_and_usb_device(self):
        self.assertEqual(self.on_machine(adapter("ttyUSB0", "0001", 2)), [{
            "label": "USB Adapter OKT (COM3)", "port": "COM3", "state": "free",
            "deviceName": "\\Device\\Silabser0", "device": "/dev/ttyUSB0", "driver": "cp210x",
            "usb": {"vendor": "10C4", "product": "EA60", "serial": "0001", "interface": 0}}])

    def test_a_machine_without_ports(self):
        self.assertEqual(self.on_machine(), [])

    def test_adapters_keep_their_numbers_between_starts(self):
        def serials(ports):
            return {port["port"]: port["usb"]["serial"] for port in ports}

        first, second = adapter("ttyUSB0", "0001", 2), adapter("ttyUSB1", "0002", 3)
        both = {"COM3": "0001", "COM4": "0002"}
        self.assertEqual(serials(self.on_machine(first, second)), both)
        self.assertEqual(serials(self.on_machine(second)), {"COM4": "0002"})
        swapped = adapter("ttyUSB0", "0002", 7), adapter("ttyUSB1", "0001", 8)
        self.assertEqual(serials(self.on_machine(*swapped)), both)

    def test_ports_are_listed_even_if_the_settings_cannot_be_written(self):
        self.write_settings("[Settings]\nLanguage=2\n")
        self.settings_file.chmod(0o444)
        self.settings_file.parent.chmod(0o555)
        done = self.run_modulinfo("ports", "--json", **self.bound_by_modes())
        self.settings_file.parent.chmod(0o755)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertIn("ports", json.loads(done.stdout))
        self.assertEqual(self.settings_file.read_text("utf-8"), "[Settings]\nLanguage=2\n")

    def test_a_bad_setting_is_reported_and_the_other_ports_are_listed(self):
        for line in ("COM0\\Device=/dev/pts/5", "COM8\\Path=x", "Something=else", "COM0",
                     "COM8\\Name=\\Device\\Silabser8", "COM8\\Device=@Invalid()",
                     "COM8\\Device=/dev/pts/5\nCOM8\\Name=" + "n" * 241):
            with self.subTest(line):
                self.enter_port("/dev/no-such-port", more=line + "\n")
                done = self.run_modulinfo("ports", "--json")
                self.assertEqual(done.returncode, 0)
                listed = json.loads(done.stdout)
                self.assertIn("COM9", [port["port"] for port in listed["ports"]])
                self.assertNotIn("COM8", [port["port"] for port in listed["ports"]])
                self.assertEqual(len(listed["problems"]), 1)
                self.assertEqual(done.stderr, f"modulinfo: {listed['problems'][0]}\n")
                table = self.run_modulinfo("ports").stdout
                self.assertIn("USB Adapter OKT (COM9)", table)
                self.assertTrue(table.endswith(f"\n\nProblems:\n{listed['problems'][0]}\n"))

    def test_more_ports_entered_by_hand_than_the_list_holds(self):
        self.write_settings("[Ports]\n" + "".join(
            f"COM{number}\\Device=/dev/no-such-port\n" for number in range(1, 53)))
        done = self.run_modulinfo("ports", "--json")
        self.assertEqual(done.returncode, 0)
        self.assertIn("the port list holds at most 51 lines: COM52", done.stderr)
        listed = json.loads(done.stdout)
        labels = [port["label"] for port in listed["ports"] if port["label"]]
        self.assertEqual(len(labels), 51)
        self.assertIn("COM52", [port["port"] for port in listed["ports"] if not port["label"]])
        self.assertIn("at most 51 lines", listed["problems"][0])

    def test_a_broken_file_ends_the_list(self):
        self.write_settings("rubbish\n")
        self.assertIn("cannot be read: line 1", self.fail_with(1, "ports", "--json"))

    def test_wrong_usage(self):
        self.fail_with(2, "ports", "COM3")


if __name__ == "__main__":
    unittest.main()

"""How `modulinfo read` ends without a connection to the module."""

import fcntl
import os
import unittest

from bench import Bench


class ReadPorts(Bench):
    def enter_port(self, device):
        self.write_settings(f"[Ports]\nCOM9\\Device={device}\nCOM9\\Name=\\Device\\Silabser9\n")

    def test_an_unknown_port(self):
        self.simulator(self.module())
        complaint = self.fail_with(3, "read", "--port", "COM77")
        self.assertIn("there is no port COM77; there are COM100", complaint)

    def test_an_unknown_port_leaves_the_settings_alone(self):
        self.simulator(self.module())
        self.fail_with(3, "read", "--port", "COM77")
        self.assertFalse(self.settings_file.exists()
                         and "COM%20Port" in self.settings_file.read_text("utf-8"))

    def test_an_absent_reader(self):
        self.assertIn("no USB NFC reader was found", self.fail_with(3, "read", "--port", "NFC"))

    def test_an_absent_device(self):
        self.enter_port("/dev/pts/no-such-port")
        self.assertIn("no connection: COM9 (/dev/pts/no-such-port) is not there",
                      self.fail_with(3, "read", "--port", "COM9"))

    def test_a_device_that_is_not_a_port(self):
        self.enter_port("/dev/null")
        self.assertIn("COM9 (/dev/null) is not a serial port",
                      self.fail_with(3, "read", "--port", "COM9"))

    def test_a_port_in_use_by_another_program(self):
        with self.silent_port() as device:
            self.enter_port(device)
            holder = os.open(device, os.O_RDWR | os.O_NOCTTY)
            fcntl.flock(holder, fcntl.LOCK_EX)
            complaint = self.fail_with(3, "read", "--port", "COM9")
            os.close(holder)
        self.assertIn(f"COM9 ({device}) is in use by another program", complaint)

    def test_a_port_without_permission(self):
        with self.silent_port() as device:
            self.enter_port(device)
            os.chmod(device, 0)
            complaint = self.fail_with(3, "read", "--port", "COM9", **self.bound_by_modes())
        self.assertIn(f"COM9 ({device}) cannot be opened: no permission", complaint)

    def test_a_port_with_an_unrecognised_adapter_is_not_listed(self):
        with self.silent_port() as device:
            self.write_settings(f"[Ports]\nCOM9\\Device={device}\nCOM9\\Name=\\Device\\Serial9\n")
            complaint = self.fail_with(3, "read", "--port", "COM9")
        self.assertIn("COM9 is not in the list of ports", complaint)
        self.assertIn("ShowAllComPorts", complaint)

    def test_a_port_with_an_unrecognised_adapter_is_listed_on_demand(self):
        ports = self.simulator(self.module())
        self.write_settings(f"[Ports]\nCOM9\\Device={ports['COM100']}\n"
                            "COM9\\Name=\\Device\\Serial9\n[Settings]\nShowAllComPorts=1\n")
        self.assertIn("Serial Port (COM9)", self.succeed("read", "--port", "COM9"))

    def test_the_port_of_a_simulator_ends_with_it(self):
        self.simulator(self.module())
        self.end_simulators()
        self.assertIn("there is no port COM100", self.fail_with(3, "read", "--port", "COM100"))


if __name__ == "__main__":
    unittest.main()

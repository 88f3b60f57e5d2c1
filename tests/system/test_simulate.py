"""`modulinfo simulate` as other programs see it."""

import re
import subprocess
import unittest

from bench import HEALTHY, PATIENCE, Bench


class Simulate(Bench):
    def test_each_port_is_printed_with_its_module(self):
        ports = self.simulator(self.module("a.json"), self.module("b.json", name="Other"))
        self.assertEqual(self.announced, [
            f"COM100  {ports['COM100']}  TESSARA TM 151 (a.json)\n",
            f"COM101  {ports['COM101']}  Other (b.json)\n"])

    def poll(self, device, *arguments):
        """The registers that an independent master reads."""
        done = subprocess.run(
            ["mbpoll", "-m", "rtu", "-a", "192", "-t", "3", "-0", "-b", "19200", "-P", "even",
             "-1", *arguments, device],
            capture_output=True, encoding="utf-8", timeout=PATIENCE, check=False)
        return done.returncode, dict(re.findall(r"^\[(\d+)\]:\s+(\S+)", done.stdout, re.MULTILINE))

    def test_an_independent_master_reads_the_registers(self):
        ports = self.simulator(self.module(serialNumber=str(0x0002_0001)))
        code, words = self.poll(ports["COM100"], "-r", "3", "-c", "4")
        self.assertEqual(code, 0)
        self.assertEqual(words, {"3": str(0x1000), "4": str(0x1100), "5": "1", "6": "2"})

    def test_an_independent_master_is_refused_an_absent_register(self):
        ports = self.simulator(self.module(status={}))
        self.assertNotEqual(self.poll(ports["COM100"], "-r", "80", "-c", "1")[0], 0)

    def test_a_second_simulator_takes_the_next_number(self):
        self.simulator(self.module())
        self.assertEqual(list(self.simulator(self.module())), ["COM101"])

    def test_paced_modules_are_read_as_well(self):
        self.simulator(self.module(), options=["--paced"])
        self.assertIn("4711", self.succeed("read", "--port", "COM100"))

    def test_a_module_at_another_address(self):
        self.simulator(self.module(address=7, status=HEALTHY["status"]))
        self.assertIn("4711", self.succeed("read", "--port", "COM100", "--address", 7))


if __name__ == "__main__":
    unittest.main()

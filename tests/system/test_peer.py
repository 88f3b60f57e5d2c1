"""A read of a module of other make: pymodbus behind a pair of ports joined by socat."""

import json
import subprocess
import sys
import unittest

from bench import HERE, PATIENCE, Bench, wait_for


class Peer(Bench):
    def start(self, command, **options):
        process = subprocess.Popen(command, **options)

        def end():
            process.kill()
            process.wait(PATIENCE)

        self.addCleanup(end)
        return process

    def setUp(self):
        super().setUp()
        ours, theirs = self.folder / "ours", self.folder / "theirs"
        self.start(["socat", f"pty,raw,echo=0,link={ours}", f"pty,raw,echo=0,link={theirs}"])
        wait_for(lambda: ours.exists() and theirs.exists(), "the pair of ports")
        module = self.start([sys.executable, HERE / "pymodbus_module.py", theirs],
                            stdout=subprocess.PIPE, encoding="utf-8")
        self.addCleanup(module.stdout.close)
        self.assertEqual(module.stdout.readline(), "ready\n")
        self.write_settings(f"[Ports]\nCOM9\\Device={ours}\n")

    def test_a_module_of_other_make_is_read_completely(self):
        read = json.loads(self.succeed("read", "--port", "COM9", "--language", 1, "--json"))
        self.assertEqual([read[key] for key in ("vendorId", "groupId", "familyId", "deviceId")],
                         [49, 1, 15, 151])
        self.assertEqual(read["deviceName"], "Peer")
        self.assertEqual(read["firmwareVersion"], "1.100")
        self.assertEqual(read["serialNumber"], 0x12345678)
        self.assertEqual(read["moduleStatus"], "0 -> Kein Fehler")
        self.assertEqual(read["channelStatus"], "1 -> Drahtbruch Sensor!")
        self.assertEqual(read["dataValid"], 1)

    def test_it_can_be_read_again(self):
        for _ in range(3):
            self.assertIn("Peer", self.succeed("read", "--port", "COM9"))

    def test_an_absent_address_does_not_answer(self):
        self.assertIn("no answer", self.fail_with(4, "read", "--port", "COM9", "--address", 7))


if __name__ == "__main__":
    unittest.main()

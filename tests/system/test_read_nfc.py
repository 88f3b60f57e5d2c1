"""`modulinfo read` of modules in the field of an NFC reader."""

import unittest

from bench import HEALTHY
from nfc_bench import READERS, NfcBench

# Faults that do not keep the module from being read: a repeat of the request overcomes them, or
# the second attempt of the read.
PASSING_OF_READER = (
    ({"kind": "tagAbsent", "at": 4},),
    ({"kind": "tagLeaves", "returnAfter": 10, "at": 4},),
    ({"kind": "airChecksum", "at": 4},),
    ({"kind": "readerError", "code": 5, "at": 4},),
    ({"kind": "readerSilent", "at": 4},),
    ({"kind": "mailboxBusy", "for": 50, "at": 1},),
    ({"kind": "moduleAsleep", "for": 50, "at": 1},),
)
PASSING_OF_MODULE = (
    ({"kind": "noReply", "at": 2},),
    ({"kind": "lateReply", "delay": 200, "at": 2},),
    ({"kind": "badChecksum", "at": 2},),
    ({"kind": "wrongUnit", "address": 9, "at": 2},),
    ({"kind": "exception", "code": 6, "at": 2},),
    ({"kind": "cutOff", "bytes": 4, "at": 2},),
    ({"kind": "noise", "bytes": [85, 170], "at": 2},),
    ({"kind": "echo", "at": 2},),
    ({"kind": "unplug", "replugAfter": 0, "at": 2},),
)


class ReadNfc(NfcBench):
    def test_a_healthy_module_is_read_in_the_field_of_each_reader(self):
        for link, line in READERS.items():
            with self.subTest(link):
                text = self.succeed("read", "--simulate", self.module(link=link))
                for part in (line, HEALTHY["name"], HEALTHY["firmware"], HEALTHY["serialNumber"]):
                    self.assertIn(part, text)

    def test_a_module_of_a_running_simulator_is_read_at_the_rate_of_its_line(self):
        self.simulator(self.module(link="nfc-twn4"), options=["--paced"])
        self.assertIn(HEALTHY["serialNumber"], self.succeed("read", "--port", "COM100"))

    def test_the_usb_reader_cannot_be_served_on_a_port(self):
        self.assertIn("the USB NFC reader is not a port",
                      self.fail_with(2, "simulate", self.module(link="nfc-usb")))

    def test_without_a_reader_there_is_no_connection(self):
        self.fail_with(3, "read", "--port", "NFC")

    def test_each_passing_fault_is_overcome(self):
        def check(module):
            self.assertIn(HEALTHY["serialNumber"], self.succeed("read", "--simulate", module))

        self.with_each(PASSING_OF_READER, PASSING_OF_MODULE, check)


if __name__ == "__main__":
    unittest.main()

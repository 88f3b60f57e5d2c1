"""`modulinfo read` of modules in the field of an NFC reader, and how it ends if it fails."""

import unittest

from bench import HEALTHY, Bench

# How the list of ports calls each reader.
READERS = {"nfc-twn4": "TWN4 NFC-Adapter (COM100)", "nfc-usb": "NFC-USB-ZORVEN-ADAPTER"}

# Faults of one request that do not keep the module from being read.
PASSING_OF_READER = (
    {"kind": "tagAbsent", "at": 4},
    {"kind": "tagLeaves", "returnAfter": 10, "at": 4},
    {"kind": "airChecksum", "at": 4},
    {"kind": "readerSilent", "at": 4},
    {"kind": "mailboxBusy", "for": 50, "at": 1},
    {"kind": "moduleAsleep", "for": 50, "at": 1},
)
PASSING_OF_MODULE = (
    {"kind": "noReply", "at": 2},
    {"kind": "lateReply", "delay": 200, "at": 2},
    {"kind": "badChecksum", "at": 2},
    {"kind": "wrongUnit", "address": 9, "at": 2},
    {"kind": "cutOff", "bytes": 4, "at": 2},
    {"kind": "noise", "bytes": [85, 170], "at": 2},
    {"kind": "echo", "at": 2},
)

# What each fault that stays is told as.
FATAL_OF_READER = (
    ({"kind": "tagAbsent", "every": 1}, "no module lies in the field of the reader"),
    ({"kind": "tagLeaves", "at": 4}, "no module lies in the field of the reader"),
    ({"kind": "readerSilent", "every": 1}, "the reader does not answer within 400 ms"),
    ({"kind": "mailboxBusy", "at": 1}, "the module's mailbox is busy"),
    ({"kind": "mailboxOff", "at": 1}, "the module does not allow its mailbox to be used"),
    ({"kind": "moduleAsleep", "at": 1}, "the module did not fetch the request from its mailbox"),
)
FATAL_OF_MODULE = (
    ({"kind": "noReply", "every": 1}, "fetched the request from its mailbox but did not answer"),
    ({"kind": "badChecksum", "every": 1}, "checksum error in the module's answer"),
    ({"kind": "wrongUnit", "address": 9, "every": 1}, "answer from unit 9"),
    ({"kind": "exception", "code": 4, "every": 1}, "exception 4: device failure"),
)


def each_fault(of_reader, of_module):
    """Every entry with the link and the key of the module file that it goes with."""
    for link in READERS:
        for entry in of_reader:
            yield link, "readerFaults", entry
        for entry in of_module:
            yield link, "faults", entry


class ReadNfc(Bench):
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
        self.assertIn("the USB NFC reader is no port",
                      self.fail_with(2, "simulate", self.module(link="nfc-usb")))

    def test_without_a_reader_there_is_nothing_to_connect_to(self):
        self.fail_with(3, "read", "--port", "NFC")

    def test_each_fault_that_passes_is_made_good(self):
        for link, key, fault in each_fault(PASSING_OF_READER, PASSING_OF_MODULE):
            with self.subTest(link=link, fault=fault["kind"]):
                module = self.module(link=link, **{key: [fault]})
                self.assertIn(HEALTHY["serialNumber"], self.succeed("read", "--simulate", module))

    def test_each_fault_that_stays_ends_in_code_4_and_its_cause(self):
        for link, key, (fault, cause) in each_fault(FATAL_OF_READER, FATAL_OF_MODULE):
            with self.subTest(link=link, fault=fault["kind"]):
                complaint = self.fail_with(
                    4, "read", "--simulate", self.module(link=link, **{key: [fault]}))
                self.assertIn("the module could not be read: ", complaint)
                self.assertIn(cause, complaint)

    def test_an_error_of_the_reader_is_told_with_its_code(self):
        for link, code, cause in (("nfc-usb", 0x86, "error 86: communication error"),
                                  ("nfc-usb", 0x83, "error 83: no protocol selected"),
                                  ("nfc-twn4", 4, "error 4: invalid function")):
            with self.subTest(link=link, code=code):
                fault = {"kind": "readerError", "code": code, "every": 1}
                self.assertIn(cause, self.fail_with(
                    4, "read", "--simulate", self.module(link=link, readerFaults=[fault])))


if __name__ == "__main__":
    unittest.main()

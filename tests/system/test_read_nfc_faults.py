"""How `modulinfo read` ends if the tag, its module or the NFC reader is faulty."""

import unittest

from nfc_bench import NfcBench

# What is reported for each lasting fault.
FATAL_OF_READER = (
    ({"kind": "tagAbsent", "every": 1}, "no module in the reader's field, asked twice"),
    ({"kind": "tagLeaves", "at": 4}, "no module in the reader's field"),
    ({"kind": "readerSilent", "every": 1}, "the reader does not answer within 400 ms"),
    ({"kind": "mailboxBusy", "at": 1}, "the module's mailbox is busy"),
    ({"kind": "mailboxOff", "at": 1}, "the module does not allow its mailbox to be used"),
    ({"kind": "moduleAsleep", "at": 1}, "the module did not fetch the request from its mailbox"),
)
FATAL_OF_MODULE = (
    ({"kind": "noReply", "every": 1}, "fetched the request from its mailbox but did not answer"),
    ({"kind": "lateReply", "delay": 3000, "every": 1}, "the module did not fetch the request"),
    ({"kind": "badChecksum", "every": 1}, "checksum error in the module's answer, asked twice"),
    ({"kind": "wrongUnit", "address": 9, "every": 1}, "answer from address 9"),
    ({"kind": "exception", "code": 4, "every": 1}, "exception 4: device failure"),
    ({"kind": "cutOff", "bytes": 4, "every": 1}, "checksum error in the module's answer"),
    ({"kind": "noise", "bytes": [85, 170], "every": 1}, "checksum error in the module's answer"),
    ({"kind": "echo", "every": 1}, "checksum error in the module's answer"),
    ({"kind": "unplug", "every": 1}, "the reader has been unplugged"),
)

# What the readers report of themselves and of the field. A TWN4 does not distinguish between damage
# on air and an absent tag.
FATAL_OF_ONE_READER = (
    ("nfc-usb", {"kind": "airChecksum"}, "checksum error on air"),
    ("nfc-twn4", {"kind": "airChecksum"}, "no module in the reader's field"),
    ("nfc-usb", {"kind": "readerError", "code": 0x86}, "error 86: communication error"),
    ("nfc-usb", {"kind": "readerError", "code": 0x83}, "error 83: no protocol selected"),
    ("nfc-twn4", {"kind": "readerError", "code": 4}, "error 4: invalid function"),
)


class ReadNfcFaults(NfcBench):
    def expect_cause(self, module, cause):
        complaint = self.fail_with(4, "read", "--simulate", module)
        self.assertIn("the module could not be read: ", complaint)
        self.assertIn(cause, complaint)

    def test_each_lasting_fault_ends_with_code_4_and_its_cause(self):
        self.with_each(FATAL_OF_READER, FATAL_OF_MODULE, self.expect_cause)

    def test_what_a_reader_reports_of_itself_and_of_the_field(self):
        for link, fault, cause in FATAL_OF_ONE_READER:
            with self.subTest(link=link, fault=fault):
                self.expect_cause(
                    self.module(link=link, readerFaults=[fault | {"every": 1}]), cause)


if __name__ == "__main__":
    unittest.main()

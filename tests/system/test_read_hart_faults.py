"""How `modulinfo read` ends if a HART module or its line is faulty."""

import unittest

from hart_bench import HartBench

# What is reported for each fault of every request.
FATAL = (
    ({"kind": "noReply"}, "no answer within 305 ms, asked 3 times"),
    ({"kind": "lateReply", "delay": 3000}, "no answer"),
    ({"kind": "badChecksum"}, "the answer has a wrong check byte, asked 3 times"),
    ({"kind": "wrongUnit", "address": 9},
     "no answer, only one from polling address 9, asked 3 times"),
    ({"kind": "wrongCommand", "command": 9}, "no answer, only one to command 9, asked 3 times"),
    ({"kind": "cutOff", "bytes": 12}, "the answer broke off, asked 3 times"),
    ({"kind": "gap", "after": 9, "pause": 900}, "the answer broke off, asked 3 times"),
    ({"kind": "preambles", "count": 1}, "no answer within 305 ms, asked 3 times"),
    ({"kind": "communicationError", "bits": 8},
     "the module reports communication error 88: check byte, asked 3 times"),
    ({"kind": "exception", "code": 16}, "response code 16: access restricted"),
    ({"kind": "busy"}, "response code 32: busy"),
    ({"kind": "delayedAnswer", "requests": 1000},
     "response code 33: delayed answer started, awaited for up to 3000 ms"),
    ({"kind": "unplug"}, "the port has gone"),
)


class ReadHartFaults(HartBench):
    def test_each_lasting_fault_ends_with_code_4_and_its_cause(self):
        for fault, cause in FATAL:
            with self.subTest(fault["kind"]):
                complaint = self.fail_with(
                    4, "read", "--simulate", self.hart(faults=[fault | {"every": 1}]))
                self.assertIn("the module could not be read: COM100 (", complaint)
                self.assertIn(cause, complaint)


if __name__ == "__main__":
    unittest.main()

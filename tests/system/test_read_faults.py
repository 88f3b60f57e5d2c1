"""How `modulinfo read` ends if the module or the line is faulty."""

import unittest

from bench import HEALTHY, Bench

# What is reported for each fault of every request.
FATAL = (
    ({"kind": "noReply"}, "no answer within 500 ms"),
    ({"kind": "lateReply", "delay": 3000}, "no answer within 500 ms"),
    ({"kind": "badChecksum"}, "checksum error"),
    ({"kind": "wrongUnit", "address": 7}, "answer from address 7"),
    ({"kind": "exception", "code": 2}, "exception 2: illegal data address"),
    ({"kind": "cutOff", "bytes": 4}, "the answer broke off"),
    ({"kind": "noise", "bytes": [1, 2, 3]}, "checksum error"),
    ({"kind": "echo"}, "the answer broke off"),
    ({"kind": "unplug"}, "the port has gone"),
)

# Faults that a repeat of the request overcomes, or the second attempt of the read.
PASSING = (
    {"kind": "noReply"},
    {"kind": "badChecksum"},
    {"kind": "lateReply", "delay": 600},
    {"kind": "wrongUnit", "address": 7},
    {"kind": "cutOff", "bytes": 4},
    {"kind": "noise", "bytes": [1, 2, 3]},
    {"kind": "echo"},
    {"kind": "unplug", "replugAfter": 0},
)


class ReadFaults(Bench):
    def module_with(self, fault):
        return self.module(faults=[fault])

    def test_each_lasting_fault_ends_with_code_4_and_its_cause(self):
        for fault, cause in FATAL:
            with self.subTest(fault["kind"]):
                complaint = self.fail_with(4, "read", "--simulate",
                                           self.module_with(fault | {"every": 1}))
                self.assertIn("the module could not be read: COM100 (", complaint)
                self.assertIn(cause, complaint)

    def test_each_passing_fault_is_overcome(self):
        for fault in PASSING:
            for request in (1, 3):
                with self.subTest(fault["kind"], request=request):
                    module = self.module_with(fault | {"at": request})
                    self.assertIn("4711", self.succeed("read", "--simulate", module))

    def test_json_prints_nothing_if_the_read_fails(self):
        module = self.module_with({"kind": "exception", "code": 4, "every": 1})
        self.assertIn("exception 4: device failure",
                      self.fail_with(4, "read", "--json", "--simulate", module))

    def test_a_module_at_another_address_does_not_answer(self):
        self.assertIn("identification at address 7: no answer",
                      self.fail_with(4, "read", "--simulate", self.module(), "--address", 7))

    def test_a_missing_register_is_reported(self):
        status = {number: word for number, word in HEALTHY["status"].items() if number != "84"}
        self.assertIn("input register 84 at address 192: exception 2",
                      self.fail_with(4, "read", "--simulate", self.module(status=status)))

    def test_a_failed_read_leaves_a_running_simulator_working(self):
        self.simulator(self.module_with({"kind": "noReply", "at": 1}))
        self.assertIn("4711", self.succeed("read", "--port", "COM100"))
        self.assertIn("4711", self.succeed("read", "--port", "COM100"))

    def test_a_port_without_an_answer(self):
        with self.silent_port() as device:
            self.write_settings(f"[Ports]\nCOM9\\Device={device}\n")
            self.assertIn(f"COM9 ({device}), identification at address 192: no answer",
                          self.fail_with(4, "read", "--port", "COM9"))


if __name__ == "__main__":
    unittest.main()

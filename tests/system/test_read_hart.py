"""`modulinfo read` of modules behind a HART modem."""

import json
import unittest

from hart_bench import HartBench

# Faults of one request that do not keep the module from being read: a repeat overcomes them, or
# the second attempt of the read.
PASSING = (
    {"kind": "noReply"},
    {"kind": "lateReply", "delay": 600},
    {"kind": "badChecksum"},
    {"kind": "wrongUnit", "address": 9},
    {"kind": "wrongCommand", "command": 9},
    {"kind": "busy"},
    {"kind": "cutOff", "bytes": 12},
    {"kind": "communicationError", "bits": 8},
    {"kind": "delayedAnswer", "requests": 2},
    {"kind": "coldStart"},
    {"kind": "otherMaster"},
    {"kind": "burst", "master": "primary"},
    {"kind": "burst", "master": "secondary"},
    {"kind": "echo"},
    {"kind": "noise", "bytes": [0, 255, 255, 134]},
    {"kind": "trailingNoise", "bytes": [0, 0]},
    {"kind": "gap", "after": 9, "pause": 30},
    {"kind": "preambles", "count": 1},
    {"kind": "unplug", "replugAfter": 0},
)

# Faults of every request that do not prevent a read either.
HARMLESS = (
    {"kind": "coldStart"},
    {"kind": "otherMaster"},
    {"kind": "echo"},
    {"kind": "noise", "bytes": [0, 255]},
    {"kind": "trailingNoise", "bytes": [0, 0]},
    {"kind": "preambles", "count": 2},
)


class ReadHart(HartBench):
    def test_a_healthy_module_is_shown_with_its_texts(self):
        text = self.succeed("read", "--simulate", self.hart())
        for part in ("USB Hart Adapter Viator (COM100)", "TESSARA HT 2261", "HV2.00", "S 4711",
                     "0 -> "):
            self.assertIn(part, text)

    def test_a_faulty_module_is_shown_with_its_status(self):
        healthy = self.succeed("read", "--simulate", self.hart())
        faulty = self.succeed("read", "--simulate", self.hart(status=[2, 4]))
        self.assertIn("0 -> ", healthy)
        self.assertNotIn("0 -> ", faulty)

    def test_a_module_without_command_48_is_shown_with_empty_status_labels(self):
        module = self.hart(status=None)
        shown = json.loads(self.succeed("read", "--json", "--simulate", module))
        self.assertEqual(shown["serialNumber"], "S 4711")
        self.assertEqual((shown["moduleStatus"], shown["channelStatus"]), ("", ""))

    def test_a_module_of_a_running_simulator_is_read_at_the_rate_of_its_line(self):
        self.simulator(self.hart(), options=["--paced"])
        self.assertIn("S 4711", self.succeed("read", "--port", "COM100"))

    def test_a_module_answers_at_its_polling_address_only(self):
        module = self.hart(pollingAddress=5)
        self.assertIn("S 4711", self.succeed("read", "--simulate", module, "--address", 5))
        self.assertIn("command 0 at polling address 4: no answer",
                      self.fail_with(4, "read", "--simulate", module, "--address", 4))

    def test_each_passing_fault_is_overcome(self):
        for fault in PASSING:
            with self.subTest(fault["kind"]):
                module = self.hart(faults=[fault | {"at": 2}])
                self.assertIn("HV2.00", self.succeed("read", "--simulate", module))

    def test_usual_disturbances_of_the_line_do_not_prevent_a_read(self):
        for fault in HARMLESS:
            with self.subTest(fault["kind"]):
                module = self.hart(faults=[fault | {"every": 1}])
                self.assertIn("HV2.00", self.succeed("read", "--simulate", module))


if __name__ == "__main__":
    unittest.main()

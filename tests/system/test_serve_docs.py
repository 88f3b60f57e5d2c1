"""The documents about `modulinfo serve`, tried out."""

import json
import subprocess
import sys
import unittest

from bench import BIN, HEALTHY, HERE, PATIENCE
from serve_bench import ServeBench
from test_serve_members import CALLBACKS

ROOT = HERE.parents[1]
BRIDGE = ROOT / "docs" / "bridge.md"
CLIENT = ROOT / "docs" / "examples" / "modulinfo_client.py"
FOLDER = "/opt/tessara"

# The events of a timer tick, which may come at any time.
TICK = ({"name": "ModulActive", "args": [4]}, {"name": "StatusChange", "args": []})


class Session(ServeBench):
    def session(self):
        """The lines of the session, each with whether it goes to the program."""
        text = BRIDGE.read_text(encoding="utf-8").rsplit("```", 2)[1]
        for line in text.strip().splitlines():
            direction, message = line.split(" ", 1)
            yield direction == "-->", message

    def test_the_session_runs_as_it_is_written(self):
        client = self.serve("--simulate", ROOT / "data" / "modules" / "tessara-tm-151.json")
        count = 0
        for is_request, message in self.session():
            if is_request:
                client.write(message.replace(FOLDER, str(BIN)).encode() + b"\n")
                count += 1
                continue
            expected = json.loads(message)
            received = client.next()
            while received != expected and received.get("params") in TICK:
                received = client.next()
            self.assertEqual(received, expected)
        self.assertGreater(count, 10)
        self.assertEqual(client.ending(), ([], 0, ""))

    def test_every_method_notification_and_error_is_described(self):
        text = BRIDGE.read_text(encoding="utf-8")
        for name in ("get", "set", "call", "show", "press", "select", "type", "widget", "widgets",
                     "tick", "wait", "members", "quit", "event", "message", "dialog", "launch",
                     "device"):
            self.assertIn(f"\n| `{name}` |", text)
        for code in (-32700, -32600, -32601, -32602, -32603, -32000):
            self.assertIn(f"\n| {code} |", text)


class Example(ServeBench):
    def run_client(self, *options):
        return subprocess.run(
            [sys.executable, CLIENT, "--program", self.modulinfo, *map(str, options)],
            env=self.environment, capture_output=True, encoding="utf-8", timeout=PATIENCE,
            check=False)

    def test_the_client_reads_a_module_and_prints_it(self):
        done = self.run_client("--simulate", self.module())
        self.assertEqual(done.returncode, 0, done.stderr)
        self.assertEqual(done.stdout, f"""\
Name:           {HEALTHY["name"]}
Firmware:       1.100
Serial number:  4711
Module status:  0 -> No error
Channel status: 80 -> No error
Datasheet:      https://example.invalid/tessara/tm-151/datasheet-en.pdf
""")
        self.assertIn("ModulActive 1\n", done.stderr)

    def test_the_client_reads_at_a_port_in_another_language(self):
        self.simulator(self.module("a.json", serialNumber="1"),
                       self.module("b.json", serialNumber="2"))
        done = self.run_client("--port", 101, "--language", 1)
        self.assertIn("Serial number:  2\nModule status:  0 -> Kein Fehler\n", done.stdout)

    def test_the_client_reports_why_it_failed(self):
        module = self.module(faults=[{"kind": "exception", "code": 4, "every": 1}])
        done = self.run_client("--simulate", module)
        self.assertEqual((done.returncode, done.stdout), (1, ""))
        self.assertIn("Connection error!", done.stderr)

    def test_the_client_needs_nothing_but_python(self):
        text = CLIENT.read_text(encoding="utf-8")
        imported = {line.split()[1] for line in text.splitlines() if line.startswith("import ")}
        self.assertLessEqual(imported, sys.stdlib_module_names)
        self.assertNotIn("\nfrom ", text)

    def test_every_callback_reaches_a_client(self):
        client = self.reading(self.module(link="nfc-twn4"))
        client.call("UnLockCmdStore")
        for button in ("CmdStoreParameter", "CmdSave2DiskParameter", "CmdOpenDiskParameter",
                       "CmdPrintConfiguration", "CmdDeviceInfo"):
            client.press(button)
        client.get("DataTrafic")
        self.assertEqual({event[0] for event in client.take_events()},
                         {name for name, _ in CALLBACKS})


if __name__ == "__main__":
    unittest.main()

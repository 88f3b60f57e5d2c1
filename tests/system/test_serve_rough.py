"""`modulinfo serve` with clients that misbehave, break off, or disappear."""

import json
import random
import signal
import subprocess
import time
import unittest

from bench import PATIENCE, wait_for
from serve_bench import ServeBench

PIECES = (b'{"jsonrpc":"2.0",', b'"id":1,', b'"method":"get",', b'"params":{"name":"Parity"}}',
          b"[", b"]", b"{", b"}", b",", b'"', b"\\", b"\n", b"\n", b"null", b"1e5", b"-", b"\xff",
          b"\x00", b"\xc3\xa4", b'"method":"widgets"', b'"method":"wait","params":{"ms":1}',
          b'"method":"press","params":{"widget":"CmdOpenDiskParameter"}', b'"id":null,')


class Rough(ServeBench):
    def process_of(self, *options, **streams):
        process = subprocess.Popen(
            [self.modulinfo, "serve", *options], env=self.environment,
            **({"stdin": subprocess.PIPE, "stdout": subprocess.PIPE,
                "stderr": subprocess.PIPE} | streams))
        self.addCleanup(self.end_process, process)
        return process

    def end_process(self, process):
        process.kill()
        process.wait(PATIENCE)
        for pipe in (process.stdin, process.stdout, process.stderr):
            if pipe is not None:
                pipe.close()

    def test_a_line_of_ten_megabytes_is_accepted(self):
        client = self.shown()
        text = "ä" * 5_000_000
        client.set("CmdLineString", text)
        self.assertEqual(client.get("CmdLineString"), text)

    def test_garbage_of_ten_megabytes_is_one_error(self):
        client = self.serve()
        for filler in (b"a", b"[", b'"', b"{\"a\":"):
            client.write(filler * (10_000_000 // len(filler)) + b"\n")
            answer = client.next()
            self.assertEqual(answer["error"]["code"], -32700)
            self.assertLess(len(answer["error"]["message"]), 200)
        self.end_in_order(client)

    def test_an_endless_line_is_dropped_and_the_next_one_is_handled(self):
        client = self.serve()
        for _ in range(65):
            client.write(b"a" * (1 << 20))
        client.write(b"\n")
        answer = client.next()
        self.assertEqual((answer["id"], answer["error"]["code"]), (None, -32700))
        self.assertIn("longer than", answer["error"]["message"])
        self.assertEqual(client.get("Parity"), 2)

    def test_a_client_that_writes_everything_before_reading_is_served(self):
        process = self.process_of()
        count = 5000
        for number in range(count):
            request = {"jsonrpc": "2.0", "id": number, "method": "widget",
                       "params": {"widget": "ComboBaudrate"}}
            process.stdin.write(json.dumps(request).encode() + b"\n")
        process.stdin.close()
        answers = [json.loads(line)["id"] for line in process.stdout]
        self.assertEqual(answers, list(range(count)))
        self.assertEqual(process.wait(PATIENCE), 0)

    def test_requests_that_arrive_byte_by_byte_are_handled(self):
        client = self.serve()
        for byte in b'{"jsonrpc":"2.0","id":1,"method":"get","params":{"name":"Parity"}}\n':
            client.write(bytes([byte]))
        self.assertEqual(client.next()["result"], 2)

    def test_garbage_never_ends_the_program(self):
        for seed in range(4):
            chance = random.Random(seed)
            client = self.serve()
            for _ in range(200):
                line = b"".join(chance.choices(PIECES, k=chance.randrange(1, 12)))
                client.write(line + b"\n")
            client.write(b'{"jsonrpc":"2.0","id":"last","method":"get",'
                         b'"params":{"name":"Parity"}}\n')
            client.wait_until_answered("last")
            self.end_in_order(client)

    def test_a_client_that_has_gone_ends_the_program_regularly(self):
        ways = {
            "idle": [],
            "in a wait": [{"method": "wait", "params": {"ms": 600000}}],
            "under a dialog": [{"method": "press", "params": {"widget": "CmdAbout"}}],
            "waiting for the connection": [
                {"method": "set", "params": {"name": "DeviceConnected", "value": 1}},
                {"method": "call", "params": {"name": "GetFWVersion"}}],
        }
        for way, requests in ways.items():
            with self.subTest(way):
                process = self.process_of()
                for request in requests:
                    process.stdin.write(json.dumps(
                        {"jsonrpc": "2.0", "id": 1} | request).encode() + b"\n")
                process.stdin.flush()
                time.sleep(0.3)
                process.stdout.close()
                process.stdin.close()
                self.assertEqual(process.wait(PATIENCE), 0)
                self.assertEqual(process.stderr.read(), b"")

    def test_a_client_that_stops_reading_ends_the_program_regularly(self):
        process = self.process_of("--simulate", self.module())
        process.stdout.close()
        process.stdin.write(b'{"jsonrpc":"2.0","id":1,"method":"get","params":{"name":"Parity"}}\n')
        process.stdin.flush()
        self.assertEqual(process.wait(PATIENCE), 0)
        self.assertEqual(process.stderr.read(), b"")

    def test_a_killed_client_leaves_nothing_behind(self):
        # The client of the program is a shell that is killed in the middle of a scan.
        self.simulator(self.module())
        bringing_up = [
            {"method": "set", "params": {"name": "AppPathString",
                                         "value": str(self.modulinfo.parent)}},
            {"method": "set", "params": {"name": "Baudrate", "value": 19200}},
            {"method": "show"}, {"method": "call", "params": {"name": "AutomaticConnection"}}]
        requests = self.folder / "requests"
        requests.write_text("".join(json.dumps({"jsonrpc": "2.0", "id": 1} | request) + "\n"
                                    for request in bringing_up), encoding="utf-8")
        note = self.folder / "pid"
        shell = subprocess.Popen(
            ["/bin/bash", "-c", f'coproc {{ echo $BASHPID > {note}; exec "$0" serve; }};'
             f'cat {requests} >&"${{COPROC[1]}}"; cat <&"${{COPROC[0]}}"; :', self.modulinfo],
            env=self.environment, stdout=subprocess.PIPE, start_new_session=True)
        self.addCleanup(self.end_process, shell)
        line = b""
        while b'"NFCReader"' not in line or b"[false]" not in line:
            line = shell.stdout.readline()
        shell.send_signal(signal.SIGKILL)
        shell.stdout.close()
        shell.wait(PATIENCE)
        wait_for(lambda: self.run_modulinfo("read", "--port", "COM100").returncode == 0,
                 "the end of the program that held the port")

    def test_an_output_that_is_full_is_a_failure(self):
        with open("/dev/full", "wb") as full:
            process = self.process_of(stdout=full)
            process.stdin.write(b'{"jsonrpc":"2.0","id":1,"method":"show"}\n')
            process.stdin.flush()
            self.assertEqual(process.wait(PATIENCE), 1)
        self.assertIn(b"standard output cannot be written", process.stderr.read())

    def test_input_and_output_may_be_files(self):
        requests = self.folder / "requests"
        requests.write_text('{"jsonrpc":"2.0","id":1,"method":"get","params":'
                            '{"name":"Parity"}}\n' * 3, encoding="utf-8")
        answers = self.folder / "answers"
        with open(requests, "rb") as taken, open(answers, "wb") as given:
            process = self.process_of(stdin=taken, stdout=given)
            self.assertEqual(process.wait(PATIENCE), 0)
        self.assertEqual(answers.read_text(encoding="utf-8"),
                         '{"jsonrpc":"2.0","id":1,"result":2}\n' * 3)

    def test_missing_streams_are_an_error(self):
        for redirection, name in ((">&-", "standard output"), ("<&-", "standard input")):
            done = subprocess.run(
                ["/bin/sh", "-c", f'exec "$0" serve {redirection}', self.modulinfo],
                env=self.environment, stdin=subprocess.DEVNULL, capture_output=True,
                timeout=PATIENCE, check=False)
            self.assertEqual(done.returncode, 1)
            self.assertIn(name.encode(), done.stderr)


if __name__ == "__main__":
    unittest.main()

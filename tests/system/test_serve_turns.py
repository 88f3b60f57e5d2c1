"""`modulinfo serve`: which request is handled when, and how it all ends."""

import time
import unittest

from serve_bench import ServeBench

HANGING = {"kind": "lateReply", "delay": 300, "every": 1}


class Turns(ServeBench):
    def identities(self, client, count):
        return [client.next_answer()["id"] for _ in range(count)]

    def test_requests_are_answered_in_the_order_of_their_arrival(self):
        client = self.shown("--simulate", self.module())
        sent = []
        for number in range(100):
            sent.append(client.send("set", name="StatusString", value=number))
            sent.append(client.send("get", name="StatusString"))
        sent.append(client.send("call", name="AutomaticConnection"))
        sent.append(client.send("get", name="DataValid"))
        answers = [client.next_answer() for _ in sent]
        self.assertEqual([answer["id"] for answer in answers], sent)
        self.assertEqual([answer["result"] for answer in answers[1:200:2]],
                         [str(number) for number in range(100)])
        self.assertEqual(answers[-1]["result"], 1)

    def test_a_request_waits_for_the_one_before_it(self):
        client = self.shown("--simulate", self.module())
        read = client.send("call", name="AutomaticConnection")
        asked = client.send("get", name="DataValid")
        self.assertEqual(self.identities(client, 1), [read])
        self.assertEqual(client.wait_for(asked), 1)

    def test_a_request_waits_for_a_wait(self):
        client = self.shown()
        sent = [client.send("wait", ms=300), client.send("get", name="Parity")]
        self.assertEqual(self.identities(client, 2), sent)

    def test_a_reentrant_request_is_handled_during_a_read(self):
        client = self.shown("--simulate", self.module(), "--reentrant")
        read = client.send("call", name="AutomaticConnection")
        asked = client.send("get", name="DataValid")
        self.assertEqual(client.wait_for(asked), 0)
        self.assertIsNone(client.wait_for(read))
        self.assertEqual(client.get("DataValid"), 1)

    def test_a_reentrant_request_is_handled_during_a_wait(self):
        client = self.shown("--reentrant")
        waiting = client.send("wait", ms=500)
        asked = client.send("get", name="Parity")
        self.assertEqual(client.wait_for(asked), 2)
        self.assertIsNone(client.wait_for(waiting))

    def test_reentrant_requests_nest(self):
        client = self.shown("--reentrant")
        waits = [client.send("wait", ms=ms) for ms in (600, 400, 200)]
        self.assertEqual(self.identities(client, 3), waits[::-1])

    def test_very_many_reentrant_requests_are_all_answered(self):
        client = self.shown("--reentrant")
        waits = [client.send("wait", ms=50) for _ in range(120)]
        self.assertEqual(sorted(self.identities(client, 120)), waits)
        self.end_in_order(client)

    def test_a_query_waits_for_the_connection_until_a_reentrant_request_frees_it(self):
        client = self.reading(self.module(), "--reentrant")
        client.set("DeviceConnected", 1)
        query = client.send("call", name="GetFWVersion")
        freed = client.send("set", name="DeviceConnected", value=0)
        self.assertIsNone(client.wait_for(freed))
        self.assertIsNone(client.wait_for(query))
        self.assertEqual(client.get("StatusString"), "Lese Daten")

    def test_a_request_is_never_handled_during_a_scan(self):
        # Otherwise a query would wait for the scan forever, and the scan for it.
        client = self.reading(self.module(faults=[HANGING]), "--trace")
        client.wait_until_notified(("event", {"name": "ModulActive", "args": [4]}))
        self.assertIsNone(client.call("GetFWVersion"))
        operations = [params["operation"] for _, params in client.take_notifications("device")]
        self.assertEqual(operations, ["ConnectWithSerialDevice", *["ReadInputRegisters"] * 4,
                                      "CloseSerialConnection", "ConnectWithSerialDevice",
                                      "ReadInputRegisters", "CloseSerialConnection"])

    def test_quitting_is_answered_and_ends_the_program(self):
        client = self.shown("--trace")
        self.assertIsNone(client.request("quit"))
        self.assertEqual([params["operation"] for _, params in client.take_notifications("device")],
                         ["ShutDown"])
        self.assertEqual(client.ending(), ([], 0, ""))

    def test_what_follows_quit_is_not_handled(self):
        client = self.serve()
        client.send("quit")
        client.send("get", name="Parity")
        rest, code, complaint = client.ending()
        self.assertEqual(([answer["id"] for answer in rest], code, complaint), ([1], 0, ""))

    def test_quitting_during_a_read_ends_it_silently(self):
        client = self.shown("--simulate", self.module(), "--reentrant", "--trace")
        read = client.send("call", name="AutomaticConnection")
        left = client.send("quit")
        self.assertEqual(self.identities(client, 2), [left, read])
        self.assertEqual(client.ending(), ([], 0, ""))
        calls = [params["operation"] for _, params in client.take_notifications("device")]
        self.assertEqual(calls, ["ShutDown"])

    def test_quitting_in_a_wait_ends_the_wait(self):
        client = self.shown("--reentrant")
        client.send("wait", ms=600000)
        client.send("quit")
        self.assertEqual(len(client.ending()[0]), 2)

    def test_the_end_of_input_is_handled_after_all_requests(self):
        client = self.shown("--simulate", self.module(), "--trace")
        sent = [client.send("call", name="AutomaticConnection"),
                client.send("get", name="DataValid"), client.send("wait", ms=200),
                client.send("get", name="SerialNumber")]
        client.close_input()
        self.assertEqual([client.wait_for(identity) for identity in sent], [None, 1, None, 4711])
        rest, code, complaint = client.ending()
        self.assertEqual([message["params"]["operation"] for message in rest], ["ShutDown"])
        self.assertEqual((code, complaint), (0, ""))

    def test_the_last_line_needs_no_end(self):
        client = self.serve()
        client.write(b'{"jsonrpc":"2.0","id":1,"method":"get","params":{"name":"Parity"}}')
        client.close_input()
        rest, code, complaint = client.ending()
        self.assertEqual((rest, code, complaint),
                         ([{"jsonrpc": "2.0", "id": 1, "result": 2}], 0, ""))

    def test_an_incomplete_last_line_is_an_error_and_a_regular_end(self):
        client = self.serve()
        client.write(b'{"jsonrpc":"2.0","id":1,"meth')
        client.close_input()
        (answer,), code, complaint = client.ending()
        self.assertEqual((answer["id"], answer["error"]["code"]), (None, -32700))
        self.assertEqual((code, complaint), (0, ""))

    def test_no_input_is_a_regular_end(self):
        done = self.run_modulinfo("serve")
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))

    def test_the_end_of_input_ends_a_query_that_only_another_request_could_end(self):
        for options in ([], ["--reentrant"]):
            client = self.reading(self.module(), *options)
            client.set("DeviceConnected", 1)
            query = client.send("call", name="GetFWVersion")
            client.close_input()
            self.assertIsNone(client.wait_for(query))
            self.assertEqual(client.ending(), ([], 0, ""))

    def test_the_end_of_input_ends_a_reentrant_read(self):
        client = self.shown("--simulate", self.module(faults=[HANGING]), "--reentrant")
        read = client.send("call", name="AutomaticConnection")
        client.close_input()
        self.assertIsNone(client.wait_for(read))
        self.assertEqual(client.ending(), ([], 0, ""))

    def test_other_programs_can_read_the_module_after_the_end(self):
        self.simulator(self.module())
        client = self.shown()
        client.call("AutomaticConnection")
        client.close_input()
        self.assertEqual(client.ending()[1], 0)
        self.succeed("read", "--port", "COM100")

    def test_between_two_scans_the_port_is_free(self):
        self.simulator(self.module())
        client = self.shown()
        client.call("AutomaticConnection")
        self.succeed("read", "--port", "COM100")
        self.assertEqual(client.get("DataValid"), 1)

    def test_an_idle_program_takes_no_processor_time(self):
        client = self.shown()
        client.process.poll()
        before = self.processor_time(client)
        time.sleep(1)
        self.assertLess(self.processor_time(client) - before, 0.2)

    def processor_time(self, client):
        with open(f"/proc/{client.process.pid}/stat", encoding="ascii") as stat:
            fields = stat.read().rsplit(")", 1)[1].split()
        return (int(fields[11]) + int(fields[12])) / 100


if __name__ == "__main__":
    unittest.main()

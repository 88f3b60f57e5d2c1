"""`modulinfo serve`: wrong requests, each answered with its code and what was wrong."""

import json
import unittest

from bench import PATIENCE
from serve_bench import ServeBench

INVALID_JSON = -32700
INVALID = -32600
UNKNOWN_METHOD = -32601
WRONG_PARAMETERS = -32602

WRONG = [
    # method, parameters, part of the message
    ("get", {}, "params.name: missing"),
    ("get", {"name": 5}, "params.name: 5 is not text"),
    ("get", {"name": "Nonsense"}, 'no property "Nonsense"'),
    ("get", {"name": "comport"}, 'no property "comport"'),
    ("get", {"name": "GetFWVersion"}, 'no property "GetFWVersion"'),
    ("get", {"name": "StatusChange"}, 'no property "StatusChange"'),
    ("get", {"name": "ComPort", "value": 1}, "params.value: unknown key"),
    ("set", {"name": "ComPort"}, "params.value: missing"),
    ("set", {"name": "ComPort", "value": [1]}, "ComPort: [1] is not text, a number"),
    ("set", {"name": "ComPort", "value": {}}, "ComPort: {} is not text, a number"),
    ("set", {"name": "SetChnStatus", "value": 1}, 'no property "SetChnStatus"'),
    ("call", {"name": "ComPort"}, 'no method of the control "ComPort"'),
    ("call", {"name": "NFCReader"}, 'no method of the control "NFCReader"'),
    ("call", {"name": "SetChnStatus", "args": {}}, "params.args: {} is not a list"),
    ("call", {"name": "SetChnStatus", "args": [1, []]}, "lOutStatus: [] is not text, a number"),
    ("show", {"now": True}, "params.now: unknown key"),
    ("press", {}, "params.widget: missing"),
    ("press", {"widget": "CmdNothing"}, 'no widget "CmdNothing"'),
    ("press", {"widget": "LblModulState"}, "LblModulState is not a button"),
    ("press", {"widget": "frmLanguage.cmdOK"}, 'no dialog "frmLanguage" is open'),
    ("select", {"widget": "txtDevAddr", "index": 0}, "txtDevAddr is not a list or an option"),
    ("select", {"widget": "ComboBaudrate"}, '"index" or by "text"'),
    ("select", {"widget": "ComboBaudrate", "index": 0, "text": "2400"}, '"index" or by "text"'),
    ("select", {"widget": "ComboBaudrate", "index": "0"},
     'params.index: "0" is not a whole number'),
    ("select", {"widget": "ComboBaudrate", "text": 2400}, "params.text: 2400 is not text"),
    ("type", {"widget": "txtDevAddr"}, "params.text: missing"),
    ("type", {"widget": "ComboComPort", "text": "x"}, "nothing can be typed into ComboComPort"),
    ("type", {"widget": "LblModulState", "text": "x"}, "nothing can be typed into LblModulState"),
    ("widget", {"widget": "LngLabel"}, 'no widget "LngLabel"'),
    ("widget", {"widget": "LngLabel[9]"}, 'no widget "LngLabel[9]"'),
    ("widget", {"widget": ""}, 'no widget ""'),
    ("widget", {"widget": "."}, 'no dialog "" is open'),
    ("tick", {"timer": "Timer1"}, 'no widget "Timer1"'),
    ("tick", {"timer": "CmdHelp"}, "CmdHelp is not a timer"),
    ("wait", {}, "params.ms: missing"),
    ("wait", {"ms": -1}, "params.ms: -1 is not within 0 to 2147483647"),
    ("wait", {"ms": 1.5}, "params.ms: 1.5 is not a whole number"),
    ("wait", {"ms": 2147483648}, "params.ms: 2147483648 is not within"),
]

# Lines, and the answer's id and code.
LINES = [
    (b"", None, INVALID_JSON),
    (b"hello", None, INVALID_JSON),
    (b'{"jsonrpc":"2.0","id":1,"method":"show"', None, INVALID_JSON),
    (b'{"jsonrpc":"2.0","id":1,"method":"show"} {}', None, INVALID_JSON),
    (b'{"jsonrpc":"2.0","id":1,"method":"\xff"}', None, INVALID_JSON),
    (b"\xff\xfe\x00", None, INVALID_JSON),
    (b'{"jsonrpc":"2.0","id":1,"method":"show","params":{"x":1e999}}', None, INVALID_JSON),
    (b"[" * 10_000_000, None, INVALID_JSON),
    (b'{"a":' * 2_000_000, None, INVALID_JSON),
    (b"5", None, INVALID),
    (b"null", None, INVALID),
    (b'"show"', None, INVALID),
    (b"[]", None, INVALID),
    (b"{}", None, INVALID),
    (b'{"id":1,"method":"show"}', 1, INVALID),
    (b'{"jsonrpc":"1.0","id":"a","method":"show"}', "a", INVALID),
    (b'{"jsonrpc":"2.0","id":1}', 1, INVALID),
    (b'{"jsonrpc":"2.0","id":1,"method":null}', 1, INVALID),
    (b'{"jsonrpc":"2.0","id":{},"method":"show"}', None, INVALID),
    (b'{"jsonrpc":"2.0","id":1,"result":null}', 1, INVALID),
    (b'{"jsonrpc":"2.0","id":1,"method":"Show"}', 1, UNKNOWN_METHOD),
    (b'{"jsonrpc":"2.0","id":1,"method":""}', 1, UNKNOWN_METHOD),
    (b'{"jsonrpc":"2.0","id":1,"method":"widgets","params":[1]}', 1, WRONG_PARAMETERS),
    (b'{"jsonrpc":"2.0","id":1,"method":"widgets","params":"x"}', 1, WRONG_PARAMETERS),
    (b'{"jsonrpc":"2.0","id":1,"method":"widgets","params":null}', 1, WRONG_PARAMETERS),
]


class Errors(ServeBench):
    def test_wrong_parameters_are_named(self):
        client = self.serve()
        for method, params, part in WRONG:
            with self.subTest(method=method, params=params):
                self.assertIn(part, self.fails(WRONG_PARAMETERS, None, client, method, **params))
        self.end_in_order(client)

    def test_every_wrong_line_is_answered_and_the_program_goes_on(self):
        client = self.serve()
        for line, identity, code in LINES:
            with self.subTest(line[:80]):
                client.write(line + b"\n")
                answer = client.next()
                self.assertEqual((answer["jsonrpc"], answer["id"], answer["error"]["code"]),
                                 ("2.0", identity, code))
                self.assertTrue(answer["error"]["message"])
                self.assertNotIn("data", answer["error"])
        self.end_in_order(client)

    def test_an_unknown_method_is_named(self):
        message = self.fails(UNKNOWN_METHOD, None, self.serve(), "shutdown")
        self.assertIn('"shutdown"', message)

    def test_parameters_may_be_omitted_or_be_an_empty_list(self):
        client = self.serve()
        for params in ({}, {"params": {}}, {"params": []}):
            client.send_json({"jsonrpc": "2.0", "id": 1, "method": "members"} | params)
            self.assertIn("result", client.next())

    def test_an_id_is_returned_unchanged(self):
        client = self.serve()
        for identity in ("", "a", 0, -7, 1.5, None, 9007199254740993, "Gerät"):
            client.send_json({"jsonrpc": "2.0", "id": identity, "method": "show"})
            answer = client.next_answer()
            self.assertEqual((answer["id"], type(answer["id"])), (identity, type(identity)))

    def test_a_request_without_an_id_is_carried_out_and_not_answered(self):
        client = self.serve()
        client.send_json({"jsonrpc": "2.0", "method": "set",
                          "params": {"name": "ComPort", "value": 7}})
        client.send_json({"jsonrpc": "2.0", "method": "nonsense"})
        client.send_json({"jsonrpc": "2.0", "method": "get", "params": 5})
        client.send_json({"jsonrpc": "2.0", "method": "set",
                          "params": {"name": "ComPort", "value": 70000}})
        self.assertEqual(client.get("ComPort"), 7)

    def test_a_batch_is_answered_in_one_line_after_its_notifications(self):
        client = self.serve()
        client.send_json([
            {"jsonrpc": "2.0", "id": 1, "method": "set", "params": {"name": "StatusString",
                                                                    "value": "x"}},
            {"jsonrpc": "2.0", "method": "get", "params": {"name": "DataTrafic"}},
            7,
            {"jsonrpc": "2.0", "id": 2, "method": "get", "params": {"name": "StatusString"}},
        ])
        self.assertEqual([client.next()["params"]["name"] for _ in range(2)],
                         ["StatusChange", "DataTransfer"])
        first, second, third = client.next()
        self.assertEqual(first, {"jsonrpc": "2.0", "id": 1, "result": None})
        self.assertEqual((second["id"], second["error"]["code"]), (None, INVALID))
        self.assertEqual(third, {"jsonrpc": "2.0", "id": 2, "result": "x"})

    def test_a_batch_of_notifications_is_not_answered(self):
        client = self.serve()
        client.send_json([{"jsonrpc": "2.0", "method": "members"}] * 3)
        self.assertEqual(client.get("ComPort"), 0)

    def test_a_batch_may_quit_in_its_middle(self):
        client = self.serve()
        client.send_json([{"jsonrpc": "2.0", "id": 1, "method": "get",
                           "params": {"name": "Parity"}},
                          {"jsonrpc": "2.0", "id": 2, "method": "quit"},
                          {"jsonrpc": "2.0", "id": 3, "method": "show"}])
        (answers,), code, complaint = client.ending()
        self.assertEqual([(answer["id"], answer["result"]) for answer in answers],
                         [(1, 2), (2, None)])
        self.assertEqual((code, complaint), (0, ""))

    def test_every_message_is_one_line_of_utf8(self):
        client = self.serve()
        client.set("DeviceName", "a\nb\r\u2028\u0000ä")
        identity = client.send("get", name="DeviceName")
        line = client.lines.get(timeout=PATIENCE)
        self.assertEqual(json.loads(line.decode("utf-8")),
                         {"jsonrpc": "2.0", "id": identity, "result": "a\nb\r\u2028\u0000ä"})

    def test_half_a_surrogate_pair_is_refused(self):
        client = self.serve()
        client.write(b'{"jsonrpc":"2.0","id":1,"method":"set","params":'
                     b'{"name":"DeviceName","value":"\\ud800"}}\n')
        self.assertEqual(client.next()["error"]["code"], INVALID_JSON)

    def test_settings_that_cannot_be_read_are_a_run_time_error(self):
        self.write_settings("nonsense\n")
        client = self.serve()
        message = self.fails(-32000, 75, client, "show")
        self.assertIn(str(self.settings_file), message)
        self.assertEqual(client.get("Parity"), 2)

    def test_wrong_options_are_refused(self):
        self.assertIn("nothing.json", self.fail_with(2, "serve", "--simulate", "nothing.json"))
        wrong = self.folder / "wrong.json"
        wrong.write_text("{}", encoding="utf-8")
        self.assertIn("wrong.json", self.fail_with(2, "serve", "--simulate", wrong))
        self.fail_with(2, "serve", "--quiet")


if __name__ == "__main__":
    unittest.main()

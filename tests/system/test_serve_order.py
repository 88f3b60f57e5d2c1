"""`modulinfo serve`: what a host is sent, in the order in which it happens."""

import unittest

from serve_bench import ServeBench

MODBUS = "ModbusCommObject"


def raised(name, *args):
    return ("event", name, list(args))


def called(operation, *args, of=MODBUS):
    return ("device", of, operation, list(args), "result")


def failed(operation, *args, of=MODBUS):
    return ("device", of, operation, list(args), "error")


def read_of(address, count=1, slave=192):
    return called("ReadInputRegisters", slave, address, count, 2)


STATUS_CHANGE = raised("StatusChange")
CLOSE = called("CloseSerialConnection")
BEGIN_OF_READ = [STATUS_CHANGE, STATUS_CHANGE, raised("ModulActive", 1)]

HEALTHY_READ = [
    *BEGIN_OF_READ,
    called("ConnectWithSerialDevice", 100, 19200),
    called("ReadDeviceIdentifier", 192),
    read_of(4), read_of(3), read_of(5, 4), read_of(16, 16),
    read_of(80), read_of(84), STATUS_CHANGE, read_of(81), read_of(83),
    CLOSE, STATUS_CHANGE, raised("ModulActive", 0), raised("NFCReader", False),
]

FAILED_READ = [
    *BEGIN_OF_READ,
    called("ConnectWithSerialDevice", 100, 19200), failed("ReadDeviceIdentifier", 192), CLOSE,
    *BEGIN_OF_READ,
    called("ConnectWithSerialDevice", 100, 115200), failed("ReadDeviceIdentifier", 192), CLOSE,
    STATUS_CHANGE, raised("ModulActive", 3),
]

HEALTHY_SCAN = [
    raised("ModulActive", 4), called("ConnectWithSerialDevice", 100, 19200),
    read_of(80), read_of(84), STATUS_CHANGE, read_of(81), read_of(83), CLOSE,
]

FAILED_SCAN = [
    raised("ModulActive", 4), called("ConnectWithSerialDevice", 100, 19200),
    failed("ReadInputRegisters", 192, 80, 1, 2), CLOSE, raised("ModulActive", 0),
]

# The requests of a healthy read come first.
READ_REQUESTS = 9


def without_calls(sequence):
    return [entry for entry in sequence if entry[0] == "event"]


def brief(notification):
    """A notification without the parts that differ between runs."""
    method, params = notification
    if method == "device":
        outcome = "error" if "error" in params else "result"
        assert params["ms"] >= 0 and set(params) == {
            "object", "operation", "args", outcome, "ms"}, params
        return ("device", params["object"], params["operation"], params["args"], outcome)
    return (method, params["name"], params["args"])


class Order(ServeBench):
    def sequence_of(self, client):
        return [brief(entry) for entry in client.take_notifications()]

    def in_both_ways(self, module, action, expected):
        """Runs this with a module, with a trace and without one, and compares the messages."""
        for options, sequence in ((["--trace"], expected), ([], without_calls(expected))):
            with self.subTest(options):
                client = self.shown("--simulate", module, *options)
                action(client)
                self.assertEqual(self.sequence_of(client), sequence)
                yield client

    def test_a_healthy_read(self):
        def read(client):
            client.call("AutomaticConnection")
        for client in self.in_both_ways(self.module(), read, HEALTHY_READ):
            self.assertEqual(client.get("StatusString"), "")

    def test_a_read_with_the_error_word(self):
        status = {"80": 2, "81": "0x80", "82": 16, "83": "0x80", "84": 0}
        place = HEALTHY_READ.index(read_of(81))
        expected = HEALTHY_READ[:place] + [read_of(82), read_of(82)] + HEALTHY_READ[place:]
        for client in self.in_both_ways(self.module(status=status),
                                        lambda client: client.press("CmdDeviceInfo"), expected):
            self.assertEqual(client.widget("ImageDevState")["picture"], 2)

    def test_a_read_at_another_address_reads_no_status(self):
        def read(client):
            client.request("type", widget="txtDevAddr", text="7")
            client.call("AutomaticConnection")
        expected = [*BEGIN_OF_READ, called("ConnectWithSerialDevice", 100, 19200),
                    called("ReadDeviceIdentifier", 7), read_of(4, slave=7), read_of(3, slave=7),
                    read_of(5, 4, slave=7), read_of(16, 16, slave=7), CLOSE, STATUS_CHANGE,
                    raised("ModulActive", 0), raised("NFCReader", False)]
        for client in self.in_both_ways(self.module(address=7), read, expected):
            self.assertEqual(client.get("StatusString"), "Verbindungsaufbau")

    def test_a_failed_read_is_repeated_once_at_another_rate(self):
        module = self.module(faults=[{"kind": "exception", "code": 4, "every": 1}])
        for client in self.in_both_ways(
                module, lambda client: client.call("AutomaticConnection"), FAILED_READ):
            self.assertEqual(client.get("StatusString"), "Fehler Verbindung!")
            self.assertEqual(client.get("Baudrate"), 115200)
            self.assertEqual(client.widget("ComboBaudrate")["text"], "19200")
            enabled = {name: client.widget(name)["enabled"] for name in (
                "CmdDeviceInfo", "CmdStoreParameter", "CmdOfflineConfigure",
                "CmdOpenDiskParameter", "CmdSave2DiskParameter")}
            self.assertEqual([name for name, on in enabled.items() if not on],
                             ["CmdStoreParameter"])

    def test_a_retry_may_succeed(self):
        module = self.module(faults=[{"kind": "exception", "code": 4, "at": 1}])
        retry = [called("ConnectWithSerialDevice", 100, 115200) if entry == called(
            "ConnectWithSerialDevice", 100, 19200) else entry for entry in HEALTHY_READ]
        for _ in self.in_both_ways(module, lambda client: client.call("AutomaticConnection"),
                                   FAILED_READ[:6] + retry):
            pass

    def test_a_wrong_address_fails_after_the_connect(self):
        for address in ("256", "abc"):
            def read(client, address=address):
                client.request("type", widget="txtDevAddr", text=address)
                client.call("AutomaticConnection")
            expected = [entry for entry in FAILED_READ
                        if entry != failed("ReadDeviceIdentifier", 192)]
            for client in self.in_both_ways(self.module(), read, expected):
                self.assertEqual(client.get("StatusString"), "Fehler Verbindung!")

    def test_a_port_that_cannot_be_opened_is_not_retried(self):
        self.write_settings("[Ports]\nCOM9\\Device=/dev/nothing\nCOM9\\Name=\\Device\\Silabser9\n")
        client = self.shown("--trace")
        client.call("AutomaticConnection")
        self.assertEqual(self.sequence_of(client), [
            *BEGIN_OF_READ, called("ConnectWithSerialDevice", 9, 19200), STATUS_CHANGE,
            raised("ModulActive", 3)])
        self.assertEqual(client.get("Baudrate"), 19200)

    def test_without_an_interface_nothing_is_tried(self):
        client = self.shown("--trace")
        client.call("AutomaticConnection")
        self.assertEqual(self.sequence_of(client), [raised("ModulActive", 6)])

    def test_a_scan_without_a_fault(self):
        def read_and_scan(client):
            client.call("AutomaticConnection")
            client.take_notifications()
            client.request("tick", timer="TimerScanDevice")
        for _ in self.in_both_ways(self.module(), read_and_scan, HEALTHY_SCAN):
            pass

    def test_eleven_failed_scans_end_in_offline(self):
        faults = [{"kind": "exception", "code": 4, "at": READ_REQUESTS + number}
                  for number in range(1, 12)]

        def read_and_scan(client):
            client.call("AutomaticConnection")
            client.take_notifications()
            for _ in range(11):
                self.assertIs(client.request("tick", timer="TimerScanDevice"), True)
        for client in self.in_both_ways(self.module(faults=faults), read_and_scan,
                                        FAILED_SCAN * 11 + [STATUS_CHANGE]):
            self.assertEqual(client.get("StatusString"), "Offline")
            self.assertIs(client.request("tick", timer="TimerScanDevice"), False)
            self.assertEqual(client.get("DataValid"), 1)
            # The module works again, and the failures still count.
            client.call("AutomaticConnection")
            self.assertIs(client.widget("TimerScanDevice")["enabled"], True)

    def test_a_removed_port_stops_the_scan_silently(self):
        self.simulator(self.module())
        client = self.shown("--trace")
        client.call("AutomaticConnection")
        client.take_notifications()
        self.end_simulators()
        self.assertIs(client.request("tick", timer="TimerScanDevice"), True)
        self.assertEqual(self.sequence_of(client), [
            raised("ModulActive", 4), called("ConnectWithSerialDevice", 100, 19200), CLOSE])
        self.assertIs(client.request("tick", timer="TimerScanDevice"), False)
        self.assertEqual(client.get("StatusString"), "")

    def test_the_queries_of_a_host(self):
        client = self.reading(self.module(), "--trace")
        connect = called("ConnectWithSerialDevice", 100, 19200)
        busy, over = raised("ModulActive", 1), raised("ModulActive", 0)
        client.get("CheckDeviceType")
        self.assertEqual(self.sequence_of(client), [
            busy, connect, STATUS_CHANGE, called("ReadDeviceIdentifier", 192), read_of(4), CLOSE,
            over])
        client.call("GetFWVersion")
        self.assertEqual(self.sequence_of(client), [busy, connect, STATUS_CHANGE, read_of(4), CLOSE,
                                              over])
        client.call("GetDeviceInformation")
        self.assertEqual(self.sequence_of(client), [
            busy, connect, STATUS_CHANGE, called("ReadDeviceIdentifier", 192), CLOSE, over])
        client.call("GetDeviceStatus")
        self.assertEqual(self.sequence_of(client), [
            busy, connect, STATUS_CHANGE, read_of(80), read_of(84), STATUS_CHANGE, read_of(81),
            read_of(83), CLOSE, over])

    def test_each_failed_query_ends_in_its_own_way(self):
        faults = [{"kind": "exception", "code": 4, "at": READ_REQUESTS + number}
                  for number in range(1, 5)]
        module = self.module(faults=faults)
        ends = (("GetFWVersion", failed("ReadInputRegisters", 192, 4, 1, 2), 0),
                ("GetDeviceInformation", failed("ReadDeviceIdentifier", 192), 0),
                ("GetDeviceStatus", failed("ReadInputRegisters", 192, 80, 1, 2), 3))
        client = self.reading(module, "--trace")
        for method, call, activity in ends:
            client.call(method)
            self.assertEqual(self.sequence_of(client), [
                raised("ModulActive", 1), called("ConnectWithSerialDevice", 100, 19200),
                STATUS_CHANGE, call, STATUS_CHANGE, CLOSE, raised("ModulActive", activity)])
        self.assertEqual(client.get("CheckDeviceType"), 3)
        self.assertEqual(self.sequence_of(client)[-1], raised("ModulActive", 3))

    def test_showing_and_ending_are_traced(self):
        client = self.serve("--trace", "--simulate", self.module())
        client.set("AppPathString", str(self.modulinfo.parent))
        client.request("show")
        initialised = called("InitModbusObject")
        self.assertEqual(self.sequence_of(client), [initialised, raised("NFCReader", False)] * 2)
        client.request("quit")
        self.assertEqual(self.sequence_of(client), [called("ShutDown")])

    def test_a_trace_has_results_and_errors(self):
        client = self.reading(
            self.module(faults=[{"kind": "exception", "code": 4, "at": READ_REQUESTS + 2}]),
            "--trace")
        client.call("GetDeviceInformation")
        calls = [params for _, params in client.take_notifications("device")]
        self.assertEqual([call["result"] for call in calls], [True, [49, 1, 15, 151], None])
        client.call("GetDeviceInformation")
        calls = [params for _, params in client.take_notifications("device")]
        self.assertIn("exception 4", calls[1]["error"])


if __name__ == "__main__":
    unittest.main()

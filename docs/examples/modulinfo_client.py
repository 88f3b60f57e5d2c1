#!/usr/bin/env python3
"""Reads a module through `modulinfo serve` and prints its data.

    modulinfo_client.py --simulate data/modules/tessara-tm-151.json
    modulinfo_client.py --port 3

Needs only Python 3.8. docs/bridge.md describes the protocol.
"""

import argparse
import json
import pathlib
import shutil
import subprocess
import sys


class ControlError(Exception):
    """A request failed. `number` is the number of the control's run-time error, or None."""

    def __init__(self, error):
        super().__init__(error["message"])
        self.code = error["code"]
        self.number = error.get("data", {}).get("number")


class Control:
    """One control, driven over a pair of pipes."""

    def __init__(self, command, on_notification):
        self.on_notification = on_notification
        self.last_id = 0
        self.process = subprocess.Popen(command, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        encoding="utf-8")

    def __enter__(self):
        return self

    def __exit__(self, *_):
        # The program ends in order when its input ends.
        self.process.stdin.close()
        self.process.wait()
        self.process.stdout.close()

    def request(self, method, **params):
        """Sends a request and returns its result; passes on the notifications that arrive before it."""
        self.last_id += 1
        message = {"jsonrpc": "2.0", "id": self.last_id, "method": method, "params": params}
        self.process.stdin.write(json.dumps(message) + "\n")
        self.process.stdin.flush()
        for line in self.process.stdout:
            message = json.loads(line)
            if "method" in message:
                self.on_notification(message["method"], message["params"])
            elif "error" in message:
                raise ControlError(message["error"])
            else:
                return message["result"]
        raise EOFError("modulinfo has ended")

    def get(self, name):
        return self.request("get", name=name)

    def set(self, name, value):
        self.request("set", name=name, value=value)

    def call(self, name, *args):
        return self.request("call", name=name, args=args)

    def caption(self, widget):
        return self.request("widget", widget=widget)["caption"]


def print_notification(method, params):
    """Prints a notification to standard error."""
    what = [params["name"], *params["args"]] if method == "event" else [method, params]
    print("  ...", *what, file=sys.stderr)


def read_module(control, options):
    """Starts the control and reads the module once."""
    control.set("AppPathString", str(options.folder))
    control.set("Language", options.language)
    control.set("Baudrate", options.baudrate)
    if options.port is not None:
        control.set("ComPort", options.port)
    control.request("show")
    control.call("AutomaticConnection")
    if control.get("DataValid") != 1:
        raise SystemExit(control.get("StatusString") or "no port was found")


def print_module(control):
    rows = [
        ("Name", control.get("DeviceName").strip("\0 ")),
        ("Firmware", control.get("FwVersion")),
        ("Serial number", control.caption("LblSerialNumber").strip("\0 ")),
        ("Module status", control.get("ModulStatusString")),
        ("Channel status", control.get("ChnStatusString")),
        ("Datasheet", control.get("DatasheetLink")),
    ]
    for name, value in rows:
        print(f"{name + ':':16}{value}")


def main():
    program = shutil.which("modulinfo")
    parser = argparse.ArgumentParser(description="Read a module through modulinfo serve")
    parser.add_argument("--program", default=program, help="the path of modulinfo, if it is not in PATH")
    parser.add_argument("--folder", type=pathlib.Path,
                        help="the folder of the language files; by default that of the program")
    parser.add_argument("--simulate", metavar="MODULE", help="read the simulated module in this file")
    parser.add_argument("--port", type=int, help="the port number: 3 for COM3")
    parser.add_argument("--baudrate", type=int, default=19200)
    parser.add_argument("--language", type=int, default=2, help="1 German, 2 English, ...")
    options = parser.parse_args()
    if options.program is None:
        parser.error("modulinfo is not in PATH: use --program")
    if options.folder is None:
        options.folder = pathlib.Path(options.program).resolve().parent

    command = [options.program, "serve"]
    if options.simulate:
        command += ["--simulate", options.simulate]
    with Control(command, print_notification) as control:
        read_module(control, options)
        print_module(control)


if __name__ == "__main__":
    main()

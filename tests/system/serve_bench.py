"""The test bench with a control that a client drives over a pair of pipes."""

import json
import queue
import subprocess
import threading

from bench import BIN, PATIENCE, Bench


class Failure(Exception):
    """A request was answered with an error."""

    def __init__(self, error):
        super().__init__(error["message"])
        self.code = error["code"]
        self.message = error["message"]
        self.number = error.get("data", {}).get("number")


class Client:
    """One `modulinfo serve` and its messages."""

    def __init__(self, command, environment):
        self.process = subprocess.Popen(
            command, env=environment, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
            stderr=subprocess.PIPE)
        self.notifications = []
        self.last_id = 0
        self.lines = queue.Queue()
        threading.Thread(target=self.listen, daemon=True).start()

    def listen(self):
        for line in self.process.stdout:
            self.lines.put(line)
        self.lines.put(b"")

    def write(self, data):
        self.process.stdin.write(data)
        self.process.stdin.flush()

    def send(self, method, /, **params):
        """Sends a request without waiting for the answer, and returns its id."""
        self.last_id += 1
        self.send_json({"jsonrpc": "2.0", "id": self.last_id, "method": method, "params": params})
        return self.last_id

    def send_json(self, message):
        self.write(json.dumps(message).encode() + b"\n")

    def next(self):
        """The next message, or nothing at the end of the output."""
        line = self.lines.get(timeout=PATIENCE)
        return json.loads(line) if line else None

    def next_answer(self):
        """The next answer; the notifications before it are skipped."""
        while (message := self.next()) is not None and "method" in message:
            self.notifications.append((message["method"], message["params"]))
        return message

    def wait_until_answered(self, identity):
        """Reads messages of any kind until that request has been answered."""
        message = {}
        while not (isinstance(message, dict) and message.get("id") == identity):
            message = self.next()
            assert message is not None, "the program has ended"

    def wait_for(self, identity):
        """The result of that request, which must be answered next."""
        answer = self.next_answer()
        assert answer is not None, "the program has ended: " + self.process.stderr.read().decode()
        assert answer["id"] == identity, answer
        if "error" in answer:
            raise Failure(answer["error"])
        return answer["result"]

    def request(self, method, /, **params):
        return self.wait_for(self.send(method, **params))

    def get(self, name):
        return self.request("get", name=name)

    def set(self, name, value):
        return self.request("set", name=name, value=value)

    def call(self, name, *args):
        return self.request("call", name=name, args=args)

    def press(self, widget):
        return self.request("press", widget=widget)

    def widget(self, name):
        return self.request("widget", widget=name)

    def caption(self, name):
        return self.widget(name)["caption"]

    def wait_until_notified(self, notification):
        """Reads messages until that notification has arrived."""
        while notification not in self.notifications:
            message = self.next()
            assert message is not None and "method" in message, message
            self.notifications.append((message["method"], message["params"]))

    def take_notifications(self, method=None):
        """The notifications since the last time, those of one method or all."""
        received, self.notifications = self.notifications, []
        return [entry for entry in received if method in (None, entry[0])]

    def take_events(self):
        """The callbacks since the last time: their names, with their arguments if they have any."""
        return [(params["name"], *params["args"]) for _, params in self.take_notifications("event")]

    def close_input(self):
        self.process.stdin.close()

    def ending(self):
        """The remaining messages, the exit code, and the text on standard error."""
        rest = []
        while (message := self.next()) is not None:
            rest.append(message)
        code = self.process.wait(PATIENCE)
        complaint = self.process.stderr.read().decode()
        return rest, code, complaint

    def end(self):
        if self.process.poll() is None:
            self.process.kill()
            self.process.wait(PATIENCE)
        for pipe in (self.process.stdin, self.process.stdout, self.process.stderr):
            try:
                pipe.close()
            except OSError:
                pass


class ServeBench(Bench):
    """Runs each test with separate clients."""

    def serve(self, *options):
        """A new control."""
        client = Client([self.modulinfo, "serve", *map(str, options)], self.environment)
        self.addCleanup(client.end)
        return client

    def shown(self, *options):
        """A control that is shown, in German and at the usual rate, with all messages read."""
        client = self.serve(*options)
        self.come_up(client)
        return client

    def come_up(self, client):
        client.set("AppPathString", str(BIN))
        client.set("Language", 1)
        client.set("Baudrate", 19200)
        client.request("show")
        client.take_notifications()

    def reading(self, module, *options):
        """A control that has read this simulated module, with all messages read."""
        client = self.shown("--simulate", module, *options)
        client.call("AutomaticConnection")
        self.assertEqual(client.get("DataValid"), 1)
        client.take_notifications()
        return client

    def end_in_order(self, client):
        """The client quits, and the program ends regularly and silently."""
        client.request("quit")
        self.assertEqual(client.ending(), ([], 0, ""))

    def fails(self, code, number, client, method, /, **params):
        """The request fails with that code and number; returns the message."""
        with self.assertRaises(Failure) as raised:
            client.request(method, **params)
        self.assertEqual((raised.exception.code, raised.exception.number), (code, number),
                         raised.exception.message)
        return raised.exception.message

"""The udev rules: their grammar, and their effect on each device they name."""

import pathlib
import re
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
RULES = ROOT / "packaging/udev/60-tessara-modulinfo.rules"

PART = re.compile(
    r'(?P<key>[A-Z]+)(?:\{(?P<name>[^}]+)\})?(?P<operator>==|\+=|=)"(?P<value>[^"]*)"'
)
MATCHES = {"ACTION", "SUBSYSTEM", "ATTRS", "ENV"}
ASSIGNMENTS = {"TAG": "+=", "ENV": "=", "GOTO": "=", "LABEL": "="}


def rules():
    """Each rule as a list of (key, name, operator, value)."""
    for line in RULES.read_text(encoding="ascii").splitlines():
        if line and not line.startswith("#"):
            parts = [PART.fullmatch(part) for part in line.split(", ")]
            if None in parts:
                raise ValueError(f"not a rule: {line}")
            yield [part.group("key", "name", "operator", "value") for part in parts]


class Device:
    """A device with its parents, to which rules are applied."""

    def __init__(self, subsystem, *ancestors, action="add", **environment):
        self.facts = {"ACTION": action, "SUBSYSTEM": subsystem}
        self.ancestors = ancestors
        self.environment = environment
        self.tags = set()

    def matches(self, rule):
        """Whether the rule matches; all its attributes must be those of one ancestor."""
        attributes = {name: value for key, name, _, value in rule if key == "ATTRS"}
        found = not attributes or any(attributes.items() <= one.items() for one in self.ancestors)
        return found and all(
            (self.environment.get(name) if key == "ENV" else self.facts[key]) == value
            for key, name, operator, value in rule
            if operator == "==" and key != "ATTRS"
        )

    def apply(self, rule):
        for key, name, operator, value in rule:
            if key == "TAG":
                self.tags.add(value)
            elif key == "ENV" and operator == "=":
                self.environment[name] = value

    def run(self):
        target = None
        for rule in rules():
            words = {key: value for key, _, operator, value in rule if operator == "="}
            if target is not None and words.get("LABEL") != target:
                continue
            target = None
            if self.matches(rule):
                self.apply(rule)
                target = words.get("GOTO")
        return self


def usb(vendor, product):
    return {"idVendor": vendor, "idProduct": product}


HUB = usb("1d6b", "0002")
PORTS = [usb("10c4", "ea60"), usb("09d8", "0420"), usb("2458", "0001"), usb("23a1", "010d")]
READER = usb("0483", "d0d0")


class GrammarTest(unittest.TestCase):
    def test_every_key_has_a_permitted_operator(self):
        for rule in rules():
            for key, name, operator, _ in rule:
                if operator == "==":
                    self.assertIn(key, MATCHES)
                else:
                    self.assertEqual(ASSIGNMENTS[key], operator)
                self.assertEqual(key in ("ATTRS", "ENV"), name is not None, rule)

    def test_every_jump_goes_forward_to_a_label(self):
        labels = {}
        jumps = []
        for place, rule in enumerate(rules()):
            for key, _, _, value in rule:
                if key == "LABEL":
                    self.assertNotIn(value, labels)
                    labels[value] = place
                elif key == "GOTO":
                    jumps.append((place, value))
        for place, label in jumps:
            self.assertGreater(labels[label], place, label)

    def test_identities_are_written_as_the_kernel_writes_them(self):
        for rule in rules():
            for key, name, _, value in rule:
                if key == "ATTRS":
                    self.assertIn(name, ("idVendor", "idProduct"))
                    self.assertRegex(value, "^[0-9a-f]{4}$")

    def test_the_rules_run_before_access_is_granted(self):
        self.assertLess(RULES.name, "73-seat-late.rules")


class EffectTest(unittest.TestCase):
    def test_the_user_at_the_machine_may_open_the_terminal_of_an_adapter(self):
        for identity in PORTS:
            self.assertEqual(Device("tty", identity, HUB).run().tags, {"uaccess"}, identity)

    def test_modem_probing_ignores_every_device(self):
        for identity in [*PORTS, READER]:
            device = Device("usb", identity, HUB, DEVTYPE="usb_device").run()
            self.assertEqual(device.environment.get("ID_MM_DEVICE_IGNORE"), "1", identity)

    def test_the_reader_without_a_port_is_open_through_hidraw_and_usb(self):
        self.assertEqual(Device("hidraw", READER, HUB).run().tags, {"uaccess"})
        self.assertEqual(Device("usb", READER, DEVTYPE="usb_device").run().tags, {"uaccess"})

    def test_other_devices_are_not_touched(self):
        for subsystem in ("tty", "hidraw", "usb"):
            for identity in (usb("1a86", "7523"), usb("10c4", "ea61"), usb("0483", "5740"), HUB):
                device = Device(subsystem, identity, HUB, DEVTYPE="usb_device").run()
                self.assertEqual(device.tags, set())
                self.assertNotIn("ID_MM_DEVICE_IGNORE", device.environment)

    def test_vendor_and_product_of_different_devices_do_not_match(self):
        device = Device("tty", usb("10c4", "0001"), usb("0000", "ea60")).run()
        self.assertEqual(device.tags, set())

    def test_a_device_being_removed_is_not_touched(self):
        self.assertEqual(Device("tty", PORTS[0], action="remove").run().tags, set())


if __name__ == "__main__":
    unittest.main()

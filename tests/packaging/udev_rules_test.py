"""The udev rules: their grammar, and what they do to each device that they are about."""

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
                raise ValueError(f"no rule: {line}")
            yield [part.group("key", "name", "operator", "value") for part in parts]


class Device:
    """A device with its parents, which changes as the rules say."""

    def __init__(self, subsystem, *ancestors, action="add", **environment):
        self.facts = {"ACTION": action, "SUBSYSTEM": subsystem}
        self.ancestors = ancestors
        self.environment = environment
        self.tags = set()

    def fulfils(self, rule):
        """All attributes of one rule have to be found on one and the same ancestor."""
        attributes = {name: value for key, name, _, value in rule if key == "ATTRS"}
        found = not attributes or any(attributes.items() <= one.items() for one in self.ancestors)
        return found and all(
            (self.environment.get(name) if key == "ENV" else self.facts[key]) == value
            for key, name, operator, value in rule
            if operator == "==" and key != "ATTRS"
        )

    def take(self, rule):
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
            if self.fulfils(rule):
                self.take(rule)
                target = words.get("GOTO")
        return self


def usb(vendor, product):
    return {"idVendor": vendor, "idProduct": product}


HUB = usb("1d6b", "0002")
PORTS = [usb("10c4", "ea60"), usb("09d8", "0420"), usb("2458", "0001"), usb("23a1", "010d")]
READER = usb("0483", "d0d0")


class GrammarTest(unittest.TestCase):
    def test_keys_and_operators_belong_together(self):
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
    def test_the_terminal_of_an_adapter_is_open_to_the_person_at_the_machine(self):
        for identity in PORTS:
            self.assertEqual(Device("tty", identity, HUB).run().tags, {"uaccess"}, identity)

    def test_modem_probing_leaves_every_device_alone(self):
        for identity in [*PORTS, READER]:
            device = Device("usb", identity, HUB, DEVTYPE="usb_device").run()
            self.assertEqual(device.environment.get("ID_MM_DEVICE_IGNORE"), "1", identity)

    def test_the_reader_without_a_port_is_opened_by_either_way_of_access(self):
        self.assertEqual(Device("hidraw", READER, HUB).run().tags, {"uaccess"})
        self.assertEqual(Device("usb", READER, DEVTYPE="usb_device").run().tags, {"uaccess"})

    def test_other_devices_are_not_touched(self):
        for subsystem in ("tty", "hidraw", "usb"):
            for identity in (usb("1a86", "7523"), usb("10c4", "ea61"), usb("0483", "5740"), HUB):
                device = Device(subsystem, identity, HUB, DEVTYPE="usb_device").run()
                self.assertEqual(device.tags, set())
                self.assertNotIn("ID_MM_DEVICE_IGNORE", device.environment)

    def test_vendor_and_product_of_two_devices_make_no_identity(self):
        device = Device("tty", usb("10c4", "0001"), usb("0000", "ea60")).run()
        self.assertEqual(device.tags, set())

    def test_a_device_that_goes_is_not_touched(self):
        self.assertEqual(Device("tty", PORTS[0], action="remove").run().tags, set())


if __name__ == "__main__":
    unittest.main()

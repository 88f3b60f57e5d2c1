"""The test bench with modules in the field of an NFC reader."""

from bench import Bench

# The line of the port list for each reader.
READERS = {"nfc-twn4": "TWN4 NFC-Adapter (COM100)", "nfc-usb": "NFC-USB-ZORVEN-ADAPTER"}


class NfcBench(Bench):
    """Runs each test with separate tags."""

    def with_each(self, faults_of_reader, faults_of_module, check):
        """Runs the check for a module on each reader and with each fault. What follows a fault is
        passed to the check too."""
        for link in READERS:
            for key, faults in (("readerFaults", faults_of_reader), ("faults", faults_of_module)):
                for fault, *more in faults:
                    with self.subTest(link=link, fault=fault["kind"]):
                        check(self.module(link=link, **{key: [fault]}), *more)

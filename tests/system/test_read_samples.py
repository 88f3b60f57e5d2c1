"""The sample modules that come with the programs, read on each of the four paths."""

import json
import unittest

from bench import SAMPLES, Bench

# The line of the port list for each path; %s is the port.
SERIAL = "USB Adapter OKT (%s)"
HART = "USB Hart Adapter Viator (%s)"
TWN4 = "TWN4 NFC-Adapter (%s)"
USB_READER = "NFC-USB-ZORVEN-ADAPTER"

# The path of each sample, its serial number and the beginning of its module status. A module
# without a fault in the field of a reader reports its presence.
READS = {
    "hart-faulty.json": (HART, "2009110226202", "4"),
    "hart-healthy.json": (HART, "2304170226101", "0"),
    "korrin-gm-261.json": (SERIAL, 2205300261005, "0"),
    "korrin-mm-251.json": (SERIAL, 1809030251011, "0"),
    "korrin-xp-991-unknown.json": (SERIAL, 2401150991001, "0"),
    "nfc-twn4-faulty.json": (TWN4, 2205300151098, "11"),
    "nfc-twn4-healthy.json": (TWN4, 2205300161021, "NFC"),
    "nfc-usb-healthy.json": (USB_READER, 2205300151022, "NFC"),
    "tessara-tm-151-error.json": (SERIAL, 2205300151099, "11"),
    "tessara-tm-151.json": (SERIAL, 2205300151001, "0"),
    "tessara-um-161.json": (SERIAL, 1809030161007, "0"),
    "vellum-ba-221-newer.json": (SERIAL, 2509010221001, "0"),
    "vellum-ba-221.json": (SERIAL, 2205300221003, "0"),
    "vellum-lm-201-usb-power.json": (SERIAL, 2205300201040, "USB-Power; 0"),
    "vellum-lm-201.json": (SERIAL, 1603140201032, "0"),
    "vellum-si-181-older.json": (SERIAL, 1501120181002, "0"),
    "vellum-si-181.json": (SERIAL, 2205300181014, "0"),
}


class ReadSamples(Bench):
    def expect_read(self, sample, port, *arguments):
        """Reads the module that the arguments lead to, and expects this sample at this port."""
        path, serial_number, status = READS[sample]
        read = json.loads(self.succeed("read", "--language", 2, "--json", *arguments))
        self.assertEqual((read["adapter"], read["serialNumber"]),
                         (path.replace("%s", port), serial_number))
        self.assertEqual(read["moduleStatus"].split(" -> ")[0], status)
        self.assertEqual(read["dataValid"], 1)

    def test_each_sample_is_listed_here(self):
        self.assertEqual(sorted(READS), sorted(file.name for file in SAMPLES.iterdir()))

    def test_each_is_read_inside_the_program(self):
        for sample in READS:
            with self.subTest(sample):
                self.expect_read(sample, "COM100", "--simulate", SAMPLES / sample)

    def test_each_is_read_on_a_port_of_a_running_simulator(self):
        served = [sample for sample, (path, *_) in READS.items() if path != USB_READER]
        ports = self.simulator(*(SAMPLES / sample for sample in served))
        for sample, port in zip(served, ports):
            with self.subTest(sample):
                self.expect_read(sample, port, "--port", port)


if __name__ == "__main__":
    unittest.main()

"""`modulinfo-panel`, tested from outside."""

import json
import pathlib
import re
import shutil
import struct
import subprocess
import sys
import unittest
import zlib

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "system"))

from bench import BIN, HEALTHY, PATIENCE, Bench  # noqa: E402

# The centre of the lower edge of the state picture, disc or triangle, from the left and from below,
# and the colours.
STATE_PIXEL = (34, 44)
GREEN, ORANGE = (0x12, 0x80, 0x5C), (0xC2, 0x41, 0x0C)

# A record as the program saves it.
RECORD = {
    "format": "modulinfo-record", "version": 1, "program": "modulinfo-panel 0.1.0",
    "time": "2024-05-17T08:04:59+02:00", "language": 1,
    "connection": {"port": "COM3", "adapter": "USB Adapter OKT (COM3)",
                   "object": "ModbusCommObject", "baudrate": 19200, "address": 192},
    "module": {"vendorId": 49, "groupId": 1, "familyId": 15, "deviceId": 151,
               "name": "BENCH MODULE", "description": "", "firmware": "2.000",
               "serialNumber": "4711"},
    "status": {"module": "0 -> Kein Fehler", "channel": "80 -> Kein Fehler", "line": "",
               "word": 128, "led": 0, "picture": 1},
    "catalogue": {"result": "exact", "hidesFirmware": False, "product": "", "datasheet": "",
                  "leaflet": ""},
}


class Png:
    """A picture of 8-bit RGB or RGBA pixels."""

    def __init__(self, path):
        data = path.read_bytes()
        assert data.startswith(b"\x89PNG\r\n\x1a\n")
        chunks, at = [], 8
        while at < len(data):
            length, kind = struct.unpack(">I4s", data[at:at + 8])
            chunks.append((kind, data[at + 8:at + 8 + length]))
            at += 12 + length
        self.width, self.height, depth, colour = struct.unpack(">IIBB", chunks[0][1][:10])
        assert depth == 8
        self.channels = {2: 3, 6: 4}[colour]
        packed = zlib.decompress(b"".join(part for kind, part in chunks if kind == b"IDAT"))
        self.rows = self._unfiltered(packed)

    def _unfiltered(self, packed):
        size, step = self.width * self.channels, self.channels
        rows, above = [], bytes(size)
        for start in range(0, len(packed), size + 1):
            kind, row = packed[start], bytearray(packed[start + 1:start + 1 + size])
            for i in range(size):
                left = row[i - step] if i >= step else 0
                corner = above[i - step] if i >= step else 0
                guess = left + above[i] - corner
                nearest = min((left, above[i], corner), key=lambda value: abs(guess - value))
                add = (0, left, above[i], (left + above[i]) // 2, nearest)[kind]
                row[i] = (row[i] + add) & 255
            rows.append(row)
            above = row
        return rows

    def pixel(self, x, y):
        """The colour of the pixel at that distance from the left and from below."""
        start = x * self.channels
        return tuple(self.rows[-y][start:start + 3])


class ProgramTest(Bench):
    """Draws pictures; needs no display for it."""

    def setUp(self):
        super().setUp()
        self.picture = self.folder / "panel.png"
        self.program = BIN / "modulinfo-panel"

    def run_panel(self, *arguments):
        return subprocess.run(
            [self.program, *map(str, arguments)],
            env=self.environment, stdin=subprocess.DEVNULL, capture_output=True,
            encoding="utf-8", timeout=PATIENCE, check=False)

    def draw(self, *arguments, **changes):
        """Draws the healthy module with these changes."""
        return self.run_panel("--simulate", self.module(**changes), "--screenshot", self.picture,
                              *arguments)

    def test_draws_a_healthy_module(self):
        ended = self.draw()
        self.assertEqual((ended.returncode, ended.stdout, ended.stderr), (0, "", ""))
        png = Png(self.picture)
        self.assertEqual(png.width, 803)
        self.assertGreater(png.height, 167)
        self.assertEqual(png.pixel(*STATE_PIXEL), GREEN)

    def test_draws_a_module_with_a_fault(self):
        ended = self.draw(status=HEALTHY["status"] | {"80": 4})
        self.assertEqual(ended.returncode, 0)
        self.assertEqual(Png(self.picture).pixel(*STATE_PIXEL), ORANGE)

    def test_draws_in_the_requested_language(self):
        pictures = []
        for language in (1, 8, 9):
            self.assertEqual(self.draw("--language", language).returncode, 0)
            pictures.append(self.picture.read_bytes())
        self.assertEqual(len(set(pictures)), 3)

    def test_draws_at_the_scale_of_the_screen(self):
        self.environment["QT_SCALE_FACTOR"] = "2"
        self.assertEqual(self.draw().returncode, 0)
        self.assertEqual(Png(self.picture).width, 1606)

    def test_a_module_that_does_not_answer_is_drawn_and_ends_with_4(self):
        ended = self.draw(faults=[{"kind": "noReply", "every": 1}])
        self.assertEqual(ended.returncode, 4)
        self.assertIn("modulinfo-panel: the module could not be read", ended.stderr)
        self.assertNotIn(Png(self.picture).pixel(*STATE_PIXEL), (GREEN, ORANGE))

    def test_an_absent_port_ends_with_3(self):
        ended = self.run_panel("--port", "COM77", "--screenshot", self.picture)
        self.assertEqual(ended.returncode, 3)
        self.assertIn("COM77", ended.stderr)
        self.assertFalse(self.picture.exists())

    def test_invalid_settings_end_with_3(self):
        self.write_settings("[Settings]\nLanguage=fast\n")
        ended = self.run_panel("--screenshot", self.picture)
        self.assertEqual(ended.returncode, 3)
        self.assertIn("fast", ended.stderr)
        self.assertFalse(self.picture.exists())

    def test_wrong_usage_ends_with_2(self):
        for arguments in (["--port", "seven"], ["--simulate", "absent.json"], ["--baudrate", "299"],
                          ["--address", "248"], ["--language", "12"], ["--unknown"],
                          ["--port", "COM1", "--simulate", self.module()]):
            with self.subTest(arguments=arguments):
                ended = self.run_panel(*arguments)
                self.assertEqual(ended.returncode, 2)
                self.assertNotEqual(ended.stderr, "")

    def test_an_address_that_no_module_on_the_path_has_ends_with_2(self):
        ended = self.draw("--address", "0")
        self.assertEqual(ended.returncode, 2)
        self.assertIn("--address: Modbus takes 1 to 247, not 0", ended.stderr)

    def test_a_broken_module_file_ends_with_2(self):
        broken = self.folder / "broken.json"
        broken.write_text("{", encoding="utf-8")
        ended = self.run_panel("--simulate", broken, "--screenshot", self.picture)
        self.assertEqual(ended.returncode, 2)
        self.assertIn("broken.json", ended.stderr)

    def test_a_picture_that_cannot_be_written_ends_with_1(self):
        self.picture = self.folder / "absent" / "panel.png"
        ended = self.draw()
        self.assertEqual(ended.returncode, 1)
        self.assertIn("panel.png cannot be written", ended.stderr)

    def test_a_missing_catalogue_is_reported_on_standard_error_without_a_message_box(self):
        place = self.folder / "installed"
        place.mkdir()
        self.program = pathlib.Path(shutil.copy2(self.program, place))
        ended = self.draw()
        self.assertEqual(ended.returncode, 4)
        self.assertIn("MERIDEX_CONF: ", ended.stderr)
        self.assertIn("TessaraDevices.xml", ended.stderr)
        self.assertTrue(self.picture.exists())

    def pages(self, pdf):
        """The page count and the text of a PDF file."""
        told = subprocess.run(["pdfinfo", pdf], capture_output=True, encoding="utf-8", check=True)
        text = subprocess.run(["pdftotext", "-layout", pdf, "-"], capture_output=True,
                              encoding="utf-8", check=True).stdout
        return re.search(r"^Pages: +(\d+)$", told.stdout, re.M)[1], text

    def record(self, **changes):
        """The path of a record file, with these fields changed."""
        path = self.folder / "record.json"
        path.write_text(json.dumps(RECORD | changes), encoding="utf-8")
        return path

    def test_writes_the_report_of_a_module(self):
        pdf = self.folder / "report.pdf"
        ended = self.run_panel("--simulate", self.module(), "--language", 2, "--report", pdf)
        self.assertEqual((ended.returncode, ended.stdout, ended.stderr), (0, "", ""))
        pages, text = self.pages(pdf)
        self.assertEqual(pages, "1")
        for value in ("Module record", "TESSARA TM 151", "4711", "Page 1 of 1"):
            self.assertIn(value, text)

    def test_starts_with_the_last_port_rate_and_language(self):
        _, port = self.simulator(self.module(), self.module("other.json", serialNumber=1147))
        self.write_settings(f"[Settings]\nCOM%20Port={port.removeprefix('COM')}\nLanguage=2\n")
        own = self.settings_file.with_name("modulinfo-panel.ini")
        own.write_text("[Connection]\nBaudrate=38400\n", encoding="utf-8")
        pdf = self.folder / "report.pdf"
        ended = self.run_panel("--report", pdf)
        self.assertEqual((ended.returncode, ended.stderr), (0, ""))
        _, text = self.pages(pdf)
        for value in ("Module record", "1147", f"({port})", "38400"):
            self.assertIn(value, text)

    def test_writes_report_and_picture_of_a_record(self):
        pdf = self.folder / "report.pdf"
        ended = self.run_panel("--record", self.record(), "--language", 1, "--report", pdf,
                               "--screenshot", self.picture)
        self.assertEqual((ended.returncode, ended.stdout, ended.stderr), (0, "", ""))
        pages, text = self.pages(pdf)
        self.assertEqual(pages, "1")
        for value in ("Modulprotokoll", "BENCH MODULE", "17. Mai 2024, 08:04:59 (UTC+02:00)"):
            self.assertIn(value, text)
        self.assertGreater(Png(self.picture).height, 300)

    def test_writes_no_report_after_a_failed_read(self):
        pdf = self.folder / "report.pdf"
        ended = self.run_panel("--simulate", self.module(faults=[{"kind": "noReply", "every": 1}]),
                               "--report", pdf)
        self.assertEqual(ended.returncode, 4)
        self.assertFalse(pdf.exists())

    def test_a_report_that_cannot_be_written_ends_with_1(self):
        ended = self.run_panel("--record", self.record(), "--report",
                               self.folder / "absent" / "report.pdf")
        self.assertEqual(ended.returncode, 1)
        self.assertIn("report.pdf cannot be written", ended.stderr)

    def test_a_file_that_is_not_a_record_ends_with_1_and_the_reason(self):
        wrong = self.folder / "wrong.json"
        wrong.write_text("{\n  nonsense\n}", encoding="utf-8")
        for changes, said in ((None, "wrong.json is not a module record: invalid JSON at line 2"),
                              ({"version": 2}, "written by a newer program"),
                              ({"module": {}}, "the field module.vendorId is missing"),
                              ({"time": "now"}, 'the field time is "now"')):
            with self.subTest(said=said):
                path = wrong if changes is None else self.record(**changes)
                ended = self.run_panel("--record", path, "--screenshot", self.picture)
                self.assertEqual(ended.returncode, 1)
                self.assertIn(said, ended.stderr)
                self.assertFalse(self.picture.exists())

    def test_record_and_module_exclude_each_other(self):
        for arguments in (["--port", "COM1"], ["--simulate", self.module()], ["--read"]):
            with self.subTest(arguments=arguments):
                ended = self.run_panel("--record", self.record(), *arguments)
                self.assertEqual(ended.returncode, 2)

    def test_a_simulated_module_leaves_no_settings(self):
        self.draw()
        self.assertEqual(list((self.folder / "user").rglob("*.ini")), [])

    def test_help_and_version_need_no_display(self):
        for option in ("--help", "--version"):
            with self.subTest(option=option):
                ended = self.run_panel(option)
                self.assertEqual(ended.returncode, 0)
                self.assertIn("modulinfo-panel", ended.stdout)


if __name__ == "__main__":
    unittest.main()

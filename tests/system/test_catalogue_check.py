"""`modulinfo catalogue check`, run as the real program."""

import unittest

from bench import BIN, CATALOGUE, Bench

SAMPLE = BIN / CATALOGUE


class CatalogueCheck(Bench):
    def broken(self, old, new):
        """A copy of the sample with the first `old` replaced, and its line number."""
        text = SAMPLE.read_text("utf-8")
        self.assertIn(old, text)
        file = self.folder / CATALOGUE
        file.write_text(text.replace(old, new, 1), encoding="utf-8")
        return file, text[:text.index(old)].count("\n") + 1

    def complaint(self, file):
        """The last line that the check prints about a faulty file."""
        done = self.run_modulinfo("catalogue", "check", file)
        self.assertEqual((done.returncode, done.stderr), (1, ""), done.stdout)
        return done.stdout.splitlines()[-1]

    def test_the_sample_catalogue_is_valid(self):
        lines = self.succeed("catalogue", "check", SAMPLE).splitlines()
        self.assertEqual(lines[0], f"{SAMPLE}: loads")
        self.assertEqual(lines[1].split()[:5], ["Line", "Vendor", "Family", "Device", "HideFw"])
        rows = [line.split() for line in lines[2:]]
        self.assertEqual(len(rows), SAMPLE.read_text("utf-8").count("<Version "))
        self.assertEqual(rows[0][1:7], ["49", "15", "151", "0", "1.000", "60"])
        self.assertIn("DatasheetDE", rows[0])

    def test_a_place_without_a_number(self):
        file, line = self.broken('RegDevStatus="60"', 'RegDevStatus="sixty"')
        self.assertEqual(self.complaint(file),
                         f'{file}:{line - 1}: place 3 of this Version, "sixty", is not a whole number; '
                         "reads of this module fail")

    def test_a_version_that_is_never_reached(self):
        file, line = self.broken('Firmware="1.100"', 'Firmware="1,0"')
        self.assertEqual(self.complaint(file),
                         f"{file}:{line}: firmware 1,0 is never reached; line {line - 3} lists "
                         "it already")

    def test_a_device_that_is_listed_twice(self):
        file, line = self.broken('DeviceID="152"', 'DeviceID="151"')
        self.assertTrue(self.complaint(file).startswith(f"{file}:{line}: line "))

    def test_a_data_sheet_that_is_missing_for_a_language(self):
        sheet = "<DatasheetFR>https://example.invalid/tessara/tm-151/datasheet-fr.pdf</DatasheetFR>"
        file, _ = self.broken(sheet, "")
        self.assertIn("no DatasheetFR; French users get an empty link", self.complaint(file))

    def test_a_file_that_the_control_cannot_use(self):
        file, line = self.broken("</Catalogue>", "</Katalog>")
        self.assertEqual(self.complaint(file),
                         f"{file}:{line}:3: invalid XML: mismatched end tag; <Catalogue> is open")
        absent = self.folder / "none.xml"
        self.assertEqual(self.complaint(absent), f"{absent}: the file cannot be read")

    def test_a_doubled_attribute(self):
        file, line = self.broken('RegDevStatus="60"', 'RegDevStatus="60" RegDevStatus="70"')
        complaint = self.complaint(file)
        self.assertRegex(complaint, rf":{line}:\d+: invalid XML: duplicate attribute$")
        self.assertTrue(complaint.startswith(str(file)))

    def test_no_file_is_wrong_usage(self):
        self.fail_with(2, "catalogue", "check")
        self.fail_with(2, "catalogue")


if __name__ == "__main__":
    unittest.main()

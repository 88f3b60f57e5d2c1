"""`modulinfo catalogue check`, and that it foretells what reads meet."""

import unittest

from bench import BIN, CATALOGUE, Bench

SAMPLE = BIN / CATALOGUE


class CatalogueCheck(Bench):
    def broken(self, old, new):
        """A copy of the sample with the first `old` replaced, and the line in which it stood."""
        text = SAMPLE.read_text("utf-8")
        self.assertIn(old, text)
        file = self.folder / CATALOGUE
        file.write_text(text.replace(old, new, 1), encoding="utf-8")
        return file, text[:text.index(old)].count("\n") + 1

    def complaint(self, file):
        """What the check prints last about a file that it finds fault with."""
        done = self.run_modulinfo("catalogue", "check", file)
        self.assertEqual((done.returncode, done.stderr), (1, ""), done.stdout)
        return done.stdout.splitlines()[-1]

    def test_the_catalogue_of_the_product_is_in_order(self):
        lines = self.succeed("catalogue", "check", SAMPLE).splitlines()
        self.assertEqual(lines[0], f"{SAMPLE}: loads")
        self.assertEqual(lines[1].split()[:5], ["Line", "Vendor", "Family", "Device", "HideFw"])
        rows = [line.split() for line in lines[2:]]
        self.assertEqual(len(rows), SAMPLE.read_text("utf-8").count("<Version "))
        self.assertEqual(rows[0][1:7], ["49", "15", "151", "0", "1.000", "60"])
        self.assertIn("DatasheetDE", rows[0])

    def test_a_place_that_holds_no_number(self):
        file, line = self.broken('RegDevStatus="60"', 'RegDevStatus="sixty"')
        self.assertEqual(self.complaint(file),
                         f'{file}:{line - 1}: place 3 of this Version, "sixty", is no whole number; '
                         "reads of this module fail")

    def test_a_version_that_is_never_reached(self):
        file, line = self.broken('Firmware="1.100"', 'Firmware="1,0"')
        self.assertEqual(self.complaint(file),
                         f"{file}:{line}: firmware 1,0 is never reached; line {line - 3} has it "
                         "already")

    def test_a_device_that_is_listed_twice(self):
        file, line = self.broken('DeviceID="152"', 'DeviceID="151"')
        self.assertTrue(self.complaint(file).startswith(f"{file}:{line}: line "))

    def test_a_data_sheet_that_is_missing_for_a_language(self):
        sheet = "<DatasheetFR>https://example.invalid/tessara/tm-151/datasheet-fr.pdf</DatasheetFR>"
        file, _ = self.broken(sheet, "")
        self.assertIn("no DatasheetFR; French users get an empty link", self.complaint(file))

    def test_a_file_that_the_control_cannot_use(self):
        file, _ = self.broken("</Catalogue>", "</Katalog>")
        self.assertIn("no well-formed XML: ", self.complaint(file))
        absent = self.folder / "none.xml"
        self.assertEqual(self.complaint(absent), f"{absent}: the file cannot be read")

    def test_no_file_is_wrong_usage(self):
        self.fail_with(2, "catalogue", "check")
        self.fail_with(2, "catalogue")


if __name__ == "__main__":
    unittest.main()

"""How `modulinfo read` ends if the catalogue beside the program is missing or faulty."""

import json
import shutil
import unittest

from bench import BIN, CATALOGUE, Bench

MESSAGE = "MERIDEX_CONF: Fehler XML-Datei!"


class ReadCatalogue(Bench):
    def setUp(self):
        super().setUp()
        self.catalogue = self.private_installation() / CATALOGUE

    def fail_with_catalogue(self):
        complaint = self.fail_with(4, "read", "--simulate", self.module(), "--language", 1)
        self.assertIn(str(self.catalogue), complaint)
        return complaint

    def test_the_catalogue_beside_the_program_is_used(self):
        shutil.copy2(BIN / CATALOGUE, self.catalogue)
        self.assertIn("0 -> Kein Fehler",
                      self.succeed("read", "--simulate", self.module(), "--language", 1))

    def test_a_missing_catalogue_is_reported_at_each_of_the_two_attempts(self):
        self.assertEqual(self.fail_with_catalogue().count(MESSAGE), 2)

    def test_a_catalogue_that_is_not_well_formed(self):
        self.catalogue.write_text("<Catalogue><Family></Catalogue>", encoding="utf-8")
        self.assertIn(MESSAGE, self.fail_with_catalogue())

    def test_a_doubled_attribute_is_not_well_formed(self):
        sample = (BIN / CATALOGUE).read_text("utf-8")
        doubled = sample.replace('RegDevStatus="60"', 'RegDevStatus="60" RegDevStatus="60"', 1)
        self.assertNotEqual(doubled, sample)
        self.catalogue.write_text(doubled, encoding="utf-8")
        self.assertIn(MESSAGE, self.fail_with_catalogue())

    def test_an_empty_catalogue(self):
        self.catalogue.write_text("", encoding="utf-8")
        self.assertIn(MESSAGE, self.fail_with_catalogue())

    def test_a_catalogue_with_an_invalid_number(self):
        self.catalogue.write_text('<Catalogue><Family VendorID="many" FamilyID="15"/></Catalogue>',
                                  encoding="utf-8")
        self.assertNotIn(MESSAGE, self.fail_with_catalogue())

    def test_a_catalogue_without_devices_knows_no_module(self):
        self.catalogue.write_text("<Catalogue/>", encoding="utf-8")
        module = self.module(registers={"0": 0})
        read = json.loads(self.succeed("read", "--simulate", module, "--language", 1, "--json"))
        self.assertEqual(read["links"]["product"], "")
        self.assertEqual(read["dataValid"], 1)

    def test_missing_language_files_leave_the_german_texts(self):
        shutil.copy2(BIN / CATALOGUE, self.catalogue)
        for file in self.catalogue.parent.glob("MERIDEX_CONF.*"):
            file.unlink()
        done = self.run_modulinfo("read", "--simulate", self.module(), "--language", 2)
        self.assertEqual(done.returncode, 0)
        self.assertIn("Gerätetyp:", done.stdout)
        self.assertIn("Error language file! Set to default!", done.stderr)


if __name__ == "__main__":
    unittest.main()

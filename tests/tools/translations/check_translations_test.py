"""check_translations.py finds every fault of a .ts file, and what Qt makes of the files is complete."""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[3]
CHECKER = ROOT / "tools/translations/check_translations.py"

SOURCE = """
QString text(int n) {
  QCoreApplication::translate("Menu", "&Open…");
  QCoreApplication::translate("Menu", "%1 is larger than %2 KB.");
  QCoreApplication::translate("Menu", "Records (*.json)");
  return QCoreApplication::translate("Menu", "%n file(s) in %1", nullptr, n);
}
"""
MESSAGES = {
    "&Open…": "Ö&ffnen…",
    "%1 is larger than %2 KB.": "%1 ist größer als %2 KB.",
    "Records (*.json)": "Protokolle (*.json)",
    "%n file(s) in %1": ("Eine Datei in %1", "%n Dateien in %1"),
}


def translation(text, state):
    kind = f' type="{state}"' if state else ""
    if isinstance(text, str):
        return f"<translation{kind}>{text}</translation>"
    forms = "".join(f"<numerusform>{form}</numerusform>" for form in text)
    return f"<translation{kind}>{forms}</translation>"


class CheckTranslations(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()  # pylint: disable=consider-using-with
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        (self.folder / "menu.cpp").write_text(SOURCE, "utf-8")

    def write(self, messages, states=None):
        """Writes the messages as a .ts file; `states` has those that are not finished."""
        rows = []
        for source, text in messages.items():
            numerus = "" if isinstance(text, str) else ' numerus="yes"'
            shown = source.replace("&", "&amp;")
            rows.append(f"<message{numerus}><source>{shown}</source>"
                        + translation(text, (states or {}).get(source)).replace("&", "&amp;")
                        + "</message>")
        file = self.folder / "menu_de.ts"
        file.write_text('<?xml version="1.0" encoding="utf-8"?><!DOCTYPE TS>'
                        '<TS version="2.1" language="de_DE" sourcelanguage="en"><context>'
                        f'<name>Menu</name>{"".join(rows)}</context></TS>', "utf-8")
        return file

    def check(self, messages, states=None):
        """Exit code and output of the checker for those messages."""
        file = self.write(messages, states)
        before = file.read_bytes()
        ended = subprocess.run([sys.executable, "-B", CHECKER, "--lupdate", os.environ["LUPDATE"],
                                "--sources", self.folder, file],
                               check=False, capture_output=True, text=True)
        self.assertEqual(file.read_bytes(), before)
        return ended.returncode, ended.stderr

    def assert_fault(self, expected, messages, states=None):
        code, output = self.check(messages, states)
        self.assertEqual(code, 1, output)
        self.assertIn(expected, output)
        self.assertEqual(output.count("menu_de.ts: "), 1, output)

    def test_accepts_a_complete_file(self):
        self.assertEqual(self.check(MESSAGES), (0, ""))

    def test_finds_a_missing_word(self):
        messages = {source: text for source, text in MESSAGES.items() if source != "&Open…"}
        self.assert_fault('Menu: "&Open…": missing', messages)

    def test_finds_an_unfinished_word(self):
        self.assert_fault('Menu: "&Open…": unfinished', MESSAGES, {"&Open…": "unfinished"})

    def test_finds_a_word_that_is_no_longer_in_the_sources(self):
        self.assert_fault('Menu: "Close": no longer in the sources',
                          MESSAGES | {"Close": "Schließen"})
        self.assert_fault('Menu: "Close": no longer in the sources',
                          MESSAGES | {"Close": "Schließen"}, {"Close": "vanished"})

    def test_finds_an_empty_translation(self):
        self.assert_fault("the translation is empty", MESSAGES | {"&Open…": " "})
        self.assert_fault("the translation is empty",
                          MESSAGES | {"%n file(s) in %1": ("Eine Datei in %1", "")})

    def test_finds_places_that_differ(self):
        source = "%1 is larger than %2 KB."
        for text in ("%1 ist zu groß.", "%1 ist größer als %1 KB.", "%1: %2 KB, nicht %3.",
                     "%1 ist um %n größer als %2 KB."):
            with self.subTest(text=text):
                self.assert_fault("the places differ", MESSAGES | {source: text})
        self.assert_fault("the places differ", MESSAGES
                          | {"%n file(s) in %1": ("Eine Datei in %1", "%n Dateien")})

    def test_finds_access_keys_that_differ(self):
        for text in ("Öffnen…", "&Ö&ffnen…"):
            with self.subTest(text=text):
                self.assert_fault("the access keys differ", MESSAGES | {"&Open…": text})

    def test_finds_a_file_filter_that_differs(self):
        self.assert_fault("the file filters differ",
                          MESSAGES | {"Records (*.json)": "Protokolle (*.txt)"})

    def test_finds_endings_that_differ(self):
        self.assert_fault("one of the two ends with a full stop",
                          MESSAGES | {"%1 is larger than %2 KB.": "%1 ist größer als %2 KB"})
        self.assert_fault("one of the two ends with dots", MESSAGES | {"&Open…": "Ö&ffnen"})

    def test_finds_a_blank_too_many(self):
        for text in (" Ö&ffnen…", "Ö&ffnen …  …", "Ö&ffnen :…"):
            with self.subTest(text=text):
                self.assert_fault("a blank too many", MESSAGES | {"&Open…": text})

    def test_lrelease_takes_what_the_check_accepts(self):
        file = self.write(MESSAGES)
        ended = subprocess.run([os.environ["LRELEASE"], file, "-qm", self.folder / "menu_de.qm"],
                               check=True, capture_output=True, text=True)
        self.assertIn("Generated 4 translation(s) (4 finished and 0 unfinished)", ended.stdout)


if __name__ == "__main__":
    unittest.main()

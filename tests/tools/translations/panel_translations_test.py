"""The .ts files of modulinfo-panel are those that lupdate writes, and say things in their language."""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[3]
PANEL = ROOT / "apps/modulinfo-panel"
FILES = sorted((PANEL / "translations").glob("*.ts"))

sys.path.insert(0, str(ROOT / "tools/translations"))
import check_translations  # pylint: disable=wrong-import-position

# Dates are written alike in several languages.
DATE_PATTERN = "d MMMM yyyy, HH:mm:ss (t)"


class PanelTranslations(unittest.TestCase):
    maxDiff = None

    def test_there_is_one_for_every_language_but_english(self):
        self.assertEqual([file.stem.removeprefix("modulinfo-panel_") for file in FILES],
                         ["de", "es", "fr", "it", "ja", "pl", "pt", "ru", "tr", "zh_CN"])

    def test_updating_the_files_changes_nothing(self):
        with tempfile.TemporaryDirectory() as folder:
            copies = [pathlib.Path(shutil.copy(file, folder)) for file in FILES]
            subprocess.run([os.environ["LUPDATE"], "-silent", "-no-obsolete", "-locations", "none",
                            "-source-language", "en", PANEL, "-ts", *copies], check=True)
            for file, copy in zip(FILES, copies):
                self.assertEqual(file.read_text("utf-8"), copy.read_text("utf-8"), file.name)

    def test_every_sentence_is_translated(self):
        for file in FILES:
            for message in check_translations.read_messages(file):
                is_sentence = " " in message.source and not message.source.startswith("%")
                if is_sentence and message.source != DATE_PATTERN:
                    self.assertNotIn(message.source, message.forms, file.name)

    def test_a_word_means_the_same_wherever_it_is_used(self):
        for file in FILES:
            texts = {}
            for message in check_translations.read_messages(file):
                self.assertEqual(texts.setdefault(message.source, message.forms), message.forms,
                                 f"{file.name}: {message.name()}")


if __name__ == "__main__":
    unittest.main()

"""The installation works where it is."""

import json
import unittest

from staging import Staged, run

DATA = {"TessaraDevices.xml", "Help_001", "Help_001.chm", "Help_049", "Help_049.chm"} | {
    f"MERIDEX_CONF.{letter}lg" for letter in "defsiptrczj"}


class Install(Staged):
    def test_the_command_line_finds_catalogue_and_languages(self):
        panel = json.loads(self.run_program("modulinfo", "read", "--simulate", self.module,
                                            "--language", "2", "--json"))
        self.assertEqual(panel["links"]["product"], "https://example.invalid/tessara/um-161")
        self.assertIn("No error", panel["moduleStatus"])

    def test_the_panel_is_drawn(self):
        picture = self.folder / "panel.png"
        self.run_program("modulinfo-panel", "--simulate", self.module, "--screenshot", picture)
        self.assertTrue(picture.read_bytes().startswith(b"\x89PNG"))

    def test_the_data_is_in_the_folders_of_library_and_programs(self):
        for folder in (self.library.parent, (self.prefix / "bin/modulinfo").resolve().parent,
                       (self.prefix / "bin/modulinfo-panel").resolve().parent):
            self.assertEqual(DATA - {entry.name for entry in folder.iterdir()}, set(), folder)

    def test_every_link_points_into_the_installation(self):
        links = [path for path in self.prefix.rglob("*") if path.is_symlink()]
        self.assertGreater(len(links), 2 * len(DATA))
        for link in links:
            self.assertFalse(link.readlink().is_absolute(), link)
            self.assertTrue(link.resolve(strict=True).is_relative_to(self.prefix), link)

    def test_the_help_has_pages_for_browsers(self):
        for help_folder in ("Help_001", "Help_049"):
            suffixes = {path.suffix for path in (self.data / help_folder).iterdir()}
            self.assertEqual(suffixes, {".html", ".css", ".png"})

    def test_documents_of_packages_are_not_installed(self):
        self.assertFalse((self.prefix / "share/doc").exists())

    def test_the_menu_entry_is_valid(self):
        entry = self.prefix / "share/applications/modulinfo-panel.desktop"
        self.assertEqual(run("desktop-file-validate", entry), "")
        self.assertIn("Icon=modulinfo-panel\n", entry.read_text("utf-8"))

    def test_the_entry_for_software_catalogues_is_valid(self):
        entry = next((self.prefix / "share/metainfo").iterdir())
        self.assertIn("successful", run("appstreamcli", "validate", "--no-net", entry))

    def test_the_icon_is_there_in_every_size(self):
        icons = self.prefix / "share/icons/hicolor"
        self.assertTrue((icons / "scalable/apps/modulinfo-panel.svg").is_file())
        for side in (48, 64, 128, 256):
            picture = (icons / f"{side}x{side}/apps/modulinfo-panel.png").read_bytes()
            self.assertTrue(picture.startswith(b"\x89PNG"))
            self.assertEqual(picture[16:24], side.to_bytes(4, "big") * 2)


if __name__ == "__main__":
    unittest.main()

"""The help files are complete, and every link in them has a target."""

import html.parser
import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

BIN = pathlib.Path(os.environ["HELP_BIN"])
CHMCMD = os.environ["HELP_CHMCMD"]
STEMS = ("Help_049", "Help_001")
PNG = b"\x89PNG\r\n\x1a\n"


class Page(html.parser.HTMLParser):
    """The links and anchors of a page, and the values of its site map objects."""

    def __init__(self, file):
        super().__init__()
        self.targets, self.anchors, self.parameters = [], set(), []
        self.feed(file.read_text("utf-8"))

    def handle_starttag(self, tag, attrs):
        values = dict(attrs)
        self.targets += [values[name] for name in ("href", "src") if name in values]
        if "id" in values:
            self.anchors.add(values["id"])
        if tag == "param":
            self.parameters.append((values["name"], values["value"]))

    def entries(self):
        """The entries of contents or index as pairs of word and place."""
        names = [value for name, value in self.parameters if name == "Name"]
        places = [value for name, value in self.parameters if name == "Local"]
        assert len(names) == len(places)
        return list(zip(names, places))


class HelpFiles(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        # pylint: disable-next=consider-using-with
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = pathlib.Path(folder.name)
        for stem in STEMS:
            subprocess.run(["extract_chmLib", BIN / f"{stem}.chm", cls.folder / stem],
                           check=True, capture_output=True)

    def pages(self, stem):
        """The pages of a help file by their names."""
        return {file.name: Page(file) for file in sorted((self.folder / stem).glob("*.html"))}

    def assert_has_target(self, stem, pages, page, target):
        name, _, place = target.partition("#")
        name = name or page
        self.assertTrue((self.folder / stem / name).is_file(), f"{stem} {page}: {target}")
        if place:
            self.assertIn(place, pages[name].anchors, f"{stem} {page}: {target}")

    def test_every_link_and_picture_is_there(self):
        for stem in STEMS:
            pages = self.pages(stem)
            for name, page in pages.items():
                for target in page.targets:
                    if "://" not in target and not target.startswith("mailto:"):
                        self.assert_has_target(stem, pages, name, target)

    def test_every_entry_of_contents_and_index_has_a_target(self):
        for stem in STEMS:
            pages = self.pages(stem)
            for kind in ("hhc", "hhk"):
                entries = Page(self.folder / stem / f"{stem}.{kind}").entries()
                self.assertGreater(len(entries), 40)
                for word, target in entries:
                    self.assertTrue(word)
                    self.assert_has_target(stem, pages, kind, target)

    def test_the_contents_list_every_page(self):
        for stem in STEMS:
            entries = Page(self.folder / stem / f"{stem}.hhc").entries()
            self.assertEqual({target.partition("#")[0] for _, target in entries},
                             set(self.pages(stem)))

    def test_both_languages_have_the_same_pages_anchors_and_pictures(self):
        german, english = (self.pages(stem) for stem in STEMS)
        self.assertEqual({name: page.anchors for name, page in german.items()},
                         {name: page.anchors for name, page in english.items()})
        pictures = [sorted(file.name for file in (self.folder / stem).glob("*.png"))
                    for stem in STEMS]
        self.assertEqual(pictures[0], pictures[1])

    def test_pictures_of_panel_and_dialogs_are_drawn_in_the_language_of_the_help(self):
        german = self.folder / STEMS[0]
        shots = sorted([*german.glob("panel*.png"), *german.glob("dialog-*.png")])
        self.assertGreaterEqual(len(shots), 7)
        for shot in shots:
            self.assertTrue(shot.read_bytes().startswith(PNG))
            other = self.folder / STEMS[1] / shot.name
            self.assertNotEqual(shot.read_bytes(), other.read_bytes(), shot.name)

    def test_browsers_get_the_same_pages(self):
        for stem in STEMS:
            for file in (self.folder / stem).iterdir():
                if file.suffix in (".html", ".css", ".png"):
                    self.assertEqual(file.read_bytes(), (BIN / stem / file.name).read_bytes())

    def test_every_picture_is_shown(self):
        for stem in STEMS:
            shown = {target for page in self.pages(stem).values() for target in page.targets}
            for picture in (self.folder / stem).glob("*.png"):
                self.assertIn(picture.name, shown)

    def test_a_missing_file_stops_the_compiler(self):
        for missing in ("panel.png", "index.html", "help.css"):
            with tempfile.TemporaryDirectory() as place:
                copy = pathlib.Path(place, "Help_049")
                shutil.copytree(BIN / "Help_049", copy)
                (copy / missing).unlink()
                done = subprocess.run([CHMCMD, "--no-html-scan", "Help_049.hhp"], cwd=copy,
                                      capture_output=True, check=False)
                self.assertNotEqual(done.returncode, 0, missing)


if __name__ == "__main__":
    unittest.main()

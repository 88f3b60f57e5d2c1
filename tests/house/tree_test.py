"""Rules for every file that is written by hand."""

import os
import re
import unittest

from house import ROOT, SRC, files, shown

FOLDERS = ("apps", "bench", "cmake", "data", "docs", "fuzz", "packaging", "scripts", "src", "tests", "tools")
WRITTEN = ("*.h", "*.cpp", "*.py", "*.sh", "*.cmake", "*.txt", "*.qrc")

# Joined from two parts, so that this file passes its own test.
UNFINISHED = re.compile("|".join(rf"\b{first}{second}\b" for first, second in (
    ("TO", "DO"), ("FIX", "ME"), ("XX", "X"), ("HA", "CK"), ("for ", "now"))))

LINK = re.compile(r"\[[^\]]*\]\(([^)#\s]+)[^)]*\)")

# A path as documents write it, `src/qt`, `scripts/*.sh` or `src/drivers/nfc/Twn4` for header and source:
# from the root or, as an #include names it, from src/ or apps/.
PATH = re.compile(r"`([\w.-]+/[\w./*-]*)`")
BASES = (ROOT, SRC, ROOT / "apps")

def written():
    """Sources, scripts and build files of the whole tree; what fuzz targets start from is left out."""
    return [path for folder in FOLDERS for path in files(ROOT / folder, *WRITTEN)
            if "seeds" not in path.parts]


def pages():
    """The documents."""
    return sorted(ROOT.glob("*.md")) + files(ROOT / "docs", "*.md")


class Tree(unittest.TestCase):
    def test_no_source_is_longer_than_500_lines(self):
        for path in written():
            lines = len(path.read_text("utf-8").splitlines())
            self.assertLessEqual(lines, 500, shown(path))

    def test_nothing_is_marked_as_unfinished(self):
        for path in written() + pages():
            found = UNFINISHED.search(path.read_text("utf-8"))
            self.assertIsNone(found, f"{shown(path)}: {found and found[0]}")

    def test_every_link_in_a_document_has_a_target(self):
        for page in pages():
            for target in LINK.findall(page.read_text("utf-8")):
                if "://" not in target:
                    self.assertTrue((page.parent / target).exists(), f"{shown(page)}: {target}")

    def test_every_path_in_a_document_is_there(self):
        tops = {entry.name for base in BASES for entry in base.iterdir() if entry.is_dir()} - {"build"}
        checked = 0
        for page in pages():
            for path in PATH.findall(page.read_text("utf-8")):
                if path.split("/")[0] in tops:
                    checked += 1
                    found = any(list(base.glob(path.rstrip("/") + end))
                                for base in BASES for end in ("", ".h"))
                    self.assertTrue(found, f"{shown(page)}: {path}")
        self.assertGreater(checked, 50)

    def test_scripts_at_the_root_are_executable(self):
        for name in ("run.sh", "test.sh", ".ci/run"):
            self.assertTrue(os.access(ROOT / name, os.X_OK), name)


if __name__ == "__main__":
    unittest.main()

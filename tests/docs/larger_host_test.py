"""The page for hosts is right about the larger example: which of its files need only installed headers."""

import pathlib
import re
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
HOST = ROOT / "apps/modulinfo-panel"
ROW = re.compile(r"^\|[^|]*\| (`[^|]*`) \| ([^|]*) \|$", re.M)


def rows():
    """Each row of the table: the files that it names, and what they need."""
    page = (ROOT / "docs/hosts.md").read_text("utf-8")
    section = page.split("\n## A larger host\n")[1].split("\n## ")[0]
    for names, needs in ROW.findall(section):
        yield [pattern for pattern in re.findall(r"`([^`]+)`", names)], needs


def includes(file):
    return set(re.findall(r'^#include "([^"]+)"', file.read_text("utf-8"), re.M))


class LargerHost(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.rows = list(rows())
        installed = (ROOT / "src/host/CMakeLists.txt").read_text("utf-8")
        cls.installed = set(re.findall(r'"\$\{src\}/([^"]+\.h)"', installed))
        cls.free = {file.relative_to(HOST).as_posix() for patterns, needs in cls.rows
                    if needs == "nothing" for pattern in patterns for file in HOST.glob(pattern)}

    def test_every_file_that_it_names_exists(self):
        self.assertGreater(len(self.rows), 5)
        for patterns, _ in self.rows:
            for pattern in patterns:
                self.assertTrue(list(HOST.glob(pattern)), pattern)

    def test_files_that_need_nothing_include_installed_headers_and_each_other(self):
        self.assertGreater(len(self.free), 10)
        for name in self.free:
            self.assertEqual(includes(HOST / name) - self.installed - self.free, set(), name)

    def test_files_that_need_more_include_more(self):
        for patterns, needs in self.rows:
            if needs != "nothing":
                used = set().union(*(includes(file) for pattern in patterns
                                     for file in HOST.glob(pattern)))
                self.assertNotEqual(used - self.installed - self.free, set(), patterns)


if __name__ == "__main__":
    unittest.main()

"""clang-tidy checks the sources that have changed, and no others."""

import json
import pathlib
import subprocess
import sys
import tempfile
import unittest

from house import ROOT

CLEAN = '#include "number.h"\nint* number() { return nullptr; }\n'
UNTIDY = '#include "number.h"\nint* number() { return 0; }\n'


class Tidy(unittest.TestCase):
    def setUp(self):
        # pylint: disable-next=consider-using-with
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name).resolve()
        (self.root / "src").mkdir()
        (self.root / "build").mkdir()
        self.write(".clang-tidy", "Checks: '-*,modernize-use-nullptr'\nWarningsAsErrors: '*'\n")
        (self.root / "shared files").mkdir()
        self.write("shared files/number.h", "int* number();\n")
        self.write("src/number.cpp", CLEAN)
        self.compile_with(f"c++ '-I{self.root}/shared files' -c src/number.cpp")

    def write(self, name, text):
        (self.root / name).write_text(text, "utf-8")

    def compile_with(self, command):
        entry = {"directory": str(self.root), "file": str(self.root / "src/number.cpp"),
                 "command": command}
        self.write("build/compile_commands.json", json.dumps([entry]))

    def tidy(self):
        """The exit code and first line of a run."""
        run = subprocess.run([sys.executable, ROOT / "scripts/tidy.py", "build", "src/number.cpp"],
                             cwd=self.root, capture_output=True, text=True, check=False)
        return run.returncode, run.stdout.splitlines()[0]

    def test_a_clean_source_is_checked_once(self):
        self.assertEqual(self.tidy(), (0, "1 sources, 1 to check"))
        self.assertEqual(self.tidy(), (0, "1 sources, 0 to check"))

    def test_a_finding_fails_until_it_is_fixed(self):
        self.write("src/number.cpp", UNTIDY)
        self.assertEqual(self.tidy(), (1, "1 sources, 1 to check"))
        self.assertEqual(self.tidy(), (1, "1 sources, 1 to check"))
        self.write("src/number.cpp", CLEAN)
        self.assertEqual(self.tidy(), (0, "1 sources, 1 to check"))

    def test_sources_are_checked_again_after_a_change_of_a_header(self):
        self.tidy()
        self.write("shared files/number.h", "int* number();\nint other();\n")
        self.assertEqual(self.tidy(), (0, "1 sources, 1 to check"))

    def test_a_source_is_checked_again_after_a_change_of_its_compile_command(self):
        self.tidy()
        self.compile_with(f"c++ -O1 '-I{self.root}/shared files' -c src/number.cpp")
        self.assertEqual(self.tidy(), (0, "1 sources, 1 to check"))


if __name__ == "__main__":
    unittest.main()

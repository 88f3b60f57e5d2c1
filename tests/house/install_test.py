"""What was installed works where it lies."""

import json
import os
import pathlib
import subprocess
import tempfile
import unittest

from house import ROOT

MODULE = ROOT / "data/modules/tessara-um-161.json"


class Install(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        # pylint: disable-next=consider-using-with
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.prefix = pathlib.Path(folder.name, "prefix")
        cls.environment = os.environ | {"HOME": folder.name, "XDG_CONFIG_HOME": folder.name,
                                        "XDG_RUNTIME_DIR": folder.name}
        subprocess.run(["cmake", "--install", os.environ["HOUSE_BUILD"], "--prefix", cls.prefix],
                       check=True, stdout=subprocess.DEVNULL)

    def run_program(self, name, *arguments):
        return subprocess.run([self.prefix / "bin" / name, *arguments], env=self.environment,
                              capture_output=True, check=True).stdout

    def test_the_command_line_finds_catalogue_and_languages(self):
        panel = json.loads(self.run_program("modulinfo", "read", "--simulate", MODULE,
                                            "--language", "2", "--json"))
        self.assertEqual(panel["links"]["product"], "https://example.invalid/tessara/um-161")
        self.assertIn("No error", panel["moduleStatus"])

    def test_the_panel_draws_itself(self):
        picture = self.prefix / "panel.png"
        self.run_program("modulinfo-panel", "--simulate", MODULE, "--screenshot", picture)
        self.assertTrue(picture.read_bytes().startswith(b"\x89PNG"))

    def test_the_shared_library_lies_beside_its_data(self):
        library = next(self.prefix.rglob("libTESSARAModulInfo.so"))
        self.assertTrue((library.parent / "TessaraDevices.xml").is_file())
        self.assertEqual(len(list(library.parent.glob("MERIDEX_CONF.?lg"))), 11)


if __name__ == "__main__":
    unittest.main()

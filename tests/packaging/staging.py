"""Installs this build into a temporary folder, with a home folder of its own."""

import os
import pathlib
import subprocess
import tempfile
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
BUILD = pathlib.Path(os.environ["PACKAGING_BUILD"])
COMPILER = os.environ["PACKAGING_COMPILER"]
FLAGS = os.environ["PACKAGING_FLAGS"]

# Messages in English; where it is set, LANGUAGE counts more than the locale.
ENGLISH = {"LC_ALL": "C.UTF-8", "LANGUAGE": ""}

# A generous deadline: the machine may be busy with other tests.
PATIENCE = 300


def run(*command, **options):
    """Runs a command and returns its output; if it fails, its messages are part of the failure."""
    options = {"env": os.environ | ENGLISH} | options
    done = subprocess.run([str(word) for word in command], capture_output=True, text=True,
                          check=False, **options)
    if done.returncode != 0:
        raise AssertionError(f"{command} ended with {done.returncode}:\n{done.stdout}{done.stderr}")
    return done.stdout


class Staged(unittest.TestCase):
    """Everything is installed below `prefix`; programs are run in an empty folder."""

    @classmethod
    def setUpClass(cls):
        # pylint: disable-next=consider-using-with
        folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(folder.cleanup)
        cls.folder = pathlib.Path(folder.name).resolve()
        cls.prefix = cls.folder / "prefix"
        cls.home = cls.folder / "home"
        cls.home.mkdir(mode=0o700)
        cls.environment = os.environ | ENGLISH | {
            "HOME": str(cls.home), "XDG_CONFIG_HOME": str(cls.home),
            "XDG_CONFIG_DIRS": str(cls.home), "XDG_RUNTIME_DIR": str(cls.home),
            "QT_QPA_PLATFORM": "offscreen"}
        run("cmake", "--install", BUILD, "--prefix", cls.prefix)
        cls.data = cls.prefix / "share/tessara-modulinfo"
        cls.module = cls.data / "modules/tessara-um-161.json"
        # The folder of the libraries, and the file of the library itself.
        link = next(cls.prefix.glob("lib*/**/libTESSARAModulInfo.so"))
        cls.libraries, cls.library = link.parent, link.resolve()

        cls.in_path = cls.environment | {"PATH": f"{cls.prefix / 'bin'}:{os.environ['PATH']}"}

    @classmethod
    def run_program(cls, name, *arguments):
        """Runs an installed program found through PATH."""
        return run("env", name, *arguments, env=cls.in_path, cwd=cls.home)

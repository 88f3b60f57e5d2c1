"""A test bench for the real programs: a separate user, modules, ports and peers."""

import contextlib
import ctypes
import json
import os
import pathlib
import pty
import shutil
import subprocess
import tempfile
import time
import tty
import unittest

BIN = pathlib.Path(os.environ["SYSTEM_BIN"])
HERE = pathlib.Path(__file__).resolve().parent

# The sample modules that come with the programs.
SAMPLES = HERE.parents[1] / "data" / "modules"

# A generous deadline: the machine may be busy with other tests.
PATIENCE = 300

# Why root passes the modes of files: the capabilities CAP_DAC_OVERRIDE and CAP_DAC_READ_SEARCH
# (linux/capability.h), and the call that drops them (linux/prctl.h).
CAPABILITIES_OVER_MODES = (1, 2)
PR_CAPBSET_DROP = 24

LIBC = ctypes.CDLL(None, use_errno=True)

CATALOGUE = "TessaraDevices.xml"

# A temperature transmitter that the catalogue knows with this firmware, without a fault.
HEALTHY = {
    "vendorId": 49,
    "groupId": 1,
    "familyId": 15,
    "deviceId": 151,
    "firmware": "1.100",
    "secondVersion": "1.000",
    "serialNumber": "4711",
    "name": "TESSARA TM 151",
    "status": {"80": 0, "81": "0x80", "82": 0, "83": "0x80", "84": 0},
}


def wait_for(condition, what):
    """Waits until the condition returns something true, and returns that."""
    deadline = time.monotonic() + PATIENCE
    while time.monotonic() < deadline:
        result = condition()
        if result:
            return result
        time.sleep(0.01)
    raise AssertionError(f"no sign of {what}")


def give_up_passing_modes():
    """Makes the program that this process becomes start without root's rights over file modes."""
    for capability in CAPABILITIES_OVER_MODES:
        if LIBC.prctl(PR_CAPBSET_DROP, capability, 0, 0, 0) != 0:
            raise OSError(ctypes.get_errno(), "root's rights cannot be dropped")


class Bench(unittest.TestCase):
    """Runs each test with separate configuration and runtime folders."""

    maxDiff = None

    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="tessara-"))
        self.addCleanup(shutil.rmtree, self.folder)
        kept = [name for name in ("FONTCONFIG_FILE", "PATH") if name in os.environ]
        self.environment = {name: os.environ[name] for name in kept} | {
            "HOME": str(self.folder),
            "LC_ALL": "C.UTF-8",
            "XDG_CONFIG_HOME": str(self.folder / "user"),
            "XDG_CONFIG_DIRS": str(self.folder / "system"),
            "XDG_RUNTIME_DIR": str(self.folder),
        }
        self.settings_file = self.folder / "user" / "Orvane" / "Tessara-Conf.ini"
        self.modulinfo = BIN / "modulinfo"
        self.simulators = []
        self.addCleanup(self.end_simulators)

    def run_modulinfo(self, *arguments, **options):
        """Runs the command line to its end; its output is text."""
        return subprocess.run(
            [self.modulinfo, *map(str, arguments)],
            env=self.environment, stdin=subprocess.DEVNULL, capture_output=True,
            encoding="utf-8", timeout=PATIENCE, check=False, **options)

    def succeed(self, *arguments):
        """Runs the command line, which must succeed without a complaint, and returns its output."""
        done = self.run_modulinfo(*arguments)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        return done.stdout

    def fail_with(self, code, *arguments, **options):
        """Runs the command line, which must end with that code and print nothing but a
        complaint, and returns the complaint."""
        done = self.run_modulinfo(*arguments, **options)
        self.assertEqual((done.returncode, done.stdout), (code, ""), done.stderr)
        return done.stderr

    def write_settings(self, text):
        self.settings_file.parent.mkdir(parents=True, exist_ok=True)
        self.settings_file.write_text(text, encoding="utf-8")

    def module(self, file="module.json", /, **changes):
        """The path of a module file: the healthy module with these changes."""
        path = self.folder / file
        path.write_text(json.dumps(HEALTHY | changes), encoding="utf-8")
        return path

    def private_installation(self):
        """A copy of the program in a separate folder, with the language files and without a
        catalogue; from then on that copy is run. Returns the folder."""
        place = self.folder / "installed"
        place.mkdir()
        shutil.copy2(self.modulinfo, place)
        for file in BIN.glob("MERIDEX_CONF.*"):
            shutil.copy2(file, place)
        self.modulinfo = place / "modulinfo"
        return place

    def simulator(self, *modules, options=()):
        """Starts a simulator with these module files and returns its ports, "COM100" to device."""
        process = subprocess.Popen(
            [self.modulinfo, "simulate", *options, *map(str, modules)],
            env=self.environment, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
            encoding="utf-8")
        self.simulators.append(process)
        self.announced = [process.stdout.readline() for _ in modules]
        return dict(line.split()[:2] for line in self.announced)

    def end_simulators(self):
        """Ends the simulators as a user does, and checks that they end regularly."""
        while self.simulators:
            process = self.simulators.pop()
            process.terminate()
            self.assertEqual(process.wait(PATIENCE), 0)
            process.stdout.close()

    @contextlib.contextmanager
    def silent_port(self):
        """A port without a module at its other end; yields its device node."""
        master, slave = pty.openpty()
        tty.setraw(master)
        try:
            yield os.ttyname(slave)
        finally:
            os.close(master)
            os.close(slave)

    def bound_by_modes(self):
        """Options that run a program as a user who is bound by the modes of files, like
        every user but root."""
        return {"preexec_fn": give_up_passing_modes} if os.geteuid() == 0 else {}

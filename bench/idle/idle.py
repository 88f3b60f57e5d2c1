#!/usr/bin/python3
"""Processor time of modulinfo-panel while it keeps the status of a healthy module current.

    bench/idle/idle.py [PROGRAMS [SECONDS]]

PROGRAMS is the folder of the programs, build/bench/bin by default; SECONDS the time to measure, 120
by default. Prints the share of one core and how often other programs could have opened the port.
Exits with 1 if the share is 0.2 % or more, or the port was held for longer than one pass.
"""

import os
import pathlib
import subprocess
import sys
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parents[2]
MODULE = ROOT / "data/modules/tessara-um-161.json"
BOUND = 0.002
# A healthy module is read within 0.3 s at 19200 bit/s.
MAX_PASS = 1.0
SETTLING = 6


def processor_seconds(pid):
    fields = pathlib.Path(f"/proc/{pid}/stat").read_text(encoding="ascii").rpartition(")")[2].split()
    user, system = int(fields[11]), int(fields[12])
    return (user + system) / os.sysconf("SC_CLK_TCK")


def is_free(device):
    """Returns whether another program could open the port now; does not hold it."""
    node = os.stat(device)
    place = f"{os.major(node.st_dev):02x}:{os.minor(node.st_dev):02x}:{node.st_ino}"
    return place not in pathlib.Path("/proc/locks").read_text(encoding="ascii").split()


def watch(device, seconds):
    """Checks the port every tenth of a second. Returns the number of checks, how many found it free,
    and the longest time that it was held."""
    looks = free = 0
    longest = 0.0
    held_since = None
    end = time.monotonic() + seconds
    while (now := time.monotonic()) < end:
        looks += 1
        if is_free(device):
            free += 1
            held_since = None
        else:
            held_since = held_since or now
            longest = max(longest, now - held_since)
        time.sleep(0.1)
    return looks, free, longest


def measure(programs, seconds, folder):
    environment = os.environ | {
        "XDG_RUNTIME_DIR": folder, "XDG_CONFIG_HOME": f"{folder}/user",
        "XDG_CONFIG_DIRS": f"{folder}/system", "QT_QPA_PLATFORM": "offscreen"}
    simulator = subprocess.Popen([programs / "modulinfo", "simulate", "--paced", MODULE],
                                 env=environment, stdout=subprocess.PIPE, text=True)
    panel = None
    try:
        device = next(word for word in simulator.stdout.readline().split() if "/dev/" in word)
        panel = subprocess.Popen([programs / "modulinfo-panel", "--port", "COM100", "--read"],
                                 env=environment)
        time.sleep(SETTLING)
        begun, worked = time.monotonic(), processor_seconds(panel.pid)
        looks, free, longest = watch(device, seconds)
        share = (processor_seconds(panel.pid) - worked) / (time.monotonic() - begun)
    finally:
        for process in (panel, simulator):
            if process:
                process.terminate()
                process.wait()
    print(f"processor time: {share:.4%} of one core (bound {BOUND:.1%})")
    print(f"port: free at {free} of {looks} checks, held for at most {longest:.1f} s")
    return share < BOUND and longest < MAX_PASS and free < looks


def main():
    programs = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else ROOT / "build/bench/bin")
    seconds = float(sys.argv[2]) if len(sys.argv) > 2 else 120
    with tempfile.TemporaryDirectory() as folder:
        return 0 if measure(programs.resolve(), seconds, folder) else 1


if __name__ == "__main__":
    sys.exit(main())

"""A module made of pymodbus, which shares no code with this project.

Usage: pymodbus_module.py PORT

Serves unit 192 at 19200 bit/s as the catalogue's TESSARA TM 151 with firmware 1.100 and a sensor
wire break. Prints "ready" once it listens.
"""

import pathlib
import struct
import sys

sys.path.append(str(pathlib.Path(__file__).resolve().parents[1] / "support"))

from pymodbus_slave import serve

IDENTIFICATION = (49, 1, 15, 151)
NAME = b"Peer".ljust(32)


def registers():
    """The input registers from 0 on."""
    words = [0] * 100
    words[3] = 0x1000
    words[4] = 0x1100
    words[5:9] = [0x5678, 0x1234, 0, 0]
    words[16:32] = struct.unpack(">16H", NAME)
    words[80:85] = [0, 1, 0, 0x80, 0]
    return words


serve(sys.argv[1], registers(), IDENTIFICATION)

"""A Modbus slave made of pymodbus, as a peer that shares no code with the driver.

Usage: PymodbusServer.py PORT

Serves unit 192 at 19200 bit/s: input register n holds n * 257 for n = 0 to 99. Function 17 gives
server id 01, run indicator FF and the words 42, 5, 16, 65534. Prints "ready" once it listens.
"""

import pathlib
import sys

sys.path.append(str(pathlib.Path(__file__).resolve().parents[1] / "support"))

from pymodbus_slave import serve

serve(sys.argv[1], [n * 257 for n in range(100)], (42, 5, 16, 65534))

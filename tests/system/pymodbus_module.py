"""A module made of pymodbus, which shares no code with this project.

Usage: pymodbus_module.py PORT

Serves unit 192 at 19200 bit/s as the catalogue's TESSARA TM 151 with firmware 1.100 and a sensor
wire break. Prints "ready" once it listens.
"""

import asyncio
import struct
import sys

from pymodbus.datastore import ModbusSequentialDataBlock, ModbusServerContext, ModbusSlaveContext
from pymodbus.server import StartAsyncSerialServer
from pymodbus.transaction import ModbusRtuFramer
from pymodbus.utilities import computeCRC

UNIT = 192
REPORT_SERVER_ID = 17
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


def answer(response):
    """Replaces the answer to function 17, behind whose data pymodbus would put a status byte."""
    if response.function_code != REPORT_SERVER_ID:
        return response, False
    data = b"\x01\xff" + struct.pack(">4H", *IDENTIFICATION)
    frame = struct.pack(">BBB", UNIT, REPORT_SERVER_ID, len(data)) + data
    return frame + struct.pack(">H", computeCRC(frame)), True


async def serve(port):
    slave = ModbusSlaveContext(ir=ModbusSequentialDataBlock(0, registers()), zero_mode=True)
    server = await StartAsyncSerialServer(
        ModbusServerContext(slaves={UNIT: slave}, single=False),
        framer=ModbusRtuFramer, port=port, baudrate=19200, parity="N", timeout=0.005,
        response_manipulator=answer, defer_start=True)
    await server.start()
    print("ready", flush=True)
    await server.serve_forever()


if __name__ == "__main__":
    asyncio.run(serve(sys.argv[1]))

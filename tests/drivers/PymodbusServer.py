"""A Modbus slave made of pymodbus, as a peer that shares no code with the driver.

Usage: PymodbusServer.py PORT

Serves unit 192 at 19200 bit/s: input register n holds n * 257 for n = 0 to 99. Function 17 gives
server id 01, run indicator FF and the words 42, 5, 16, 65534. Prints "ready" once it listens.
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


def answer(response):
    """Replaces the answer to function 17, behind whose data pymodbus would put a status byte."""
    if response.function_code != REPORT_SERVER_ID:
        return response, False
    data = b"\x01\xff" + struct.pack(">4H", 42, 5, 16, 65534)
    frame = struct.pack(">BBB", UNIT, REPORT_SERVER_ID, len(data)) + data
    return frame + struct.pack(">H", computeCRC(frame)), True


async def serve(port):
    registers = ModbusSequentialDataBlock(0, [n * 257 for n in range(100)])
    slave = ModbusSlaveContext(ir=registers, zero_mode=True)
    server = await StartAsyncSerialServer(
        ModbusServerContext(slaves={UNIT: slave}, single=False),
        framer=ModbusRtuFramer,
        port=port,
        baudrate=19200,
        parity="N",
        timeout=0.005,
        response_manipulator=answer,
        defer_start=True,
    )
    await server.start()
    print("ready", flush=True)
    await server.serve_forever()


asyncio.run(serve(sys.argv[1]))

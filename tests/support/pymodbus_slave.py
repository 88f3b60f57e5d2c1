"""A Modbus slave made of pymodbus, as a peer that shares no code with this project."""

import asyncio
import struct

from pymodbus.datastore import ModbusSequentialDataBlock, ModbusServerContext, ModbusSlaveContext
from pymodbus.server import StartAsyncSerialServer
from pymodbus.transaction import ModbusRtuFramer
from pymodbus.utilities import computeCRC

UNIT = 192
REPORT_SERVER_ID = 17


def serve(port, registers, identification):
    """Serves unit 192 at 19200 bit/s until the process is ended: the input registers from 0 on, and
    to function 17 server id 01, run indicator FF and the identification words. Prints "ready" once
    it listens."""
    asyncio.run(_serve(port, registers, identification))


async def _serve(port, registers, identification):
    def answer(response):
        """Replaces the answer to function 17, behind whose data pymodbus would put a status byte."""
        if response.function_code != REPORT_SERVER_ID:
            return response, False
        data = b"\x01\xff" + struct.pack(">4H", *identification)
        frame = struct.pack(">BBB", UNIT, REPORT_SERVER_ID, len(data)) + data
        return frame + struct.pack(">H", computeCRC(frame)), True

    slave = ModbusSlaveContext(ir=ModbusSequentialDataBlock(0, registers), zero_mode=True)
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

"""A HART module that shares no code with the driver, on a pseudo-terminal.

Usage: hart_module.py

Prints the name of its port, then answers until its standard input ends. Polling address 3,
manufacturer B0, device type E2, id 0A0B0C; command 20 gives "PEER", 48 nine bytes, 512 one byte.
Each answer has 7 preambles, with a junk byte on either side. Every third request to the
long address goes unanswered.
"""

import functools
import operator
import os
import pty
import select
import sys
import tty

UNIQUE = bytes.fromhex("30e20a0b0c")  # without the bits of master and burst
POLLING = 3
IDENTITY = bytes.fromhex("feb0e206070203080a0a0b0c05040102000060000060")
ANSWERS = {20: b"PEER", 48: bytes([1, 2, 0, 0, 0, 0, 2, 0, 0]), 512: b"\x55"}


def checksum(data):
    return functools.reduce(operator.xor, data, 0)


def split(buffer):
    """The first whole request in the buffer and the bytes after it, or None."""
    start = 0
    while start < len(buffer) and buffer[start] == 0xFF:
        start += 1
    if start < 2:
        return None
    address_length = 5 if buffer[start:start + 1] == b"\x82" else 1
    count_at = start + 1 + address_length + 1
    if len(buffer) <= count_at:
        return None
    end = count_at + 1 + buffer[count_at] + 1
    if len(buffer) < end:
        return None
    return start, buffer[start:end], buffer[end:]


def answer(frame, status, data):
    """The answer to a request frame: delimiter 06 or 86 and the same address and command."""
    length = 5 if frame[0] & 0x80 else 1
    head = bytes([frame[0] & 0x80 | 0x06]) + frame[1:1 + length + 1]
    body = head + bytes([len(data) + 2, status, 0x40]) + data
    return b"\x00" + b"\xff" * 7 + body + bytes([checksum(body)]) + b"\x00"


def respond(frame):
    """The answer to a request, or nothing if it is for another module."""
    if checksum(frame) != 0:
        return b""
    if frame[0] == 0x02:
        is_mine = frame[1] & 0x3F == POLLING and frame[2] == 0
        return answer(frame, 0, IDENTITY) if is_mine else b""
    if bytes([frame[1] & 0x3F]) + frame[2:6] != UNIQUE:
        return b""
    number, data = frame[6], frame[8:-1]
    prefix = b""
    if number == 31:
        number, prefix = int.from_bytes(data[:2], "big"), data[:2]
    if number in ANSWERS:
        return answer(frame, 0, prefix + ANSWERS[number])
    return answer(frame, 64, prefix)


def main():
    line, port = pty.openpty()
    tty.setraw(port)
    print(os.ttyname(port), flush=True)
    buffer, asked = b"", 0
    while True:
        ready, _, _ = select.select([line, sys.stdin], [], [])
        if sys.stdin in ready:
            return
        buffer += os.read(line, 512)
        found = split(buffer)
        if found is None:
            continue
        preambles, frame, buffer = found
        if frame[0] == 0x02 and preambles != 20 or frame[0] == 0x82 and preambles != 6:
            continue
        if frame[0] == 0x82:
            asked += 1
            if asked % 3 == 0:
                continue
        os.write(line, respond(frame))


main()

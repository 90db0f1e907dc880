#!/usr/bin/python3
"""Stands between the program and its speech engine, and writes down the texts that are handed on.

The messages are those of src/linux/engine/EngineMessages.h: a word, the length of the content, and that.
"""
import json
import os
import socket
import struct
import subprocess
import sys
import threading

HEADER = struct.Struct("=cI")
SAY = b"S"


def carry(source, target, see=lambda data: None):
    """Hands on what comes until one end is closed."""
    try:
        while data := source.recv(1 << 16):
            see(data)
            target.sendall(data)
    except ConnectionError:
        pass


class Transcript:
    """One text a line, each in quotes."""

    def __init__(self, file):
        self.file = file
        self.arrived = b""

    def see(self, data):
        self.arrived += data
        while len(self.arrived) >= HEADER.size:
            word, length = HEADER.unpack_from(self.arrived)
            end = HEADER.size + length
            if len(self.arrived) < end:
                return
            content, self.arrived = self.arrived[HEADER.size:end], self.arrived[end:]
            if word == SAY:
                self.file.write(json.dumps(content.decode("utf-8")) + "\n")
                self.file.flush()


def main(engine, transcript):
    program = socket.socket(fileno=sys.stdin.fileno())
    mine, its = socket.socketpair()
    with subprocess.Popen([engine], stdin=its) as process, \
            open(transcript, "a", encoding="utf-8") as file:
        its.close()

        def answer():
            carry(mine, program)
            # Whoever waits for the engine is to see that it has gone.
            os._exit(process.wait())

        threading.Thread(target=answer, daemon=True).start()
        carry(program, mine, Transcript(file).see)
        mine.shutdown(socket.SHUT_RDWR)


if __name__ == "__main__":
    main(*sys.argv[1:])

#!/usr/bin/python3
"""A web server that answers one request in the way that its argument names.

usage: web_server.py MANNER

It listens on a free port of the loopback interface, prints the port's number, and ends when its
standard input does. What it prints afterwards tells what it saw.
"""
import functools
import http.server
import os
import pathlib
import socket
import struct
import sys
import tempfile
import threading
import time

HEADERS = b"HTTP/1.1 200 OK\r\nContent-Type: text/plain\r\n\r\n"


def tell(text):
    print(text, flush=True)


def slow(connection, _request):
    for piece in (HEADERS[:20], HEADERS[20:], b"3.1.0", b".201\r\n"):
        time.sleep(0.1)
        connection.sendall(piece)


def cut_in_body(connection, _request):
    connection.sendall(b"HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\n3.1.0")


def cut_in_headers(connection, _request):
    connection.sendall(b"HTTP/1.1 200 OK\r\nContent-Le")


def reset(connection, _request):
    connection.sendall(HEADERS + b"3.1.0")
    time.sleep(0.1)
    connection.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))


def endless(connection, _request):
    connection.sendall(HEADERS)
    try:
        while True:
            connection.sendall(b"9" * 1000)
    except OSError:
        tell("hung up on")


def silent(connection, _request):
    connection.recv(1)
    tell("hung up on")


def echo(connection, request):
    connection.sendall(HEADERS + request)


MANNERS = {function.__name__.replace("_", "-"): function
           for function in (slow, cut_in_body, cut_in_headers, reset, endless, silent, echo)}


def serve_raw(manner):
    listener = socket.create_server(("127.0.0.1", 0))
    tell(listener.getsockname()[1])
    connection, _ = listener.accept()
    request = b""
    while not request.endswith(b"\r\n\r\n"):
        received = connection.recv(4096)
        if not received:
            tell("hung up on")
            return
        request += received
    manner(connection, request)
    connection.close()


class QuietHandler(http.server.SimpleHTTPRequestHandler):
    def log_message(self, *_):
        pass


def serve_folder(version):
    """The real thing: a folder with the file, or without it."""
    folder = pathlib.Path(tempfile.mkdtemp())
    (folder / "download").mkdir()
    if version:
        (folder / "download" / "version.txt").write_bytes(version)
    handler = functools.partial(QuietHandler, directory=folder)
    server = http.server.HTTPServer(("127.0.0.1", 0), handler)
    tell(server.server_port)
    server.handle_request()


def main():
    name = sys.argv[1]
    if name == "file":
        work = functools.partial(serve_folder, b"3.1.0.201\r\n")
    elif name == "no-file":
        work = functools.partial(serve_folder, None)
    else:
        work = functools.partial(serve_raw, MANNERS[name])
    threading.Thread(target=work, daemon=True).start()
    sys.stdin.read()
    os._exit(0)


if __name__ == "__main__":
    main()

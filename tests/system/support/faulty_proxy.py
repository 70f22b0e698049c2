"""A relay in front of a stream server, where connections go wrong."""

import random
import select
import socket
import struct
import threading
import time

RTSP = "rtsp"
SLICE = 0.05  # Seconds in which a connection notices what has become of it.
ABRUPT = struct.pack("ii", 1, 0)  # Closes without a farewell.


class ThreadedServer:
    """Serves each connection on a thread of its own, on a free port of this machine."""

    def __enter__(self):
        self._over = threading.Event()
        self._listen(0)
        self.port = self._listener.getsockname()[1]
        return self

    def __exit__(self, *_):
        self._over.set()
        self._listener.shutdown(socket.SHUT_RDWR)
        self._listener.close()

    def _listen(self, port):
        self._listener = socket.create_server(("127.0.0.1", port))
        threading.Thread(target=self._accept, daemon=True).start()

    def _accept(self):
        while not self._over.is_set():
            try:
                connection, _ = self._listener.accept()
            except OSError:
                return
            threading.Thread(target=self._run, args=(connection,), daemon=True).start()

    def _run(self, connection):
        with connection:
            try:
                self.serve(connection)
            except OSError:
                pass

    def serve(self, connection):
        raise NotImplementedError


def read_request(connection):
    """The head of an HTTP or RTSP request without a body; empty at the end."""
    data = b""
    while b"\r\n\r\n" not in data:
        piece = connection.recv(65536)
        if not piece:
            return ""
        data += piece
    return data.partition(b"\r\n\r\n")[0].decode("latin-1")


class FaultyProxy(ThreadedServer):
    """Passes all on to the port that target() tells, but for its faults.

    These last until mend(): `silent` passes nothing on, and `answer` is all that a request gets. `noise`, so many bytes at
    random, comes once, in the midst of what the server sends. `allowances` are for the next connections: after how many
    bytes each ends, or that it is redirected to where it is, for None.
    """

    def __init__(self, scheme, path, target):
        self.scheme, self._path, self._target, self._generation = scheme, path, target, 0
        self._abrupt, self._closed = False, False
        self.silent, self.noise, self.answer, self.allowances = False, 0, None, []

    @property
    def address(self):
        return f"{self.scheme}://127.0.0.1:{self.port}{self._path}"

    def cut(self, abrupt=False, **fault):
        """Ends all connections, and begins a fault."""
        vars(self).update(fault)
        self._abrupt = abrupt
        self._generation += 1

    def close(self):
        """Refuses connections."""
        self._closed = True
        self._listener.shutdown(socket.SHUT_RDWR)
        self._listener.close()
        self.cut()

    def mend(self):
        self.silent = False
        if self.answer is not None:
            self.cut(answer=None)
        if self._closed:
            self._closed = False
            self._listen(self.port)

    def serve(self, connection):
        allowance = self.allowances.pop(0) if self.allowances else 1 << 60
        if self.answer is not None:
            connection.sendall(self.answer if connection.recv(65536) else b"")
        elif allowance is None:
            self._redirect(connection)
        else:
            with socket.create_connection(("127.0.0.1", self._target()), 10) as server:
                self._relay(connection, server, allowance)
            if self._abrupt:
                connection.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, ABRUPT)

    def _redirect(self, connection):
        protocol, method = ("RTSP/1.0", "DESCRIBE") if self.scheme == RTSP else ("HTTP/1.1", "GET")
        leads_away = False
        while not leads_away and (text := read_request(connection)):
            leads_away = text.startswith(method)
            number = next((line for line in text.splitlines() if line.startswith("CSeq")), "CSeq: 0")
            answer = f"302 Found\r\nLocation: {self.address}" if leads_away else "200 OK\r\nPublic: DESCRIBE, SETUP, PLAY"
            connection.sendall(f"{protocol} {answer}\r\n{number}\r\nContent-Length: 0\r\n\r\n".encode())

    def _relay(self, client, server, allowance):
        generation = self._generation
        while self._generation == generation and allowance > 0 and not self._over.is_set():
            if self.silent:
                time.sleep(SLICE)
                continue
            for source in select.select([client, server], [], [], SLICE)[0]:
                data = source.recv(65536)
                if not data:
                    return
                if source is client:
                    server.sendall(data)
                    continue
                noise, self.noise = self.noise, 0
                client.sendall(random.randbytes(noise) + data[:allowance])
                allowance -= len(data)

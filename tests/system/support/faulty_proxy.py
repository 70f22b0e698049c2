"""A relay in front of a stream server, where connections go wrong."""

import random
import select
import socket
import struct
import time

from .answering import ThreadedServer, leads_away, read_request, redirection

RTSP = "rtsp"
SLICE = 0.05  # Seconds in which a connection notices what has become of it.
ABRUPT = struct.pack("ii", 1, 0)  # Closes without a farewell.


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
        self._stop_listening()
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
        while request := read_request(connection):
            connection.sendall(redirection(request, self.address))
            if leads_away(request):
                return

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

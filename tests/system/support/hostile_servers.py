"""Stream servers that do what no server should, each on a free port of this machine."""

import pathlib
import socket
import struct
import threading
import time

from .answering import ThreadedServer, answer, read_request, redirection

RTSP = "rtsp"


class Film:
    """The header of an ASF file, that of its Data object included, and its packets."""

    def __init__(self, path):
        data = pathlib.Path(path).read_bytes()
        size = struct.unpack_from("<Q", data, 16)[0] + 50
        properties = data.index(bytes.fromhex("a1dcab8c47a9cf118ee400c00c205365"))
        self.packet_size = struct.unpack_from("<I", data, properties + 92)[0]
        self.bitrate = struct.unpack_from("<I", data, properties + 100)[0]
        header = bytearray(data[:size])
        header[properties + 88] = 1  # Broadcast: what comes has no end.
        self.header = bytes(header)
        count = (len(data) - size) // self.packet_size
        self.packets = [data[size + i * self.packet_size:size + (i + 1) * self.packet_size] for i in range(count)]


class HostileServer(ThreadedServer):
    """`requests` counts what was asked for, `sent` the bytes of send(), and `heard` has what was said at the end."""

    scheme = "mms"

    def __init__(self):
        self.requests = 0
        self.sent = 0
        self.heard = []

    @property
    def address(self):
        return f"{self.scheme}://127.0.0.1:{self.port}/live"

    def send(self, connection, data):
        connection.sendall(data)
        self.sent += len(data)


def chunk(kind, payload):
    return struct.pack("<2sH", b"$" + kind, len(payload) + 8) + bytes(8) + payload


class MmsOverHttp(HostileServer):
    """MMS over HTTP: the describe is answered as it should be; play() sends what it likes."""

    def __init__(self, film):
        super().__init__()
        self.film = film

    def serve(self, connection):
        while text := read_request(connection):
            self.requests += 1
            kind = "x-mms-framed" if "xPlayStrm=1" in text else "vnd.ms.wms-hdr.asfv1"
            head = f"HTTP/1.1 200 OK\r\nContent-Type: application/{kind}\r\nPragma: client-id=7,features=\"broadcast\"\r\n"
            if text.startswith("POST"):
                self.heard.append("stop" if "xStopStrm=1" in text else "log" if "LogStats" in text else "other")
                connection.sendall(answer(text, "200 OK"))
            elif "xPlayStrm=1" in text:
                connection.sendall(head.encode() + b"\r\n" + self.header_chunks())
                self.play(connection)
                return
            else:
                body = self.header_chunks()
                connection.sendall(f"{head}Content-Length: {len(body)}\r\n\r\n".encode() + body)

    def header_chunks(self):
        return chunk(b"H", self.film.header)

    def send_packets(self, connection, packets_per_second=None):
        """All packets, over and over, by their time."""
        began, count = time.monotonic(), 0
        while not self._over.is_set():
            for packet in self.film.packets:
                self.send(connection, chunk(b"D", packet))
                count += 1
                if packets_per_second:
                    time.sleep(max(0, began + count / packets_per_second - time.monotonic()))

    def play(self, connection):
        raise NotImplementedError


class ClosesAfterPackets(MmsOverHttp):
    """Closes each play after so many packets."""

    def __init__(self, film, packets):
        super().__init__(film)
        self._packets = packets

    def play(self, connection):
        for packet in self.film.packets[:self._packets]:
            self.send(connection, chunk(b"D", packet))


class FasterThanRealTime(MmsOverHttp):
    """Sends as fast as the player takes it, or at so many times the rate of the film."""

    def __init__(self, film, speed=None):
        super().__init__(film)
        self._rate = speed and speed * film.bitrate / 8 / film.packet_size

    def play(self, connection):
        self.send_packets(connection, self._rate)


class ChunkFlood(MmsOverHttp):
    """Sends a flood of chunks that hold nothing."""

    def play(self, connection):
        flood = chunk(b"D", b"") * 8192
        while not self._over.is_set():
            self.send(connection, flood)


class RedirectsToItself(HostileServer):
    """RTSP or HTTP, by the scheme: each request is sent to where it is."""

    def __init__(self, scheme):
        super().__init__()
        self.scheme = scheme

    def serve(self, connection):
        while text := read_request(connection):
            self.requests += 1
            connection.sendall(redirection(text, self.address))


class PingFlood(HostileServer):
    """MMS over TCP that is not served by HTTP: says nothing but pings, once the player is connected."""

    def serve(self, connection):
        if b"GET " in connection.recv(65536):
            return
        self.requests += 1
        # Header, chunk length, type, body.
        ping = struct.pack("<IIIIIHHQIIII", 1, 0xB00BFACE, 32, 0x20534D4D, 4, 0, 0, 0, 2, 0x4001B, 0, 0) * 1024
        while not self._over.is_set():
            self.send(connection, ping)


class SilentOverHttp(HostileServer):
    """Hears requests of HTTP and says nothing; anything else goes to another port, and back."""

    def __init__(self, port):
        super().__init__()
        self._target = port

    def serve(self, connection):
        first = connection.recv(65536, socket.MSG_PEEK)
        if first.startswith(b"GET "):
            self.requests += 1
            self._over.wait()
            return
        with socket.create_connection(("127.0.0.1", self._target)) as target:
            threading.Thread(target=self._copy, args=(connection, target), daemon=True).start()
            self._copy(target, connection)

    @staticmethod
    def _copy(source, sink):
        try:
            while data := source.recv(65536):
                sink.sendall(data)
        except OSError:
            pass
        sink.close()

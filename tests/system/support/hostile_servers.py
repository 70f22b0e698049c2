"""Stream servers that do what no server should, each on a free port of this machine."""

import pathlib
import socket
import struct
import threading
import time

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


class HostileServer:
    """Serves each connection on a thread of its own. `requests` counts what was asked for."""

    scheme = "mms"

    def __init__(self):
        self.requests = 0
        self.sent = 0
        self.heard = []

    @property
    def address(self):
        return f"{self.scheme}://127.0.0.1:{self.port}/live"

    def __enter__(self):
        self._over = threading.Event()
        self._listener = socket.create_server(("127.0.0.1", 0))
        self.port = self._listener.getsockname()[1]
        threading.Thread(target=self._accept, daemon=True).start()
        return self

    def __exit__(self, *_):
        self._over.set()
        self._listener.shutdown(socket.SHUT_RDWR)
        self._listener.close()

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

    def send(self, connection, data):
        connection.sendall(data)
        self.sent += len(data)


def read_request(connection):
    """The head of an HTTP or RTSP request, its body read away; empty at the end."""
    data = b""
    while b"\r\n\r\n" not in data:
        piece = connection.recv(65536)
        if not piece:
            return ""
        data += piece
    head, _, body = data.partition(b"\r\n\r\n")
    text = head.decode("latin-1")
    length = next((int(line.split(":")[1]) for line in text.splitlines() if line.lower().startswith("content-length:")), 0)
    while len(body) < length:
        body += connection.recv(65536)
    return text


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
                connection.sendall(b"HTTP/1.1 200 OK\r\nContent-Length: 0\r\n\r\n")
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
            connection.sendall(self.answer_to(text))

    def leads_away(self, text):
        return text.startswith("DESCRIBE" if self.scheme == RTSP else "GET")

    def answer_to(self, text):
        number = next((line for line in text.splitlines() if line.startswith("CSeq")), "CSeq: 0")
        protocol = "RTSP/1.0" if self.scheme == RTSP else "HTTP/1.1"
        answer = f"302 Found\r\nLocation: {self.address}" if self.leads_away(text) else "200 OK\r\nPublic: DESCRIBE, SETUP, PLAY"
        return f"{protocol} {answer}\r\n{number}\r\nContent-Length: 0\r\n\r\n".encode()


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

"""Live streams whose films tell by a colour which they are, their servers, and what goes wrong with them."""

import contextlib
import os
import pathlib
import signal
import subprocess
import tempfile

from . import clips, wait_for
from .answering import ThreadedServer, answer, read_request
from .faulty_proxy import RTSP, FaultyProxy
from .foreign_servers import TCP, UDP, GStreamerServer
from .localservices import LocalServices

COLOURS = (200, 0, 0), (0, 140, 0), (0, 0, 200)  # Of the lower half of each film.
FORMATS = (320, 180, "1M"), (640, 360, "2M"), (480, 270, "1500k")
ASF = "wmv2", "wmv2", "msmpeg4"
OTHERS = "libx264", "libx264", "libx265"
PAYLOADERS = "h264parse ! rtph264pay", "h264parse ! rtph264pay", "h265parse ! rtph265pay"


def film(index, codecs):
    width, height, rate = FORMATS[index]
    return clips.coloured("%02x%02x%02x" % COLOURS[index], width, height, codecs[index], rate)


def feed(index, *output):
    """Sends a film by its time, for ever."""
    return subprocess.Popen(["ffmpeg", "-nostdin", "-loglevel", "error", "-re", "-stream_loop", "-1", "-i", film(index, OTHERS),
                             "-c", "copy", *output], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL)


class Origin(ThreadedServer):
    """Sends whoever connects what is live in `film`, in that format; or over HTTP, for live.ts, and files of a directory."""

    def __init__(self, output, directory=None):
        self.film, self._output, self._directory = 0, output, directory

    def serve(self, connection):
        if self._directory:
            request = read_request(connection)
            name = pathlib.PurePath(request.split(" ", 2)[1]).name
            file = pathlib.Path(self._directory) / name
            if name != "live.ts":
                status, body = ("200 OK", file.read_bytes()) if file.exists() else ("404 Not Found", b"")
                connection.sendall(answer(request, status, "Connection: close", body=body))
                return
            connection.sendall(b"HTTP/1.1 200 OK\r\nConnection: close\r\nContent-Type: video/mp2t\r\n\r\n")
        with feed(self.film, *self._output, "-") as feeder:
            try:
                while data := feeder.stdout.read1(65536):
                    connection.sendall(data)
            finally:
                feeder.kill()


class Stream(contextlib.ExitStack):
    """A stream behind a proxy, from entering the context to leaving it, with a server that a subclass starts in begin().

    kill() ends the server, and restart() starts it with `film`, the one that is to be seen.
    """

    scheme, path, films = "http", "/live", len(COLOURS)

    def __enter__(self):
        super().__enter__()
        self.film, self.fault, self.killed = 0, "the start", False
        self.begin()
        self.proxy = self.enter_context(FaultyProxy(self.scheme, self.path, self.port))
        return self

    def __str__(self):
        return f"{type(self).__name__}, {self.fault}"

    def faults(self, chance):
        """What may go wrong until mend(), by name, as functions."""
        cut, choice = self.proxy.cut, chance.choice
        unavailable = f"{'RTSP/1.0' if self.scheme == RTSP else 'HTTP/1.1'} 503 Unavailable\r\nCSeq: 1\r\nContent-Length: 0\r\n\r\n"
        return {
            "killed": lambda: self._die(chance.randrange(self.films)),
            "refused": self.proxy.close,
            "cut": lambda: cut(abrupt=choice((False, True))),
            "silent": lambda: vars(self.proxy).update(silent=True),
            "noise": lambda: vars(self.proxy).update(noise=choice((1, 17, 1000, 100000))),
            "garbage": lambda: cut(answer=chance.randbytes(choice((1, 100, 100000)))),
            "unavailable": lambda: cut(answer=unavailable.encode()),
            "nearly nothing": lambda: cut(allowances=[choice((100, 3000, 10000, 60000)) for _ in range(2)]),
            "redirected": lambda: cut(allowances=[None])}

    def _die(self, film):
        self.proxy.close()
        self.kill()
        self.killed, self.film = True, film

    def mend(self):
        if self.killed:
            self.restart()
            self.killed = False
        self.proxy.mend()


class MmsOverHttp(Stream):
    scheme, service = "mms", "mms-http"

    def begin(self):
        options = [word for index in range(self.films) for word in ("--stream", f"/live={film(index, ASF)}")]
        self._services = self.enter_context(LocalServices(*options, "--biscotti-port", 0))

    def port(self):
        return self._services.ports[self.service]

    def kill(self):
        self._services.kill()

    def restart(self):
        self.film = 0
        self._services.start()

    def faults(self, chance):
        control = self._services.control
        return {
            **super().faults(chance),
            "frozen": lambda: os.kill(self._services.pid, signal.SIGSTOP),
            "new header": lambda: control("header /live"),
            "next film": self._go_on,
            "slow": lambda: control("rate 30 /live"),
            "fast": lambda: control("rate 300 /live"),
            "half a header": lambda: control("fault /live cut header times 2", "drop /live"),
            "half a packet": lambda: control("fault /live cut packet times 2", "drop /live")}

    def _go_on(self):
        self.film = (self.film + 1) % self.films
        self._services.control("playlist next /live")

    def mend(self):
        if not self.killed:
            os.kill(self._services.pid, signal.SIGCONT)
        super().mend()
        self._services.control("clear /live")


class MmsOverTcp(MmsOverHttp):
    service = "mms-tcp"

    def faults(self, chance):
        return {name: begin for name, begin in super().faults(chance).items() if name != "redirected"}


class RtspOverTcp(Stream):
    scheme, transport = RTSP, TCP

    def begin(self):
        self._origin = self.enter_context(Origin(["-f", "matroska", "-live", "1"]))
        self._server = self.enter_context(GStreamerServer(transports=(self.transport,), launch=self._launch()))

    def _launch(self):
        return (f"( tcpclientsrc host=127.0.0.1 port={self._origin.port} ! matroskademux name=d"
                f"  d. ! queue ! {PAYLOADERS[self.film]} name=pay0 pt=96  d. ! queue ! aacparse ! rtpmp4gpay name=pay1 pt=97 )")

    def port(self):
        return self._server.port

    def kill(self):
        self._server.stop()

    def restart(self):
        self._origin.film, self._server.launch = self.film, self._launch()
        self._server.start()

    def faults(self, chance):
        return {**super().faults(chance), "frozen": lambda: os.kill(self._server.pid, signal.SIGSTOP)}

    def mend(self):
        if not self.killed:
            os.kill(self._server.pid, signal.SIGCONT)
        super().mend()


class RtspOverUdp(RtspOverTcp):
    """Its data goes past the proxy."""

    transport = UDP

    def faults(self, chance):
        return {name: begin for name, begin in super().faults(chance).items()
                if name in ("killed", "refused", "cut", "frozen", "redirected")}


class HttpTransportStream(Stream):
    path = "/live.ts"

    def begin(self):
        self._origin = self.enter_context(Origin(["-f", "mpegts"], "/nonexistent"))

    def port(self):
        return self._origin.port

    def kill(self):
        pass  # The proxy has cut its connections.

    def restart(self):
        self._origin.film = self.film


class Hls(HttpTransportStream):
    path, films = "/live.m3u8", 2  # What can change within a playlist is the size, not the codec.

    def begin(self):
        self._directory = self.enter_context(tempfile.TemporaryDirectory(prefix="ombravision-hls-"))
        self._origin = self.enter_context(Origin([], self._directory))
        self.restart()
        self.callback(self.kill)
        wait_for(pathlib.Path(self._directory, "live.m3u8").exists, 20, "the playlist")

    def kill(self):
        self._feeder.kill()
        self._feeder.communicate()

    def restart(self):
        self._feeder = feed(self.film, "-f", "hls", "-hls_time", "1", "-hls_list_size", "6", "-hls_start_number_source", "epoch",
                            "-hls_flags", "delete_segments+discont_start", f"{self._directory}/live.m3u8")

"""Stream servers that nobody here has written, on free ports of this machine."""

import os
import pathlib
import shutil
import signal
import socket
import subprocess
import sys
import tempfile
import time

UDP, TCP = "udp", "tcp"
NOBODY = 65534


def free_port():
    with socket.create_server(("127.0.0.1", 0)) as unused:
        return unused.getsockname()[1]


class _Server:
    """A server from entering the context to leaving it."""

    def __init__(self):
        self.port = free_port()
        self.directory = pathlib.Path(tempfile.mkdtemp(prefix="ombravision-server-"))

    @property
    def address(self):
        return f"rtsp://127.0.0.1:{self.port}/live"

    def _command(self):
        raise NotImplementedError

    def start(self):
        with open(self.directory / "output", "ab") as output:
            self._process = subprocess.Popen(self._command(), stdin=subprocess.DEVNULL, stdout=output, stderr=output,
                                             start_new_session=True)
        deadline = time.monotonic() + 20
        while time.monotonic() < deadline and self._process.poll() is None:
            try:
                socket.create_connection(("127.0.0.1", self.port), 1).close()
                return
            except OSError:
                time.sleep(0.05)
        raise RuntimeError("the server did not start:\n" + (self.directory / "output").read_text(errors="replace"))

    def stop(self):
        if self._process.poll() is None:
            os.killpg(self._process.pid, signal.SIGKILL)
        self._process.wait()

    @property
    def pid(self):
        return self._process.pid

    def __enter__(self):
        self.start()
        return self

    def __exit__(self, *_):
        self.stop()
        shutil.rmtree(self.directory, ignore_errors=True)


class GStreamerServer(_Server):
    """Plays a film again for each client, over those transports that are selected.

    `launch` is a pipeline in place of a film's; what it is set to later goes for the next start(). `user` and `password` ask
    for digest authentication.
    """

    def __init__(self, clip=None, transports=(UDP, TCP), launch=None, user=None, password=None):
        super().__init__()
        self.launch = launch or (
            f"( filesrc location={clip} ! qtdemux name=d"
            "  d.video_0 ! queue ! h264parse ! rtph264pay name=pay0 pt=96 config-interval=0"
            "  d.audio_0 ! queue ! aacparse ! rtpmp4gpay name=pay1 pt=97 )")
        self._options = [",".join(transports), user or "", password or ""]

    def _command(self):
        # GStreamer's introspection belongs to the system's Python.
        return ["/usr/bin/python3", __file__, str(self.port), self.launch, *self._options]


class _VlcServer(_Server):
    """Plays a film again and again for all clients at once."""

    def __init__(self, clip):
        super().__init__()
        self._clip = self.directory / ("film" + pathlib.Path(clip).suffix)
        shutil.copy(clip, self._clip)  # Where the server's user can read it.
        for path in (self.directory, self._clip):
            os.chmod(path, 0o755)

    def _options(self):
        raise NotImplementedError

    def _command(self):
        home = self.directory / "home"
        home.mkdir(exist_ok=True)
        command = ["env", f"HOME={home}", "cvlc", "--no-loop", "--repeat", self._clip, "--sout-keep", *self._options()]
        if os.getuid() == 0:  # It refuses to run as root.
            os.chown(home, NOBODY, NOBODY)
            command = ["setpriv", f"--reuid={NOBODY}", "--clear-groups", *command]
        return command


class VlcRtspServer(_VlcServer):
    """With UDP only."""

    def _options(self):
        return ["--sout", f"#rtp{{sdp=rtsp://127.0.0.1:{self.port}/live}}"]


class VlcMmsServer(_VlcServer):
    """MMS over HTTP. Its film has to be one in ASF."""

    @property
    def address(self):
        return f"mms://127.0.0.1:{self.port}/live"

    def _options(self):
        return ["--http-host=127.0.0.1",
                "--sout", f"#std{{access=mmsh,mux=asfh,dst=127.0.0.1:{self.port}/live}}"]


def _serve(port, launch, transports, user, password):
    import gi
    gi.require_version("Gst", "1.0")
    gi.require_version("GstRtsp", "1.0")
    gi.require_version("GstRtspServer", "1.0")
    from gi.repository import GLib, Gst, GstRtsp, GstRtspServer

    Gst.init(None)
    server = GstRtspServer.RTSPServer()
    server.set_address("127.0.0.1")
    server.set_service(port)
    factory = GstRtspServer.RTSPMediaFactory()
    factory.set_launch(launch)
    flags = {UDP: GstRtsp.RTSPLowerTrans.UDP, TCP: GstRtsp.RTSPLowerTrans.TCP}
    protocols = GstRtsp.RTSPLowerTrans(0)
    for transport in transports.split(","):
        protocols |= flags[transport]
    factory.set_protocols(protocols)
    if user:
        auth = GstRtspServer.RTSPAuth()
        auth.set_supported_methods(GstRtsp.RTSPAuthMethod.DIGEST)
        token = GstRtspServer.RTSPToken()
        token.set_string("media.factory.role", "viewer")
        auth.add_digest(user, password, token)
        server.set_auth(auth)
        permissions = GstRtspServer.RTSPPermissions()
        permissions.add_permission_for_role("viewer", "media.factory.access", True)
        permissions.add_permission_for_role("viewer", "media.factory.construct", True)
        factory.set_permissions(permissions)
    server.get_mount_points().add_factory("/live", factory)
    server.attach(None)
    GLib.MainLoop().run()


if __name__ == "__main__":
    _serve(*sys.argv[1:])

"""The local services as a process of their own, on free ports."""

import pathlib
import socket
import subprocess
import tempfile

from . import built, wait_for

SERVICES = "mms-http", "mms-tcp", "biscotti", "control", "web", "web-tls"
ALONE = "--web-port", "0", "--web-tls-port", "0", "--database", ":memory:"


class LocalServices:
    """The program with these arguments, from entering the context to leaving it.

    Can be killed and started again, on the ports that it has got at first.
    """

    def __init__(self, *arguments):
        self._arguments = [str(argument) for argument in (*ALONE, *arguments)]
        self.ports = {}

    def __enter__(self):
        self._directory = tempfile.TemporaryDirectory(prefix="ombravision-localservices-")
        self._log = pathlib.Path(self._directory.name) / "log"
        self.start()
        return self

    def __exit__(self, *_):
        self._process.terminate()
        self._process.wait(30)
        self._directory.cleanup()

    def wait(self):
        """The status with which it ended."""
        return self._process.wait(30)

    def start(self):
        ports = pathlib.Path(self._directory.name) / "ports"
        ports.unlink(missing_ok=True)
        fixed = [f"--{service}-port={port}" for service, port in self.ports.items() if service in SERVICES]
        with open(self._log, "ab") as log:
            self._process = subprocess.Popen(
                [built("OMBRAVISION_LOCALSERVICES", "localservices/ombravision-localservices"), *self._arguments,
                 *fixed, "--ports-file", ports], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=log)
        wait_for(lambda: ports.exists() or self._process.poll() is not None, 20, "the services")
        if not ports.exists():
            self._process.wait()
            raise RuntimeError(self.log())
        lines = [line.split() for line in ports.read_text().splitlines()]
        self.ports = {words[0]: int(words[2]) for words in lines}
        self._token = next((words[3] for words in lines if words[0] == "control"), None)

    def kill(self):
        self._process.kill()
        self._process.wait()

    @property
    def pid(self):
        return self._process.pid

    def log(self):
        return self._log.read_text(errors="replace")

    def address(self, scheme, name):
        """Of a stream: mmsh for MMS over HTTP, mmst for MMS over TCP, http for a document."""
        return f"{scheme}://127.0.0.1:{self.ports['mms-tcp' if scheme == 'mmst' else 'mms-http']}{name}"

    def settings(self, user, password):
        """Those of a program that signs in here by itself."""
        name = user.replace("@", "%40")
        return {r"application/service\url": f"http://127.0.0.1:{self.ports['web']}",
                r"application/biscotti\host": "127.0.0.1", r"application/biscotti\port": self.ports["biscotti"],
                r"application/lastUser": user, rf"user/{name}\password": f'"{password}"',
                rf"user/{name}\signInAutomatically": "true", rf"user/{name}\videoWindow\seenTutorial29": "true"}

    def control(self, *lines):
        """The lines of the answers to these commands."""
        with socket.create_connection(("127.0.0.1", self.ports["control"]), 30) as connection:
            connection.sendall("".join(line + "\n" for line in (f"token {self._token}", *lines, "quit")).encode())
            with connection.makefile("rb") as answer:
                return answer.read().decode().splitlines()

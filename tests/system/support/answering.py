"""What the servers and relays of the tests have in common: a thread for each connection, requests and their answers."""

import socket
import threading


class ThreadedServer:
    """Serves each connection on a thread of its own, on a free port of this machine."""

    def __enter__(self):
        self._over = threading.Event()
        self._listen(0)
        self.port = self._listener.getsockname()[1]
        return self

    def __exit__(self, *_):
        self._over.set()
        self._stop_listening()

    def _listen(self, port):
        self._listener = socket.create_server(("127.0.0.1", port))
        threading.Thread(target=self._accept, daemon=True).start()

    def _stop_listening(self):
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


def read_request(connection):
    """The head of an HTTP or RTSP request, its body read away; empty at the end."""
    data = b""
    while b"\r\n\r\n" not in data:
        piece = connection.recv(65536)
        if not piece:
            return ""
        data += piece
    head, _, body = data.partition(b"\r\n\r\n")
    request = head.decode("latin-1")
    length = next((int(line.split(":")[1]) for line in request.splitlines() if line.lower().startswith("content-length:")), 0)
    while len(body) < length:
        piece = connection.recv(65536)
        if not piece:
            return ""
        body += piece
    return request


def answer(request, status, *headers, body=b""):
    """An answer with its length, in the request's protocol and, of RTSP, with its number."""
    lines = request.splitlines()
    protocol = "RTSP/1.0" if "RTSP/" in lines[0] else "HTTP/1.1"
    numbers = [line for line in lines if line.startswith("CSeq")]
    head = [f"{protocol} {status}", *numbers, *headers, f"Content-Length: {len(body)}"]
    return "".join(line + "\r\n" for line in [*head, ""]).encode() + body


def leads_away(request):
    """Whether the request is the one that may be answered by another address."""
    return request.startswith(("DESCRIBE ", "GET "))


def redirection(request, address):
    """Sends whoever asks for a stream to the address, and tells others what can be asked."""
    if leads_away(request):
        return answer(request, "302 Found", f"Location: {address}")
    return answer(request, "200 OK", "Public: DESCRIBE, SETUP, PLAY")

"""The messaging server and its command-line client, as processes, over loopback sockets. No display is needed."""

import contextlib
import os
import signal
import socket
import subprocess
import tempfile
import unittest

from support import built, wait_for
from support.localservices import LocalServices

TOOL = built("OMBRAVISION_BISCOTTI", "localservices/ombravision-biscotti")
SERVED = ("--biscotti-port", "0")


class Tool:
    """The client with these arguments, on the server of this port."""

    def __init__(self, port, *arguments, body=None):
        self._errors = tempfile.TemporaryFile()
        self.process = subprocess.Popen([TOOL, "--server", f"127.0.0.1:{port}", *arguments],
                                        stdin=subprocess.PIPE if body is not None else subprocess.DEVNULL,
                                        stdout=subprocess.PIPE, stderr=self._errors)
        if body is not None:
            with contextlib.suppress(BrokenPipeError):  # It reads no more than it can send.
                self.process.stdin.write(body)
            with contextlib.suppress(BrokenPipeError):
                self.process.stdin.close()
            self.process.stdin = None

    def errors(self):
        return os.pread(self._errors.fileno(), 100_000, 0).decode()

    def end(self):
        """Its status, output and errors."""
        output, _ = self.process.communicate(timeout=30)
        errors = self.errors()
        self._errors.close()
        return self.process.returncode, output, errors

    def wait_for_error(self, text):
        wait_for(lambda: text in self.errors() or self.process.poll() is not None, 20, text)


class BiscottiTest(unittest.TestCase):
    def run_tool(self, port, *arguments, body=None):
        return Tool(port, *arguments, body=body).end()

    def test_posts_arrive_and_are_acknowledged(self):
        with LocalServices(*SERVED) as services:
            port = services.ports["biscotti"]
            listener = Tool(port, "--count", "4", "sub", "Chat.News", ".vote")
            bodies = Tool(port, "--count", "1", "--bodies", "sub", ".vote")
            listener.wait_for_error("subscribed to .vote")
            bodies.wait_for_error("subscribed to .vote")
            self.assertEqual(self.run_tool(port, "--sender", "ann", "post", ".chat", "Good evening")[0], 0)
            self.assertEqual(self.run_tool(port, "post", ".chat.news.sport")[0], 0)
            self.assertEqual(self.run_tool(port, "post", ".nobody", "hears this")[0], 0)
            self.assertEqual(self.run_tool(port, "post", ".vote", "-", body=b"two\nlines\x1b[2J \xc3\xa9")[0], 0)
            self.assertEqual(self.run_tool(port, "--", "post", ".vote", "--last")[0], 0)
            status, output, _ = listener.end()
            self.assertEqual(status, 0)
            lines = [line.split(" ", 2)[2] for line in output.decode().splitlines()]
            self.assertEqual(lines, [".chat ann: Good evening", ".chat.news.sport ", ".vote two\\nlines\\x1b[2J é",
                                     ".vote --last"])
            self.assertEqual(bodies.end()[:2], (0, b"two\nlines\x1b[2J \xc3\xa9\n"))

    def test_what_does_not_work_is_told(self):
        with LocalServices(*SERVED, "--biscotti", "refuse .closed", "--biscotti", "seal .sealed") as services:
            port = services.ports["biscotti"]
            for arguments, body, status, text in (
                    (("post", ".closed.room", "x"), None, 3, "403 Server is refusing to fulfill the message."),
                    (("post", ".sealed", "x"), None, 3, "4011 Message must be signed."),
                    (("post", ".a", "-"), b"x" * 65_537, 3, "413 Post body is too large."),
                    (("post", ".a", "-"), b"x" * 2_000_000, 1, "larger than a message"),
                    (("post", "!!"), None, 1, "no topic"),
                    (("post",), None, 1, "needs a topic"),
                    (("--count", "0", "sub", ".a"), None, 1, "1 to"),
                    (("--server", "here:x", "sub", ".a"), None, 1, "a server such as"),
                    (("--wrong",), None, 1, "unknown option")):
                with self.subTest(arguments=arguments):
                    found, _, errors = self.run_tool(port, *arguments, body=body)
                    self.assertEqual(found, status, errors)
                    self.assertIn(text, errors)
            services.control("biscotti ack 503")
            self.assertIn("503 Temporary server error.", self.run_tool(port, "post", ".a", "x")[2])
            services.control("biscotti silence on")
            status, _, errors = self.run_tool(port, "--timeout", "1", "post", ".a", "x")
            self.assertEqual(status, 2)
            self.assertIn("within 1 s", errors)
        with socket.socket() as unused:
            unused.bind(("127.0.0.1", 0))
            status, _, errors = self.run_tool(unused.getsockname()[1], "post", ".a", "x")
        self.assertEqual(status, 2)
        self.assertIn("refused", errors)

    def test_both_end_cleanly_when_interrupted(self):
        with LocalServices(*SERVED) as services:
            port = services.ports["biscotti"]
            listener = Tool(port, "sub", ".")
            listener.wait_for_error("subscribed to .")
            self.assertIn("1 clients, 1 remembered, 1 subscriptions, 0 posts", services.control("biscotti list"))
            listener.process.send_signal(signal.SIGINT)
            self.assertEqual(listener.end()[0], 0)
            wait_for(lambda: "0 clients, 1 remembered, 0 subscriptions, 0 posts" in services.control("biscotti list"),
                     10, "the server to see it")
            left = Tool(port, "sub", ".")
            left.wait_for_error("subscribed to .")
            os.kill(services.pid, signal.SIGTERM)
            left.wait_for_error("the connection to")
            self.assertEqual(services.wait(), 0)
            left.process.send_signal(signal.SIGTERM)
            self.assertEqual(left.end()[0], 0)

    def test_the_default_port_may_be_taken(self):
        with LocalServices() as first, LocalServices() as second:
            self.assertNotEqual(first.ports["biscotti"], second.ports["biscotti"])
            self.assertIn("is taken", first.log() + second.log())
            self.assertEqual(self.run_tool(second.ports["biscotti"], "post", ".a", "x")[0], 0)


if __name__ == "__main__":
    unittest.main()

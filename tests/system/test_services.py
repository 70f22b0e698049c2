"""The directory and the accounts, judged by programs that know nothing of this one: zeep, curl and SQLite's shell."""

import base64
import json
import pathlib
import subprocess
import tempfile
import unittest
import urllib.parse

import zeep

from support import clips
from support.localservices import LocalServices

PASSWORD = "çorrect \"horse\" & <báttery>"


def login(email, password, node):
    """The text that programs sign in with."""
    fields = [urllib.parse.quote(field, safe="") for field in (email, password, node, "3.2.0")]
    return base64.b64encode(" ".join([*fields, "0-Linux", "x86_64"]).encode()).decode()


def curl(*arguments):
    return subprocess.run(["curl", "--silent", "--show-error", "--max-time", "20", *map(str, arguments)],
                          check=True, capture_output=True).stdout.decode()


class ServicesTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        directory = pathlib.Path(cls.enterClassContext(tempfile.TemporaryDirectory()))
        cls.database = directory / "services.sqlite"
        cls.certificate = directory / "certificate.pem"
        clip = clips.asf(8)
        cls.services = cls.enterClassContext(LocalServices(
            "--stream", f"/one={clip}", "--stream", f"/vault={clip}", "--database", cls.database,
            "--certificate-file", cls.certificate, "--max-age", "77"))
        cls.base = f"http://127.0.0.1:{cls.services.ports['web']}"
        cls.document = f"{cls.base}/client/desktop/3_2_0/channels.xml"
        cls.client = zeep.Client(f"{cls.base}/client/api?wsdl").service

    def test_a_viewer_signs_up_signs_in_and_has_channels_by_the_wsdl(self):
        self.assertIn("<response", self.client.Register("Ann@Example.org", PASSWORD, "false"))
        self.assertIn("There is an account", self.client.Register("ann@example.org", PASSWORD, "false"))
        self.assertIn("not valid", self.client.Register("ann", "short", "false"))
        refused = self.client.LoginWithErrorHandling(login("ann@example.org", PASSWORD + " ", "node-a"))
        self.assertEqual(refused.authenticated, "false")
        unknown = self.client.LoginWithErrorHandling(login("bob@example.org", PASSWORD, "node-a"))
        self.assertEqual(unknown.message, refused.message)
        self.services.control("account join ann@example.org AllChannels", "account grant ann@example.org Chat Moderator",
                              "signin set update_version 3.3.0")
        told = self.client.LoginWithErrorHandling(login("ann@example.org", PASSWORD, "node-a"))
        self.assertEqual((told.authenticated, told.update_version, told.multiview_channels), ("true", "3.3.0", "9"))
        self.assertEqual(told.roles.item[0].variables, "chatSuffix=Moderator")
        self.assertIn("<name>ann</name>", curl(f"{self.base}/roles/Chat%20Moderator/users.xml"))

        made = self.client.CreateUserStream("node-a", "mms://host/a?b=1&c", "Frühling <1>", "50% off", "TV", "", "")
        self.assertEqual(self.client.GetUserStreams("FRÜHLING 50%", "1", "node-a").user_streams.item[0].name, "Frühling <1>")
        self.assertEqual(self.client.GetUserStreams("5_% off", "1", "node-a").total_entries, "0")
        self.client.Register("bob@example.org", PASSWORD, "true")
        self.client.LoginWithErrorHandling(login("bob@example.org", PASSWORD, "node-b"))
        self.assertNotIn(made.id, self.client.GetAllowedChannels("node-b").channels.item)
        self.assertEqual(self.client.AddUserStream("node-b", made.id).uri, "mms://host/a?b=1&c")
        self.assertEqual(self.client.TogglePartnerChannel("node-b", "one"), "true")
        allowed = self.client.GetAllowedChannels("node-b")
        self.assertEqual((allowed.channels.item, allowed.default_channel), (["twin", "vault", "static", made.id], "twin"))
        self.client.TogglePartnerChannel("node-b", "one")
        self.assertEqual(self.client.GetAllowedChannels("node-b").default_channel, "one")
        self.client.DestroyUserStream("node-a", made.id)
        self.assertEqual(self.client.GetTopUserStreams("node-b").total_entries, "1", "bob still has it")
        for call in (lambda: self.client.AddUserStream("node-x", made.id), lambda: self.client.AddUserStream("node-a", "one"),
                     lambda: self.client.CreateUserStream("node-a", "file:///etc/passwd", "x", "", "TV", "", "")):
            self.assertRaises(zeep.exceptions.Fault, call)

        self.services.control("message to ann@example.org Hello & <welcome>", "message add To all")
        self.assertEqual(self.client.GetMessages("node-a").messages.item, ["Hello & <welcome>", "To all"])
        self.assertIsNone(self.client.GetMessages("node-a").messages)
        self.assertEqual(self.client.GetMessages("node-b").messages.item, ["To all"])
        rows = json.loads(subprocess.run(["sqlite3", "-readonly", "-json", self.database,
                                          "SELECT email, length(hash) AS size, iterations FROM accounts WHERE hash <> ''"],
                                         check=True, capture_output=True).stdout)
        self.assertEqual({(row["email"], row["size"]) for row in rows}, {("ann@example.org", 64), ("bob@example.org", 64)})
        self.assertNotIn("horse", self.services.log())
        self.assertEqual(self.database.stat().st_mode & 0o777, 0o600)

    def test_what_was_removed_comes_back_by_the_page(self):
        self.services.control("account add carol@example.org 'a pass word'")
        self.client.LoginWithErrorHandling(login("carol@example.org", "'a pass word'", "node-c"))
        self.client.TogglePartnerChannel("node-c", "twin")
        page = f"{self.base}/account/streams/login"
        form = curl(page, "--data-urlencode", "email=carol@example.org", "--data-urlencode", "password='a pass word'")
        session = form.split('name="session" value="')[1].split('"')[0]
        self.assertIn("Ombra Twin", form)
        self.assertIn("Please sign in again", curl(page, "-d", "session=0123&channel=twin"))
        self.assertIn("back in your list", curl(page, "-d", f"session={session}&channel=twin"))
        self.assertIn("twin", self.client.GetAllowedChannels("node-c").channels.item)

    def test_documents_have_an_age_and_tell_when_nothing_has_changed(self):
        def head(*arguments):
            return curl("--head", *arguments, self.document).lower()

        changed = next(line for line in head().splitlines() if line.startswith("last-modified: "))
        self.assertIn("cache-control: max-age=77", head())
        condition = ("-H", "If-Modified-Since: " + changed[15:].title().replace("Gmt", "GMT"))
        self.assertTrue(head(*condition).startswith("http/1.1 304 "))
        self.services.control("channel set one description New")
        self.assertTrue(head(*condition).startswith("http/1.1 200 "))
        secure = curl("--cacert", self.certificate, f"https://127.0.0.1:{self.services.ports['web-tls']}/channels/")
        self.assertIn("Ombra One", secure)

    def test_what_goes_wrong_on_purpose(self):
        def outcome(*arguments, seconds=20):
            result = subprocess.run(["curl", "--silent", "--max-time", str(seconds), "-w", "%{http_code}", "-o", "/dev/null",
                                     *arguments], check=False, capture_output=True, text=True)
            return result.stdout, result.returncode

        for fault, expected in (("500", ("500", 0)), ("silent", ("000", 28)), ("cut 100", ("200", 18)),
                                ("length", ("200", 18)), ("slow 60000", ("000", 28)), ("xml", ("200", 0))):
            with self.subTest(fault=fault):
                self.assertEqual(self.services.control("web clear", f"web fault /client/desktop {fault}"), ["OK", "OK"])
                self.assertEqual(outcome(self.document, seconds=1 if expected[1] == 28 else 20), expected)
        self.services.control("web clear", "web fault GetMessages fault Out of order times 1",
                              "web certificate expired")
        self.assertRaisesRegex(zeep.exceptions.Fault, "Out of order", self.client.GetMessages, "node")
        tls = f"https://127.0.0.1:{self.services.ports['web-tls']}/channels/"
        self.assertEqual(outcome("--cacert", str(self.certificate), tls)[1], 60)
        self.services.control("web certificate good", "web gone 3")
        self.assertEqual(outcome(self.document)[1], 7)
        curl("--retry", "20", "--retry-connrefused", "--retry-delay", "1", self.document)

    def test_what_was_answered_survives_kills(self):
        directory = self.enterContext(tempfile.TemporaryDirectory())
        services = self.enterContext(LocalServices("--database", f"{directory}/services.sqlite"))
        wsdl = f"http://127.0.0.1:{services.ports['web']}/client/api?wsdl"
        for number in range(5):
            viewer = f"viewer{number}@example.org"
            client = zeep.Client(wsdl).service
            self.assertIn("<response", client.Register(viewer, PASSWORD, "false"))
            client.LoginWithErrorHandling(login(viewer, PASSWORD, f"node-{number}"))
            client.CreateUserStream(f"node-{number}", "mms://host/a", f"Channel {number}", "", "TV", "", "")
            services.kill()
            services.start()
        client = zeep.Client(wsdl).service
        self.assertEqual(client.GetTopUserStreams("node-0").total_entries, "5")
        self.assertEqual(client.LoginWithErrorHandling(login("viewer0@example.org", PASSWORD, "n")).authenticated, "true")


if __name__ == "__main__":
    unittest.main()

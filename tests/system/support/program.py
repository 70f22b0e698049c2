"""The program itself, in a home directory of its own."""

import collections
import pathlib
import re
import shutil
import signal
import subprocess
import tempfile

from . import built, wait_for
from .display import VirtualDisplay

LogLine = collections.namedtuple("LogLine", "level file text")

ALSOFT = """[general]
drivers={drivers}
channels=stereo
sample-type=int16
frequency=44100
period_size=256
[wave]
file={wave}
"""


class Program:
    """One instance of the program on a display, from entering the context to leaving it, when it has to end cleanly.

    Sound goes to the file `wave`, or nowhere with the driver "null". `settings` maps "group/key" to values of the
    settings file, `environment` adds to its environment.
    """

    def __init__(self, display: VirtualDisplay, *arguments, settings=None, debug=True, driver="wave", environment=None):
        self._binary = built("OMBRAVISION_PROGRAM", "application/ombravision")
        self.display = display
        # A name right after a bare -debug would be its value; "-debug=" takes none.
        self._environment = environment or {}
        self._arguments = (["-debug="] if debug else []) + list(arguments)
        self.home = pathlib.Path(tempfile.mkdtemp(prefix="ombravision-home-"))
        self.wave = self.home / "sound.wav"
        self.log = self.home / ".Ombravision/Ombravision.log"
        self.status = None
        self._write_configuration(settings or {}, driver)

    def _write_configuration(self, settings, driver):
        (self.home / "runtime").mkdir(mode=0o700)
        (self.home / "alsoft.conf").write_text(ALSOFT.format(drivers=driver, wave=self.wave))
        groups = collections.defaultdict(list)
        groups["application"].append("tutorial\\seen29=true\n")  # Nobody is new here.
        told = {rf"application/window\{name}": "true" for name in ("toldOfSlowDriver", "toldOfTray")}
        for key, value in {**told, **settings}.items():  # What a viewer is told once would be in the picture.
            group, name = key.split("/")
            groups[group].append(f"{name}={value}\n")
        (self.home / "Channels.xml").write_text("<channels/>")  # With -demo nobody is asked for an account.
        text = "".join(f"[{group}]\n{''.join(lines)}" for group, lines in groups.items())
        directory = self.home / ".config/Ombravision"
        directory.mkdir(parents=True)
        for name in ("Ombravision.ini", "Ombravision.conf"):  # The logger may read the second.
            (directory / name).write_text(text)

    @property
    def environment(self):
        kept = {name: value for name, value in self.display.environment.items() if not name.startswith("XDG_")}
        return {**kept, "HOME": str(self.home), "XDG_RUNTIME_DIR": str(self.home / "runtime"), "LC_ALL": "C.UTF-8",
                "ALSOFT_CONF": str(self.home / "alsoft.conf"), **self._environment}

    def start(self):
        with open(self.home / "stdout", "wb") as out, open(self.home / "stderr", "wb") as err:
            self._process = subprocess.Popen([self._binary, *map(str, self._arguments)], stdin=subprocess.DEVNULL,
                                             stdout=out, stderr=err, env=self.environment, cwd=self.home)
        self.pid = self._process.pid

    def __enter__(self):
        self.start()
        try:
            self.window = wait_for(self._find_window, 60, "the window of the program")
        except BaseException:
            self._process.kill()
            self._process.wait()
            raise
        return self

    def __exit__(self, kind, *_):
        try:
            self.quit()
        except AssertionError:
            kind = AssertionError
            raise
        finally:
            if kind is None:
                shutil.rmtree(self.home)
            else:
                print(f"kept for a look: {self.home}; the end of its log:", flush=True)
                print("\n".join(f"  {line.file.split('/')[-1]} {line.text}" for line in self.log_lines()[-40:]), flush=True)

    def quit(self):
        """Ends the program as a session does. It has half a minute, and no excuse for a bad status."""
        if self.status is not None:
            return
        self._process.send_signal(signal.SIGTERM)
        try:
            self.status = self._process.wait(30)
        except subprocess.TimeoutExpired:
            self._process.kill()
            self.status = self._process.wait()
            raise AssertionError("the program did not end when told to") from None
        if self.status != 0:
            raise AssertionError(f"the program ended with status {self.status}")

    def again(self):
        """Starts the program anew, after it has ended, with what it has kept."""
        self.status = None
        self.__enter__()

    def wait(self, seconds=30):
        """The status of a program that ends by itself."""
        self.status = self._process.wait(seconds)
        return self.status

    def is_running(self):
        return self._process.poll() is None

    def start_second(self, *arguments):
        """Starts a second instance and returns its status."""
        return subprocess.run([self._binary, *map(str, arguments)], stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL, env=self.environment, timeout=60).returncode

    def _find_window(self):
        if not self.is_running():
            raise AssertionError(f"the program ended with status {self._process.returncode} and said:\n"
                                 + (self.home / "stderr").read_text(errors="replace"))
        for window in self.display.windows():
            if str(self.pid) in self.display.ask("xprop", "-id", window, "_NET_WM_PID").split():
                return window
        return None

    @staticmethod
    def _text_of(file):
        try:
            return file.read_text(errors="replace")
        except FileNotFoundError:  # Rolled over meanwhile.
            return ""

    def log_lines(self):
        """All lines of the log, the rolled files included, oldest first; a line without a head continues the last."""
        files = sorted(self.log.parent.glob(self.log.name + ".*"), reverse=True) + [self.log]
        text = "".join(map(self._text_of, files))
        return [LogLine(*match) for match in
                re.findall(r"^\[(\w+)\] [\d-]+ [\d:.]+ (\S+):\d+ (.*(?:\n(?!\[\w+\] ).*)*)", text, re.MULTILINE)]

    def logged(self, pattern):
        """The lines of the log whose text holds the pattern."""
        return [line for line in self.log_lines() if re.search(pattern, line.text)]

    def wait_for_log(self, pattern, seconds=20, count=1):
        return wait_for(lambda: len(self.logged(pattern)) >= count and self.logged(pattern), seconds,
                        f'"{pattern}" in the log')

    def video_rectangle(self, seconds=20):
        """Where the picture is on the screen, as the program has said last: x, y, width, height."""
        line = self.wait_for_log(r"^Video rectangle ", seconds)[-1]
        return tuple(map(int, re.search(r"(-?\d+) (-?\d+) (\d+) (\d+)", line.text).groups()))

    def own_size_rectangle(self, width, height):
        """The rectangle of a picture of that size, for which the window gives itself the right size, one to one."""
        return wait_for(lambda: self.video_rectangle()[2:] == (width, height) and self.video_rectangle(), 20,
                        f"a picture of {width}x{height}")

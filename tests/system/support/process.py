"""What the kernel tells about a process."""

import os
import pathlib
import re

TICKS = os.sysconf("SC_CLK_TCK")


def _status(pid, field):
    return int(re.search(field + r":\s+(\d+)", pathlib.Path(f"/proc/{pid}/status").read_text()).group(1))


def _stat(pid):
    """The fields of /proc/PID/stat after the name, so that field 3 of the manual page is at 0."""
    return pathlib.Path(f"/proc/{pid}/stat").read_text().rpartition(")")[2].split()


def threads(pid):
    return _status(pid, "Threads")


def descriptors(pid):
    return len(os.listdir(f"/proc/{pid}/fd"))


def resident_kb(pid):
    return _status(pid, "VmRSS")


def peak_kb(pid):
    return _status(pid, "VmHWM")


def cpu_seconds(pid):
    """User and system time that the process has used."""
    return sum(map(int, _stat(pid)[11:13])) / TICKS


def children(pid):
    """(pid, name) of the direct children."""
    found = []
    for entry in pathlib.Path("/proc").iterdir():
        if entry.name.isdigit():
            try:
                if int(_stat(entry.name)[1]) == pid:
                    found.append((int(entry.name), (entry / "comm").read_text().strip()))
            except (OSError, IndexError):
                pass  # It has ended meanwhile.
    return found

#!/usr/bin/env python3
"""How soon the program has its list of channels: from its own copy, and from the service. See benchmarks/README.md."""

import argparse
import os
import pathlib
import re
import shutil
import statistics
import sys
from datetime import datetime

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path.insert(0, str(ROOT / "tests/system"))

from support.display import VirtualDisplay  # noqa: E402
from support.localservices import LocalServices  # noqa: E402
from support.program import Program  # noqa: E402

GUEST, PASSWORD = "guest@ombravision.invalid", "not a secret"
BEGIN, END = "Starting Ombravision", "Channel update complete"


def seconds_to_list(program):
    """Of the program's last start, by its log: from its first line to the whole list, sign-in included."""
    text = program.log.read_text(errors="replace")
    times = [datetime.fromisoformat(re.findall(r"\d{4}-\d\d-\d\d [\d:.]+", text[:text.rindex(mark)])[-1])
             for mark in (BEGIN, END)]
    return (times[1] - times[0]).total_seconds()


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--build", type=pathlib.Path, default=ROOT / "build/release")
    parser.add_argument("--channels", type=int, default=5000)
    parser.add_argument("--starts", type=int, default=5, help="of each kind; the median counts")
    given = parser.parse_args()
    os.environ.setdefault("OMBRAVISION_PROGRAM", str(given.build / "application/ombravision"))
    os.environ.setdefault("OMBRAVISION_LOCALSERVICES", str(given.build / "localservices/ombravision-localservices"))
    found = {"network": [], "cache": []}
    with VirtualDisplay() as display, LocalServices("--no-seeds") as service:
        service.control(f"account add {GUEST} {PASSWORD}")
        for first in range(0, given.channels, 100):  # Each command is a transaction.
            service.control(*(f"channel add c{i} TV mms://127.0.0.1:9/c{i} Channel {i}"
                              for i in range(first, min(first + 100, given.channels))))
        user = GUEST.replace("@", "%40")
        for _ in range(given.starts):
            program = Program(display, debug=False, driver="null", settings={
                r"application/service\url": f"http://127.0.0.1:{service.ports['web']}", r"application/lastUser": GUEST,
                rf"user/{user}\password": f'"{PASSWORD}"', rf"user/{user}\signInAutomatically": "true"})
            for times in found.values():
                program.again()
                program.wait_for_log(f"^{END}", 60)
                program.quit()
                times.append(seconds_to_list(program))
                program.log.unlink()
            shutil.rmtree(program.home)
    network, cache = (statistics.median(times) for times in found.values())
    print(f"{given.channels} channels, from the start to the whole list, sign-in included: network {network:.2f} s, "
          f"cache {cache:.2f} s, ratio {cache / network:.2f}")


if __name__ == "__main__":
    main()

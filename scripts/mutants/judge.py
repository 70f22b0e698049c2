"""Builds mutations and asks the tests about them."""
import json
import os
import re
import subprocess
import sys
import tempfile
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from mutants.switches import HEADER, place_switch

PATIENCE = 20  # Seconds above five times what a test needs of itself.


class Test:
    """A test as ctest knows it, and what it needs and reaches."""

    def __init__(self, told):
        properties = {one["name"]: one["value"] for one in told["properties"]}
        self.name, self.labels = told["name"], properties.get("LABELS", [])
        self.directory = properties["WORKING_DIRECTORY"]
        self.environment = dict(one.split("=", 1) for one in properties.get("ENVIRONMENT", []))
        command = told["command"]
        if "DISPLAY" in os.environ and command[0].endswith("with-display"):
            command = command[1:]
        self.filter = next((part.split("=", 1)[1] for part in command if part.startswith("--gtest_filter=")), None)
        self.command = [part for part in command if not part.startswith("--gtest_filter=")]
        self.seconds, self.reached = 0.0, set()

    def program(self):
        return tuple(self.command), self.directory


def run_tests(tests, seconds, **environment):
    """Runs tests of one program, to the first that fails: "" when all pass, else that one's name."""
    command = list(tests[0].command)
    if tests[0].filter:
        command += ["--gtest_fail_fast", "--gtest_brief=1", "--gtest_filter=" + ":".join(one.filter for one in tests)]
    own = {"QT_QPA_PLATFORM": "offscreen", **tests[0].environment, **environment}
    try:
        done = subprocess.run(command, cwd=tests[0].directory, env={**os.environ, **own}, capture_output=True, text=True,
                              errors="replace", timeout=seconds, check=False)
    except subprocess.TimeoutExpired:
        return "hangs"
    if done.returncode == 0:
        return ""
    failed = re.findall(r"\[  FAILED  \] ([\w/]+\.[\w/]+)", done.stdout)
    return failed[0] if failed else "dies"


class Judge:
    def __init__(self, root, window):
        self.root, self.window = root, window
        self.directory = root / "build" / "mutants"
        self.header = self.directory / "mutant.h"
        self.tests = []

    def results_of(self, mutations):
        numbered = list(enumerate(mutations))
        yield from ({**one, "result": "gone"} for _, one in numbered if not self.stands(one))
        numbered = [(number, one) for number, one in numbered if self.stands(one)]
        self.configure()
        alone = self.build_with_switches(dict(numbered))
        try:
            self.find_tests()
            together = [(number, one) for number, one in numbered if number not in alone]
            with ThreadPoolExecutor(os.cpu_count()) as pool:
                yield from pool.map(lambda pair: {**pair[1], **self.asked(*pair)}, together)
        finally:
            self.put_back()
        for number, one in numbered:
            if number in alone:
                yield {**one, **self.built_alone(one)}

    def stands(self, mutation):
        path = self.root / mutation["file"]
        return path.exists() and path.read_text().split("\n").count(mutation["line"]) >= mutation["nth"]

    def put_back(self):
        subprocess.run(["git", "checkout", "-q", "--", "Components", "application"], cwd=self.root, check=True)

    def configure(self):
        self.directory.mkdir(parents=True, exist_ok=True)
        self.header.write_text(HEADER)
        subprocess.run(["cmake", "--preset", "dev", "-B", str(self.directory), "-DOMBRAVISION_WERROR=OFF",
                        "-DOMBRAVISION_UNITY=ON"], cwd=self.root, check=True, stdout=subprocess.DEVNULL)

    def build(self, *options):
        return subprocess.run(["cmake", "--build", str(self.directory), "--", *options], cwd=self.root,
                              capture_output=True, text=True, check=False)

    def build_with_switches(self, mutations):
        """Builds what can be switched, and returns the numbers of the others."""
        alone = set()
        while True:
            placed = {}
            for number, one in mutations.items():
                path = self.root / one["file"]
                text = None if number in alone else place_switch(path.read_text(), one, number, self.header)
                if text is None:
                    alone.add(number)
                else:
                    path.write_text(text)
                    placed[number] = one
            done = self.build("-k", "0")
            if done.returncode == 0:
                return alone
            self.put_back()
            refused = set(re.findall(r"((?:Components|application)/[\w/.]+):\d+:\d+: error:", done.stdout))
            unfit = {number for number, one in placed.items() if one["file"] in refused}
            if not unfit:
                sys.exit("mutate: this does not build:\n" + done.stdout[-3000:] + done.stderr[-1000:])
            print(f"mutate: built on their own, since the compiler refuses the switch: {sorted(unfit)}", file=sys.stderr)
            alone |= unfit

    def find_tests(self):
        """Runs each test once to see what it reaches and how long it takes. One that fails by itself is left out."""
        told = subprocess.run(["ctest", "--test-dir", str(self.directory), "--show-only=json-v1"], check=True,
                              capture_output=True, text=True).stdout
        tests = [Test(one) for one in json.loads(told)["tests"]]
        tests = [one for one in tests if "system" not in one.labels and (self.window or "window" not in one.labels)]

        def try_out(test):
            with tempfile.TemporaryDirectory() as reached:
                began = time.monotonic()
                failure = run_tests([test], 300, MUTANT_REACHED=reached)
                test.seconds = time.monotonic() - began
                for process in Path(reached).iterdir():
                    test.reached.update(map(int, process.read_text().split()))
            return failure
        with ThreadPoolExecutor(os.cpu_count()) as pool:
            failures = list(pool.map(try_out, tests))
        for test, failure in zip(tests, failures):
            if failure:
                print(f"mutate: {test.name} fails without a mutation: left out", file=sys.stderr)
        self.tests = [test for test, failure in zip(tests, failures) if not failure]

    def asked(self, number, mutation):
        """What the tests that reach a mutation say of it, the quick programs first."""
        programs = {}
        for test in self.tests:
            if number in test.reached:
                programs.setdefault(test.program(), []).append(test)
        reaching = sorted(programs.values(), key=lambda tests: sum(test.seconds for test in tests))
        for tests in reaching:
            by = self.noticed(tests, MUTANT=str(number))
            if by:
                return {"result": "caught", "by": by}
        return {"result": "missed", "reached": sum(map(len, reaching))}

    @staticmethod
    def noticed(tests, **environment):
        patience = PATIENCE + 5 * sum(test.seconds for test in tests)
        failed = run_tests(tests, patience, **environment)
        if failed and failed not in ("hangs", "dies"):  # Once more: it was the change that failed it.
            again = [test for test in tests if test.filter == failed] or tests
            if not run_tests(again, patience, **environment):
                failed = run_tests(tests, patience, **environment)
        return failed and f"{Path(tests[0].command[-1]).name}: {failed}"

    def built_alone(self, mutation):
        """The change alone: whole test programs, those that speak of its file before the others."""
        path = self.root / mutation["file"]
        lines = path.read_text().split("\n")
        places = [at for at, line in enumerate(lines) if line == mutation["line"]]
        lines[places[mutation["nth"] - 1]] = mutation["new"]
        path.write_text("\n".join(lines))
        try:
            if self.build().returncode:
                return {"result": "stillborn"}
            programs = {}
            for test in self.tests:
                programs.setdefault(test.program(), []).append(test)
            stem = re.compile(r"\b%s\b" % re.escape(path.stem))

            def distance(tests):
                sources = Path(tests[0].directory)  # Of the build, or of the sources already.
                if sources.is_relative_to(self.directory):
                    sources = self.root / sources.relative_to(self.directory)
                return (-sum(len(stem.findall(source.read_text())) for source in sources.glob("*.cpp")),
                        sum(test.seconds for test in tests))
            for tests in sorted(programs.values(), key=distance):
                by = self.noticed(tests)
                if by:
                    return {"result": "caught", "by": by}
            return {"result": "missed"}
        finally:
            self.put_back()

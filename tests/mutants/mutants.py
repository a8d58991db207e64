"""Puts deliberate faults into copies of the sources, one at a time, and tells which the tests do not notice.

    mutants.py SOURCES SCRATCH [WORD...]    with words: only the faults whose group, file or text holds one of them

Exit status 1 when more than one fault in ten survives, or when the list does not fit the sources any more. The list,
faults.txt, is read as follows:

    == GROUP: TEST-PROGRAM SOURCE-FILE
    - text that stands once in the file     + what a fault makes of it, on the next line
    ~ text with a year                      two faults: the year before and the year after, the last number counts
"""

import concurrent.futures
import os
import pathlib
import queue
import re
import shutil
import subprocess
import sys

COPIED = ["CMakeLists.txt", "cmake", "data", "packaging", "src", "tests", "tools"]
WORKERS = 2
LONGEST_RUN = 120  # seconds; a test program that hangs has noticed something
MAY_SURVIVE = 0.1


class Fault:
    def __init__(self, group, program, file, old, new):
        self.group, self.program, self.file, self.old, self.new = group, program, file, old, new

    def __str__(self):
        return f"{self.group}: {self.file}: {self.old} -> {self.new}"


def years_beside(text):
    before, year, behind = re.fullmatch(r"(.*\b)(\d{4})(\b.*?)", text).groups()
    return [f"{before}{int(year) + step}{behind}" for step in (-1, 1)]


def read_list(path):
    faults, old, place = [], None, ()
    for number, line in enumerate(path.read_text().splitlines(), 1):
        mark, text = line[:2].strip(), line[2:].strip()
        if mark == "==":
            group, _, rest = text.partition(": ")
            place = (group, *rest.split())
        elif mark == "-":
            old = text
        elif mark == "+":
            faults.append(Fault(*place, old, text))
        elif mark == "~":
            faults += [Fault(*place, text, new) for new in years_beside(text)]
        elif mark and mark != "#":
            sys.exit(f"{path}:{number}: {line}")
    return faults


def misfits(faults, sources):
    return [fault for fault in faults if (sources / fault.file).read_text().count(fault.old) != 1]


class Workshop:
    """A copy of the sources with a build of its own; the compiler cache serves both."""

    def __init__(self, sources, folder):
        self.sources, self.copy, self.build = sources, folder / "sources", folder / "build"
        shutil.rmtree(self.copy, ignore_errors=True)
        self.copy.mkdir(parents=True)
        for name in COPIED:
            original = sources / name
            (shutil.copytree if original.is_dir() else shutil.copy)(original, self.copy / name)
        self.environment = os.environ | {"CCACHE_BASEDIR": str(folder), "QT_QPA_PLATFORM": "offscreen"}
        self.call(["cmake", "-G", "Ninja", "-S", self.copy, "-B", self.build, "-DCMAKE_BUILD_TYPE=None",
                   "-DCMAKE_CXX_FLAGS=-O0 -w"], check=True)

    def call(self, command, **more):
        return subprocess.run(command, env=self.environment, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                              text=True, **more)

    def built(self, program, jobs=1):
        done = self.call(["cmake", "--build", self.build, "--target", program, "-j", str(jobs)])
        return "" if done.returncode == 0 else done.stdout[-3000:]

    def passes(self, program):
        try:
            return self.call([self.build / "bin" / program, "--gtest_fail_fast", "--gtest_brief=1"],
                             timeout=LONGEST_RUN).returncode == 0
        except subprocess.TimeoutExpired:
            return False

    def outcome(self, fault):
        """"noticed", "SURVIVES", or why the fault can not be tried."""
        file = self.copy / fault.file
        text = file.read_text()
        file.write_text(text.replace(fault.old, fault.new))
        try:
            complaint = self.built(fault.program)
            return complaint or ("SURVIVES" if self.passes(fault.program) else "noticed")
        finally:
            file.write_text(text)


def main():
    sources, scratch = (pathlib.Path(word).resolve() for word in sys.argv[1:3])
    words = sys.argv[3:]
    faults = read_list(sources / "tests/mutants/faults.txt")
    rotten = misfits(faults, sources)
    for fault in rotten:
        print(f"does not stand once in its file: {fault}")
    faults = [fault for fault in faults if not words or any(word in str(fault) for word in words)]
    if rotten or not faults:
        sys.exit(1)

    server = [sources / "tools/test-server.sh", "start", scratch / "server"]
    subprocess.run(server, check=True)
    os.environ["PGBP_TEST_SERVER"] = os.environ["ODBCSYSINI"] = str(scratch / "server")
    try:
        free = queue.Queue()
        for number in range(WORKERS):
            workshop = Workshop(sources, scratch / str(number))
            for program in sorted({fault.program for fault in faults}):
                complaint = workshop.built(program, WORKERS)
                if complaint or (number == 0 and not workshop.passes(program)):
                    sys.exit(complaint or f"{program} fails without a fault")
            free.put(workshop)

        def tried(fault):
            workshop = free.get()
            try:
                return fault, workshop.outcome(fault)
            finally:
                free.put(workshop)

        outcomes = []
        with concurrent.futures.ThreadPoolExecutor(WORKERS) as pool:
            for fault, outcome in pool.map(tried, faults):
                print(f"{outcome:8}  {fault}", flush=True)
                outcomes.append(outcome)
    finally:
        server[1] = "stop"
        subprocess.run(server, check=True)
    noticed, survivors = outcomes.count("noticed"), outcomes.count("SURVIVES")
    print(f"{len(faults)} faults, {noticed} noticed, {survivors} survive")
    if noticed + survivors < len(faults) or survivors > MAY_SURVIVE * len(faults):
        sys.exit(1)


main()

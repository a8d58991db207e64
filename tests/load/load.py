#!/usr/bin/env python3
"""Many preparers at work on one practice. Usage: load.py [--seconds N] [--self-test] PROGRAM ROW...

PROGRAM is pgbp-load. A row is PLACE:DRIVERS:CLIENTS:PAUSE, such as server:200:same:2: where company and balance lie
(server or folder), how many preparers, whether each has clients of his own or all have the same few (own, same), and
for how many seconds a preparer pauses between two steps on an average. Each is a process of its own that opens a
client, opens a line of it or a new one, types a figure, saves, writes the head of income and takes the next client,
through the screens of the module. The server is the one that PGBP_TEST_SERVER names, else one that is started with a
flush at each commit, as a practice has it; where none is installed its rows are left out.

Each driver notes what it was told and when. At the end the store is held against that:
- what was shown or is stored was told as saved, was not refused, and no later save was done by then;
- a line is stored whole: its income goes with the other income from which it was computed, it has its items, and no
  other line has its number; no line has gone, and a new one that was told as saved is there;
- the head of income is the last one that was told as written, and the sum of the lines where nobody else had them.
What does not agree counts as lost, and the exit status is 1. --self-test changes the store behind the drivers' backs
after the first row, in each of these ways, and fails unless each is found."""

import argparse
import collections
import os
import pathlib
import shutil
import sqlite3
import statistics
import subprocess
import sys
import tempfile
import time

SERVER = pathlib.Path(__file__).resolve().parent.parent.parent / "tools" / "test-server.sh"
SERVER_OPTIONS = "--innodb-flush-log-at-trx-commit=1 --innodb-buffer-pool-size=1G --max-connections=1000"
CLIENTS_OF_EACH = 2
CLIENTS_OF_ALL = 5
LONG = 1.0  # seconds from which on a preparer notices that he waits
START = float("-inf")
NEVER = float("inf")
NEW_LINE = -1.0  # income of a new line without its other income

Step = collections.namedtuple("Step", "what begin end code line value outcome processor told")
Line = collections.namedtuple("Line", "number net other items")


def read_journal(path):
    steps = []
    for text in path.read_text().splitlines():
        what, begin, end, code, line, value, outcome, processor, told = text.split("\t")
        steps.append(Step(what, int(begin) / 1e9, int(end) / 1e9, code, line, float(value) if value else None, outcome,
                          float(processor), told))
    return steps


class Rows:
    """What is stored of some clients."""

    def __init__(self, text, codes):
        others, items = {}, {}
        lines, self.lines, self.heads, self.faults = [], {}, {}, []
        numbers = collections.Counter()

        def put(into, key, value, what):
            if key in into:
                self.faults.append(f"{what} of {key} is there twice")
            into[key] = value

        for row in text.splitlines():
            what, code, *fields = row.split("\t")
            if what == "line":
                numbers[fields[1]] += 1
            if code not in codes:
                continue
            if what == "line":
                lines.append((code, *fields))
            elif what == "other":
                put(others, (code, fields[0]), float(fields[1]), "the other income")
            elif what == "items":
                items[code, fields[0]] = int(fields[1])
            else:
                put(self.heads, code, float(fields[0]), "the head of income")
        for code, name, number, net in lines:
            put(self.lines, (code, name), Line(number, float(net), others.get((code, number), 0.0),
                                               items.get((code, number), 0)), "the line")
        self.faults += [f"{count} lines have the number {number}" for number, count in numbers.items() if count > 1]


def why_wrong(writes, value, begin, end):
    """Why this can not have been stored between these moments; nothing where it can."""
    mine = [write for write in writes if write.value == value]
    reached = [write for write in mine if write.outcome != "refused"]
    if not reached:
        return "was refused" if mine else "was never saved"
    if all(write.begin > end for write in reached):
        return "was not saved yet"
    ended = max(write.end if write.outcome == "done" else NEVER for write in reached)
    for write in writes:
        if write.outcome == "done" and write.begin > ended and write.end < begin:
            return f"stands in place of {write.value:.0f}, which was told as saved behind it"
    return None


def hold(steps, before, after, is_own):
    """All that does not agree with what the drivers were told."""
    faults = list(after.faults)
    saves, leaves = collections.defaultdict(list), collections.defaultdict(list)
    for (code, name), line in before.lines.items():
        saves[code, name].append(Step("save", START, START, code, name, line.other, "done", 0, ""))
    for step in steps:
        if step.what == "save":
            saves[step.code, step.line].append(step)
        if step.what == "leave" and step.value is not None:
            leaves[step.code].append(step)
    for code, name in saves:
        if (code, name) not in after.lines and any(save.outcome == "done" for save in saves[code, name]):
            faults.append(f"{code}: the line {name} is gone")
    for step in steps:
        if step.what == "line" and step.outcome == "done" and step.line:
            why = why_wrong(saves[step.code, step.line], step.value, step.begin, step.end)
            if why:
                faults.append(f"{step.code}: {step.line} was shown with {step.value:.0f}, which {why}")
    sums = collections.Counter()
    for (code, name), line in after.lines.items():
        sums[code] += line.net
        why = why_wrong(saves[code, name], line.other, NEVER, NEVER)
        if why:
            faults.append(f"{code}: {name} stands with {line.other:.0f}, which {why}")
        first = before.lines.get((code, name), Line("", NEW_LINE, 0.0, 0))
        if line.net - line.other != first.net - first.other or line.items != first.items:
            faults.append(f"{code}: {name} is not whole: {line}")
    for code, written in leaves.items():
        head = after.heads.get(code)
        why = "there is none" if head is None else why_wrong(written, head, NEVER, NEVER)
        if is_own and not why and head != sums[code]:
            why = f"its lines give {sums[code]:.0f}"
        if why:
            faults.append(f"{code}: the head of income {head}: {why}")
    return faults


def percentiles(seconds):
    """p50 and p95 in milliseconds."""
    if len(seconds) < 2:
        return "-"
    cuts = statistics.quantiles(seconds, n=20)
    return f"{1000 * cuts[9]:.0f} / {1000 * cuts[18]:.0f}"


def processor_ticks():
    """Of all processors since the machine was started: busy, and all."""
    ticks = [int(tick) for tick in pathlib.Path("/proc/stat").read_text().split("\n", 1)[0].split()[1:9]]
    return sum(ticks) - ticks[3] - ticks[4], sum(ticks)


class Load:
    def __init__(self, program, work, server, seconds):
        self.program, self.work, self.server, self.seconds = program, work, server, seconds
        self.environment = {**os.environ, "PGBP_TEST_SERVER": str(server)}
        self.rows_done = 0

    def server_seconds(self):
        """Of a processor, since the server was started."""
        if not (self.server / "data").exists():
            return 0
        data = pathlib.Path((self.server / "data").read_text().strip())
        stat = pathlib.Path("/proc", (data / "pid").read_text().strip(), "stat").read_text()
        user, system = stat.rsplit(")", 1)[1].split()[11:13]
        return (int(user) + int(system)) / os.sysconf("SC_CLK_TCK")

    def call(self, *words):
        return subprocess.run([self.program, *map(str, words)], env=self.environment, check=True, text=True,
                              stdout=subprocess.PIPE).stdout

    def make(self, place, firms):
        """A practice and the codes of its firms."""
        practice = self.work / ("practice-" + place)
        codes = self.call("make", practice, firms).split()
        if place == "server":
            self.call("serve", practice)
        return practice, codes

    def drive(self, practice, shares, pause):
        """Lets one driver work for each share of the clients; what they were told."""
        self.rows_done += 1
        stations = [self.work / "stations" / str(number) for number in range(len(shares))]
        drivers = []
        for number, (station, codes) in enumerate(zip(stations, shares)):
            words = ["drive", practice, station, 1000 * self.rows_done + number, pause, *codes]
            drivers.append(subprocess.Popen([self.program, *map(str, words)], env=self.environment, text=True,
                                            stdin=subprocess.PIPE, stdout=subprocess.PIPE))
        for driver in drivers:
            driver.stdout.readline()
        for driver in drivers:
            driver.stdin.write(f"{self.seconds}\n")
            driver.stdin.flush()
        end = time.monotonic() + self.seconds
        for driver in drivers:
            driver.communicate()
            if driver.returncode != 0:
                raise SystemExit(f"a driver ended with {driver.returncode}")
        return [step for station in stations for step in read_journal(station / "journal")], end

    def stored(self, practice, codes):
        return Rows(self.call("rows", practice), set(codes))


def print_row(row, steps, end, faults, busy, server_seconds):
    """`busy` is the share of all processors' time, other programs' included. At the end all leave at once, without a
    pause: how long that takes does not count."""
    times = collections.defaultdict(list)
    for step in steps:
        if step.outcome == "done" and step.begin < end:
            times[step.what].append(step.end - step.begin)
    refused = [step for step in steps if step.outcome != "done"]
    long = sum(step.end - step.begin > LONG for step in steps if step.what != "saveback" and step.begin < end)
    clients = sum(step.what == "open" for step in steps) or 1
    processor = sum(step.processor for step in steps if step.what != "save" or step.outcome != "done")
    print("| " + " | ".join([
        row.place, str(row.drivers), row.clients, f"{row.pause:g} s", str(len(times["open"])), str(len(times["save"])),
        percentiles(times["open"]), percentiles(times["line"]), percentiles(times["save"]),
        percentiles(times["saveback"]), percentiles(times["leave"]), str(long), str(len(refused)),
        f"{1000 * processor / clients:.1f} + {1000 * server_seconds / clients:.1f}", f"{100 * busy:.0f}",
        str(len(faults))]) + " |", flush=True)
    for told, count in collections.Counter(step.told for step in refused).most_common(3):
        print(f"    {count} times: {told[:300]}")
    for fault in faults[:10]:
        print(f"    LOST {fault}")


HEADINGS = ("place", "drivers", "clients", "pause", "opened", "saved", "client opened, p50 / p95 ms", "line opened",
            "saved", "saved and back", "left", "above 1 s", "refused and told",
            "processor a client: driver + server, ms", "processors busy, %", "lost")

Row = collections.namedtuple("Row", "place drivers clients pause")


def read_row(text):
    place, drivers, clients, pause = text.split(":")
    if place not in ("server", "folder") or clients not in ("own", "same"):
        raise ValueError(text)
    return Row(place, int(drivers), clients, float(pause))


def firms_of(row):
    return CLIENTS_OF_EACH * row.drivers if row.clients == "own" else CLIENTS_OF_ALL


def shares_of(row, codes):
    if row.clients == "same":
        return [codes] * row.drivers
    return [codes[at:at + CLIENTS_OF_EACH] for at in range(0, len(codes), CLIENTS_OF_EACH)]


def self_test(load, practice, codes, steps, before):
    """Changes the files in ways that must be found; what was not."""
    last = max((step for step in steps if step.what == "save" and step.outcome == "done"
                and not step.line.startswith("Added ")), key=lambda step: step.begin)
    line = load.stored(practice, codes).lines[last.code, last.line]
    first = before.lines[last.code, last.line]
    of_line = f"code = '{last.code}' and SNO = {line.number}"
    ways = {
        "a save taken back": (("company", f"update misc_items set amt1 = {first.other} where {of_line}"),
                              ("company", f"update business set NET = {first.net} where {of_line}")),
        "half a save": (("company", f"update business set NET = {first.net} where {of_line}"),),
        "a line gone": (("company", f"delete from business where {of_line}"),),
        "a line twice": (("company", f"insert into business select * from business where {of_line}"),),
        "an item twice": (("company", f"insert into business1 (code, SNO) values ('{last.code}', {line.number})"),),
        "a head of income that was on no screen": (
            ("balance", f"update qelgeneral set amt1 = 1 where code = '{last.code}' and Type = 'BUSI'"),),
    }
    missed = []
    for way, changes in ways.items():
        with tempfile.TemporaryDirectory(dir=load.work) as folder:
            copy = pathlib.Path(folder) / "practice"
            shutil.copytree(practice, copy)
            for file, change in changes:
                with sqlite3.connect(copy / "server" / f"{file}.mdb") as data:
                    if data.execute(change).rowcount != 1:
                        raise SystemExit(f"nothing was changed: {change}")
            if not hold(steps, before, load.stored(copy, codes), True):
                missed.append(way)
    return missed


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--seconds", type=float, default=60)
    parser.add_argument("--self-test", action="store_true")
    parser.add_argument("program", type=pathlib.Path)
    parser.add_argument("rows", nargs="+", type=read_row)
    options = parser.parse_args()
    work = pathlib.Path(tempfile.mkdtemp(prefix="load-"))
    running = os.environ.get("PGBP_TEST_SERVER")
    server = pathlib.Path(running or work / "server")
    if not running:
        subprocess.run([SERVER, "start", server], check=True, env={**os.environ, "SERVER_OPTIONS": SERVER_OPTIONS})
    try:
        return run(options, Load(options.program.resolve(), work, server, options.seconds))
    finally:
        if not running:
            subprocess.run([SERVER, "stop", server], check=True)
        shutil.rmtree(work)


def run(options, load):
    has_server = (load.server / "address").exists()
    rows = [row for row in options.rows if has_server or row.place == "folder"]
    practices = {place: load.make(place, sum(firms_of(row) for row in rows if row.place == place))
                 for place in {row.place for row in rows}}
    print("| " + " | ".join(HEADINGS) + " |\n|" + "---|" * len(HEADINGS))
    lost = 0
    for row in rows:
        practice, left = practices[row.place]
        codes, left[:] = left[:firms_of(row)], left[firms_of(row):]
        before = load.stored(practice, codes)
        (busy, all_ticks), server_seconds = processor_ticks(), load.server_seconds()
        steps, end = load.drive(practice, shares_of(row, codes), row.pause)
        (busy_then, all_then), server_seconds_then = processor_ticks(), load.server_seconds()
        faults = hold(steps, before, load.stored(practice, codes), row.clients == "own")
        print_row(row, steps, end, faults, (busy_then - busy) / (all_then - all_ticks),
                  server_seconds_then - server_seconds)
        lost += len(faults) + (not any(step.what == "save" and step.outcome == "done" for step in steps))
        if options.self_test and row.place == "folder" and row.clients == "own":
            missed = self_test(load, practice, codes, steps, before)
            print("changes that were not found: " + (", ".join(missed) or "none"))
            lost += len(missed)
    return 1 if lost else 0


if __name__ == "__main__":
    sys.exit(main())
